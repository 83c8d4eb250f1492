// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/linecounter.h"

#include "documents/page.h"
#include "support/testmain.h"

#include <QTest>

class TestLineCounter : public QObject
{
    Q_OBJECT

private slots:
    void counts_data();
    void counts();
    void commentLines_data();
    void commentLines();
    void pageCountsNoDocument();
};

void TestLineCounter::counts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("expected"); // total, code, comments, empty
    QTest::newRow("nothing is one empty line") << QString() << QList<int>{1, 0, 0, 1};
    QTest::newRow("one word") << QStringLiteral("bla") << QList<int>{1, 1, 0, 0};
    QTest::newRow("line end at the end") << QStringLiteral("bla\n") << QList<int>{2, 1, 0, 1};
    QTest::newRow("all kinds") << QStringLiteral("a\n\n// b\nc // d\n") << QList<int>{5, 2, 1, 2};
    QTest::newRow("indented comment is code") << QStringLiteral(" // b") << QList<int>{1, 1, 0, 0};
    QTest::newRow("blanks are code") << QStringLiteral("  \n\t") << QList<int>{2, 2, 0, 0};
    QTest::newRow("only line ends") << QStringLiteral("\n\n") << QList<int>{3, 0, 0, 3};
}

void TestLineCounter::counts()
{
    QFETCH(QString, text);
    QFETCH(QList<int>, expected);
    const LineCounts counts = countLinesOf(text);
    QCOMPARE((QList<int>{counts.total, counts.code, counts.comments, counts.empty}), expected);
}

void TestLineCounter::commentLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("comment");
    QTest::newRow("comment") << "// text" << true;
    QTest::newRow("only slashes") << "//" << true;
    QTest::newRow("one slash") << "/" << false;
    QTest::newRow("block comment") << "/* text */" << false;
    QTest::newRow("behind code") << "x // text" << false;
    QTest::newRow("behind a blank") << " // text" << false;
    QTest::newRow("empty") << "" << false;
}

void TestLineCounter::commentLines()
{
    QFETCH(QString, line);
    Page page(nullptr);
    QTEST(startsLineComment(line), "comment");
    QTEST(page.isCommentLine(line), "comment");
}

void TestLineCounter::pageCountsNoDocument()
{
    Page page(nullptr);
    for (const char *text : {"", "one\ntwo\n\n// three"}) {
        page.setTextContents(QStringLiteral("a.cpp"), QString::fromLatin1(text), QStringLiteral("1\n"));
        int total = -1;
        int code = -1;
        int comments = -1;
        int empty = -1;
        page.countLines(total, code, comments, empty);
        QCOMPARE((QList<int>{total, code, comments, empty}), (QList<int>{1, 1, 0, 0}));
    }
}

REGISTER_TEST(TestLineCounter)
#include "tst_linecounter.moc"
