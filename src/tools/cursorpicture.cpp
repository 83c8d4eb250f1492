// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/cursorpicture.h"

#include <QGuiApplication>

namespace {

QPixmap transparentPixmap(int width, int height)
{
    const qreal ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap((QSizeF(width, height) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

} // namespace

CursorPicture::CursorPicture(int width, int height) : m_pixmap(transparentPixmap(width, height)), m_painter(&m_pixmap)
{
}

QPainter &CursorPicture::painter()
{
    return m_painter;
}

void CursorPicture::drawDot(int x, int y, const QColor &color)
{
    m_painter.fillRect(x, y, 1, 1, color);
}

void CursorPicture::drawFadingCross(const QPoint &center, int length, QColor color)
{
    for (int k = 0; k < length; ++k) {
        color.setAlphaF(static_cast<float>(k) / static_cast<float>(length));
        drawDot(center.x() + 1 + k, center.y(), color);
        drawDot(center.x() - 1 - k, center.y(), color);
        drawDot(center.x(), center.y() + 1 + k, color);
        drawDot(center.x(), center.y() - 1 - k, color);
    }
}

void CursorPicture::drawCenteredCross(const QPoint &center, QColor color)
{
    drawFadingCross(center, 4, color);
    color.setAlphaF(1.0F);
    drawDot(center.x(), center.y(), color);
}

QCursor CursorPicture::toCursor(const QPoint &hotSpot)
{
    m_painter.end();
    return QCursor(m_pixmap, hotSpot.x(), hotSpot.y());
}
