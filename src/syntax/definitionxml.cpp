// SPDX-License-Identifier: GPL-3.0-or-later
#include "syntax/definitionxml.h"

#include <QXmlStreamReader>

namespace {

// The format is three levels deep with five attributes at most; the bounds leave room for elements to be skipped.
constexpr int deepestElement = 32;
constexpr qsizetype mostAttributes = 64;
// Checking the attributes of one tag costs the reader quadratic time before it hands them out, so tags that do not
// end are given up while they are still being fed, piece by piece.
constexpr qsizetype feedSize = 4096;     // bytes
constexpr qint64 longestToken = 1 << 16; // characters

bool declaresTooMuch(QStringView documentType)
{
    return documentType.contains(u"<!ENTITY") || documentType.contains(u"<!ATTLIST");
}

bool isHarmless(const QXmlStreamReader &reader, int depth)
{
    if (reader.isDTD())
        return !declaresTooMuch(reader.text());
    return depth <= deepestElement && reader.attributes().size() <= mostAttributes;
}

/// The stream pass: whether the bytes are well-formed and within the bounds.
bool isHarmless(const QByteArray &xml)
{
    QXmlStreamReader reader;
    qsizetype fed = 0;
    qint64 tokenStart = 0;
    int depth = 0;
    while (reader.readNext() != QXmlStreamReader::EndDocument) {
        if (reader.error() == QXmlStreamReader::PrematureEndOfDocumentError) {
            if (fed == xml.size() || reader.characterOffset() - tokenStart > longestToken)
                return false;
            const qsizetype size = std::min(feedSize, xml.size() - fed);
            reader.addData(xml.sliced(fed, size));
            fed += size;
            continue;
        }
        if (reader.hasError())
            return false;
        tokenStart = reader.characterOffset();
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
        if (!isHarmless(reader, depth))
            return false;
    }
    return true;
}

} // namespace

std::optional<QDomDocument> parseDefinition(const QByteArray &xml)
{
    QDomDocument document(QStringLiteral("syntaxfile"));
    if (xml.size() > largestDefinition || !isHarmless(xml) || !document.setContent(xml))
        return {};
    return document;
}
