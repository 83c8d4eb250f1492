// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/shapeann.h"

#include <QGraphicsRectItem>

/// A rectangle, with square or round corners. It looks the same whether it is selected or not.
class RectangleAnn : public QGraphicsRectItem, public ShapeAnn
{
public:
    explicit RectangleAnn(QGraphicsItem *parent = nullptr);

    void setRounded(bool rounded);
    bool rounded() const;

    QRectF box() const override;
    void setBox(const QRectF &box) override;
    QAbstractGraphicsShapeItem &item() override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    void paintContent(QPainter *painter) override;
    /// The copy has square corners, whatever this rectangle has.
    RectangleAnn *clone() override;
    QString toDebugString() override;
    void write(ElementWriter &writer) const override;
    void read(ElementReader &reader) override;

private:
    bool m_rounded = false;
};
