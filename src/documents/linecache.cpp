// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/linecache.h"

#include <QTextLayout>

LineCache::LineCache() = default;

LineCache::LineCache(LineCache &&) noexcept = default;

LineCache &LineCache::operator=(LineCache &&) noexcept = default;

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
    m_lines.replace(first, removed, added);
}

void LineCache::keepAround(int first, int last, int around)
{
    m_lines.keep(first - around, last + around);
}

void LineCache::clear()
{
    m_lines.clear();
}
