// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QRectF>

#include <functional>

class QGraphicsItem;
class QPainter;

/// Pictures of marks, and of what they should look like.
namespace MarkPicture {

/// The part @p area of a white scene that holds @p item alone, at one pixel for one scene unit. The item stays the
/// caller's. The scene keeps what the item's flags say about selection.
QImage ofItem(QGraphicsItem *item, const QRectF &area, bool selected = false);
/// A white picture of the same area, painted by @p paint in scene coordinates.
QImage ofPainting(const QRectF &area, const std::function<void(QPainter &)> &paint);
/// Empty if both are the same, up to @p tolerance in each colour component; otherwise where the first difference is.
QString difference(const QImage &actual, const QImage &expected, int tolerance = 0);

} // namespace MarkPicture
