// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/domelementreader.h"

#include "annotations/xmlnames.h"

DomElementReader::DomElementReader(const QDomElement &element)
    : m_current(element), m_next(element.firstChildElement()), m_tag(element.tagName())
{
}

bool DomElementReader::enterNextChild()
{
    if (m_next.isNull())
        return false;
    m_current = m_next;
    m_next = m_current.firstChildElement();
    m_tag = m_current.tagName();
    return true;
}

void DomElementReader::leaveChild()
{
    m_next = m_current.nextSiblingElement();
    m_current = m_current.parentNode().toElement();
    m_tag = m_current.tagName();
}

QStringView DomElementReader::tag() const
{
    return m_tag;
}

QString DomElementReader::readText()
{
    QString text;
    QDomNode node = m_current.firstChild();
    while (!node.isNull()) {
        if (node.isText() || node.isCDATASection())
            text += node.nodeValue();
        else if (const auto c = codedCharacter(node.nodeName(), node.toElement().attribute(XmlNames::characterCode)))
            text += *c;
        // On to the next node in document order, without ever leaving the current element.
        QDomNode next = node.firstChild();
        while (next.isNull() && node != m_current) {
            next = node.nextSibling();
            node = node.parentNode();
        }
        node = next;
    }
    return text;
}

std::optional<QStringView> DomElementReader::attribute(QLatin1String name) const
{
    const QDomNode found = m_current.attributes().namedItem(name);
    if (found.isNull())
        return {};
    m_value = found.nodeValue();
    return m_value;
}
