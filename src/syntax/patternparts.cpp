// SPDX-License-Identifier: GPL-3.0-or-later
#include "syntax/patternparts.h"

qsizetype endOfSet(const QString &pattern, qsizetype at)
{
    const auto behindMember = [&pattern](qsizetype member) {
        return member + (member < pattern.size() && pattern.at(member) == '\\' ? 2 : 1);
    };
    ++at;
    if (at < pattern.size() && pattern.at(at) == '^')
        ++at;
    at = behindMember(at);
    while (at < pattern.size() && pattern.at(at) != ']')
        at = behindMember(at);
    return at + 1;
}

bool isQuantifier(const QString &pattern, qsizetype at)
{
    return at < pattern.size() && QStringLiteral("*+?{").contains(pattern.at(at));
}

QChar literalOf(QStringView part)
{
    const bool escaped = part.size() == 2 && part.front() == '\\' && !part.back().isLetterOrNumber();
    if (escaped)
        return part.back();
    return part.size() == 1 && !QStringLiteral(".^$*+?\\)").contains(part.front()) ? part.front() : QChar();
}
