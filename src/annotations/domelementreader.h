// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/elementreader.h"

#include <QDomElement>

/// Walks over elements of a document held in memory.
class DomElementReader : public ElementReader
{
public:
    /// @p element is current at first.
    explicit DomElementReader(const QDomElement &element);

    bool enterNextChild() override;
    void leaveChild() override;
    QStringView tag() const override;
    QString readText() override;

protected:
    std::optional<QStringView> attribute(QLatin1String name) const override;

private:
    QDomElement m_current;
    QDomElement m_next;      ///< The child of m_current that comes next; null after the last.
    QString m_tag;           ///< What tag() shows.
    mutable QString m_value; ///< What attribute() shows.
};
