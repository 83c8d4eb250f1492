// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/processtools.h"

#include "tools/tool.h"

#include <QCoreApplication>

#include <memory>
#include <vector>

namespace {

std::vector<std::unique_ptr<Tool>> &keptTools()
{
    static std::vector<std::unique_ptr<Tool>> tools;
    return tools;
}

void deleteKeptTools()
{
    keptTools().clear();
}

} // namespace

void keepForProcess(Tool *tool)
{
    // A post routine runs once, at the beginning of the application object's end, while fonts and pixmaps still work.
    if (keptTools().empty())
        qAddPostRoutine(deleteKeptTools);
    keptTools().emplace_back(tool);
}
