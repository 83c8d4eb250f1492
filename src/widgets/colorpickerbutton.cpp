// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/colorpickerbutton.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

bool isPressKey(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
}

} // namespace

ColorPickerButton::ColorPickerButton(QWidget *parent) : QFrame(parent)
{
    setFrameStyle(StyledPanel);
    setFrameShadow(Raised);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void ColorPickerButton::mousePressEvent(QMouseEvent * /*event*/)
{
    showShadow(Sunken);
}

void ColorPickerButton::mouseMoveEvent(QMouseEvent * /*event*/)
{
    setFocus(Qt::OtherFocusReason);
    update();
}

void ColorPickerButton::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    release();
}

void ColorPickerButton::keyPressEvent(QKeyEvent *event)
{
    if (isPressKey(event))
        showShadow(Sunken);
    else
        event->ignore();
}

void ColorPickerButton::keyReleaseEvent(QKeyEvent *event)
{
    // A key held down repeats its release too; only the last one is the user's.
    if (!isPressKey(event))
        event->ignore();
    else if (!event->isAutoRepeat())
        release();
}

void ColorPickerButton::focusInEvent(QFocusEvent * /*event*/)
{
    showShadow(Raised);
}

void ColorPickerButton::focusOutEvent(QFocusEvent * /*event*/)
{
    showShadow(Raised);
}

void ColorPickerButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    drawFrame(&painter);
    painter.fillRect(contentsRect(), palette().button());

    // Three dots: rectangles of 1 by 1 outlined with a pen of width 1, which makes squares of 2 by 2.
    const QPoint middle(width() / 2 - 1, height() / 2 - 1);
    for (const int offset : {-4, 0, 4})
        painter.fillRect(middle.x() + offset, middle.y(), 2, 2, palette().buttonText());

    if (hasFocus()) {
        painter.setPen(QPen(Qt::black, 0));
        painter.drawRect(0, 0, width() - 1, height() - 1);
    }
}

void ColorPickerButton::showShadow(Shadow shadow)
{
    setFrameShadow(shadow);
    update();
}

void ColorPickerButton::release()
{
    setFrameShadow(Raised);
    // At once: what the click opens may run an event loop of its own before the next regular painting.
    repaint();
    emit clicked();
}
