// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Compares @p actual with the file tests/data/@p name. Empty when they are the same bytes; otherwise a message with
/// the lines that differ, "-" before what was expected and "+" before what came, and a word on how to mend it.
/// With KESTRIN_BLESS set in the environment the file is written anew instead.
QString differenceFromGolden(const QString &name, const QByteArray &actual);
