// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/dragtool.h"

class ShapeAnn;

/// Draws rectangles and ellipses.
class ShapeTool : public DragTool
{
public:
    /// @p kind is 0 for a rectangle, 1 for one with round corners, 2 for an ellipse.
    ShapeTool(int kind, bool followsSettings);

    QCursor makeCursor() override;

protected:
    void readSettings() override;
    Annotation *createAnnotation() const override;
    void stretch(const QPointF &from, const QPointF &to) override;
    void normalize() override;

private:
    ShapeAnn *createShape() const;
    ShapeAnn *shape() const;
    void setBrushAlpha(int alpha);
};
