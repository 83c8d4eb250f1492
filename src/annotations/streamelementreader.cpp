// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/streamelementreader.h"

#include "annotations/xmlnames.h"

#include <QXmlStreamReader>

StreamElementReader::StreamElementReader(QXmlStreamReader &xml) : m_xml(xml) {}

void StreamElementReader::readNext()
{
    constexpr int deepest = 1000; // no file of ours goes deeper than three
    m_attributes.reset();
    switch (m_xml.readNext()) {
    case QXmlStreamReader::StartElement:
        if (++m_openLevel > deepest)
            m_xml.raiseError(QStringLiteral("elements are nested too deeply"));
        break;
    case QXmlStreamReader::EndElement:
        --m_openLevel;
        break;
    case QXmlStreamReader::Invalid:
    case QXmlStreamReader::EndDocument:
        m_openLevel = 0;
        break;
    default:
        break;
    }
}

bool StreamElementReader::enterNextChild()
{
    while (m_openLevel >= m_level) {
        readNext();
        if (m_openLevel > m_level) {
            ++m_level;
            return true;
        }
    }
    return false;
}

void StreamElementReader::leaveChild()
{
    while (m_openLevel >= m_level)
        readNext();
    --m_level;
}

QStringView StreamElementReader::tag() const
{
    return m_xml.qualifiedName();
}

QString StreamElementReader::readText()
{
    QString text;
    while (m_openLevel >= m_level) {
        readNext();
        if (m_xml.isCharacters() && (m_xml.isCDATA() || !m_xml.isWhitespace()))
            text += m_xml.text();
        else if (m_xml.isStartElement()) {
            const QStringView code = m_xml.attributes().value(XmlNames::characterCode);
            if (const auto c = codedCharacter(m_xml.qualifiedName(), code))
                text += *c;
        }
    }
    return text;
}

std::optional<QStringView> StreamElementReader::attribute(QLatin1String name) const
{
    if (!m_attributes)
        m_attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &candidate : *m_attributes) {
        if (candidate.qualifiedName() == name)
            return candidate.value();
    }
    return {};
}
