// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/dotnetcolors.h"

#include "widgets/runningtheme.h"

#include <QPalette>

namespace {

constexpr int paletteTheme = 4;

const QColor themeHot(255, 192, 111);
const QColor themePressed(254, 128, 62);

} // namespace

int DotNetColors::themeNumber(const RunningTheme &theme, int mode)
{
    if (!theme.themed)
        return paletteTheme;
    if (theme.fileName.endsWith(QLatin1String("Luna.msstyles"))) {
        if (theme.colorScheme == QLatin1String("Metallic"))
            return 1;
        return mode != 0 && theme.colorScheme == QLatin1String("HomeStead") ? 2 : 0;
    }
    return mode != 0 && theme.fileName.endsWith(QLatin1String("Aero.msstyles")) ? 0 : paletteTheme;
}

DotNetColors DotNetColors::ofTheme(int number, const QPalette &palette)
{
    switch (number) {
    case 0:
        return {{246, 246, 246}, {106, 140, 203}, {0, 45, 150}, {158, 190, 245}, {196, 217, 249},
                {59, 97, 156},   {0, 0, 128},     themeHot,     themePressed};
    case 1:
        return {{254, 250, 255}, {110, 109, 143}, {124, 124, 148}, {216, 216, 229}, {242, 242, 247},
                {124, 124, 148}, {75, 75, 111},   themeHot,        themePressed};
    case 2:
        return {{244, 244, 238}, {96, 128, 88}, {117, 141, 94}, {217, 217, 167}, {241, 240, 227},
                {96, 128, 88},   {63, 93, 56},  themeHot,       themePressed};
    default:
        break;
    }
    const QColor window = palette.color(QPalette::Window);
    const QColor dark = palette.color(QPalette::Dark);
    const QColor highlight = palette.color(QPalette::Highlight);
    return {
        window.lighter(108),    window.darker(110),    dark, window, window.lighter(106), dark, highlight.darker(110),
        highlight.lighter(120), highlight.lighter(180)};
}
