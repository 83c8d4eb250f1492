// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/exacttext.h"

#include <QTextDocument>

QString exactText(const QTextDocument &document)
{
    return document.toRawText().replace(QChar::ParagraphSeparator, u'\n');
}
