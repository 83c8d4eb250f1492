// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainwindow/windowprobe.h"

#include <QLatin1String>

/// Where the paths of the recent files are stored.
inline constexpr QLatin1String recentKey("General/RecentFileList");

/// The recent files as they are stored, newest first.
QStringList storedRecent();
/// The recent files that the menu shows, newest first.
QStringList recentPaths(const WindowProbe &window);
/// The window's title with an unmodified document of this name.
QString titleOf(const QString &name);
