// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/markpointer.h"

#include <QGraphicsItem>
#include <QVariant>

/// Sits in the item's own data, so that it dies with the item.
struct MarkPointer::LifeGuard
{
    explicit LifeGuard(std::shared_ptr<State> watched) : state(std::move(watched)) {}
    LifeGuard(const LifeGuard &) = delete;
    LifeGuard &operator=(const LifeGuard &) = delete;
    ~LifeGuard() { state->item = nullptr; }

    std::shared_ptr<State> state;
};

namespace {

/// Key of QGraphicsItem::data() under which the guard stands; nothing else uses item data.
constexpr int lifeGuardKey = 0x6b37;

} // namespace

MarkPointer::MarkPointer(QGraphicsItem *item) : m_state(item ? stateOf(item) : nullptr) {}

QGraphicsItem *MarkPointer::item() const
{
    return m_state ? m_state->item : nullptr;
}

std::shared_ptr<MarkPointer::State> MarkPointer::knownState(const QGraphicsItem *item)
{
    const auto guard = item->data(lifeGuardKey).value<std::shared_ptr<LifeGuard>>();
    return guard ? guard->state : nullptr;
}

std::shared_ptr<MarkPointer::State> MarkPointer::stateOf(QGraphicsItem *item)
{
    if (const auto known = knownState(item))
        return known;
    auto state = std::make_shared<State>();
    state->item = item;
    item->setData(lifeGuardKey, QVariant::fromValue(std::make_shared<LifeGuard>(state)));
    return state;
}
