// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/pdfprobe.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <utility>

namespace {

QString outputOf(const QString &program, const QStringList &arguments)
{
    // Found before a test changes the path.
    static const QStringList usualFolders{"/usr/bin", "/bin", "/usr/local/bin"};
    const QString path = QStandardPaths::findExecutable(program, usualFolders);
    QProcess process;
    process.start(path, arguments);
    if (path.isEmpty() || !process.waitForFinished(120'000))
        qFatal("cannot run %s", qPrintable(program));
    return QString::fromUtf8(process.readAllStandardOutput());
}

bool areClearlyDifferent(QRgb one, QRgb other)
{
    constexpr int clearly = 96; // of 255, in one colour component
    return qAbs(qRed(one) - qRed(other)) > clearly || qAbs(qGreen(one) - qGreen(other)) > clearly ||
           qAbs(qBlue(one) - qBlue(other)) > clearly;
}

} // namespace

PdfProbe::PdfProbe(QString path) : m_path(std::move(path)) {}

int PdfProbe::pages() const
{
    static const QRegularExpression line(QStringLiteral("^Pages: +(\\d+)$"), QRegularExpression::MultilineOption);
    return line.match(outputOf(QStringLiteral("pdfinfo"), {m_path})).captured(1).toInt();
}

QSizeF PdfProbe::pageSize() const
{
    static const QRegularExpression line(QStringLiteral("^Page size: +([\\d.]+) x ([\\d.]+) pts"),
                                         QRegularExpression::MultilineOption);
    const auto match = line.match(outputOf(QStringLiteral("pdfinfo"), {m_path}));
    return {match.captured(1).toDouble(), match.captured(2).toDouble()};
}

QString PdfProbe::text(int page) const
{
    QStringList arguments{"-layout", m_path, "-"};
    if (page > 0)
        arguments = QStringList{"-f", QString::number(page), "-l", QString::number(page)} + arguments;
    return outputOf(QStringLiteral("pdftotext"), arguments);
}

QString PdfProbe::textIn(const QRect &area, int page, int dotsPerInch) const
{
    const QString number = QString::number(page);
    return outputOf(QStringLiteral("pdftotext"),
                    {"-layout", "-r", QString::number(dotsPerInch), "-x", QString::number(area.x()), "-y",
                     QString::number(area.y()), "-W", QString::number(area.width()), "-H",
                     QString::number(area.height()), "-f", number, "-l", number, m_path, "-"});
}

int PdfProbe::images() const
{
    // Two lines of headings stand above the list.
    const QString list = outputOf(QStringLiteral("pdfimages"), {"-list", m_path});
    return static_cast<int>(qMax(qsizetype(0), list.split('\n', Qt::SkipEmptyParts).size() - 2));
}

QImage PdfProbe::picture(int page, int dotsPerInch) const
{
    const QTemporaryDir folder;
    const QString number = QString::number(page);
    outputOf(QStringLiteral("pdftocairo"),
             {"-png", "-singlefile", "-antialias", "none", "-r", QString::number(dotsPerInch), "-f", number, "-l",
              number, m_path, folder.filePath(QStringLiteral("page"))});
    return QImage(folder.filePath(QStringLiteral("page.png"))).convertToFormat(QImage::Format_RGB32);
}

QImage postScriptPicture(const QString &path, int page, int dotsPerInch)
{
    const QTemporaryDir folder;
    outputOf(QStringLiteral("gs"),
             {"-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", "-sDEVICE=png16m", QStringLiteral("-r%1").arg(dotsPerInch),
              "-sOutputFile=" + folder.filePath(QStringLiteral("%d.png")), path});
    return QImage(folder.filePath(QStringLiteral("%1.png").arg(page))).convertToFormat(QImage::Format_RGB32);
}

double differingShare(const QImage &one, const QImage &other)
{
    const QSize common = one.size().boundedTo(other.size());
    const QSize largest = one.size().expandedTo(other.size());
    if (common.isEmpty() || largest.width() > common.width() + 1 || largest.height() > common.height() + 1)
        return 1.0;
    qint64 different = 0;
    for (int y = 0; y < common.height(); ++y) {
        for (int x = 0; x < common.width(); ++x) {
            if (areClearlyDifferent(one.pixel(x, y), other.pixel(x, y)))
                ++different;
        }
    }
    return double(different) / (double(common.width()) * common.height());
}

int countPixels(const QImage &picture, QRgb color)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == color)
                ++count;
        }
    }
    return count;
}
