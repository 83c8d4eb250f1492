// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A print server of the test's own with one queue, the default one, which keeps what was sent to it. It listens to a
/// socket in its own folder alone and ends with the object.
class PrintQueue
{
public:
    PrintQueue();
    ~PrintQueue();
    Q_DISABLE_COPY_MOVE(PrintQueue)

    /// What the variable CUPS_SERVER must be for a program that is to find the queue.
    QString server() const;
    /// Waits for the first document that was sent to the queue and for the end of its job; empty if none comes.
    QString firstDocument() const;

private:
    void write(const QString &name, const QByteArray &contents) const;
    QByteArray path(const char *name) const;

    QTemporaryDir m_folder;
    QProcess m_server;
};
