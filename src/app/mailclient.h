// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The command of the mail client that the system starts by default; empty if it has none. A pure look-up: nothing is
/// stored. May take a moment, since the system is asked each time.
///
/// On Windows the command line as the registry has it, with its quotes and placeholders; elsewhere the program alone.
QString defaultMailClient();
