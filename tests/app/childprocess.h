// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

/// A private folder in which the program "appchild" runs as a process of its own; see children/appchild.cpp for the
/// operations it knows. The folder is its working directory and holds an empty sys/logs.
class ChildProcess
{
public:
    enum Build {
        Sanitized, ///< With the flags of all the tests.
        Plain      ///< Without sanitizers: a damaged heap is the C library's affair.
    };
    explicit ChildProcess(Build build = Sanitized);
    ~ChildProcess();

    /// Starts the child; it runs on when this returns.
    void start(const QStringList &operations);
    /// Starts the child and waits for its end. True if it ended by itself with exit code 0.
    bool run(const QStringList &operations);
    bool waitForEnd();
    /// The signal that ended the child, 0 if it ended by itself.
    int endedBy() const;
    QByteArray output();
    QProcess &process() { return child; }

    QString path(const QString &name) const { return folder.filePath(name); }
    /// Contents of a file below the folder; empty if there is none.
    QByteArray read(const QString &name) const;
    bool write(const QString &name, const QByteArray &contents) const;
    QByteArray log() const { return read(QStringLiteral("sys/logs/log.dat")); }
    QByteArray dump() const { return read(QStringLiteral("sys/logs/dumped.dat")); }
    QByteArray messages() const { return read(QStringLiteral("sys/logs/syslog.dat")); }
    /// Puts a shell script in the place of the helper program that shows the crash box.
    bool replaceCrashBox(const QByteArray &script) const;

private:
    QTemporaryDir folder;
    QProcess child;
};
