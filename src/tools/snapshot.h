// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QRectF>

class Page;
class QPainter;
class QString;
class QWidget;

/// A part of a page with its marks, at one pixel for one scene unit and without what the current tool draws above it.
class Snapshot
{
public:
    /// @p area is in scene coordinates. @p page is not owned and must outlive the snapshot.
    Snapshot(Page *page, const QRectF &area);

    /// White where the page paints nothing; each side is cut to whole pixels. Null if the area is narrower or lower
    /// than one pixel, or has more than 1 GiB of pixels.
    QImage picture() const;
    /// Writes a sheet with the area at its top left corner if the suffix is "pdf" or "ps", in any case, otherwise a
    /// picture in the format that the suffix names. False if that was not possible; a box above @p parent tells the
    /// user only of a missing PostScript converter.
    bool saveAs(const QString &path, QWidget *parent) const;

private:
    void paint(QPainter *painter, double top, double height) const;

    Page *m_page;
    QRectF m_area;
};
