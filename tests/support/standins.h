// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QTemporaryDir>

/// Programs that take the place of installed ones while this lives: the search path is a folder of its own, and what
/// is not in it cannot be found.
class StandIns
{
public:
    StandIns();
    ~StandIns();
    Q_DISABLE_COPY_MOVE(StandIns)

    /// Adds a program; @p script is what a POSIX shell does in it, without the search path. Returns its path.
    QString add(const QString &name, const QByteArray &script);
    /// Adds a program that notes its arguments and ends. Returns its path.
    QString addRecorder(const QString &name);
    /// The arguments of the last run of such a program; empty as long as it has not run.
    static QStringList recorded(const QString &program);

private:
    QTemporaryDir m_folder;
    QByteArray m_oldPath;
};
