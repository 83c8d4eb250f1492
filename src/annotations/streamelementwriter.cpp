// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/streamelementwriter.h"

#include <QIODevice>

namespace {

/// What stands in XML for @p c, or null where it stands for itself. White space is coded in attributes only, where
/// parsers would turn it into blanks.
const char *escapeFor(char c, bool inAttribute)
{
    switch (c) {
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '&':
        return "&amp;";
    case '"':
        return inAttribute ? "&quot;" : nullptr;
    case '\t':
        return inAttribute ? "&#9;" : nullptr;
    case '\n':
        return inAttribute ? "&#10;" : nullptr;
    case '\r':
        return inAttribute ? "&#13;" : nullptr;
    default:
        return nullptr;
    }
}

void appendEscaped(QByteArray &target, QUtf8StringView text, bool inAttribute)
{
    auto plain = text.begin();
    for (auto c = plain; c != text.end(); ++c) {
        if (const char *escape = escapeFor(*c, inAttribute)) {
            target.append(plain, c - plain);
            target += escape;
            plain = c + 1;
        }
    }
    target.append(plain, text.end() - plain);
}

} // namespace

StreamElementWriter::StreamElementWriter(QIODevice &device) : m_device(device) {}

void StreamElementWriter::writeDocumentType(QLatin1String name)
{
    append(QLatin1String("<!DOCTYPE "));
    append(name);
    append(QLatin1String(">\n"));
}

void StreamElementWriter::closeTag()
{
    if (m_inTag)
        m_buffer += '>';
    m_inTag = false;
}

void StreamElementWriter::startLine(qsizetype level)
{
    m_buffer += '\n';
    m_buffer.append(2 * level, ' ');
}

void StreamElementWriter::startLineForChild()
{
    closeTag();
    if (m_open.isEmpty())
        return;
    m_open.last().hasChildren = true;
    if (!m_open.last().hasText)
        startLine(m_open.size());
}

void StreamElementWriter::startElement(QLatin1String tag)
{
    startLineForChild();
    m_buffer += '<';
    append(tag);
    m_open.append({tag});
    m_inTag = true;
}

void StreamElementWriter::endElement()
{
    const OpenElement element = m_open.takeLast();
    if (m_inTag) {
        append(QLatin1String("/>"));
        m_inTag = false;
    } else {
        if (element.hasChildren && !element.hasText)
            startLine(m_open.size());
        append(QLatin1String("</"));
        append(element.tag);
        m_buffer += '>';
    }
    if (m_open.isEmpty())
        m_buffer += '\n';
    constexpr qsizetype flushSize = 1 << 16;
    if (m_buffer.size() >= flushSize)
        flush();
}

void StreamElementWriter::writeComment(QLatin1String text)
{
    startLineForChild();
    append(QLatin1String("<!--"));
    append(text);
    append(QLatin1String("-->"));
}

bool StreamElementWriter::flush()
{
    m_failed |= m_device.write(m_buffer) != m_buffer.size();
    m_buffer.resize(0); // keeps its memory
    return !m_failed;
}

void StreamElementWriter::addAttribute(QLatin1String name, QUtf8StringView value)
{
    m_buffer += ' ';
    append(name);
    append(QLatin1String("=\""));
    appendEscaped(m_buffer, value, true);
    m_buffer += '"';
}

void StreamElementWriter::startText()
{
    closeTag();
    m_open.last().hasText = true;
}

void StreamElementWriter::addText(QStringView text)
{
    startText();
    appendEscaped(m_buffer, text.toUtf8(), false);
}

void StreamElementWriter::addCData(QStringView text)
{
    startText();
    append(QLatin1String("<![CDATA["));
    m_buffer += text.toUtf8();
    append(QLatin1String("]]>"));
}
