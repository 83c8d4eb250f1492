// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/mailprocess.h"

#include <QList>
#include <QProcess>

MailProcess::~MailProcess()
{
    if (m_process && m_process->state() != QProcess::NotRunning) {
        // Deleting the object would end the client, in which a letter may be half written.
        static auto *const leftRunning = new QList<QProcess *>;
        leftRunning->append(m_process);
        return;
    }
    delete m_process;
}

void MailProcess::start(const QString &client, const QStringList &arguments)
{
    if (!m_process) {
        m_process = new QProcess(nullptr);
        // What the client says would pile up unread, and stop it as soon as nobody is there to read.
        m_process->setProcessChannelMode(QProcess::ForwardedChannels);
    }
    m_process->start(client, arguments, QIODevice::ReadWrite);
}
