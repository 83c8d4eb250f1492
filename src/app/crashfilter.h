// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

/// Hooks the faults that end a process: bad memory accesses, an overflow of the main thread's stack, illegal
/// instructions, arithmetic faults, and abort(), through which the C library reports a damaged heap.
///
/// When one strikes, the trace in the ring buffer is written to the start of @p dumpName (a local 8-bit path, resolved
/// against the present working directory; the file must exist by then), then a box tells the user, then the fault goes
/// on and ends the process. A second fault on the way ends it at once. Faults after main() has returned are not
/// recorded.
///
/// On Unix the box belongs to the program "kestrin7-crashbox" beside the executable, because this process is in no
/// state to show one; it is waited for at most @p boxSeconds (0: without limit) and stays when the time is up. Without
/// that program or a display there is no box. Call this once, before any other thread runs.
void installCrashFilter(const char *dumpName, unsigned boxSeconds = 60);

/// Gives the box the language that the program speaks now, and each one that it changes to while @p window lives: a
/// top-level widget, not null. Until then the box is in the language of the source.
void followLanguageOf(QWidget *window);

/// Lets the next abort() end the process without a crash record.
void leaveAbortAlone();
