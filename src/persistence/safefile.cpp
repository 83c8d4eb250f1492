// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/safefile.h"

#include "documents/regularfile.h"
#include "persistence/filesync.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

QFileDevice::FileError writeSafely(const QString &path, const QByteArray &data)
{
    if (isOtherThanFile(path))
        return QFileDevice::OpenError;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.error();
    keepOwner(file.handle(), path);
    // commit() alone reports success on a full disk, so every step is checked.
    const bool written = file.write(data) == data.size() && file.flush() && syncToDisk(file.handle());
    if (written && file.commit())
        return QFileDevice::NoError;
    const QFileDevice::FileError error = file.error();
    file.cancelWriting();
    return error == QFileDevice::NoError ? QFileDevice::WriteError : error;
}

QFileDevice::FileError readWhole(const QString &path, QByteArray *data)
{
    constexpr qint64 sizeLimit = 512LL * 1024 * 1024;
    if (isOtherThanFile(path))
        return QFileDevice::OpenError;
    if (QFileInfo(path).size() > sizeLimit)
        return QFileDevice::ResourceError;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.error();
    *data = file.readAll();
    return file.error();
}
