// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QIODevice;

/// Whether no tag in the XML text of @p device has an absurd number of attributes. A parser compares each attribute
/// with all others of its tag: a file of a few megabytes could keep it busy for hours. Cheap: one pass over the
/// bytes, a little at a time, and no parsing. The device is left at its end; the text need not be well-formed.
bool hasBoundedTags(QIODevice &device);
