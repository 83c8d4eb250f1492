// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/straightann.h"

#include <QBrush>
#include <QPolygonF>

/// A straight line with circles, arrow heads or nothing at its ends. Styles, by what stands at start and end:
/// 0 nothing, 1 empty circles, 2 filled circles, 3 empty and filled circle, 4 nothing and arrow, 5 arrows,
/// 6 empty circle and arrow, 7 filled circle and arrow.
class LineAnn : public StraightAnn
{
public:
    explicit LineAnn(QGraphicsItem *parent = nullptr);

    /// Heads and filled circles take the pen's colour, opaque.
    void setLinePen(const QPen &pen) override;
    LineAnn *clone() override;
    QString toDebugString() override;

    /// Corners of an arrow head with its tip at @p tip that points along @p angle, in radians: 8 long, 6 wide.
    static QPolygonF arrowHead(const QPointF &tip, double angle);

protected:
    double margin() const override;
    void drawShape(QPainter *painter) const override;
    QLatin1String elementName() const override;
    QLatin1String styleName() const override;
    int styleOfName(const QString &name) const override;
    QLatin1String defaultStyleName() const override;

private:
    void drawStartHead(QPainter *painter) const;
    void drawEndHead(QPainter *painter) const;
    void drawHead(QPainter *painter, const QPolygonF &head) const;
    double angle() const;

    QBrush m_headBrush;
};
