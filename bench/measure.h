// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QString;

/// Prepares the process for measuring without a display: offscreen platform, settings of its own, no caret blinking.
/// Call before the application object is made.
void prepareBenchmark();

/// CPU time in milliseconds that @p work takes: the least of @p runs runs. @p prepare runs before each, unmeasured.
double leastCpu(int runs, const std::function<void()> &work, const std::function<void()> &prepare = {});

/// Megabytes of heap that are in use, where the C library tells; 0 elsewhere.
double heapInUse();

/// Watches the process's memory, where the system tells; 0 elsewhere.
class PeakMemory
{
public:
    /// Starts anew: the peak so far is forgotten, by all watchers.
    PeakMemory();

    /// Megabytes by which the peak since the start was above what the process needs now.
    double aboveNow() const;
};

void printTitle(const QString &title);
/// One line of a table: what was measured, our figure, the reference's and the ratio of the two.
void printRow(const QString &what, double ours, double reference, const QString &unit);
/// Without a reference.
void printRow(const QString &what, double ours, const QString &unit);
