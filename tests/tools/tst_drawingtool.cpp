// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/penline.h"
#include "support/testmain.h"
#include "tools/brackettool.h"
#include "tools/erasertool.h"
#include "tools/gesturestage.h"
#include "tools/linetool.h"
#include "tools/markertool.h"
#include "tools/pentool.h"
#include "tools/screenshottool.h"
#include "tools/shapetool.h"
#include "tools/textboxtool.h"
#include "tools/toolsettings.h"

#include <QGraphicsSceneMouseEvent>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

namespace {

/// Counts how many of its kind live.
class CountedMark : public PenLine
{
public:
    CountedMark() { ++alive; }
    ~CountedMark() override { --alive; }

    static inline int alive = 0;
};

/// The least that a drawing tool can be.
class BareTool : public DrawingTool
{
public:
    using DrawingTool::DrawingTool;
    using DrawingTool::setAnnotation;
    using DrawingTool::setBrush;
    using DrawingTool::setPen;

    QCursor makeCursor() override { return {}; }
    void mousePressed(QGraphicsSceneMouseEvent *, Page *) override {}
    void mouseMoved(QGraphicsSceneMouseEvent *, Page *) override {}
    void mouseReleased(QGraphicsSceneMouseEvent *, Page *) override {}
};

/// Every key that a tool reads, with a value that differs from what tools start with.
void storeUnusualSettings()
{
    QSettings settings;
    for (const char *group : {"PenTool", "MarkerTool", "LineTool", "ShapeTool"}) {
        settings.beginGroup(group);
        settings.setValue("LineWidth", 9);
        settings.setValue("Transparency", 10);
        settings.setValue("Antialiasing", false);
        settings.setValue("Smoothing", true);
        settings.setValue("LineStyle", "Dot");
        settings.endGroup();
    }
}

struct Look
{
    explicit Look(const DrawingTool &tool)
        : pen(tool.pen()), brush(tool.brush()), antialiasing(tool.antialiasing()), smoothing(tool.smoothing())
    {
    }
    bool operator==(const Look &other) const = default;

    QPen pen;
    QBrush brush;
    bool antialiasing;
    bool smoothing;
};

using MakeTool = std::function<DrawingTool *()>;

} // namespace

Q_DECLARE_METATYPE(MakeTool)

namespace {

/// Rows for the tools whose mark grows under the mouse, with a look that the settings do not change.
void addDragTools()
{
    QTest::addColumn<MakeTool>("makeTool");
    QTest::newRow("pen") << MakeTool([] { return new PenTool(Qt::red, 3, false); });
    QTest::newRow("marker") << MakeTool([] { return new MarkerTool(Qt::red, false); });
    QTest::newRow("shape") << MakeTool([] { return new ShapeTool(1, false); });
    QTest::newRow("line") << MakeTool([] {
        auto *tool = new LineTool(4);
        tool->setFollowsSettings(false);
        return tool;
    });
    QTest::newRow("bracket") << MakeTool([] {
        auto *tool = new BracketTool(0);
        tool->setFollowsSettings(false);
        return tool;
    });
}

/// These and the one that makes its mark at the release.
void addTools()
{
    addDragTools();
    QTest::newRow("text box") << MakeTool([] { return new TextBoxTool(nullptr, false); });
}

/// Draws so far that every tool would make a mark of it, and keeps the button down.
void beginGesture(GestureStage &stage)
{
    stage.press({100, 100});
    for (const QPointF &point : {QPointF(200, 150), QPointF(250, 220), QPointF(300, 200)})
        stage.move(point);
}

} // namespace

class TestDrawingTool : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }

    void startsWithAThinBluePen();
    void coloursKeepTheirAlpha();
    void nothingChangesAToolThatDoesNotFollow_data() { addTools(); }
    void nothingChangesAToolThatDoesNotFollow();
    void whichToolsFollow();
    void takenMarkIsTheCallers();
    void markUnderConstructionDiesWithTheTool();
    void newMarkReplacesTheOld();
    void alphaOfTransparency();
    void movesBetweenGesturesChangeNothing();
    void eventsWithoutAPageAreTolerated();
    void abandonedGestureLeavesNothing_data() { addTools(); }
    void abandonedGestureLeavesNothing();
    void abandonedMarkIsWipedOff_data() { addDragTools(); }
    void abandonedMarkIsWipedOff();
    void abandoningBetweenGesturesChangesNothing_data() { addTools(); }
    void abandoningBetweenGesturesChangesNothing();
    void gestureOfADeadPageCanBeAbandoned_data() { addTools(); }
    void gestureOfADeadPageCanBeAbandoned();
};

void TestDrawingTool::startsWithAThinBluePen()
{
    const BareTool tool(true);
    QCOMPARE(tool.pen().color(), QColor(Qt::blue));
    QCOMPARE(tool.pen().width(), 0);
    QCOMPARE(tool.brush(), QBrush(Qt::SolidPattern));
    QVERIFY(tool.antialiasing());
    QVERIFY(!tool.smoothing());
    QVERIFY(!tool.annotation());
}

void TestDrawingTool::coloursKeepTheirAlpha()
{
    BareTool tool(true);
    tool.setPen(QPen(QColor(1, 2, 3, 102), 5));
    tool.setBrush(QColor(4, 5, 6, 120));
    tool.setPenColor(QColor(200, 100, 50, 7));
    tool.setBrushColor(QColor(20, 10, 5));
    QCOMPARE(tool.pen().color(), QColor(200, 100, 50, 102));
    QCOMPARE(tool.pen().width(), 5);
    QCOMPARE(tool.brush().color(), QColor(20, 10, 5, 120));
}

void TestDrawingTool::nothingChangesAToolThatDoesNotFollow()
{
    QFETCH(MakeTool, makeTool);
    storeUnusualSettings();
    const std::unique_ptr<DrawingTool> tool(makeTool());
    QVERIFY(!tool->followsSettings());
    const Look before(*tool);
    tool->updateSettings();
    tool->setPenColor(Qt::green);
    tool->setBrushColor(Qt::green);
    tool->setAntialiasing(!before.antialiasing);
    tool->setSmoothing(!before.smoothing);
    QVERIFY(Look(*tool) == before);

    // The same calls do something once it follows.
    tool->setFollowsSettings(true);
    tool->setPenColor(Qt::green);
    QVERIFY(!(Look(*tool) == before));
}

void TestDrawingTool::whichToolsFollow()
{
    QVERIFY(LineTool(0).followsSettings());
    QVERIFY(BracketTool(0).followsSettings());
    QVERIFY(EraserTool().followsSettings());
    QVERIFY(ScreenShotTool(nullptr).followsSettings());
    QVERIFY(PenTool(Qt::red, 1, true).followsSettings());
}

void TestDrawingTool::takenMarkIsTheCallers()
{
    BareTool tool(true);
    QVERIFY(!tool.takeAnnotation());
    auto *mark = new CountedMark;
    tool.setAnnotation(mark);
    QCOMPARE(tool.annotation(), mark);
    const std::unique_ptr<Annotation> taken(tool.takeAnnotation());
    QCOMPARE(taken.get(), mark);
    QVERIFY(!tool.annotation());
    QVERIFY(!tool.takeAnnotation());
}

void TestDrawingTool::markUnderConstructionDiesWithTheTool()
{
    {
        BareTool tool(true);
        tool.setAnnotation(new CountedMark);
        QCOMPARE(CountedMark::alive, 1);
    }
    QCOMPARE(CountedMark::alive, 0);
}

void TestDrawingTool::newMarkReplacesTheOld()
{
    BareTool tool(true);
    tool.setAnnotation(new CountedMark);
    tool.setAnnotation(new CountedMark);
    QCOMPARE(CountedMark::alive, 1);
    tool.abandonGesture();
    QCOMPARE(CountedMark::alive, 0);
    QVERIFY(!tool.annotation());
}

void TestDrawingTool::alphaOfTransparency()
{
    QCOMPARE(ToolSettings::alphaOfTransparency(0), 255);
    QCOMPARE(ToolSettings::alphaOfTransparency(60), 102);
    QCOMPARE(ToolSettings::alphaOfTransparency(100), 0);
    QCOMPARE(ToolSettings::alphaOfTransparency(-1), 255);
    QCOMPARE(ToolSettings::alphaOfTransparency(1000), 0);
    // Dividing by 100 and multiplying by 0.01 come to the same over the whole range.
    for (int percent = 0; percent <= 100; ++percent)
        QCOMPARE(ToolSettings::alphaOfTransparency(percent), int((100 - percent) * 0.01 * 255));
}

void TestDrawingTool::movesBetweenGesturesChangeNothing()
{
    GestureStage stage;
    PenTool pen(Qt::red, 1, false);
    MarkerTool marker(Qt::red, false);
    LineTool line(0);
    BracketTool bracket(0);
    ShapeTool shape(0, false);
    TextBoxTool textBox(nullptr, false);
    for (DrawingTool *tool : std::initializer_list<DrawingTool *>{&pen, &marker, &line, &bracket, &shape, &textBox}) {
        stage.use(tool);
        stage.move({100, 100});
        stage.move({200, 150});
        QVERIFY(!tool->annotation());
        stage.release({200, 150});
        QVERIFY(!tool->annotation());
    }
    QVERIFY(stage.marks().isEmpty());
    QCOMPARE(stage.undoSteps(), 0);
}

void TestDrawingTool::eventsWithoutAPageAreTolerated()
{
    PenTool pen(Qt::red, 1, false);
    LineTool line(0);
    ShapeTool shape(2, false);
    TextBoxTool textBox(nullptr, false);
    EraserTool eraser;
    ScreenShotTool screenShot(nullptr);
    for (Tool *tool : std::initializer_list<Tool *>{&pen, &line, &shape, &textBox, &eraser, &screenShot}) {
        QGraphicsSceneMouseEvent event;
        event.setScenePos({10, 10});
        tool->mousePressed(&event, nullptr);
        event.setScenePos({50, 60});
        tool->mouseMoved(&event, nullptr);
        tool->mouseReleased(&event, nullptr);
    }
    QVERIFY(pen.annotation());
    QVERIFY(line.annotation());
    QVERIFY(shape.annotation());
    QVERIFY(!textBox.annotation()); // places a box on a page only
}

void TestDrawingTool::abandonedGestureLeavesNothing()
{
    QFETCH(MakeTool, makeTool);
    const std::unique_ptr<DrawingTool> tool(makeTool());
    GestureStage stage;
    stage.use(tool.get());
    beginGesture(stage);
    tool->abandonGesture();
    QVERIFY(!tool->annotation());

    // Its release still comes, and so do moves and other buttons, which make nothing of it.
    stage.release({300, 200});
    stage.move({350, 250});
    QVERIFY(!tool->annotation());
    stage.press({350, 250}, Qt::MiddleButton);
    stage.release({350, 250}, Qt::MiddleButton);
    QVERIFY(stage.marks().isEmpty());
    QCOMPARE(stage.undoSteps(), 0);

    beginGesture(stage);
    stage.release({300, 200});
    QCOMPARE(stage.marks().size(), 1);
}

void TestDrawingTool::abandonedMarkIsWipedOff()
{
    QFETCH(MakeTool, makeTool);
    const std::unique_ptr<DrawingTool> tool(makeTool());
    GestureStage stage;
    stage.use(tool.get());
    const QRectF area(0, 0, 400, 300);
    const QImage empty = stage.picture(area);
    QSignalSpy changes(&stage.page, &QGraphicsScene::changed);
    beginGesture(stage);
    QVERIFY(stage.picture(area) != empty);
    QTRY_VERIFY(!changes.isEmpty());
    changes.clear();
    tool->abandonGesture();
    QCOMPARE(stage.picture(area), empty);
    QTRY_VERIFY(!changes.isEmpty());
    QCOMPARE(changes.constFirst().constFirst().value<QList<QRectF>>(), QList<QRectF>{stage.page.sceneRect()});
}

void TestDrawingTool::abandoningBetweenGesturesChangesNothing()
{
    QFETCH(MakeTool, makeTool);
    const std::unique_ptr<DrawingTool> tool(makeTool());
    const Look before(*tool);
    tool->abandonGesture();
    GestureStage stage;
    stage.use(tool.get());
    beginGesture(stage);
    stage.release({300, 200});
    tool->abandonGesture();
    QCOMPARE(stage.marks().size(), 1);
    QVERIFY(Look(*tool) == before);
}

void TestDrawingTool::gestureOfADeadPageCanBeAbandoned()
{
    QFETCH(MakeTool, makeTool);
    const std::unique_ptr<DrawingTool> tool(makeTool());
    {
        Page page(nullptr);
        QGraphicsSceneMouseEvent event;
        event.setScenePos({10, 10});
        tool->mousePressed(&event, &page);
        event.setScenePos({50, 60});
        tool->mouseMoved(&event, &page);
    }
    tool->abandonGesture();
    QVERIFY(!tool->annotation());
}

REGISTER_TEST(TestDrawingTool)
#include "tst_drawingtool.moc"
