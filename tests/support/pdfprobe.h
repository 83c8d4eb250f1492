// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QRect>
#include <QSizeF>
#include <QString>
#include <QStringList>

/// What independent viewers see in a PDF or PostScript file. A viewer that cannot be run ends the test run.
class PdfProbe
{
public:
    explicit PdfProbe(QString path);

    /// Number of pages; 0 if it is no PDF file.
    int pages() const;
    /// Page size in points.
    QSizeF pageSize() const;
    /// The text of one page, counted from 1, or of all of them for 0.
    QString text(int page = 0) const;
    /// The text that lies in @p area of a page, in pixels at this resolution; unlike text() it leaves out what the
    /// page holds but cuts off.
    QString textIn(const QRect &area, int page, int dotsPerInch) const;
    /// How many raster images the file holds.
    int images() const;
    /// A page of a PDF file, counted from 1, without antialiasing of text.
    QImage picture(int page, int dotsPerInch) const;

private:
    QString m_path;
};

/// A page of a PostScript file, counted from 1, as Ghostscript shows it.
QImage postScriptPicture(const QString &path, int page, int dotsPerInch);

/// The share of pixels, 0 to 1, that differ clearly between two pictures; 1 if their sizes differ by more than the
/// pixel that viewers round differently.
double differingShare(const QImage &one, const QImage &other);
/// How many pixels have exactly this colour.
int countPixels(const QImage &picture, QRgb color);
