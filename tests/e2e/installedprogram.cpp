// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSettings>

namespace {

void copyTree(const QString &from, const QString &to)
{
    QDir().mkpath(to);
    QDirIterator it(from, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        const QString target = to + QLatin1Char('/') + QDir(from).relativeFilePath(it.filePath());
        if (it.fileInfo().isDir())
            QDir().mkpath(target);
        else
            QFile::copy(it.filePath(), target);
    }
}

} // namespace

InstalledProgram::InstalledProgram(const XSession &session) : m_session(session), m_environment(session.environment())
{
    const QString source = QStringLiteral(KESTRIN_RELEASE_BIN);
    if (!QFile::exists(source + QStringLiteral("/kestrin7")))
        qFatal("the release program is not built");
    QDir().mkpath(folder());
    for (const QString &name : {QStringLiteral("kestrin7"), QStringLiteral("kestrin7-crashbox")})
        QFile::copy(source + QLatin1Char('/') + name, folder() + QLatin1Char('/') + name);
    copyTree(source + QStringLiteral("/sys"), folder() + QStringLiteral("/sys"));
    for (const QString &log : QDir(folder() + QStringLiteral("/sys/logs")).entryList(QDir::Files))
        QFile::remove(folder() + QStringLiteral("/sys/logs/") + log);
    QDir().mkpath(document(QString()));
    const QString home = m_root.filePath(QStringLiteral("home"));
    QDir().mkpath(home + QStringLiteral("/.config"));
    m_environment.insert(QStringLiteral("HOME"), home);
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/.config"));
    m_process.setWorkingDirectory(folder());
}

InstalledProgram::~InstalledProgram()
{
    if (isRunning()) {
        m_process.kill();
        m_process.waitForFinished(5000);
    }
}

QString InstalledProgram::folder() const
{
    return m_root.filePath(QStringLiteral("bin"));
}

QString InstalledProgram::document(const QString &name) const
{
    return m_root.filePath(QStringLiteral("documents/")) + name;
}

QString InstalledProgram::writeDocument(const QString &name, const QByteArray &contents) const
{
    QFile file(document(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write a test document");
    return file.fileName();
}

QByteArray InstalledProgram::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString InstalledProgram::settingsPath() const
{
    return m_root.filePath(QStringLiteral("home/.config/Moorfield/Kestrin 7.conf"));
}

void InstalledProgram::setSetting(const QString &key, const QVariant &value) const
{
    QSettings store(settingsPath(), QSettings::IniFormat);
    store.setValue(key, value);
}

QVariant InstalledProgram::setting(const QString &key) const
{
    const QSettings store(settingsPath(), QSettings::IniFormat);
    return store.value(key);
}

void InstalledProgram::setEnvironment(const QString &name, const QString &value)
{
    m_environment.insert(name, value);
}

void InstalledProgram::setWorkingDirectory(const QString &path)
{
    m_process.setWorkingDirectory(path);
}

QString InstalledProgram::start(const QStringList &arguments)
{
    launch(arguments);
    // With a document the title goes on behind the name; floating bars have the bare name too.
    m_window = m_session.waitForWindow(
        arguments.isEmpty() ? QStringLiteral("^Kestrin 7$") : QStringLiteral("^Kestrin 7 \\["), XSession::Visible);
    return m_window;
}

void InstalledProgram::launch(const QStringList &arguments)
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start(folder() + QStringLiteral("/kestrin7"), arguments);
    m_process.waitForStarted();
}

QString InstalledProgram::window() const
{
    return m_window;
}

qint64 InstalledProgram::processId() const
{
    return m_process.processId();
}

bool InstalledProgram::isRunning() const
{
    return m_process.state() != QProcess::NotRunning;
}

bool InstalledProgram::closeRegularly()
{
    m_session.close(m_window);
    return waitForExit() && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
}

bool InstalledProgram::waitForExit(int milliseconds)
{
    return !isRunning() || m_process.waitForFinished(milliseconds);
}

int InstalledProgram::exitCode() const
{
    return m_process.exitCode();
}

QProcess::ExitStatus InstalledProgram::exitStatus() const
{
    return m_process.exitStatus();
}
