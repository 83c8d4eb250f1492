// SPDX-License-Identifier: GPL-3.0-or-later
// The same gestures with every tool at every zoom: what must hold whatever the tool draws.
#include "annotations/textboxann.h"
#include "support/dialogs.h"
#include "support/testmain.h"
#include "tools/brackettool.h"
#include "tools/erasertool.h"
#include "tools/gesturestage.h"
#include "tools/linetool.h"
#include "tools/markertool.h"
#include "tools/pentool.h"
#include "tools/shapetool.h"
#include "tools/textboxtool.h"

#include <QEvent>
#include <QGraphicsItem>
#include <QTest>

#include <functional>
#include <memory>

namespace {

struct ToolKind
{
    std::function<Tool *()> make;
    bool placesByClick = false; ///< A click is enough; a drag places where it ends.
    bool drawsNothing = false;  ///< The eraser.
    QPointF shortest;           ///< The shortest drag that draws, on whole pixels at 100 %.
    QPointF tooShort;           ///< A little less.
};

void addToolsAndZooms()
{
    const QPair<const char *, ToolKind> kinds[] = {
        {"pen", {[] { return new PenTool(Qt::red, 2, false); }, false, false, {2, 0}, {1, 1}}},
        {"marker", {[] { return new MarkerTool(Qt::yellow, false); }, false, false, {2, 0}, {1, 1}}},
        {"line", {[] { return new LineTool(4); }, false, false, {2, 1}, {2, 0}}},
        {"curly bracket", {[] { return new BracketTool(0); }, false, false, {3, 1}, {2, 2}}},
        {"rectangular bracket", {[] { return new BracketTool(1); }, false, false, {1, 3}, {0, 3}}},
        {"rectangle", {[] { return new ShapeTool(0, false); }, false, false, {1, 2}, {0, 2}}},
        {"round rectangle", {[] { return new ShapeTool(1, false); }, false, false, {3, 0}, {2, 0}}},
        {"ellipse", {[] { return new ShapeTool(2, false); }, false, false, {2, 1}, {1, 1}}},
        {"text box", {[] { return new TextBoxTool(nullptr, false); }, true, false, {}, {}}},
        {"eraser", {[] { return new EraserTool; }, false, true, {}, {}}},
    };
    QTest::addColumn<ToolKind>("kind");
    QTest::addColumn<int>("zoom");
    for (const auto &[name, kind] : kinds) {
        for (const int zoom : {100, 200})
            QTest::addRow("%s, %d %%", name, zoom) << kind << zoom;
    }
}

const QPointF start(100, 100);
const QPointF far(160, 140);

} // namespace

Q_DECLARE_METATYPE(ToolKind)

class TestGestures : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void click_data() { addToolsAndZooms(); }
    void click();
    void longDrag_data() { addToolsAndZooms(); }
    void longDrag();
    void dragsAtTheThreshold_data() { addToolsAndZooms(); }
    void dragsAtTheThreshold();
    void otherButtons_data() { addToolsAndZooms(); }
    void otherButtons();
    void doubleClick_data() { addToolsAndZooms(); }
    void doubleClick();
    void movesWithoutAButton_data() { addToolsAndZooms(); }
    void movesWithoutAButton();
    void leavingTheWindow_data() { addToolsAndZooms(); }
    void leavingTheWindow();
    void releaseThatNeverComes_data() { addToolsAndZooms(); }
    void releaseThatNeverComes();
    void toolChangeInMidDrag_data() { addToolsAndZooms(); }
    void toolChangeInMidDrag();
    void modeChangeInMidDrag_data() { addToolsAndZooms(); }
    void modeChangeInMidDrag();
    void secondButtonInMidDrag_data() { addToolsAndZooms(); }
    void secondButtonInMidDrag();
    void boxInMidDrag_data() { addToolsAndZooms(); }
    void boxInMidDrag();
    void menuInMidDrag_data() { addToolsAndZooms(); }
    void menuInMidDrag();
    void toolThatDiesInMidDrag_data() { addToolsAndZooms(); }
    void toolThatDiesInMidDrag();

private:
    /// Marks that a far drag leaves.
    qsizetype marksOfADrag() const { return m_kind.drawsNothing ? 0 : 1; }
    /// The gesture from start to far has left what it drew until it was interrupted; moves no longer count, the next
    /// drag does.
    void verifyGestureIsOver();

    ToolKind m_kind;
    std::unique_ptr<Tool> m_tool;
    std::unique_ptr<GestureStage> m_stage;
};

void TestGestures::init()
{
    QFETCH(const ToolKind, kind);
    QFETCH(const int, zoom);
    m_kind = kind;
    m_tool.reset(kind.make());
    m_stage = std::make_unique<GestureStage>(zoom);
    m_stage->use(m_tool.get());
}

void TestGestures::cleanup()
{
    m_stage.reset();
    m_tool.reset();
}

void TestGestures::click()
{
    m_stage->click(start);
    QCOMPARE(m_stage->marks().size(), m_kind.placesByClick ? 1 : 0);
    QCOMPARE(m_stage->undoSteps(), m_kind.placesByClick ? 1 : 0);
    QCOMPARE(m_stage->page.isModified(), m_kind.placesByClick);
}

void TestGestures::longDrag()
{
    m_stage->drag(start, {{120, 130}, {150, 120}, far});
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
    QCOMPARE(m_stage->undoSteps(), int(marksOfADrag()));
    if (m_kind.drawsNothing)
        return;
    auto *item = dynamic_cast<QGraphicsItem *>(m_stage->marks().constFirst());
    QVERIFY(item->flags() & QGraphicsItem::ItemIsMovable);
    QVERIFY(item->flags() & QGraphicsItem::ItemIsSelectable);
    QCOMPARE(item->zValue(), 0.0);
    QCOMPARE(item->pos(), m_kind.placesByClick ? far - QPointF(2, 2) : start);
    m_stage->undo();
    QVERIFY(m_stage->marks().isEmpty());
}

void TestGestures::dragsAtTheThreshold()
{
    if (m_kind.shortest.isNull()) {
        // No threshold: a text box comes with any drag, the eraser never draws.
        m_stage->drag(start, {start + QPointF(1, 0)});
        QCOMPARE(m_stage->marks().size(), marksOfADrag());
        return;
    }
    m_stage->drag(start, {start + m_kind.tooShort});
    QVERIFY(m_stage->marks().isEmpty());
    QCOMPARE(m_stage->undoSteps(), 0);
    QVERIFY(!m_stage->page.isModified());
    m_stage->drag(start, {start + m_kind.shortest});
    QCOMPARE(m_stage->marks().size(), 1);
    // Every direction counts the same.
    m_stage->drag(far, {far - m_kind.tooShort});
    QCOMPARE(m_stage->marks().size(), 1);
    m_stage->drag(far, {far - m_kind.shortest});
    QCOMPARE(m_stage->marks().size(), 2);
}

void TestGestures::otherButtons()
{
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        m_stage->press(start, button);
        m_stage->move({120, 130});
        m_stage->move(far);
        m_stage->release(far, button);
        QVERIFY(m_stage->marks().isEmpty());
    }
    QCOMPARE(m_stage->undoSteps(), 0);
    QVERIFY(!m_stage->page.isModified());
    m_stage->drag(start, {far});
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
}

void TestGestures::doubleClick()
{
    m_stage->doubleClick(start);
    m_stage->move(far);
    const qsizetype placed = m_kind.placesByClick ? 1 : 0;
    QCOMPARE(m_stage->marks().size(), placed);
    QCOMPARE(m_stage->undoSteps(), int(placed));
    m_stage->drag({300, 200}, {{320, 220}});
    QCOMPARE(m_stage->marks().size(), placed + marksOfADrag());
}

void TestGestures::movesWithoutAButton()
{
    m_stage->move(start);
    m_stage->move(far);
    m_stage->move({300, 20});
    QVERIFY(m_stage->marks().isEmpty());
    m_stage->drag(start, {far});
    m_stage->move({300, 20});
    m_stage->move({20, 200});
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
}

void TestGestures::leavingTheWindow()
{
    m_stage->press(start);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_stage->view.viewport(), &leave);
    m_stage->move({-50, 60});
    m_stage->move({-40, -30});
    m_stage->release({-40, -30});
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
    if (m_kind.drawsNothing)
        return;
    // The mark reaches as far as the mouse went.
    const auto *item = dynamic_cast<QGraphicsItem *>(m_stage->marks().constFirst());
    QVERIFY(item->sceneBoundingRect().left() <= -40);
    QVERIFY(item->sceneBoundingRect().top() <= -30);
    m_stage->move({20, 20});
    m_stage->release({20, 20});
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
}

void TestGestures::releaseThatNeverComes()
{
    m_stage->press(start);
    m_stage->move(far);
    // A new press without a release between them: the old gesture is forgotten.
    m_stage->press({300, 200});
    m_stage->move({310, 205});
    m_stage->move({320, 220});
    m_stage->release({320, 220});
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
    QCOMPARE(m_stage->undoSteps(), int(marksOfADrag()));
    if (!m_kind.drawsNothing && !m_kind.placesByClick)
        QCOMPARE(dynamic_cast<QGraphicsItem *>(m_stage->marks().constFirst())->pos(), QPointF(300, 200));
}

void TestGestures::toolChangeInMidDrag()
{
    PenTool other(Qt::blue, 1, false);
    m_stage->press(start);
    m_stage->move({120, 130});
    m_stage->use(&other);
    m_stage->move(far);
    m_stage->release(far);
    QVERIFY(m_stage->marks().isEmpty());
    m_stage->drag({200, 200}, {{210, 200}, {220, 210}});
    QCOMPARE(m_stage->marks().size(), 1);
    m_stage->use(m_tool.get());
    m_stage->drag({300, 200}, {{320, 220}});
    QCOMPARE(m_stage->marks().size(), 1 + marksOfADrag());
    QCOMPARE(m_stage->undoSteps(), 1 + int(marksOfADrag()));
}

void TestGestures::modeChangeInMidDrag()
{
    for (const int mode : {int(TextMode), int(TransformMode)}) {
        m_stage->use(m_tool.get());
        m_stage->press(start);
        m_stage->move({120, 130});
        m_stage->host.currentMode = mode;
        m_stage->move(far);
        m_stage->release(far);
        QVERIFY(m_stage->marks().isEmpty());
    }
    m_stage->use(m_tool.get());
    m_stage->drag({300, 200}, {{320, 220}});
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
    QCOMPARE(m_stage->undoSteps(), int(marksOfADrag()));
}

void TestGestures::secondButtonInMidDrag()
{
    m_stage->press(start);
    m_stage->move(far);
    // The second button's press does not reach the tool, its release ends the gesture.
    m_stage->press(far, Qt::MiddleButton);
    QVERIFY(m_stage->marks().isEmpty());
    m_stage->release(far, Qt::MiddleButton);
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
    m_stage->move({300, 200});
    m_stage->release({300, 200});
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
    QCOMPARE(m_stage->undoSteps(), int(marksOfADrag()));
}

void TestGestures::verifyGestureIsOver()
{
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
    QCOMPARE(m_stage->undoSteps(), int(marksOfADrag()));
    QCOMPARE(m_stage->page.isModified(), !m_kind.drawsNothing);
    const QRectF before = m_stage->page.itemsBoundingRect();
    m_stage->move({300, 200});
    m_stage->move({20, 200});
    QCOMPARE(m_stage->marks().size(), marksOfADrag());
    QCOMPARE(m_stage->page.itemsBoundingRect(), before);
    if (!m_kind.drawsNothing)
        QVERIFY(before.contains(far - QPointF(2, 2)));
    m_stage->drag({300, 200}, {{310, 210}, {320, 220}});
    QCOMPARE(m_stage->marks().size(), 2 * marksOfADrag());
    QCOMPARE(m_stage->undoSteps(), 2 * int(marksOfADrag()));
}

void TestGestures::boxInMidDrag()
{
    m_stage->press(start);
    m_stage->move({120, 130});
    m_stage->move(far);
    DialogAnswers answers;
    answers.handle([this](QDialog *box) {
        // A blocked window hears nothing of it.
        m_stage->move({200, 180});
        m_stage->release({200, 180});
        box->accept();
    });
    QMessageBox(QMessageBox::Warning, QStringLiteral("Title"), QStringLiteral("Text"), QMessageBox::Ok).exec();
    QCOMPARE(answers.seen().size(), 1);
    verifyGestureIsOver();
}

void TestGestures::menuInMidDrag()
{
    m_stage->host.menu->addAction(QStringLiteral("Entry"));
    m_stage->view.setFocus();
    m_stage->press(start);
    m_stage->move({120, 130});
    m_stage->move(far);
    m_stage->press(far, Qt::RightButton);
    verifyGestureIsOver();
}

void TestGestures::toolThatDiesInMidDrag()
{
    m_stage->press(start);
    m_stage->move(far);
    m_stage->host.tool = nullptr;
    m_tool.reset();
    m_stage->move({300, 200});
    m_stage->release({300, 200});
    QVERIFY(m_stage->marks().isEmpty());
    QCOMPARE(m_stage->undoSteps(), 0);
}

REGISTER_TEST(TestGestures)
#include "tst_gestures.moc"
