// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/picture.h"

#include "documents/regularfile.h"

#include <QImageReader>
#include <QPixmap>

void allowLargePictures()
{
    constexpr int allocationLimitMiB = 1024;
    QImageReader::setAllocationLimit(allocationLimitMiB);
}

QPixmap readPicture(const QString &path)
{
    if (isOtherThanFile(path))
        return {};
    allowLargePictures();
    QImage image = QImageReader(path).read();
    image.setDevicePixelRatio(1.0);
    return QPixmap::fromImage(std::move(image));
}
