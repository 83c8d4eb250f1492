// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/definitions.h"
#include "support/testmain.h"
#include "syntax/patternshape.h"
#include "syntax/syntaxhighlight.h"

#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <ctime>

namespace {

constexpr int searched = PatternShape::longestSearched;
constexpr int longLine = 20'000;
constexpr int megabyte = 1 << 20;

/// The text, coloured by a definition of the program's own or by one of a test.
struct LongText
{
    LongText(const QString &definition, const QString &text)
    {
        highlight.loadSyntaxFile(definition);
        highlight.setDocument(&document);
        document.setPlainText(text);
    }

    QTextDocument document;
    SyntaxHighlight highlight{nullptr};
};

/// Of this process; other ones do not count.
double cpuSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

QString filled(const QString &piece, int size)
{
    return piece.repeated(size / piece.size() + 1).left(size);
}

/// The number of the line's characters, from its start, that have a colour or precede one that has.
qsizetype colouredLength(const QTextBlock &block)
{
    const QList<QTextCharFormat> formats = formatsOf(block);
    qsizetype length = formats.size();
    while (length > 0 && formats.at(length - 1) == QTextCharFormat())
        --length;
    return length;
}

} // namespace

/// Lines of a size that no search can be let loose on.
class TestLongLines : public QObject
{
    Q_OBJECT

private slots:
    void longLinesAreReadyInTime_data();
    void longLinesAreReadyInTime();
    void definitionsWithoutEnd_data();
    void definitionsWithoutEnd();
    void startIsColouredAsInAShortLine();
    void nothingIsLostUpToTheLimit();
    void commentsBeyondTheLimit_data();
    void commentsBeyondTheLimit();
    void typingInALongLine();
};

void TestLongLines::longLinesAreReadyInTime_data()
{
    QTest::addColumn<QString>("definition");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *definition, const char *name, const QString &start, const QString &piece,
                        const QString &end) {
        QTest::addRow("%s, %s", definition, name)
            << QStringLiteral("%1.xml").arg(definition) << start + filled(piece, longLine) + end;
    };
    for (const char *definition : {"cpp", "js", "php"}) {
        row(definition, "slashes before a quote", {}, "/", "\"");
        row(definition, "slashes behind an opened comment", "/*", "/", "\"");
        row(definition, "opened comments", {}, "/* ", {});
        row(definition, "quotes", {}, "\"'", {});
    }
    row("js", "addresses in quotes", {}, R"(["https://example.org/a/b.html",)", {});
    row("js", "packed program", {}, R"(function a(b,c){return b.d("x//y")+c/2};)", {});
    row("py", "number signs", {}, "#", "\"");
    row("py", "quotes of three", {}, "'''a", {});
    row("css", "letters", {}, "a", {});
    row("css", "picture in a line", "a{background:url(\"data:image/png;base64,", "iVBORw0KGgo+/AAA", "\")}");
    row("yaml", "words", {}, "a ", {});
    row("html", "attributes", {}, "a=", {});
    row("html", "tags", {}, "<a ", {});
    row("xml", "tags", {}, "<a b=\"c\"/>", {});
    row("sh", "comments", {}, " #'", {});
    row("sql", "dashes", {}, "-", "'");
    row("lua", "brackets", {}, "--[[", {});
    row("md", "marks", {}, "*_`[", {});
    row("tex", "dollars", {}, "$\\[", "%");
    row("json", "numbers", {}, "1,", {});
    row("diff", "dashes", {}, "-", {});
    QTest::newRow("megabyte of slashes") << "cpp.xml"
                                         << "/*" + QString(megabyte, '/') + '"';
    QTest::newRow("megabyte of number signs") << "py.xml" << QString(megabyte, '#') + '"';
    QTest::newRow("megabyte of a program")
        << "js.xml" << filled(R"(function a(b,c){return b.d("x//y")+c/2};)", megabyte);
}

/// The limit is wide: searches without bounds take a quarter of a minute and, for a megabyte, days.
void TestLongLines::longLinesAreReadyInTime()
{
    QFETCH(const QString, definition);
    QFETCH(const QString, text);
    const double start = cpuSeconds();
    const LongText coloured(definition, text);
    QVERIFY2(cpuSeconds() - start < 8, qPrintable(QString::number(cpuSeconds() - start)));
    QCOMPARE(coloured.document.toPlainText().size(), text.size());
    QVERIFY(colouredLength(coloured.document.firstBlock()) <= searched);
}

void TestLongLines::definitionsWithoutEnd_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("coloured");
    QTest::newRow("tries to the line end") << "a*b" << false;
    QTest::newRow("repeated repetitions") << "(a*)*b" << false;
    QTest::newRow("nested counts") << "((a{1000}){1000}){1000}" << false;
    QTest::newRow("optional parts without number") << "a{0,1000}b" << false;
    QTest::newRow("look-ahead to the line end") << "a(?=.*b)" << false;
    QTest::newRow("reference") << R"((a+)\1b)" << false;
    QTest::newRow("anything") << "(a|aa)+" << true;
    QTest::newRow("brackets without end") << QString(60'000, '(') << false;
}

void TestLongLines::definitionsWithoutEnd()
{
    QFETCH(const QString, pattern);
    const DefinitionFile rule(definitionXml({pattern}));
    const DefinitionFile delimiter(definitionXml({}, {}, {"MULTI_START=" + pattern, "MULTI_END=" + pattern}));
    const QString text(longLine, 'a');
    const double start = cpuSeconds();
    const LongText byRule(rule.name(), text);
    const LongText byDelimiter(delimiter.name(), text);
    QVERIFY2(cpuSeconds() - start < 30, qPrintable(QString::number(cpuSeconds() - start)));
    QFETCH(const bool, coloured);
    QCOMPARE(colouredLength(byRule.document.firstBlock()), coloured ? searched : 0);
    QCOMPARE(colouredLength(byDelimiter.document.firstBlock()), coloured ? searched : 0);
}

void TestLongLines::startIsColouredAsInAShortLine()
{
    const QString piece = QStringLiteral("if (a == 1) return \"x\"; /* c */ ");
    const LongText coloured("cpp.xml", filled(piece, megabyte) + "\nif");
    const LongText once("cpp.xml", piece);
    const QTextBlock line = coloured.document.firstBlock();
    QCOMPARE(formatsOf(line).first(piece.size()), formatsOf(once.document.firstBlock()));
    QVERIFY(colouredLength(line) > searched - piece.size());
    QVERIFY(colouredLength(line) <= searched);
    QCOMPARE(colouredLength(line.next()), qsizetype(2));
}

void TestLongLines::nothingIsLostUpToTheLimit()
{
    const DefinitionFile file(definitionXml({"a.*b"}));
    const LongText within(file.name(), 'a' + QString(searched - 2, '.') + 'b');
    QCOMPARE(groupsOf(within.document.firstBlock()), QString(searched, 'K'));
    const LongText beyond(file.name(), 'a' + QString(searched - 1, '.') + 'b');
    QCOMPARE(colouredLength(beyond.document.firstBlock()), qsizetype(0));
}

void TestLongLines::commentsBeyondTheLimit_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("openBehind");
    const QString blanks(searched, ' ');
    QTest::newRow("opened before the limit") << ""
                                             << "/*" + blanks << true;
    QTest::newRow("opened and closed before the limit") << ""
                                                        << "/* */" + blanks << false;
    QTest::newRow("closed beyond the limit") << ""
                                             << "/*" + blanks + "*/" << false;
    QTest::newRow("closed far beyond the limit") << ""
                                                 << "/*" + blanks.repeated(10) + "*/" + blanks << false;
    for (int i = 0; i < 400; i += 7)
        QTest::addRow("closed %d characters beyond", i) << ""
                                                        << "/*" + blanks + QString(i, ' ') + "*/ " << false;
    QTest::newRow("end mark across the limit") << ""
                                               << "/*" + blanks.chopped(3) + "*/ x" << false;
    QTest::newRow("opened beyond the limit") << "" << blanks + "/*" << false;
    QTest::newRow("closed and opened beyond the limit") << ""
                                                        << "/*" + blanks + "*/ /*" << false;
    QTest::newRow("open from the line before") << "/*" << blanks + blanks << true;
    QTest::newRow("open from the line before, closed beyond") << "/*" << blanks + "*/" << false;
}

/// What the next line takes over: it is a comment only if the long line opened one before the limit and does not end
/// it.
void TestLongLines::commentsBeyondTheLimit()
{
    QFETCH(const QString, first);
    QFETCH(const QString, line);
    QFETCH(const bool, openBehind);
    const DefinitionFile file(definitionXml({"if"}, {}, {"MULTI_START=/\\*", "MULTI_END=\\*/"}));
    const LongText coloured(file.name(), first + '\n' + line + "\nif");
    QCOMPARE(groupsOf(coloured.document.lastBlock()), openBehind ? QStringLiteral("CC") : QStringLiteral("KK"));
}

void TestLongLines::typingInALongLine()
{
    LongText coloured("js.xml", filled(R"(["https://example.org/a/b.html",)", megabyte) + "\nlet");
    const double start = cpuSeconds();
    QTextCursor cursor(coloured.document.firstBlock());
    for (int i = 0; i < 5; ++i)
        cursor.insertText("/");
    QVERIFY2(cpuSeconds() - start < 8, qPrintable(QString::number(cpuSeconds() - start)));
    QCOMPARE(colouredLength(coloured.document.lastBlock()), qsizetype(3));
}

REGISTER_TEST(TestLongLines)
#include "tst_longlines.moc"
