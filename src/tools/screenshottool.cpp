// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/screenshottool.h"

#include "app/setting.h"
#include "tools/cursorpicture.h"

ScreenShotTool::ScreenShotTool(ToolHost *host) : Tool(true), m_host(host) {}

void ScreenShotTool::readSettings()
{
    const QSettings settings;
    m_toClipboard = settingOr(settings, QStringLiteral("ScreenshotTool/SaveViewToClipboard"), true);
    m_toFile = settingOr(settings, QStringLiteral("ScreenshotTool/SaveViewToFile"), false);
    m_byEmail = settingOr(settings, QStringLiteral("ScreenshotTool/SendViewViaEmail"), false);
    m_useOnce = settingOr(settings, QStringLiteral("ScreenshotTool/UseOnce"), true);
}

QCursor ScreenShotTool::makeCursor()
{
    const QPoint hotSpot(7, 7);
    CursorPicture picture(14, 14);
    // Filled rather than drawn as lines, which would lie half a pixel off on sharp screens.
    for (const QRect &arm : {QRect(2, 7, 3, 1), QRect(10, 7, 3, 1), QRect(7, 2, 1, 3), QRect(7, 10, 1, 3)})
        picture.painter().fillRect(arm, Qt::black);
    picture.drawDot(7, 7, Qt::black);
    return picture.toCursor(hotSpot);
}

void ScreenShotTool::mousePressed(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void ScreenShotTool::mouseMoved(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void ScreenShotTool::mouseReleased(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}

void ScreenShotTool::paintOverlay(QPainter *painter)
{
    QPen rim(QColor(140, 140, 250, 160));
    rim.setWidth(0);
    painter->save();
    painter->setPen(rim);
    painter->fillRect(m_selection, QBrush(QColor(110, 110, 250, 50), Qt::SolidPattern));
    painter->drawRect(m_selection);
    painter->restore();
}
