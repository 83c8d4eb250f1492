// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/linetable.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr size_t maximumChunk = 1024;
/// New chunks are left half empty for the lines to come.
constexpr size_t newChunk = maximumChunk / 2;

} // namespace

LineTable::Line LineTable::at(int index) const
{
    const Place found = place(index);
    return m_lines[found.chunk][found.offset];
}

qint64 LineTable::top(int index) const
{
    if (index >= m_count)
        return m_height;
    const Place found = place(std::max(0, index));
    qint64 top = found.top;
    for (size_t i = 0; i < found.offset; ++i)
        top += m_lines[found.chunk][i].height;
    return top;
}

int LineTable::indexAt(double y) const
{
    int index = 0;
    qint64 bottom = 0;
    for (size_t chunk = 0; chunk < m_chunks.size(); ++chunk) {
        if (y >= static_cast<double>(bottom + m_chunks[chunk].height)) {
            bottom += m_chunks[chunk].height;
            index += m_chunks[chunk].count;
            continue;
        }
        for (const Line &line : m_lines[chunk]) {
            bottom += line.height;
            if (y < static_cast<double>(bottom))
                return index;
            ++index;
        }
    }
    return m_count - 1;
}

void LineTable::replace(int first, int removed, std::span<const Line> lines)
{
    // The usual key: as many lines as before.
    if (removed == static_cast<int>(lines.size()) && removed > 0) {
        const Place found = place(first);
        if (found.offset + lines.size() <= m_lines[found.chunk].size()) {
            std::ranges::copy(lines, m_lines[found.chunk].begin() + static_cast<std::ptrdiff_t>(found.offset));
            sumUp(found.chunk);
            sumUp();
            return;
        }
    }
    remove(first, removed);
    insert(first, lines);
    sumUp();
}

LineTable::Place LineTable::place(int index) const
{
    size_t chunk = 0;
    qint64 top = 0;
    while (chunk + 1 < m_chunks.size() && index >= m_chunks[chunk].count) {
        index -= m_chunks[chunk].count;
        top += m_chunks[chunk].height;
        ++chunk;
    }
    return {chunk, static_cast<size_t>(index), top};
}

void LineTable::remove(int first, int count)
{
    if (count <= 0)
        return;
    Place at = place(first);
    size_t left = static_cast<size_t>(count);
    size_t chunk = at.chunk;
    size_t offset = at.offset;
    while (left > 0) {
        std::vector<Line> &lines = m_lines[chunk];
        const size_t here = std::min(left, lines.size() - offset);
        const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(offset);
        lines.erase(begin, begin + static_cast<std::ptrdiff_t>(here));
        sumUp(chunk);
        left -= here;
        ++chunk;
        offset = 0;
    }
    const auto isEmpty = [](const std::vector<Line> &lines) { return lines.empty(); };
    const auto begin = m_lines.begin() + static_cast<std::ptrdiff_t>(at.chunk);
    const auto end = m_lines.begin() + static_cast<std::ptrdiff_t>(chunk);
    m_lines.erase(std::remove_if(begin, end, isEmpty), end);
    std::erase_if(m_chunks, [](const Chunk &each) { return each.count == 0; });
}

void LineTable::insert(int first, std::span<const Line> lines)
{
    if (lines.empty())
        return;
    if (m_chunks.empty()) {
        addChunks(0, lines);
        return;
    }
    const Place at = place(first);
    std::vector<Line> &target = m_lines[at.chunk];
    target.insert(target.begin() + static_cast<std::ptrdiff_t>(at.offset), lines.begin(), lines.end());
    if (target.size() > maximumChunk) {
        const std::vector<Line> all = std::move(target);
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(at.chunk));
        m_chunks.erase(m_chunks.begin() + static_cast<std::ptrdiff_t>(at.chunk));
        addChunks(at.chunk, all);
        return;
    }
    sumUp(at.chunk);
}

void LineTable::addChunks(size_t at, std::span<const Line> lines)
{
    const size_t added = (lines.size() + newChunk - 1) / newChunk;
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at), added, {});
    m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(at), added, {});
    for (size_t i = 0; i < added; ++i) {
        const std::span<const Line> part = lines.subspan(i * newChunk, std::min(newChunk, lines.size() - i * newChunk));
        m_lines[at + i].assign(part.begin(), part.end());
        sumUp(at + i);
    }
}

void LineTable::sumUp(size_t chunk)
{
    Chunk sum;
    for (const Line &line : m_lines[chunk]) {
        sum.height += line.height;
        sum.width = std::max(sum.width, line.width);
    }
    sum.count = static_cast<int>(m_lines[chunk].size());
    m_chunks[chunk] = sum;
}

void LineTable::sumUp()
{
    m_count = 0;
    m_width = 0;
    m_height = 0;
    for (const Chunk &chunk : m_chunks) {
        m_width = std::max(m_width, chunk.width);
        m_count += chunk.count;
        m_height += chunk.height;
    }
}
