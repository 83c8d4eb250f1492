// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/linecounter.h"

#include <QString>
#include <QStringList>

LineCounts countLinesOf(const QString &text)
{
    LineCounts counts;
    const QStringList lines = text.split(QLatin1Char('\n'));
    counts.total = static_cast<int>(lines.size());
    for (const QString &line : lines) {
        if (line.isEmpty())
            ++counts.empty;
        else if (startsLineComment(line))
            ++counts.comments;
        else
            ++counts.code;
    }
    return counts;
}

bool startsLineComment(const QString &line)
{
    return line.startsWith(QLatin1String("//"));
}
