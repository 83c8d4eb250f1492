// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/markertool.h"

#include "annotations/markerline.h"
#include "app/setting.h"
#include "tools/cursorpicture.h"
#include "tools/toolsettings.h"

#include <algorithm>

MarkerTool::MarkerTool(const QColor &color, bool followsSettings)
    : StrokeTool({60.0, 2, "Marker tool pressed", "Marker tool released"}, followsSettings)
{
    setPen(QPen(color));
    applyLook(17, 120);
}

void MarkerTool::readSettings()
{
    const QSettings settings;
    applyLook(ToolSettings::lineWidth(settings, QStringLiteral("MarkerTool/LineWidth"), 14),
              ToolSettings::alpha(settings, QStringLiteral("MarkerTool/Transparency"), 60));
    setAntialiasing(settingOr(settings, QStringLiteral("MarkerTool/Antialiasing"), true));
    setSmoothing(settingOr(settings, QStringLiteral("MarkerTool/Smoothing"), false));
}

QCursor MarkerTool::makeCursor()
{
    // A cursor can be neither without height nor taller than window systems take.
    constexpr int tallest = 128;
    const int height = std::clamp(pen().width(), 1, tallest);
    QColor color = pen().color();
    CursorPicture picture(10, height);
    const auto fill = [&](const QRect &rect) {
        if (rect.isValid())
            picture.painter().fillRect(rect, color);
    };
    for (int k = 0; k <= 1; ++k) {
        color.setAlphaF(static_cast<float>(k + 1) * 0.25F);
        fill(QRect(QPoint(k, k), QPoint(9 - k, height - 1 - k)));
    }
    color.setAlpha(200);
    fill(QRect(QPoint(2, 2), QPoint(7, height - 3)));
    return picture.toCursor();
}

Stroke *MarkerTool::createStroke() const
{
    return new MarkerLine;
}
