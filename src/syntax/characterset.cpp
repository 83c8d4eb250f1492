// SPDX-License-Identifier: GPL-3.0-or-later
#include "syntax/characterset.h"

#include "syntax/patternparts.h"

namespace {

/// The position behind the group that starts at @p at, or behind the end of the pattern.
qsizetype endOfGroup(const QString &pattern, qsizetype at)
{
    int depth = 0;
    do {
        const QChar c = pattern.at(at);
        depth += c == '(' ? 1 : c == ')' ? -1 : 0;
        at = c == '[' ? endOfSet(pattern, at) : at + (c == '\\' ? 2 : 1);
    } while (depth > 0 && at < pattern.size());
    return at;
}

/// The position behind the part of the pattern that starts at @p at: a group, a class, a quantifier, an escaped or a
/// single character.
qsizetype endOfPart(const QString &pattern, qsizetype at)
{
    const QChar c = pattern.at(at);
    if (c == '(')
        return endOfGroup(pattern, at);
    if (c == '[')
        return endOfSet(pattern, at);
    const qsizetype brace = c == '{' ? pattern.indexOf('}', at) : at;
    return brace < 0 ? pattern.size() : brace + (c == '\\' ? 2 : 1);
}

/// Whether the pattern has what is not looked through here: alternatives outside of groups, characters by their code,
/// references to groups.
bool isOpaque(QStringView part)
{
    const bool unknownEscape = part.size() == 2 && part.front() == '\\' && part.back().isLetterOrNumber() &&
                               !QStringLiteral("bBdDsSwW").contains(part.back());
    return unknownEscape || part == u"|";
}

} // namespace

CharacterSet CharacterSet::occurringIn(const QString &line)
{
    CharacterSet set;
    for (const QChar c : line)
        set.insert(c);
    return set;
}

CharacterSet CharacterSet::requiredBy(const QString &pattern)
{
    CharacterSet set;
    for (qsizetype at = 0; at < pattern.size();) {
        const qsizetype end = endOfPart(pattern, at);
        const QStringView part = QStringView(pattern).mid(at, end - at);
        if (isOpaque(part))
            return {};
        const bool quantified = isQuantifier(pattern, end);
        const QChar literal = literalOf(part);
        if (!literal.isNull() && !quantified)
            set.insert(literal);
        else if (part == u"[0-9]" && !quantified)
            set.m_digit = true;
        at = end;
    }
    return set;
}

bool CharacterSet::containsAll(const CharacterSet &other) const
{
    return (other.m_low & ~m_low) == 0 && (other.m_high & ~m_high) == 0 && (m_digit || !other.m_digit);
}

void CharacterSet::insert(QChar c)
{
    const ushort code = c.unicode();
    m_digit = m_digit || (code >= '0' && code <= '9');
    if (code < 64)
        m_low |= quint64(1) << code;
    else if (code < 128)
        m_high |= quint64(1) << (code - 64);
}
