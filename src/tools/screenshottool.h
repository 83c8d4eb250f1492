// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/tool.h"

#include <QPointF>
#include <QRectF>

class ToolHost;

/// Turns a dragged area of the page, marks included, into a picture. The area is rendered from the scene at one
/// pixel for one scene unit, whatever the zoom and whatever covers the window.
class ScreenShotTool : public Tool
{
public:
    /// @p host may be null. Not owned.
    explicit ScreenShotTool(ToolHost *host);

    QCursor makeCursor() override;
    void mousePressed(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseMoved(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseReleased(QGraphicsSceneMouseEvent *event, Page *page) override;
    void paintOverlay(QPainter *painter) override;

protected:
    void readSettings() override;

private:
    ToolHost *m_host;
    Page *m_page = nullptr; ///< Page of the gesture.
    QRectF m_selection;     ///< The dragged area, scene coordinates.
    QPointF m_pressPoint;   ///< Scene coordinates.
    bool m_dragging = false;
    bool m_toClipboard = true;
    bool m_toFile = false;
    bool m_byEmail = false;
    bool m_useOnce = true; ///< Leave the tool after one capture.
};
