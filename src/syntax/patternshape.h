// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <algorithm>
#include <bitset>

/// What a regular expression tells of itself before it is built, as QRegExp reads it: with which characters a match can
/// begin, and how much work a search may become. Invalid patterns have a shape too, which says nothing.
class PatternShape
{
public:
    /// ASCII characters, one bit each, and a last one for all others.
    using Characters = std::bitset<129>;
    static std::size_t indexOf(QChar c) { return std::min<std::size_t>(c.unicode(), 128); }

    /// The shape of the empty pattern.
    PatternShape() = default;
    explicit PatternShape(const QString &pattern);

    /// Whether building the expression would take more memory or time than any pattern is worth: counts like "{100}"
    /// are written out by QRegExp, nested ones multiply, and each bracket is a call within a call.
    bool isTooLarge() const { return m_tooLarge; }

    /// The number of characters, from the start of a line, within which a search for the pattern keeps to a bounded
    /// number of steps. It is longestSearched for all patterns but those with a great many optional parts.
    int reach() const { return m_reach; }

    /// The first position in @p line, from @p from on, at which a match is possible, or -1. A match that begins
    /// further left is never missed; that there is one here is not said. A pattern that can match the empty string
    /// gives @p from.
    int nextStart(const QString &line, int from) const;

    /// The characters of a line that are searched at all. A search tries every position, and each try may run to the
    /// line's end, so that the steps grow with the square of this: 12.5 million for each part that the pattern repeats.
    static constexpr int longestSearched = 5000;

private:
    /// What is asked of the two characters around the start of a match.
    enum class Boundary { Either, Word, NoWord };

    void takePrefix(const QString &pattern);
    bool isBoundaryRight(const QString &line, int at) const;

    Characters m_starts;    ///< Characters that a match can begin with.
    bool m_anywhere = true; ///< Matches may be empty or begin with anything.
    bool m_tooLarge = false;
    int m_reach = longestSearched;
    QString m_prefix; ///< Text that every match begins with.
    Boundary m_boundary = Boundary::Either;
};
