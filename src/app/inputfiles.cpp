// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/inputfiles.h"

#include "app/eventlog.h"

QStringList inputFiles(int argc, const char *const *argv)
{
    constexpr int lastArgument = 20;
    QStringList files;
    if (argc > 1) {
        for (int i = 1; i < argc && i <= lastArgument; ++i)
            files.append(QString::fromLocal8Bit(argv[i]));
        (logInfo << "List of the input files processed").eol(0);
    }
    return files;
}
