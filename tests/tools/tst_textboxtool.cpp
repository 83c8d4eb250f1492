// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/rectangleann.h"
#include "annotations/textboxann.h"
#include "support/testmain.h"
#include "tools/faketoolhost.h"
#include "tools/gesturestage.h"
#include "tools/pentool.h"
#include "tools/textboxtool.h"

#include <QFont>
#include <QSettings>
#include <QTest>
#include <QTextCursor>

namespace {

const QPointF spot(100, 100);
const QPointF otherSpot(300, 300);

} // namespace

class TestTextBoxTool : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }

    void clickPlacesABox_data() { addZooms(); }
    void clickPlacesABox();
    void boxComesWhereTheButtonIsReleased();
    void newBoxTakesTyping();
    void eachClickPlacesABox();
    void clickOnABoxPlacesNone();
    void clickOnAnotherMarkPlacesABox();
    void settings();
    void colourIsThatOfThePen();
    void usedOnceTheToolGoesAtTheNextPress();
    void usedOnceABoxMayStillBeClicked();
    void updatedSettingsAllowAnotherBox();
    void previousToolThatIsThisOnePlacesNothing();
    void mayBeAbandonedInItsOwnPress();
    void otherButtonsPlaceNothing();
    void doubleClickPlacesOneBox();
    void releaseAfterAToolChangePlacesNothing();
    void placingCanBeUndone();
};

void TestTextBoxTool::clickPlacesABox()
{
    QFETCH(int, zoom);
    GestureStage stage(zoom);
    TextBoxTool tool(nullptr, true);
    stage.use(&tool);
    stage.click(spot);
    auto *box = stage.only<TextBoxAnn>();
    QVERIFY(box);
    QCOMPARE(box->pos(), QPointF(98, 98));
    QCOMPARE(box->toPlainText(), "Enter Text Here");
    QCOMPARE(box->font(), QFont("Courier", 10));
    QCOMPARE(box->textInteractionFlags(), Qt::TextEditorInteraction);
    QCOMPARE(box->flags() &
                 (QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsFocusable),
             QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsFocusable);
    QVERIFY(!tool.annotation());
}

void TestTextBoxTool::boxComesWhereTheButtonIsReleased()
{
    GestureStage stage;
    TextBoxTool tool(nullptr, true);
    stage.use(&tool);
    stage.drag(spot, {{150, 120}, {180, 160}});
    QVERIFY(stage.only<TextBoxAnn>());
    QCOMPARE(stage.only<TextBoxAnn>()->pos(), QPointF(178, 158));
}

void TestTextBoxTool::newBoxTakesTyping()
{
    GestureStage stage;
    TextBoxTool tool(nullptr, true);
    stage.use(&tool);
    stage.view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&stage.view));
    stage.view.setFocus();
    stage.click(spot);
    auto *box = stage.only<TextBoxAnn>();
    QVERIFY(box);
    QCOMPARE(stage.page.focusItem(), box);
    QTest::keyClick(&stage.view, Qt::Key_X);
    QCOMPARE(box->toPlainText(), "xEnter Text Here");
}

void TestTextBoxTool::eachClickPlacesABox()
{
    GestureStage stage;
    FakeToolHost host;
    TextBoxTool tool(&host, true);
    tool.updateSettings();
    stage.use(&tool);
    stage.click(spot);
    stage.click(otherSpot);
    stage.click({100, 300});
    QCOMPARE(stage.marks().size(), 3);
    QCOMPARE(host.restored, 0);
}

void TestTextBoxTool::clickOnABoxPlacesNone()
{
    GestureStage stage;
    TextBoxTool tool(nullptr, true);
    stage.use(&tool);
    stage.view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&stage.view));
    stage.click(spot);
    stage.click(otherSpot);
    QCOMPARE(stage.marks().size(), 2);
    auto *first = dynamic_cast<TextBoxAnn *>(stage.marks().constFirst());
    const QPointF inside(150, 110);
    QCOMPARE(stage.page.itemAt(inside, stage.view.transform()), first);
    stage.click(inside);
    QCOMPARE(stage.marks().size(), 2);
    QVERIFY(first->hasFocus());
    QVERIFY(first->textCursor().position() > 0);
    // The button alone, without a press, places nothing either.
    stage.release(inside, Qt::MiddleButton);
    QCOMPARE(stage.marks().size(), 2);
}

void TestTextBoxTool::clickOnAnotherMarkPlacesABox()
{
    GestureStage stage;
    TextBoxTool tool(nullptr, true);
    auto *rectangle = new RectangleAnn;
    rectangle->setRect(50, 50, 100, 100);
    stage.page.addItem(rectangle);
    stage.use(&tool);
    stage.click(spot);
    QCOMPARE(stage.marks().size(), 2);
}

void TestTextBoxTool::settings()
{
    QSettings().setValue("TextBoxTool/DefaultFontFamily", "Arial");
    QSettings().setValue("TextBoxTool/DefaultFontSize", 23);
    GestureStage stage;
    TextBoxTool follower(nullptr, true);
    follower.updateSettings();
    stage.use(&follower);
    stage.click(spot);
    QCOMPARE(stage.only<TextBoxAnn>()->font(), QFont("Arial", 23));

    TextBoxTool fixed(nullptr, false);
    fixed.updateSettings();
    stage.use(&fixed);
    stage.click(otherSpot);
    QCOMPARE(dynamic_cast<TextBoxAnn *>(stage.marks().constLast())->font(), QFont("Courier", 10));
}

void TestTextBoxTool::colourIsThatOfThePen()
{
    GestureStage stage;
    TextBoxTool tool(nullptr, true);
    tool.setPenColor(QColor(200, 10, 20));
    stage.use(&tool);
    stage.click(spot);
    QCOMPARE(stage.only<TextBoxAnn>()->defaultTextColor(), QColor(200, 10, 20));
}

void TestTextBoxTool::usedOnceTheToolGoesAtTheNextPress()
{
    QSettings().setValue("TextBoxTool/UseOnce", true);
    GestureStage stage;
    FakeToolHost host;
    PenTool pen(Qt::red, 1, false);
    TextBoxTool tool(&host, true);
    host.onRestore = [&] { stage.use(&pen); };
    tool.updateSettings();
    stage.use(&tool);
    stage.click(spot);
    QCOMPARE(stage.marks().size(), 1);
    QCOMPARE(host.restored, 0);
    stage.press(otherSpot);
    QCOMPARE(host.restored, 1);
    stage.release(otherSpot);
    QCOMPARE(stage.marks().size(), 1);
    QVERIFY(!pen.annotation());
    QVERIFY(!tool.annotation());
}

void TestTextBoxTool::usedOnceABoxMayStillBeClicked()
{
    QSettings().setValue("TextBoxTool/UseOnce", true);
    GestureStage stage;
    FakeToolHost host;
    TextBoxTool tool(&host, true);
    tool.updateSettings();
    stage.use(&tool);
    stage.click(spot);
    stage.click({150, 110});
    QCOMPARE(host.restored, 0);
    QCOMPARE(stage.marks().size(), 1);
}

void TestTextBoxTool::updatedSettingsAllowAnotherBox()
{
    QSettings().setValue("TextBoxTool/UseOnce", true);
    GestureStage stage;
    FakeToolHost host;
    TextBoxTool tool(&host, true);
    tool.updateSettings();
    stage.use(&tool);
    stage.click(spot);
    tool.updateSettings();
    stage.click(otherSpot);
    QCOMPARE(stage.marks().size(), 2);
    QCOMPARE(host.restored, 0);
    // A tool that does not follow the settings is set up anew all the same.
    tool.setFollowsSettings(false);
    tool.updateSettings();
    stage.click({100, 300});
    QCOMPARE(stage.marks().size(), 3);
    QCOMPARE(host.restored, 0);
}

void TestTextBoxTool::previousToolThatIsThisOnePlacesNothing()
{
    QSettings().setValue("TextBoxTool/UseOnce", true);
    GestureStage stage;
    FakeToolHost host;
    TextBoxTool tool(&host, true);
    host.onRestore = [&] { tool.updateSettings(); };
    tool.updateSettings();
    stage.use(&tool);
    stage.click(spot);
    stage.click(otherSpot);
    QCOMPARE(host.restored, 1);
    QCOMPARE(stage.marks().size(), 1);
    stage.click(otherSpot);
    QCOMPARE(stage.marks().size(), 2);
}

void TestTextBoxTool::mayBeAbandonedInItsOwnPress()
{
    QSettings().setValue("TextBoxTool/UseOnce", true);
    GestureStage stage;
    FakeToolHost host;
    PenTool pen(Qt::red, 1, false);
    TextBoxTool tool(&host, true);
    host.onRestore = [&] {
        tool.abandonGesture();
        stage.use(&pen);
    };
    tool.updateSettings();
    stage.use(&tool);
    stage.click(spot);
    stage.click(otherSpot);
    QCOMPARE(host.restored, 1);
    QCOMPARE(stage.marks().size(), 1);
    // Current again, it places nothing without a press.
    tool.updateSettings();
    stage.use(&tool);
    stage.release(otherSpot, Qt::MiddleButton);
    QCOMPARE(stage.marks().size(), 1);
}

void TestTextBoxTool::otherButtonsPlaceNothing()
{
    GestureStage stage;
    TextBoxTool tool(nullptr, true);
    stage.use(&tool);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        stage.press(spot, button);
        stage.release(spot, button);
    }
    QVERIFY(stage.marks().isEmpty());
}

void TestTextBoxTool::doubleClickPlacesOneBox()
{
    GestureStage stage;
    TextBoxTool tool(nullptr, true);
    stage.use(&tool);
    stage.doubleClick(spot);
    // The first click places the box; the second press of a double click is none to the tool.
    QCOMPARE(stage.marks().size(), 1);
}

void TestTextBoxTool::releaseAfterAToolChangePlacesNothing()
{
    GestureStage stage;
    TextBoxTool tool(nullptr, true);
    PenTool pen(Qt::red, 1, false);
    stage.use(&pen);
    stage.press(spot);
    stage.use(&tool);
    stage.release(spot);
    QVERIFY(stage.marks().isEmpty());
}

void TestTextBoxTool::placingCanBeUndone()
{
    GestureStage stage;
    TextBoxTool tool(nullptr, true);
    stage.use(&tool);
    stage.click(spot);
    QCOMPARE(stage.undoSteps(), 1);
    stage.undo();
    QVERIFY(stage.marks().isEmpty());
}

REGISTER_TEST(TestTextBoxTool)
#include "tst_textboxtool.moc"
