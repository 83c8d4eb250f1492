// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QVector>

/// Whether QRegExp takes the character for a part of a word.
bool isWordCharacter(QChar c);

/// Whole words that patterns of the plain form "\bword\b" look for, found by one look-up per word of a line instead of
/// one search of the line per pattern. What counts as a word is what QRegExp takes for one, so the matches are the
/// same.
class WordTable
{
public:
    struct Hit
    {
        int start;  ///< Position in the line, in characters.
        int length; ///< In characters.
        int group;  ///< As it was given to insert().
    };

    /// The word, if @p pattern is "\bword\b" with nothing but word characters between; otherwise an empty string.
    static QString plainWord(const QString &pattern);

    void clear();
    /// A word that is known already moves to @p group.
    void insert(const QString &word, int group);
    /// All known words of @p line, from left to right.
    QVector<Hit> find(const QString &line) const;

private:
    QHash<QString, int> m_groups;
};
