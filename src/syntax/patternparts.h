// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The position behind the set of characters, "[...]", that starts at @p at in the pattern, or behind the end of the
/// pattern. Its first member may be the closing bracket itself.
qsizetype endOfSet(const QString &pattern, qsizetype at);

/// Whether what stands at @p at repeats the part before it or makes that optional.
bool isQuantifier(const QString &pattern, qsizetype at);

/// The character that the part stands for, escaped or not, or a null character.
QChar literalOf(QStringView part);
