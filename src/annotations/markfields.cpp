// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/markfields.h"

#include "annotations/elementreader.h"
#include "annotations/elementwriter.h"

#include <QGraphicsItem>

namespace {

/// A number that no pen style can have is read as a solid line.
Qt::PenStyle penStyleOf(int number)
{
    return number >= Qt::NoPen && number <= Qt::MPenStyle ? static_cast<Qt::PenStyle>(number) : Qt::SolidLine;
}

} // namespace

namespace MarkFields {

void writePosition(ElementWriter &writer, const QGraphicsItem &item)
{
    writer.writeAttribute(XmlNames::positionX, item.pos().x());
    writer.writeAttribute(XmlNames::positionY, item.pos().y());
}

QPointF readPosition(const ElementReader &reader)
{
    return {reader.real(XmlNames::positionX), reader.real(XmlNames::positionY)};
}

void writeColor(ElementWriter &writer, const XmlNames::Color &names, const QColor &color)
{
    writer.writeAttribute(names.red, color.red());
    writer.writeAttribute(names.green, color.green());
    writer.writeAttribute(names.blue, color.blue());
    writer.writeAttribute(names.alpha, color.alpha());
}

QColor readColor(const ElementReader &reader, const XmlNames::Color &names)
{
    QColor color;
    color.setRgb(reader.integer(names.red, 0), reader.integer(names.green, 0), reader.integer(names.blue, 0),
                 reader.integer(names.alpha, 255));
    return color;
}

void writePenLook(ElementWriter &writer, const QPen &pen)
{
    writer.writeAttribute(XmlNames::penWidth, pen.width());
    writer.writeAttribute(XmlNames::penStyle, int(pen.style()));
}

QPen readPenLook(const ElementReader &reader, const QColor &color)
{
    QPen pen(color, 0);
    pen.setWidth(reader.integer(XmlNames::penWidth, 0));
    pen.setStyle(penStyleOf(reader.integer(XmlNames::penStyle, Qt::SolidLine)));
    return pen;
}

void writeLine(ElementWriter &writer, const QGraphicsItem &item, const QLineF &line)
{
    const QTransform scale = item.sceneTransform();
    writer.writeAttribute(XmlNames::x1, line.x1() * scale.m11());
    writer.writeAttribute(XmlNames::y1, line.y1() * scale.m22());
    writer.writeAttribute(XmlNames::x2, line.x2() * scale.m11());
    writer.writeAttribute(XmlNames::y2, line.y2() * scale.m22());
}

QLineF readLine(const ElementReader &reader)
{
    return {reader.real(XmlNames::x1), reader.real(XmlNames::y1), reader.real(XmlNames::x2), reader.real(XmlNames::y2)};
}

void writeRect(ElementWriter &writer, const QGraphicsItem &item, const QRectF &rect)
{
    const QTransform scale = item.sceneTransform();
    writer.writeAttribute(XmlNames::x, rect.x() * scale.m11());
    writer.writeAttribute(XmlNames::y, rect.y() * scale.m22());
    writer.writeAttribute(XmlNames::width, rect.width() * scale.m11());
    writer.writeAttribute(XmlNames::height, rect.height() * scale.m22());
}

QRectF readRect(const ElementReader &reader)
{
    return {reader.real(XmlNames::x), reader.real(XmlNames::y), reader.real(XmlNames::width),
            reader.real(XmlNames::height)};
}

void writePoints(ElementWriter &writer, const QGraphicsItem &item, const QPolygonF &points)
{
    const QTransform scale = item.sceneTransform();
    for (const QPointF &point : points) {
        writer.startElement(XmlNames::point);
        writer.writeAttribute(XmlNames::x, point.x() * scale.m11());
        writer.writeAttribute(XmlNames::y, point.y() * scale.m22());
        writer.endElement();
    }
}

QPolygonF readPoints(ElementReader &reader)
{
    QPolygonF points;
    while (reader.enterNextChild()) {
        if (reader.tag() == XmlNames::point)
            points.append({reader.real(XmlNames::x), reader.real(XmlNames::y)});
        reader.leaveChild();
    }
    return points;
}

QString readTextChild(ElementReader &reader, QLatin1String tag)
{
    QString text;
    bool found = false;
    while (!found && reader.enterNextChild()) {
        found = reader.tag() == tag;
        if (found)
            text = reader.readText();
        reader.leaveChild();
    }
    return text;
}

void writeAntialiasing(ElementWriter &writer, bool on)
{
    writer.writeAttribute(XmlNames::antialias, on ? 1 : 0);
}

bool readAntialiasing(const ElementReader &reader)
{
    return reader.integer(XmlNames::antialias, 1) != 0;
}

} // namespace MarkFields
