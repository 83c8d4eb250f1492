// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/ellipseann.h"

#include "annotations/elementwriter.h"
#include "annotations/xmlnames.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

EllipseAnn::EllipseAnn(QGraphicsItem *parent) : QGraphicsEllipseItem(parent) {}

QRectF EllipseAnn::box() const
{
    return rect();
}

void EllipseAnn::setBox(const QRectF &box)
{
    setRect(box);
}

QAbstractGraphicsShapeItem &EllipseAnn::item()
{
    return *this;
}

void EllipseAnn::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    if (antialiasing())
        painter->setRenderHint(QPainter::Antialiasing);
    QGraphicsEllipseItem::paint(painter, option, widget);
}

void EllipseAnn::paintContent(QPainter *painter)
{
    const QStyleOptionGraphicsItem option;
    EllipseAnn::paint(painter, &option, nullptr);
}

EllipseAnn *EllipseAnn::clone()
{
    auto *copy = new EllipseAnn;
    copy->copyFrom(*this);
    return copy;
}

QString EllipseAnn::toDebugString()
{
    return QStringLiteral("Ellipse annotation");
}

void EllipseAnn::write(ElementWriter &writer) const
{
    writer.startElement(XmlNames::ellipse);
    writeShape(writer);
    writer.endElement();
}

void EllipseAnn::read(ElementReader &reader)
{
    readShape(reader);
}
