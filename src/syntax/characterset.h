// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// A set of ASCII characters, to tell cheaply that an expression cannot match a line: it cannot where the line lacks a
/// character that every match contains.
class CharacterSet
{
public:
    /// The ASCII characters of @p line.
    static CharacterSet occurringIn(const QString &line);
    /// Characters that every text matched by the regular expression @p pattern contains, as QRegExp reads it. There
    /// may be more of them: only characters that stand for themselves outside of all groups are looked at.
    static CharacterSet requiredBy(const QString &pattern);

    bool containsAll(const CharacterSet &other) const;

private:
    void insert(QChar c);

    bool m_digit = false; ///< One of "0" to "9", whichever it is.
    quint64 m_low = 0;    ///< Characters 0 to 63, one bit each.
    quint64 m_high = 0;   ///< Characters 64 to 127.
};
