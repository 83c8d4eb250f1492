// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

/// A private copy of a built program with its sys tree, a settings store and a folder of documents of its own, and runs
/// of it. The working directory is the program's folder, so that its logs are written there.
class ProgramCopy
{
public:
    /// Copies the program from @p binFolder, where the build has put it. @p environment says which screen it uses.
    ProgramCopy(const QString &binFolder, const QProcessEnvironment &environment);
    /// Kills a run that a failing test left behind.
    ~ProgramCopy();

    /// Where the program, its sys tree and its logs lie; ends without a separator.
    QString folder() const;
    /// A path in a folder for the test's documents.
    QString document(const QString &name) const;
    /// Writes a document and returns its path.
    QString writeDocument(const QString &name, const QByteArray &contents) const;
    /// Contents of a file, or an empty array if it cannot be read.
    static QByteArray read(const QString &path);

    /// The lines of the log without their prefixes; the last one is what an unfinished line has.
    QStringList logLines() const;

    /// Sets a value in the program's store; before launch().
    void setSetting(const QString &key, const QVariant &value) const;
    /// A value of the store as the program left it.
    QVariant setting(const QString &key) const;
    /// A variable of the program's environment; before launch().
    void setEnvironment(const QString &name, const QString &value);
    QProcessEnvironment environment() const;
    void setWorkingDirectory(const QString &path);
    /// A command that is to start the program, whose own command line is put behind @p words; before launch().
    void setStarter(const QStringList &words);

    /// Starts the program without waiting for anything but that it runs.
    void launch(const QStringList &arguments);
    qint64 processId() const;
    bool isRunning() const;
    /// Waits for the end of the run.
    bool waitForExit(int milliseconds = 20000);
    int exitCode() const;
    QProcess::ExitStatus exitStatus() const;

private:
    QString settingsPath() const;

    QTemporaryDir m_root;
    QProcess m_process;
    QProcessEnvironment m_environment;
    QStringList m_starter;
};
