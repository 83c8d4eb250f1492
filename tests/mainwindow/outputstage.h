// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainwindow/windowprobe.h"

/// A window with a text file of three lines in it.
struct OutputStage
{
    OutputStage() : document(files.write(QStringLiteral("letter.tar.txt"), "alpha\nbeta\ngamma\n")), window({document})
    {
    }
    QString path(const QString &name) const { return files.path(name); }

    TestFiles files;
    QString document;
    WindowProbe window;
};
