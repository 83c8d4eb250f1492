// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/stroke.h"

#include "annotations/elementreader.h"
#include "annotations/elementwriter.h"
#include "annotations/markfields.h"
#include "annotations/markitem.h"

#include <QPainter>

#include <utility>

Stroke::Stroke(QGraphicsItem *parent) : QGraphicsPolygonItem(parent) {}

void Stroke::addPoint(const QPointF &scenePoint)
{
    m_captureBuffer.append(scenePoint);
}

void Stroke::finishCapture(bool apply)
{
    if (!apply)
        return;
    m_captureBuffer.translate(-scenePos());
    setPolygon(std::exchange(m_captureBuffer, {}));
}

void Stroke::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/, QWidget *widget)
{
    prepare(painter);
    // Only a view has a widget: what is printed or saved is drawn.
    if (!widget || !m_picture.paint(painter, {polygon(), pen(), antialiasing()}, boundingRect()))
        painter->drawPolyline(polygon());
    MarkItem::drawSelection(painter, *this, pen(), selectionKey());
}

void Stroke::paintContent(QPainter *painter)
{
    prepare(painter);
    painter->drawPolyline(m_captureBuffer);
}

void Stroke::prepare(QPainter *painter) const
{
    if (antialiasing())
        painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen());
}

void Stroke::copyFrom(const Stroke &original)
{
    setPen(original.pen());
    setBrush(original.brush());
    setPolygon(original.polygon());
    MarkItem::placeCopy(original, *this);
}

void Stroke::write(ElementWriter &writer) const
{
    writer.startElement(elementName());
    writer.writeAttribute(XmlNames::penWidth, pen().width());
    MarkFields::writeColor(writer, XmlNames::plainColor, pen().color());
    MarkFields::writePosition(writer, *this);
    MarkFields::writeAntialiasing(writer, antialiasing());
    MarkFields::writePoints(writer, *this, polygon());
    writer.endElement();
}

void Stroke::read(ElementReader &reader)
{
    QPen pen(MarkFields::readColor(reader, XmlNames::plainColor), 0);
    pen.setWidth(reader.integer(XmlNames::penWidth, 0));
    const QPointF position = MarkFields::readPosition(reader);
    const bool smoothEdges = MarkFields::readAntialiasing(reader);
    const QPolygonF points = MarkFields::readPoints(reader);

    setAntialiasing(smoothEdges);
    setPen(pen);
    setPolygon(points);
    setPos(position);
}
