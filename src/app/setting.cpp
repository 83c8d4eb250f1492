// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/setting.h"

#include <algorithm>

bool settingOr(const QSettings &settings, const QString &key, bool fallback)
{
    const QString word = settings.value(key).toString();
    for (const bool value : {false, true}) {
        if (word.compare(QVariant(value).toString(), Qt::CaseInsensitive) == 0)
            return value;
    }
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    return isNumber ? number != 0 : fallback;
}

int fontSizeSetting(const QSettings &settings, const QString &key, int fallback)
{
    constexpr int largest = 500;
    return std::clamp(settingOr(settings, key, fallback), 0, largest);
}
