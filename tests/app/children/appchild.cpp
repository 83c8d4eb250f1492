// SPDX-License-Identifier: GPL-3.0-or-later
// appchild OPERATION[=VALUE]...: carries out the operations on the log, the message handler and the crash hook, one
// after the other, in a process whose log is untouched and that may die of it.
#include "app/crashfilter.h"
#include "app/eventlog.h"
#include "app/messagehandler.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QTranslator>

#include <chrono>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

EventLog ownRing(7);
std::unique_ptr<QApplication> application;
std::unique_ptr<QWidget> window;

/// Says something, or dies, while static objects are destroyed.
struct LastWord
{
    explicit LastWord(bool isFault) : fault(isFault) {}
    ~LastWord()
    {
        if (fault)
            std::raise(SIGSEGV);
        qWarning("last word");
    }
    bool fault;
};

/// Not empty, and answers each text with itself in brackets.
class BracketTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char * /*context*/, const char *text, const char * /*comment*/, int /*n*/) const override
    {
        return QLatin1Char('<') + QString::fromUtf8(text) + QLatin1Char('>');
    }
};

int overflow(int depth)
{
    volatile char room[4096];
    room[0] = static_cast<char>(depth);
    return depth == INT_MAX ? room[0] : overflow(depth + 1) + room[0];
}

void damageHeap()
{
    constexpr std::size_t size = 2000;
    auto *first = static_cast<volatile char *>(std::malloc(size));
    auto *second = static_cast<volatile char *>(std::malloc(size));
    for (std::size_t i = 0; i < size + 24; ++i)
        first[i] = 0x5a;
    std::free(const_cast<char *>(second));
    std::free(const_cast<char *>(first));
}

/// Too near to zero for anything to lie there, but not zero, which the sanitizers would catch before the fault.
void writeToNullMember()
{
    volatile std::uintptr_t address = 16;
    *reinterpret_cast<volatile int *>(address) = 1;
}

void commitFault(const std::string &kind)
{
    if (kind == "null") {
        writeToNullMember();
    } else if (kind == "overflow") {
        std::printf("%d", overflow(0));
    } else if (kind == "heap") {
        damageHeap();
    } else if (kind == "abort") {
        std::abort();
    } else if (kind == "exception") {
        throw 1;
    } else if (kind == "kill") {
        kill(getpid(), SIGSEGV);
    } else if (kind == "thread") {
        std::thread([] { commitFault("null"); }).join();
    } else {
        std::raise(std::stoi(kind));
    }
}

void writeLines(int count)
{
    for (int i = 1; i <= count; ++i)
        (logTrace << "line " << i).eol(0);
}

void warnFromThreads(int count)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back([i] {
            for (int message = 0; message < 200; ++message)
                qWarning("thread %d message %d end", i, message);
        });
    for (std::thread &thread : threads)
        thread.join();
}

void connectTo(const std::string &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int socketFile = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(socketFile, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        std::perror("connect");
}

void startApplication()
{
    static int count = 1;
    static char name[] = "appchild";
    static char *arguments[] = {name, nullptr};
    application = std::make_unique<QApplication>(count, arguments);
    window = std::make_unique<QWidget>();
}

void translate()
{
    static BracketTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::sendPostedEvents(); // as the event loop would: windows hear of it later
}

/// Prints what the box shows and closes it.
void readCrashBox(QTimer *timer)
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (box == nullptr)
        return;
    timer->stop();
    const bool critical = box->icon() == QMessageBox::Critical && box->parent() == nullptr;
    const bool okOnly = box->standardButtons() == QMessageBox::Ok && box->buttons().size() == 1;
    std::printf("%s|%s|%s|%s", critical ? "critical" : "other", qPrintable(box->windowTitle()), qPrintable(box->text()),
                okOnly ? "ok" : "other");
    box->accept();
}

void showCrashMessage(const std::string & /*unused*/)
{
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&timer] { readCrashBox(&timer); });
    timer.start(10);
    dumpRingBuffer(true);
}

void await(const std::string &file)
{
    while (access(file.c_str(), F_OK) != 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

/// What the superuser may write says nothing about permissions.
void dropPrivileges(const std::string & /*unused*/)
{
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && setuid(nobody) != 0)
        std::perror("setuid");
}

using Operation = void (*)(const std::string &value);

const std::vector<std::pair<std::string, Operation>> operations{
    {"open", [](const std::string &) { std::printf("%d", openLogFiles("sys/logs/log.dat", "sys/logs/dumped.dat")); }},
    {"header", [](const std::string &) { writeLogHeader(); }},
    {"info", [](const std::string &text) { logInfo << text.c_str(); }},
    {"infonumber", [](const std::string &number) { logInfo << std::stod(number); }},
    {"infoend", [](const std::string &code) { logInfo.eol(std::stoi(code)); }},
    {"warn", [](const std::string &text) { (logWarn << text.c_str()).eol(0); }},
    {"trace", [](const std::string &text) { logTrace << text.c_str(); }},
    {"tracenumber", [](const std::string &number) { logTrace << std::stod(number); }},
    {"traceend", [](const std::string &code) { logTrace.eol(std::stoi(code)); }},
    {"ownring", [](const std::string &text) { (ownRing << text.c_str()).eol(0); }},
    {"lines", [](const std::string &count) { writeLines(std::stoi(count)); }},
    {"dump", [](const std::string &) { dumpRingBuffer(false); }},
    {"crashmessage", showCrashMessage},
    {"handler", [](const std::string &) { qInstallMessageHandler(messageHandler); }},
    {"debug", [](const std::string &text) { qDebug("%s", text.c_str()); }},
    {"information", [](const std::string &text) { qInfo("%s", text.c_str()); }},
    {"warning", [](const std::string &text) { qWarning("%s", text.c_str()); }},
    {"critical", [](const std::string &text) { qCritical("%s", text.c_str()); }},
    {"fatal", [](const std::string &text) { qFatal("%s", text.c_str()); }},
    {"threads", [](const std::string &count) { warnFromThreads(std::stoi(count)); }},
    {"lastword", [](const std::string &fault) { static const LastWord lastWord(fault == "fault"); }},
    {"chdir", [](const std::string &path) { std::printf("%d", chdir(path.c_str())); }},
    {"hook",
     [](const std::string &seconds) { installCrashFilter("sys/logs/dumped.dat", unsigned(std::stoi(seconds))); }},
    {"application", [](const std::string &) { startApplication(); }},
    {"follow", [](const std::string &) { followLanguageOf(window.get()); }},
    {"translate", [](const std::string &) { translate(); }},
    {"connect", connectTo},
    {"fault", commitFault},
    {"pause", [](const std::string &time) { std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(time))); }},
    {"await", await},
    {"droprights", dropPrivileges},
};

bool carryOut(const std::string &argument)
{
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    for (const auto &[known, operation] : operations) {
        if (known == name) {
            operation(equals == std::string::npos ? std::string() : argument.substr(equals + 1));
            return true;
        }
    }
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    const rlimit noCore{};
    setrlimit(RLIMIT_CORE, &noCore);
    for (int i = 1; i < argc; ++i) {
        if (!carryOut(argv[i])) {
            std::fprintf(stderr, "unknown operation %s\n", argv[i]);
            return 2;
        }
    }
    window.reset();
    application.reset();
    return 0;
}
