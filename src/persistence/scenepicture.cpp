// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/scenepicture.h"

#include "documents/picture.h"

#include <QBuffer>
#include <QGraphicsScene>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

#include <algorithm>

namespace {

constexpr qint64 pixelBytesLimit = 1LL << 30;
/// A painter cannot reach further than 32767 pixels, so tall scenes are painted in bands.
constexpr int bandHeight = 16384;

} // namespace

QImage renderPicture(QGraphicsScene *scene)
{
    const QRectF source = scene->sceneRect();
    const int width = int(source.width());
    const int height = int(source.height());
    constexpr int bytesPerPixel = 4;
    if (width <= 0 || height <= 0 || qint64(width) * height * bytesPerPixel > pixelBytesLimit)
        return {};
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::white);
    // The scene is a fraction of a pixel larger than the picture; its proportions are kept.
    const double scale = std::min(width / source.width(), height / source.height());
    for (int top = 0; top < height; top += bandHeight) {
        const int rows = std::min(bandHeight, height - top);
        QImage band(picture.scanLine(top), width, rows, picture.bytesPerLine(), picture.format());
        QPainter painter(&band);
        painter.setRenderHint(QPainter::Antialiasing);
        scene->render(&painter, QRectF(0.0, 0.0, width, rows),
                      QRectF(source.left(), source.top() + top / scale, width / scale, rows / scale),
                      Qt::KeepAspectRatio);
    }
    return picture;
}

QByteArray encodePicture(const QImage &picture, const QString &format)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, format.toLower().toLatin1());
    if (picture.isNull() || !buffer.open(QIODevice::ReadWrite) || !writer.write(picture))
        return {};
    buffer.seek(0);
    allowLargePictures();
    if (QImageReader::supportedImageFormats().contains(writer.format()) &&
        QImageReader(&buffer, writer.format()).read().isNull())
        return {};
    return buffer.data();
}
