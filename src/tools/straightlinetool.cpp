// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/straightlinetool.h"

#include "annotations/straightann.h"
#include "app/setting.h"
#include "tools/toolsettings.h"

void StraightLineTool::readSettings()
{
    const QSettings settings;
    QPen look = pen();
    look.setWidth(ToolSettings::lineWidth(settings, QStringLiteral("LineTool/LineWidth"), 0));
    look.setStyle(
        penStyle(settingOr(settings, QStringLiteral("LineTool/LineStyle"), QStringLiteral("Solid")), look.style()));
    setPen(look);
    setAntialiasing(settingOr(settings, QStringLiteral("LineTool/Antialiasing"), true));
}

void StraightLineTool::stretch(const QPointF &from, const QPointF &to)
{
    mark()->setLine(QLineF(from, to));
}

void StraightLineTool::normalize()
{
    mark()->normalizeLine();
}

StraightAnn *StraightLineTool::mark() const
{
    return static_cast<StraightAnn *>(annotation());
}
