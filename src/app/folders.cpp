// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/folders.h"

#include "app/eventlog.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QStringList>

namespace {

const QHash<QString, QStringList> &folderParts()
{
    static const QHash<QString, QStringList> parts{
        {"translations", {"sys", "sysr", "lg"}}, {"temporary", {"sys", "ltmp"}}, {"logs", {"sys", "logs"}},
        {"syntax", {"sys", "sysr", "sn"}},       {"resources", {"sys", "sysr"}},
    };
    return parts;
}

} // namespace

QString dataFolder(const QString &name)
{
    static constexpr char traceTag[] = "Scv "; // the window's tag: it asks for folders under its own name
    TRACE_ENTER;
    QString path;
    const QStringList parts = folderParts().value(name);
    if (!parts.isEmpty()) {
        const QString base = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
        path = (QStringList(base) + parts).join(QDir::separator()) + QDir::separator();
    }
    TRACE_LEAVE;
    return path;
}
