// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/tool.h"

#include <QCoreApplication>
#include <QPointF>
#include <QPointer>
#include <QRectF>

class Snapshot;
class ToolHost;
class QWidget;

/// Turns a dragged area of the page, marks included, into a picture. The area is rendered from the scene at one
/// pixel for one scene unit, whatever the zoom and whatever covers the window. The picture goes to one place: to the
/// clipboard, else into a file, else to the mail client, as the settings have it.
class ScreenShotTool : public Tool
{
    Q_DECLARE_TR_FUNCTIONS(ScreenShotTool)

public:
    /// @p host may be null. Not owned.
    explicit ScreenShotTool(ToolHost *host);

    QCursor makeCursor() override;
    void mousePressed(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseMoved(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseReleased(QGraphicsSceneMouseEvent *event, Page *page) override;
    void paintOverlay(QPainter *painter) override;
    void abandonGesture() override;

protected:
    void readSettings() override;

private:
    QWidget *window() const;
    void showInStatusBar(const QString &text) const;
    void capture(const Snapshot &snapshot) const;
    void toClipboard(const Snapshot &snapshot) const;
    void toFile(const Snapshot &snapshot) const;
    void toMail(const Snapshot &snapshot) const;
    void finish();
    void clearSelection();

    ToolHost *m_host;
    QPointer<Page> m_page; ///< Page of the gesture.
    QRectF m_selection;    ///< The dragged area, scene coordinates.
    QPointF m_pressPoint;  ///< Scene coordinates.
    bool m_dragging = false;
    bool m_toClipboard = true;
    bool m_toFile = false;
    bool m_byEmail = false;
    bool m_useOnce = true; ///< Leave the tool after one capture.
};
