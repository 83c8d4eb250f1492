// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/statisticschart.h"

#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace {

enum StatisticsColumn { TotalColumn = 1, CodeColumn = 2, CommentsColumn = 3, EmptyColumn = 4 };

/// Degrees in sixteenths, cut off. A model that counts more of one kind than of all goes round many times.
int pieUnits(double degrees)
{
    constexpr double most = 1e9;
    return static_cast<int>(std::min(degrees * 16, most));
}

} // namespace

/// What a wedge looks like, and its line of the legend. Places are pixels above the lower edge of the pie.
struct StatisticsChart::Wedge
{
    qint64 count;
    QGradientStop begin;
    QGradientStop end;
    QColor percentageColor;
    bool showsPercentage;
    QColor legendColor;
    QString legendText;
    int swatchTop;
    int baseline;
};

StatisticsChart::StatisticsChart(QWidget *parent) : QAbstractItemView(parent)
{
    horizontalScrollBar()->setRange(0, 0);
    verticalScrollBar()->setRange(0, 0);
    // The legend is written in black and dark gray, whatever the palette, so the ground must be light.
    QPalette light = palette();
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::WindowText, Qt::black);
    setPalette(light);
}

void StatisticsChart::redrawChart()
{
    viewport()->update();
}

QRect StatisticsChart::visualRect(const QModelIndex & /*index*/) const
{
    return {};
}

void StatisticsChart::scrollTo(const QModelIndex & /*index*/, ScrollHint /*hint*/)
{
    update();
}

QModelIndex StatisticsChart::indexAt(const QPoint & /*point*/) const
{
    return {};
}

bool StatisticsChart::edit(const QModelIndex & /*index*/, EditTrigger /*trigger*/, QEvent * /*event*/)
{
    return false;
}

int StatisticsChart::horizontalOffset() const
{
    return horizontalScrollBar()->value();
}

int StatisticsChart::verticalOffset() const
{
    return verticalScrollBar()->value();
}

bool StatisticsChart::isIndexHidden(const QModelIndex & /*index*/) const
{
    return false;
}

void StatisticsChart::setSelection(const QRect & /*rect*/, QItemSelectionModel::SelectionFlags /*flags*/)
{
    update();
}

QRegion StatisticsChart::visualRegionForSelection(const QItemSelection & /*selection*/) const
{
    return QRect();
}

void StatisticsChart::rowsInserted(const QModelIndex & /*parent*/, int /*start*/, int /*end*/) {}

void StatisticsChart::rowsAboutToBeRemoved(const QModelIndex & /*parent*/, int /*start*/, int /*end*/) {}

void StatisticsChart::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight, const QList<int> &roles)
{
    QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    m_rowsWithLines = 0;
    const qint64 commentsSoFar = m_sums.comments;
    m_sums = Sums();
    m_sums.comments = commentsSoFar;
    for (int row = 0; row < model()->rowCount(rootIndex()); ++row) {
        m_rowsWithLines += lineCount(row, TotalColumn) > 0 ? 1 : 0;
        addRow(row, &m_sums);
    }
    viewport()->update();
}

int StatisticsChart::lineCount(int row, int column) const
{
    return model()->index(row, column, rootIndex()).data(Qt::DisplayRole).toInt();
}

void StatisticsChart::addRow(int row, Sums *sums) const
{
    sums->total += std::max(lineCount(row, TotalColumn), 0);
    sums->code += std::max(lineCount(row, CodeColumn), 0);
    sums->comments += std::max(lineCount(row, CommentsColumn), 0);
    sums->empty += std::max(lineCount(row, EmptyColumn), 0);
}

StatisticsChart::Sums StatisticsChart::selectedSums() const
{
    Sums sums;
    const int rows = model() && selectionModel() ? model()->rowCount(rootIndex()) : 0;
    for (int row = 0; row < rows; ++row) {
        if (selectionModel()->rowIntersectsSelection(row, rootIndex()))
            addRow(row, &sums);
    }
    return sums;
}

void StatisticsChart::paintEvent(QPaintEvent *event)
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(event->rect(), option.palette.base());
    painter.setPen(option.palette.color(QPalette::WindowText));
    if (m_rowsWithLines <= 0)
        return;
    painter.save();
    painter.translate(m_chartMargin - horizontalOffset(), m_chartMargin - verticalOffset());
    painter.drawEllipse(0, 0, m_pieDiameter, m_pieDiameter);
    if (const Sums sums = selectedSums(); sums.total > 0)
        drawPie(&painter, sums);
    painter.restore();
}

void StatisticsChart::drawPie(QPainter *painter, const Sums &sums) const
{
    const Wedge wedges[]{
        {sums.comments,
         {0.0, QColor(255, 140, 140)},
         {0.2, Qt::red},
         QColor(255, 220, 220),
         true,
         QColor(255, 68, 94),
         tr("comments"),
         40,
         30},
        {sums.code,
         {0.0, QColor(140, 255, 140)},
         {0.8, QColor(44, 171, 53)},
         QColor(230, 255, 230),
         true,
         QColor(44, 171, 53),
         tr("code"),
         25,
         15},
        {sums.empty,
         {0.6, QColor(170, 170, 255)},
         {1.0, Qt::blue},
         QColor(230, 230, 255),
         false,
         QColor(77, 63, 255),
         tr("empty lines"),
         10,
         0},
    };
    double start = 0.0;
    for (const Wedge &wedge : wedges) {
        const double angle = 360.0 * static_cast<double>(wedge.count) / static_cast<double>(sums.total);
        drawWedge(painter, wedge, start, angle);
        start += angle;
    }
    painter->setPen(Qt::darkGray);
    painter->drawText(m_pieDiameter + 10, m_pieDiameter - 55, tr("Total # of lines: %1").arg(sums.total));
}

/// @p start and @p angle are degrees, counterclockwise from three o'clock. The outline has the pen that the painter
/// comes with, which after a wedge is the black one of its legend.
void StatisticsChart::drawWedge(QPainter *painter, const Wedge &wedge, double start, double angle) const
{
    // One sweep of colours over the whole pie, of which each wedge shows its part.
    QConicalGradient gradient(m_pieDiameter / 2, m_pieDiameter / 2, 0);
    gradient.setStops({wedge.begin, wedge.end});
    painter->setBrush(gradient);
    painter->drawPie(0, 0, m_pieDiameter, m_pieDiameter, pieUnits(start), pieUnits(angle));
    painter->setPen(wedge.percentageColor);
    if (wedge.showsPercentage)
        drawPercentage(painter, start, angle);
    painter->fillRect(m_pieDiameter + 10, m_pieDiameter - wedge.swatchTop, 10, 10, wedge.legendColor);
    painter->setPen(Qt::black);
    painter->drawText(m_pieDiameter + 30, m_pieDiameter - wedge.baseline, wedge.legendText);
}

/// The text starts in the middle of the wedge, half way to its rim.
void StatisticsChart::drawPercentage(QPainter *painter, double start, double angle) const
{
    constexpr double pi = 3.1415927;
    const double radians = (-pi * start - pi * angle * 0.5) / 180;
    const double x = std::trunc(m_pieDiameter / 2 + std::cos(radians) * m_pieDiameter * 0.25);
    const double y = std::trunc(m_pieDiameter / 2 + std::sin(radians) * m_pieDiameter * 0.25);
    painter->drawText(QPointF(x, y), tr("%1 %").arg(angle * 100 / 360, 0, 'g', 3, QLatin1Char(' ')));
}

void StatisticsChart::resizeEvent(QResizeEvent * /*event*/)
{
    updateGeometries();
}

void StatisticsChart::scrollContentsBy(int dx, int dy)
{
    viewport()->scroll(dx, dy);
}

void StatisticsChart::mousePressEvent(QMouseEvent *event)
{
    QAbstractItemView::mousePressEvent(event);
    m_rubberOrigin = event->position().toPoint();
    if (!m_rubberBand)
        m_rubberBand = new QRubberBand(QRubberBand::Rectangle, this);
    m_rubberBand->setGeometry(QRect(m_rubberOrigin, QSize()));
    m_rubberBand->show();
}

void StatisticsChart::mouseMoveEvent(QMouseEvent *event)
{
    if (m_rubberBand)
        m_rubberBand->setGeometry(QRect(m_rubberOrigin, event->position().toPoint()).normalized());
    QAbstractItemView::mouseMoveEvent(event);
}

void StatisticsChart::mouseReleaseEvent(QMouseEvent *event)
{
    QAbstractItemView::mouseReleaseEvent(event);
    if (m_rubberBand)
        m_rubberBand->hide();
    viewport()->update();
}

QModelIndex StatisticsChart::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/)
{
    if (!model())
        return {};
    QModelIndex current = currentIndex();
    const int lastRow = model()->rowCount(current.parent()) - 1;
    if (action == MoveUp || action == MoveLeft)
        current = model()->index(std::max(current.row() - 1, 0), current.column(), rootIndex());
    else if (action == MoveDown || action == MoveRight)
        current = model()->index(std::min(current.row() + 1, lastRow), current.column(), rootIndex());
    viewport()->update();
    return current;
}
