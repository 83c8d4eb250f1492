// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "syntax/syntaxfile.h"

#include <QColor>

#include <array>

/// What a syntax definition says of one group of elements.
struct DefinitionGroup
{
    QVector<QString> patterns;
    QTextCharFormat format;

    // As they stand in a file, which keeps no blanks around a pattern, colours of 8 bits a component (an invalid one
    // where it has none, transparent where there is no background) and of a font the weight alone.
    QVector<QString> writtenPatterns() const;
    QColor color() const;
    QColor background() const;
    bool isBold() const;
    /// Whether a file would have the same for both.
    bool isWrittenLike(const DefinitionGroup &other) const;
};

/// All of a definition, by SyntaxFile::Group.
using DefinitionGroups = std::array<DefinitionGroup, SyntaxFile::groupCount>;

DefinitionGroups groupsOf(const SyntaxFile &definition);
void setGroups(SyntaxFile &definition, const DefinitionGroups &groups);
bool areWrittenAlike(const DefinitionGroups &some, const DefinitionGroups &others);

/// @p color as a file keeps it.
QColor writtenColor(const QColor &color);
