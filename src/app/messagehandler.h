// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QMessageLogContext;
class QString;

/// Writes Qt's messages to "sys/logs/syslog.dat" in the working directory, for qInstallMessageHandler(). The first
/// message, whatever its type, opens the file and empties it; if that fails (a pipe counts as failure: opening it would
/// wait for its reader), all messages are lost in silence. The text reaches the disk when the buffer is full or the
/// program exits. Informational messages are not written; a fatal one ends the process by abort(), which leaves no
/// crash record. May be called from any thread, and until the very end of the process.
void messageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message);
