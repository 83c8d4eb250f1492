// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <optional>

class QPrinter;
class QWidget;

/// A file of printed sheets: PDF, or PostScript made from it.
class PaperFile
{
    Q_DECLARE_TR_FUNCTIONS(PaperFile)

public:
    enum Format { Pdf, PostScript };

    /// The format that the suffix of @p path names: "pdf" or "ps", in any case. Empty for any other suffix.
    static std::optional<Format> formatOf(const QString &path);

    PaperFile(QString path, Format format);

    /// Hands @p print a printer with A4 sheets, screen resolution and no margins, and puts what it has printed into the
    /// file, whose old contents stay until the new ones are complete.
    ///
    /// False if there is no such file then. The user hears of it, in a box above @p parent, only if it was for want of
    /// a PostScript converter; a place that cannot be written is the caller's to report.
    bool write(const std::function<void(QPrinter *)> &print, QWidget *parent) const;

private:
    QByteArray toPostScript(const QString &pdfPath, QWidget *parent) const;

    QString m_path;
    Format m_format;
};
