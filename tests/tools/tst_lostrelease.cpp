// SPDX-License-Identifier: GPL-3.0-or-later
// A box comes up while the left button is held: the release is the box's. What each tool draws until then is tested
// with the other gestures.
#include "annotations/penline.h"
#include "annotations/rectangleann.h"
#include "documents/documentitem.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/testmain.h"
#include "tools/erasertool.h"
#include "tools/gesturestage.h"
#include "tools/pentool.h"
#include "tools/screenshottool.h"
#include "tools/shapetool.h"

#include <QClipboard>
#include <QGraphicsTextItem>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>

#include <functional>

namespace {

/// A box is shown; while it is there, @p meanwhile happens.
void showBox(const std::function<void()> &meanwhile = {})
{
    DialogAnswers answers;
    answers.handle([&meanwhile](QDialog *box) {
        if (meanwhile)
            meanwhile();
        box->accept();
    });
    QMessageBox(QMessageBox::Information, QStringLiteral("Title"), QStringLiteral("Text"), QMessageBox::Ok).exec();
    QCOMPARE(answers.seen().size(), 1);
}

/// A rectangle of 50 x 50 that can be selected and dragged.
RectangleAnn *addRectangle(GestureStage *stage, const QPointF &pos)
{
    auto *rectangle = new RectangleAnn;
    rectangle->setRect(0, 0, 50, 50);
    rectangle->setPos(pos);
    rectangle->setFlags(QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsMovable);
    stage->page.addAnnotation(rectangle);
    return rectangle;
}

/// A mark that shows a box when it is pressed.
class AskingMark final : public RectangleAnn
{
public:
    int asked = 0;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        ++asked;
        showBox();
        RectangleAnn::mousePressEvent(event);
    }
};

} // namespace

class TestLostRelease : public QObject
{
    Q_OBJECT

private slots:
    void draggedMarkStaysWhereItIs();
    void selectionOfTextEnds();
    void eraserRemovesNothing();
    void snapshotIsNotTaken();
    void boxInsideThePress_data();
    void boxInsideThePress();
    void markIsInTheFileThatIsSaved();
    void buttonHeldOnDrawsNothingMore();
    void boxWithoutAGesture();
    void boxOfTheRelease();
    void boxAboveAnotherTab();
};

void TestLostRelease::draggedMarkStaysWhereItIs()
{
    GestureStage stage;
    const RectangleAnn *dragged = addRectangle(&stage, {100, 100});
    const RectangleAnn *other = addRectangle(&stage, {300, 100});
    stage.host.currentMode = TransformMode;
    stage.press({110, 110});
    stage.move({130, 160});
    showBox([&stage] { stage.release({400, 400}); });
    QCOMPARE(dragged->pos(), QPointF(120, 150));
    QVERIFY(dragged->isSelected());
    QVERIFY(!stage.page.mouseGrabberItem());
    stage.move({10, 10});
    QCOMPARE(dragged->pos(), QPointF(120, 150));
    // The next press takes what is under it.
    stage.drag({310, 110}, {{320, 130}});
    QCOMPARE(dragged->pos(), QPointF(120, 150));
    QCOMPARE(other->pos(), QPointF(310, 120));
    QVERIFY(!dragged->isSelected());
    QVERIFY(other->isSelected());
}

void TestLostRelease::selectionOfTextEnds()
{
    GestureStage stage;
    stage.page.setTextContents(QStringLiteral("a.txt"), QString(50, QLatin1Char('x')), QStringLiteral("1\n"));
    stage.host.currentMode = TextMode;
    const double y = 15;
    stage.press({40, y});
    stage.move({140, y});
    const QString selected = stage.page.selectedText();
    QVERIFY(!selected.isEmpty());
    showBox([&] { stage.release({300, y}); });
    stage.move({200, y});
    QCOMPARE(stage.page.selectedText(), selected);
    stage.click({60, y});
    QCOMPARE(stage.page.selectedText(), QString());
}

void TestLostRelease::eraserRemovesNothing()
{
    GestureStage stage;
    EraserTool eraser;
    stage.use(&eraser);
    addRectangle(&stage, {100, 100});
    stage.press({110, 110});
    showBox([&stage] { stage.release({110, 110}); });
    QCOMPARE(stage.marks().size(), 1);
    stage.click({110, 110});
    QVERIFY(stage.marks().isEmpty());
}

void TestLostRelease::snapshotIsNotTaken()
{
    QSettings().setValue(QStringLiteral("ScreenshotTool/InfoViewInClipboard"), false);
    GestureStage stage;
    ScreenShotTool tool(nullptr);
    stage.use(&tool);
    QApplication::clipboard()->clear();
    stage.press({100, 100});
    stage.move({200, 150});
    showBox([&stage] { stage.release({200, 150}); });
    QVERIFY(QApplication::clipboard()->image().isNull());
    stage.drag({100, 100}, {{200, 180}});
    QCOMPARE(QApplication::clipboard()->image().size(), QSize(96, 76));
    QSettings().clear();
}

void TestLostRelease::boxInsideThePress_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("transformation") << int(TransformMode);
    QTest::newRow("tool") << int(ToolMode);
}

void TestLostRelease::boxInsideThePress()
{
    QFETCH(const int, mode);
    GestureStage stage;
    PenTool pen(Qt::red, 2, false);
    stage.use(&pen);
    stage.host.currentMode = mode;
    auto *mark = new AskingMark;
    mark->setRect(0, 0, 50, 50);
    mark->setPos(100, 100);
    mark->setFlags(QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsMovable);
    stage.page.addAnnotation(mark);
    stage.press({110, 110});
    QCOMPARE(mark->asked, 1);
    stage.move({150, 150});
    stage.move({170, 150});
    QVERIFY(!pen.annotation());
    stage.release({170, 150});
    QCOMPARE(stage.marks(), QList<Annotation *>{mark});
    QCOMPARE(mark->pos(), QPointF(100, 100));
    stage.use(&pen);
    stage.drag({300, 200}, {{310, 210}, {320, 220}});
    QCOMPARE(stage.marks().size(), 2);
}

void TestLostRelease::markIsInTheFileThatIsSaved()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.txt"));
    store(path, "text\n");
    GestureStage stage;
    QVERIFY(stage.page.loadFile(path));
    ShapeTool shape(0, false);
    PenTool pen(Qt::red, 2, false);
    stage.use(&shape);
    stage.drag({100, 100}, {{150, 150}});
    stage.use(&pen);
    stage.press({200, 200});
    stage.move({210, 200});
    stage.move({220, 210});
    DialogAnswers answers;
    answers.click(QMessageBox::Yes);
    QVERIFY(stage.page.saveDocument(QString(), false));
    QCOMPARE(answers.seen().size(), 1);
    const QByteArray saved = bytesIn(folder.filePath(QStringLiteral("a.oxn")));
    QCOMPARE(saved.count("<rectangle "), 1);
    QCOMPARE(saved.count("<pen_line "), 1);
    QCOMPARE(saved.count("<p "), 2);
    QVERIFY(!stage.page.isModified());
    stage.release({220, 210});
    QVERIFY(!stage.page.isModified());
    QCOMPARE(stage.undoSteps(), 2);
}

void TestLostRelease::buttonHeldOnDrawsNothingMore()
{
    GestureStage stage;
    PenTool pen(Qt::red, 2, false);
    stage.use(&pen);
    stage.press({100, 100});
    stage.move({120, 100});
    stage.move({130, 110});
    showBox();
    stage.move({300, 300});
    stage.release({300, 300});
    QCOMPARE(stage.marks().size(), 1);
    QCOMPARE(stage.only<PenLine>()->polygon().size(), 2);
    QVERIFY(!pen.annotation());
}

void TestLostRelease::boxWithoutAGesture()
{
    GestureStage stage;
    PenTool pen(Qt::red, 2, false);
    stage.use(&pen);
    stage.drag({100, 100}, {{120, 100}, {130, 110}});
    stage.host.menuUpdates = 0;
    showBox();
    QCOMPARE(stage.host.menuUpdates, 0);
    stage.press({100, 100}, Qt::RightButton);
    showBox();
    QCOMPARE(stage.host.menuUpdates, 0);
    stage.release({100, 100}, Qt::RightButton);
    QCOMPARE(stage.marks().size(), 1);
}

/// The button is up by then.
void TestLostRelease::boxOfTheRelease()
{
    QSettings().setValue(QStringLiteral("ScreenshotTool/InfoViewInClipboard"), true);
    GestureStage stage;
    ScreenShotTool tool(nullptr);
    stage.use(&tool);
    DialogAnswers answers;
    answers.accept();
    stage.drag({100, 100}, {{200, 180}});
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(QApplication::clipboard()->image().size(), QSize(96, 76));
    QSettings().clear();
}

void TestLostRelease::boxAboveAnotherTab()
{
    GestureStage stage;
    GestureStage other;
    PenTool pen(Qt::red, 2, false);
    stage.use(&pen);
    other.use(&pen);
    stage.press({100, 100});
    stage.move({120, 100});
    stage.move({130, 110});
    showBox();
    QCOMPARE(stage.marks().size(), 1);
    QVERIFY(other.marks().isEmpty());
    QCOMPARE(other.host.menuUpdates, 1); // its text came
}

REGISTER_TEST(TestLostRelease)
#include "tst_lostrelease.moc"
