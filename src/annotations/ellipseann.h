// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/shapeann.h"

#include <QGraphicsEllipseItem>

/// An ellipse.
class EllipseAnn : public QGraphicsEllipseItem, public ShapeAnn
{
public:
    explicit EllipseAnn(QGraphicsItem *parent = nullptr);

    QRectF box() const override;
    void setBox(const QRectF &box) override;
    QAbstractGraphicsShapeItem &item() override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    void paintContent(QPainter *painter) override;
    EllipseAnn *clone() override;
    QString toDebugString() override;
    void write(ElementWriter &writer) const override;
    void read(ElementReader &reader) override;
};
