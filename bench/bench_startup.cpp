// SPDX-License-Identifier: GPL-3.0-or-later
// How long the program takes to its window without files, against a minimal window with Qt's widgets.
// Needs an X display without much else on it:  xvfb-run -a build/bench/bin/bench_startup
#include "measure.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <vector>

#include <X11/Xlib.h>

namespace {

constexpr int runs = 10;

/// Waits on the connection for a top-level window to be shown that a window manager would frame.
void waitForWindow(Display *display)
{
    for (;;) {
        XEvent event;
        XNextEvent(display, &event);
        XWindowAttributes attributes;
        if (event.type == MapNotify && !event.xmap.override_redirect &&
            XGetWindowAttributes(display, event.xmap.window, &attributes) && attributes.map_state == IsViewable)
            return;
    }
}

int ignoreErrors(Display *, XErrorEvent *)
{
    return 0; // A window of a process that was ended may be asked for.
}

/// Milliseconds from the start of @p program to its shown window.
double startTime(Display *display, const QString &program)
{
    const QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(home.path());
    XSync(display, True); // Forgets events of the run before.
    QElapsedTimer timer;
    timer.start();
    process.start(program, QStringList());
    if (!process.waitForStarted())
        qFatal("cannot start %s", qPrintable(program));
    waitForWindow(display);
    const double elapsed = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    process.kill();
    process.waitForFinished();
    return elapsed;
}

double median(std::vector<double> times)
{
    std::ranges::sort(times);
    const size_t half = times.size() / 2;
    return times.size() % 2 == 0 ? (times[half - 1] + times[half]) / 2 : times[half];
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    Display *display = XOpenDisplay(nullptr);
    if (!display)
        qFatal("needs an X display");
    XSetErrorHandler(ignoreErrors);
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    const QString folder = QCoreApplication::applicationDirPath();
    const QString program = folder + QStringLiteral("/kestrin7");
    const QString minimal = folder + QStringLiteral("/minimalwindow");
    std::vector<double> ours;
    std::vector<double> bare;
    // The first of each only fills the disk cache. In turns, so that both meet the same load.
    for (int run = 0; run <= runs; ++run) {
        const double one = startTime(display, program);
        const double other = startTime(display, minimal);
        if (run == 0)
            continue;
        ours.push_back(one);
        bare.push_back(other);
    }
    XCloseDisplay(display);
    printTitle(QStringLiteral("From start to shown window, median of %1; reference: an empty QMainWindow").arg(runs));
    printRow(QStringLiteral("no files"), median(ours), median(bare), QStringLiteral("ms"));
    return 0;
}
