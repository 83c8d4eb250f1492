// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/shapeann.h"

#include "annotations/markfields.h"
#include "annotations/markitem.h"

#include <QAbstractGraphicsShapeItem>
#include <QBrush>

const QAbstractGraphicsShapeItem &ShapeAnn::item() const
{
    return const_cast<ShapeAnn *>(this)->item();
}

void ShapeAnn::moveToOrigin(const QPointF &point)
{
    setBox(QRectF(QPointF(0, 0), box().size()));
    item().setPos(point);
}

void ShapeAnn::copyFrom(const ShapeAnn &original)
{
    item().setPen(original.item().pen());
    item().setBrush(original.item().brush());
    setBox(original.box());
    MarkItem::placeCopy(original.item(), item());
}

void ShapeAnn::writeShape(ElementWriter &writer) const
{
    const QPen pen = item().pen();
    MarkFields::writePosition(writer, item());
    MarkFields::writePenLook(writer, pen);
    MarkFields::writeColor(writer, XmlNames::penColor, pen.color());
    MarkFields::writeColor(writer, XmlNames::brushColor, item().brush().color());
    MarkFields::writeRect(writer, item(), box());
    MarkFields::writeAntialiasing(writer, antialiasing());
}

void ShapeAnn::readShape(ElementReader &reader)
{
    const QPointF position = MarkFields::readPosition(reader);
    const QPen pen = MarkFields::readPenLook(reader, MarkFields::readColor(reader, XmlNames::penColor));
    const QBrush brush(MarkFields::readColor(reader, XmlNames::brushColor), Qt::SolidPattern);
    const QRectF rect = MarkFields::readRect(reader);

    setAntialiasing(MarkFields::readAntialiasing(reader));
    item().setPen(pen);
    item().setBrush(brush);
    setBox(rect);
    item().setPos(position);
}
