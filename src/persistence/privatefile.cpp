// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/privatefile.h"

#include <QFile>
#include <QFileInfo>

bool makePrivate(const QString &path)
{
    constexpr QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    QFile file(path);
    if (QFileInfo(path).isSymLink())
        file.remove();
    const QFileInfo info(path);
    if (info.exists())
        return info.isFile() && file.setPermissions(ownerOnly);
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly, ownerOnly);
}
