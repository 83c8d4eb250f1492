// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/markpicture.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QPainter>

#include <cstdlib>

namespace MarkPicture {

namespace {

QImage whitePicture(const QRectF &area)
{
    QImage image(area.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

bool isNear(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance && std::abs(qAlpha(a) - qAlpha(b)) <= tolerance;
}

} // namespace

QImage ofItem(QGraphicsItem *item, const QRectF &area, bool selected)
{
    QImage image = whitePicture(area);
    QGraphicsScene scene;
    scene.addItem(item);
    item->setSelected(selected);
    QPainter painter(&image);
    scene.render(&painter, QRectF(QPointF(0, 0), area.size()), area);
    painter.end();
    scene.removeItem(item);
    return image;
}

QImage ofPainting(const QRectF &area, const std::function<void(QPainter &)> &paint)
{
    QImage image = whitePicture(area);
    QPainter painter(&image);
    painter.translate(-area.topLeft());
    paint(painter);
    return image;
}

QString difference(const QImage &actual, const QImage &expected, int tolerance)
{
    if (actual.size() != expected.size())
        return QStringLiteral("the pictures differ in size");
    int count = 0;
    QString first;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (isNear(actual.pixel(x, y), expected.pixel(x, y), tolerance))
                continue;
            if (count++ == 0)
                first = QStringLiteral("pixel (%1, %2) is %3 instead of %4")
                            .arg(x)
                            .arg(y)
                            .arg(actual.pixelColor(x, y).name(QColor::HexArgb),
                                 expected.pixelColor(x, y).name(QColor::HexArgb));
        }
    }
    return count == 0 ? QString() : QStringLiteral("%1; %2 pixels differ").arg(first).arg(count);
}

} // namespace MarkPicture
