// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/programcopy.h"

#include "support/logtext.h"

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

ProgramCopy::ProgramCopy(const QString &binFolder, const QProcessEnvironment &environment) : m_environment(environment)
{
    if (!QFile::exists(binFolder + QStringLiteral("/kestrin7")))
        qFatal("there is no program in %s", qPrintable(binFolder));
    QDir().mkpath(folder());
    for (const QString &name : {QStringLiteral("kestrin7"), QStringLiteral("kestrin7-crashbox")})
        QFile::copy(binFolder + QLatin1Char('/') + name, folder() + QLatin1Char('/') + name);
    copyTree(binFolder + QStringLiteral("/sys"), folder() + QStringLiteral("/sys"));
    for (const QString &log : QDir(folder() + QStringLiteral("/sys/logs")).entryList(QDir::Files))
        QFile::remove(folder() + QStringLiteral("/sys/logs/") + log);
    QDir().mkpath(document(QString()));
    const QString home = m_root.filePath(QStringLiteral("home"));
    QDir().mkpath(home + QStringLiteral("/.config"));
    m_environment.insert(QStringLiteral("HOME"), home);
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/.config"));
    m_process.setWorkingDirectory(folder());
}

ProgramCopy::~ProgramCopy()
{
    if (isRunning()) {
        m_process.kill();
        m_process.waitForFinished(5000);
    }
}

QString ProgramCopy::folder() const
{
    return m_root.filePath(QStringLiteral("bin"));
}

QString ProgramCopy::document(const QString &name) const
{
    return m_root.filePath(QStringLiteral("documents/")) + name;
}

QString ProgramCopy::writeDocument(const QString &name, const QByteArray &contents) const
{
    QFile file(document(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write a test document");
    return file.fileName();
}

QByteArray ProgramCopy::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList ProgramCopy::logLines() const
{
    QStringList lines;
    const QString log = QString::fromLocal8Bit(read(folder() + QStringLiteral("/sys/logs/log.dat")));
    for (const QString &line : log.split(QLatin1Char('\n')))
        lines.append(withoutLogPrefix(line));
    return lines;
}

QString ProgramCopy::settingsPath() const
{
    return m_root.filePath(QStringLiteral("home/.config/Moorfield/Kestrin 7.conf"));
}

void ProgramCopy::setSetting(const QString &key, const QVariant &value) const
{
    QSettings store(settingsPath(), QSettings::IniFormat);
    store.setValue(key, value);
}

QVariant ProgramCopy::setting(const QString &key) const
{
    const QSettings store(settingsPath(), QSettings::IniFormat);
    return store.value(key);
}

void ProgramCopy::setEnvironment(const QString &name, const QString &value)
{
    m_environment.insert(name, value);
}

QProcessEnvironment ProgramCopy::environment() const
{
    return m_environment;
}

void ProgramCopy::setWorkingDirectory(const QString &path)
{
    m_process.setWorkingDirectory(path);
}

void ProgramCopy::setStarter(const QStringList &words)
{
    m_starter = words;
}

void ProgramCopy::launch(const QStringList &arguments)
{
    QStringList words = m_starter + QStringList(folder() + QStringLiteral("/kestrin7")) + arguments;
    m_process.setProcessEnvironment(m_environment);
    m_process.setProgram(words.takeFirst());
    m_process.setArguments(words);
    m_process.start();
    m_process.waitForStarted();
}

qint64 ProgramCopy::processId() const
{
    return m_process.processId();
}

bool ProgramCopy::isRunning() const
{
    return m_process.state() != QProcess::NotRunning;
}

bool ProgramCopy::waitForExit(int milliseconds)
{
    return !isRunning() || m_process.waitForFinished(milliseconds);
}

int ProgramCopy::exitCode() const
{
    return m_process.exitCode();
}

QProcess::ExitStatus ProgramCopy::exitStatus() const
{
    return m_process.exitStatus();
}
