// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/oxnwalker.h"

#include "annotations/streamelementreader.h"
#include "persistence/xmlguard.h"

#include <QIODevice>
#include <QXmlStreamReader>

OxnWalker::~OxnWalker() = default;

bool OxnWalker::walk(QIODevice &device)
{
    XmlGuard guard(device);
    QXmlStreamReader xml(&guard);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::StartDocument && !guard.isTrueEncoding(xml.documentEncoding())) {
            xml.raiseError(QStringLiteral("encoding %1 is not supported").arg(xml.documentEncoding()));
        } else if (token == QXmlStreamReader::StartElement) {
            visitRoot(StreamElementReader(xml));
            walkChildren(xml);
        }
    }
    m_errorString = guard.hasRefused() ? QStringLiteral("too many attributes or declarations") : xml.errorString();
    m_errorString += QStringLiteral(" in line %1, column %2").arg(xml.lineNumber()).arg(xml.columnNumber());
    // Behind the root a parser takes any end for a good one.
    return !xml.hasError() && !guard.hasRefused() && !guard.hasFailed();
}

void OxnWalker::walkChildren(QXmlStreamReader &xml)
{
    int count = 0;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement: {
            StreamElementReader element(xml);
            if (!visitElement(element, count++))
                xml.raiseError(QStringLiteral("there are too many elements of a kind"));
            element.leaveChild();
            break;
        }
        case QXmlStreamReader::Comment:
        case QXmlStreamReader::ProcessingInstruction:
            ++count;
            break;
        case QXmlStreamReader::Characters:
            count += xml.isWhitespace() && !xml.isCDATA() ? 0 : 1;
            break;
        case QXmlStreamReader::EndElement:
            visitEnd(count);
            return;
        default:
            break;
        }
    }
}

QString OxnWalker::errorString() const
{
    return m_errorString;
}
