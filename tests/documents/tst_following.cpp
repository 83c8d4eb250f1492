// SPDX-License-Identifier: GPL-3.0-or-later
// How marks follow the text when lines come and go.
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/testmark.h"
#include "support/fakehost.h"
#include "support/testmain.h"

#include <QAbstractTextDocumentLayout>
#include <QGraphicsTextItem>
#include <QSettings>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

/// A page of @p lines lines "line 0", "line 1", ...
class TextPage
{
public:
    explicit TextPage(int lines = 20)
    {
        QStringList text;
        QString numbers;
        for (int i = 0; i < lines; ++i) {
            text.append(QStringLiteral("line %1").arg(i));
            numbers += QString::number(i + 1) + QLatin1Char('\n');
        }
        page.setTextContents(QStringLiteral("a.txt"), text.join(QLatin1Char('\n')), numbers);
    }

    double blockTop(int line) const
    {
        const QTextDocument *document = page.textDocument();
        return document->documentLayout()->blockBoundingRect(document->findBlockByNumber(line)).y();
    }
    /// What one line counts for a shift at this moment.
    double lineHeight() const
    {
        return page.documentItem()->textItem()->boundingRect().height() / page.textDocument()->blockCount();
    }
    QTextCursor cursorAt(int line, int column = 0) const
    {
        QTextCursor cursor(page.textDocument());
        cursor.setPosition(page.textDocument()->findBlockByNumber(line).position() + column);
        return cursor;
    }
    void removeLines(int first, int count)
    {
        QTextCursor cursor = cursorAt(first);
        cursor.setPosition(cursorAt(first + count).position(), QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
    TestMark *mark(double y)
    {
        auto *mark = new TestMark(QPointF(50.0, y));
        page.addItem(mark);
        return mark;
    }

    Page page{nullptr};
};

} // namespace

class TestFollowing : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }
    void typingInALineMovesNothing();
    void returnMovesWhatLiesBelowTheTopOfItsLine_data();
    void returnMovesWhatLiesBelowTheTopOfItsLine();
    void returnAtTheVeryStart();
    void removedLinesMoveTheMarksUpOnce();
    void pastedLinesMoveTheMarksDownOnce();
    void undoneTextMovesTheMarksBack();
    void aLongMarkIsJudgedByItsTop();
    void disabledMarksStay();
    void hiddenMarksMove();
    void switchedOffOnlyTheNumbersFollow();
    void switchIsReadAtEachChange();
    void replacedTextMovesMarksByTheChangeOfLines();
    void sameTextAgainMovesNothing();
    void marksBeforeTheFirstTextStay_data();
    void marksBeforeTheFirstTextStay();
    void shiftsAreNotUndoableAndModifyNothing();
    void itemsThatAreNoMarksStay();
};

void TestFollowing::typingInALineMovesNothing()
{
    TextPage text;
    const TestMark *mark = text.mark(60.0);
    text.cursorAt(1, 2).insertText(QStringLiteral("more"));
    text.cursorAt(1, 2).deleteChar();
    QCOMPARE(mark->pos(), QPointF(50.0, 60.0));
    QCOMPARE(text.page.documentItem()->lineCount(), 20);
}

void TestFollowing::returnMovesWhatLiesBelowTheTopOfItsLine_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<double>("offset"); // of the mark from the top of the edited line
    QTest::addColumn<bool>("moves");
    for (const int column : {0, 3, 6}) {
        QTest::addRow("column %d, just above", column) << column << -0.001 << false;
        QTest::addRow("column %d, exactly at the top", column) << column << 0.0 << false;
        QTest::addRow("column %d, just below", column) << column << 0.001 << true;
        QTest::addRow("column %d, lines below", column) << column << 100.0 << true;
    }
}

void TestFollowing::returnMovesWhatLiesBelowTheTopOfItsLine()
{
    QFETCH(const int, column);
    QFETCH(const double, offset);
    QFETCH(const bool, moves);
    TextPage text;
    const double y = text.blockTop(5) + offset;
    const TestMark *mark = text.mark(y);
    const double shift = text.lineHeight();
    text.cursorAt(5, column).insertText(QStringLiteral("\n"));
    QCOMPARE(mark->pos(), QPointF(50.0, moves ? y + shift : y));
}

void TestFollowing::returnAtTheVeryStart()
{
    TextPage text;
    const double top = text.blockTop(0);
    QCOMPARE(top, text.page.textDocument()->documentMargin());
    const TestMark *above = text.mark(top);
    const TestMark *inLine = text.mark(top + 1.0);
    const double shift = text.lineHeight();
    text.cursorAt(0).insertText(QStringLiteral("\n"));
    QCOMPARE(above->y(), top);
    QCOMPARE(inLine->y(), top + 1.0 + shift);
}

void TestFollowing::removedLinesMoveTheMarksUpOnce()
{
    TextPage text;
    const double shift = text.lineHeight();
    const TestMark *above = text.mark(text.blockTop(4) + 1.0);
    const double insideTop = text.blockTop(7) + 2.0;
    const TestMark *inside = text.mark(insideTop);
    const double belowTop = text.blockTop(15);
    const TestMark *below = text.mark(belowTop);
    const double aboveTop = above->y();
    text.removeLines(5, 5);
    QCOMPARE(text.page.textDocument()->blockCount(), 15);
    QCOMPARE(above->y(), aboveTop);
    QCOMPARE(inside->y(), insideTop - 5 * shift);
    QCOMPARE(below->y(), belowTop - 5 * shift);
}

void TestFollowing::pastedLinesMoveTheMarksDownOnce()
{
    TextPage text;
    const double shift = text.lineHeight();
    const double y = text.blockTop(10);
    const TestMark *mark = text.mark(y);
    text.page.documentItem()->textItem()->setTextCursor(text.cursorAt(3, 1));
    text.page.documentItem()->pasteText(QStringLiteral("x\n").repeated(30));
    QCOMPARE(text.page.documentItem()->lineCount(), 50);
    QCOMPARE(mark->y(), y + 30 * shift);
}

void TestFollowing::undoneTextMovesTheMarksBack()
{
    TextPage text;
    const double y = text.blockTop(10) + 1.0;
    const TestMark *mark = text.mark(y);
    const double down = text.lineHeight();
    text.cursorAt(3).insertText(QStringLiteral("a\nb\n"));
    QCOMPARE(mark->y(), y + 2 * down);
    const double up = text.lineHeight();
    text.page.textDocument()->undo();
    // The average line is a little lower in a longer text, whose margins are shared by more lines.
    QCOMPARE(mark->y(), y + 2 * down - 2 * up);
    QVERIFY(qAbs(mark->y() - y) < 2.0);
}

void TestFollowing::aLongMarkIsJudgedByItsTop()
{
    TextPage text;
    TestMark *mark = text.mark(text.blockTop(2));
    mark->setRect(0, 0, 20, 300);
    const double y = mark->y();
    text.cursorAt(5).insertText(QStringLiteral("\n"));
    QCOMPARE(mark->y(), y);
    QCOMPARE(mark->rect().height(), 300.0);
}

void TestFollowing::disabledMarksStay()
{
    TextPage text;
    TestMark *mark = text.mark(200.0);
    mark->setEnabled(false);
    text.cursorAt(2).insertText(QStringLiteral("\n"));
    QCOMPARE(mark->y(), 200.0);
}

void TestFollowing::hiddenMarksMove()
{
    TextPage text;
    TestMark *mark = text.mark(200.0);
    text.page.setAnnotationsHidden(true);
    const double shift = text.lineHeight();
    text.cursorAt(2).insertText(QStringLiteral("\n"));
    QCOMPARE(mark->y(), 200.0 + shift);
}

void TestFollowing::switchedOffOnlyTheNumbersFollow()
{
    QSettings().setValue(QStringLiteral("Other/SynchAnnotations"), false);
    TextPage text;
    const TestMark *mark = text.mark(200.0);
    text.cursorAt(2).insertText(QStringLiteral("\n\n"));
    text.removeLines(0, 1);
    QCOMPARE(mark->y(), 200.0);
    QCOMPARE(text.page.documentItem()->lineCount(), 21);
    QCOMPARE(text.page.documentItem()->lineNumbersItem()->document()->blockCount(), 22);
}

void TestFollowing::switchIsReadAtEachChange()
{
    TextPage text;
    const TestMark *mark = text.mark(200.0);
    QSettings().setValue(QStringLiteral("Other/SynchAnnotations"), false);
    text.cursorAt(2).insertText(QStringLiteral("\n"));
    QCOMPARE(mark->y(), 200.0);
    QSettings().setValue(QStringLiteral("Other/SynchAnnotations"), true);
    const double shift = text.lineHeight();
    text.cursorAt(2).insertText(QStringLiteral("\n"));
    // Nothing is caught up.
    QCOMPARE(mark->y(), 200.0 + shift);
}

void TestFollowing::replacedTextMovesMarksByTheChangeOfLines()
{
    TextPage text(10);
    const TestMark *mark = text.mark(500.0);
    const double lineHeight = text.page.documentItem()->textItem()->boundingRect().height() / 10;
    text.page.setTextContents(QStringLiteral("a.txt"), QStringLiteral("a\nb\nc"), QStringLiteral("1\n2\n3\n"));
    QCOMPARE(mark->y(), 500.0 - 7 * lineHeight);
    QCOMPARE(text.page.documentItem()->lineCount(), 3);
}

void TestFollowing::sameTextAgainMovesNothing()
{
    TextPage text(20);
    const QString lines = text.page.plainText();
    const TestMark *high = text.mark(5.0);
    const TestMark *low = text.mark(200.0);
    text.page.setTextContents(QStringLiteral("a.txt"), lines, QStringLiteral("1\n"));
    QCOMPARE(high->y(), 5.0);
    QCOMPARE(low->y(), 200.0);
}

void TestFollowing::marksBeforeTheFirstTextStay_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("one line") << "only line";
    QTest::newRow("twenty lines") << QString("line\n").repeated(20);
    QTest::newRow("empty") << QString();
}

void TestFollowing::marksBeforeTheFirstTextStay()
{
    QFETCH(const QString, text);
    Page page(nullptr);
    auto *mark = new TestMark(QPointF(10.0, 20.0));
    page.addItem(mark);
    page.setTextContents(QStringLiteral("a.txt"), text, QStringLiteral("1\n"));
    QCOMPARE(mark->pos(), QPointF(10.0, 20.0));
}

void TestFollowing::shiftsAreNotUndoableAndModifyNothing()
{
    FakeHost host;
    Page page(&host);
    page.setTextContents(QStringLiteral("a.txt"), QStringLiteral("a\nb"), QStringLiteral("1\n2\n"));
    page.addAnnotation(new TestMark(QPointF(0, 100)));
    page.activateUndoStack();
    page.setModified(false);
    QTextCursor(page.textDocument()).insertText(QStringLiteral("\n"));
    QVERIFY(marksOn(page).constFirst()->y() > 100.0);
    QVERIFY(!page.isModified());
    host.group->undo();
    QVERIFY(marksOn(page).isEmpty());
    QVERIFY(!host.group->canUndo());
}

void TestFollowing::itemsThatAreNoMarksStay()
{
    TextPage text;
    auto *item = text.page.addRect(0, 0, 10, 10);
    item->setPos(0, 300);
    text.cursorAt(2).insertText(QStringLiteral("\n"));
    QCOMPARE(item->y(), 300.0);
    QCOMPARE(text.page.documentItem()->textItem()->y(), 5.0);
}

REGISTER_TEST(TestFollowing)
#include "tst_following.moc"
