// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/bracketann.h"

#include "annotations/xmlnames.h"

#include <QPainter>

#include <cmath>

namespace {

enum BracketStyle { Curly = 0, Rectangular = 1 };

constexpr QLatin1String curlyName("curly");
constexpr QLatin1String rectangularName("rectangular");

/// Length of the arms, and radius of the arcs at the ends of a curly bracket.
constexpr double armLength = 8.0;
/// Radius of the arcs at the tip of a curly bracket.
constexpr double tipRadius = 6.0;

double lineAngle(const QLineF &line)
{
    return std::atan2(line.dy(), line.dx());
}

/// A vector of length 1 along the line; of two equal points, to the right.
QPointF alongLine(const QLineF &line)
{
    return {std::cos(lineAngle(line)), std::sin(lineAngle(line))};
}

/// A vector of length 1 across the line, to its right as seen on screen.
QPointF acrossLine(const QLineF &line)
{
    return {-std::sin(lineAngle(line)), std::cos(lineAngle(line))};
}

/// A quarter of the circle around @p center, counter-clockwise from @p startDegrees (0 is to the right).
void drawQuarter(QPainter *painter, const QPointF &center, double radius, int startDegrees)
{
    const QRectF box(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
    painter->drawArc(box, startDegrees * 16, 90 * 16);
}

} // namespace

BracketAnn::BracketAnn(QGraphicsItem *parent) : StraightAnn(Rectangular, parent) {}

BracketAnn *BracketAnn::clone()
{
    auto *copy = new BracketAnn;
    copy->copyFrom(*this);
    return copy;
}

QString BracketAnn::toDebugString()
{
    return QStringLiteral("Bracket annotation");
}

double BracketAnn::margin() const
{
    constexpr double bracketSize = 8.0;
    return 2 * bracketSize;
}

void BracketAnn::drawShape(QPainter *painter) const
{
    painter->setPen(pen());
    if (style() == Curly)
        drawCurly(painter);
    else if (style() == Rectangular)
        drawRectangular(painter);
}

void BracketAnn::drawRectangular(QPainter *painter) const
{
    const QPointF arm = armLength * acrossLine(line());
    painter->drawLine(line());
    painter->drawLine(line().p1(), line().p1() + arm);
    painter->drawLine(line().p2(), line().p2() + arm);
}

void BracketAnn::drawCurly(QPainter *painter) const
{
    const QPointF p1 = line().p1();
    const QPointF p2 = line().p2();
    const QPointF across = acrossLine(line());
    const QPointF middle = p1 + (p2 - p1) / 2;
    const QPointF beforeTip = middle - tipRadius * alongLine(line());
    const QPointF afterTip = middle + tipRadius * alongLine(line());
    // Whole degrees, and by a rounded half turn: on slanted brackets the arcs meet only roughly.
    const int degrees = static_cast<int>(180 * lineAngle(line()) / 3.14);

    drawQuarter(painter, p1 + armLength * across, armLength, 90 - degrees);
    drawQuarter(painter, p2 + armLength * across, armLength, -degrees);
    drawQuarter(painter, beforeTip - tipRadius * across, tipRadius, -90 - degrees);
    painter->drawLine(p1, beforeTip);
    drawQuarter(painter, afterTip - tipRadius * across, tipRadius, -180 - degrees);
    painter->drawLine(afterTip, p2);
}

QLatin1String BracketAnn::elementName() const
{
    return XmlNames::bracket;
}

QLatin1String BracketAnn::styleName() const
{
    return style() == Curly ? curlyName : rectangularName;
}

int BracketAnn::styleOfName(const QString &name) const
{
    if (name == curlyName)
        return Curly;
    return name == rectangularName ? Rectangular : style();
}

QLatin1String BracketAnn::defaultStyleName() const
{
    return curlyName;
}
