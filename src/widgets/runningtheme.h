// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// What the platform says about the visual theme that runs now.
struct RunningTheme
{
    bool themed = false; ///< whether the program is drawn with a theme at all
    QString fileName;    ///< path of the theme's file
    QString colorScheme; ///< the theme's own name of its colours
};

/// Asks the platform. Cheap enough for every painting; platforms without such themes say that none runs.
RunningTheme runningTheme();
