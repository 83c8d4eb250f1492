// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

class QGraphicsItem;

/// A pointer to a scene item that becomes null when the item is deleted, by whomever. It does not own.
class MarkPointer
{
public:
    MarkPointer() = default;
    /// @p item may be null.
    explicit MarkPointer(QGraphicsItem *item);

    /// The item, or null once it has died.
    QGraphicsItem *item() const;

protected:
    /// What all pointers to one item share.
    struct State
    {
        QGraphicsItem *item = nullptr;
        int holders = 0; ///< How many MarkRef there are.
    };
    /// Null for a default-constructed pointer.
    const std::shared_ptr<State> &state() const { return m_state; }
    /// What the pointers to @p item share; null if there never was one.
    static std::shared_ptr<State> knownState(const QGraphicsItem *item);

private:
    struct LifeGuard;
    static std::shared_ptr<State> stateOf(QGraphicsItem *item);

    std::shared_ptr<State> m_state;
};
