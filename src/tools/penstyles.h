// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Names of line styles in the settings store. Lines know the spelling with blanks, brackets and shapes the one
/// with hyphens: of a style stored as "Dash Dot", brackets and shapes take no notice.
namespace PenStyles {

/// @p current for a name that is none of them; names are compared exactly.
Qt::PenStyle fromSpacedName(const QString &name, Qt::PenStyle current);
Qt::PenStyle fromHyphenatedName(const QString &name, Qt::PenStyle current);

} // namespace PenStyles
