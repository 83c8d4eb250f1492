// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QProcess;

/// The mail client that the program has started. At most one runs at a time, and it outlives this object.
class MailProcess
{
public:
    MailProcess() = default;
    ~MailProcess();
    MailProcess(const MailProcess &) = delete;
    MailProcess &operator=(const MailProcess &) = delete;

    /// Starts the program @p client, to which each of @p arguments goes as it is: no shell reads them. It is not waited
    /// for. Nobody hears of a program that cannot be started; one that is started while the last is still running only
    /// brings Qt's warning.
    void start(const QString &client, const QStringList &arguments);

private:
    QProcess *m_process = nullptr; ///< Made on first use, used for all mails.
};
