// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/drawingtool.h"

#include <QPointF>

class Stroke;

/// Freehand drawing: a drag gathers the mouse positions into a Stroke. Pen and marker differ in Traits only.
class StrokeTool : public DrawingTool
{
public:
    void mousePressed(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseMoved(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseReleased(QGraphicsSceneMouseEvent *event, Page *page) override;

protected:
    struct Traits
    {
        qreal repaintSide;        ///< Side of the square around the mouse that each move repaints, in scene units.
        int minimumPoints;        ///< A gesture that ends where it began is kept only with this many points.
        const char *pressedText;  ///< Log line of a press.
        const char *releasedText; ///< Log line of a release.
    };

    StrokeTool(const Traits &traits, bool followsSettings);

    /// A new, empty stroke, owned by the caller.
    virtual Stroke *createStroke() const = 0;
    /// Sets the pen's width and alpha and leaves its red, green and blue.
    void applyLook(int width, int alpha);

private:
    Stroke *stroke() const;
    bool isClick(const QPointF &releasePoint) const;

    Traits m_traits;
    QPointF m_pressPoint; ///< Scene coordinates.
};
