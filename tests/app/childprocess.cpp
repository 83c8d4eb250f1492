// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/childprocess.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

ChildProcess::ChildProcess(Build build)
{
    const QString name = build == Plain ? QStringLiteral("appchild_plain") : QStringLiteral("appchild");
    QDir(folder.path()).mkpath(QStringLiteral("sys/logs"));
    QFile::copy(QCoreApplication::applicationDirPath() + QLatin1Char('/') + name, path(QStringLiteral("appchild")));
    child.setWorkingDirectory(folder.path());
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

ChildProcess::~ChildProcess()
{
    if (child.state() != QProcess::NotRunning) {
        child.kill();
        child.waitForFinished();
    }
}

void ChildProcess::start(const QStringList &operations)
{
    child.start(path(QStringLiteral("appchild")), operations);
    child.waitForStarted();
}

bool ChildProcess::run(const QStringList &operations)
{
    start(operations);
    return waitForEnd() && child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0;
}

bool ChildProcess::waitForEnd()
{
    constexpr int limit = 60000;
    return child.state() == QProcess::NotRunning || child.waitForFinished(limit);
}

int ChildProcess::endedBy() const
{
    return child.exitStatus() == QProcess::CrashExit ? child.exitCode() : 0;
}

QByteArray ChildProcess::output()
{
    return child.readAllStandardOutput();
}

QByteArray ChildProcess::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool ChildProcess::write(const QString &name, const QByteArray &contents) const
{
    QFile file(path(name));
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
}

bool ChildProcess::replaceCrashBox(const QByteArray &script) const
{
    const QString name = QStringLiteral("kestrin7-crashbox");
    return write(name, "#!/bin/sh\n" + script) &&
           QFile::setPermissions(path(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}
