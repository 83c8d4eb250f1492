// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/printqueue.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>

#include <pwd.h>
#include <unistd.h>

namespace {

/// The server refuses to run its helpers as root.
QByteArray unprivilegedUser()
{
    const passwd *user = ::getpwuid(::getuid());
    return ::getuid() == 0 || user == nullptr ? QByteArray("lp") : QByteArray(user->pw_name);
}

} // namespace

PrintQueue::PrintQueue()
{
    for (const char *name : {"etc", "spool/tmp", "cache", "run"})
        QDir().mkpath(QFile::decodeName(path(name)));
    write(QStringLiteral("etc/cups-files.conf"), "User " + unprivilegedUser() + "\nServerRoot " + path("etc") +
                                                     "\nRequestRoot " + path("spool") + "\nTempDir " +
                                                     path("spool/tmp") + "\nCacheDir " + path("cache") + "\nStateDir " +
                                                     path("run") + "\nAccessLog " + path("access") + "\nErrorLog " +
                                                     path("error") + "\nPageLog " + path("page") + "\nPrintcap\n");
    write(QStringLiteral("etc/cupsd.conf"), "Listen " + path("run/socket") +
                                                "\nLogLevel info\nBrowsing Off\nWebInterface No\nPreserveJobFiles Yes\n"
                                                "<Location />\nAllow all\n</Location>\n"
                                                "<Policy default>\n<Limit All>\n</Limit>\n</Policy>\n");
    write(QStringLiteral("etc/printers.conf"), "<DefaultPrinter paper>\nInfo Paper\nDeviceURI file:/dev/null\n"
                                               "State Idle\nAccepting Yes\n</DefaultPrinter>\n");
    m_server.start(QStringLiteral("/usr/sbin/cupsd"),
                   {QStringLiteral("-f"), QStringLiteral("-c"), QFile::decodeName(path("etc/cupsd.conf")),
                    QStringLiteral("-s"), QFile::decodeName(path("etc/cups-files.conf"))});
    if (!m_server.waitForStarted())
        qFatal("cupsd is not installed");
    const QDeadlineTimer limit(20000);
    while (!QFile::exists(server())) {
        if (limit.hasExpired() || m_server.state() == QProcess::NotRunning)
            qFatal("the print server did not come up: %s", m_server.readAllStandardError().constData());
        m_server.waitForFinished(50);
    }
}

PrintQueue::~PrintQueue()
{
    m_server.terminate();
    if (!m_server.waitForFinished(5000))
        m_server.kill();
}

QString PrintQueue::server() const
{
    return QFile::decodeName(path("run/socket"));
}

QString PrintQueue::firstDocument() const
{
    const QDeadlineTimer limit(20000);
    do {
        QFile log(QFile::decodeName(path("error")));
        if (log.open(QIODevice::ReadOnly) && log.readAll().contains("[Job 1] Job completed."))
            return QFile::decodeName(path("spool/d00001-001"));
        QThread::msleep(50);
    } while (!limit.hasExpired());
    return {};
}

void PrintQueue::write(const QString &name, const QByteArray &contents) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write the print server's configuration");
}

QByteArray PrintQueue::path(const char *name) const
{
    return QFile::encodeName(m_folder.filePath(QString::fromLatin1(name)));
}
