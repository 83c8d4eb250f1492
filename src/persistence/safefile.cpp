// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/safefile.h"

#include "documents/regularfile.h"
#include "persistence/filesync.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

/// Hands what has been written to @p file to @p check, through the same handle: it has no name yet.
bool readsBack(const QSaveFile &file, const std::function<bool(QIODevice &)> &check)
{
    QFile written;
    return written.open(file.handle(), QIODevice::ReadOnly, QFileDevice::DontCloseHandle) && written.seek(0) &&
           check(written);
}

} // namespace

QFileDevice::FileError writeSafely(const QString &path, const std::function<bool(QIODevice &)> &write,
                                   const std::function<bool(QIODevice &)> &check)
{
    if (isOtherThanFile(path))
        return QFileDevice::OpenError;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.error();
    keepOwner(file.handle(), path);
    // commit() alone reports success on a full disk, so every step is checked.
    const bool written = write(file) && file.flush() && readsBack(file, check) && syncToDisk(file.handle());
    if (written && file.commit())
        return QFileDevice::NoError;
    const QFileDevice::FileError error = file.error();
    file.cancelWriting();
    return error == QFileDevice::NoError ? QFileDevice::WriteError : error;
}

QFileDevice::FileError writeSafely(const QString &path, const QByteArray &data)
{
    return writeSafely(
        path, [&data](QIODevice &device) { return device.write(data) == data.size(); },
        [&data](QIODevice &device) { return device.size() == data.size(); });
}

QFileDevice::FileError openSafely(QFile &file)
{
    if (isOtherThanFile(file.fileName()))
        return QFileDevice::OpenError;
    file.open(QIODevice::ReadOnly);
    return file.error();
}

QFileDevice::FileError readWhole(const QString &path, QByteArray *data)
{
    constexpr qint64 sizeLimit = 512LL * 1024 * 1024;
    if (QFileInfo(path).size() > sizeLimit)
        return QFileDevice::ResourceError;
    QFile file(path);
    if (const auto error = openSafely(file); error != QFileDevice::NoError)
        return error;
    *data = file.readAll();
    return file.error();
}
