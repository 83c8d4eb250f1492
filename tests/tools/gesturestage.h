// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/annotation.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "support/fakehost.h"

#include <QImage>

/// A page with an empty text, shown at some zoom, on which real mouse events drive the current tool.
/// All positions are scene coordinates; they must fall on whole pixels of the view.
class GestureStage
{
public:
    explicit GestureStage(int zoomPercent = 100);

    /// Makes @p tool, which stays the caller's, current and the mode that of tools.
    void use(Tool *tool);
    void press(const QPointF &pos, Qt::MouseButton button = Qt::LeftButton);
    void move(const QPointF &pos);
    void release(const QPointF &pos, Qt::MouseButton button = Qt::LeftButton);
    void doubleClick(const QPointF &pos);
    /// Press, a move to each of @p way, release there. Like every window system, a release at another place than
    /// the last move would be preceded by a move.
    void drag(const QPointF &start, const QPolygonF &way);
    void click(const QPointF &pos) { drag(pos, {}); }

    /// The marks on the page, bottom first.
    QList<Annotation *> marks() const;
    /// The one mark on the page as a @p Mark; null if there is not exactly one or it is another.
    template<class Mark> Mark *only() const
    {
        const QList<Annotation *> all = marks();
        return all.size() == 1 ? dynamic_cast<Mark *>(all.constFirst()) : nullptr;
    }
    /// Steps on the page's undo stack.
    int undoSteps();
    void undo();
    /// The page as it is painted, what the tool adds above it included; one pixel for one scene unit.
    QImage picture(const QRectF &area);

    FakeHost host;
    Page page;
    PageView view;

private:
    QPoint toWindow(const QPointF &pos) const;
};

/// Drags @p tool from @p start out and back: too short in the end, the drag leaves no mark, and what it showed is
/// painted over.
void verifyDroppedMarkIsWipedOff(Tool *tool, const QPointF &start);

/// Rows for the zooms at which gestures are tried.
void addZooms();
