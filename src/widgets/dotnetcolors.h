// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

class QPalette;
struct RunningTheme;

/// The colours in which QtDotNetStyle paints.
struct DotNetColors
{
    QColor lightEnd; ///< of the gradients on tool bars and dock titles
    QColor darkEnd;
    QColor border;
    QColor darkTint; ///< of the gradients on menus and the status bar
    QColor lightTint;
    QColor frame;
    QColor highlightFrame; ///< round hot and pressed items
    QColor hot;            ///< under the mouse
    QColor pressed;        ///< pressed or switched on

    /// 0 to 2 for the themes that have colours of their own, 4 for any other and for none. With @p mode 0 only
    /// "Luna" counts; other modes know two more.
    static int themeNumber(const RunningTheme &theme, int mode);
    /// The colours of a theme number; those of 4 (and any other) come from @p palette.
    static DotNetColors ofTheme(int number, const QPalette &palette);
};
