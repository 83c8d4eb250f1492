// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/straightann.h"

/// A bracket along a line, its back. Styles: 0 curly, 1 rectangular, which is the first.
///
/// The ends point to the right of the way from p1 to p2: down for a line drawn from left to right. A curly
/// bracket's tip points the other way.
class BracketAnn : public StraightAnn
{
public:
    explicit BracketAnn(QGraphicsItem *parent = nullptr);

    BracketAnn *clone() override;
    QString toDebugString() override;

protected:
    double margin() const override;
    void drawShape(QPainter *painter) const override;
    QLatin1String elementName() const override;
    QLatin1String styleName() const override;
    int styleOfName(const QString &name) const override;
    QLatin1String defaultStyleName() const override;

private:
    void drawCurly(QPainter *painter) const;
    void drawRectangular(QPainter *painter) const;
};
