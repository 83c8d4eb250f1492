// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/tool.h"

#include <QPointer>

/// Removes marks by a click. The scene's own selection decides which: whatever is selected at the release goes.
class EraserTool : public Tool
{
public:
    EraserTool();

    QCursor makeCursor() override;
    void mousePressed(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseMoved(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseReleased(QGraphicsSceneMouseEvent *event, Page *page) override;
    void abandonGesture() override;

private:
    QPointer<Page> m_page; ///< Page of the running gesture.
};
