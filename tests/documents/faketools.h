// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/testmark.h"
#include "tools/drawingtool.h"

#include <QGraphicsSceneMouseEvent>
#include <QStringList>

/// Notes every event as "press 10,20 page" or "release 10,20 null", with the scene position.
inline QString noted(const char *what, const QGraphicsSceneMouseEvent *event, const Page *page)
{
    return QStringLiteral("%1 %2,%3 %4")
        .arg(QLatin1String(what))
        .arg(qRound(event->scenePos().x()))
        .arg(qRound(event->scenePos().y()))
        .arg(page ? QLatin1String("page") : QLatin1String("null"));
}

/// A tool that draws no mark and paints a green overlay.
class FakeTool final : public Tool
{
public:
    FakeTool() : Tool(true) {}
    QCursor makeCursor() override { return Qt::CrossCursor; }
    void mousePressed(QGraphicsSceneMouseEvent *event, Page *page) override
    {
        events.append(noted("press", event, page));
    }
    void mouseMoved(QGraphicsSceneMouseEvent *event, Page *page) override { events.append(noted("move", event, page)); }
    void mouseReleased(QGraphicsSceneMouseEvent *event, Page *page) override
    {
        events.append(noted("release", event, page));
    }
    void paintOverlay(QPainter *painter) override
    {
        ++overlays;
        painter->fillRect(QRectF(0, 0, 10, 10), Qt::green);
    }

    QStringList events;
    int overlays = 0;
};

/// A drawing tool whose gesture puts a TestMark where the button was pressed.
class FakeDrawingTool final : public DrawingTool
{
public:
    FakeDrawingTool() : DrawingTool(true) {}
    QCursor makeCursor() override { return Qt::CrossCursor; }
    void mousePressed(QGraphicsSceneMouseEvent *event, Page *page) override
    {
        events.append(noted("press", event, page));
        setAnnotation(new TestMark(event->scenePos()));
    }
    void mouseMoved(QGraphicsSceneMouseEvent *event, Page *page) override { events.append(noted("move", event, page)); }
    void mouseReleased(QGraphicsSceneMouseEvent *event, Page *page) override
    {
        events.append(noted("release", event, page));
    }

    QStringList events;
};
