// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/elementwriter.h"

#include "annotations/xmlnames.h"

#include <QString>

#include <algorithm>
#include <array>
#include <charconv>

namespace {

/// Whether the UTF-16 unit at @p i cannot stand in XML text and come back the same: most control characters,
/// halves of surrogate pairs, two non-characters, and the carriage return, which parsers turn into a line feed.
bool isForbidden(QStringView text, qsizetype i)
{
    const QChar c = text.at(i);
    if (c.isHighSurrogate())
        return i + 1 == text.size() || !text.at(i + 1).isLowSurrogate();
    if (c.isLowSurrogate())
        return i == 0 || !text.at(i - 1).isHighSurrogate();
    const char16_t code = c.unicode();
    return (code < 0x20 && code != u'\t' && code != u'\n') || code == 0xFFFE || code == 0xFFFF;
}

/// Position of the first forbidden character from @p from on, or the text's size.
qsizetype nextForbidden(QStringView text, qsizetype from)
{
    while (from < text.size() && !isForbidden(text, from))
        ++from;
    return from;
}

bool isBlank(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c == u' ' || c == u'\t' || c == u'\n'; });
}

} // namespace

ElementWriter::~ElementWriter() = default;

QString ElementWriter::attributeText(const QString &value)
{
    QString clean = value;
    for (qsizetype i = nextForbidden(value, 0); i < value.size(); i = nextForbidden(value, i + 1)) {
        if (value.at(i) != u'\r') // attributes escape it
            clean[i] = QChar::ReplacementCharacter;
    }
    return clean;
}

void ElementWriter::writeAttribute(QLatin1String name, const QString &value)
{
    addAttribute(name, attributeText(value).toUtf8());
}

void ElementWriter::writeAttribute(QLatin1String name, int value)
{
    std::array<char, 16> digits;
    const char *end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    addAttribute(name, QUtf8StringView(digits.data(), end));
}

void ElementWriter::writeAttribute(QLatin1String name, double value)
{
    std::array<char, 32> digits;
    const char *end = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::general, 17).ptr;
    addAttribute(name, QUtf8StringView(digits.data(), end));
}

void ElementWriter::writeYesNo(QLatin1String name, bool value)
{
    const QLatin1String word = value ? XmlNames::yes : XmlNames::no;
    addAttribute(name, QUtf8StringView(word.data(), word.size()));
}

void ElementWriter::writeText(QStringView text)
{
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype end = nextForbidden(text, start);
        const QStringView piece = text.mid(start, end - start);
        // Readers drop text that is nothing but white space, unless it is a CDATA section.
        if (isBlank(piece) && !piece.isEmpty())
            addCData(piece);
        else if (!piece.isEmpty())
            addText(piece);
        if (end < text.size())
            writeCharacter(text.at(end));
        start = end + 1;
    }
}

void ElementWriter::writeCData(QStringView text)
{
    qsizetype start = 0;
    for (qsizetype end = nextForbidden(text, 0); end < text.size(); end = nextForbidden(text, start)) {
        writeCDataPiece(text.mid(start, end - start));
        writeCharacter(text.at(end));
        start = end + 1;
    }
    writeCDataPiece(text.mid(start));
}

void ElementWriter::writeCharacter(QChar character)
{
    startElement(XmlNames::character);
    writeAttribute(XmlNames::characterCode, int(character.unicode()));
    endElement();
}

void ElementWriter::writeCDataPiece(QStringView piece)
{
    // "]]>" would end the section: the next one starts between its brackets and its angle.
    const QLatin1String endMark("]]>");
    for (qsizetype end = piece.indexOf(endMark); end >= 0; end = piece.indexOf(endMark)) {
        addCData(piece.left(end + 2));
        piece = piece.mid(end + 2);
    }
    addCData(piece);
}
