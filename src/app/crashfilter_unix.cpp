// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/crashfilter.h"

#include "app/crashmessage.h"
#include "app/ringbuffer.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

// From crashFilter() on, only async-signal-safe calls: the heap may be damaged, locks may be held, the stack is the
// small one below. What those calls need lies ready in static memory.

namespace {

constexpr std::array fatalSignals{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};

/// Zero-terminated text in static memory; empty if it was too long.
template<std::size_t Size> class FixedText
{
public:
    FixedText &operator=(std::string_view text)
    {
        const std::size_t length = text.size() < Size ? text.size() : 0;
        *std::copy_n(text.begin(), length, room.begin()) = '\0';
        return *this;
    }
    char *data() { return room.data(); }

private:
    std::array<char, Size> room{};
};

/// What installCrashFilter() prepares for the last moments.
struct CrashPlan
{
    FixedText<PATH_MAX> dumpPath;
    FixedText<PATH_MAX> boxPath;
    FixedText<256> title;
    FixedText<2048> text;
    char *arguments[4] = {boxPath.data(), title.data(), text.data(), nullptr};
    char **environment = nullptr;
    unsigned patience = 0; ///< How long the box is waited for, in seconds; 0 is without end.
} crashPlan;

/// An overflow of the main stack leaves no room on it.
alignas(16) std::array<char, 65536> faultStack;
volatile std::sig_atomic_t faultNumber = 0;

void restoreDefaultActions()
{
    for (const int number : fatalSignals)
        std::signal(number, SIG_DFL);
}

void writeWhole(int file, const char *data, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = write(file, data, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        data += written;
        size -= static_cast<std::size_t>(written);
    }
}

void writeRecord()
{
    const int file = open(crashPlan.dumpPath.data(), O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (file < 0)
        return;
    ringBuffer.forEach([file](const std::string &line) {
        writeWhole(file, line.data(), line.size());
        writeWhole(file, "\n", 1);
    });
    writeWhole(file, ringEndMarker, sizeof ringEndMarker - 1);
    close(file);
}

/// Hangs up on the display server, so that mouse and keyboard which an open menu had grabbed are free for the box.
/// Only this process's own sockets are concerned: inherited ones cannot have the flag that is asked for.
void letGoOfDisplay()
{
    constexpr int highestSocket = 1023;
    for (int file = STDERR_FILENO + 1; file <= highestSocket; ++file) {
        const int flags = fcntl(file, F_GETFD);
        if (flags >= 0 && (flags & FD_CLOEXEC) != 0)
            shutdown(file, SHUT_RDWR);
    }
}

extern "C" void endByFault(int /*number*/)
{
    raise(faultNumber);
}

void showBox()
{
    std::signal(SIGCHLD, SIG_DFL);
    std::signal(SIGALRM, endByFault);
    const pid_t box = _Fork();
    if (box == 0) {
        execve(crashPlan.boxPath.data(), crashPlan.arguments, crashPlan.environment);
        _exit(EXIT_FAILURE);
    }
    if (box < 0)
        return;
    alarm(crashPlan.patience);
    while (waitpid(box, nullptr, 0) < 0 && errno == EINTR) {
    }
}

extern "C" void crashFilter(int number)
{
    restoreDefaultActions(); // a second fault ends the process at once
    sigset_t none;
    sigemptyset(&none);
    pthread_sigmask(SIG_SETMASK, &none, nullptr);
    faultNumber = number;
    writeRecord();
    letGoOfDisplay();
    showBox();
    raise(number);
}

void hookFatalSignals()
{
    stack_t stack{};
    stack.ss_sp = faultStack.data();
    stack.ss_size = faultStack.size();
    sigaltstack(&stack, nullptr);
    struct sigaction action
    {
    };
    action.sa_handler = crashFilter;
    action.sa_flags = SA_ONSTACK;
    for (const int number : fatalSignals)
        sigaction(number, &action, nullptr);
}

void prepareBoxTexts()
{
    crashPlan.title = crashTitle().toLocal8Bit().toStdString();
    crashPlan.text = crashText().toLocal8Bit().toStdString();
}

/// Prepares the texts anew when the window it belongs to hears of another language.
class CrashBoxLanguage : public QObject
{
public:
    explicit CrashBoxLanguage(QWidget *window) : QObject(window) { window->installEventFilter(this); }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange)
            prepareBoxTexts();
        return false;
    }
};

} // namespace

void installCrashFilter(const char *dumpName, unsigned boxSeconds)
{
    std::error_code failure;
    crashPlan.dumpPath = std::filesystem::absolute(dumpName, failure).string();
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (!failure)
        crashPlan.boxPath = (program.parent_path() / "kestrin7-crashbox").string();
    crashPlan.environment = environ;
    crashPlan.patience = boxSeconds;
    prepareBoxTexts();
    hookFatalSignals();
    // What main() leaves behind is taken apart after this: the ring is not to be trusted any more.
    std::atexit(restoreDefaultActions);
}

void followLanguageOf(QWidget *window)
{
    prepareBoxTexts();
    new CrashBoxLanguage(window); // the window owns it
}

void leaveAbortAlone()
{
    std::signal(SIGABRT, SIG_DFL);
}
