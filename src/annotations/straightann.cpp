// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/straightann.h"

#include "annotations/elementreader.h"
#include "annotations/elementwriter.h"
#include "annotations/markfields.h"
#include "annotations/markitem.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

StraightAnn::StraightAnn(int style, QGraphicsItem *parent) : QGraphicsLineItem(parent), m_style(style) {}

void StraightAnn::setStyle(int style)
{
    prepareGeometryChange();
    m_style = style;
}

int StraightAnn::style() const
{
    return m_style;
}

void StraightAnn::setLinePen(const QPen &pen)
{
    setPen(pen);
}

void StraightAnn::normalizeLine()
{
    const QPointF start = line().p1();
    setLine(line().translated(-start));
    setPos(start);
}

QRectF StraightAnn::boundingRect() const
{
    const double m = margin();
    const double left = std::min(line().x1(), line().x2());
    const double top = std::min(line().y1(), line().y2());
    const double width = std::abs(line().dx());
    const double height = std::abs(line().dy());
    return {left - m, top - m, width + 2 * m, height + 2 * m};
}

void StraightAnn::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/, QWidget * /*widget*/)
{
    StraightAnn::paintContent(painter);
    MarkItem::drawSelection(painter, *this, pen(), QStringLiteral("LineTool/ShowSelection"));
}

void StraightAnn::paintContent(QPainter *painter)
{
    if (antialiasing())
        painter->setRenderHint(QPainter::Antialiasing);
    drawShape(painter);
}

void StraightAnn::copyFrom(const StraightAnn &original)
{
    setLinePen(original.pen());
    setStyle(original.style());
    setLine(original.line());
    MarkItem::placeCopy(original, *this);
}

void StraightAnn::write(ElementWriter &writer) const
{
    writer.startElement(elementName());
    writer.writeAttribute(XmlNames::style, styleName());
    MarkFields::writePosition(writer, *this);
    MarkFields::writePenLook(writer, pen());
    MarkFields::writeColor(writer, XmlNames::plainColor, pen().color());
    MarkFields::writeLine(writer, *this, line());
    MarkFields::writeAntialiasing(writer, antialiasing());
    writer.endElement();
}

void StraightAnn::read(ElementReader &reader)
{
    const QString name = reader.string(XmlNames::style, defaultStyleName());
    const QPointF position = MarkFields::readPosition(reader);
    const QPen pen = MarkFields::readPenLook(reader, MarkFields::readColor(reader, XmlNames::plainColor));
    const QLineF line = MarkFields::readLine(reader);

    setAntialiasing(MarkFields::readAntialiasing(reader));
    setStyle(styleOfName(name));
    setLinePen(pen);
    setLine(line);
    setPos(position);
}
