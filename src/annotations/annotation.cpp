// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/annotation.h"

#include "annotations/domelementreader.h"
#include "annotations/domelementwriter.h"

Annotation::~Annotation() = default;

void Annotation::saveToXml(QDomDocument &document, QDomElement &parent)
{
    DomElementWriter writer(document, parent);
    write(writer);
}

void Annotation::loadFromXml(const QDomElement &element, const QPointF & /*offset*/)
{
    DomElementReader reader(element);
    read(reader);
}

void Annotation::setAntialiasing(bool on)
{
    m_antialiasing = on;
}

bool Annotation::antialiasing() const
{
    return m_antialiasing;
}

void Annotation::smooth() {}
