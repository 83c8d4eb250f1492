// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/standins.h"

#include <QFile>
#include <QStringList>

StandIns::StandIns() : m_oldPath(qgetenv("PATH"))
{
    qputenv("PATH", m_folder.path().toLocal8Bit());
}

StandIns::~StandIns()
{
    qputenv("PATH", m_oldPath);
}

QString StandIns::add(const QString &name, const QByteArray &script)
{
    const QString path = m_folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + script + '\n') < 0 ||
        !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

QString StandIns::addRecorder(const QString &name)
{
    // Under another name first, so that no half-written note is read.
    return add(name, "for argument in \"$@\"; do printf '%s\\0' \"$argument\"; done > \"$0.part\"\n"
                     "/bin/mv \"$0.part\" \"$0.arguments\"");
}

QStringList StandIns::recorded(const QString &program)
{
    QFile file(program + QStringLiteral(".arguments"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList arguments = QString::fromUtf8(file.readAll()).split(QChar(0));
    arguments.removeLast();
    return arguments;
}
