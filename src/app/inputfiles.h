// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The files named on the command line, as they stand there, in the local encoding; nothing is an option. At most the
/// first 20 arguments count. If there are any, a line in the log tells that they were read.
/// Give it what the application object left of main()'s arguments.
QStringList inputFiles(int argc, const char *const *argv);
