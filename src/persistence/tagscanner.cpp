// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/tagscanner.h"

#include <algorithm>

namespace {

/// Several times as many as any element that is known has.
constexpr int mostValues = 100;
/// What tells the kinds of tags apart stands within this many characters.
constexpr qsizetype longestStart = 8;

} // namespace

bool TagScanner::feed(QByteArrayView bytes)
{
    const char *const end = bytes.end();
    for (const char *c = bytes.begin(); c != end && !m_objects; ++c) {
        switch (m_state) {
        case Text:
            c = std::find(c, end, '<');
            if (c == end)
                return true;
            m_state = Start;
            m_values = 0;
            break;
        case Start:
            m_isDeclaration = *c == '!' || *c == '?';
            m_start.resize(0);
            m_state = Tag;
            takeInTag(*c);
            break;
        case Tag:
            takeInTag(*c);
            break;
        case Value:
            c = std::find(c, end, m_quote);
            if (c == end)
                return true;
            m_state = Tag;
            break;
        case Passage:
            takeInPassage(*c);
            break;
        }
    }
    return !m_objects;
}

void TagScanner::takeInTag(char c)
{
    if (c == '>') {
        m_state = Text;
    } else if (c == '"' || c == '\'') {
        m_quote = c;
        m_state = Value;
        m_objects = ++m_values > mostValues;
    } else if (m_isDeclaration) {
        takeInDeclaration(c);
    }
}

void TagScanner::takeInDeclaration(char c)
{
    if (c == '[' && m_start == "!DOCTYPE")
        m_objects = true;
    else if (m_start.size() < longestStart)
        m_start += c;
    if (m_start == "!--")
        passOver("-->");
    else if (m_start == "![CDATA[")
        passOver("]]>");
    else if (m_start == "?")
        passOver("?>");
}

void TagScanner::passOver(QByteArrayView end)
{
    m_end = end;
    m_matched = 0;
    m_state = Passage;
}

void TagScanner::takeInPassage(char c)
{
    if (c == m_end.at(m_matched))
        ++m_matched;
    else if (c != m_end.front()) // of a row of the same character the last ones count
        m_matched = 0;
    if (m_matched == m_end.size())
        m_state = Text;
}
