// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/pentool.h"

#include "annotations/penline.h"
#include "app/eventlog.h"
#include "app/setting.h"
#include "tools/cursorpicture.h"
#include "tools/toolsettings.h"

PenTool::PenTool(const QColor &color, int width, bool followsSettings)
    : StrokeTool({100.0, 3, "PenTool pressed", "PenTool released"}, followsSettings)
{
    QPen look(color);
    look.setWidth(width);
    setPen(look);
}

void PenTool::readSettings()
{
    (logTrace << "Updating PenTool settings").eol(0);
    const QSettings settings;
    applyLook(ToolSettings::lineWidth(settings, QStringLiteral("PenTool/LineWidth"), 0),
              ToolSettings::alpha(settings, QStringLiteral("PenTool/Transparency"), 60));
    setAntialiasing(settingOr(settings, QStringLiteral("PenTool/Antialiasing"), true));
    setSmoothing(settingOr(settings, QStringLiteral("PenTool/Smoothing"), false));
}

QCursor PenTool::makeCursor()
{
    const QPoint hotSpot(7, 7);
    const int width = pen().width();
    QColor color = pen().color();
    CursorPicture picture(14, 14);
    picture.drawFadingCross(hotSpot, 5, color);
    if (width < 3) {
        color.setAlphaF(1.0F);
        picture.drawDot(hotSpot.x(), hotSpot.y(), color);
        return picture.toCursor(hotSpot);
    }
    // The pen's real thickness: a solid square with a faint rim.
    const int odd = width % 2;
    const int outer = 7 - width / 2 - odd;
    const int inner = 8 - odd - width / 2;
    color.setAlphaF(0.1F);
    picture.painter().fillRect(QRect(QPoint(outer, outer), QPoint(outer + odd + width, outer + odd + width)), color);
    color.setAlphaF(1.0F);
    picture.painter().fillRect(QRect(QPoint(inner, inner), QPoint(inner + odd + width - 2, inner + odd + width - 2)),
                               color);
    return picture.toCursor(hotSpot);
}

Stroke *PenTool::createStroke() const
{
    return new PenLine;
}
