// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCursor>
#include <QPainter>
#include <QPixmap>

/// The picture of a mouse cursor in the making: transparent at first, drawn in logical pixels, with as many
/// device pixels as the sharpest screen has.
class CursorPicture
{
public:
    CursorPicture(int width, int height);

    /// For whatever else is to be drawn; in logical pixels, with a black pen one pixel wide.
    QPainter &painter();
    /// Colours one logical pixel.
    void drawDot(int x, int y, const QColor &color);
    /// Four arms of @p length pixels around @p center, growing stronger outwards; the centre itself stays free.
    void drawFadingCross(const QPoint &center, int length, QColor color);

    /// The look that line, bracket and shape tools share: a small fading cross with a full dot in its centre.
    void drawCenteredCross(const QPoint &center, QColor color);

    /// The finished cursor; nothing can be drawn afterwards. Without a hot spot it is the picture's middle.
    QCursor toCursor(const QPoint &hotSpot = {-1, -1});

private:
    QPixmap m_pixmap;
    QPainter m_painter;
};
