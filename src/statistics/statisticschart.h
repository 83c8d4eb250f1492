// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemView>
#include <QPoint>

class QRubberBand;

/// Shows the numbers of lines of the selected rows as a pie: comments, code and empty lines, with a legend.
///
/// The model has all lines in column 1, code in 2, comments in 3 and empty lines in 4. No place in the chart stands
/// for an index, and nothing in it can be selected; dragging draws a frame and no more.
class StatisticsChart : public QAbstractItemView
{
    Q_OBJECT

public:
    explicit StatisticsChart(QWidget *parent = nullptr);

    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &point) const override;

public slots:
    /// To be called when the selection has changed: the chart does not follow it by itself.
    void redrawChart();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex &index) const override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags flags) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;

protected slots:
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QList<int> &roles = QList<int>()) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

private:
    /// Sums over rows; of each kind only what is above zero counts.
    struct Sums
    {
        qint64 total = 0;
        qint64 code = 0;
        qint64 comments = 0;
        qint64 empty = 0;
    };
    struct Wedge;

    int lineCount(int row, int column) const;
    void addRow(int row, Sums *sums) const;
    Sums selectedSums() const;
    void drawPie(QPainter *painter, const Sums &sums) const;
    void drawWedge(QPainter *painter, const Wedge &wedge, double start, double angle) const;
    void drawPercentage(QPainter *painter, double start, double angle) const;

    QPoint m_rubberOrigin; ///< Where the last press was.
    QRubberBand *m_rubberBand = nullptr;
    int m_rowsWithLines = 0; ///< Rows with any lines at all, as of the last change of data.
    Sums m_sums;             ///< Over all rows, likewise; its comments are never set back.
    int m_chartMargin = 8;   ///< Pixels between the view's edge and the pie.
    int m_viewSize = 300;
    int m_pieDiameter = m_viewSize - 2 * m_chartMargin;
};
