// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// How a plain text file looked on disk, so that it is written back the same way. The default is what a new
/// document gets.
struct TextFormat
{
    enum class Encoding { Utf8, Latin1, Utf16LE, Utf16BE, Utf32LE, Utf32BE };

    Encoding encoding = Encoding::Utf8;
    bool byteOrderMark = false;
    /// Between lines, where a line has no LineEnd of its own: "\n", "\r\n" or "\r".
    QString lineEnd = QStringLiteral("\n");
};
