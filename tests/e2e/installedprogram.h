// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "e2e/xsession.h"

#include <QTemporaryDir>

/// A private copy of the release program with its sys tree, a settings store of its own, and one run of it
/// on @p session. The working directory is the program's folder, so that its logs are written there.
class InstalledProgram
{
public:
    explicit InstalledProgram(const XSession &session);
    /// Kills a run that a failing test left behind.
    ~InstalledProgram();

    /// Where the program, its sys tree and its logs lie; ends without a separator.
    QString folder() const;
    /// A path in a folder for the test's documents.
    QString document(const QString &name) const;
    /// Writes a document and returns its path.
    QString writeDocument(const QString &name, const QByteArray &contents) const;
    /// Contents of a file, or an empty array if it cannot be read.
    static QByteArray read(const QString &path);

    /// Sets a value in the program's store; before start().
    void setSetting(const QString &key, const QVariant &value) const;
    /// A value of the store as the last run left it.
    QVariant setting(const QString &key) const;
    /// A variable of the program's environment; before start().
    void setEnvironment(const QString &name, const QString &value);
    void setWorkingDirectory(const QString &path);

    /// Starts the program and waits for its window; returns the window's id, empty if none came up.
    QString start(const QStringList &arguments = {});
    /// Starts the program without waiting for anything.
    void launch(const QStringList &arguments);
    QString window() const;
    qint64 processId() const;
    bool isRunning() const;
    /// Closes the window as its close button does; true if the program then ended with exit code 0.
    bool closeRegularly();
    /// Waits for the end of the run.
    bool waitForExit(int milliseconds = 20000);
    int exitCode() const;
    QProcess::ExitStatus exitStatus() const;

private:
    QString settingsPath() const;

    const XSession &m_session;
    QTemporaryDir m_root;
    QProcess m_process;
    QProcessEnvironment m_environment;
    QString m_window;
};
