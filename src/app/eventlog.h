// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// A stream-like writer of log lines, for the main thread only.
///
/// Levels below 6 go straight to the log file, which a line end brings to the disk. Levels from 6 up collect their line
/// in the instance; its end puts it into the ring of the last 500 lines, which is in memory and costs no disk traffic.
///
/// Each line starts with its level and the wall clock, "[L0 21:16:54] " in the file and "[R6 21:16:54] " in the ring.
/// That prefix is written when the line before it ends, so it tells when the previous line ended, and the log file
/// closes with a prefix that no text follows.
///
/// Nothing here fails: what cannot be written is lost in silence.
class EventLog
{
public:
    explicit EventLog(int logLevel) : level(logLevel) {}

    /// Appends zero-terminated @p text (not null) to the current line.
    EventLog &operator<<(const char *text);
    /// Appends @p value with six significant digits: 1234567 reads 1.23457e+06.
    EventLog &operator<<(double value);
    /// Ends the current line if @p code is 0, otherwise does nothing.
    EventLog &eol(int code);

private:
    bool goesToRing() const;
    std::string prefix() const;

    std::string line; ///< The line being collected; only of use from level 6 up.
    int level;
};

extern EventLog logInfo;  ///< Level 0: start-up and the construction of the main window.
extern EventLog logWarn;  ///< Level 1: nobody writes to it.
extern EventLog logTrace; ///< Level 6: what the running program does.

/// Opens the two files anew, emptied; other processes may read them meanwhile. The names are local 8-bit paths, taken
/// from the working directory when relative. False if one of them could not be opened (a pipe counts as such: opening
/// it would wait for its reader); what goes there is then lost.
bool openLogFiles(const std::string &logName, const std::string &dumpName);

/// The block that tells a reader of the log file what it is and which system wrote it.
void writeLogHeader();

/// Writes the ring, oldest line first, and the end marker to the start of the dump file. The file is not shortened:
/// what a longer dump left behind the marker stays. With @p showMessage a modal box then tells the user about a crash;
/// that needs a QApplication.
void dumpRingBuffer(bool showMessage);

/// The pair of lines around a method's work: the `traceTag` of the class, then the source line at which the macro
/// stands. A method with two exits has two leave lines, so that the trace shows which one it took.
#define TRACE_ENTER_ON(log) (log << traceTag << static_cast<double>(__LINE__)).eol(0)
#define TRACE_LEAVE_ON(log) (log << " <=> " << static_cast<double>(__LINE__)).eol(0)
#define TRACE_ENTER TRACE_ENTER_ON(logTrace)
#define TRACE_LEAVE TRACE_LEAVE_ON(logTrace)
