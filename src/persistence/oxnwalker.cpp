// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/oxnwalker.h"

#include "annotations/streamelementreader.h"
#include "persistence/xmlbounds.h"

#include <QIODevice>
#include <QXmlStreamReader>

OxnWalker::~OxnWalker() = default;

bool OxnWalker::walk(QIODevice &device)
{
    if (!hasBoundedTags(device)) {
        m_errorString = QStringLiteral("a tag has too many attributes");
        return false;
    }
    device.seek(0);
    QXmlStreamReader xml(&device);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isDTD() && !xml.entityDeclarations().isEmpty()) {
            xml.raiseError(QStringLiteral("entities are not allowed"));
        } else if (xml.isStartElement()) {
            visitRoot(StreamElementReader(xml));
            walkChildren(xml);
        }
    }
    if (!xml.hasError())
        return true;
    m_errorString =
        QStringLiteral("line %1, column %2: %3").arg(xml.lineNumber()).arg(xml.columnNumber()).arg(xml.errorString());
    return false;
}

void OxnWalker::walkChildren(QXmlStreamReader &xml)
{
    int count = 0;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement: {
            StreamElementReader element(xml);
            visitElement(element, count++);
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
