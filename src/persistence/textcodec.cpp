// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/textcodec.h"

#include <QStringConverter>

namespace {

using Encoding = TextFormat::Encoding;

TextFormat formatOf(Encoding encoding, bool byteOrderMark)
{
    TextFormat format;
    format.encoding = encoding;
    format.byteOrderMark = byteOrderMark;
    return format;
}

QStringConverter::Encoding converterFor(Encoding encoding)
{
    switch (encoding) {
    case Encoding::Latin1:
        return QStringConverter::Latin1;
    case Encoding::Utf16LE:
        return QStringConverter::Utf16LE;
    case Encoding::Utf16BE:
        return QStringConverter::Utf16BE;
    case Encoding::Utf32LE:
        return QStringConverter::Utf32LE;
    case Encoding::Utf32BE:
        return QStringConverter::Utf32BE;
    case Encoding::Utf8:
        break;
    }
    return QStringConverter::Utf8;
}

QByteArray markOf(Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf8:
        return QByteArrayLiteral("\xEF\xBB\xBF");
    case Encoding::Utf16LE:
        return QByteArrayLiteral("\xFF\xFE");
    case Encoding::Utf16BE:
        return QByteArrayLiteral("\xFE\xFF");
    case Encoding::Utf32LE:
        return QByteArrayLiteral("\xFF\xFE\0\0");
    case Encoding::Utf32BE:
        return QByteArrayLiteral("\0\0\xFE\xFF");
    case Encoding::Latin1:
        break;
    }
    return {};
}

QByteArray encodeAs(const QString &text, const TextFormat &format)
{
    // Stateless and literal: no mark is added or dropped behind our back.
    QStringEncoder encoder(converterFor(format.encoding),
                           QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
    const QByteArray bytes = encoder(text);
    return format.byteOrderMark ? markOf(format.encoding) + bytes : bytes;
}

QString decodeAs(const QByteArray &bytes, const TextFormat &format)
{
    QStringDecoder decoder(converterFor(format.encoding),
                           QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(bytes).sliced(format.byteOrderMark ? markOf(format.encoding).size() : 0));
}

} // namespace

QString decodeText(const QByteArray &bytes, TextFormat *format)
{
    // The marks of UTF-32 come first: the one of UTF-16 is the beginning of one of them.
    for (const Encoding encoding :
         {Encoding::Utf32LE, Encoding::Utf32BE, Encoding::Utf16LE, Encoding::Utf16BE, Encoding::Utf8}) {
        const TextFormat candidate = formatOf(encoding, bytes.startsWith(markOf(encoding)));
        if (!candidate.byteOrderMark && encoding != Encoding::Utf8)
            continue;
        const QString text = decodeAs(bytes, candidate);
        if (encodeAs(text, candidate) == bytes) {
            format->encoding = candidate.encoding;
            format->byteOrderMark = candidate.byteOrderMark;
            return text;
        }
    }
    format->encoding = Encoding::Latin1;
    format->byteOrderMark = false;
    return QString::fromLatin1(bytes);
}

QByteArray encodeText(const QString &text, const TextFormat &format)
{
    for (const TextFormat &candidate : {format, formatOf(Encoding::Utf8, false), formatOf(Encoding::Utf8, true)}) {
        const QByteArray bytes = encodeAs(text, candidate);
        TextFormat found;
        if (decodeText(bytes, &found) == text)
            return bytes;
    }
    return encodeAs(text, formatOf(Encoding::Utf16LE, true));
}
