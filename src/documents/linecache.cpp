// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/linecache.h"

#include <QTextLayout>

namespace {

/// Lines to keep on either side of what was painted last, which may be no more than the line of the caret.
constexpr int linesAround = 100;

} // namespace

LineCache::LineCache() = default;

LineCache::~LineCache() = default;

QTextLayout *LineCache::line(int number, const std::function<std::unique_ptr<QTextLayout>()> &make)
{
    std::unique_ptr<QTextLayout> &layout = m_lines[number];
    if (!layout)
        layout = make();
    return layout.get();
}

void LineCache::replace(int first, int removed, int added)
{
    m_lines.erase(m_lines.lower_bound(first), m_lines.lower_bound(first + removed));
    if (removed == added)
        return;
    std::map<int, std::unique_ptr<QTextLayout>> moved;
    for (auto line = m_lines.lower_bound(first); line != m_lines.end(); line = m_lines.erase(line))
        moved.emplace_hint(moved.end(), line->first + added - removed, std::move(line->second));
    m_lines.merge(moved);
}

void LineCache::keepAround(int first, int last)
{
    m_lines.erase(m_lines.begin(), m_lines.lower_bound(first - linesAround));
    m_lines.erase(m_lines.upper_bound(last + linesAround), m_lines.end());
}

void LineCache::clear()
{
    m_lines.clear();
}
