// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/regularfile.h"

#include <QFileInfo>

bool isOtherThanFile(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isFile();
}
