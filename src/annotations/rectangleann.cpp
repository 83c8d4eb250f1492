// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/rectangleann.h"

#include "annotations/elementreader.h"
#include "annotations/elementwriter.h"
#include "annotations/xmlnames.h"

#include <QPainter>

#include <algorithm>

RectangleAnn::RectangleAnn(QGraphicsItem *parent) : QGraphicsRectItem(parent) {}

void RectangleAnn::setRounded(bool rounded)
{
    m_rounded = rounded;
    update();
}

bool RectangleAnn::rounded() const
{
    return m_rounded;
}

QRectF RectangleAnn::box() const
{
    return rect();
}

void RectangleAnn::setBox(const QRectF &box)
{
    setRect(box);
}

QAbstractGraphicsShapeItem &RectangleAnn::item()
{
    return *this;
}

void RectangleAnn::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/, QWidget * /*widget*/)
{
    paintContent(painter);
}

void RectangleAnn::paintContent(QPainter *painter)
{
    constexpr double roundness = 10.0; // corner radius in percent of the shorter side
    if (antialiasing())
        painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen());
    painter->setBrush(brush());
    if (!m_rounded) {
        painter->drawRect(rect());
        return;
    }
    const double radius = roundness * std::min(rect().width(), rect().height()) * 0.01;
    painter->drawRoundedRect(rect(), radius, radius, Qt::AbsoluteSize);
}

RectangleAnn *RectangleAnn::clone()
{
    auto *copy = new RectangleAnn;
    copy->copyFrom(*this);
    return copy;
}

QString RectangleAnn::toDebugString()
{
    return QStringLiteral("Rectangle annotation");
}

void RectangleAnn::write(ElementWriter &writer) const
{
    writer.startElement(XmlNames::rectangle);
    writer.writeYesNo(XmlNames::rounded, m_rounded);
    writeShape(writer);
    writer.endElement();
}

void RectangleAnn::read(ElementReader &reader)
{
    setRounded(reader.isYes(XmlNames::rounded));
    readShape(reader);
}
