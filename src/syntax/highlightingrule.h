// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "syntax/characterset.h"
#include "syntax/patternshape.h"

#include <QRegExp>
#include <QString>

/// One regular expression as it is searched for in lines, quickly where it has no match and never without end: of a
/// very long line only the first part is looked at.
class HighlightingRule
{
public:
    /// Finds nothing.
    HighlightingRule() = default;
    /// A @p pattern that is invalid, or too large to be built, finds nothing.
    explicit HighlightingRule(const QString &pattern);

    /// Position of the first match from @p from on in a line of these characters, or -1.
    int find(const QString &line, const CharacterSet &characters, int from) const;
    /// Of the last match found, in characters.
    int matchedLength() const { return m_expression.matchedLength(); }

    /// Whether matches can start or end a comment. Those of an expression that matches the empty string would do so
    /// everywhere.
    bool canDelimit() const;

private:
    QRegExp m_expression;
    CharacterSet m_required; ///< A line without all of them is not searched.
    PatternShape m_shape;
};
