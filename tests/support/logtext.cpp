// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/logtext.h"

#include <QRegularExpression>

QByteArray withoutTimes(const QByteArray &text)
{
    static const QRegularExpression time(QStringLiteral("(\\[[LR]\\d+ )([01]\\d|2[0-3]):[0-5]\\d:[0-5]\\d\\] "));
    // Latin-1 keeps every byte as it is.
    return QString::fromLatin1(text).replace(time, QStringLiteral("\\1hh:mm:ss] ")).toLatin1();
}

QString withoutLogPrefix(const QString &line)
{
    static const QRegularExpression prefix(QStringLiteral("^\\[[LR]\\d \\d\\d:\\d\\d:\\d\\d\\] "));
    const auto match = prefix.match(line);
    return match.hasMatch() ? line.mid(match.capturedLength()) : QString();
}
