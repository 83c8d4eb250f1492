// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Tool;

/// Takes @p tool, which then lives until the application object begins to go: tools outlive the window that made
/// them. Main thread only; needs the application object.
void keepForProcess(Tool *tool);
