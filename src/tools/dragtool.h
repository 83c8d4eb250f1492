// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/drawingtool.h"

#include <QPointF>

/// Drawing from the point of the press to the point of the release: lines, brackets and shapes.
class DragTool : public DrawingTool
{
public:
    void mousePressed(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseMoved(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseReleased(QGraphicsSceneMouseEvent *event, Page *page) override;

protected:
    struct Traits
    {
        qreal minimumDistance;    ///< Square of the drag's length, in scene units, below which nothing is drawn.
        const char *pressedText;  ///< Log line of a press.
        const char *releasedText; ///< Log line of a release.
    };

    /// @p kind is what this instance draws; the numbers are the concrete tool's.
    DragTool(int kind, const Traits &traits, bool followsSettings);

    int kind() const;
    /// A new mark with the tool's present look, owned by the caller.
    virtual Annotation *createAnnotation() const = 0;
    /// Gives the mark under construction its geometry between two points, in scene coordinates.
    virtual void stretch(const QPointF &from, const QPointF &to) = 0;
    /// Moves the finished geometry to the item's origin and the item to its place.
    virtual void normalize() = 0;

private:
    int m_kind;
    Traits m_traits;
    QPointF m_pressPoint; ///< Scene coordinates.
};
