// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QPointF>
#include <QString>

class Page;

/// Where the marks of a page were when this was made. The page must outlive it; marks may come and go.
class MarkPlaces
{
public:
    explicit MarkPlaces(const Page *page);

    /// Numbers of the marks that were here, still are, and lie elsewhere.
    QList<int> moved() const;
    /// Empty if marks have moved up or down by @p shift or not at all, and none that lay below one that moved stayed.
    QString differenceFromShift(double shift) const;

private:
    static QHash<int, QPointF> placesOn(const Page *page);

    const Page *m_page;
    QHash<int, QPointF> m_places; ///< By the numbers that a MarkLedger gave them.
};
