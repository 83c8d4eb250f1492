// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/colorpickeritem.h"

#include <QPainter>
#include <QPointer>

namespace {

/// The outline that runs from (@p inset, @p inset) to the same distance from the right and bottom edges.
QRect outlineOf(const QRect &area, int inset)
{
    return area.adjusted(inset, inset, -inset - 1, -inset - 1);
}

} // namespace

ColorPickerItem::ColorPickerItem(const QColor &color, const QString &text, QWidget *parent) : QFrame(parent)
{
    setFixedSize(22, 20);
    setMouseTracking(true);
    setColor(color, text);
}

QColor ColorPickerItem::color() const
{
    return m_color;
}

QString ColorPickerItem::text() const
{
    return m_text;
}

bool ColorPickerItem::isSelected() const
{
    return m_selected;
}

void ColorPickerItem::setSelected(bool selected)
{
    m_selected = selected;
    update();
}

void ColorPickerItem::setColor(const QColor &color, const QString &text)
{
    m_text = text;
    setToolTip(text);
    setAccessibleName(text);
    setColor(color);
}

void ColorPickerItem::setColor(const QColor &color)
{
    m_color = color;
    update();
}

void ColorPickerItem::mouseMoveEvent(QMouseEvent * /*event*/)
{
    takeFocus();
}

void ColorPickerItem::mousePressEvent(QMouseEvent * /*event*/)
{
    takeFocus();
}

void ColorPickerItem::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    const QPointer<ColorPickerItem> alive(this);
    setSelected(true);
    emit clicked();
    if (alive)
        emit selected();
}

void ColorPickerItem::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QPen blackPen(Qt::black, 0);
    if (m_selected) {
        painter.setPen(QPen(Qt::gray, 0));
        painter.drawRect(outlineOf(rect(), 1));
    }
    painter.setPen(blackPen);
    // One call for outline and filling: at higher device pixel ratios the outline is one device pixel wide, and a
    // filling of its own would leave a gap.
    painter.setBrush(m_color);
    painter.drawRect(outlineOf(rect(), 3));
    painter.setBrush(Qt::NoBrush);
    if (hasFocus())
        painter.drawRect(outlineOf(rect(), 0));
}

void ColorPickerItem::takeFocus()
{
    setFocus(Qt::OtherFocusReason);
    update();
}
