// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDevice>

#include <functional>

class QByteArray;
class QFile;
class QString;

/// Replaces the file at @p path by @p data so that at every moment either the old or the new contents are there in
/// full, also when the disk is full or the machine stops. Links are followed; permissions and, where possible, the
/// owner stay. Only regular files are replaced. On any failure the old file is as it was.
QFileDevice::FileError writeSafely(const QString &path, const QByteArray &data);

/// The same for contents that are better not held in memory as a whole. @p write puts them into the device and says
/// whether it could; then @p check, on another device, reads them back from their start and says whether they are what
/// was meant.
QFileDevice::FileError writeSafely(const QString &path, const std::function<bool(QIODevice &)> &write,
                                   const std::function<bool(QIODevice &)> &check);

/// Opens a regular file for reading; anything else (folder, pipe, device) is not opened.
QFileDevice::FileError openSafely(QFile &file);

/// Reads a file whole that openSafely() opens and that has no more than 512 MiB.
QFileDevice::FileError readWhole(const QString &path, QByteArray *data);
