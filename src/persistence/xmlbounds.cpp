// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/xmlbounds.h"

#include <QIODevice>
#include <QString>
#include <QStringDecoder>

namespace {

/// Finds where tags begin and end, and counts the values inside each.
class TagScanner
{
public:
    /// Takes the next part of the text; false once a tag had too many values.
    bool feed(QStringView text)
    {
        for (const QChar c : text)
            take(c.unicode());
        return !m_exceeded;
    }

private:
    enum State {
        Text,   ///< Between tags.
        Tag,    ///< Inside a tag, or inside what still looks like one.
        Value,  ///< Inside quotes, inside a tag.
        Passage ///< In a comment, section or instruction, which hold any characters up to their own end.
    };

    void take(char16_t c)
    {
        switch (m_state) {
        case Text:
            if (c == u'<')
                openTag();
            break;
        case Tag:
            takeInTag(c);
            break;
        case Value:
            if (c == m_quote)
                m_state = Tag;
            break;
        case Passage:
            takeInPassage(c);
            break;
        }
    }

    void openTag()
    {
        m_state = Tag;
        m_start.clear();
        m_values = 0;
    }

    void takeInTag(char16_t c)
    {
        constexpr int mostValues = 1000;
        if (c == u'>') {
            m_state = Text;
        } else if (c == u'<') {
            openTag(); // in the declarations of a document type
        } else if (c == u'"' || c == u'\'') {
            m_quote = c;
            m_state = Value;
            m_exceeded |= ++m_values > mostValues;
        } else if (m_start.size() < longestStart) {
            m_start += QChar(c);
            recognise();
        }
    }

    void recognise()
    {
        if (m_start == QLatin1String("!--"))
            passOver(QLatin1String("-->"));
        else if (m_start == QLatin1String("![CDATA["))
            passOver(QLatin1String("]]>"));
        else if (m_start == QLatin1String("?"))
            passOver(QLatin1String("?>"));
    }

    void passOver(QLatin1String end)
    {
        m_end = end;
        m_matched = 0;
        m_state = Passage;
    }

    void takeInPassage(char16_t c)
    {
        if (c == m_end.at(m_matched).unicode())
            ++m_matched;
        else if (c != m_end.at(0).unicode()) // of a row of the same character, the last ones count
            m_matched = 0;
        if (m_matched == m_end.size())
            m_state = Text;
    }

    static constexpr qsizetype longestStart = 8;

    State m_state = Text;
    QString m_start;         ///< The first characters of the tag.
    QLatin1String m_end;     ///< What ends the passage.
    qsizetype m_matched = 0; ///< How much of m_end has been seen.
    int m_values = 0;
    char16_t m_quote = 0;
    bool m_exceeded = false;
};

} // namespace

bool hasBoundedTags(QIODevice &device)
{
    constexpr qint64 chunkSize = 1 << 16;
    const QByteArray beginning = device.peek(4);
    QStringDecoder decode(QStringConverter::encodingForData(beginning, u'<').value_or(QStringConverter::Utf8));
    TagScanner scanner;
    for (QByteArray chunk = device.read(chunkSize); !chunk.isEmpty(); chunk = device.read(chunkSize)) {
        const QString text = decode(chunk);
        if (!scanner.feed(text))
            return false;
    }
    return true;
}
