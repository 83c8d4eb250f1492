// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/exacttext.h"

#include <QTextDocument>

QString exactText(const QTextDocument &document)
{
    // A block ends at a paragraph separator, or at the mark where a frame, such as a table's cell, begins or ends.
    constexpr QChar frameBegin(0xfdd0);
    constexpr QChar frameEnd(0xfdd1);
    QString text = document.toRawText();
    for (const QChar blockEnd : {QChar(QChar::ParagraphSeparator), frameBegin, frameEnd})
        text.replace(blockEnd, u'\n');
    return text;
}
