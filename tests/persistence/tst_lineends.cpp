// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lineends.h"

#include "support/testmain.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

TextFormat formatOf(const SplitText &split)
{
    TextFormat format;
    format.lineEnd = split.lineEnd;
    return format;
}

QString withoutFinalEnd(const QString &raw)
{
    const QString ends = QStringLiteral("\n\r\u2029\ufdd0\ufdd1");
    if (raw.endsWith(QLatin1String("\r\n")))
        return raw.chopped(2);
    return !raw.isEmpty() && ends.contains(raw.back()) ? raw.chopped(1) : raw;
}

void fill(QTextDocument *document, const SplitText &split)
{
    document->setPlainText(split.text);
    rememberOddEnds(document, split);
}

} // namespace

class TestLineEnds : public QObject
{
    Q_OBJECT

private slots:
    void takesLinesApart_data();
    void takesLinesApart();
    void putsThemTogetherAgain_data();
    void putsThemTogetherAgain();
    void anyMixtureSurvives();
    void editedLinesTakeTheUsualEnd();
    void oddEndGoesWithItsLine();
    void aLongFileIsFast();
};

void TestLineEnds::takesLinesApart_data()
{
    QTest::addColumn<QString>("raw");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QString>("lineEnd");
    QTest::addColumn<int>("odd");
    QTest::newRow("empty") << QString() << QString() << 0 << "\n" << 0;
    QTest::newRow("one line") << "a"
                              << "a" << 1 << "\n"
                              << 0;
    QTest::newRow("one ended line") << "a\n"
                                    << "a" << 1 << "\n"
                                    << 0;
    QTest::newRow("an empty line") << "\n" << QString() << 1 << "\n" << 0;
    QTest::newRow("two empty lines") << "\n\n"
                                     << "\n"
                                     << 2 << "\n"
                                     << 0;
    QTest::newRow("two lines") << "a\nb"
                               << "a\nb" << 2 << "\n"
                               << 0;
    QTest::newRow("CR LF") << "a\r\nb\r\n"
                           << "a\nb" << 2 << "\r\n"
                           << 0;
    QTest::newRow("CR LF, none at the end") << "a\r\nb"
                                            << "a\nb" << 2 << "\r\n"
                                            << 0;
    QTest::newRow("CR") << "a\rb\r"
                        << "a\nb" << 2 << "\r" << 0;
    QTest::newRow("CR before CR LF") << "a\r\r\nb\r\n"
                                     << "a\n\nb" << 3 << "\r\n"
                                     << 1;
    QTest::newRow("mostly LF") << "a\nb\r\nc\n"
                               << "a\nb\nc" << 3 << "\n"
                               << 1;
    QTest::newRow("odd end at the end") << "a\nb\nc\r\n"
                                        << "a\nb\nc" << 3 << "\n"
                                        << 0;
    QTest::newRow("paragraph separator") << QStringLiteral("a\u2029b\nc\n") << "a\nb\nc" << 3 << "\n" << 1;
    QTest::newRow("line separator stays in its line")
        << QStringLiteral("a\u2028b\n") << QStringLiteral("a\u2028b") << 1 << "\n"
        << 0;
    QTest::newRow("form feed stays in its line") << "a\f\nb\n"
                                                 << "a\f\nb" << 2 << "\n"
                                                 << 0;
}

void TestLineEnds::takesLinesApart()
{
    QFETCH(const QString, raw);
    const SplitText split = splitLines(raw);
    QTEST(split.text, "text");
    QTEST(split.lines, "lines");
    QTEST(split.lineEnd, "lineEnd");
    QTEST(int(split.oddEnds.size()), "odd");
}

void TestLineEnds::putsThemTogetherAgain_data()
{
    takesLinesApart_data();
}

void TestLineEnds::putsThemTogetherAgain()
{
    QFETCH(const QString, raw);
    const SplitText split = splitLines(raw);
    QTextDocument document;
    fill(&document, split);
    QCOMPARE(document.blockCount(), std::max(1, split.lines));
    QCOMPARE(joinLines(&document, formatOf(split)), withoutFinalEnd(raw));
}

void TestLineEnds::anyMixtureSurvives()
{
    const QList<QString> pieces{"a",  "\n", "\r", "\r\n", QStringLiteral("\u2029"), QStringLiteral("\u2028"),
                                "bc", "\t", "\f", "\v",   QStringLiteral("\ufdd0"), QString(QChar(0))};
    QRandomGenerator random(3);
    for (int step = 0; step < 500; ++step) {
        QString raw;
        const int count = random.bounded(20);
        for (int i = 0; i < count; ++i)
            raw += pieces.at(random.bounded(int(pieces.size())));
        const SplitText split = splitLines(raw);
        QTextDocument document;
        fill(&document, split);
        QCOMPARE(joinLines(&document, formatOf(split)), withoutFinalEnd(raw));
    }
}

void TestLineEnds::editedLinesTakeTheUsualEnd()
{
    const SplitText split = splitLines(QStringLiteral("a\r\nb\r\n"));
    QTextDocument document;
    fill(&document, split);
    QTextCursor(&document).insertText(QStringLiteral("new\nlines\r\n"));
    QCOMPARE(joinLines(&document, formatOf(split)), QStringLiteral("new\r\nlines\r\na\r\nb"));
}

void TestLineEnds::oddEndGoesWithItsLine()
{
    const SplitText split = splitLines(QStringLiteral("a\nb\r\nc\nd\n"));
    QTextDocument document;
    fill(&document, split);
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("first\n"));
    QCOMPARE(joinLines(&document, formatOf(split)), QStringLiteral("first\na\nb\r\nc\nd"));
    cursor.setPosition(document.findBlockByNumber(2).position());
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    QCOMPARE(joinLines(&document, formatOf(split)), QStringLiteral("first\na\nc\nd"));
}

void TestLineEnds::aLongFileIsFast()
{
    const SplitText split = splitLines(QStringLiteral("some line of text\n").repeated(100'000));
    QCOMPARE(split.lines, 100'000);
    QVERIFY(split.oddEnds.isEmpty());
}

REGISTER_TEST(TestLineEnds)
#include "tst_lineends.moc"
