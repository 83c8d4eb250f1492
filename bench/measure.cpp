// SPDX-License-Identifier: GPL-3.0-or-later
#include "measure.h"

#include <QDir>
#include <QFile>
#include <QString>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

double cpuMilliseconds()
{
#ifdef CLOCK_PROCESS_CPUTIME_ID
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
#else
    return static_cast<double>(std::clock()) * 1e3 / CLOCKS_PER_SEC;
#endif
}

/// A figure of /proc/self/status in megabytes; 0 where there is no such file.
double statusFigure(const char *name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0.0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.simplified().split(' ').value(1).toDouble() * 1024 / 1e6;
    }
    return 0.0;
}

/// Gives what has been freed back to the system, so that it does not count.
void trimHeap()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace

void prepareBenchmark()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", QDir::tempPath().toLocal8Bit() + "/kestrin7-bench");
    // Figures come line by line, also into a pipe.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
}

double leastCpu(int runs, const std::function<void()> &work, const std::function<void()> &prepare)
{
    double least = std::numeric_limits<double>::max();
    for (int run = 0; run < runs; ++run) {
        if (prepare)
            prepare();
        const double before = cpuMilliseconds();
        work();
        least = std::min(least, cpuMilliseconds() - before);
    }
    return least;
}

double heapInUse()
{
#ifdef __GLIBC__
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
#else
    return 0.0;
#endif
}

PeakMemory::PeakMemory()
{
    trimHeap();
    QFile peak(QStringLiteral("/proc/self/clear_refs"));
    if (peak.open(QIODevice::WriteOnly))
        peak.write("5");
}

double PeakMemory::aboveNow() const
{
    const double peak = statusFigure("VmHWM:");
    trimHeap();
    return peak - statusFigure("VmRSS:");
}

void printTitle(const QString &title)
{
    std::printf("\n%s\n%-52s %12s %12s %8s\n", qPrintable(title), "", "here", "reference", "ratio");
}

void printRow(const QString &what, double ours, double reference, const QString &unit)
{
    std::printf("%-52s %9.3f %-2s %9.3f %-2s %8.2f\n", qPrintable(what), ours, qPrintable(unit), reference,
                qPrintable(unit), ours / reference);
}

void printRow(const QString &what, double ours, const QString &unit)
{
    std::printf("%-52s %9.3f %-2s\n", qPrintable(what), ours, qPrintable(unit));
}
