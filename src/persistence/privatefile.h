// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;

/// Sees to it that what writeSafely() puts at @p path next can be read and written by its owner alone: gives a file
/// that is there those permissions, or puts an empty one there. A link is replaced, not followed.
/// False if that is impossible.
bool makePrivate(const QString &path);
