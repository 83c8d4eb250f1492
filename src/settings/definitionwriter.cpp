// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/definitionwriter.h"

#include "syntax/definitionxml.h"

#include <QDomElement>
#include <QTextStream>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {

constexpr std::array definitionGroupNames{"Keywords", "Types", "Comments", "Quotation"};
const QString definitionElementTag = QStringLiteral("element");
const QString definitionPatternTag = QStringLiteral("pattern");

QString colorText(const QColor &color)
{
    if (color.rgba() == 0)
        return QStringLiteral("transparent");
    return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
}

void setColorAttribute(QDomElement &element, const QString &attribute, const QColor &color)
{
    if (writtenColor(QColor::fromString(element.attribute(attribute).trimmed())) == color)
        return;
    if (color.isValid())
        element.setAttribute(attribute, colorText(color));
    else
        element.removeAttribute(attribute);
}

void setBold(QDomElement &element, bool bold)
{
    const QString attribute = QStringLiteral("weight");
    const QString word = bold ? QStringLiteral("Bold") : QStringLiteral("Normal");
    const bool isBold = element.attribute(attribute).trimmed() == QLatin1String("Bold");
    if (isBold != bold || !element.hasAttribute(attribute))
        element.setAttribute(attribute, word);
}

QVector<QString> patternsOf(const QDomElement &element)
{
    QVector<QString> patterns;
    for (QDomElement child = element.firstChildElement(definitionPatternTag); !child.isNull();
         child = child.nextSiblingElement(definitionPatternTag))
        patterns.append(child.text().trimmed());
    return patterns;
}

void setPatterns(QDomElement &element, const QVector<QString> &patterns)
{
    if (patternsOf(element) == patterns)
        return;
    for (QDomElement old = element.firstChildElement(definitionPatternTag); !old.isNull();
         old = element.firstChildElement(definitionPatternTag))
        element.removeChild(old);
    for (const QString &pattern : patterns) {
        QDomElement child = element.ownerDocument().createElement(definitionPatternTag);
        child.appendChild(element.ownerDocument().createTextNode(pattern));
        element.appendChild(child);
    }
}

QList<QDomElement> elementsOfGroup(const QDomElement &root, const QString &name)
{
    QList<QDomElement> elements;
    for (QDomElement child = root.firstChildElement(definitionElementTag); !child.isNull();
         child = child.nextSiblingElement(definitionElementTag)) {
        if (child.attribute(QStringLiteral("name")).trimmed() == name)
            elements.append(child);
    }
    return elements;
}

/// The one element of the group in @p root, at its place behind @p previous; made if there is none. Where there are
/// several, the last one stays: it is the one whose format a reader takes.
QDomElement placedElement(QDomElement &root, const QString &name, const QDomElement &previous)
{
    QList<QDomElement> found = elementsOfGroup(root, name);
    QDomElement element;
    if (found.isEmpty()) {
        element = root.ownerDocument().createElement(definitionElementTag);
        element.setAttribute(QStringLiteral("name"), name);
        element.setAttribute(QStringLiteral("italic"), QStringLiteral("false"));
    } else {
        element = found.takeLast();
    }
    for (const QDomElement &other : std::as_const(found))
        root.removeChild(other);
    QDomElement before = element.previousSiblingElement(definitionElementTag);
    while (!before.isNull() && before != previous)
        before = before.previousSiblingElement(definitionElementTag);
    const bool isInPlace = !element.parentNode().isNull() && (previous.isNull() || before == previous);
    if (!isInPlace && previous.isNull())
        root.insertBefore(element, root.firstChildElement(definitionElementTag));
    else if (!isInPlace)
        root.insertAfter(element, previous);
    return element;
}

void replaceGroups(QDomElement root, const DefinitionGroups &groups)
{
    QDomElement previous;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const DefinitionGroup &group = groups.at(i);
        QDomElement element = placedElement(root, QString::fromLatin1(definitionGroupNames.at(i)), previous);
        setColorAttribute(element, QStringLiteral("color"), group.color());
        setColorAttribute(element, QStringLiteral("bg_color"), group.background());
        setBold(element, group.isBold());
        setPatterns(element, group.writtenPatterns());
        previous = element;
    }
}

/// Attributes in a fixed order, which a tree does not keep: those of the format as its description lists them, then
/// the others by name.
QList<QDomAttr> orderedAttributes(const QDomElement &element)
{
    static const QStringList known{"type", "version", "name", "color", "bg_color", "weight", "italic"};
    QList<QDomAttr> attributes;
    const QDomNamedNodeMap map = element.attributes();
    for (int i = 0; i < map.count(); ++i)
        attributes.append(map.item(i).toAttr());
    std::sort(attributes.begin(), attributes.end(), [](const QDomAttr &a, const QDomAttr &b) {
        const auto rank = [](const QDomAttr &attribute) {
            const auto place = known.indexOf(attribute.name());
            return place < 0 ? known.size() : place;
        };
        return std::pair(rank(a), a.name()) < std::pair(rank(b), b.name());
    });
    return attributes;
}

void writeDomNode(QXmlStreamWriter &writer, const QDomNode &node);

void writeDomElement(QXmlStreamWriter &writer, const QDomElement &element)
{
    writer.writeStartElement(element.tagName());
    for (const QDomAttr &attribute : orderedAttributes(element))
        writer.writeAttribute(attribute.name(), attribute.value());
    for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling())
        writeDomNode(writer, child);
    writer.writeEndElement();
}

/// The declaration of a document is written by the caller.
void writeDomNode(QXmlStreamWriter &writer, const QDomNode &node)
{
    if (node.isElement()) {
        writeDomElement(writer, node.toElement());
    } else if (node.isCDATASection()) {
        writer.writeCDATA(node.nodeValue());
    } else if (node.isText()) {
        writer.writeCharacters(node.nodeValue());
    } else if (node.isComment()) {
        writer.writeComment(node.nodeValue());
    } else if (node.isProcessingInstruction() && node.nodeName() != QLatin1String("xml")) {
        writer.writeProcessingInstruction(node.nodeName(), node.nodeValue());
    }
}

/// The document type is no node among the others.
void writeDocumentType(QXmlStreamWriter &writer, const QDomDocument &document)
{
    if (document.doctype().name().isEmpty())
        return;
    QString text;
    QTextStream stream(&text);
    document.doctype().save(stream, 0);
    writer.writeDTD(text.trimmed());
}

QByteArray definitionToXml(const QDomDocument &document)
{
    QByteArray xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(2);
    writer.writeStartDocument();
    for (QDomNode node = document.firstChild(); !node.isNull(); node = node.nextSibling()) {
        if (node.isElement())
            writeDocumentType(writer, document);
        writeDomNode(writer, node);
    }
    writer.writeEndDocument();
    return xml;
}

} // namespace

std::optional<QByteArray> rewrittenDefinition(const QByteArray &xml, const DefinitionGroups &groups)
{
    const std::optional<QDomDocument> document = parseDefinition(xml);
    if (!document)
        return {};
    replaceGroups(document->documentElement(), groups);
    const QByteArray rewritten = definitionToXml(*document);
    SyntaxFile readBack{QString()};
    if (!readBack.parse(rewritten) || !areWrittenAlike(groupsOf(readBack), groups))
        return {};
    return rewritten;
}

QByteArray emptyDefinition(const QString &extension)
{
    QByteArray xml;
    QXmlStreamWriter writer(&xml);
    writer.writeStartDocument();
    writer.writeDTD(QStringLiteral("<!DOCTYPE syntaxfile>"));
    writer.writeEmptyElement(QStringLiteral("syntaxfile"));
    writer.writeAttribute(QStringLiteral("type"), extension);
    writer.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    writer.writeEndDocument();
    return xml;
}
