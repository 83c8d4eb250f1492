// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/filesync.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

bool syncToDisk(int handle)
{
    return fsync(handle) == 0;
}

void keepOwner(int handle, const QString &path)
{
    struct stat existing = {};
    struct stat fresh = {};
    if (stat(QFile::encodeName(path).constData(), &existing) != 0 || fstat(handle, &fresh) != 0)
        return;
    if (existing.st_uid == fresh.st_uid && existing.st_gid == fresh.st_gid)
        return;
    // Only root may do the first; the group alone may still be allowed. Either failing leaves the user as the owner,
    // and what runs as its owner must not do so under another one.
    if (fchown(handle, existing.st_uid, existing.st_gid) == 0)
        static_cast<void>(fchmod(handle, existing.st_mode & 07777));
    else if (fchown(handle, uid_t(-1), existing.st_gid) == 0)
        static_cast<void>(fchmod(handle, existing.st_mode & 0777));
}
