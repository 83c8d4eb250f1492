// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QByteArray;
class QGraphicsScene;
class QImage;
class QString;

/// The whole scene, one pixel per scene unit, marks included. Null for an empty scene and for one of more than 1 GiB of
/// pixels.
QImage renderPicture(QGraphicsScene *scene);

/// The bytes of a picture file. @p format is the suffix of such a file, in any case; some formats know only certain
/// sizes and scale the picture. Empty when the picture is null or does not fit the format, that is, cannot be read
/// again.
QByteArray encodePicture(const QImage &picture, const QString &format);
