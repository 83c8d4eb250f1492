// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/postscriptconverter.h"

#include <QProcess>
#include <QStandardPaths>

PostScriptResult convertToPostScript(const QString &pdfPath, int limit)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("pdftocairo"));
    if (program.isEmpty())
        return {PostScriptResult::ConverterMissing, {}};
    QProcess converter;
    converter.setStandardInputFile(QProcess::nullDevice());
    converter.setStandardErrorFile(QProcess::nullDevice());
    converter.start(program, {QStringLiteral("-ps"), QStringLiteral("-origpagesizes"), pdfPath, QStringLiteral("-")});
    if (!converter.waitForFinished(limit)) {
        converter.kill();
        converter.waitForFinished();
        return {PostScriptResult::ConverterFailed, {}};
    }
    const QByteArray data = converter.readAllStandardOutput();
    const bool converted = converter.exitStatus() == QProcess::NormalExit && converter.exitCode() == 0 &&
                           data.startsWith("%!PS") && data.trimmed().endsWith("%%EOF");
    if (!converted)
        return {PostScriptResult::ConverterFailed, {}};
    return {PostScriptResult::Converted, data};
}
