// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/osversion.h"

#include <QOperatingSystemVersion>

double osVersion()
{
    const QOperatingSystemVersion version = QOperatingSystemVersion::current();
    return version.majorVersion() < 0 ? 0 : 1000.0 * version.majorVersion() + version.minorVersion();
}
