// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/annotation.h"

#include <QGraphicsLineItem>
#include <QLatin1String>

/// What LineAnn and BracketAnn share: both are drawn along a straight line in one of several styles, and are hit
/// on the stroke of that line alone.
class StraightAnn : public QGraphicsLineItem, public Annotation
{
public:
    /// The numbers are the concrete class's; one that it does not know draws nothing.
    void setStyle(int style);
    int style() const;
    /// Every setting of the pen goes through here.
    virtual void setLinePen(const QPen &pen);
    /// Moves the start of the line to (0, 0) and the item to where the start was.
    void normalizeLine();

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    void paintContent(QPainter *painter) override;
    void write(ElementWriter &writer) const override;
    void read(ElementReader &reader) override;

protected:
    StraightAnn(int style, QGraphicsItem *parent);

    /// How far the mark reaches beyond its line on each side; the width of the pen is not counted.
    virtual double margin() const = 0;
    /// Draws the mark with its own pen.
    virtual void drawShape(QPainter *painter) const = 0;
    /// Name of the mark's element in files.
    virtual QLatin1String elementName() const = 0;
    /// Name of the style in files.
    virtual QLatin1String styleName() const = 0;
    /// The style that @p name stands for; the style that the mark has for a name that is none.
    virtual int styleOfName(const QString &name) const = 0;
    /// The style of an element that names none.
    virtual QLatin1String defaultStyleName() const = 0;
    /// Turns this new mark into a copy of @p original, all but the antialias flag.
    void copyFrom(const StraightAnn &original);

private:
    int m_style;
};
