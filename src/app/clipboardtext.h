// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The plain text on the system clipboard; empty if there is none.
///
/// Another program may own it. If that one does not answer, this waits once, as long as Qt does (5 s on X11), and then
/// gives up at once whenever it is called, until the clipboard changes or 10 s have gone by: asking for the text itself
/// would wait anew for each form in which a text may be offered, many times over for a single paste.
QString clipboardText();
