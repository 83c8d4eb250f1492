// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/eventlog.h"

#include "app/crashmessage.h"
#include "app/osversion.h"
#include "app/ringbuffer.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QTime>

#include <filesystem>
#include <fstream>
#include <sstream>

// Everything that lives before main() stands in this one file: the order here is the order of construction.
EventLog logInfo(0);
EventLog logWarn(1);
EventLog logTrace(6);

namespace {

constexpr int firstRingLevel = 6;

std::ofstream eventLogStream;
std::ofstream ringDumpStream;

// True until the first text comes, which has no line before it that could have written its prefix.
bool logLineStart = true;
bool ringLineStart = true;

} // namespace

RingBuffer ringBuffer(500, &eventLogStream);

namespace {

bool openEmpty(std::ofstream &file, const std::string &name)
{
    file.close();
    std::error_code ignored;
    if (std::filesystem::is_fifo(name, ignored))
        return false;
    file.open(name, std::ios::out);
    return file.good();
}

std::string inDecimal(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

} // namespace

bool EventLog::goesToRing() const
{
    return level >= firstRingLevel;
}

std::string EventLog::prefix() const
{
    return (goesToRing() ? "[R" : "[L") + std::to_string(level) + ' ' +
           QTime::currentTime().toString().toLatin1().toStdString() + "] ";
}

EventLog &EventLog::operator<<(const char *text)
{
    if (goesToRing()) {
        if (ringLineStart)
            line = prefix();
        line += text;
        ringLineStart = false;
    } else {
        if (logLineStart)
            eventLogStream << prefix();
        eventLogStream << text;
        logLineStart = false;
    }
    return *this;
}

EventLog &EventLog::operator<<(double value)
{
    return *this << inDecimal(value).c_str();
}

EventLog &EventLog::eol(int code)
{
    if (code != 0)
        return *this;
    if (goesToRing()) {
        ringBuffer.push(line.c_str());
        line = prefix();
    } else {
        eventLogStream << std::endl << prefix();
    }
    return *this;
}

bool openLogFiles(const std::string &logName, const std::string &dumpName)
{
    const bool logOpen = openEmpty(eventLogStream, logName);
    const bool dumpOpen = openEmpty(ringDumpStream, dumpName);
    return logOpen && dumpOpen;
}

void writeLogHeader()
{
    static constexpr char rule[] = "-----------------------------------------------------------------------";
    logInfo << rule;
    logInfo.eol(0) << "              Generated automatically, do not modify it!               ";
    logInfo.eol(0) << rule;
    logInfo.eol(0) << "If you encounter any problem with the Kestrin 7, please send this file ";
    logInfo.eol(0) << "to the Kestrin 7 team (the e-mail address can be found using menu Help >>";
    logInfo.eol(0) << "About ). This will help to find possible bugs and improve the program. ";
    logInfo.eol(0) << rule;
    logInfo.eol(0).eol(0) << "Windows version: " << osVersion();
    // Facts of the first builds; they stay, so that logs of all versions read the same.
    logInfo.eol(0) << "Word size: " << 32.0;
    logInfo.eol(0) << "Byte ordering: " << 1.0;
    logInfo.eol(0);
}

void dumpRingBuffer(bool showMessage)
{
    ringDumpStream.seekp(0);
    ringBuffer.dump(ringDumpStream);
    ringDumpStream << ringEndMarker << std::flush;
    if (showMessage && QCoreApplication::instance() != nullptr)
        QMessageBox::critical(nullptr, crashTitle(), crashText(), QMessageBox::Ok);
}
