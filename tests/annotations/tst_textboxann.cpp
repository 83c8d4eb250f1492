// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/exacttext.h"
#include "annotations/markxml.h"
#include "annotations/textboxann.h"
#include "support/markpicture.h"
#include "support/testmain.h"

#include <QDomDocument>
#include <QFont>
#include <QGraphicsScene>
#include <QKeyEvent>
#include <QPainter>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <memory>

class TestTextBoxAnn : public QObject
{
    Q_OBJECT

private slots:
    void attributesStandInTheirOrder();
    void textComesBack_data();
    void textComesBack();
    void cellsOfATableAreLines();
    void fontInPixelsIsWrittenAsMinusOne();
    void lookComesBack();
    void missingFieldsTakeDefaults();
    void fontFieldsStandAsTheyAre_data();
    void fontFieldsStandAsTheyAre();
    void firstTextElementCounts();
    void isNotPaintedInTheMaking();
    void isPaintedAsBareText_data();
    void isPaintedAsBareText();
    void isHitInItsWholeFrame();
    void readingLeavesTheFlags();
    void cloneCannotBeEdited();
    void typingIsUndoneInTheBox();
};

void TestTextBoxAnn::attributesStandInTheirOrder()
{
    TextBoxAnn box;
    box.setPos(12, 0.5);
    box.setFont(QFont("Arial", 14));
    box.setDefaultTextColor(QColor(1, 2, 3, 4));
    box.setPlainText("one & two\nthree");
    box.setAntialiasing(true);
    QCOMPARE(MarkXml::streamed(box),
             QByteArray("<text_box pos_x=\"12\" pos_y=\"0.5\" font_family=\"Arial\" font_size=\"14\" red=\"1\""
                        " green=\"2\" blue=\"3\" alpha=\"4\">\n  <txt>one &amp; two\nthree</txt>\n</text_box>\n"));
}

void TestTextBoxAnn::textComesBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("lines") << QStringLiteral("one\ntwo\n\nfour\n");
    QTest::newRow("blanks alone") << QStringLiteral("   \n  ");
    QTest::newRow("indented") << QStringLiteral("  a\n    b  ");
    QTest::newRow("no-break space") << QStringLiteral("10\u00a0km");
    QTest::newRow("soft line break") << QStringLiteral("a\u2028b");
    QTest::newRow("control characters") << QStringLiteral("\f a\x1b \f\f\tb\f");
    QTest::newRow("markup") << QStringLiteral("<b>&amp;]]></b>");
    QTest::newRow("other scripts") << QStringLiteral("zażółć \u65e5\u672c \u0645\u0631");
}

void TestTextBoxAnn::textComesBack()
{
    QFETCH(QString, text);
    TextBoxAnn box;
    box.setPlainText(text);
    QCOMPARE(exactText(*box.document()), text);
    TextBoxAnn streamed;
    MarkXml::readStreamed(streamed, MarkXml::streamed(box));
    QCOMPARE(exactText(*streamed.document()), text);
    TextBoxAnn loaded;
    MarkXml::load(loaded, MarkXml::saved(box));
    QCOMPARE(exactText(*loaded.document()), text);
    // Without a way through text: the very elements that were made.
    QDomDocument document;
    QDomElement root = document.createElement("root");
    box.saveToXml(document, root);
    TextBoxAnn direct;
    direct.loadFromXml(root.firstChildElement(), {});
    QCOMPARE(exactText(*direct.document()), text);
}

void TestTextBoxAnn::cellsOfATableAreLines()
{
    // As pasted from a rich text.
    TextBoxAnn box;
    box.setPlainText("before");
    QTextCursor cursor(box.document());
    cursor.movePosition(QTextCursor::End);
    const QTextTable *table = cursor.insertTable(1, 2);
    table->cellAt(0, 0).firstCursorPosition().insertText("one");
    table->cellAt(0, 1).firstCursorPosition().insertText("two");
    QVERIFY(box.document()->toRawText().contains(QChar(0xfdd0)));
    QVERIFY(box.document()->toRawText().contains(QChar(0xfdd1)));
    QCOMPARE(exactText(*box.document()), box.toPlainText());
    TextBoxAnn copy;
    MarkXml::readStreamed(copy, MarkXml::streamed(box));
    QCOMPARE(copy.toPlainText(), box.toPlainText());
    QVERIFY(MarkXml::streamed(box).contains("before\none\ntwo"));
}

void TestTextBoxAnn::fontInPixelsIsWrittenAsMinusOne()
{
    QFont font("Arial");
    font.setPixelSize(20);
    TextBoxAnn box;
    box.setFont(font);
    QCOMPARE(MarkXml::attributes(MarkXml::streamed(box)).value("font_size"), "-1");
}

void TestTextBoxAnn::lookComesBack()
{
    TextBoxAnn box;
    box.setPos(3, 4);
    box.setFont(QFont("Arial", 17));
    box.setDefaultTextColor(QColor(200, 10, 30, 128));
    box.setPlainText("Text");
    TextBoxAnn copy;
    MarkXml::readStreamed(copy, MarkXml::streamed(box));
    QCOMPARE(copy.pos(), QPointF(3, 4));
    QCOMPARE(copy.font().family(), "Arial");
    QCOMPARE(copy.font().pointSize(), 17);
    QCOMPARE(copy.defaultTextColor(), QColor(200, 10, 30, 128));
    const QRectF canvas(0, 0, 100, 60);
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&copy, canvas), MarkPicture::ofItem(&box, canvas)), QString());
}

void TestTextBoxAnn::missingFieldsTakeDefaults()
{
    TextBoxAnn box;
    box.setPlainText("left over");
    MarkXml::load(box, "<text_box pos_x='5' pos_y='6'/>");
    QCOMPARE(box.toPlainText(), QString());
    QCOMPARE(box.font().family(), "Courier");
    QCOMPARE(box.font().pointSize(), 10);
    QCOMPARE(box.defaultTextColor(), QColor(0, 0, 0, 255));
    QCOMPARE(box.pos(), QPointF(5, 6));
}

void TestTextBoxAnn::fontFieldsStandAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QFont>("font");
    QTest::newRow("blanks around the family") << QByteArray("font_family='  Arial '") << QFont("Arial", 10, -1, false);
    QTest::newRow("size in pixels") << QByteArray("font_size='-1'") << QFont("Courier", -1, -1, false);
    QTest::newRow("size 0") << QByteArray("font_size='0'") << QFont("Courier", 0, -1, false);
    QTest::newRow("size is no number") << QByteArray("font_size='big'") << QFont("Courier", 0, -1, false);
    QTest::newRow("huge") << QByteArray("font_size='2147483647'") << QFont("Courier", 2147483647, -1, false);
    QTest::newRow("family unknown") << QByteArray("font_family='Nonesuch'") << QFont("Nonesuch", 10, -1, false);
    QTest::newRow("no family") << QByteArray("font_family=''") << QFont("", 10, -1, false);
}

void TestTextBoxAnn::fontFieldsStandAsTheyAre()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QFont, font);
    TextBoxAnn box;
    MarkXml::readStreamed(box, "<text_box " + attributes + "><txt>x</txt></text_box>");
    QCOMPARE(box.font(), font);
    QVERIFY(!MarkPicture::ofItem(&box, QRectF(0, 0, 50, 50)).isNull());
}

void TestTextBoxAnn::firstTextElementCounts()
{
    const QByteArray xml = "<text_box>loose<other>x</other><!-- c --><txt>first</txt><txt>second</txt></text_box>";
    TextBoxAnn streamed;
    MarkXml::readStreamed(streamed, xml);
    QCOMPARE(streamed.toPlainText(), "first");
    TextBoxAnn loaded;
    MarkXml::load(loaded, xml);
    QCOMPARE(loaded.toPlainText(), "first");
}

void TestTextBoxAnn::isNotPaintedInTheMaking()
{
    TextBoxAnn box;
    box.setPlainText("Text");
    const QRectF canvas(0, 0, 100, 60);
    const QImage empty = MarkPicture::ofPainting(canvas, [](QPainter &) {});
    QCOMPARE(MarkPicture::ofPainting(canvas, [&](QPainter &painter) { box.paintContent(&painter); }), empty);
    QVERIFY(MarkPicture::ofItem(&box, canvas) != empty);
}

void TestTextBoxAnn::isPaintedAsBareText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("selected");
    for (const bool selected : {false, true}) {
        const char *look = selected ? "selected" : "not selected";
        QTest::addRow("one line, %s", look) << QStringLiteral("Text") << selected;
        QTest::addRow("lines, %s", look) << QStringLiteral("one\n  two\n\nfour") << selected;
        QTest::addRow("empty, %s", look) << QString() << selected;
    }
}

void TestTextBoxAnn::isPaintedAsBareText()
{
    QFETCH(QString, text);
    QFETCH(bool, selected);
    // No frame, no background, no look of its own when selected: what Qt's text item does.
    const QRectF canvas(-10, -10, 150, 120);
    const auto pictureOf = [&](QGraphicsTextItem *item) {
        item->setFont(QFont("Arial", 12));
        item->setDefaultTextColor(QColor(200, 30, 10, 180));
        item->setPlainText(text);
        item->setFlag(QGraphicsItem::ItemIsSelectable);
        return MarkPicture::ofItem(item, canvas, selected);
    };
    TextBoxAnn box;
    box.setAntialiasing(true); // changes nothing here
    QGraphicsTextItem bare;
    const QImage picture = pictureOf(&box);
    QCOMPARE(MarkPicture::difference(picture, pictureOf(&bare)), QString());
    const bool isBlank = picture == MarkPicture::ofPainting(canvas, [](QPainter &) {});
    QCOMPARE(isBlank, text.isEmpty() && !selected);
}

void TestTextBoxAnn::isHitInItsWholeFrame()
{
    TextBoxAnn box;
    box.setPlainText("one\ntwo");
    const QRectF frame = box.boundingRect();
    QCOMPARE(frame.topLeft(), QPointF(0, 0));
    QVERIFY(box.shape().contains(frame.center()));
    QVERIFY(box.shape().contains(QPointF(1, 1)));
    QVERIFY(box.shape().contains(frame.bottomRight() - QPointF(1, 1)));
    QVERIFY(!box.shape().contains(frame.bottomRight() + QPointF(1, 1)));
    // An emptied box keeps a small frame, by which it can still be taken hold of.
    box.setPlainText(QString());
    QVERIFY(!box.shape().isEmpty());
}

void TestTextBoxAnn::readingLeavesTheFlags()
{
    TextBoxAnn box;
    box.setTextInteractionFlags(Qt::TextEditorInteraction);
    box.setFlag(QGraphicsItem::ItemIsMovable);
    const auto flags = box.flags();
    QVERIFY(flags.testFlag(QGraphicsItem::ItemIsFocusable));
    MarkXml::load(box, "<text_box><txt>x</txt></text_box>");
    QCOMPARE(box.flags(), flags);
    QCOMPARE(box.textInteractionFlags(), Qt::TextEditorInteraction);
}

void TestTextBoxAnn::cloneCannotBeEdited()
{
    TextBoxAnn box;
    box.setTextInteractionFlags(Qt::TextEditorInteraction);
    box.setPos(1, 2);
    box.setFont(QFont("Arial", 30));
    box.setDefaultTextColor(Qt::red);
    box.setPlainText("a\u00a0b\nc");
    const std::unique_ptr<TextBoxAnn> copy(box.clone());
    QCOMPARE(exactText(*copy->document()), QStringLiteral("a\u00a0b\nc"));
    QCOMPARE(copy->font(), box.font());
    QCOMPARE(copy->defaultTextColor(), QColor(Qt::red));
    QCOMPARE(copy->pos(), QPointF(21, 22));
    QCOMPARE(copy->textInteractionFlags(), Qt::NoTextInteraction);
    QVERIFY(!copy->flags().testFlag(QGraphicsItem::ItemIsFocusable));
    QVERIFY(copy->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(copy->flags().testFlag(QGraphicsItem::ItemIsSelectable));
}

void TestTextBoxAnn::typingIsUndoneInTheBox()
{
    QGraphicsScene scene;
    auto *box = new TextBoxAnn;
    box->setTextInteractionFlags(Qt::TextEditorInteraction);
    box->setPlainText("a");
    scene.addItem(box);
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&scene, &activation);
    box->setFocus();
    QCOMPARE(scene.focusItem(), box);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_B, Qt::NoModifier, "b");
    QCoreApplication::sendEvent(&scene, &press);
    QCOMPARE(box->toPlainText(), "ba");
    box->document()->undo();
    QCOMPARE(box->toPlainText(), "a");
}

REGISTER_TEST(TestTextBoxAnn)
#include "tst_textboxann.moc"
