// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/crashfilter.h"

#include "app/eventlog.h"

#include <windows.h>

namespace {

LONG WINAPI crashFilter(EXCEPTION_POINTERS * /*fault*/)
{
    dumpRingBuffer(true);
    return EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

void installCrashFilter(const char * /*dumpName*/, unsigned /*boxSeconds*/)
{
    SetUnhandledExceptionFilter(crashFilter);
}

void followLanguageOf(QWidget * /*window*/)
{
    // The box asks for its texts when it is shown.
}

void leaveAbortAlone()
{
    // abort() does not pass through the filter.
}
