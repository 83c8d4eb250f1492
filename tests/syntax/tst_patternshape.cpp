// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"
#include "syntax/highlightingrule.h"
#include "syntax/patternshape.h"

#include <QRandomGenerator>
#include <QRegExp>
#include <QTest>

namespace {

QString randomPiece(QRandomGenerator &random, const QStringList &pieces, int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += pieces.at(random.bounded(int(pieces.size())));
    return text;
}

} // namespace

class TestPatternShape : public QObject
{
    Q_OBJECT

private slots:
    void starts_data();
    void starts();
    void noMatchIsLost();
    void tooLarge_data();
    void tooLarge();
    void tooLargeMatchesNothing();
    void reach_data();
    void reach();
};

void TestPatternShape::starts_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("start");
    const auto row = [](const char *name, const char *pattern, const char *line, int from, int start) {
        QTest::newRow(name) << QString::fromUtf8(pattern) << QString::fromUtf8(line) << from << start;
    };
    row("literal text", "//.*", "a / b // c", 0, 6);
    row("literal text behind the first", "//", "// //", 1, 3);
    row("literal text that is not there", "//", "a / b / c", 0, -1);
    row("text before an optional character", "ab?", "xa", 0, 1);
    row("escaped text", R"(/\*x)", "/ /*x", 0, 2);
    row("set", "[0-9]+", "ab 12", 0, 3);
    row("set that begins with its bracket", "[]a]", "x]", 0, 1);
    row("set that begins with an escape", R"([\],;]x)", "a,b", 0, 1);
    row("inverse set", "[^a]", "aab", 0, 0);
    row("class", R"(\d)", "ab7", 0, 2);
    row("class of others too", R"(\w)", " ż", 0, 1);
    row("line end", R"(\n)", "abc", 0, -1);
    row("any character", ".b", "ab", 0, 0);
    row("optional parts first", R"(x?[yz]*\.)", "ab.", 0, 2);
    row("optional group first", "(ab)?c", "xxac", 0, 2);
    row("alternatives", "a|[bc]", "xxc", 0, 2);
    row("alternatives in a group", R"((\d|q)x)", "ab q", 0, 3);
    row("look-ahead first", "(?=a)b", "ab", 0, 1);
    row("anchor first", R"(^\s*#)", "ab#", 0, 2);
    row("may be empty", "a*", "bbb", 1, 1);
    row("may be empty in one alternative", "a|b*", "xxx", 2, 2);
    row("counts of none", "a{0,3}b", "xab", 0, 1);
    row("counts without a first", "a{,3}b", "xxb", 0, 2);
    row("word limit", R"(\bab)", "xab ab", 0, 4);
    row("word limit before a set", R"(\b[0-9])", "a1 2", 0, 3);
    row("no word limit", R"(\B[0-9])", "1 a2", 0, 3);
    row("no word limit at the line's start", R"(\B@)", "@x", 0, 0);
    row("word limit of one alternative", R"(\ba|b)", "xb", 0, 1);
    row("word limit that may be absent", R"(\b?a)", "xa", 0, 1);
    row("reference", R"((a)?\1b)", "xb", 0, 0);
    row("code of a character", R"(\x0041)", "xA", 0, 0);
    row("stray closing bracket", "a)b", "xx", 0, 0);
    row("nothing left", "a", "ab", 2, -1);
    row("empty pattern", "", "ab", 1, 1);
}

void TestPatternShape::starts()
{
    QFETCH(const QString, pattern);
    QFETCH(const QString, line);
    QFETCH(const int, from);
    QTEST(PatternShape(pattern).nextStart(line, from), "start");
}

/// Random patterns on random lines: each search gives what a search of the whole line gives, from every position.
void TestPatternShape::noMatchIsLost()
{
    const QStringList patternPieces{"a",       "b",      "/",      "\"",     "1",        "\\*",    "\\/",     "\\\\",
                                    "\\b",     "\\B",    "\\w",    "\\d",    "\\s",      ".",      "[",       "]",
                                    "[ab]",    "[^a]",   "[0-9]",  "[a\\]",  "[\\],;]",  "[\\\\]", "[^\\],]", "[]a]",
                                    "[^]a]",   "[a-]",   "[\\w-]", "[+--]",  "[\\d,-b]", "(",      ")",       "(a|b)",
                                    "(?=a)",   "(?!b)",  "(?:ab)", "(a*|1)", "|",        "*",      "+",       "?",
                                    "{2}",     "{0,1}",  "{,1}",   "{1,}",   "^",        "$",      "\\1",     "ż",
                                    "\\x0061", "\\0141", "\\t",    "\\W",    "[\\S]",    "-",      ",",       "{"};
    const QStringList linePieces{"a",  "b", "/", "*", "\"", "\\", "1", "0",  "]", "[", "(", " ",
                                 "ab", "{", "2", "ż", ",",  ";",  "-", "\t", "+", "w", "d"};
    QRandomGenerator random(21);
    int matches = 0;
    for (int i = 0; i < 60'000; ++i) {
        const QString pattern = randomPiece(random, patternPieces, 1 + random.bounded(6));
        const QString line = randomPiece(random, linePieces, random.bounded(9));
        const QRegExp expression(pattern);
        const HighlightingRule rule(pattern);
        const CharacterSet characters = CharacterSet::occurringIn(line);
        for (int from = 0; from <= line.size(); ++from) {
            const int expected = expression.indexIn(line, from);
            if (expected < 0 || expression.matchedLength() == 0)
                continue; // nothing that could be seen
            ++matches;
            const int actual = rule.find(line, characters, from);
            if (actual != expected || rule.matchedLength() != expression.matchedLength())
                QFAIL(qPrintable(QStringLiteral("%1 in %2 from %3").arg(pattern, line).arg(from)));
        }
    }
    QVERIFY(matches > 10'000);
}

void TestPatternShape::tooLarge_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("tooLarge");
    QTest::newRow("counts nested three deep") << "((a{1000}){1000}){1000}" << true;
    QTest::newRow("counts nested twice") << "(a{100}b){101}" << true;
    QTest::newRow("open count") << "((ab){1000,}){10}" << true;
    QTest::newRow("only an upper count") << "((ab){,1000}){10}" << true;
    QTest::newRow("count in a look-ahead") << "(?=(a{1000}){1000})b" << true;
    QTest::newRow("count in an alternative") << "x|(a{1000}){1000}" << true;
    QTest::newRow("many counts in a row") << QStringLiteral("a{1000}").repeated(11) << true;
    QTest::newRow("counts upon counts") << "a{1000}{1000}{1000}" << true;
    QTest::newRow("very long") << QString(10'001, 'a') << true;
    QTest::newRow("brackets without end") << QString(60'000, '(') << true;
    QTest::newRow("brackets nested deep") << QString(101, '(') + 'a' + QString(101, ')') << true;
    QTest::newRow("brackets nested") << QString(99, '(') + 'a' + QString(99, ')') << false;
    QTest::newRow("large count") << "a{1000}" << false;
    QTest::newRow("count of 0") << "(a{0}b){100}" << false;
    QTest::newRow("count that is not closed") << "a{1000" << false;
    QTest::newRow("count that is no number") << "a{x}" << false;
    QTest::newRow("brace in a set") << "[{1000}]" << false;
    QTest::newRow("escaped brace") << R"(\{1000}{9})" << false;
    QTest::newRow("words") << "\\b(" + QStringLiteral("word|").repeated(1000) + "last)\\b" << false;
    QTest::newRow("empty") << "" << false;
}

void TestPatternShape::tooLarge()
{
    QFETCH(const QString, pattern);
    QTEST(PatternShape(pattern).isTooLarge(), "tooLarge");
}

void TestPatternShape::tooLargeMatchesNothing()
{
    const HighlightingRule rule("a|((b{1000}){1000}){1000}");
    const QString line(5000, 'a');
    QCOMPARE(rule.find(line, CharacterSet::occurringIn(line), 0), -1);
    QCOMPARE(rule.canDelimit(), false);
}

void TestPatternShape::reach_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<int>("reach");
    const int whole = PatternShape::longestSearched;
    QTest::newRow("plain") << "a.*b" << whole;
    QTest::newRow("fixed count") << ".{1000}" << whole;
    QTest::newRow("short counts") << "[a-f]{3,8}(x{0,2}){3}" << whole;
    QTest::newRow("many optional parts") << ".{0,1600}b" << whole / 10;
    QTest::newRow("optional parts of a count") << "(a?b?){800}" << whole / 10;
    QTest::newRow("optional parts, one by one") << QStringLiteral("a?").repeated(1600) << whole / 10;
}

void TestPatternShape::reach()
{
    QFETCH(const QString, pattern);
    QTEST(PatternShape(pattern).reach(), "reach");
}

REGISTER_TEST(TestPatternShape)
#include "tst_patternshape.moc"
