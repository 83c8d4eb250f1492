// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/osversion.h"

#include <cstdio>
#include <sys/utsname.h>

double osVersion()
{
    utsname system{};
    unsigned major = 0;
    unsigned minor = 0;
    if (uname(&system) != 0 || std::sscanf(system.release, "%u.%u", &major, &minor) < 1)
        return 0;
    return 1000.0 * major + minor;
}
