// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

class QString;

/// What came of turning a PDF file into PostScript.
struct PostScriptResult
{
    enum Outcome { Converted, ConverterMissing, ConverterFailed };

    Outcome outcome = ConverterFailed;
    QByteArray data; ///< The whole PostScript file; empty unless Converted.
};

/// Turns the PDF file at @p pdfPath into PostScript that keeps its text and vectors, by the program "pdftocairo", which
/// is looked for on the path. Waits for it, but not longer than @p limit milliseconds.
PostScriptResult convertToPostScript(const QString &pdfPath, int limit = 120'000);
