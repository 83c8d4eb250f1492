// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/markerline.h"
#include "annotations/penline.h"
#include "support/testmain.h"
#include "tools/gesturestage.h"
#include "tools/markertool.h"
#include "tools/pentool.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QPen>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

const QPointF start(100, 100);

bool paintsSomething(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white))
                return true;
        }
    }
    return false;
}

} // namespace

class TestStrokeTools : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }

    void dragMakesAStroke_data() { addZooms(); }
    void dragMakesAStroke();
    void gesturesAtTheThreshold_data();
    void gesturesAtTheThreshold();
    void releaseAddsNoPoint();
    void looksOfTheTools();
    void settingsOfThePen();
    void settingsOfTheMarker();
    void settingsOutOfRangeAreClamped();
    void penSmoothsAndMarkerDoesNot();
    void strokeIsSeenInTheMaking();
    void moveRepaintsASquare_data();
    void moveRepaintsASquare();
    void droppedStrokeIsWipedOff();
    void otherButtonsDoNotDraw();
    void doubleClickDrawsNothing();
    void releaseOfAnotherButtonEndsTheStroke();
    void dragOutOfTheViewGoesOn();
    void toolChangeInMidDragLeavesNoMark();
    void modeChangeInMidDragIsClearedAtTheNextPress();
    void pageThatDiesInMidDragIsForgotten();
    void strokeCanBeUndone();
};

void TestStrokeTools::dragMakesAStroke()
{
    QFETCH(int, zoom);
    GestureStage stage(zoom);
    PenTool tool(QColor(10, 20, 30, 40), 3, false);
    stage.use(&tool);
    stage.drag(start, {{101, 100}, {110, 105}, {120, 90}});
    auto *stroke = stage.only<PenLine>();
    QVERIFY(stroke);
    QCOMPARE(stroke->pos(), start);
    // The press is no point of the stroke.
    QCOMPARE(stroke->polygon(), (QPolygonF{{1, 0}, {10, 5}, {20, -10}}));
    QCOMPARE(stroke->pen(), QPen(QColor(10, 20, 30, 40), 3));
    QVERIFY(stroke->antialiasing());
    QVERIFY(stroke->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(stroke->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    QVERIFY(!tool.annotation());
    QVERIFY(stage.page.isModified());
    QVERIFY(stage.host.menuUpdates > 0);
}

void TestStrokeTools::gesturesAtTheThreshold_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<QPolygonF>("way");
    QTest::addColumn<bool>("penDraws");
    QTest::addColumn<bool>("markerDraws");
    for (const int zoom : {100, 200}) {
        const auto row = [zoom](const char *name, const QPolygonF &way, bool penDraws, bool markerDraws) {
            QTest::addRow("%d %%: %s", zoom, name) << zoom << way << penDraws << markerDraws;
        };
        row("click", {}, false, false);
        row("one point, squared distance 1", {{101, 100}}, false, false);
        row("two points, squared distance 1", {{101, 101}, {101, 100}}, false, true);
        row("three points, squared distance 1", {{101, 100}, {101, 101}, {101, 100}}, true, true);
        row("one point, squared distance 2", {{101, 101}}, false, false);
        row("two points, squared distance 2", {{101, 100}, {101, 101}}, false, true);
        row("one point, squared distance 4", {{102, 100}}, true, true);
        row("one point, squared distance 8", {{98, 102}}, true, true);
        row("two points and back", {{300, 300}, start}, false, true);
        row("long way and back", {{300, 300}, {200, 150}, start}, true, true);
    }
    QTest::newRow("200 %: one point, squared distance 2.5") << 200 << QPolygonF{{101.5, 100.5}} << false << false;
    QTest::newRow("200 %: one point, squared distance 3.25") << 200 << QPolygonF{{101.5, 101}} << true << true;
}

void TestStrokeTools::gesturesAtTheThreshold()
{
    QFETCH(int, zoom);
    QFETCH(QPolygonF, way);
    QFETCH(bool, penDraws);
    QFETCH(bool, markerDraws);
    PenTool pen(Qt::red, 1, false);
    MarkerTool marker(Qt::red, false);
    {
        GestureStage stage(zoom);
        stage.use(&pen);
        stage.drag(start, way);
        QCOMPARE(stage.only<PenLine>() != nullptr, penDraws);
        QCOMPARE(stage.undoSteps(), penDraws ? 1 : 0);
        QVERIFY(!pen.annotation());
    }
    {
        GestureStage stage(zoom);
        stage.use(&marker);
        stage.drag(start, way);
        QCOMPARE(stage.only<MarkerLine>() != nullptr, markerDraws);
        QVERIFY(!marker.annotation());
    }
}

void TestStrokeTools::releaseAddsNoPoint()
{
    PenTool tool(Qt::red, 1, false);
    QGraphicsSceneMouseEvent event;
    event.setScenePos(start);
    tool.mousePressed(&event, nullptr);
    event.setScenePos({105, 100});
    tool.mouseMoved(&event, nullptr);
    event.setScenePos({102, 102});
    tool.mouseReleased(&event, nullptr);
    const std::unique_ptr<Annotation> mark(tool.takeAnnotation());
    QCOMPARE(dynamic_cast<PenLine *>(mark.get())->polygon(), QPolygonF{QPointF(5, 0)});
}

void TestStrokeTools::looksOfTheTools()
{
    const PenTool pen(QColor(1, 2, 3), 4, false);
    QCOMPARE(pen.pen(), QPen(QColor(1, 2, 3), 4));
    const MarkerTool marker(QColor(1, 2, 3), false);
    QCOMPARE(marker.pen(), QPen(QColor(1, 2, 3, 120), 17));
}

void TestStrokeTools::settingsOfThePen()
{
    PenTool tool(QColor(1, 2, 3), 5, true);
    tool.updateSettings();
    QCOMPARE(tool.pen().color(), QColor(1, 2, 3, 102));
    QCOMPARE(tool.pen().width(), 0);
    QVERIFY(tool.antialiasing());
    QVERIFY(!tool.smoothing());

    QSettings settings;
    settings.setValue("PenTool/LineWidth", 7);
    settings.setValue("PenTool/Transparency", 0);
    settings.setValue("PenTool/Antialiasing", false);
    settings.setValue("PenTool/Smoothing", true);
    tool.updateSettings();
    QCOMPARE(tool.pen(), QPen(QColor(1, 2, 3, 255), 7));
    QVERIFY(!tool.antialiasing());
    QVERIFY(tool.smoothing());
}

void TestStrokeTools::settingsOfTheMarker()
{
    MarkerTool tool(QColor(1, 2, 3), true);
    QCOMPARE(tool.pen().color().alpha(), 120);
    tool.updateSettings();
    QCOMPARE(tool.pen(), QPen(QColor(1, 2, 3, 102), 14));

    QSettings settings;
    settings.setValue("MarkerTool/LineWidth", 30);
    settings.setValue("MarkerTool/Transparency", 25);
    settings.setValue("MarkerTool/Antialiasing", false);
    settings.setValue("MarkerTool/Smoothing", true);
    tool.updateSettings();
    QCOMPARE(tool.pen(), QPen(QColor(1, 2, 3, 191), 30));
    QVERIFY(!tool.antialiasing());
    QVERIFY(tool.smoothing());
}

void TestStrokeTools::settingsOutOfRangeAreClamped()
{
    PenTool tool(Qt::red, 1, true);
    QSettings settings;
    settings.setValue("PenTool/LineWidth", -3);
    settings.setValue("PenTool/Transparency", 250);
    tool.updateSettings();
    QCOMPARE(tool.pen().width(), 0);
    QCOMPARE(tool.pen().color().alpha(), 0);
    settings.setValue("PenTool/LineWidth", 2000000000);
    settings.setValue("PenTool/Transparency", -7);
    tool.updateSettings();
    QCOMPARE(tool.pen().width(), 1000);
    QCOMPARE(tool.pen().color().alpha(), 255);
    settings.setValue("PenTool/LineWidth", "no number");
    settings.setValue("PenTool/Transparency", "no number");
    tool.updateSettings();
    QCOMPARE(tool.pen().width(), 0);
    QCOMPARE(tool.pen().color().alpha(), 102);
}

void TestStrokeTools::penSmoothsAndMarkerDoesNot()
{
    QSettings().setValue("PenTool/Smoothing", true);
    QSettings().setValue("MarkerTool/Smoothing", true);
    PenTool pen(Qt::red, 1, true);
    pen.updateSettings();
    MarkerTool marker(Qt::red, true);
    marker.updateSettings();
    const QPolygonF way{{110, 100}, {120, 100}, {130, 100}, {140, 100}, {140, 110}};

    GestureStage penStage;
    penStage.use(&pen);
    penStage.drag(start, way);
    QVERIFY(penStage.only<PenLine>());
    QCOMPARE(penStage.only<PenLine>()->polygon(), (QPolygonF{{10, 0}, {40, 0}, {40, 10}}));

    GestureStage markerStage;
    markerStage.use(&marker);
    markerStage.drag(start, way);
    QVERIFY(markerStage.only<MarkerLine>());
    QCOMPARE(markerStage.only<MarkerLine>()->polygon().size(), 5);
}

void TestStrokeTools::strokeIsSeenInTheMaking()
{
    GestureStage stage;
    PenTool tool(Qt::red, 3, false);
    stage.use(&tool);
    const QRectF area(90, 90, 100, 100);
    stage.press(start);
    QVERIFY(!paintsSomething(stage.picture(area)));
    stage.move({120, 120});
    stage.move({150, 120});
    const QImage making = stage.picture(area);
    QCOMPARE(making.pixelColor(135 - 90, 120 - 90), QColor(Qt::red));
    QVERIFY(stage.marks().isEmpty());
    stage.release({150, 120});
    QCOMPARE(stage.picture(area), making);
    QVERIFY(stage.only<PenLine>());
}

void TestStrokeTools::moveRepaintsASquare_data()
{
    QTest::addColumn<bool>("withPen");
    QTest::addColumn<QRectF>("square");
    QTest::newRow("pen") << true << QRectF(150, 250, 100, 100);
    QTest::newRow("marker") << false << QRectF(170, 270, 60, 60);
}

void TestStrokeTools::moveRepaintsASquare()
{
    QFETCH(bool, withPen);
    QFETCH(QRectF, square);
    PenTool pen(Qt::red, 1, false);
    MarkerTool marker(Qt::red, false);
    GestureStage stage;
    stage.use(withPen ? static_cast<Tool *>(&pen) : &marker);
    stage.press(start);
    QSignalSpy changes(&stage.page, &QGraphicsScene::changed);
    QVERIFY(changes.wait(1000) || changes.isEmpty());
    changes.clear();
    stage.move({200, 300});
    QTRY_COMPARE(changes.size(), 1);
    const auto regions = changes.constFirst().constFirst().value<QList<QRectF>>();
    QCOMPARE(regions, QList<QRectF>{square});
}

void TestStrokeTools::droppedStrokeIsWipedOff()
{
    PenTool pen(Qt::red, 1, false);
    verifyDroppedMarkIsWipedOff(&pen, start);
}

void TestStrokeTools::otherButtonsDoNotDraw()
{
    GestureStage stage;
    PenTool tool(Qt::red, 1, false);
    stage.use(&tool);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        stage.press(start, button);
        stage.move({200, 200});
        stage.move({250, 200});
        QVERIFY(!tool.annotation());
        stage.release({250, 200}, button);
    }
    QVERIFY(stage.marks().isEmpty());
}

void TestStrokeTools::doubleClickDrawsNothing()
{
    GestureStage stage;
    PenTool pen(Qt::red, 1, false);
    MarkerTool marker(Qt::red, false);
    for (Tool *tool : std::initializer_list<Tool *>{&pen, &marker}) {
        stage.use(tool);
        stage.doubleClick(start);
        stage.move({200, 200});
    }
    QVERIFY(stage.marks().isEmpty());
    QVERIFY(!pen.annotation());
}

void TestStrokeTools::releaseOfAnotherButtonEndsTheStroke()
{
    GestureStage stage;
    PenTool tool(Qt::red, 1, false);
    stage.use(&tool);
    stage.press(start);
    stage.move({150, 150});
    stage.release({150, 150}, Qt::RightButton);
    QCOMPARE(stage.marks().size(), 1);
    stage.move({160, 150});
    stage.release({160, 150});
    QCOMPARE(stage.marks().size(), 1);
    QCOMPARE(stage.only<PenLine>()->polygon().size(), 1);
}

void TestStrokeTools::dragOutOfTheViewGoesOn()
{
    GestureStage stage;
    PenTool tool(Qt::red, 1, false);
    stage.use(&tool);
    stage.drag(start, {{-50, 20}, {400, -30}});
    QVERIFY(stage.only<PenLine>());
    QCOMPARE(stage.only<PenLine>()->polygon(), (QPolygonF{{-150, -80}, {300, -130}}));
}

void TestStrokeTools::toolChangeInMidDragLeavesNoMark()
{
    GestureStage stage;
    PenTool pen(Qt::red, 1, false);
    MarkerTool marker(Qt::red, false);
    stage.use(&pen);
    stage.press(start);
    stage.move({150, 150});
    stage.use(&marker);
    stage.move({200, 200});
    stage.release({200, 200});
    QVERIFY(stage.marks().isEmpty());
    QVERIFY(pen.annotation());

    // Back at the pen, a new gesture starts from nothing.
    stage.use(&pen);
    stage.drag({300, 300}, {{310, 300}, {320, 300}});
    QVERIFY(stage.only<PenLine>());
    QCOMPARE(stage.only<PenLine>()->polygon(), (QPolygonF{{10, 0}, {20, 0}}));
}

void TestStrokeTools::modeChangeInMidDragIsClearedAtTheNextPress()
{
    GestureStage stage;
    PenTool pen(Qt::red, 1, false);
    stage.use(&pen);
    stage.press(start);
    stage.move({150, 150});
    stage.host.currentMode = TransformMode;
    stage.move({200, 200});
    stage.release({200, 200});
    QVERIFY(stage.marks().isEmpty());
    stage.use(&pen);
    stage.press({300, 300});
    stage.move({320, 320});
    stage.release({320, 320});
    QVERIFY(stage.only<PenLine>());
    QCOMPARE(stage.only<PenLine>()->pos(), QPointF(300, 300));
    QCOMPARE(stage.only<PenLine>()->polygon().size(), 1);
}

void TestStrokeTools::pageThatDiesInMidDragIsForgotten()
{
    PenTool tool(Qt::red, 1, false);
    QGraphicsSceneMouseEvent event;
    {
        Page page(nullptr);
        event.setScenePos(start);
        tool.mousePressed(&event, &page);
    }
    event.setScenePos({150, 150});
    tool.mouseMoved(&event, nullptr);
    tool.mouseReleased(&event, nullptr);
    const std::unique_ptr<Annotation> stroke(tool.takeAnnotation());
    QVERIFY(stroke);
}

void TestStrokeTools::strokeCanBeUndone()
{
    GestureStage stage;
    PenTool tool(Qt::red, 1, false);
    stage.use(&tool);
    stage.drag(start, {{150, 150}, {170, 150}});
    stage.drag({300, 300}, {{350, 350}, {370, 350}});
    QCOMPARE(stage.marks().size(), 2);
    stage.undo();
    QVERIFY(stage.only<PenLine>());
    QCOMPARE(stage.only<PenLine>()->pos(), start);
    stage.undo();
    QVERIFY(stage.marks().isEmpty());
}

REGISTER_TEST(TestStrokeTools)
#include "tst_stroketools.moc"
