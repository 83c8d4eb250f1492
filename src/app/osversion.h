// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Version of the running system as one number, 1000 times the major part plus the minor one: 6001 is Linux 6.1,
/// 10000 is Windows 10.0. 0 if it cannot be found out.
double osVersion();
