// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QToolButton>

class ColorPickerPopup;

/// A tool button that shows the current colour as its icon and opens a popup grid of colours when checked.
class QtColorPicker : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(bool colorDialog READ colorDialogEnabled CONSTANT)

public:
    /// @p columns is the width of the grid in cells, -1 for an automatic one. @p enableColorDialog adds a last
    /// cell that opens the colour dialog. The current colour is black, the grid empty.
    explicit QtColorPicker(QWidget *parent = nullptr, int columns = -1, bool enableColorDialog = true);

    QColor currentColor() const;
    bool colorDialogEnabled() const;

    /// Adds a cell; @p index -1 means at the end. The first colour ever added becomes the current one, without
    /// colorChanged(). An invalid colour is ignored.
    void insertColor(const QColor &color, const QString &text = QString(), int index = -1);
    /// Adds the 17 named colours of Qt.
    void setStandardColors();

public slots:
    /// Does nothing for an invalid colour or the one that is current already. A colour that is not in the grid is
    /// added to it.
    void setCurrentColor(const QColor &col);

signals:
    /// The current colour is another one now, chosen by the user or by setCurrentColor().
    void colorChanged(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private slots:
    void buttonPressed(bool toggled);
    void popupClosed();

private:
    void makeCurrent(const QColor &color);
    QPoint popupPosition() const;
    /// Side of the icon, in logical pixels.
    int smallIconSize() const;
    void drawIcon();
    void retranslate();

    ColorPickerPopup *m_popup;
    QColor m_currentColor = Qt::black;
    bool m_withColorDialog;
    bool m_dirty = true;    ///< the icon has to be drawn anew
    qreal m_iconRatio = 1.; ///< device pixels per logical pixel of the icon last drawn
    bool m_firstInserted = false;
    bool m_hasStandardColors = false;
};
