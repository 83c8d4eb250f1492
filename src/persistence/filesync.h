// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;

/// Has the system put everything written to the open file @p handle on the disk. False if that failed.
bool syncToDisk(int handle);

/// Gives the open file @p handle the owner and group of the existing file at @p path, as far as the user may do that.
void keepOwner(int handle, const QString &path);
