// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/bracketann.h"
#include "annotations/ellipseann.h"
#include "annotations/lineann.h"
#include "annotations/rectangleann.h"
#include "support/testmain.h"
#include "tools/brackettool.h"
#include "tools/gesturestage.h"
#include "tools/linetool.h"
#include "tools/shapetool.h"

#include <QGraphicsSceneMouseEvent>
#include <QPen>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

namespace {

const QPointF start(100, 100);

/// What a press and a release make of @p tool, without any move between them.
std::unique_ptr<Annotation> pressedAndReleased(DrawingTool &tool, const QPointF &from, const QPointF &to)
{
    QGraphicsSceneMouseEvent event;
    event.setScenePos(from);
    tool.mousePressed(&event, nullptr);
    event.setScenePos(to);
    tool.mouseReleased(&event, nullptr);
    return std::unique_ptr<Annotation>(tool.takeAnnotation());
}

} // namespace

Q_DECLARE_METATYPE(std::function<DrawingTool *()>)

class TestDragTools : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }

    void dragsAtTheThreshold_data();
    void dragsAtTheThreshold();
    void lineStartsAtThePress_data() { addZooms(); }
    void lineStartsAtThePress();
    void bracketStartsAtThePress();
    void shapeLiesBetweenPressAndRelease_data();
    void shapeLiesBetweenPressAndRelease();
    void releasePointCountsWithoutAMove();
    void kindsOfLines_data();
    void kindsOfLines();
    void kindsOfBrackets();
    void kindsOfShapes_data();
    void kindsOfShapes();
    void lookIsHandedOn();
    void bracketKeepsItsOwnAntialiasing();
    void newShapeIsTranslucent();
    void settingsOfLinesAndBrackets();
    void settingsOfShapes();
    void styleNames_data();
    void styleNames();
    void unknownStyleNameKeepsTheStyle();
    void settingsOutOfRangeAreClamped();
    void markIsSeenInTheMaking_data();
    void markIsSeenInTheMaking();
    void moveRepaintsTheWholeScene();
    void droppedMarkIsWipedOff();
    void otherButtonsAndDoubleClicksDrawNothing();
    void toolChangeInMidDragLeavesNoMark();
    void modeChangeInMidDragIsClearedAtTheNextPress();
    void pressOnAMarkDrawsAndSelects();
    void laterMarkIsDrawnOnTop();
};

void TestDragTools::dragsAtTheThreshold_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<QPointF>("way");
    QTest::addColumn<bool>("lineAndShape");
    QTest::addColumn<bool>("bracket");
    for (const int zoom : {100, 200}) {
        const auto row = [zoom](double x, double y, bool lineAndShape, bool bracket) {
            QTest::addRow("%d %%: (%g, %g)", zoom, x, y) << zoom << QPointF(x, y) << lineAndShape << bracket;
        };
        row(0, 0, false, false);
        row(2, 0, false, false);
        row(1, -1, false, false);
        row(2, 1, true, false);
        row(-1, 2, true, false);
        row(3, 0, true, false);
        row(3, 1, true, true);
        row(-3, -1, true, true);
        row(200, 100, true, true);
    }
    // A flat shape of width 2 and less than 1 high.
    QTest::newRow("200 %: (2, 0.5)") << 200 << QPointF(2, 0.5) << false << false;
    QTest::newRow("200 %: (3, 0.5)") << 200 << QPointF(3, 0.5) << true << false;
}

void TestDragTools::dragsAtTheThreshold()
{
    QFETCH(int, zoom);
    QFETCH(QPointF, way);
    QFETCH(bool, lineAndShape);
    QFETCH(bool, bracket);
    LineTool lineTool(4);
    BracketTool bracketTool(0);
    ShapeTool shapeTool(0, false);
    const QList<std::pair<DrawingTool *, bool>> cases{
        {&lineTool, lineAndShape}, {&shapeTool, lineAndShape}, {&bracketTool, bracket}};
    for (const auto &[tool, draws] : cases) {
        GestureStage stage(zoom);
        stage.use(tool);
        stage.drag(start, {start + way});
        QCOMPARE(stage.marks().size(), draws ? 1 : 0);
        QCOMPARE(stage.undoSteps(), draws ? 1 : 0);
        QVERIFY(!tool->annotation());
    }
}

void TestDragTools::lineStartsAtThePress()
{
    QFETCH(int, zoom);
    GestureStage stage(zoom);
    LineTool tool(4);
    stage.use(&tool);
    stage.drag(start, {{300, 300}, {150, 80}});
    auto *line = stage.only<LineAnn>();
    QVERIFY(line);
    QCOMPARE(line->pos(), start);
    QCOMPARE(line->line(), QLineF(0, 0, 50, -20));
    QVERIFY(line->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(line->flags().testFlag(QGraphicsItem::ItemIsSelectable));
}

void TestDragTools::bracketStartsAtThePress()
{
    GestureStage stage;
    BracketTool tool(0);
    stage.use(&tool);
    stage.drag(start, {{100, 200}});
    auto *bracket = stage.only<BracketAnn>();
    QVERIFY(bracket);
    QCOMPARE(bracket->pos(), start);
    QCOMPARE(bracket->line(), QLineF(0, 0, 0, 100));
    QVERIFY(bracket->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(bracket->flags().testFlag(QGraphicsItem::ItemIsSelectable));
}

void TestDragTools::shapeLiesBetweenPressAndRelease_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QPointF>("end");
    QTest::addColumn<QPointF>("pos");
    for (const int kind : {0, 1, 2}) {
        QTest::addRow("%d: to the bottom right", kind) << kind << QPointF(140, 130) << QPointF(100, 100);
        QTest::addRow("%d: to the top left", kind) << kind << QPointF(60, 70) << QPointF(60, 70);
        QTest::addRow("%d: to the top right", kind) << kind << QPointF(140, 70) << QPointF(100, 70);
        QTest::addRow("%d: to the bottom left", kind) << kind << QPointF(60, 130) << QPointF(60, 100);
    }
}

void TestDragTools::shapeLiesBetweenPressAndRelease()
{
    QFETCH(int, kind);
    QFETCH(QPointF, end);
    QFETCH(QPointF, pos);
    for (const int zoom : {100, 200}) {
        GestureStage stage(zoom);
        ShapeTool tool(kind, false);
        stage.use(&tool);
        stage.drag(start, {{200, 50}, end});
        auto *shape = stage.only<ShapeAnn>();
        QVERIFY(shape);
        QCOMPARE(shape->box(), QRectF(0, 0, 40, 30));
        QCOMPARE(shape->item().pos(), pos);
    }
}

void TestDragTools::releasePointCountsWithoutAMove()
{
    LineTool lineTool(0);
    const auto line = pressedAndReleased(lineTool, start, {110, 120});
    QCOMPARE(dynamic_cast<LineAnn *>(line.get())->line(), QLineF(0, 0, 10, 20));
    ShapeTool shapeTool(2, false);
    const auto shape = pressedAndReleased(shapeTool, start, {90, 120});
    QCOMPARE(dynamic_cast<ShapeAnn *>(shape.get())->box(), QRectF(0, 0, 10, 20));
    QCOMPARE(dynamic_cast<ShapeAnn *>(shape.get())->item().pos(), QPointF(90, 100));
}

void TestDragTools::kindsOfLines_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("style");
    for (int kind = 0; kind < 8; ++kind)
        QTest::addRow("%d", kind) << kind << kind;
    QTest::newRow("-1 leaves the plain line") << -1 << 0;
    QTest::newRow("8 leaves the plain line") << 8 << 0;
}

void TestDragTools::kindsOfLines()
{
    QFETCH(int, kind);
    QFETCH(int, style);
    LineTool tool(kind);
    const auto mark = pressedAndReleased(tool, start, {150, 150});
    QCOMPARE(dynamic_cast<LineAnn *>(mark.get())->style(), style);
}

void TestDragTools::kindsOfBrackets()
{
    for (const auto &[kind, style] : {std::pair(0, 0), {1, 1}, {2, 1}, {-1, 1}}) {
        BracketTool tool(kind);
        const auto mark = pressedAndReleased(tool, start, {150, 150});
        QCOMPARE(dynamic_cast<BracketAnn *>(mark.get())->style(), style);
    }
}

void TestDragTools::kindsOfShapes_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("ellipse");
    QTest::addColumn<bool>("rounded");
    QTest::newRow("rectangle") << 0 << false << false;
    QTest::newRow("rounded rectangle") << 1 << false << true;
    QTest::newRow("ellipse") << 2 << true << false;
    QTest::newRow("any other is a rectangle") << 3 << false << false;
}

void TestDragTools::kindsOfShapes()
{
    QFETCH(int, kind);
    QFETCH(bool, ellipse);
    QFETCH(bool, rounded);
    ShapeTool tool(kind, false);
    const auto mark = pressedAndReleased(tool, start, {150, 150});
    QCOMPARE(dynamic_cast<EllipseAnn *>(mark.get()) != nullptr, ellipse);
    const auto *rectangle = dynamic_cast<RectangleAnn *>(mark.get());
    QCOMPARE(rectangle != nullptr, !ellipse);
    QCOMPARE(rectangle && rectangle->rounded(), rounded);
}

void TestDragTools::lookIsHandedOn()
{
    QSettings settings;
    settings.setValue("LineTool/LineWidth", 3);
    settings.setValue("LineTool/LineStyle", "Dash");
    settings.setValue("ShapeTool/LineWidth", 4);
    settings.setValue("ShapeTool/LineStyle", "Dot");
    settings.setValue("ShapeTool/Transparency", 20);
    LineTool lineTool(0);
    BracketTool bracketTool(0);
    ShapeTool shapeTool(0, true);
    for (DrawingTool *tool : std::initializer_list<DrawingTool *>{&lineTool, &bracketTool, &shapeTool}) {
        tool->updateSettings();
        tool->setPenColor(QColor(10, 20, 30));
        tool->setBrushColor(QColor(40, 50, 60));
    }
    const auto line = pressedAndReleased(lineTool, start, {150, 150});
    QCOMPARE(dynamic_cast<LineAnn *>(line.get())->pen(), QPen(QColor(10, 20, 30), 3, Qt::DashLine));
    QVERIFY(line->antialiasing());
    const auto bracket = pressedAndReleased(bracketTool, start, {150, 150});
    QCOMPARE(dynamic_cast<BracketAnn *>(bracket.get())->pen(), QPen(QColor(10, 20, 30), 3, Qt::DashLine));
    const auto shape = pressedAndReleased(shapeTool, start, {150, 150});
    QCOMPARE(dynamic_cast<RectangleAnn *>(shape.get())->pen(), QPen(QColor(10, 20, 30), 4, Qt::DotLine));
    QCOMPARE(dynamic_cast<RectangleAnn *>(shape.get())->brush(), QBrush(QColor(40, 50, 60, 204)));
    QVERIFY(shape->antialiasing());
}

void TestDragTools::bracketKeepsItsOwnAntialiasing()
{
    BracketTool tool(0);
    tool.updateSettings();
    QVERIFY(tool.antialiasing());
    QVERIFY(!pressedAndReleased(tool, start, {150, 150})->antialiasing());
}

void TestDragTools::newShapeIsTranslucent()
{
    const ShapeTool tool(0, true);
    QCOMPARE(tool.brush(), QBrush(QColor(0, 0, 0, 120)));
    QCOMPARE(tool.pen().color(), QColor(Qt::blue));
}

void TestDragTools::settingsOfLinesAndBrackets()
{
    LineTool line(0);
    BracketTool bracket(0);
    for (DrawingTool *tool : std::initializer_list<DrawingTool *>{&line, &bracket}) {
        tool->updateSettings();
        QCOMPARE(tool->pen().width(), 0);
        QCOMPARE(tool->pen().style(), Qt::SolidLine);
        QVERIFY(tool->antialiasing());
    }
    QSettings().setValue("LineTool/LineWidth", 5);
    QSettings().setValue("LineTool/Antialiasing", false);
    for (DrawingTool *tool : std::initializer_list<DrawingTool *>{&line, &bracket}) {
        tool->updateSettings();
        QCOMPARE(tool->pen().width(), 5);
        QCOMPARE(tool->pen().color(), QColor(Qt::blue));
        QVERIFY(!tool->antialiasing());
    }
}

void TestDragTools::settingsOfShapes()
{
    ShapeTool tool(0, true);
    tool.updateSettings();
    QCOMPARE(tool.pen(), QPen(QColor(Qt::blue), 1));
    QCOMPARE(tool.brush().color(), QColor(0, 0, 0, 102));
    QVERIFY(tool.antialiasing());
    QSettings settings;
    settings.setValue("ShapeTool/LineWidth", 6);
    settings.setValue("ShapeTool/Transparency", 100);
    settings.setValue("ShapeTool/Antialiasing", false);
    tool.updateSettings();
    QCOMPARE(tool.pen(), QPen(QColor(Qt::blue), 6)); // its alpha is not touched
    QCOMPARE(tool.brush().color(), QColor(0, 0, 0, 0));
    QVERIFY(!tool.antialiasing());
}

void TestDragTools::styleNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Qt::PenStyle>("line");
    QTest::addColumn<Qt::PenStyle>("others");
    // The tools start with a solid line, and names that they do not know leave the style.
    QTest::newRow("Solid") << "Solid" << Qt::SolidLine << Qt::SolidLine;
    QTest::newRow("Dash") << "Dash" << Qt::DashLine << Qt::DashLine;
    QTest::newRow("Dot") << "Dot" << Qt::DotLine << Qt::DotLine;
    QTest::newRow("Dash Dot") << "Dash Dot" << Qt::DashDotLine << Qt::SolidLine;
    QTest::newRow("Dash Dot Dot") << "Dash Dot Dot" << Qt::DashDotDotLine << Qt::SolidLine;
    QTest::newRow("Dash-Dot") << "Dash-Dot" << Qt::SolidLine << Qt::DashDotLine;
    QTest::newRow("Dash-Dot-Dot") << "Dash-Dot-Dot" << Qt::SolidLine << Qt::DashDotDotLine;
    QTest::newRow("lower case") << "dash" << Qt::SolidLine << Qt::SolidLine;
    QTest::newRow("blank behind") << "Dash " << Qt::SolidLine << Qt::SolidLine;
    QTest::newRow("empty") << "" << Qt::SolidLine << Qt::SolidLine;
}

void TestDragTools::styleNames()
{
    QFETCH(QString, name);
    QFETCH(Qt::PenStyle, line);
    QFETCH(Qt::PenStyle, others);
    QSettings().setValue("LineTool/LineStyle", name);
    QSettings().setValue("ShapeTool/LineStyle", name);
    LineTool lineTool(0);
    lineTool.updateSettings();
    BracketTool bracketTool(0);
    bracketTool.updateSettings();
    ShapeTool shapeTool(0, true);
    shapeTool.updateSettings();
    const auto lineMark = pressedAndReleased(lineTool, start, {150, 150});
    const auto bracketMark = pressedAndReleased(bracketTool, start, {150, 150});
    const auto shapeMark = pressedAndReleased(shapeTool, start, {150, 150});
    QCOMPARE(dynamic_cast<LineAnn *>(lineMark.get())->pen().style(), line);
    QCOMPARE(dynamic_cast<BracketAnn *>(bracketMark.get())->pen().style(), others);
    QCOMPARE(dynamic_cast<RectangleAnn *>(shapeMark.get())->pen().style(), others);
}

void TestDragTools::unknownStyleNameKeepsTheStyle()
{
    LineTool lineTool(0);
    BracketTool bracketTool(0);
    ShapeTool shapeTool(0, true);
    const auto styleOf = [](DrawingTool &tool, const char *name) {
        QSettings().setValue("LineTool/LineStyle", name);
        QSettings().setValue("ShapeTool/LineStyle", name);
        tool.updateSettings();
        const auto mark = pressedAndReleased(tool, start, {150, 150});
        if (const auto *line = dynamic_cast<QGraphicsLineItem *>(mark.get()))
            return line->pen().style();
        return dynamic_cast<QAbstractGraphicsShapeItem &>(*mark).pen().style();
    };
    for (DrawingTool *tool : std::initializer_list<DrawingTool *>{&lineTool, &bracketTool, &shapeTool}) {
        QCOMPARE(styleOf(*tool, "Dash"), Qt::DashLine);
        QCOMPARE(styleOf(*tool, "Dash Dot"), tool == &lineTool ? Qt::DashDotLine : Qt::DashLine);
        QCOMPARE(styleOf(*tool, "Dot"), Qt::DotLine);
        QCOMPARE(styleOf(*tool, "Dash-Dot"), tool == &lineTool ? Qt::DotLine : Qt::DashDotLine);
        QCOMPARE(styleOf(*tool, "no style"), tool == &lineTool ? Qt::DotLine : Qt::DashDotLine);
    }
}

void TestDragTools::settingsOutOfRangeAreClamped()
{
    QSettings settings;
    settings.setValue("LineTool/LineWidth", -1);
    settings.setValue("ShapeTool/LineWidth", 99999999);
    settings.setValue("ShapeTool/Transparency", -40);
    LineTool line(0);
    line.updateSettings();
    QCOMPARE(line.pen().width(), 0);
    ShapeTool shape(0, true);
    shape.updateSettings();
    QCOMPARE(shape.pen().width(), 1000);
    QCOMPARE(shape.brush().color().alpha(), 255);
}

void TestDragTools::markIsSeenInTheMaking_data()
{
    using MakeTool = std::function<DrawingTool *()>;
    QTest::addColumn<MakeTool>("makeTool");
    QTest::newRow("line") << MakeTool([] { return new LineTool(5); });
    QTest::newRow("bracket") << MakeTool([] { return new BracketTool(0); });
    QTest::newRow("rectangle") << MakeTool([] { return new ShapeTool(1, false); });
    QTest::newRow("ellipse") << MakeTool([] { return new ShapeTool(2, false); });
}

void TestDragTools::markIsSeenInTheMaking()
{
    QFETCH(std::function<DrawingTool *()>, makeTool);
    const std::unique_ptr<DrawingTool> tool(makeTool());
    GestureStage stage;
    stage.use(tool.get());
    const QRectF area(80, 80, 150, 150);
    const QImage empty = stage.picture(area);
    stage.press(start);
    stage.move({180, 160});
    const QImage making = stage.picture(area);
    QVERIFY(making != empty);
    QVERIFY(stage.marks().isEmpty());
    stage.release({180, 160});
    QCOMPARE(stage.marks().size(), 1);
    dynamic_cast<QGraphicsItem *>(stage.marks().constFirst())->setSelected(false);
    QCOMPARE(stage.picture(area), making);
}

void TestDragTools::moveRepaintsTheWholeScene()
{
    LineTool tool(0);
    GestureStage stage;
    stage.use(&tool);
    stage.press(start);
    QSignalSpy changes(&stage.page, &QGraphicsScene::changed);
    stage.move({200, 300});
    QTRY_VERIFY(!changes.isEmpty());
    const auto regions = changes.constFirst().constFirst().value<QList<QRectF>>();
    QCOMPARE(regions, QList<QRectF>{stage.page.sceneRect()});
}

void TestDragTools::droppedMarkIsWipedOff()
{
    ShapeTool tool(2, false);
    verifyDroppedMarkIsWipedOff(&tool, start);
}

void TestDragTools::otherButtonsAndDoubleClicksDrawNothing()
{
    GestureStage stage;
    LineTool lineTool(0);
    BracketTool bracketTool(0);
    ShapeTool shapeTool(0, false);
    for (DrawingTool *tool : std::initializer_list<DrawingTool *>{&lineTool, &bracketTool, &shapeTool}) {
        stage.use(tool);
        for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
            stage.press(start, button);
            stage.move({200, 200});
            stage.release({200, 200}, button);
        }
        stage.doubleClick(start);
        stage.move({300, 200});
        QVERIFY(!tool->annotation());
    }
    QVERIFY(stage.marks().isEmpty());
}

void TestDragTools::toolChangeInMidDragLeavesNoMark()
{
    GestureStage stage;
    LineTool line(0);
    ShapeTool shape(0, false);
    stage.use(&line);
    stage.press(start);
    stage.move({150, 150});
    stage.use(&shape);
    stage.release({200, 200});
    QVERIFY(stage.marks().isEmpty());
    stage.use(&line);
    stage.drag({300, 300}, {{350, 300}});
    QVERIFY(stage.only<LineAnn>());
    QCOMPARE(stage.only<LineAnn>()->pos(), QPointF(300, 300));
}

void TestDragTools::modeChangeInMidDragIsClearedAtTheNextPress()
{
    GestureStage stage;
    ShapeTool shape(0, false);
    stage.use(&shape);
    stage.press(start);
    stage.move({150, 150});
    stage.host.currentMode = TextMode;
    stage.release({200, 200});
    QVERIFY(stage.marks().isEmpty());
    QVERIFY(shape.annotation());
    stage.use(&shape);
    stage.click({300, 300});
    QVERIFY(!shape.annotation());
    QVERIFY(stage.marks().isEmpty());
}

void TestDragTools::pressOnAMarkDrawsAndSelects()
{
    GestureStage stage;
    ShapeTool shape(0, false);
    stage.use(&shape);
    stage.drag(start, {{200, 200}});
    auto *first = stage.only<RectangleAnn>();
    QVERIFY(first && !first->isSelected());
    stage.drag({150, 150}, {{300, 300}});
    QCOMPARE(stage.marks().size(), 2);
    QVERIFY(first->isSelected());
    QCOMPARE(first->pos(), start); // selected, but not dragged along
}

void TestDragTools::laterMarkIsDrawnOnTop()
{
    QSettings().setValue("ShapeTool/Transparency", 0);
    GestureStage stage;
    ShapeTool shape(0, true);
    shape.updateSettings();
    stage.use(&shape);
    shape.setBrushColor(Qt::red);
    stage.drag(start, {{200, 200}});
    shape.setBrushColor(Qt::blue);
    stage.drag({150, 150}, {{250, 250}});
    const QImage picture = stage.picture({0, 0, 300, 300});
    QCOMPARE(picture.pixelColor(120, 120), QColor(Qt::red));
    QCOMPARE(picture.pixelColor(175, 175), QColor(Qt::blue));
    for (Annotation *mark : stage.marks())
        QCOMPARE(dynamic_cast<QGraphicsItem *>(mark)->zValue(), 0.0);
}

REGISTER_TEST(TestDragTools)
#include "tst_dragtools.moc"
