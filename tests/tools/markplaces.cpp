// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/markplaces.h"

#include "annotations/annotation.h"
#include "tools/markledger.h"

#include <QGraphicsItem>

#include <algorithm>
#include <cmath>
#include <limits>

MarkPlaces::MarkPlaces(const Page *page) : m_page(page), m_places(placesOn(page)) {}

QHash<int, QPointF> MarkPlaces::placesOn(const Page *page)
{
    QHash<int, QPointF> places;
    for (const Annotation *mark : marksOf(page))
        places.insert(MarkLedger::numberOf(mark), dynamic_cast<const QGraphicsItem *>(mark)->scenePos());
    return places;
}

QList<int> MarkPlaces::moved() const
{
    QList<int> marks;
    const QHash<int, QPointF> now = placesOn(m_page);
    for (auto place = now.cbegin(); place != now.cend(); ++place) {
        if (m_places.contains(place.key()) && m_places.value(place.key()) != place.value())
            marks.append(place.key());
    }
    return marks;
}

QString MarkPlaces::differenceFromShift(double shift) const
{
    constexpr double tolerance = 1e-6;
    const QHash<int, QPointF> now = placesOn(m_page);
    double lowestThatStays = std::numeric_limits<double>::lowest();
    double highestThatMoves = std::numeric_limits<double>::max();
    for (auto place = m_places.cbegin(); place != m_places.cend(); ++place) {
        const QPointF way = now.value(place.key()) - place.value();
        if (way.isNull())
            lowestThatStays = std::max(lowestThatStays, place.value().y());
        else
            highestThatMoves = std::min(highestThatMoves, place.value().y());
        if (!way.isNull() && (way.x() != 0.0 || std::abs(way.y() - shift) > tolerance))
            return QStringLiteral("mark %1 has moved by %2 instead of %3").arg(place.key()).arg(way.y()).arg(shift);
    }
    // In a change of lines all that lies below the top of the changed line moves.
    if (shift != 0.0 && lowestThatStays > highestThatMoves)
        return QStringLiteral("a mark has moved, one below it has not");
    return {};
}
