// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/textformat.h"

#include <QList>
#include <QString>

class QTextDocument;

/// A text taken apart into lines and what ends them.
struct SplitText
{
    /// End of a line that differs from most of the file.
    struct OddEnd
    {
        int line; ///< From 0.
        QString end;
    };

    QString text;    ///< Lines separated by line feeds, without the end of the last line.
    int lines = 0;   ///< 0 for an empty file.
    QString lineEnd; ///< The most frequent of "\n", "\r\n" and "\r"; "\n" if there is none.
    QList<OddEnd> oddEnds;
};

/// Takes @p raw apart. A line ends where a text document would end one: also at a lone carriage return, a paragraph
/// separator (U+2029) and the two frame marks U+FDD0 and U+FDD1.
SplitText splitLines(const QString &raw);

/// Lets each line of @p document that @p split knows as odd remember its end for as long as it exists.
void rememberOddEnds(QTextDocument *document, const SplitText &split);

/// Puts the lines of @p document together, between them their own ends or those of @p format. The last line ends
/// without one, also where the file had one.
QString joinLines(const QTextDocument *document, const TextFormat &format);
