// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/markref.h"

#include <QGraphicsItem>

#include <utility>

MarkRef::MarkRef(QGraphicsItem *item) : MarkPointer(item)
{
    if (state())
        ++state()->holders;
}

MarkRef::MarkRef(const MarkRef &other) : MarkPointer(other)
{
    if (state())
        ++state()->holders;
}

MarkRef::MarkRef(MarkRef &&other) noexcept : MarkPointer(std::move(other)) {}

MarkRef &MarkRef::operator=(MarkRef other) noexcept
{
    std::swap(static_cast<MarkPointer &>(*this), static_cast<MarkPointer &>(other));
    return *this;
}

MarkRef::~MarkRef()
{
    if (!state() || --state()->holders > 0)
        return;
    if (item() && !item()->scene())
        delete item();
}

bool MarkRef::isHeld(const QGraphicsItem *item)
{
    const auto known = knownState(item);
    return known && known->holders > 0;
}
