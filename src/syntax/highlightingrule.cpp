// SPDX-License-Identifier: GPL-3.0-or-later
#include "syntax/highlightingrule.h"

HighlightingRule::HighlightingRule(const QString &pattern) : m_shape(pattern)
{
    if (m_shape.isTooLarge())
        return;
    m_expression = QRegExp(pattern, Qt::CaseSensitive, QRegExp::RegExp);
    m_required = CharacterSet::requiredBy(pattern);
}

int HighlightingRule::find(const QString &line, const CharacterSet &characters, int from) const
{
    if (m_expression.isEmpty() || !characters.containsAll(m_required))
        return -1;
    if (line.size() > m_shape.reach())
        return find(line.left(m_shape.reach()), characters, from);
    const int start = from > line.size() ? -1 : m_shape.nextStart(line, from);
    return start < 0 ? -1 : m_expression.indexIn(line, start);
}

bool HighlightingRule::canDelimit() const
{
    return !m_expression.isEmpty() && m_expression.isValid() && m_expression.indexIn(QString()) < 0;
}
