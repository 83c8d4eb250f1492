// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documentitem.h"

#include "documents/page.h"
#include "documents/pageview.h"
#include "documents/testmark.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/testmain.h"

#include <QAbstractTextDocumentLayout>
#include <QGraphicsPixmapItem>
#include <QGraphicsTextItem>
#include <QPainter>
#include <QRandomGenerator>
#include <QSettings>
#include <QStyleOptionGraphicsItem>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

QString numbersUpTo(int last)
{
    QString numbers;
    for (int i = 1; i <= last; ++i)
        numbers += QString::number(i) + QLatin1Char('\n');
    return numbers;
}

QString linesOfText(int count)
{
    QStringList lines;
    for (int i = 1; i <= count; ++i)
        lines.append(QStringLiteral("line %1").arg(i));
    return lines.join(QLatin1Char('\n'));
}

void fill(Page *page, const QString &text)
{
    page->setTextContents(QStringLiteral("a.txt"), text, numbersUpTo(int(text.count(QLatin1Char('\n'))) + 1));
}

QString numbersOf(const Page &page)
{
    return page.documentItem()->lineNumbersItem()->toPlainText();
}

QSizeF expectedSceneSize(const Page &page)
{
    const QSizeF size = page.textDocument()->size();
    return {2 * 5.0 + size.width() + 100.0, size.height() + 120.0};
}

} // namespace

class TestDocumentItem : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }
    void aNewItemShowsNothing();
    void newDocumentIsALineOfBlanks();
    void fontComesFromTheSettings();
    void textIsNeverWrapped();
    void tabStopsStandSixteenUnitsApart();
    void itemsLieBelowTheMarks();
    void setTextContentsReplacesTextAndNumbers();
    void gutterGrowsWithTheDigits_data();
    void gutterGrowsWithTheDigits();
    void sceneFollowsTheText();
    void hidingNumbersMovesNothing();
    void numbersFollowEdits();
    void numbersCannotBeUndone();
    void undoOfTheTextBringsTheNumbersBack();
    void anEmptyTextHasNoNumber();
    void pictureTakesTheSceneOver();
    void boundingRectJoinsTheItems();
    void paintsNumbersThenTextThenPicture();
    void paintsNothingWhenNothingIsExposed();
    void cutAndPaste();
    void pasteSetsTheBoundsBehindAdjusting();
    void tabsAreInserted();
    void setCursorPositionPlacesTheCaret();
    void editableSwitch();
    void plainTextIsExact_data();
    void plainTextIsExact();
    void changedFontMovesNoMarkAndSaysSo();
    void sceneRectIsSetOnlyWhenItChanges();
    void everyEditRefreshesTheUi();
};

void TestDocumentItem::aNewItemShowsNothing()
{
    Page page(nullptr);
    QVERIFY(page.items().isEmpty());
    QCOMPARE(page.documentItem()->lineCount(), 0);
    QVERIFY(!page.documentItem()->isModified());
    QVERIFY(!page.documentItem()->scene());
}

void TestDocumentItem::newDocumentIsALineOfBlanks()
{
    FakeHost host;
    Page page(&host);
    page.setModified(true);
    page.newDocument();
    QCOMPARE(page.plainText(), QString(60, QLatin1Char(' ')));
    QCOMPARE(page.documentItem()->lineCount(), 1);
    QCOMPARE(numbersOf(page), QStringLiteral("1\n"));
    QVERIFY(!page.isModified());
    QCOMPARE(page.documentKind(), Page::TextDocument);
    QCOMPARE(page.sceneRect(), QRectF(QPointF(), expectedSceneSize(page)));
    QVERIFY(host.menuUpdates > 0);
}

void TestDocumentItem::fontComesFromTheSettings()
{
    Page plain(nullptr);
    QCOMPARE(plain.documentFont().family(), QStringLiteral("Courier"));
    QCOMPARE(plain.documentFont().pointSize(), 10);

    QSettings().setValue(QStringLiteral("PageView/DefaultFontFamily"), QStringLiteral("Arial"));
    QSettings().setValue(QStringLiteral("PageView/DefaultFontSize"), 17);
    Page chosen(nullptr);
    QCOMPARE(chosen.documentFont(), QFont(QStringLiteral("Arial"), 17));
    QCOMPARE(chosen.documentItem()->lineNumbersItem()->font(), QFont(QStringLiteral("Arial"), 17));
    QCOMPARE(chosen.documentItem()->lineNumbersItem()->defaultTextColor(), QColor(Qt::gray));
    QCOMPARE(plain.documentFont().pointSize(), 10);
}

void TestDocumentItem::textIsNeverWrapped()
{
    Page page(nullptr);
    PageView view(&page, nullptr);
    view.resize(200, 100);
    fill(&page, QStringLiteral("short"));
    const double narrow = page.sceneRect().width();
    fill(&page, QStringLiteral("wide ").repeated(500));
    QCOMPARE(page.textDocument()->blockCount(), 1);
    const QTextBlock block = page.textDocument()->firstBlock();
    QVERIFY(page.textDocument()->documentLayout()->blockBoundingRect(block).width() > 5000.0);
    QCOMPARE(block.layout()->lineCount(), 1);
    QVERIFY(page.sceneRect().width() > narrow + 1000.0);
    QCOMPARE(page.sceneRect().size(), expectedSceneSize(page));
}

void TestDocumentItem::tabStopsStandSixteenUnitsApart()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("\t\tx"));
    const QTextBlock block = page.textDocument()->firstBlock();
    page.textDocument()->documentLayout()->blockBoundingRect(block);
    const QTextLine line = block.layout()->lineAt(0);
    QCOMPARE(line.cursorToX(2) - line.cursorToX(0), 32.0);
}

void TestDocumentItem::itemsLieBelowTheMarks()
{
    Page page(nullptr);
    DocumentItem *item = page.documentItem();
    QCOMPARE(item->textItem()->zValue(), -1.0);
    QCOMPARE(item->lineNumbersItem()->zValue(), -1.0);
    QCOMPARE(item->pixmapItem()->zValue(), -1.0);
    QCOMPARE(item->textItem()->textInteractionFlags(), Qt::TextInteractionFlags(Qt::TextEditorInteraction));
    QVERIFY(item->textItem()->flags() & QGraphicsItem::ItemIsFocusable);
    QVERIFY(item->textItem()->flags() & QGraphicsItem::ItemIsSelectable);
}

void TestDocumentItem::setTextContentsReplacesTextAndNumbers()
{
    Page page(nullptr);
    fill(&page, linesOfText(9));
    QCOMPARE(page.plainText(), linesOfText(9));
    QCOMPARE(numbersOf(page), numbersUpTo(9));
    QCOMPARE(page.documentItem()->lineNumbersItem()->document()->blockCount(), 10);
    QCOMPARE(page.documentItem()->lineCount(), 9);

    fill(&page, linesOfText(3));
    QCOMPARE(page.plainText(), linesOfText(3));
    QCOMPARE(numbersOf(page), numbersUpTo(3));
    QCOMPARE(page.documentItem()->lineCount(), 3);
    QCOMPARE(page.items().size(), 2);
    QVERIFY(!page.textDocument()->isUndoAvailable());
}

void TestDocumentItem::gutterGrowsWithTheDigits_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<QString>("widestNumber");
    QTest::newRow("1 line") << 1 << "2";
    QTest::newRow("8 lines") << 8 << "9";
    QTest::newRow("9 lines are as wide as 10") << 9 << "10";
    QTest::newRow("98 lines") << 98 << "99";
    QTest::newRow("99 lines are as wide as 100") << 99 << "100";
}

void TestDocumentItem::gutterGrowsWithTheDigits()
{
    QFETCH(const int, lines);
    QFETCH(const QString, widestNumber);
    Page page(nullptr);
    fill(&page, linesOfText(lines));
    const QFontMetrics metrics(page.documentItem()->lineNumbersItem()->font());
    QCOMPARE(page.documentItem()->textItem()->pos(), QPointF(metrics.horizontalAdvance(widestNumber) + 15.0, 5.0));
    QCOMPARE(page.documentItem()->lineNumbersItem()->pos(), QPointF(5.0, 5.0));
}

void TestDocumentItem::sceneFollowsTheText()
{
    Page page(nullptr);
    fill(&page, linesOfText(20));
    QCOMPARE(page.sceneRect(), QRectF(QPointF(), expectedSceneSize(page)));
    const double tall = page.sceneRect().height();

    QTextCursor cursor(page.textDocument());
    cursor.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor, 10);
    cursor.removeSelectedText();
    QCOMPARE(page.textDocument()->blockCount(), 10);
    QVERIFY(page.sceneRect().height() < tall);
    QCOMPARE(page.sceneRect().size(), expectedSceneSize(page));

    cursor.insertText(QStringLiteral("x").repeated(300));
    QCOMPARE(page.sceneRect().size(), expectedSceneSize(page));
    cursor.insertText(QStringLiteral("\n\n\n"));
    QCOMPARE(page.sceneRect().size(), expectedSceneSize(page));
}

void TestDocumentItem::hidingNumbersMovesNothing()
{
    Page page(nullptr);
    fill(&page, linesOfText(5));
    auto *mark = new TestMark({30.25, 40.5});
    page.addAnnotation(mark);
    const QPointF before = page.documentItem()->textItem()->pos();
    page.showLineNumbers(false);
    QVERIFY(!page.documentItem()->lineNumbersItem()->isVisible());
    page.documentItem()->updateLayout();
    QCOMPARE(page.documentItem()->textItem()->pos(), before);
    page.showLineNumbers(true);
    QVERIFY(page.documentItem()->lineNumbersItem()->isVisible());
    QCOMPARE(page.documentItem()->textItem()->pos(), before);
    QCOMPARE(mark->pos(), QPointF(30.25, 40.5));
    QVERIFY(mark->isVisible());
}

void TestDocumentItem::numbersFollowEdits()
{
    Page page(nullptr);
    fill(&page, linesOfText(5));
    QRandomGenerator random(7);
    QTextCursor cursor(page.textDocument());
    for (int step = 0; step < 400; ++step) {
        const int length = page.textDocument()->characterCount();
        cursor.setPosition(random.bounded(length));
        if (random.bounded(2) == 0) {
            cursor.insertText(random.bounded(3) == 0 ? QStringLiteral("\n").repeated(random.bounded(1, 9))
                                                     : QStringLiteral("a"));
        } else {
            cursor.setPosition(std::min(length - 1, cursor.position() + random.bounded(12)), QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
        }
        QCOMPARE(page.documentItem()->lineCount(), page.textDocument()->blockCount());
        QCOMPARE(numbersOf(page), numbersUpTo(page.textDocument()->blockCount()));
    }
}

void TestDocumentItem::numbersCannotBeUndone()
{
    Page page(nullptr);
    fill(&page, linesOfText(2));
    QTextCursor(page.textDocument()).insertText(QStringLiteral("\n\n"));
    QVERIFY(!page.documentItem()->lineNumbersItem()->document()->isUndoRedoEnabled());
    QVERIFY(!page.documentItem()->lineNumbersItem()->document()->isUndoAvailable());
}

void TestDocumentItem::undoOfTheTextBringsTheNumbersBack()
{
    Page page(nullptr);
    fill(&page, linesOfText(4));
    QTextCursor cursor(page.textDocument());
    cursor.insertText(QStringLiteral("\n\n\n"));
    QCOMPARE(numbersOf(page), numbersUpTo(7));
    page.textDocument()->undo();
    QCOMPARE(numbersOf(page), numbersUpTo(4));
    page.textDocument()->redo();
    QCOMPARE(numbersOf(page), numbersUpTo(7));
}

void TestDocumentItem::anEmptyTextHasNoNumber()
{
    Page page(nullptr);
    page.setTextContents(QStringLiteral("empty.txt"), QString(), QString());
    QCOMPARE(page.documentItem()->lineCount(), 1);
    QCOMPARE(numbersOf(page), QString());
    // One empty block stands in the gutter: it is one digit wide, as it would be with the number 1.
    const double digit = QFontMetrics(page.documentFont()).horizontalAdvance(QLatin1Char('1'));
    QCOMPARE(page.documentItem()->textItem()->pos(), QPointF(5.0 + digit + 10.0, 5.0));
    QCOMPARE(page.documentItem()->lineNumbersItem()->pos(), QPointF(5.0, 5.0));
    QCOMPARE(page.sceneRect().size(), expectedSceneSize(page));
    // The second line is the first to get a number behind it, and it goes again with its line.
    QTextCursor cursor(page.textDocument());
    cursor.insertText(QStringLiteral("a\nb"));
    QCOMPARE(numbersOf(page), QStringLiteral("2\n"));
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    QCOMPARE(numbersOf(page), QString());
}

void TestDocumentItem::pictureTakesTheSceneOver()
{
    Page page(nullptr);
    page.documentItem()->setImageContents(QPixmap(321, 123));
    QCOMPARE(page.sceneRect(), QRectF(0, 0, 321, 123));
    QCOMPARE(page.items(), QList<QGraphicsItem *>{page.documentItem()->pixmapItem()});
    QCOMPARE(page.documentItem()->pixmapItem()->pos(), QPointF());
    page.documentItem()->setImageContents(QPixmap(20, 10));
    QCOMPARE(page.sceneRect(), QRectF(0, 0, 20, 10));
    QCOMPARE(page.items().size(), 1);
}

void TestDocumentItem::boundingRectJoinsTheItems()
{
    Page page(nullptr);
    fill(&page, linesOfText(3));
    DocumentItem *item = page.documentItem();
    QCOMPARE(item->boundingRect(), item->textItem()->boundingRect() | item->lineNumbersItem()->boundingRect() |
                                       item->pixmapItem()->boundingRect());
    page.documentItem()->setImageContents(QPixmap(2000, 3000));
    QVERIFY(item->boundingRect().contains(QRectF(0, 0, 2000, 3000)));
}

void TestDocumentItem::paintsNumbersThenTextThenPicture()
{
    Page page(nullptr);
    fill(&page, linesOfText(3));
    QPixmap picture(200, 100);
    picture.fill(Qt::red);
    page.documentItem()->pixmapItem()->setPixmap(picture);
    QImage canvas(200, 100, QImage::Format_RGB32);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    QStyleOptionGraphicsItem option;
    option.exposedRect = canvas.rect();
    page.documentItem()->paint(&painter, &option, nullptr);
    painter.end();
    QCOMPARE(canvas.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(canvas.pixelColor(199, 99), QColor(Qt::red));
}

void TestDocumentItem::paintsNothingWhenNothingIsExposed()
{
    Page page(nullptr);
    fill(&page, linesOfText(3));
    QImage canvas(200, 100, QImage::Format_RGB32);
    canvas.fill(Qt::white);
    const QImage empty = canvas.copy();
    QPainter painter(&canvas);
    QStyleOptionGraphicsItem option;
    page.documentItem()->paint(&painter, &option, nullptr);
    QCOMPARE(canvas, empty);
    option.exposedRect = QRectF(0, 0, 200, 10);
    page.documentItem()->paint(&painter, &option, nullptr);
    painter.end();
    QVERIFY(canvas != empty);
    QCOMPARE(canvas.copy(0, 10, 200, 90), empty.copy(0, 10, 200, 90));
}

void TestDocumentItem::cutAndPaste()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("one two three"));
    DocumentItem *item = page.documentItem();
    QTextCursor cursor(page.textDocument());
    cursor.setPosition(4);
    cursor.setPosition(8, QTextCursor::KeepAnchor);
    item->textItem()->setTextCursor(cursor);
    QCOMPARE(item->selectedText(), QStringLiteral("two "));
    QCOMPARE(item->cutSelectedText(), QStringLiteral("two "));
    QCOMPARE(page.plainText(), QStringLiteral("one three"));
    QCOMPARE(item->selectedText(), QString());
    item->pasteText(QStringLiteral("2\n3\n"));
    QCOMPARE(page.plainText(), QStringLiteral("one 2\n3\nthree"));
    QCOMPARE(numbersOf(page), numbersUpTo(3));
}

void TestDocumentItem::pasteSetsTheBoundsBehindAdjusting()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("a"));
    PageView view(&page, nullptr);
    view.resize(3000, 2000);
    const DocumentItem *item = page.documentItem();
    int lines = 0;
    QRectF adjusted;
    // Called behind the item's own slot, while the text is being inserted.
    connect(page.textDocument(), &QTextDocument::contentsChange, this, [&] {
        lines = item->lineCount();
        adjusted = item->bounds();
    });
    page.documentItem()->pasteText(QStringLiteral("b\n").repeated(30));
    QCOMPARE(lines, 31);
    QCOMPARE(adjusted.size(), QSizeF(3000 - 2 * 50, 2000 - 2 * 5));
    QCOMPARE(page.sceneRect().size(), expectedSceneSize(page));
    // What the paste itself sets comes last.
    QCOMPARE(item->bounds(), page.sceneRect());
}

void TestDocumentItem::tabsAreInserted()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("ab"));
    page.documentItem()->setCursorPosition(1);
    page.documentItem()->insertTabs(3);
    QCOMPARE(page.plainText(), QStringLiteral("a\t\t\tb"));
}

void TestDocumentItem::setCursorPositionPlacesTheCaret()
{
    Page page(nullptr);
    fill(&page, linesOfText(3));
    page.documentItem()->setCursorPosition(9);
    QCOMPARE(page.documentItem()->textItem()->textCursor().position(), 9);
    QCOMPARE(page.focusItem(), page.documentItem()->textItem());
}

void TestDocumentItem::editableSwitch()
{
    Page page(nullptr);
    fill(&page, linesOfText(3));
    DocumentItem *item = page.documentItem();
    item->setTextEditable(false);
    QCOMPARE(item->textItem()->textInteractionFlags(), Qt::TextInteractionFlags(Qt::NoTextInteraction));
    item->setTextEditable(true);
    QCOMPARE(item->textItem()->textInteractionFlags(), Qt::TextInteractionFlags(Qt::TextEditorInteraction));
    QVERIFY(item->textItem()->flags() & QGraphicsItem::ItemIsFocusable);
}

void TestDocumentItem::plainTextIsExact_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("no-break space") << QStringLiteral("a\u00a0b");
    QTest::newRow("line separator") << QStringLiteral("a\u2028b\nc");
    QTest::newRow("null character") << QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    QTest::newRow("form feed") << QStringLiteral("a\fb\n\f");
    QTest::newRow("object replacement") << QStringLiteral("a\ufffcb");
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("\xf0\x9f\x98\x80 x");
    QTest::newRow("right to left") << QStringLiteral("\u05d0\u05d1 abc");
    QTest::newRow("line feed at the end") << QStringLiteral("a\n");
    QTest::newRow("empty") << QString();
}

void TestDocumentItem::plainTextIsExact()
{
    QFETCH(const QString, text);
    Page page(nullptr);
    fill(&page, text);
    QCOMPARE(page.plainText(), text);
}

void TestDocumentItem::changedFontMovesNoMarkAndSaysSo()
{
    Page page(nullptr);
    fill(&page, linesOfText(3));
    auto *mark = page.addRect(0, 0, 10, 10);
    mark->setPos(30, 40);
    DialogAnswers answers;
    page.setDocumentFont(QFont(QStringLiteral("Arial"), 20));
    QCOMPARE(answers.seen().size(), 0);
    answers.click(QMessageBox::Ok);
    page.documentItem()->setDocumentFont(QFont(QStringLiteral("Arial"), 30), true);
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().title, QStringLiteral("Adjustment"));
    QVERIFY(answers.seen().first().text.contains(QStringLiteral("we highly recomend you to review the document")));
    QCOMPARE(answers.seen().first().icon, QMessageBox::Information);
    QCOMPARE(answers.seen().first().parent, nullptr);
    QCOMPARE(mark->pos(), QPointF(30, 40));
    QCOMPARE(page.documentFont(), QFont(QStringLiteral("Arial"), 30));
    QCOMPARE(page.documentItem()->lineNumbersItem()->font(), QFont(QStringLiteral("Arial"), 30));
    QCOMPARE(page.sceneRect().size(), expectedSceneSize(page));
}

void TestDocumentItem::sceneRectIsSetOnlyWhenItChanges()
{
    Page page(nullptr);
    fill(&page, linesOfText(30) + QStringLiteral("\n") + QStringLiteral("w").repeated(200));
    int changes = 0;
    connect(&page, &QGraphicsScene::sceneRectChanged, this, [&changes] { ++changes; });
    QTextCursor cursor(page.textDocument());
    for (int i = 0; i < 20; ++i)
        cursor.insertText(QStringLiteral("k"));
    QCOMPARE(changes, 0);
    cursor.insertText(QStringLiteral("\n"));
    QCOMPARE(changes, 1);
}

void TestDocumentItem::everyEditRefreshesTheUi()
{
    FakeHost host;
    Page page(&host);
    fill(&page, linesOfText(3));
    host.menuUpdates = 0;
    QTextCursor cursor(page.textDocument());
    cursor.insertText(QStringLiteral("k"));
    QCOMPARE(host.menuUpdates, 1);
    cursor.deletePreviousChar();
    QCOMPARE(host.menuUpdates, 2);
    page.setDocumentFont(QFont(QStringLiteral("Arial"), 20));
    QCOMPARE(host.menuUpdates, 2);
    fill(&page, linesOfText(7));
    QCOMPARE(host.menuUpdates, 3);
}

REGISTER_TEST(TestDocumentItem)
#include "tst_documentitem.moc"
