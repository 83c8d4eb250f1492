// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/runningtheme.h"

#include <QLibrary>

#include <qt_windows.h>

namespace {

constexpr int nameLength = 256; ///< wide characters, with the closing zero

/// The two functions of the theme library, null where the library or a function is missing.
struct ThemeLibrary
{
    using IsAppThemed = BOOL(WINAPI *)();
    using GetCurrentThemeName = HRESULT(WINAPI *)(LPWSTR, int, LPWSTR, int, LPWSTR, int);

    ThemeLibrary()
        : isAppThemed(reinterpret_cast<IsAppThemed>(QLibrary::resolve(QStringLiteral("uxtheme"), "IsAppThemed"))),
          getCurrentThemeName(reinterpret_cast<GetCurrentThemeName>(
              QLibrary::resolve(QStringLiteral("uxtheme"), "GetCurrentThemeName")))
    {
    }

    IsAppThemed isAppThemed;
    GetCurrentThemeName getCurrentThemeName;
};

} // namespace

RunningTheme runningTheme()
{
    static const ThemeLibrary library;
    if (!library.isAppThemed || !library.getCurrentThemeName || !library.isAppThemed())
        return {};
    wchar_t fileName[nameLength] = {};
    wchar_t colorScheme[nameLength] = {};
    library.getCurrentThemeName(fileName, nameLength, colorScheme, nameLength, nullptr, 0);
    return {true, QString::fromWCharArray(fileName), QString::fromWCharArray(colorScheme)};
}
