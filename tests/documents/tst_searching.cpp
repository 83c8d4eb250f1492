// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QAbstractTextDocumentLayout>
#include <QGraphicsTextItem>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

enum SearchFlag { Plain = 0, Case = 1, Words = 2, Backward = 4 };

void fill(Page *page, const QString &text)
{
    page->setTextContents(QStringLiteral("/tmp/words.txt"), text, QStringLiteral("1\n"));
}

bool searchOnce(Page *page, const QString &text, int flags = Plain)
{
    return page->searchText(text, (flags & Case) != 0, (flags & Words) != 0, (flags & Backward) == 0);
}

/// Start of what is selected in the text, -1 without a selection.
int selectionStart(const Page &page)
{
    const QTextCursor cursor = page.documentItem()->textItem()->textCursor();
    return cursor.hasSelection() ? cursor.selectionStart() : -1;
}

/// Where the matches lie until the search says that it is finished; at most ten.
QList<int> matches(Page *page, const QString &text, int flags)
{
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QList<int> found;
    while (found.size() < 10 && searchOnce(page, text, flags))
        found.append(selectionStart(*page));
    return found;
}

} // namespace

class TestSearching : public QObject
{
    Q_OBJECT

private slots:
    void finds_data();
    void finds();
    void foundTextIsSelected();
    void startsOverByItself();
    void backwardWrapsToTheStart();
    void turnsRound();
    void resetStartsAgain();
    void saysEachTimeThatNothingWasFound_data();
    void saysEachTimeThatNothingWasFound();
    void bringsTheLineIntoSight();
    void followsAnEdit();
    void changesNothing();
};

void TestSearching::finds_data()
{
    const QString text = QStringLiteral("One one\nonly ONE a.b\nbone a*b");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toFind");
    QTest::addColumn<int>("flags");
    QTest::addColumn<QList<int>>("expected");
    QTest::newRow("any case") << text << "one" << int(Plain) << QList<int>{0, 4, 13, 22};
    QTest::newRow("this case") << text << "one" << int(Case) << QList<int>{4, 22};
    QTest::newRow("words") << text << "one" << int(Words) << QList<int>{0, 4, 13};
    QTest::newRow("words in this case") << text << "one" << int(Case | Words) << QList<int>{4};
    QTest::newRow("a dot is a dot") << text << "a.b" << int(Plain) << QList<int>{17};
    QTest::newRow("a star is a star") << text << "a*b" << int(Plain) << QList<int>{26};
    QTest::newRow("over a line end") << text << "one only" << int(Plain) << QList<int>();
    QTest::newRow("none") << text << "two" << int(Plain) << QList<int>();
    QTest::newRow("nothing to look for") << text << "" << int(Plain) << QList<int>();
    QTest::newRow("empty document") << QString() << "one" << int(Plain) << QList<int>();
    QTest::newRow("overlapping") << QStringLiteral("aaaa") << "aa" << int(Plain) << QList<int>{0, 2};
    QTest::newRow("accents") << QString::fromUtf8("Żółw żółw") << QString::fromUtf8("żółw") << int(Case)
                             << QList<int>{5};
    QTest::newRow("beyond the first plane")
        << QString::fromUtf8("a😀b😀") << QString::fromUtf8("😀") << int(Plain) << QList<int>{1, 4};
    QTest::newRow("backward from the start") << text << "one" << int(Backward) << QList<int>();
}

void TestSearching::finds()
{
    QFETCH(QString, text);
    QFETCH(QString, toFind);
    QFETCH(int, flags);
    QFETCH(QList<int>, expected);
    Page page(nullptr);
    fill(&page, text);
    page.resetSearch();
    QCOMPARE(matches(&page, toFind, flags), expected);
}

void TestSearching::foundTextIsSelected()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("one two three"));
    QVERIFY(searchOnce(&page, QStringLiteral("TWO")));
    QCOMPARE(page.selectedText(), QStringLiteral("two"));
}

void TestSearching::startsOverByItself()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("one two one"));
    for (int round = 0; round < 2; ++round)
        QCOMPARE(matches(&page, QStringLiteral("one"), Plain), (QList<int>{0, 8}));
}

void TestSearching::backwardWrapsToTheStart()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("one two one"));
    QVERIFY(searchOnce(&page, QStringLiteral("two")));
    QCOMPARE(matches(&page, QStringLiteral("one"), Backward), QList<int>{0});
    // Before the start there is nothing, however often one looks.
    QCOMPARE(matches(&page, QStringLiteral("one"), Backward), QList<int>());
    QCOMPARE(matches(&page, QStringLiteral("one"), Backward), QList<int>());
}

void TestSearching::turnsRound()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("one one one"));
    QVERIFY(searchOnce(&page, QStringLiteral("one")));
    QVERIFY(searchOnce(&page, QStringLiteral("one")));
    QVERIFY(searchOnce(&page, QStringLiteral("one")));
    QCOMPARE(selectionStart(page), 8);
    QVERIFY(searchOnce(&page, QStringLiteral("one"), Backward));
    QCOMPARE(selectionStart(page), 4);
    QVERIFY(searchOnce(&page, QStringLiteral("one")));
    QCOMPARE(selectionStart(page), 8);
}

void TestSearching::resetStartsAgain()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("one one"));
    QVERIFY(searchOnce(&page, QStringLiteral("one")));
    page.resetSearch();
    QVERIFY(searchOnce(&page, QStringLiteral("one")));
    QCOMPARE(selectionStart(page), 0);
}

void TestSearching::saysEachTimeThatNothingWasFound_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("text") << int(Page::TextDocument);
    QTest::newRow("picture") << int(Page::ImageDocument);
    QTest::newRow("no document") << int(Page::NoDocument);
}

void TestSearching::saysEachTimeThatNothingWasFound()
{
    QFETCH(int, kind);
    Page page(nullptr);
    const QTemporaryDir folder;
    if (kind == Page::TextDocument) {
        fill(&page, QStringLiteral("some text"));
    } else if (kind == Page::ImageDocument) {
        const QString path = folder.filePath(QStringLiteral("a.png"));
        QVERIFY(QImage(20, 20, QImage::Format_RGB32).save(path));
        QVERIFY(page.setImageContents(path, QString()));
    }
    DialogAnswers answers;
    for (int time = 1; time <= 3; ++time) {
        answers.click(QMessageBox::Ok);
        QVERIFY(!searchOnce(&page, QStringLiteral("missing"), time == 3 ? Backward : Plain));
        QCOMPARE(answers.seen().size(), time);
        const SeenDialog &box = answers.seen().constLast();
        QCOMPARE(box.title, QStringLiteral("Search Text"));
        QCOMPARE(box.text, QStringLiteral("Document searching finished."));
        QCOMPARE(box.buttons, QMessageBox::Ok);
        QCOMPARE(box.icon, QMessageBox::Information);
        QVERIFY(!box.parent);
    }
}

void TestSearching::bringsTheLineIntoSight()
{
    QString text;
    for (int line = 1; line <= 500; ++line)
        text += QStringLiteral("line %1\n").arg(line);
    Page page(nullptr);
    fill(&page, text);
    PageView view(&page, nullptr);
    view.resize(300, 200);
    view.show();
    for (const char *sought : {"line 400", "line 3", "line 450"}) {
        page.resetSearch();
        QVERIFY(searchOnce(&page, QString::fromLatin1(sought), Words));
        QGraphicsTextItem *item = page.documentItem()->textItem();
        const QRectF block =
            item->mapRectToScene(page.textDocument()->documentLayout()->blockBoundingRect(item->textCursor().block()));
        const QRectF seen = view.mapToScene(view.viewport()->rect()).boundingRect();
        const double top = qMax(0.0, block.top() - 49.0);
        QVERIFY2(seen.top() <= top && seen.bottom() >= block.bottom() + 49.0, sought);
    }
}

void TestSearching::followsAnEdit()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("one two one"));
    QVERIFY(searchOnce(&page, QStringLiteral("one")));
    QTextCursor cursor(page.textDocument());
    cursor.insertText(QStringLiteral("new "));
    QVERIFY(searchOnce(&page, QStringLiteral("one")));
    QCOMPARE(selectionStart(page), 12);
    // The text may also go altogether.
    fill(&page, QStringLiteral("x"));
    QCOMPARE(matches(&page, QStringLiteral("one"), Plain), QList<int>());
}

void TestSearching::changesNothing()
{
    Page page(nullptr);
    fill(&page, QStringLiteral("one two"));
    page.setModified(false);
    QVERIFY(searchOnce(&page, QStringLiteral("two")));
    QVERIFY(!page.isModified());
    QCOMPARE(page.plainText(), QStringLiteral("one two"));
}

REGISTER_TEST(TestSearching)
#include "tst_searching.moc"
