// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/markitem.h"
#include "annotations/rectangleann.h"
#include "annotations/textboxann.h"
#include "support/testmain.h"
#include "tools/erasertool.h"
#include "tools/gesturestage.h"
#include "tools/pentool.h"

#include <QTest>

namespace {

/// A rectangle on the page that can be selected; the page owns it.
RectangleAnn *addRectangle(GestureStage &stage, const QRectF &rect)
{
    auto *rectangle = new RectangleAnn;
    rectangle->setRect(QRectF(QPointF(0, 0), rect.size()));
    rectangle->setPos(rect.topLeft());
    MarkItem::makeHandy(*rectangle);
    stage.page.addAnnotation(rectangle);
    return rectangle;
}

/// A text box as its tool makes it; the page owns it.
TextBoxAnn *addTextBox(GestureStage &stage, const QPointF &pos)
{
    auto *box = new TextBoxAnn;
    box->setPlainText("Some text");
    box->setTextInteractionFlags(Qt::TextEditorInteraction);
    MarkItem::makeHandy(*box);
    box->setPos(pos);
    stage.page.addAnnotation(box);
    return box;
}

} // namespace

class TestEraserTool : public QObject
{
    Q_OBJECT

private slots:
    void clickRemovesTheMark_data() { addZooms(); }
    void clickRemovesTheMark();
    void topmostMarkIsRemoved();
    void clickOnFreeSpaceRemovesNothing();
    void clickOnAnUnselectedMarkRemovesItAlone();
    void clickOnASelectedMarkRemovesAllSelected();
    void removedMarksReplaceTheClipboard();
    void oneUndoBringsAllBack();
    void whatIsSelectedAtTheReleaseGoes();
    void otherButtonsRemoveNothing();
    void doubleClickRemovesOneMark();
    void textBoxIsErasedAtItsEdge();
    void clickInsideATextBoxRemovesWhatWasSelected();
    void toolChangeInMidGestureRemovesNothing();
    void abandonedGestureRemovesNothing();
    void cursorShowsWhereAMarkIs_data() { addZooms(); }
    void cursorShowsWhereAMarkIs();
    void worksWithoutAView();
};

void TestEraserTool::clickRemovesTheMark()
{
    QFETCH(int, zoom);
    GestureStage stage(zoom);
    EraserTool tool;
    addRectangle(stage, {100, 100, 50, 50});
    stage.page.setModified(false);
    stage.use(&tool);
    stage.click({120, 120});
    QVERIFY(stage.marks().isEmpty());
    QVERIFY(stage.page.isModified());
    QCOMPARE(stage.undoSteps(), 2);
}

void TestEraserTool::topmostMarkIsRemoved()
{
    GestureStage stage;
    EraserTool tool;
    auto *below = addRectangle(stage, {100, 100, 50, 50});
    addRectangle(stage, {110, 110, 50, 50});
    stage.use(&tool);
    stage.click({120, 120});
    QCOMPARE(stage.marks(), QList<Annotation *>{below});
}

void TestEraserTool::clickOnFreeSpaceRemovesNothing()
{
    GestureStage stage;
    EraserTool tool;
    auto *rectangle = addRectangle(stage, {100, 100, 50, 50});
    rectangle->setSelected(true);
    stage.use(&tool);
    stage.click({400, 400});
    QCOMPARE(stage.marks().size(), 1);
    QVERIFY(!rectangle->isSelected());
    QCOMPARE(stage.undoSteps(), 1);
}

void TestEraserTool::clickOnAnUnselectedMarkRemovesItAlone()
{
    GestureStage stage;
    EraserTool tool;
    auto *selected = addRectangle(stage, {100, 100, 50, 50});
    addRectangle(stage, {200, 100, 50, 50});
    selected->setSelected(true);
    stage.use(&tool);
    stage.click({220, 120});
    QCOMPARE(stage.marks(), QList<Annotation *>{selected});
}

void TestEraserTool::clickOnASelectedMarkRemovesAllSelected()
{
    GestureStage stage;
    EraserTool tool;
    for (int i = 0; i < 3; ++i)
        addRectangle(stage, QRectF(100 + 100 * i, 100, 50, 50))->setSelected(i < 2);
    stage.use(&tool);
    stage.click({120, 120});
    QCOMPARE(stage.marks().size(), 1);
    stage.undo();
    QCOMPARE(stage.marks().size(), 3);
}

void TestEraserTool::removedMarksReplaceTheClipboard()
{
    GestureStage stage;
    EraserTool tool;
    auto *first = addRectangle(stage, {100, 100, 50, 50});
    auto *second = addRectangle(stage, {200, 100, 50, 50});
    stage.use(&tool);
    stage.click({120, 120});
    QCOMPARE(*stage.host.annotationClipboard(), QList<Annotation *>{first});
    stage.click({220, 120});
    QCOMPARE(*stage.host.annotationClipboard(), QList<Annotation *>{second});
    stage.click({400, 400});
    QCOMPARE(*stage.host.annotationClipboard(), QList<Annotation *>{second});
}

void TestEraserTool::oneUndoBringsAllBack()
{
    GestureStage stage;
    EraserTool tool;
    for (int i = 0; i < 3; ++i)
        addRectangle(stage, QRectF(100 + 100 * i, 100, 50, 50))->setSelected(true);
    stage.use(&tool);
    stage.click({120, 120});
    QVERIFY(stage.marks().isEmpty());
    stage.undo();
    QCOMPARE(stage.marks().size(), 3);
}

void TestEraserTool::whatIsSelectedAtTheReleaseGoes()
{
    GestureStage stage;
    EraserTool tool;
    addRectangle(stage, {100, 100, 50, 50});
    auto *other = addRectangle(stage, {300, 300, 50, 50});
    stage.use(&tool);
    // Where the button is released does not matter.
    stage.drag({120, 120}, {{320, 320}});
    QCOMPARE(stage.marks(), QList<Annotation *>{other});
}

void TestEraserTool::otherButtonsRemoveNothing()
{
    GestureStage stage;
    EraserTool tool;
    addRectangle(stage, {100, 100, 50, 50})->setSelected(true);
    stage.use(&tool);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        stage.press({120, 120}, button);
        stage.release({120, 120}, button);
    }
    QCOMPARE(stage.marks().size(), 1);
}

void TestEraserTool::doubleClickRemovesOneMark()
{
    GestureStage stage;
    EraserTool tool;
    addRectangle(stage, {100, 100, 50, 50});
    addRectangle(stage, {100, 100, 50, 50});
    stage.use(&tool);
    stage.doubleClick({120, 120});
    QCOMPARE(stage.marks().size(), 1);
}

void TestEraserTool::textBoxIsErasedAtItsEdge()
{
    GestureStage stage;
    EraserTool tool;
    addTextBox(stage, {100, 100});
    stage.use(&tool);
    // Inside, the press belongs to the caret and selects nothing; the rim of the box is its handle.
    stage.click({130, 112});
    QCOMPARE(stage.marks().size(), 1);
    stage.click({101, 112});
    QVERIFY(stage.marks().isEmpty());
}

void TestEraserTool::clickInsideATextBoxRemovesWhatWasSelected()
{
    GestureStage stage;
    EraserTool tool;
    auto *box = addTextBox(stage, {100, 100});
    for (int i = 0; i < 2; ++i)
        addRectangle(stage, QRectF(100 + 100 * i, 300, 50, 50))->setSelected(true);
    auto *unselected = addRectangle(stage, {400, 300, 50, 50});
    stage.use(&tool);
    // The caret takes the press; the selection stays as it was, and the release cuts it.
    stage.click({130, 112});
    QCOMPARE(stage.marks(), (QList<Annotation *>{box, unselected}));
    QVERIFY(box->hasFocus());
    stage.undo();
    QCOMPARE(stage.marks().size(), 4);
}

void TestEraserTool::toolChangeInMidGestureRemovesNothing()
{
    GestureStage stage;
    EraserTool eraser;
    PenTool pen(Qt::red, 1, false);
    addRectangle(stage, {100, 100, 50, 50});
    stage.use(&eraser);
    stage.press({120, 120});
    stage.use(&pen);
    stage.release({120, 120});
    QCOMPARE(stage.marks().size(), 1);
    stage.use(&eraser);
    stage.page.clearSelection();
    stage.click({400, 400});
    QCOMPARE(stage.marks().size(), 1);
}

void TestEraserTool::abandonedGestureRemovesNothing()
{
    GestureStage stage;
    EraserTool tool;
    auto *rectangle = addRectangle(stage, {100, 100, 50, 50});
    stage.use(&tool);
    stage.press({120, 120});
    tool.abandonGesture();
    stage.release({120, 120});
    QVERIFY(rectangle->isSelected());
    stage.press({300, 300}, Qt::MiddleButton);
    stage.release({300, 300}, Qt::MiddleButton);
    QCOMPARE(stage.marks(), QList<Annotation *>{rectangle});
}

void TestEraserTool::cursorShowsWhereAMarkIs()
{
    QFETCH(int, zoom);
    GestureStage stage(zoom);
    EraserTool tool;
    addRectangle(stage, {100, 100, 50, 50});
    stage.use(&tool);
    stage.move({120, 120});
    QCOMPARE(stage.view.cursor().shape(), Qt::PointingHandCursor);
    stage.move({300, 300});
    QCOMPARE(stage.view.cursor().shape(), Qt::ArrowCursor);
    stage.press({300, 300});
    stage.move({120, 120});
    QCOMPARE(stage.view.cursor().shape(), Qt::PointingHandCursor);
    stage.release({120, 120});
    QCOMPARE(stage.marks().size(), 1);
}

void TestEraserTool::worksWithoutAView()
{
    GestureStage stage;
    EraserTool tool;
    addRectangle(stage, {100, 100, 50, 50});
    stage.use(&tool);
    stage.page.setPageView(nullptr);
    stage.move({120, 120});
    stage.click({120, 120});
    QVERIFY(stage.marks().isEmpty());
}

REGISTER_TEST(TestEraserTool)
#include "tst_erasertool.moc"
