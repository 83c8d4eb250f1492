// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/domelementwriter.h"

DomElementWriter::DomElementWriter(const QDomDocument &document, const QDomElement &parent)
    : m_document(document), m_open(parent)
{
}

void DomElementWriter::startElement(QLatin1String tag)
{
    m_open = m_open.appendChild(m_document.createElement(tag)).toElement();
}

void DomElementWriter::endElement()
{
    m_open = m_open.parentNode().toElement();
}

void DomElementWriter::addAttribute(QLatin1String name, QUtf8StringView value)
{
    m_open.setAttribute(name, value.toString());
}

void DomElementWriter::addText(QStringView text)
{
    m_open.appendChild(m_document.createTextNode(text.toString()));
}

void DomElementWriter::addCData(QStringView text)
{
    m_open.appendChild(m_document.createCDATASection(text.toString()));
}
