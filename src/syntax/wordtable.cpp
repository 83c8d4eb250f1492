// SPDX-License-Identifier: GPL-3.0-or-later
#include "syntax/wordtable.h"

#include <algorithm>

bool isWordCharacter(QChar c)
{
    const ushort code = c.unicode();
    if (code < 128)
        return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') ||
               code == '_';
    return c.isLetterOrNumber() || c.isMark();
}

QString WordTable::plainWord(const QString &pattern)
{
    const QLatin1String boundary("\\b");
    if (pattern.size() <= 2 * boundary.size() || !pattern.startsWith(boundary) || !pattern.endsWith(boundary))
        return {};
    const QString word = pattern.mid(boundary.size(), pattern.size() - 2 * boundary.size());
    return std::all_of(word.begin(), word.end(), isWordCharacter) ? word : QString();
}

void WordTable::clear()
{
    m_groups.clear();
}

void WordTable::insert(const QString &word, int group)
{
    m_groups.insert(word, group);
}

QVector<WordTable::Hit> WordTable::find(const QString &line) const
{
    QVector<Hit> hits;
    const auto *const begin = line.begin();
    for (const QChar *start = begin; start != line.end();) {
        start = std::find_if(start, line.end(), isWordCharacter);
        const QChar *const end = std::find_if_not(start, line.end(), isWordCharacter);
        const auto found = m_groups.constFind(QString::fromRawData(start, end - start));
        if (found != m_groups.cend())
            hits.append({int(start - begin), int(end - start), *found});
        start = end;
    }
    return hits;
}
