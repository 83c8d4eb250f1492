// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QByteArray;
class QGraphicsScene;
class QImage;
class QPainter;
class QRect;
class QSize;
class QString;

/// A white picture of @p size that @p paint fills. It is called once for each band of the picture, from the top, with
/// the band in pixels of the picture and a painter whose origin is the band's top left corner: no painter reaches
/// all of a tall picture. Null for an empty size and for one of more than 1 GiB of pixels.
QImage paintPicture(const QSize &size, const std::function<void(QPainter *painter, const QRect &band)> &paint);

/// The whole scene, one pixel per scene unit, marks included. Null for an empty scene and for one of more than 1 GiB of
/// pixels.
QImage renderPicture(QGraphicsScene *scene);

/// The bytes of a picture file. @p format is the suffix of such a file, in any case; some formats know only certain
/// sizes and scale the picture. Empty when the picture is null or does not fit the format, that is, cannot be read
/// again.
QByteArray encodePicture(const QImage &picture, const QString &format);
