// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDevice>

class QByteArray;
class QString;

/// Replaces the file at @p path by @p data so that at every moment either the old or the new contents are there in
/// full, also when the disk is full or the machine stops. Links are followed; permissions and, where possible, the
/// owner stay. Only regular files are replaced. On any failure the old file is as it was.
QFileDevice::FileError writeSafely(const QString &path, const QByteArray &data);

/// Reads a regular file whole; anything else (folder, pipe, device) and files above 512 MiB are not opened.
QFileDevice::FileError readWhole(const QString &path, QByteArray *data);
