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
/// A painter cannot reach further than 32767 pixels.
constexpr int bandHeight = 16384;

} // namespace

QImage paintPicture(const QSize &size, const std::function<void(QPainter *painter, const QRect &band)> &paint)
{
    constexpr int bytesPerPixel = 4;
    if (size.isEmpty() || qint64(size.width()) * size.height() * bytesPerPixel > pixelBytesLimit)
        return {};
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (int top = 0; top < size.height(); top += bandHeight) {
        const QRect band(0, top, size.width(), std::min(bandHeight, size.height() - top));
        QImage strip(picture.scanLine(top), band.width(), band.height(), picture.bytesPerLine(), picture.format());
        QPainter painter(&strip);
        paint(&painter, band);
    }
    return picture;
}

QImage renderPicture(QGraphicsScene *scene)
{
    const QRectF source = scene->sceneRect();
    // Marks can make a scene larger than any number of pixels.
    if (!(source.width() < pixelBytesLimit && source.height() < pixelBytesLimit))
        return {};
    const QSize size(int(source.width()), int(source.height()));
    // The scene is a fraction of a pixel larger than the picture; its proportions are kept.
    const double scale = std::min(size.width() / source.width(), size.height() / source.height());
    return paintPicture(size, [scene, source, scale](QPainter *painter, const QRect &band) {
        painter->setRenderHint(QPainter::Antialiasing);
        scene->render(
            painter, QRectF(QPointF(), band.size()),
            QRectF(source.left(), source.top() + band.top() / scale, band.width() / scale, band.height() / scale),
            Qt::KeepAspectRatio);
    });
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
