// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/paperfile.h"

#include "documents/warningbox.h"
#include "persistence/postscriptconverter.h"
#include "persistence/safefile.h"

#include <QApplication>
#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>

#include <utility>

namespace {

void printTo(const QString &path, const std::function<void(QPrinter *)> &print)
{
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFullPage(true);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    print(&printer);
}

/// A printer does not tell that its disk was full.
bool isWholePdf(const QByteArray &bytes)
{
    return bytes.startsWith("%PDF-") && bytes.trimmed().endsWith("%%EOF");
}

} // namespace

std::optional<PaperFile::Format> PaperFile::formatOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("pdf"))
        return Pdf;
    if (suffix == QLatin1String("ps"))
        return PostScript;
    return {};
}

PaperFile::PaperFile(QString path, Format format) : m_path(std::move(path)), m_format(format) {}

bool PaperFile::write(const std::function<void(QPrinter *)> &print, QWidget *parent) const
{
    const QTemporaryDir folder;
    const QString pdfPath = folder.filePath(QStringLiteral("sheets.pdf"));
    QByteArray bytes;
    if (!folder.isValid())
        return false;
    printTo(pdfPath, print);
    if (readWhole(pdfPath, &bytes) != QFileDevice::NoError || !isWholePdf(bytes))
        return false;
    if (m_format == PostScript)
        bytes = toPostScript(pdfPath, parent);
    return !bytes.isEmpty() && writeSafely(m_path, bytes) == QFileDevice::NoError;
}

QByteArray PaperFile::toPostScript(const QString &pdfPath, QWidget *parent) const
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const PostScriptResult result = convertToPostScript(pdfPath);
    QApplication::restoreOverrideCursor();
    if (result.outcome != PostScriptResult::Converted) {
        const QString reason =
            result.outcome == PostScriptResult::ConverterMissing
                ? tr("The program \"pdftocairo\", which makes PostScript files, was not found.")
                : tr("The program \"pdftocairo\", which makes PostScript files, did not finish its work.");
        showWarning(parent, tr("I/O Error"), tr("Can't save file %1").arg(m_path) + QLatin1Char('\n') + reason);
    }
    return result.data;
}
