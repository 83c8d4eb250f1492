// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/streamelementwriter.h"

#include <QXmlStreamWriter>

StreamElementWriter::StreamElementWriter(QXmlStreamWriter &xml) : m_xml(xml) {}

void StreamElementWriter::startElement(QLatin1String tag)
{
    m_xml.writeStartElement(tag);
}

void StreamElementWriter::endElement()
{
    m_xml.writeEndElement();
}

void StreamElementWriter::addAttribute(QLatin1String name, const QString &value)
{
    m_xml.writeAttribute(name, value);
}

void StreamElementWriter::addText(QStringView text)
{
    m_xml.writeCharacters(text.toString());
}

void StreamElementWriter::addCData(QStringView text)
{
    m_xml.writeCDATA(text.toString());
}
