// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/markpointer.h"

/// A share in a mark that may be off every scene: undone, cut, or copied to the clipboard.
///
/// This is the one place that decides when such a mark dies. A mark on a scene belongs to the scene. A mark off
/// every scene belongs to the references to it, held by undo commands and by the annotation clipboard: when the
/// last one goes, the mark is deleted. A mark that somebody deletes all the same leaves null references behind.
class MarkRef : private MarkPointer
{
public:
    MarkRef() = default;
    /// @p item may be null.
    explicit MarkRef(QGraphicsItem *item);
    MarkRef(const MarkRef &other);
    MarkRef(MarkRef &&other) noexcept;
    MarkRef &operator=(MarkRef other) noexcept;
    ~MarkRef();

    using MarkPointer::item;

    /// Whether any reference to @p item exists.
    static bool isHeld(const QGraphicsItem *item);
};
