// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>
#include <string>
#include <vector>

/// The last lines of the trace, in memory. Not for more than one thread.
class RingBuffer
{
public:
    /// Room for @p lineCount lines (at least 1). @p log is the log file's stream, kept but not owned.
    RingBuffer(int lineCount, std::ostream *log)
        : capacity(lineCount), lines(static_cast<std::size_t>(lineCount)), logStream(log)
    {
    }

    /// Keeps a zero-terminated line, over the oldest one if the ring is full. The slot keeps its memory.
    void push(const char *line)
    {
        const int slot = next++;
        lines[static_cast<std::size_t>(slot)] = line;
        if (next == capacity) {
            next = 0;
            wrapped = true;
        }
    }

    /// Calls @p visit with each kept line (const std::string &), oldest first. Allocates nothing and takes no lock, so
    /// a signal handler may use it, also when it interrupted push().
    template<typename Visitor> void forEach(Visitor visit) const
    {
        if (wrapped)
            visitSlots(next, capacity, visit);
        visitSlots(0, next, visit);
    }

    /// Writes each kept line, oldest first, with a newline after it. Changes nothing here.
    void dump(std::ostream &out) const
    {
        forEach([&out](const std::string &line) { out << line << '\n'; });
    }

private:
    template<typename Visitor> void visitSlots(int from, int end, Visitor &visit) const
    {
        for (int slot = from; slot < end; ++slot)
            visit(lines[static_cast<std::size_t>(slot)]);
    }

    int capacity;
    int next = 0;                   ///< Slot of the next line.
    std::vector<std::string> lines; ///< All slots exist from the start, empty.
    bool wrapped = false;           ///< Set when the last slot was filled first, and never cleared.
    [[maybe_unused]] std::ostream *logStream;
};

/// The program's one ring. It is defined in eventlog.cpp beside the streams, so that their order is fixed.
extern RingBuffer ringBuffer;
/// Stands at the end of a dump, with no newline after it.
constexpr char ringEndMarker[] = "---- RB END ----";
