// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Path of one of the data folders beside the executable, with native separators and one at its end. The names are
/// "translations", "temporary", "logs", "syntax" and "resources"; any other gives an empty string, which callers must
/// not use as a path (it would mean the working directory). The folder need not exist; the program makes none of them.
/// Needs the application object.
QString dataFolder(const QString &name);
