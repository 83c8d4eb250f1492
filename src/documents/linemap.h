// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <utility>

/// Things kept for some of many lines, by the numbers of the lines, which change as lines come and go.
template<typename T> class LineMap
{
public:
    /// What is kept for line @p number, made by default when there is nothing.
    T &operator[](int number) { return m_things[number]; }
    /// Null when nothing is kept for line @p number.
    T *find(int number)
    {
        const auto found = m_things.find(number);
        return found == m_things.end() ? nullptr : &found->second;
    }

    /// Forgets @p removed lines from @p first on and moves those behind to where @p added new ones leave them.
    void replace(int first, int removed, int added)
    {
        m_things.erase(m_things.lower_bound(first), m_things.lower_bound(first + removed));
        if (removed == added)
            return;
        std::map<int, T> moved;
        for (auto thing = m_things.lower_bound(first); thing != m_things.end(); thing = m_things.erase(thing))
            moved.emplace_hint(moved.end(), thing->first + added - removed, std::move(thing->second));
        m_things.merge(moved);
    }

    /// Forgets all but the lines @p first to @p last.
    void keep(int first, int last)
    {
        m_things.erase(m_things.begin(), m_things.lower_bound(first));
        m_things.erase(m_things.upper_bound(last), m_things.end());
    }

    void clear() { m_things.clear(); }

private:
    std::map<int, T> m_things;
};
