// SPDX-License-Identifier: GPL-3.0-or-later
#include "syntax/patternshape.h"

#include "syntax/patternparts.h"
#include "syntax/wordtable.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int deepestGroup = 100;
constexpr double largestPattern = 10'000; // characters, with all counts written out
/// Up to this many repeated or optional parts a pattern counts as an ordinary one.
constexpr double ordinaryWeight = 16;
/// A reference to a group makes every step of a try as long as the group's match.
constexpr double referenceWeight = 400 * ordinaryWeight;

using Characters = PatternShape::Characters;

Characters characters(bool (*contains)(char), bool others)
{
    Characters set;
    for (int code = 0; code < 128; ++code)
        set[std::size_t(code)] = contains(char(code));
    set[128] = others;
    return set;
}

bool isAsciiDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isAsciiSpace(char c)
{
    return c <= ' ';
}

bool isAsciiWord(char c)
{
    return isAsciiDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

const Characters everything = ~Characters();

/// What a backslash and @p c stand for, or more than that.
Characters escaped(QChar c)
{
    static const Characters digits = characters(isAsciiDigit, true);
    static const Characters spaces = characters(isAsciiSpace, true);
    static const Characters words = characters(isAsciiWord, true);
    switch (c.unicode()) {
    case 'd':
        return digits;
    case 's':
    case 'f':
    case 'n':
    case 'r':
    case 't':
    case 'v':
        return spaces;
    case 'w':
        return words;
    default:
        return c.isLetterOrNumber() ? everything : Characters().set(PatternShape::indexOf(c));
    }
}

/// The members of the set, or more than those. @p set has no brackets.
Characters members(QStringView set)
{
    if (set.startsWith('^'))
        return everything;
    Characters all;
    for (qsizetype i = 0; i < set.size(); ++i) {
        if (set.at(i) == '\\' && i + 1 < set.size()) {
            all |= escaped(set.at(++i));
            continue;
        }
        const std::size_t first = PatternShape::indexOf(set.at(i));
        const bool range = i + 2 < set.size() && set.at(i + 1) == '-';
        if (range && set.at(i + 2) == '\\')
            return everything;
        const std::size_t last = range ? PatternShape::indexOf(set.at(i + 2)) : first;
        for (std::size_t code = first; code <= last; ++code)
            all.set(code);
        all.set(last);
    }
    return all;
}

/// A piece of a pattern, as it is read.
struct Piece
{
    Characters starts;      ///< With which of these a match can begin, if it is not empty.
    bool mayBeEmpty = true; ///< Whether it can match without taking a character.
    double size = 0;        ///< In characters, with all counts written out.
    double weight = 0;      ///< Parts that are repeated or optional, with all counts written out.

    void follow(const Piece &next)
    {
        if (mayBeEmpty)
            starts |= next.starts;
        mayBeEmpty = mayBeEmpty && next.mayBeEmpty;
        size += next.size;
        weight += next.weight;
    }

    void orElse(const Piece &other)
    {
        starts |= other.starts;
        mayBeEmpty = mayBeEmpty || other.mayBeEmpty;
        size += other.size;
        weight += other.weight;
    }

    void repeat(double least, double most, bool endless)
    {
        const double copies = std::max({least, most, 1.0});
        mayBeEmpty = mayBeEmpty || least < 1;
        size *= copies;
        weight = weight * copies + (endless ? 1 : most - least);
    }
};

/// Reads a pattern from left to right. Brackets nested too deep end it.
class PatternReader
{
public:
    explicit PatternReader(const QString &pattern) : m_pattern(pattern) {}

    Piece alternatives()
    {
        Piece all = sequence();
        while (isAt('|')) {
            ++m_at;
            m_hasAlternatives = m_hasAlternatives || m_depth == 0;
            all.orElse(sequence());
        }
        return all;
    }

    bool isAtEnd() const { return m_at >= m_pattern.size(); }
    bool isTooDeep() const { return m_tooDeep; }
    /// Outside of all groups, that is.
    bool hasAlternatives() const { return m_hasAlternatives; }

private:
    bool isAt(QChar c) const { return !isAtEnd() && m_pattern.at(m_at) == c; }

    Piece sequence()
    {
        Piece all;
        while (!isAtEnd() && !isAt('|') && !isAt(')')) {
            Piece next = part();
            while (isQuantifier(m_pattern, m_at))
                readQuantifier(next);
            all.follow(next);
        }
        return all;
    }

    Piece part()
    {
        const QChar c = m_pattern.at(m_at);
        if (c == '(')
            return group();
        if (c == '^' || c == '$') {
            ++m_at;
            return {};
        }
        if (c == '[') {
            const qsizetype first = m_at + 1;
            m_at = endOfSet(m_pattern, m_at);
            return oneOf(members(QStringView(m_pattern).mid(first, m_at - 1 - first)));
        }
        if (c == '\\' && m_at + 1 < m_pattern.size()) {
            m_at += 2;
            const QChar escape = m_pattern.at(m_at - 1);
            if (escape == 'b' || escape == 'B')
                return {};
            return oneOf(escaped(escape), escape >= '1' && escape <= '9' ? referenceWeight : 0);
        }
        ++m_at;
        return oneOf(c == '.' ? everything : Characters().set(PatternShape::indexOf(c)));
    }

    static Piece oneOf(const Characters &starts, double weight = 0) { return {starts, false, 1, weight}; }

    Piece group()
    {
        const QStringView opening = QStringView(m_pattern).mid(m_at, 3);
        const bool looksAhead = opening == u"(?=" || opening == u"(?!";
        m_at += looksAhead || opening == u"(?:" ? 3 : 1;
        m_tooDeep = m_tooDeep || m_depth == deepestGroup;
        if (m_tooDeep) {
            m_at = m_pattern.size();
            return {};
        }
        ++m_depth;
        Piece inside = alternatives();
        --m_depth;
        ++m_at;
        if (looksAhead) {
            inside.starts.reset();
            inside.mayBeEmpty = true;
        }
        return inside;
    }

    /// "*", "+", "?", "{3}", "{3,}", "{3,5}" or "{,5}".
    void readQuantifier(Piece &piece)
    {
        const QChar c = m_pattern.at(m_at++);
        if (c != '{')
            return piece.repeat(c == '+' ? 1 : 0, 1, c != '?');
        const qsizetype end = m_pattern.indexOf('}', m_at);
        const QString counts = m_pattern.mid(m_at, end < 0 ? -1 : end - m_at);
        m_at = end < 0 ? m_pattern.size() : end + 1;
        const double least = counts.section(',', 0, 0).toDouble();
        const QString most = counts.section(',', 1);
        const bool endless = counts.contains(',') && most.isEmpty();
        piece.repeat(least, most.isEmpty() ? least : most.toDouble(), endless);
    }

    const QString &m_pattern;
    qsizetype m_at = 0;
    int m_depth = 0;
    bool m_tooDeep = false;
    bool m_hasAlternatives = false;
};

} // namespace

PatternShape::PatternShape(const QString &pattern)
{
    PatternReader reader(pattern);
    const Piece whole = reader.alternatives();
    m_tooLarge = reader.isTooDeep() || std::max(whole.size, double(pattern.size())) > largestPattern;
    m_starts = whole.starts;
    m_anywhere = whole.mayBeEmpty || !reader.isAtEnd();
    m_reach = int(longestSearched * std::sqrt(ordinaryWeight / std::max(whole.weight, ordinaryWeight)));
    if (!reader.hasAlternatives())
        takePrefix(pattern);
}

int PatternShape::nextStart(const QString &line, int from) const
{
    if (m_anywhere)
        return from;
    const auto isStart = [this](QChar c) { return m_starts.test(indexOf(c)); };
    for (;; ++from) {
        if (m_prefix.isEmpty())
            from = int(std::find_if(line.cbegin() + from, line.cend(), isStart) - line.cbegin());
        else
            from = int(line.indexOf(m_prefix, from));
        if (from < 0 || from == line.size())
            return -1;
        if (isBoundaryRight(line, from))
            return from;
    }
}

/// The characters that the pattern begins with and that stand for themselves, up to the first that need not be there.
void PatternShape::takePrefix(const QString &pattern)
{
    qsizetype at = 0;
    if (pattern.startsWith(QLatin1String("\\b")) || pattern.startsWith(QLatin1String("\\B"))) {
        at = 2;
        if (!isQuantifier(pattern, at))
            m_boundary = pattern.at(1) == 'b' ? Boundary::Word : Boundary::NoWord;
    }
    while (at < pattern.size() && !QStringLiteral("([{").contains(pattern.at(at))) {
        const qsizetype end = at + (pattern.at(at) == '\\' ? 2 : 1);
        const QChar literal = literalOf(QStringView(pattern).mid(at, end - at));
        if (literal.isNull() || isQuantifier(pattern, end))
            break;
        m_prefix += literal;
        at = end;
    }
}

bool PatternShape::isBoundaryRight(const QString &line, int at) const
{
    if (m_boundary == Boundary::Either)
        return true;
    const bool before = at > 0 && isWordCharacter(line.at(at - 1));
    return (before != isWordCharacter(line.at(at))) == (m_boundary == Boundary::Word);
}
