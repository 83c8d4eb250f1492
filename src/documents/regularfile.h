// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;

/// Whether @p path leads to something else than a regular file: a folder, a pipe, a device. To open such a thing could
/// mean to wait for ever, to replace it to lose it. False where there is nothing, and for a link that leads nowhere.
bool isOtherThanFile(const QString &path);
