// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/linemap.h"

#include <functional>
#include <memory>

class QTextLayout;

/// The shaped lines that were painted lately, by their numbers, so that painting them again shapes nothing.
class LineCache
{
public:
    LineCache();
    LineCache(LineCache &&) noexcept;
    LineCache &operator=(LineCache &&) noexcept;
    ~LineCache();

    /// The layout of line @p number, which stays the cache's; made by @p make when it is not there.
    QTextLayout *line(int number, const std::function<std::unique_ptr<QTextLayout>()> &make);
    /// Forgets @p removed lines from @p first on and moves those behind to where @p added new ones leave them.
    void replace(int first, int removed, int added);
    /// Forgets what lies further than @p around lines away from the lines @p first to @p last.
    void keepAround(int first, int last, int around);
    void clear();

private:
    LineMap<std::unique_ptr<QTextLayout>> m_lines;
};
