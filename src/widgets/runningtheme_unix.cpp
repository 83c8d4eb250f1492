// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/runningtheme.h"

RunningTheme runningTheme()
{
    return {};
}
