// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/penline.h"

#include "annotations/xmlnames.h"
#include "app/eventlog.h"

#include <QPen>

#include <cmath>

namespace {

double vectorLength(const QPointF &v)
{
    return std::sqrt(v.x() * v.x() + v.y() * v.y());
}

/// Exact on purpose: a margin would remove points that belong to a curve.
bool pointTheSameWay(const QPointF &a, const QPointF &b)
{
    return QPointF::dotProduct(a, b) == vectorLength(a) * vectorLength(b);
}

} // namespace

PenLine::PenLine(QGraphicsItem *parent) : Stroke(parent) {}

PenLine *PenLine::clone()
{
    auto *copy = new PenLine;
    copy->copyFrom(*this);
    return copy;
}

QString PenLine::toDebugString()
{
    return QStringLiteral("PenLine, width: %1, pos: (%2, %3)")
        .arg(pen().width())
        .arg(pos().x(), 0, 'g')
        .arg(pos().y(), 0, 'g');
}

void PenLine::finishCapture(bool apply)
{
    Stroke::finishCapture(apply);
    if (apply)
        prepareGeometryChange();
}

void PenLine::smooth()
{
    (logTrace << "PenLine smoothing").eol(0);
    const QPolygonF points = polygon();
    const qsizetype count = points.size();
    if (count < 4)
        return;
    QPolygonF kept{points.first()};
    for (qsizetype i = 0; i < count - 2;) {
        const QPointF direction = points.at(i) - points.at(i + 1);
        qsizetype j = i + 2;
        bool straight = true;
        while (straight && j < count) {
            straight = pointTheSameWay(direction, points.at(i) - points.at(j));
            ++j;
        }
        i = j - 2;
        kept.append(points.at(i));
    }
    kept.append(points.last());
    setPolygon(kept);
    prepareGeometryChange();
}

QLatin1String PenLine::elementName() const
{
    return XmlNames::penLine;
}

QString PenLine::selectionKey() const
{
    return QStringLiteral("PenTool/DrawSelection");
}
