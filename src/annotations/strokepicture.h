// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPen>
#include <QPixmapCache>
#include <QPolygonF>
#include <QTransform>

class QPainter;

/// A stroke's pixels on the screen, so that painting it again is a matter of copying them: drawing them anew takes
/// ten times as long or more, however little of the stroke is asked for.
///
/// The pixels stand in Qt's cache of pixmaps, which drops those that have not been used for longest. Colours differ
/// from those of a line that is drawn by two steps of 255 at most: they are rounded twice.
class StrokePicture
{
public:
    /// How a stroke looks, in item coordinates.
    struct Look
    {
        QPolygonF points;
        QPen pen;
        bool antialiasing = false;

        bool operator==(const Look &other) const;
    };

    /// Paints a stroke of @p look, none of which lies outside of @p bounds, with a painter on a widget that is in the
    /// stroke's item coordinates. False, and nothing is painted, if the stroke is better drawn: it is large on the
    /// screen, or the screen's pixels do not match those of a picture.
    bool paint(QPainter *painter, const Look &look, const QRectF &bounds);

private:
    QPixmap draw(const QRect &area) const;

    QPixmapCache::Key m_key;
    Look m_look;
    QTransform m_toPixels; ///< From item coordinates to device pixels, but for whole pixels of translation.
};
