// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/xmlnames.h"

#include <QColor>
#include <QPen>
#include <QPolygonF>

class ElementReader;
class ElementWriter;
class QGraphicsItem;

/// The fields that the elements of several marks share. Each pair states attribute names and order once.
///
/// Lengths are written as they appear on the scene: multiplied by the scale of the item's scene transform. They
/// are not divided on reading, and positions are never scaled.
namespace MarkFields {

void writePosition(ElementWriter &writer, const QGraphicsItem &item);
QPointF readPosition(const ElementReader &reader);

/// Components are neither clamped nor checked on reading: one that is out of range makes the colour invalid.
void writeColor(ElementWriter &writer, const XmlNames::Color &names, const QColor &color);
QColor readColor(const ElementReader &reader, const XmlNames::Color &names);

/// Width in scene units, 0 for the thinnest line at any zoom, and style.
void writePenLook(ElementWriter &writer, const QPen &pen);
QPen readPenLook(const ElementReader &reader, const QColor &color);

void writeLine(ElementWriter &writer, const QGraphicsItem &item, const QLineF &line);
QLineF readLine(const ElementReader &reader);

void writeRect(ElementWriter &writer, const QGraphicsItem &item, const QRectF &rect);
QRectF readRect(const ElementReader &reader);

/// One child element for each point. Reading passes over children of other names.
void writePoints(ElementWriter &writer, const QGraphicsItem &item, const QPolygonF &points);
QPolygonF readPoints(ElementReader &reader);

/// Text of the first child element with this tag; later ones are not read. Empty if there is none.
QString readTextChild(ElementReader &reader, QLatin1String tag);

/// An element without the field is antialiased; any number but 0 means yes.
void writeAntialiasing(ElementWriter &writer, bool on);
bool readAntialiasing(const ElementReader &reader);

} // namespace MarkFields
