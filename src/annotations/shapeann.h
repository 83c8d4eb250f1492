// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/annotation.h"

#include <QRectF>

class QAbstractGraphicsShapeItem;

/// What rectangle and ellipse share: a box, outlined by a pen and filled with a brush.
class ShapeAnn : public Annotation
{
public:
    /// The outline box, in item coordinates; the concrete item's own rectangle.
    virtual QRectF box() const = 0;
    virtual void setBox(const QRectF &box) = 0;
    /// The shape as an item, for its pen, brush and place.
    virtual QAbstractGraphicsShapeItem &item() = 0;
    const QAbstractGraphicsShapeItem &item() const;

    /// Moves the box to (0, 0), keeping its size, and the item to @p point, in scene coordinates.
    void moveToOrigin(const QPointF &point);

protected:
    /// Turns this new shape into a copy of @p original, all but the antialias flag and what only one class has.
    void copyFrom(const ShapeAnn &original);
    /// The fields that both elements have, from the position on.
    void writeShape(ElementWriter &writer) const;
    void readShape(ElementReader &reader);
};
