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

void Stroke::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/, QWidget * /*widget*/)
{
    drawPoints(painter, polygon());
    MarkItem::drawSelection(painter, *this, pen(), selectionKey());
}

void Stroke::paintContent(QPainter *painter)
{
    drawPoints(painter, m_captureBuffer);
}

void Stroke::drawPoints(QPainter *painter, const QPolygonF &points) const
{
    if (antialiasing())
        painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen());
    painter->drawPolyline(points);
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
