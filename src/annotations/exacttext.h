// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QTextDocument;

/// The text of @p document, its blocks separated by line feeds. Unlike QTextDocument::toPlainText() it changes
/// no other character: a no-break space stays one.
QString exactText(const QTextDocument &document);
