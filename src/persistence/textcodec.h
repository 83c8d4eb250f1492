// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/textformat.h"

#include <QByteArray>
#include <QString>

/// Text out of the bytes of a file. Sets encoding and byte order mark of @p format: by the mark if there is one, else
/// UTF-8, else Latin-1. encodeText() with that format always gives back the same bytes.
QString decodeText(const QByteArray &bytes, TextFormat *format);

/// The bytes for a file in the encoding of @p format, or in the first of UTF-8, UTF-8 with a byte order mark and UTF-16
/// out of which decodeText() would read the same text again.
QByteArray encodeText(const QString &text, const TextFormat &format);
