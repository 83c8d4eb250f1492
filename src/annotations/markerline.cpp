// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/markerline.h"

#include "annotations/xmlnames.h"

MarkerLine::MarkerLine(QGraphicsItem *parent) : Stroke(parent) {}

Annotation *MarkerLine::clone()
{
    auto *copy = new MarkerLine;
    copy->copyFrom(*this);
    return copy;
}

QString MarkerLine::toDebugString()
{
    return QStringLiteral("MarkerLine");
}

QLatin1String MarkerLine::elementName() const
{
    return XmlNames::markerLine;
}

QString MarkerLine::selectionKey() const
{
    return QStringLiteral("MarkerTool/ShowSelection");
}
