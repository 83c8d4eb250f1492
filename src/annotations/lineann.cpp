// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/lineann.h"

#include "annotations/xmlnames.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// File names of the styles, by their numbers.
constexpr std::array<QLatin1String, 8> lineStyleNames{
    QLatin1String("s_line"),  QLatin1String("ec_line"),  QLatin1String("fc_line"),  QLatin1String("fec_line"),
    QLatin1String("s_arrow"), QLatin1String("t_arrows"), QLatin1String("ec_arrow"), QLatin1String("fc_arrow")};

constexpr double circleRadius = 2.0;

void drawCircle(QPainter *painter, const QPointF &center)
{
    painter->drawEllipse(center, circleRadius, circleRadius);
}

} // namespace

LineAnn::LineAnn(QGraphicsItem *parent) : StraightAnn(0, parent) {}

void LineAnn::setLinePen(const QPen &pen)
{
    QColor opaque = pen.color();
    opaque.setAlpha(255);
    m_headBrush = QBrush(opaque, Qt::SolidPattern);
    StraightAnn::setLinePen(pen);
}

LineAnn *LineAnn::clone()
{
    auto *copy = new LineAnn;
    copy->copyFrom(*this);
    copy->m_headBrush = m_headBrush; // which a line whose pen was never set does not have
    return copy;
}

QString LineAnn::toDebugString()
{
    return QStringLiteral("Line annotation");
}

double LineAnn::margin() const
{
    constexpr double plainMargin = 2.0;
    constexpr double headMargin = 8.0;
    return style() == 0 ? plainMargin : headMargin;
}

double LineAnn::angle() const
{
    return std::atan2(line().dy(), line().dx());
}

QPolygonF LineAnn::arrowHead(const QPointF &tip, double angle)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {tip - QPointF(8 * c - 3 * s, 8 * s + 3 * c), tip, tip - QPointF(8 * c + 3 * s, 8 * s - 3 * c)};
}

void LineAnn::drawShape(QPainter *painter) const
{
    const QPointF p1 = line().p1();
    const QPointF p2 = line().p2();
    // Along the line, from the centre of a circle to its rim.
    const QPointF d(circleRadius * std::cos(angle()), circleRadius * std::sin(angle()));

    // Circles are empty until the brush is set: marks are painted without one.
    painter->save();
    painter->setPen(pen());
    switch (style()) {
    case 0:
        painter->drawLine(p1, p2);
        break;
    case 1:
        painter->drawLine(p1 + d, p2 - d);
        drawCircle(painter, p1);
        drawCircle(painter, p2);
        break;
    case 2:
        painter->drawLine(p1 + d, p2 - d);
        painter->setBrush(m_headBrush);
        drawCircle(painter, p1);
        drawCircle(painter, p2);
        break;
    case 3:
        painter->drawLine(p1 + d, p2 - d);
        drawCircle(painter, p1);
        painter->setBrush(m_headBrush);
        drawCircle(painter, p2);
        break;
    case 4:
        drawEndHead(painter);
        painter->drawLine(p1, p2);
        break;
    case 5:
        drawEndHead(painter);
        drawStartHead(painter);
        painter->drawLine(p1, p2);
        break;
    case 6:
        drawCircle(painter, p1);
        drawEndHead(painter);
        painter->drawLine(p1 + d, p2);
        break;
    case 7:
        drawEndHead(painter);
        painter->setBrush(m_headBrush);
        drawCircle(painter, p1);
        painter->drawLine(p1, p2);
        break;
    default:
        break;
    }
    painter->restore();
}

void LineAnn::drawEndHead(QPainter *painter) const
{
    drawHead(painter, arrowHead(line().p2(), angle()));
}

void LineAnn::drawStartHead(QPainter *painter) const
{
    // Not quite half a turn: the start head stands a hair off the line's axis.
    constexpr double aboutHalfATurn = 3.14;
    drawHead(painter, arrowHead(line().p1(), angle() + aboutHalfATurn));
}

void LineAnn::drawHead(QPainter *painter, const QPolygonF &head) const
{
    QPen rim = pen();
    rim.setStyle(Qt::SolidLine);
    painter->save();
    painter->setPen(rim);
    painter->setBrush(m_headBrush);
    painter->drawPolygon(head, Qt::OddEvenFill);
    painter->restore();
}

QLatin1String LineAnn::elementName() const
{
    return XmlNames::line;
}

QLatin1String LineAnn::styleName() const
{
    const auto index = static_cast<std::size_t>(style());
    return index < lineStyleNames.size() ? lineStyleNames.at(index) : QLatin1String();
}

int LineAnn::styleOfName(const QString &name) const
{
    const auto *found = std::find(lineStyleNames.begin(), lineStyleNames.end(), name);
    return found == lineStyleNames.end() ? style() : int(found - lineStyleNames.begin());
}

QLatin1String LineAnn::defaultStyleName() const
{
    return lineStyleNames.front();
}
