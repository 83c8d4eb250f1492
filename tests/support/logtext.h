// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// Puts "hh:mm:ss" for each time of day in @p text that stands where a line prefix of the log has it.
QByteArray withoutTimes(const QByteArray &text);

/// A line of the log or of the record of the trace without its prefix, "[L0 12:34:56] "; null if it has none.
QString withoutLogPrefix(const QString &line);
