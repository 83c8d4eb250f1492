// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/annotation.h"
#include "annotations/strokepicture.h"

#include <QGraphicsPolygonItem>
#include <QLatin1String>

/// A freehand stroke: an open line through the positions of the mouse, drawn with one pen.
///
/// While it is drawn, its points are gathered in a buffer in scene coordinates. The finished polygon is in item
/// coordinates, around pos(), where the mouse was pressed. The hit area is the polygon taken as closed and filled.
class Stroke : public QGraphicsPolygonItem, public Annotation
{
public:
    /// Adds a point, in scene coordinates, to the stroke being drawn.
    void addPoint(const QPointF &scenePoint);
    /// Makes the gathered points the polygon; does nothing if @p apply is false.
    virtual void finishCapture(bool apply);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    /// Draws the stroke being drawn.
    void paintContent(QPainter *painter) override;
    void write(ElementWriter &writer) const override;
    void read(ElementReader &reader) override;

protected:
    explicit Stroke(QGraphicsItem *parent);

    /// Name of the stroke's element in files.
    virtual QLatin1String elementName() const = 0;
    /// Key of the settings that says whether a selected stroke is framed.
    virtual QString selectionKey() const = 0;
    /// Turns this new stroke into a copy of @p original, all but the antialias flag.
    void copyFrom(const Stroke &original);

private:
    /// Gives @p painter the stroke's pen and smoothness.
    void prepare(QPainter *painter) const;

    QPolygonF m_captureBuffer;
    StrokePicture m_picture;
};
