// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/toolsettings.h"

#include "app/setting.h"

#include <algorithm>

namespace ToolSettings {

int lineWidth(const QSettings &settings, const QString &key, int defaultWidth)
{
    constexpr int widest = 1000;
    return std::clamp(settingOr(settings, key, defaultWidth), 0, widest);
}

int alpha(const QSettings &settings, const QString &key, int defaultTransparency)
{
    return alphaOfTransparency(settingOr(settings, key, defaultTransparency));
}

int alphaOfTransparency(int transparency)
{
    return static_cast<int>((100 - std::clamp(transparency, 0, 100)) / 100.0 * 255);
}

} // namespace ToolSettings
