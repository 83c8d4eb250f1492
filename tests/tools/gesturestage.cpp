// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/gesturestage.h"

#include <QGraphicsItem>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

GestureStage::GestureStage(int zoomPercent) : page(&host), view(&page, nullptr)
{
    page.newDocument();
    page.setPageView(&view);
    view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    view.resize(900, 700);
    page.setSceneRect(0, 0, 900, 700);
    view.setZoom(zoomPercent);
    view.show();
    page.activateUndoStack();
    host.currentMode = ToolMode;
}

void GestureStage::use(Tool *tool)
{
    host.tool = tool;
    host.currentMode = ToolMode;
}

QPoint GestureStage::toWindow(const QPointF &pos) const
{
    const QPoint point = view.mapFromScene(pos);
    if (view.mapToScene(point) != pos)
        qFatal("the position is on no whole pixel of the view");
    return view.viewport()->mapTo(&view, point);
}

void GestureStage::press(const QPointF &pos, Qt::MouseButton button)
{
    QTest::mousePress(view.windowHandle(), button, {}, toWindow(pos));
    // A right button also opens the context menu, which would take all further events.
    host.menu->close();
}

void GestureStage::move(const QPointF &pos)
{
    QTest::mouseMove(view.windowHandle(), toWindow(pos));
}

void GestureStage::release(const QPointF &pos, Qt::MouseButton button)
{
    QTest::mouseRelease(view.windowHandle(), button, {}, toWindow(pos));
}

void GestureStage::doubleClick(const QPointF &pos)
{
    QTest::mouseDClick(view.windowHandle(), Qt::LeftButton, {}, toWindow(pos));
}

void GestureStage::drag(const QPointF &start, const QPolygonF &way)
{
    press(start);
    for (const QPointF &point : way)
        move(point);
    release(way.isEmpty() ? start : way.last());
}

QList<Annotation *> GestureStage::marks() const
{
    QList<Annotation *> found;
    for (QGraphicsItem *item : page.items(Qt::AscendingOrder)) {
        if (auto *mark = dynamic_cast<Annotation *>(item))
            found.append(mark);
    }
    return found;
}

int GestureStage::undoSteps()
{
    return host.group->activeStack()->count();
}

void GestureStage::undo()
{
    host.group->undo();
}

QImage GestureStage::picture(const QRectF &area)
{
    QImage image(area.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    page.render(&painter, QRectF(QPointF(0, 0), area.size()), area);
    return image;
}

void verifyDroppedMarkIsWipedOff(Tool *tool, const QPointF &start)
{
    GestureStage stage;
    stage.use(tool);
    QSignalSpy changes(&stage.page, &QGraphicsScene::changed);
    stage.press(start);
    stage.move({300, 300});
    stage.move(start);
    QTRY_VERIFY(!changes.isEmpty());
    changes.clear();
    stage.release(start);
    QVERIFY(stage.marks().isEmpty());
    QTRY_VERIFY(!changes.isEmpty());
    QCOMPARE(changes.constFirst().constFirst().value<QList<QRectF>>(), QList<QRectF>{stage.page.sceneRect()});
}

void addZooms()
{
    QTest::addColumn<int>("zoom");
    QTest::newRow("100 %") << 100;
    QTest::newRow("200 %") << 200;
}
