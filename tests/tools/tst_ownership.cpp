// SPDX-License-Identifier: GPL-3.0-or-later
// Who owns a mark that is taken away while something still works with it. To be run under a sanitizer; the marks'
// lives are watched as well.
#include "annotations/penline.h"
#include "annotations/rectangleann.h"
#include "annotations/textboxann.h"
#include "documents/markpointer.h"
#include "documents/pagestack.h"
#include "support/testmain.h"
#include "tools/gesturestage.h"
#include "tools/pentool.h"
#include "tools/shapetool.h"
#include "tools/textboxtool.h"

#include <QGraphicsItem>
#include <QTest>

#include <functional>
#include <memory>

namespace {

/// What takes the marks off the page.
using Removal = std::function<void(GestureStage &)>;

void addRemovals()
{
    QTest::addColumn<Removal>("remove");
    QTest::addColumn<bool>("dies");
    QTest::newRow("cut") << Removal([](GestureStage &stage) {
        stage.host.currentMode = TransformMode;
        stage.page.cutCommand();
    }) << false;
    QTest::newRow("undo") << Removal([](GestureStage &stage) { stage.undo(); }) << false;
    QTest::newRow("undo, then another step") << Removal([](GestureStage &stage) {
        stage.undo();
        auto *next = new PenLine;
        next->setPos(700, 500);
        stage.page.addAnnotation(next);
    }) << true;
    QTest::newRow("all removed, still in an undo step")
        << Removal([](GestureStage &stage) { stage.page.removeAnnotations(); }) << false;
    QTest::newRow("all removed") << Removal([](GestureStage &stage) {
        stage.page.clearUndoStack();
        stage.page.removeAnnotations();
    }) << true;
    QTest::newRow("pasted into another page") << Removal([](GestureStage &stage) {
        Page other(&stage.host);
        other.newDocument();
        stage.host.currentMode = TransformMode;
        stage.page.cutCommand();
        other.pasteCommand();
    }) << false;
    QTest::newRow("deleted") << Removal([](GestureStage &stage) {
        for (Annotation *mark : stage.marks())
            delete mark;
    }) << true;
}

} // namespace

Q_DECLARE_METATYPE(Removal)

class TestOwnership : public QObject
{
    Q_OBJECT

private slots:
    void removedWhileDragged_data() { addRemovals(); }
    void removedWhileDragged();
    void removedWhileTypedInto_data() { addRemovals(); }
    void removedWhileTypedInto();
    void removedWhileAnotherIsDrawn_data() { addRemovals(); }
    void removedWhileAnotherIsDrawn();
    void cutMarksOutliveTheirTab();
    void tabClosedWhileDrawing();
    void tabClosedWhileDragging();
    void clipboardKeepsCopiesOfADeadPage();
    void clipboardAndStepsShareMarks();
    void clearedStepsKeepWhatIsInUse();
    void allRemovedKeepsWhatIsCopied();
};

void TestOwnership::removedWhileDragged()
{
    QFETCH(const Removal, remove);
    QFETCH(const bool, dies);
    GestureStage stage;
    ShapeTool shape(0, false);
    stage.use(&shape);
    stage.drag({100, 100}, {{200, 200}});
    auto *item = stage.only<RectangleAnn>();
    const MarkPointer mark(item);
    stage.host.currentMode = TransformMode;
    stage.press({150, 150});
    stage.move({170, 160});
    QVERIFY(item->isSelected());
    QCOMPARE(item->pos(), QPointF(120, 110));
    remove(stage);
    QCOMPARE(!mark.item(), dies);
    stage.move({300, 300});
    stage.release({300, 300});
    stage.click({150, 150});
    QVERIFY(!stage.only<RectangleAnn>());
    QCOMPARE(!mark.item(), dies);
    // Taken away, it no longer follows the mouse.
    if (!dies)
        QCOMPARE(item->pos(), QPointF(120, 110));
}

void TestOwnership::removedWhileTypedInto()
{
    QFETCH(const Removal, remove);
    QFETCH(const bool, dies);
    GestureStage stage;
    TextBoxTool tool(nullptr, false);
    stage.use(&tool);
    stage.click({100, 100});
    auto *box = stage.only<TextBoxAnn>();
    const MarkPointer mark(box);
    box->setSelected(true);
    box->setFocus();
    QTest::keyClick(&stage.view, Qt::Key_X);
    QCOMPARE(stage.page.focusItem(), box);
    QCOMPARE(box->toPlainText().size(), QStringLiteral("Enter Text Here").size() + 1);
    remove(stage);
    QCOMPARE(!mark.item(), dies);
    QVERIFY(stage.page.focusItem() == nullptr);
    QTest::keyClick(&stage.view, Qt::Key_Y);
    QTest::keyClick(&stage.view, Qt::Key_Backspace);
    if (!dies)
        QCOMPARE(box->toPlainText().size(), QStringLiteral("Enter Text Here").size() + 1);
}

void TestOwnership::removedWhileAnotherIsDrawn()
{
    QFETCH(const Removal, remove);
    QFETCH(const bool, dies);
    GestureStage stage;
    ShapeTool shape(2, false);
    PenTool pen(Qt::red, 1, false);
    stage.use(&shape);
    stage.drag({100, 100}, {{200, 200}});
    const MarkPointer mark(dynamic_cast<QGraphicsItem *>(stage.marks().constFirst()));
    stage.use(&pen);
    stage.press({150, 150}); // selects the ellipse as well
    stage.move({160, 150});
    remove(stage);
    QCOMPARE(!mark.item(), dies);
    stage.host.currentMode = ToolMode;
    stage.move({180, 170});
    stage.release({180, 170});
    QVERIFY(!stage.marks().isEmpty());
    const auto *stroke = dynamic_cast<PenLine *>(stage.marks().constLast());
    QVERIFY(stroke);
    QCOMPARE(stroke->polygon(), (QPolygonF{{10, 0}, {30, 20}}));
}

void TestOwnership::cutMarksOutliveTheirTab()
{
    FakeHost host;
    host.currentMode = TransformMode;
    PageStack stack(&host);
    Page *pages[2] = {};
    for (Page *&page : pages) {
        page = new Page(&host);
        page->newDocument();
        stack.addTab(new PageView(page, nullptr), QStringLiteral("tab"));
    }
    auto *rectangle = new RectangleAnn;
    rectangle->setRect(0, 0, 10, 10);
    rectangle->setFlag(QGraphicsItem::ItemIsSelectable);
    const MarkPointer mark(rectangle);
    pages[0]->addAnnotation(rectangle);
    rectangle->setSelected(true);
    stack.setCurrentIndex(0);
    pages[0]->activateUndoStack();
    pages[0]->cutCommand();
    pages[0]->setModified(false);
    QVERIFY(stack.closeCurrentTab());
    QCOMPARE(stack.count(), 1);

    pages[1]->activateUndoStack();
    pages[1]->pasteCommand();
    QCOMPARE(rectangle->scene(), pages[1]);
    // The closed page lives on unseen and gives the mark back when its own step is undone.
    pages[0]->activateUndoStack();
    host.group->undo();
    QCOMPARE(rectangle->scene(), pages[0]);
    pages[1]->activateUndoStack();
    host.group->undo();
    QCOMPARE(rectangle->scene(), pages[0]);
    host.group->redo();
    QCOMPARE(rectangle->scene(), pages[1]);
    pages[0]->clearUndoStack();
    pages[1]->clearUndoStack();
    host.clearAnnotationClipboard();
    QCOMPARE(mark.item(), rectangle);
    pages[1]->removeAnnotations();
    QVERIFY(!mark.item());
}

void TestOwnership::tabClosedWhileDrawing()
{
    PenTool pen(Qt::red, 1, false);
    FakeHost host;
    host.currentMode = ToolMode;
    host.tool = &pen;
    auto *stack = new PageStack(&host);
    host.window.resize(400, 300);
    stack->resize(400, 300);
    for (int i = 0; i < 2; ++i) {
        auto *page = new Page(&host);
        page->newDocument();
        auto *view = new PageView(page, nullptr);
        page->setPageView(view);
        stack->addTab(view, QString::number(i));
    }
    host.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host.window));
    Page *closed = stack->currentPage();
    QTest::mousePress(host.window.windowHandle(), Qt::LeftButton, {}, {150, 150});
    QTest::mouseMove(host.window.windowHandle(), {170, 150});
    QVERIFY(pen.annotation());
    QVERIFY(stack->closeCurrentTab());
    QTest::mouseMove(host.window.windowHandle(), {200, 150});
    QTest::mouseRelease(host.window.windowHandle(), Qt::LeftButton, {}, {200, 150});
    // Wherever the window system sent the release: one gesture, at most one stroke.
    QVERIFY(!closed->hasAnnotations() || !stack->currentPage()->hasAnnotations());
    QTest::mousePress(host.window.windowHandle(), Qt::LeftButton, {}, {150, 200});
    QTest::mouseMove(host.window.windowHandle(), {170, 200});
    QTest::mouseMove(host.window.windowHandle(), {190, 200});
    QTest::mouseRelease(host.window.windowHandle(), Qt::LeftButton, {}, {190, 200});
    QVERIFY(stack->currentPage()->hasAnnotations());
    QVERIFY(!pen.annotation());
    host.tool = nullptr;
}

void TestOwnership::tabClosedWhileDragging()
{
    FakeHost host;
    host.currentMode = TransformMode;
    auto *stack = new PageStack(&host);
    host.window.resize(400, 300);
    stack->resize(400, 300);
    auto *page = new Page(&host);
    page->newDocument();
    auto *view = new PageView(page, nullptr);
    view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    page->setPageView(view);
    stack->addTab(view, QStringLiteral("tab"));
    auto *rectangle = new RectangleAnn;
    rectangle->setRect(0, 0, 100, 100);
    rectangle->setPos(50, 30);
    rectangle->setFlags(QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsMovable);
    page->addAnnotation(rectangle);
    host.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host.window));
    const QPoint grip = view->viewport()->mapTo(&host.window, view->mapFromScene(QPointF(100, 80)));
    QTest::mousePress(host.window.windowHandle(), Qt::LeftButton, {}, grip);
    QTest::mouseMove(host.window.windowHandle(), grip + QPoint(10, 10));
    QVERIFY(rectangle->isSelected());
    page->setModified(false);
    QVERIFY(stack->closeCurrentTab());
    QCOMPARE(stack->count(), 0);
    QTest::mouseMove(host.window.windowHandle(), grip + QPoint(30, 30));
    QTest::mouseRelease(host.window.windowHandle(), Qt::LeftButton, {}, grip + QPoint(30, 30));
    QCOMPARE(rectangle->scene(), page);
    delete stack;
}

void TestOwnership::clipboardKeepsCopiesOfADeadPage()
{
    FakeHost host;
    host.currentMode = TransformMode;
    auto page = std::make_unique<Page>(&host);
    page->newDocument();
    auto *original = new PenLine;
    original->setFlag(QGraphicsItem::ItemIsSelectable);
    original->setPolygon(QPolygonF{{0, 0}, {10, 10}});
    const MarkPointer mark(original);
    page->addAnnotation(original);
    original->setSelected(true);
    page->copyCommand();
    const MarkPointer copy(dynamic_cast<QGraphicsItem *>(host.annotationClipboard()->constFirst()));
    page.reset();
    QVERIFY(!mark.item());
    QVERIFY(copy.item());
    Page other(&host);
    other.newDocument();
    other.pasteCommand();
    QCOMPARE(copy.item()->scene(), &other);
    QCOMPARE(copy.item()->pos(), QPointF(20, 20));
}

void TestOwnership::clipboardAndStepsShareMarks()
{
    GestureStage stage;
    ShapeTool shape(0, false);
    stage.use(&shape);
    stage.drag({100, 100}, {{150, 150}});
    auto *item = stage.only<RectangleAnn>();
    const MarkPointer mark(item);
    stage.host.currentMode = TransformMode;
    stage.click({120, 120});
    stage.page.cutCommand();
    // Three hold it now: the step that drew it, the cut, the clipboard. The last one to let go is the end of it.
    stage.undo();
    stage.undo();
    stage.page.clearUndoStack();
    QCOMPARE(mark.item(), item);
    QVERIFY(!item->scene());
    stage.page.pasteCommand();
    stage.host.clearAnnotationClipboard();
    QCOMPARE(item->scene(), &stage.page);
    stage.undo();
    QCOMPARE(mark.item(), item);
    stage.page.clearUndoStack();
    QVERIFY(!mark.item());
}

void TestOwnership::clearedStepsKeepWhatIsInUse()
{
    GestureStage stage;
    ShapeTool shape(0, false);
    stage.use(&shape);
    stage.drag({100, 100}, {{150, 150}});
    const MarkPointer shown(dynamic_cast<QGraphicsItem *>(stage.marks().constLast()));
    stage.drag({200, 100}, {{250, 150}});
    const MarkPointer undone(dynamic_cast<QGraphicsItem *>(stage.marks().constLast()));
    stage.undo();
    stage.press({300, 200});
    stage.move({320, 220});
    QVERIFY(shape.annotation());
    stage.page.clearUndoStack();
    QVERIFY(shown.item());
    QVERIFY(!undone.item());
    stage.release({340, 240});
    QCOMPARE(stage.marks().size(), 2);
    QCOMPARE(stage.undoSteps(), 1);
}

void TestOwnership::allRemovedKeepsWhatIsCopied()
{
    GestureStage stage;
    ShapeTool shape(0, false);
    stage.use(&shape);
    stage.drag({100, 100}, {{150, 150}});
    const MarkPointer original(dynamic_cast<QGraphicsItem *>(stage.marks().constFirst()));
    stage.host.currentMode = TransformMode;
    stage.click({120, 120});
    stage.page.copyCommand();
    stage.page.pasteCommand();
    const MarkPointer copy(dynamic_cast<QGraphicsItem *>(stage.marks().constLast()));
    stage.page.clearUndoStack();
    stage.page.removeAnnotations();
    QVERIFY(!original.item());
    QVERIFY(copy.item());
    QVERIFY(!copy.item()->scene());
    stage.page.pasteCommand();
    QCOMPARE(copy.item()->scene(), &stage.page);
    stage.undo();
    stage.undo();
    QVERIFY(stage.marks().isEmpty());
}

REGISTER_TEST(TestOwnership)
#include "tst_ownership.moc"
