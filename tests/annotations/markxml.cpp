// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/markxml.h"

#include "annotations/annotation.h"
#include "annotations/streamelementreader.h"
#include "annotations/streamelementwriter.h"

#include <QBuffer>
#include <QDomDocument>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace MarkXml {

QByteArray streamed(const Annotation &mark)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    StreamElementWriter writer(buffer);
    mark.write(writer);
    writer.flush();
    return buffer.data();
}

QByteArray saved(Annotation &mark)
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("root"));
    mark.saveToXml(document, root);
    document.appendChild(root.firstChild());
    return document.toByteArray(2);
}

void readStreamed(Annotation &mark, const QByteArray &bytes)
{
    QXmlStreamReader xml(bytes);
    xml.setNamespaceProcessing(false);
    xml.readNextStartElement();
    StreamElementReader reader(xml);
    mark.read(reader);
}

void load(Annotation &mark, const QByteArray &xml)
{
    QDomDocument document;
    document.setContent(xml);
    mark.loadFromXml(document.documentElement(), QPointF(50, 5));
}

QMap<QString, QString> attributes(const QByteArray &bytes)
{
    QXmlStreamReader xml(bytes);
    xml.readNextStartElement();
    QMap<QString, QString> result;
    for (const QXmlStreamAttribute &attribute : xml.attributes())
        result.insert(attribute.name().toString(), attribute.value().toString());
    return result;
}

QStringList attributeOrder(const QByteArray &bytes)
{
    QXmlStreamReader xml(bytes);
    xml.readNextStartElement();
    QStringList names;
    for (const QXmlStreamAttribute &attribute : xml.attributes())
        names.append(attribute.name().toString());
    return names;
}

QByteArray withSortedAttributes(const QByteArray &bytes)
{
    QByteArray result;
    QXmlStreamReader reader(bytes);
    QXmlStreamWriter writer(&result);
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement()) {
            const bool layout = reader.isWhitespace() && !reader.isCDATA();
            if (!reader.isStartDocument() && !reader.isEndDocument() && !layout)
                writer.writeCurrentToken(reader);
            continue;
        }
        writer.writeStartElement(reader.name().toString());
        QXmlStreamAttributes sorted = reader.attributes();
        std::sort(sorted.begin(), sorted.end(), [](const auto &a, const auto &b) { return a.name() < b.name(); });
        writer.writeAttributes(sorted);
    }
    return result.trimmed();
}

} // namespace MarkXml
