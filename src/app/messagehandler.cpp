// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/messagehandler.h"

#include "app/crashfilter.h"

#include <QFile>
#include <QScopedValueRollback>
#include <QTextStream>

#include <cstdlib>
#include <filesystem>
#include <mutex>

namespace {

constexpr char messageFileName[] = "sys/logs/syslog.dat";

// Neither has a destructor that does anything: they serve until the process is gone.
std::mutex messageMutex;
bool messageFileGone = false; // guarded by the mutex

class MessageFile
{
public:
    MessageFile();
    ~MessageFile();

    /// Drops the message if @p prefix is null.
    void write(const char *prefix, const QString &message);

private:
    QFile file{QString::fromLatin1(messageFileName)};
    QTextStream stream; // after the file: goes first, and flushes into it
};

MessageFile::MessageFile()
{
    std::error_code ignored;
    if (!std::filesystem::is_fifo(messageFileName, ignored) && file.open(QIODevice::WriteOnly))
        stream.setDevice(&file);
}

MessageFile::~MessageFile()
{
    const std::lock_guard lock(messageMutex);
    messageFileGone = true;
}

void MessageFile::write(const char *prefix, const QString &message)
{
    // A stream without its file would complain through Qt, that is, here.
    if (prefix != nullptr && file.isOpen())
        stream << prefix << message << '\n';
}

/// Null for the types that are not written.
const char *messagePrefix(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "[Log]: ";
    case QtWarningMsg:
        return "[Warning]: ";
    case QtCriticalMsg:
        return "[Critical]: ";
    case QtFatalMsg:
        return "[Fatal]: ";
    default:
        return nullptr;
    }
}

void writeMessage(const char *prefix, const QString &message)
{
    // What Qt may have to say about this very writing is dropped.
    thread_local bool writing = false;
    if (writing)
        return;
    const QScopedValueRollback busy(writing, true);
    const std::lock_guard lock(messageMutex);
    if (messageFileGone)
        return;
    static MessageFile messageFile;
    messageFile.write(prefix, message);
}

} // namespace

void messageHandler(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    writeMessage(messagePrefix(type), message);
    if (type == QtFatalMsg) {
        leaveAbortAlone();
        std::abort();
    }
}
