// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

/// A desktop entry among the user's applications while this lives.
class DesktopEntry
{
public:
    DesktopEntry(const QString &name, const QByteArray &content)
        : m_file(QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation) + '/' + name)
    {
        QDir().mkpath(QFileInfo(m_file).path());
        if (!m_file.open(QIODevice::WriteOnly) || m_file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(m_file.fileName()));
        m_file.close();
    }
    ~DesktopEntry() { m_file.remove(); }
    Q_DISABLE_COPY_MOVE(DesktopEntry)

private:
    QFile m_file;
};
