// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/penline.h"
#include "annotations/rectangleann.h"
#include "annotations/textboxann.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/windowprobe.h"
#include "support/testmain.h"
#include "tools/drawingtool.h"
#include "tools/textboxtool.h"

#include <QActionGroup>
#include <QSettings>
#include <QTest>
#include <QWindow>

namespace {

const QPointF spot(200, 100);
const QPointF otherSpot(200, 300);

/// The window with real mouse and keys. Positions are scene coordinates of the page in front.
class Stage
{
public:
    explicit Stage(const QStringList &files) : window(files)
    {
        window->showWindow();
        window->resize(1000, 800);
        window->activateWindow();
    }

    bool isActive() const { return QTest::qWaitForWindowActive(&*window); }
    void press(const QPointF &pos, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mousePress(window->windowHandle(), button, {}, toWindow(pos));
    }
    void move(const QPointF &pos) const { QTest::mouseMove(window->windowHandle(), toWindow(pos)); }
    void release(const QPointF &pos, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseRelease(window->windowHandle(), button, {}, toWindow(pos));
    }
    void click(const QPointF &pos, Qt::MouseButton button = Qt::LeftButton) const
    {
        press(pos, button);
        release(pos, button);
    }
    void altKey(Qt::Key key) const { QTest::keyClick(window->windowHandle(), key, Qt::AltModifier); }
    void choose(const QByteArray &action) const { window.action(action.constData())->trigger(); }

    QList<Annotation *> marks() const
    {
        QList<Annotation *> found;
        for (QGraphicsItem *item : window.page()->items(Qt::AscendingOrder)) {
            if (auto *mark = dynamic_cast<Annotation *>(item))
                found.append(mark);
        }
        return found;
    }
    /// What the current tool has under construction.
    Annotation *pending() const
    {
        auto *tool = dynamic_cast<DrawingTool *>(window->currentTool());
        return tool ? tool->annotation() : nullptr;
    }

    WindowProbe window;

private:
    QPoint toWindow(const QPointF &pos) const
    {
        return window.view()->viewport()->mapTo(&*window, window.view()->mapFromScene(pos));
    }
};

} // namespace

class TestGestures : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void usedOnceTextBoxGivesWay_data();
    void usedOnceTextBoxGivesWay();
    void keyInMidDragEndsTheGesture_data();
    void keyInMidDragEndsTheGesture();
    void sameToolByKeyGoesOn();
    void keyInMidErasureRemovesNothing();
    void changeOfTheTabEndsTheGesture();
};

void TestGestures::usedOnceTextBoxGivesWay_data()
{
    QTest::addColumn<QByteArrayList>("actions");
    QTest::addColumn<QString>("back");
    QTest::newRow("medium red pen") << QByteArrayList{"actionMediumRedPen"} << "actionMediumRedPen";
    QTest::newRow("text mode") << QByteArrayList{"actionMediumRedPen", "actionToolTextMode"} << "actionMediumRedPen";
    QTest::newRow("transformation") << QByteArrayList{"actionToolPen", "actionTransformationMode"} << "actionToolPen";
    QTest::newRow("marker") << QByteArrayList{"actionToolMarker"} << "actionToolMarker";
}

void TestGestures::usedOnceTextBoxGivesWay()
{
    QFETCH(const QByteArrayList, actions);
    QFETCH(const QString, back);
    QSettings().setValue(QStringLiteral("TextBoxTool/UseOnce"), true);
    const TestFiles files;
    const Stage stage({files.write(QStringLiteral("a.txt"))});
    QVERIFY(stage.isActive());
    for (const QByteArray &action : actions)
        stage.choose(action);
    const Tool *before = stage.window->currentTool();
    stage.choose("actionTextBox");

    stage.click(spot);
    QCOMPARE(stage.marks().size(), 1);
    QVERIFY(dynamic_cast<TextBoxAnn *>(stage.marks().constFirst()));
    QVERIFY(dynamic_cast<TextBoxTool *>(stage.window->currentTool()));

    // The next press on free space leaves the tool and places nothing.
    stage.press(otherSpot);
    QCOMPARE(stage.window->currentTool(), before);
    stage.release(otherSpot);
    QCOMPARE(stage.marks().size(), 1);
    QCOMPARE(stage.window.action("actionToolPen")->actionGroup()->checkedAction()->objectName(), back);
    QCOMPARE(stage.window->mode(), int(ToolMode));

    // The tool that is back draws.
    stage.press(otherSpot);
    for (const QPointF &point : {QPointF(230, 300), QPointF(260, 310), QPointF(290, 300)})
        stage.move(point);
    stage.release({290, 300});
    QCOMPARE(stage.marks().size(), 2);
    QVERIFY(dynamic_cast<Stroke *>(stage.marks().constLast()));
}

void TestGestures::keyInMidDragEndsTheGesture_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("pen, marker") << QByteArray("actionToolPen") << Qt::Key_M;
    QTest::newRow("pen, text mode") << QByteArray("actionToolPen") << Qt::Key_T;
    QTest::newRow("pen, transformation") << QByteArray("actionToolPen") << Qt::Key_S;
    QTest::newRow("marker, eraser") << QByteArray("actionToolMarker") << Qt::Key_E;
    QTest::newRow("predefined pen, pen") << QByteArray("actionMediumRedPen") << Qt::Key_P;
    QTest::newRow("ellipse, rectangle") << QByteArray("actionToolEllipse") << Qt::Key_R;
    QTest::newRow("ellipse, text mode") << QByteArray("actionToolEllipse") << Qt::Key_T;
    QTest::newRow("line, pen") << QByteArray("actionArrow") << Qt::Key_P;
    QTest::newRow("line, transformation") << QByteArray("actionArrow") << Qt::Key_S;
    QTest::newRow("bracket, text mode") << QByteArray("actionCurlyBracket") << Qt::Key_T;
    QTest::newRow("text box, pen") << QByteArray("actionTextBox") << Qt::Key_P;
    QTest::newRow("text box, text mode") << QByteArray("actionTextBox") << Qt::Key_T;
}

void TestGestures::keyInMidDragEndsTheGesture()
{
    QFETCH(const QByteArray, action);
    QFETCH(const Qt::Key, key);
    const TestFiles files;
    const Stage stage({files.write(QStringLiteral("a.txt"))});
    QVERIFY(stage.isActive());
    stage.choose(action);
    auto *tool = dynamic_cast<DrawingTool *>(stage.window->currentTool());
    QVERIFY(tool);
    stage.press(spot);
    stage.move({300, 200});
    stage.move({320, 250});
    stage.altKey(key);
    QVERIFY(stage.window->currentTool() != tool || stage.window->mode() != ToolMode);
    QVERIFY(!tool->annotation());
    stage.release({320, 250});
    QVERIFY(stage.marks().isEmpty());

    // Current again, the tool knows nothing of it: moves and other buttons do nothing.
    stage.choose(action);
    QCOMPARE(stage.window->currentTool(), tool);
    stage.move({330, 260});
    QVERIFY(!tool->annotation());
    stage.click({330, 260}, Qt::MiddleButton);
    QVERIFY(stage.marks().isEmpty());
    QVERIFY(!stage.window.page()->isModified());

    stage.press(otherSpot);
    stage.move({230, 310});
    stage.move({260, 350});
    stage.move({290, 390});
    stage.release({290, 390});
    QCOMPARE(stage.marks().size(), 1);
}

void TestGestures::sameToolByKeyGoesOn()
{
    const TestFiles files;
    const Stage stage({files.write(QStringLiteral("a.txt"))});
    QVERIFY(stage.isActive());
    stage.choose("actionToolPen");
    stage.press(spot);
    stage.move({300, 200});
    stage.altKey(Qt::Key_P);
    stage.move({320, 250});
    stage.release({320, 250});
    QCOMPARE(stage.marks().size(), 1);
    QCOMPARE(dynamic_cast<PenLine &>(*stage.marks().constFirst()).polygon().size(), 2);
}

void TestGestures::keyInMidErasureRemovesNothing()
{
    const TestFiles files;
    const Stage stage({files.write(QStringLiteral("a.txt"))});
    QVERIFY(stage.isActive());
    auto *mark = new RectangleAnn;
    mark->setRect(150, 50, 100, 100);
    mark->setFlag(QGraphicsItem::ItemIsSelectable);
    stage.window.page()->addAnnotation(mark);
    stage.choose("actionToolEraser");
    stage.press(spot);
    QVERIFY(mark->isSelected());
    stage.altKey(Qt::Key_P);
    stage.release(spot);
    stage.choose("actionToolEraser");
    stage.click(otherSpot, Qt::MiddleButton);
    QVERIFY(mark->isSelected());
    QCOMPARE(stage.marks(), QList<Annotation *>{mark});
    stage.click(spot);
    QVERIFY(stage.marks().isEmpty());
}

void TestGestures::changeOfTheTabEndsTheGesture()
{
    const TestFiles files;
    const Stage stage({files.write(QStringLiteral("a.txt")), files.write(QStringLiteral("b.txt"))});
    QVERIFY(stage.isActive());
    stage.choose("actionToolPen");
    stage.press(spot);
    stage.move({300, 200});
    QVERIFY(stage.pending());
    stage.window.stack()->setCurrentIndex(0);
    QVERIFY(!stage.pending());
    stage.move({310, 220});
    stage.release({310, 220});
    QVERIFY(stage.marks().isEmpty());
    stage.window.stack()->setCurrentIndex(1);
    QVERIFY(stage.marks().isEmpty());
}

REGISTER_TEST(TestGestures)
#include "tst_gestures.moc"
