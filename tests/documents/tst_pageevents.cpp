// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse, keys and painting, through real events on a real view.
#include "documents/documentitem.h"
#include "documents/faketools.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "support/fakehost.h"
#include "support/testmain.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QGraphicsTextItem>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QWindow>

#include <memory>

class TestPageEvents : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void toolGetsTheGesture();
    void toolGetsScenePositionsAtAnyZoom();
    void otherButtonsOnlyReachTheRelease();
    void doubleClickReleasesTwice();
    void drawnMarkJoinsThePage();
    void markBelongsToTheToolOfTheRelease();
    void noToolIsNoTrouble();
    void textModeEditsTheText();
    void pressSwitchesTheTextsFlags_data();
    void pressSwitchesTheTextsFlags();
    void unknownModeTakesNoPress();
    void transformModeSelectsAndMoves();
    void transformModeShowsHands();
    void transformModeWithoutAView();
    void hitTestingFollowsTheZoom();
    void everyReleaseRefreshesTheUi();
    void lastMousePositionIsKept();
    void movesComeWithoutAButton();
    void contextMenuIsTheWindows();
    void markUnderConstructionIsPainted();
    void overlayIsPaintedButNotInACleanPicture();
    void aCleanPictureHidesTheOverlayOnceOnly();
    void emptyRectanglePaintsNothing();
    void anyKeyWithTextModifies_data();
    void anyKeyWithTextModifies();
    void tabIsInsertedInEveryMode_data();
    void tabIsInsertedInEveryMode();
    void f10TravelsUp();
    void keysReachTheText();
    void zoomReplacesTheMatrix();
    void viewOfAForeignScene();
    void withoutAWindowTheTextCanBeEdited();

private:
    QPoint at(double x, double y) const { return m_view->mapFromScene(x, y); }
    void press(double x, double y) { QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, at(x, y)); }
    void release(double x, double y) { QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, at(x, y)); }
    void move(double x, double y)
    {
        QTest::mouseMove(m_view->windowHandle(), m_view->viewport()->mapTo(m_view.get(), at(x, y)));
    }
    void drag(double x, double y, Qt::MouseButtons buttons);

    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<Page> m_page;
    std::unique_ptr<PageView> m_view;
};

void TestPageEvents::init()
{
    m_host = std::make_unique<FakeHost>();
    m_page = std::make_unique<Page>(m_host.get());
    m_page->setTextContents(QStringLiteral("a.txt"), QStringLiteral("first line\nsecond line\nthird line\n"),
                            QStringLiteral("1\n2\n3\n4\n"));
    m_page->setModified(false);
    m_view = std::make_unique<PageView>(m_page.get(), nullptr);
    m_view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_page->setPageView(m_view.get());
    m_view->resize(500, 400);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    m_view->setFocus();
    m_view->centerOn(1.0, 1.0);
    m_host->menuUpdates = 0;
}

void TestPageEvents::cleanup()
{
    m_view.reset();
    m_page.reset();
    m_host.reset();
    QCOMPARE(TestMark::living, 0);
}

void TestPageEvents::drag(double x, double y, Qt::MouseButtons buttons)
{
    const QPoint pos = at(x, y);
    QMouseEvent event(QEvent::MouseMove, pos, m_view->viewport()->mapToGlobal(pos), Qt::NoButton, buttons, {});
    QApplication::sendEvent(m_view->viewport(), &event);
}

void TestPageEvents::toolGetsTheGesture()
{
    FakeTool tool;
    m_host->tool = &tool;
    m_host->currentMode = ToolMode;
    press(20, 30);
    drag(40, 50, Qt::LeftButton);
    release(40, 50);
    QCOMPARE(tool.events, (QStringList{"press 20,30 page", "move 40,50 page", "release 40,50 null"}));
    QVERIFY(!m_page->isModified());
}

void TestPageEvents::toolGetsScenePositionsAtAnyZoom()
{
    FakeTool tool;
    m_host->tool = &tool;
    m_host->currentMode = ToolMode;
    m_view->setZoom(200);
    m_view->centerOn(1.0, 1.0);
    QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, QPoint(60, 80));
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, QPoint(60, 80));
    QCOMPARE(tool.events, (QStringList{"press 30,40 page", "release 30,40 null"}));
}

void TestPageEvents::otherButtonsOnlyReachTheRelease()
{
    FakeTool tool;
    m_host->tool = &tool;
    m_host->currentMode = ToolMode;
    auto *mark = new TestMark(QPointF(20, 20));
    m_page->addItem(mark);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        tool.events.clear();
        QTest::mousePress(m_view->viewport(), button, {}, at(25, 25));
        QCOMPARE(tool.events, QStringList());
        QTest::mouseRelease(m_view->viewport(), button, {}, at(25, 25));
        QCOMPARE(tool.events, QStringList{"release 25,25 null"});
        QVERIFY(!mark->isSelected());
    }
}

void TestPageEvents::doubleClickReleasesTwice()
{
    FakeTool tool;
    m_host->tool = &tool;
    m_host->currentMode = ToolMode;
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, at(25, 25));
    QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, at(25, 25));
    release(25, 25);
    QCOMPARE(tool.events, (QStringList{"press 25,25 page", "release 25,25 null", "release 25,25 null"}));
}

void TestPageEvents::drawnMarkJoinsThePage()
{
    FakeDrawingTool tool;
    m_host->tool = &tool;
    m_host->currentMode = ToolMode;
    press(100, 100);
    QVERIFY(marksOn(*m_page).isEmpty());
    QVERIFY(tool.annotation());
    release(120, 120);
    QVERIFY(!tool.annotation());
    QCOMPARE(marksOn(*m_page).size(), 1);
    QVERIFY(m_page->isModified());
    m_page->activateUndoStack();
    m_host->group->undo();
    QVERIFY(marksOn(*m_page).isEmpty());
    // A release without a press adds nothing.
    QTest::mouseRelease(m_view->viewport(), Qt::RightButton, {}, at(100, 100));
    QVERIFY(marksOn(*m_page).isEmpty());
}

namespace {

/// Makes another tool current while it handles the release, as a tool for one use does.
class HandingOverTool final : public Tool
{
public:
    HandingOverTool(FakeHost *host, Tool *next) : Tool(true), m_host(host), m_next(next) {}
    QCursor makeCursor() override { return {}; }
    void mousePressed(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) override { m_host->tool = m_next; }
    void mouseMoved(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) override {}
    void mouseReleased(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) override { m_host->tool = m_next; }

private:
    FakeHost *m_host;
    Tool *m_next;
};

} // namespace

void TestPageEvents::markBelongsToTheToolOfTheRelease()
{
    FakeDrawingTool drawing;
    HandingOverTool handing(m_host.get(), &drawing);
    m_host->currentMode = ToolMode;
    m_host->tool = &drawing;
    press(50, 50);
    m_host->tool = &handing;
    release(60, 60);
    // The mark of the drawing tool is not taken by somebody else's release.
    QVERIFY(marksOn(*m_page).isEmpty());
    QVERIFY(drawing.annotation());
    m_host->tool = &handing;
    press(10, 10);
    QCOMPARE(drawing.events, QStringList{"press 50,50 page"});
    release(10, 10);
    QCOMPARE(marksOn(*m_page).size(), 1);
}

void TestPageEvents::noToolIsNoTrouble()
{
    m_host->currentMode = ToolMode;
    press(20, 20);
    drag(30, 30, Qt::LeftButton);
    release(30, 30);
    m_view->viewport()->repaint();
    QCOMPARE(m_host->menuUpdates, 1);
}

void TestPageEvents::textModeEditsTheText()
{
    FakeTool tool;
    m_host->tool = &tool;
    const QGraphicsTextItem *item = m_page->documentItem()->textItem();
    const QPointF inside = item->mapToScene(6, 8);
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, at(inside.x(), inside.y()));
    QCOMPARE(m_page->focusItem(), item);
    QTest::keyClicks(m_view.get(), QStringLiteral("xy"));
    QVERIFY(m_page->plainText().startsWith(QStringLiteral("xyfirst")));
    QVERIFY(m_page->isModified());
    QVERIFY(tool.events.isEmpty());
}

void TestPageEvents::pressSwitchesTheTextsFlags_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("editable");
    QTest::newRow("text") << int(TextMode) << true;
    QTest::newRow("transform") << int(TransformMode) << false;
    QTest::newRow("tool") << int(ToolMode) << false;
}

void TestPageEvents::pressSwitchesTheTextsFlags()
{
    QFETCH(const int, mode);
    QFETCH(const bool, editable);
    m_host->currentMode = mode;
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, at(250, 200));
    const QGraphicsTextItem *item = m_page->documentItem()->textItem();
    QCOMPARE(item->textInteractionFlags() == Qt::TextEditorInteraction, editable);
    QCOMPARE(item->flags().testFlag(QGraphicsItem::ItemIsSelectable), editable);
    QCOMPARE(item->flags().testFlag(QGraphicsItem::ItemIsFocusable), editable);
    const QString before = m_page->plainText();
    QTest::keyClicks(m_view.get(), QStringLiteral("z"));
    QCOMPARE(m_page->plainText(), before);
    QVERIFY(m_page->isModified());
}

void TestPageEvents::unknownModeTakesNoPress()
{
    auto *mark = new TestMark(QPointF(200, 200));
    m_page->addItem(mark);
    m_host->currentMode = 7;
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, at(205, 205));
    QVERIFY(!mark->isSelected());
    QCOMPARE(m_host->menuUpdates, 1);
}

void TestPageEvents::transformModeSelectsAndMoves()
{
    m_host->currentMode = TransformMode;
    auto *mark = new TestMark(QPointF(200, 200));
    m_page->addItem(mark);
    press(205, 205);
    QVERIFY(mark->isSelected());
    QVERIFY(!m_page->isModified());
    drag(215, 215, Qt::LeftButton);
    QVERIFY(m_page->isModified());
    drag(235, 245, Qt::LeftButton);
    release(235, 245);
    QCOMPARE(mark->pos(), QPointF(230, 240));
    m_page->activateUndoStack();
    QVERIFY(!m_host->group->canUndo());
}

void TestPageEvents::transformModeShowsHands()
{
    m_host->currentMode = TransformMode;
    m_page->addItem(new TestMark(QPointF(200, 200)));
    drag(205, 205, Qt::NoButton);
    QCOMPARE(m_view->cursor().shape(), Qt::OpenHandCursor);
    QVERIFY(!m_page->isModified());
    drag(150, 150, Qt::NoButton);
    QCOMPARE(m_view->cursor().shape(), Qt::ArrowCursor);
    press(205, 205);
    drag(206, 206, Qt::LeftButton);
    QCOMPARE(m_view->cursor().shape(), Qt::ClosedHandCursor);
    release(206, 206);
    m_page->setModified(false);
    // Two buttons are no drag.
    drag(207, 207, Qt::LeftButton | Qt::RightButton);
    QCOMPARE(m_view->cursor().shape(), Qt::OpenHandCursor);
    QVERIFY(!m_page->isModified());
}

void TestPageEvents::transformModeWithoutAView()
{
    m_host->currentMode = TransformMode;
    auto *mark = new TestMark(QPointF(200, 200));
    m_page->addItem(mark);
    m_page->setPageView(nullptr);
    press(205, 205);
    drag(225, 225, Qt::LeftButton);
    release(225, 225);
    QCOMPARE(mark->pos(), QPointF(220, 220));
    QVERIFY(m_page->isModified());
}

void TestPageEvents::hitTestingFollowsTheZoom()
{
    m_host->currentMode = TransformMode;
    m_page->addItem(new TestMark(QPointF(100, 100)));
    m_view->setZoom(200);
    m_view->centerOn(1.0, 1.0);
    drag(119, 119, Qt::NoButton);
    QCOMPARE(m_view->cursor().shape(), Qt::OpenHandCursor);
    drag(122, 122, Qt::NoButton);
    QCOMPARE(m_view->cursor().shape(), Qt::ArrowCursor);
}

void TestPageEvents::everyReleaseRefreshesTheUi()
{
    for (const int mode : {int(TextMode), int(TransformMode), int(ToolMode)}) {
        m_host->currentMode = mode;
        m_host->menuUpdates = 0;
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, at(300, 300));
        QCOMPARE(m_host->menuUpdates, 1);
    }
}

void TestPageEvents::lastMousePositionIsKept()
{
    m_host->currentMode = ToolMode;
    press(31, 42);
    QCOMPARE(QPointF(m_page->lastMouseX(), m_page->lastMouseY()), QPointF(31, 42));
    release(50, 50);
    QCOMPARE(QPointF(m_page->lastMouseX(), m_page->lastMouseY()), QPointF(31, 42));
    drag(60, 61, Qt::NoButton);
    QCOMPARE(QPointF(m_page->lastMouseX(), m_page->lastMouseY()), QPointF(60, 61));
    QTest::mousePress(m_view->viewport(), Qt::RightButton, {}, at(70, 71));
    QCOMPARE(QPointF(m_page->lastMouseX(), m_page->lastMouseY()), QPointF(70, 71));
    QContextMenuEvent event(QContextMenuEvent::Mouse, at(80, 81), m_view->viewport()->mapToGlobal(at(80, 81)));
    QApplication::sendEvent(m_view->viewport(), &event);
    QCOMPARE(QPointF(m_page->lastMouseX(), m_page->lastMouseY()), QPointF(80, 81));
    m_host->menu->close();
}

void TestPageEvents::movesComeWithoutAButton()
{
    QVERIFY(m_view->testAttribute(Qt::WA_MouseTracking));
    QTemporaryDir folder;
    QPixmap(300, 200).save(folder.filePath(QStringLiteral("p.png")));
    QVERIFY(m_page->setImageContents(folder.filePath(QStringLiteral("p.png")), QString()));
    QVERIFY(m_view->viewport()->hasMouseTracking());
    FakeTool tool;
    m_host->tool = &tool;
    m_host->currentMode = ToolMode;
    move(20, 20);
    move(30, 30);
    QTRY_VERIFY(tool.events.contains(QStringLiteral("move 30,30 page")));
}

void TestPageEvents::contextMenuIsTheWindows()
{
    auto *mark = new TestMark(QPointF(20, 20));
    m_page->addItem(mark);
    m_host->menu->addAction(QStringLiteral("Something"));
    const QPoint pos = at(25, 25);
    const QPoint global = m_view->viewport()->mapToGlobal(pos);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, global);
    QApplication::sendEvent(m_view->viewport(), &event);
    QVERIFY(m_host->menu->isVisible());
    QCOMPARE(m_host->menu->pos(), global);
    m_host->menu->close();
}

void TestPageEvents::markUnderConstructionIsPainted()
{
    FakeDrawingTool tool;
    m_host->tool = &tool;
    m_host->currentMode = ToolMode;
    press(100, 100);
    m_page->invalidate();
    QImage picture = m_view->viewport()->grab().toImage();
    const QPoint inside = at(110, 110);
    QCOMPARE(picture.pixelColor(inside), QColor(Qt::blue));
    release(100, 100);
    picture = m_view->viewport()->grab().toImage();
    QCOMPARE(picture.pixelColor(inside), QColor(Qt::red));
}

void TestPageEvents::overlayIsPaintedButNotInACleanPicture()
{
    FakeTool tool;
    m_host->tool = &tool;
    const auto render = [this](bool clean) {
        QImage picture(50, 50, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        if (clean)
            m_page->renderClean(&painter, QRectF(0, 0, 50, 50), QRectF(0, 0, 50, 50), Qt::KeepAspectRatio);
        else
            m_page->render(&painter, QRectF(0, 0, 50, 50), QRectF(0, 0, 50, 50), Qt::KeepAspectRatio);
        return picture.pixelColor(2, 2);
    };
    QCOMPARE(render(false), QColor(Qt::green));
    QCOMPARE(render(true), QColor(Qt::white));
    QCOMPARE(render(false), QColor(Qt::green));
}

void TestPageEvents::aCleanPictureHidesTheOverlayOnceOnly()
{
    QImage picture(50, 50, QImage::Format_RGB32);
    QPainter painter(&picture);
    const auto renderCleanWith = [&](Tool *tool, const QRectF &source) {
        m_host->tool = tool;
        m_page->renderClean(&painter, QRectF(0, 0, 50, 50), source, Qt::IgnoreAspectRatio);
    };
    FakeTool tool;
    FakeDrawingTool drawingTool;
    const auto overlaysOfARender = [&] {
        m_host->tool = &tool;
        tool.overlays = 0;
        m_page->render(&painter, QRectF(0, 0, 50, 50), QRectF(0, 0, 50, 50));
        return tool.overlays;
    };
    // Whatever the clean picture did or did not paint, the next one has its overlay.
    renderCleanWith(&drawingTool, QRectF(0, 0, 50, 50));
    QCOMPARE(overlaysOfARender(), 1);
    renderCleanWith(nullptr, QRectF(0, 0, 50, 50));
    QCOMPARE(overlaysOfARender(), 1);
    renderCleanWith(&tool, QRectF(5, 5, 0, 10));
    QCOMPARE(overlaysOfARender(), 1);
}

void TestPageEvents::emptyRectanglePaintsNothing()
{
    FakeTool tool;
    m_host->tool = &tool;
    QImage picture(50, 50, QImage::Format_RGB32);
    QPainter painter(&picture);
    const int before = tool.overlays;
    m_page->render(&painter, QRectF(0, 0, 50, 50), QRectF(5, 5, 0, 10), Qt::IgnoreAspectRatio);
    QCOMPARE(tool.overlays, before);
    m_page->render(&painter, QRectF(0, 0, 50, 50), QRectF(5, 5, 10, 10), Qt::IgnoreAspectRatio);
    QCOMPARE(tool.overlays, before + 1);
}

void TestPageEvents::anyKeyWithTextModifies_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("modifies");
    QTest::newRow("letter") << int(Qt::Key_A) << int(Qt::NoModifier) << true;
    QTest::newRow("Ctrl+C") << int(Qt::Key_C) << int(Qt::ControlModifier) << true;
    QTest::newRow("Return") << int(Qt::Key_Return) << int(Qt::NoModifier) << true;
    QTest::newRow("cursor key") << int(Qt::Key_Left) << int(Qt::NoModifier) << false;
    QTest::newRow("Shift") << int(Qt::Key_Shift) << int(Qt::ShiftModifier) << false;
    QTest::newRow("F10") << int(Qt::Key_F10) << int(Qt::NoModifier) << false;
}

void TestPageEvents::anyKeyWithTextModifies()
{
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    QFETCH(const bool, modifies);
    for (const int mode : {int(TextMode), int(TransformMode), int(ToolMode)}) {
        m_host->currentMode = mode;
        m_page->setModified(false);
        QString text;
        if (modifies)
            text = modifiers == Qt::ControlModifier ? QString(QChar(3)) : QStringLiteral("a");
        QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
        QApplication::sendEvent(m_view.get(), &event);
        QCOMPARE(m_page->isModified(), modifies);
    }
}

void TestPageEvents::tabIsInsertedInEveryMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("text") << int(TextMode);
    QTest::newRow("transform") << int(TransformMode);
    QTest::newRow("tool") << int(ToolMode);
}

void TestPageEvents::tabIsInsertedInEveryMode()
{
    QFETCH(const int, mode);
    m_host->currentMode = mode;
    m_page->documentItem()->setCursorPosition(5);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
    event.ignore();
    QVERIFY(QApplication::sendEvent(m_view.get(), &event));
    QVERIFY(event.isAccepted());
    QVERIFY(m_page->plainText().startsWith(QStringLiteral("first\t line")));
    QVERIFY(m_page->isModified());
    QVERIFY(m_view->hasFocus());
}

void TestPageEvents::f10TravelsUp()
{
    QKeyEvent event(QEvent::KeyPress, Qt::Key_F10, Qt::NoModifier);
    QVERIFY(!QApplication::sendEvent(m_view.get(), &event));
    QVERIFY(!event.isAccepted());
}

void TestPageEvents::keysReachTheText()
{
    m_page->focusDocument();
    QTest::keyClick(m_view.get(), Qt::Key_Return);
    QCOMPARE(m_page->textDocument()->blockCount(), 5);
    QTest::keyClick(m_view.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_page->textDocument()->blockCount(), 4);
}

void TestPageEvents::zoomReplacesTheMatrix()
{
    m_view->setZoom(150);
    m_view->setZoom(150);
    QCOMPARE(m_view->transform(), QTransform::fromScale(1.5, 1.5));
    QCOMPARE(m_view->zoom(), 150);
    m_view->setZoom(100);
    QVERIFY(m_view->transform().isIdentity());
    QCOMPARE(m_view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(m_view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QVERIFY(m_view->isInteractive());
}

void TestPageEvents::viewOfAForeignScene()
{
    QGraphicsScene scene;
    PageView view(&scene, nullptr);
    QVERIFY(!view.page());
    QTest::keyClick(&view, Qt::Key_A);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
    QApplication::sendEvent(&view, &event);

    auto page = std::make_unique<Page>(nullptr);
    PageView orphan(page.get(), nullptr);
    QCOMPARE(orphan.page(), page.get());
    page.reset();
    QVERIFY(!orphan.page());
    QTest::keyClick(&orphan, Qt::Key_A);
}

void TestPageEvents::withoutAWindowTheTextCanBeEdited()
{
    Page page(nullptr);
    page.newDocument();
    PageView view(&page, nullptr);
    view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    page.setPageView(&view);
    view.resize(400, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(40, 15));
    QTest::keyClicks(&view, QStringLiteral("abc"));
    QVERIFY(page.plainText().contains(QStringLiteral("abc")));
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(view.viewport(), &event);
}

REGISTER_TEST(TestPageEvents)
#include "tst_pageevents.moc"
