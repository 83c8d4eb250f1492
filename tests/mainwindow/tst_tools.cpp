// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/windowprobe.h"
#include "support/testmain.h"
#include "tools/brackettool.h"
#include "tools/erasertool.h"
#include "tools/linetool.h"
#include "tools/markertool.h"
#include "tools/pentool.h"
#include "tools/screenshottool.h"
#include "tools/shapetool.h"
#include "tools/textboxtool.h"
#include "widgets/qtcolorpicker.h"

#include <QActionGroup>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>
#include <QTest>

namespace {

enum Kind { Pen, Marker, Line, Shape, Bracket, TextBox, Eraser, Snapshot };

bool isKind(Tool *tool, Kind kind)
{
    switch (kind) {
    case Pen:
        return dynamic_cast<PenTool *>(tool) != nullptr;
    case Marker:
        return dynamic_cast<MarkerTool *>(tool) != nullptr;
    case Line:
        return dynamic_cast<LineTool *>(tool) != nullptr;
    case Shape:
        return dynamic_cast<ShapeTool *>(tool) != nullptr;
    case Bracket:
        return dynamic_cast<BracketTool *>(tool) != nullptr;
    case TextBox:
        return dynamic_cast<TextBoxTool *>(tool) != nullptr;
    case Eraser:
        return dynamic_cast<EraserTool *>(tool) != nullptr;
    case Snapshot:
        return dynamic_cast<ScreenShotTool *>(tool) != nullptr;
    }
    return false;
}

/// One action that selects a tool, and what it selects.
struct ToolRow
{
    const char *action;
    Kind kind;
    bool followsSettings;
    int width;    ///< Of the tool's pen after selection under default settings; -1 for a tool without a pen.
    QColor color; ///< Red, green and blue of a predefined tool; invalid for one that takes the picker's colour.
    const char *trace;
};

const QList<ToolRow> &toolRows()
{
    static const QList<ToolRow> rows{
        {"actionToolMarker", Marker, true, 14, {}, ""},
        {"actionTextBox", TextBox, true, 0, {}, "Use text box"},
        {"actionToolEraser", Eraser, true, -1, {}, "Using eraser"},
        {"actionTakeScreenShot", Snapshot, true, -1, {}, "Screenshot tool"},
        {"actionSimpleLine", Line, true, 0, {}, "Use line, style Id: 0"},
        {"actionEmptyCirclesLine", Line, true, 0, {}, "Use line, style Id: 1"},
        {"actionFilledCirclesLine", Line, true, 0, {}, "Use line, style Id: 2"},
        {"actionFilledEmptyCirclesLine", Line, true, 0, {}, "Use line, style Id: 3"},
        {"actionArrow", Line, true, 0, {}, "Use line, style Id: 4"},
        {"actionTwoArrows", Line, true, 0, {}, "Use line, style Id: 5"},
        {"actionEmptyCircleArrow", Line, true, 0, {}, "Use line, style Id: 6"},
        {"actionFilledCircleArrow", Line, true, 0, {}, "Use line, style Id: 7"},
        {"actionToolRectangle", Shape, true, 1, {}, "Using shape, id: 0"},
        {"actionToolRoundedRectangle", Shape, true, 1, {}, "Using shape, id: 1"},
        {"actionToolEllipse", Shape, true, 1, {}, "Using shape, id: 2"},
        {"actionCurlyBracket", Bracket, true, 0, {}, "Use bracket, Id: 0"},
        {"actionRectBracket", Bracket, true, 0, {}, "Use bracket, Id: 1"},
        {"actionThinBlackPen", Pen, false, 1, {10, 10, 10}, "Use predefined tool, Id: 0"},
        {"actionThinRedPen", Pen, false, 1, {255, 10, 10}, "Use predefined tool, Id: 1"},
        {"actionThinGreenPen", Pen, false, 1, {10, 255, 10}, "Use predefined tool, Id: 2"},
        {"actionThinBluePen", Pen, false, 1, {10, 10, 255}, "Use predefined tool, Id: 3"},
        {"actionMediumBlackPen", Pen, false, 4, {10, 10, 10}, "Use predefined tool, Id: 4"},
        {"actionMediumRedPen", Pen, false, 4, {255, 10, 10}, "Use predefined tool, Id: 5"},
        {"actionMediumGreenPen", Pen, false, 4, {10, 255, 10}, "Use predefined tool, Id: 6"},
        {"actionMediumBluePen", Pen, false, 4, {10, 10, 255}, "Use predefined tool, Id: 7"},
        {"actionRedMarker", Marker, false, 17, {255, 10, 10}, "Use predefined tool, Id: 8"},
        {"actionGreenMarker", Marker, false, 17, {10, 255, 10}, "Use predefined tool, Id: 9"},
        {"actionBlueMarker", Marker, false, 17, {10, 10, 255}, "Use predefined tool, Id: 10"},
        {"actionYellowMarker", Marker, false, 17, {255, 255, 10}, "Use predefined tool, Id: 11"},
    };
    return rows;
}

using IdSlot = void (Scrivara::*)(int);

QPen penOf(const WindowProbe &window)
{
    auto *tool = dynamic_cast<DrawingTool *>(window->currentTool());
    return tool == nullptr ? QPen(Qt::NoPen) : tool->pen();
}

QImage cursorPicture(const QCursor &cursor)
{
    return cursor.pixmap().toImage();
}

QString checkedTool(const WindowProbe &window)
{
    return window.action("actionToolPen")->actionGroup()->checkedAction()->objectName();
}

} // namespace

Q_DECLARE_METATYPE(IdSlot)

class TestTools : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsWithThePen();
    void selection_data();
    void selection();
    void instancesAreDistinct();
    void noActionWithoutDocument();
    void falseChangesNothing();
    void textMode();
    void transformMode();
    void modesKeepTheTool();
    void pickerColorReachesTheTools();
    void shapeTakesBothColors();
    void predefinedToolSetsThePicker();
    void predefinedToolIgnoresThePicker();
    void penInheritsFromPredefined();
    void colorWhileErasing();
    void colorInTextMode();
    void fillColorOfThePen();
    void restore_data();
    void restore();
    void restoreSameTool();
    void idsOutOfRange();
    void idOutOfRangeRecordsTheAction_data();
    void idOutOfRangeRecordsTheAction();
    void uncheckRunsTheFamily();
    void selectedToolReadsItsSettings();
    void updateReachesTheCurrentTool();
    void defaultPenColorFromTheStore();
    void cursorFollowsTheTool();
    void newViewsGetTheCursor();
    void tabChangeCorrectsTheCursor();
};

void TestTools::init()
{
    QSettings().clear();
}

void TestTools::startsWithThePen()
{
    const WindowProbe window;
    QVERIFY(isKind(window->currentTool(), Pen));
    QVERIFY(window->currentTool()->followsSettings());
    QCOMPARE(checkedTool(window), QStringLiteral("actionToolPen"));
    QCOMPARE(window->mode(), int(ToolMode));
    QCOMPARE(penOf(window).color(), QColor("#0a0aa2"));
    QCOMPARE(penOf(window).width(), 1);
}

void TestTools::selection_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < toolRows().size(); ++row)
        QTest::newRow(toolRows().at(row).action) << row;
}

void TestTools::selection()
{
    QFETCH(const int, row);
    const ToolRow &expected = toolRows().at(row);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    const Tool *pen = window->currentTool();
    window->setTransformMode(true);
    LogProbe log;
    window.action(expected.action)->trigger();
    const QStringList trace = log.traceSinceMark();
    if (*expected.trace != '\0')
        QVERIFY2(trace.contains(QString::fromLatin1(expected.trace)), qPrintable(trace.join('\n')));
    QVERIFY(isKind(window->currentTool(), expected.kind));
    QCOMPARE(window->currentTool()->followsSettings(), expected.followsSettings);
    QCOMPARE(window->mode(), int(ToolMode));
    QCOMPARE(checkedTool(window), QString::fromLatin1(expected.action));
    if (expected.width >= 0)
        QCOMPARE(penOf(window).width(), expected.width);
    if (expected.color.isValid()) {
        QCOMPARE(penOf(window).color().rgb(), expected.color.rgb());
        QCOMPARE(window.linePicker()->currentColor().rgb(), expected.color.rgb());
    } else if (expected.width >= 0) {
        QCOMPARE(penOf(window).color().rgb(), QColor("#0a0aa2").rgb());
    }
    QCOMPARE(cursorPicture(window.view()->cursor()), cursorPicture(window->currentTool()->makeCursor()));
    // The previous tool is the one before, not the mode.
    window->restorePreviousTool();
    QCOMPARE(window->currentTool(), pen);
    QCOMPARE(checkedTool(window), QStringLiteral("actionToolPen"));
}

void TestTools::instancesAreDistinct()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QSet<Tool *> tools{window->currentTool()};
    for (const ToolRow &row : toolRows()) {
        window.action(row.action)->trigger();
        tools.insert(window->currentTool());
    }
    QCOMPARE(tools.size(), 30);
    // Built once: the second round meets the same ones.
    for (const ToolRow &row : toolRows()) {
        window.action(row.action)->trigger();
        QVERIFY(tools.contains(window->currentTool()));
    }
}

void TestTools::noActionWithoutDocument()
{
    const WindowProbe window;
    const Tool *pen = window->currentTool();
    for (const ToolRow &row : toolRows())
        window.action(row.action)->trigger();
    QCOMPARE(window->currentTool(), pen);
    QVERIFY(window.action("actionToolPen")->isChecked());
}

void TestTools::falseChangesNothing()
{
    const WindowProbe window;
    window->setTransformMode(true);
    const Tool *tool = window->currentTool();
    LogProbe log;
    window->usePen(false);
    window->useMarker(false);
    window->useTextBox(false);
    window->useEraser(false);
    window->useScreenShot(false);
    window->setTextMode(false);
    window->setTransformMode(false);
    QCOMPARE(log.traceSinceMark(), QStringList());
    QCOMPARE(window->currentTool(), tool);
    QCOMPARE(window->mode(), int(TransformMode));
}

void TestTools::textMode()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    LogProbe log;
    window.action("actionToolTextMode")->trigger();
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Set text mode")));
    QCOMPARE(window->mode(), int(TextMode));
    QCOMPARE(window.view()->cursor().shape(), Qt::IBeamCursor);
}

void TestTools::transformMode()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    LogProbe log;
    window.action("actionTransformationMode")->trigger();
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Set transform mode")));
    QCOMPARE(window->mode(), int(TransformMode));
    QCOMPARE(window.view()->cursor().shape(), Qt::ArrowCursor);
}

void TestTools::modesKeepTheTool()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionMediumRedPen")->trigger();
    const Tool *red = window->currentTool();
    window.action("actionToolTextMode")->trigger();
    window.action("actionTransformationMode")->trigger();
    QCOMPARE(window->currentTool(), red);
    window.action("actionToolEraser")->trigger();
    window->restorePreviousTool();
    QCOMPARE(window->currentTool(), red);
    QCOMPARE(window->mode(), int(ToolMode));
}

void TestTools::pickerColorReachesTheTools()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.linePicker()->setCurrentColor(Qt::darkGreen);
    QCOMPARE(penOf(window).color().rgb(), QColor(Qt::darkGreen).rgb());
    for (const ToolRow &row : toolRows()) {
        if (row.color.isValid() || row.width < 0)
            continue;
        window.action(row.action)->trigger();
        QCOMPARE(penOf(window).color().rgb(), QColor(Qt::darkGreen).rgb());
    }
}

void TestTools::shapeTakesBothColors()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.fillPicker()->setCurrentColor(Qt::yellow);
    window.action("actionToolEllipse")->trigger();
    auto *shape = dynamic_cast<DrawingTool *>(window->currentTool());
    QCOMPARE(shape->brush().color().rgb(), QColor(Qt::yellow).rgb());
    QCOMPARE(shape->brush().color().alpha(), 102);
    window.fillPicker()->setCurrentColor(Qt::cyan);
    QCOMPARE(shape->brush().color().rgb(), QColor(Qt::cyan).rgb());
    QCOMPARE(shape->brush().color().alpha(), 102);
}

void TestTools::predefinedToolSetsThePicker()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionYellowMarker")->trigger();
    QCOMPARE(window.linePicker()->currentColor(), penOf(window).color());
    QCOMPARE(penOf(window).color().alpha(), 120);
}

void TestTools::predefinedToolIgnoresThePicker()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionThinRedPen")->trigger();
    window.linePicker()->setCurrentColor(Qt::blue);
    QCOMPARE(penOf(window).color(), QColor(255, 10, 10));
}

void TestTools::penInheritsFromPredefined()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionMediumGreenPen")->trigger();
    window.action("actionToolPen")->trigger();
    QCOMPARE(penOf(window).color().rgb(), QColor(10, 255, 10).rgb());
}

void TestTools::colorWhileErasing()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionToolEraser")->trigger();
    LogProbe log;
    window->lineColor(Qt::green);
    window->fillColor(Qt::green);
    QCOMPARE(log.traceSinceMark(), QStringList());
    window.linePicker()->setCurrentColor(Qt::magenta);
    window.action("actionToolPen")->trigger();
    QCOMPARE(penOf(window).color().rgb(), QColor(Qt::magenta).rgb());
}

void TestTools::colorInTextMode()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionToolTextMode")->trigger();
    window.linePicker()->setCurrentColor(Qt::red);
    QCOMPARE(penOf(window).color().rgb(), QColor(Qt::red).rgb());
    QCOMPARE(window->mode(), int(TextMode));
}

void TestTools::fillColorOfThePen()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.fillPicker()->setCurrentColor(Qt::red);
    auto *pen = dynamic_cast<DrawingTool *>(window->currentTool());
    QCOMPARE(pen->brush().color().rgb(), QColor(Qt::red).rgb());
}

void TestTools::restore_data()
{
    QTest::addColumn<QByteArrayList>("actions");
    QTest::addColumn<QString>("back");
    const auto add = [](const char *name, const QByteArrayList &actions, const char *back) {
        QTest::newRow(name) << actions << QString::fromLatin1(back);
    };
    add("pen, text box", {"actionTextBox"}, "actionToolPen");
    add("medium red, text box", {"actionMediumRedPen", "actionTextBox"}, "actionMediumRedPen");
    add("line, text box", {"actionArrow", "actionTextBox"}, "actionArrow");
    add("shape, snapshot", {"actionToolEllipse", "actionTakeScreenShot"}, "actionToolEllipse");
    add("bracket, text box", {"actionRectBracket", "actionTextBox"}, "actionRectBracket");
    add("line, other line", {"actionArrow", "actionSimpleLine"}, "actionArrow");
    add("line, shape", {"actionArrow", "actionToolRectangle"}, "actionArrow");
    add("marker, eraser", {"actionToolMarker", "actionToolEraser"}, "actionToolMarker");
    add("line, text mode, snapshot", {"actionArrow", "actionToolTextMode", "actionTakeScreenShot"}, "actionArrow");
    add("pen, text mode, text box", {"actionToolTextMode", "actionTextBox"}, "actionToolPen");
}

void TestTools::restore()
{
    QFETCH(const QByteArrayList, actions);
    QFETCH(const QString, back);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    for (const QByteArray &name : actions)
        window.action(name.constData())->trigger();
    window->restorePreviousTool();
    QCOMPARE(checkedTool(window), back);
    QCOMPARE(window->mode(), int(ToolMode));
    const Tool *restored = window->currentTool();
    window.action(back.toLatin1().constData())->trigger();
    QCOMPARE(window->currentTool(), restored);
}

void TestTools::restoreSameTool()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    const Tool *pen = window->currentTool();
    window->restorePreviousTool();
    QCOMPARE(window->currentTool(), pen);
    QCOMPARE(checkedTool(window), QStringLiteral("actionToolPen"));
}

void TestTools::idsOutOfRange()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionToolEraser")->trigger();
    Tool *eraser = window->currentTool();
    window->setTransformMode(true);
    LogProbe log;
    window->useBracket(5);
    window->useBracket(-1);
    QCOMPARE(log.traceSinceMark(), QStringList());
    QCOMPARE(window->mode(), int(TransformMode));

    for (const int id : {8, 9, -1}) {
        window->setTransformMode(true);
        window->useLine(id);
        QCOMPARE(window->currentTool(), eraser);
        QCOMPARE(window->mode(), int(ToolMode));
    }
    window->setTransformMode(true);
    window->useShape(5);
    QCOMPARE(window->currentTool(), eraser);
    QCOMPARE(window->mode(), int(ToolMode));
    window->setTransformMode(true);
    window->usePredefinedTool(12);
    QCOMPARE(window->currentTool(), eraser);
    QCOMPARE(window->mode(), int(ToolMode));
}

void TestTools::idOutOfRangeRecordsTheAction_data()
{
    QTest::addColumn<IdSlot>("use");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("back");
    QTest::newRow("line") << &Scrivara::useLine << 9 << "actionToolEraser";
    QTest::newRow("shape") << &Scrivara::useShape << 5 << "actionToolEraser";
    QTest::newRow("predefined tool") << &Scrivara::usePredefinedTool << 12 << "actionToolEraser";
    QTest::newRow("bracket") << &Scrivara::useBracket << 5 << "actionToolPen";
}

void TestTools::idOutOfRangeRecordsTheAction()
{
    QFETCH(const IdSlot, use);
    QFETCH(const int, id);
    QFETCH(const QString, back);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionToolEraser")->trigger();
    ((*window).*use)(id);
    QVERIFY(isKind(window->currentTool(), Eraser));
    window->restorePreviousTool();
    QCOMPARE(checkedTool(window), back);
    QCOMPARE(isKind(window->currentTool(), Eraser), back == QLatin1String("actionToolEraser"));
}

void TestTools::uncheckRunsTheFamily()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionArrow")->trigger();
    LogProbe log;
    window.action("actionToolPen")->trigger();
    QCOMPARE(log.traceSinceMark().filter(QStringLiteral("Use line")), QStringList{"Use line, style Id: 4"});
    window.action("actionToolEllipse")->trigger();
    log.mark();
    window.action("actionCurlyBracket")->trigger();
    QCOMPARE(log.traceSinceMark().filter(QRegularExpression(QStringLiteral("^Us(e|ing) "))),
             (QStringList{"Using shape, id: 2", "Use bracket, Id: 0"}));
}

void TestTools::selectedToolReadsItsSettings()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QSettings().setValue(QStringLiteral("MarkerTool/LineWidth"), 33);
    window.action("actionToolMarker")->trigger();
    QCOMPARE(penOf(window).width(), 33);
    window.action("actionRedMarker")->trigger();
    QCOMPARE(penOf(window).width(), 17);
}

void TestTools::updateReachesTheCurrentTool()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionArrow")->trigger();
    QSettings().setValue(QStringLiteral("LineTool/LineWidth"), 6);
    // Whatever applies the settings anew; here the fall-back to the tool that is current already.
    window.action("actionArrow")->trigger();
    QCOMPARE(penOf(window).width(), 0);
    window.action("actionToolPen")->trigger();
    window->restorePreviousTool();
    QCOMPARE(penOf(window).width(), 6);
}

void TestTools::defaultPenColorFromTheStore()
{
    QSettings().setValue(QStringLiteral("General/PenColor"), QStringLiteral("#123456"));
    const WindowProbe window;
    QCOMPARE(penOf(window).color(), QColor("#123456"));
    QCOMPARE(window.linePicker()->currentColor(), QColor("#123456"));
}

void TestTools::cursorFollowsTheTool()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    const QImage before = cursorPicture(window.view()->cursor());
    window.linePicker()->setCurrentColor(Qt::red);
    const QImage after = cursorPicture(window.view()->cursor());
    QVERIFY(before != after);
    QCOMPARE(after, cursorPicture(window->currentTool()->makeCursor()));
}

void TestTools::newViewsGetTheCursor()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QCOMPARE(cursorPicture(window.view()->cursor()), cursorPicture(window->currentTool()->makeCursor()));
}

void TestTools::tabChangeCorrectsTheCursor()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt")), files.write(QStringLiteral("b.txt"))});
    window.action("actionToolTextMode")->trigger();
    window.stack()->setCurrentIndex(0);
    QCOMPARE(window.view()->cursor().shape(), Qt::IBeamCursor);
    window.action("actionTransformationMode")->trigger();
    window.stack()->setCurrentIndex(1);
    QCOMPARE(window.view()->cursor().shape(), Qt::ArrowCursor);
    window.action("actionToolPen")->trigger();
    window.stack()->setCurrentIndex(0);
    QCOMPARE(cursorPicture(window.view()->cursor()), cursorPicture(window->currentTool()->makeCursor()));
}

REGISTER_TEST(TestTools)
#include "tst_tools.moc"
