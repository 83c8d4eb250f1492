// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/snapshot.h"

#include "documents/page.h"
#include "persistence/paperfile.h"
#include "persistence/safefile.h"
#include "persistence/scenepicture.h"

#include <QFileInfo>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace {

/// Pixels; no picture within the limit of memory that is at least a few pixels wide has a longer side.
constexpr double largestSide = 1 << 26;

} // namespace

Snapshot::Snapshot(Page *page, const QRectF &area) : m_page(page), m_area(area) {}

QImage Snapshot::picture() const
{
    if (std::max(m_area.width(), m_area.height()) > largestSide)
        return {};
    const QSize size(static_cast<int>(m_area.width()), static_cast<int>(m_area.height()));
    return paintPicture(size, [this, size](QPainter *painter, const QRect &band) {
        // The last band reaches to the end of the area, a fraction of a pixel below the picture.
        const bool isLast = band.bottom() + 1 == size.height();
        paint(painter, band.top(), isLast ? m_area.height() - band.top() : band.height());
    });
}

bool Snapshot::saveAs(const QString &path, QWidget *parent) const
{
    if (const auto format = PaperFile::formatOf(path)) {
        return PaperFile(path, *format)
            .write(
                [this](QPrinter *printer) {
                    QPainter painter;
                    if (painter.begin(printer))
                        paint(&painter, 0.0, m_area.height());
                },
                parent);
    }
    const QByteArray bytes = encodePicture(picture(), QFileInfo(path).suffix());
    return !bytes.isEmpty() && writeSafely(path, bytes) == QFileDevice::NoError;
}

/// Paints @p height of the area from @p top on, both counted from its top, at the painter's origin.
void Snapshot::paint(QPainter *painter, double top, double height) const
{
    const QSizeF size(m_area.width(), height);
    m_page->renderClean(painter, QRectF(QPointF(), size), QRectF(m_area.topLeft() + QPointF(0.0, top), size),
                        Qt::KeepAspectRatio);
}
