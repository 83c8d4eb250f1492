// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <span>
#include <vector>

/// Heights and widths of the lines of a text, in order, with their running sum and their maximum.
///
/// Lines are kept in chunks of at most 1024, each with its count, height and greatest width: finding a line by number
/// or by position, and adding or removing lines anywhere, touches one chunk and the short list of chunks only.
class LineTable
{
public:
    struct Line
    {
        qint64 width = 0; ///< In 64ths of a pixel, the unit of Qt's text engine.
        int height = 0;   ///< Whole pixels.
        /// The block's own QTextLayout holds formats or input-method text besides the text.
        bool formatted = false;
    };

    int count() const { return m_count; }
    /// Sum of all heights, in pixels.
    qint64 height() const { return m_height; }
    /// Greatest width in 64ths of a pixel; 0 without lines.
    qint64 width() const { return m_width; }

    /// Line @p index; it must exist.
    Line at(int index) const;
    /// Sum of the heights before line @p index, which is bounded to the existing ones and the end.
    qint64 top(int index) const;
    /// Number of the line that covers @p y, bounded to the existing ones; -1 without lines.
    int indexAt(double y) const;

    /// Puts @p lines in the place of @p removed lines from @p first on. All of them must exist.
    void replace(int first, int removed, std::span<const Line> lines);

private:
    struct Chunk
    {
        int count = 0;
        qint64 width = 0;
        qint64 height = 0;
    };
    struct Place
    {
        size_t chunk;
        size_t offset;
        qint64 top; ///< Of the chunk.
    };

    Place place(int index) const;
    void remove(int first, int count);
    void insert(int first, std::span<const Line> lines);
    void addChunks(size_t at, std::span<const Line> lines);
    void sumUp(size_t chunk);
    void sumUp();

    std::vector<Chunk> m_chunks; ///< Apart from the lines, so that walking it stays within the cache.
    std::vector<std::vector<Line>> m_lines;
    int m_count = 0;
    qint64 m_width = 0;
    qint64 m_height = 0;
};
