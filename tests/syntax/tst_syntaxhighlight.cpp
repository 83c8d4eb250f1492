// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/definitions.h"
#include "support/dialogs.h"
#include "support/testmain.h"
#include "syntax/syntaxhighlight.h"

#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

namespace {

/// Counts the blocks that are coloured.
class CountingHighlight : public SyntaxHighlight
{
public:
    CountingHighlight() : SyntaxHighlight(nullptr) {}

    int blocks = 0;

protected:
    void highlightBlock(const QString &text) override
    {
        ++blocks;
        SyntaxHighlight::highlightBlock(text);
    }
};

/// A document coloured by a definition.
struct Coloured
{
    explicit Coloured(const QByteArray &xml, const QString &text = QString()) : definition(xml)
    {
        highlight.loadSyntaxFile(definition.path());
        highlight.setDocument(&document);
        document.setPlainText(text);
    }

    QStringList groups() const { return groupsOf(document); }
    /// What applying the settings does.
    void applyAgain()
    {
        highlight.loadSyntaxFile(definition.path());
        highlight.setDocument(&document);
        highlight.rehighlight();
    }

    DefinitionFile definition;
    QTextDocument document;
    CountingHighlight highlight;
};

const QStringList blockComments{"MULTI_START=/\\*", "MULTI_END=\\*/"};

} // namespace

class TestSyntaxHighlight : public QObject
{
    Q_OBJECT

private slots:
    void rules_data();
    void rules();
    void multiLineComments_data();
    void multiLineComments();
    void removingTheOpeningRecoloursWhatFollows();
    void openingAtTheTopColoursTheRest();
    void stateIsLeftAloneWithoutMultiLineComments();
    void aKeyColoursOneBlock();
    void formatsAreThoseOfTheDefinition();
    void documentGetsItsTextAfterwards();
    void documentHasItsTextAlready();
    void applyingAgainColoursNothingAnew();
    void changedDefinitionIsAppliedAgain();
    void patternsOfTheSameFileAddUp();
    void anotherFileReplacesTheDefinition();
    void failedLoadColoursNothing();
    void loadsAfterAFailure();
    void textIsNeverTouched();
    void coloursGoWithTheHighlighter();
    void documentMayDieFirst();
    void changesTheDocument();
};

void TestSyntaxHighlight::rules_data()
{
    QTest::addColumn<QStringList>("keywords");
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QStringList>("comments");
    QTest::addColumn<QStringList>("quotation");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("groups");
    const QStringList none;
    QTest::newRow("all groups") << QStringList("\\bif\\b") << QStringList("\\bint\\b") << QStringList("#.*")
                                << QStringList("\"[^\"]*\"") << "if int \"s\" # c"
                                << "KK.TTT.QQQ.CCC";
    QTest::newRow("later groups win") << QStringList("abcd") << QStringList("bcd") << QStringList("cd")
                                      << QStringList("d") << "abcd"
                                      << "KTCQ";
    QTest::newRow("quotation wins over comments")
        << none << none << QStringList("//.*") << QStringList("\"[^\"]*\"") << "// a \"b\" c"
        << "CCCCCQQQCC";
    QTest::newRow("comment begins inside of a quotation")
        << none << none << QStringList("//.*") << QStringList("\"[^\"]*\"") << "\"a//b\" c"
        << "QQQQQQCC";
    QTest::newRow("word in two groups") << QStringList("\\bint\\b") << QStringList("\\bint\\b") << none << none << "int"
                                        << "TTT";
    QTest::newRow("expression of an earlier group over a word")
        << QStringList({"\\bint\\b", "int x"}) << QStringList("\\bint\\b") << none << none << "int x"
        << "TTTKK";
    QTest::newRow("expression of a later group over a word")
        << QStringList("\\bint\\b") << QStringList("nt.") << none << none << "int x"
        << "KTTT.";
    QTest::newRow("no limits of words but the pattern's") << QStringList("int") << none << none << none << "print int2"
                                                          << "..KKK.KKK.";
    QTest::newRow("case counts") << QStringList({"\\bif\\b", "For"}) << none << none << none << "If IF if for For"
                                 << "......KK.....KKK";
    QTest::newRow("longest alternative") << QStringList("int|integer") << none << none << none << "integer"
                                         << "KKKKKKK";
    QTest::newRow("matches do not overlap") << QStringList("aa") << none << none << none << "aaa"
                                            << "KK.";
    QTest::newRow("line start only at the start") << QStringList("^a") << none << none << none << "aaa"
                                                  << "K..";
    QTest::newRow("invalid pattern among others") << QStringList({"(", "[", "a", "*"}) << none << none << none << "a(["
                                                  << "K..";
    QTest::newRow("empty pattern") << QStringList({"", "a"}) << none << none << none << "ba"
                                   << ".K";
    QTest::newRow("pattern that may match nothing") << QStringList("a*") << none << none << none << "baab"
                                                    << ".KK.";
    QTest::newRow("boundary alone") << QStringList("\\b") << none << none << none << "a b"
                                    << "...";
    QTest::newRow("line end alone") << QStringList("$") << none << none << none << "ab"
                                    << "..";
    QTest::newRow("look-ahead alone") << QStringList("(?=b)") << none << none << none << "abb"
                                      << "...";
    QTest::newRow("nothing or the rest") << QStringList("(b.*)?") << none << none << none << "aabc"
                                         << "..KK";
    QTest::newRow("multi-line prefix in another group is a pattern")
        << QStringList({"MULTI_START=a", "MULTI_END=b"}) << none << none << none << "a MULTI_START=a b"
        << "..KKKKKKKKKKKKK..";
    QTest::newRow("no text") << QStringList("a") << none << none << none << ""
                             << "";
    QTest::newRow("no patterns") << none << none << none << none << "a"
                                 << ".";
}

void TestSyntaxHighlight::rules()
{
    QFETCH(const QStringList, keywords);
    QFETCH(const QStringList, types);
    QFETCH(const QStringList, comments);
    QFETCH(const QStringList, quotation);
    QFETCH(const QString, text);
    const Coloured coloured(definitionXml(keywords, types, comments, quotation), text);
    QTEST(coloured.groups().first(), "groups");
}

void TestSyntaxHighlight::multiLineComments_data()
{
    QTest::addColumn<QStringList>("comments");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("groups");
    QTest::newRow("over lines") << blockComments << QStringList({"if", "x", "if /* if", "if \"q\"", "if */ if", "if"})
                                << QStringList({"KK", ".", "KK.CCCCC", "CCCCCC", "CCCCC.KK", "KK"});
    QTest::newRow("two in a line") << blockComments << QStringList({"/*a*/b/*c*/"}) << QStringList({"CCCCC.CCCCC"});
    QTest::newRow("closes and opens in a line")
        << blockComments << QStringList({"/*", "a */ b /* c", "d*/e"}) << QStringList({"CC", "CCCC...CCCC", "CCC."});
    QTest::newRow("never closed") << blockComments << QStringList({"/*", "", "if"}) << QStringList({"CC", "", "CC"});
    QTest::newRow("end without a start") << blockComments << QStringList({"if */ if"}) << QStringList({"KK....KK"});
    QTest::newRow("end inside of the start") << blockComments << QStringList({"/*/ if"}) << QStringList({"CCC.KK"});
    QTest::newRow("start that the end matches closes at once")
        << QStringList({"MULTI_START=\"\"\"", "MULTI_END=\"\"\""}) << QStringList({"\"\"\" if", "if"})
        << QStringList({"CCC.KK", "KK"});
    QTest::newRow("only a start") << QStringList("MULTI_START=/\\*") << QStringList({"/* if", "if */"})
                                  << QStringList({"...KK", "KK..."});
    QTest::newRow("only an end") << QStringList("MULTI_END=\\*/") << QStringList({"/* if */"})
                                 << QStringList({"...KK..."});
    QTest::newRow("empty start") << QStringList({"MULTI_START=", "MULTI_END=b"}) << QStringList({"if b"})
                                 << QStringList({"KK.."});
    QTest::newRow("invalid start") << QStringList({"MULTI_START=(", "MULTI_END=b"}) << QStringList({"( if b"})
                                   << QStringList({"..KK.."});
    QTest::newRow("invalid end") << QStringList({"MULTI_START=a", "MULTI_END=["}) << QStringList({"a if ["})
                                 << QStringList({"..KK.."});
    QTest::newRow("start that may match nothing")
        << QStringList({"MULTI_START=a*", "MULTI_END=b"}) << QStringList({"aa if b"}) << QStringList({"...KK.."});
    QTest::newRow("end that may match nothing")
        << QStringList({"MULTI_START=a", "MULTI_END=b?"}) << QStringList({"a if b"}) << QStringList({"..KK.."});
    QTest::newRow("end at every line end")
        << QStringList({"MULTI_START=a", "MULTI_END=$"}) << QStringList({"a if"}) << QStringList({"..KK"});
    QTest::newRow("start and end that look ahead")
        << QStringList({"MULTI_START=(?=a)", "MULTI_END=(?=b)"}) << QStringList({"ifaab if", "b", "aa", "b"})
        << QStringList({"..CC..KK", ".", "CC", "."});
    QTest::newRow("start that looks ahead for its end")
        << QStringList({"MULTI_START=(?=a)", "MULTI_END=(?=a)"}) << QStringList({"aaa if"}) << QStringList({"....KK"});
    QTest::newRow("later expressions replace earlier ones")
        << QStringList({"MULTI_START=a", "MULTI_END=b", "MULTI_START=c", "MULTI_END=d"}) << QStringList({"a b c d"})
        << QStringList({"....CCC"});
    QTest::newRow("prefix in small letters is a pattern")
        << QStringList({"multi_start=a", "MULTI_END=b"}) << QStringList({"multi_start=a b"})
        << QStringList({"CCCCCCCCCCCCC.."});
}

void TestSyntaxHighlight::multiLineComments()
{
    QFETCH(const QStringList, comments);
    QFETCH(const QStringList, lines);
    const Coloured coloured(definitionXml({"\\bif\\b"}, {}, comments, {"\"[^\"]+\""}), lines.join('\n'));
    QTEST(coloured.groups(), "groups");
}

void TestSyntaxHighlight::removingTheOpeningRecoloursWhatFollows()
{
    Coloured coloured(definitionXml({"\\bif\\b"}, {}, blockComments), "a\n/*\nif\nif\nb */\nif");
    QCOMPARE(coloured.groups(), QStringList({".", "CC", "CC", "CC", "CCCC", "KK"}));
    QTextCursor cursor(coloured.document.findBlockByNumber(1));
    cursor.deleteChar();
    QCOMPARE(coloured.groups(), QStringList({".", ".", "KK", "KK", "....", "KK"}));
    cursor.insertText("/");
    QCOMPARE(coloured.groups(), QStringList({".", "CC", "CC", "CC", "CCCC", "KK"}));
    cursor.select(QTextCursor::LineUnderCursor);
    cursor.removeSelectedText();
    QCOMPARE(coloured.groups(), QStringList({".", "", "KK", "KK", "....", "KK"}));
    coloured.document.undo();
    QCOMPARE(coloured.groups(), QStringList({".", "CC", "CC", "CC", "CCCC", "KK"}));
}

/// Each line once, and back again once: no line is coloured twice for one key.
void TestSyntaxHighlight::openingAtTheTopColoursTheRest()
{
    const int lines = 1000;
    Coloured coloured(definitionXml({"\\bif\\b"}, {}, blockComments),
                      QStringLiteral("if\n").repeated(lines - 1) + "if");
    QCOMPARE(coloured.document.blockCount(), lines);
    coloured.highlight.blocks = 0;
    QTextCursor cursor(&coloured.document);
    cursor.insertText("/*");
    QCOMPARE(coloured.highlight.blocks, lines);
    QCOMPARE(coloured.groups().mid(1), QStringList(lines - 1, "CC"));
    cursor.insertText("*/");
    QCOMPARE(coloured.highlight.blocks, 2 * lines);
    QCOMPARE(coloured.groups().mid(1), QStringList(lines - 1, "KK"));
}

void TestSyntaxHighlight::stateIsLeftAloneWithoutMultiLineComments()
{
    const Coloured without(definitionXml({"if"}), "if\nif");
    QCOMPARE(without.document.firstBlock().userState(), -1);
    const Coloured with(definitionXml({"if"}, {}, blockComments), "if\n/*\n*/");
    QCOMPARE(with.document.findBlockByNumber(0).userState(), 0);
    QCOMPARE(with.document.findBlockByNumber(1).userState(), 1);
    QCOMPARE(with.document.findBlockByNumber(2).userState(), 0);
}

void TestSyntaxHighlight::aKeyColoursOneBlock()
{
    Coloured coloured(definitionXml({"\\bif\\b"}, {}, blockComments), "if\nif\nif");
    coloured.highlight.blocks = 0;
    QTextCursor cursor(coloured.document.findBlockByNumber(1));
    cursor.insertText("x");
    QCOMPARE(coloured.highlight.blocks, 1);
    QCOMPARE(coloured.groups(), QStringList({"KK", "...", "KK"}));
}

void TestSyntaxHighlight::formatsAreThoseOfTheDefinition()
{
    const DefinitionFile file("<a><element name=\"Comments\" color=\"#112233\" bg_color=\"#445566\" weight=\"Bold\">"
                              "<pattern>c</pattern><pattern>MULTI_START=&lt;</pattern>"
                              "<pattern>MULTI_END=&gt;</pattern></element></a>");
    QTextDocument document;
    SyntaxHighlight highlight(nullptr);
    highlight.loadSyntaxFile(file.name());
    highlight.setDocument(&document);
    document.setPlainText("c <a>");
    const QList<QTextCharFormat> formats = formatsOf(document.firstBlock());
    QCOMPARE(formats.at(0).foreground().color(), QColor("#112233"));
    QCOMPARE(formats.at(0).background().color(), QColor("#445566"));
    QCOMPARE(formats.at(0).fontWeight(), int(QFont::Bold));
    QCOMPARE(formats.at(1), QTextCharFormat());
    for (int i = 2; i < 5; ++i)
        QCOMPARE(formats.at(i), formats.at(0));
}

void TestSyntaxHighlight::documentGetsItsTextAfterwards()
{
    Coloured coloured(definitionXml({"if"}));
    coloured.highlight.blocks = 0;
    coloured.document.setPlainText("if\nif");
    QCOMPARE(coloured.highlight.blocks, 3); // the emptied document's line first, then each line of the text once
    QCOMPARE(coloured.groups(), QStringList({"KK", "KK"}));
    coloured.document.setPlainText("x if");
    QCOMPARE(coloured.groups(), QStringList({"..KK"}));
}

void TestSyntaxHighlight::documentHasItsTextAlready()
{
    const DefinitionFile file(definitionXml({"if"}));
    QTextDocument document;
    document.setPlainText("if\nif");
    CountingHighlight highlight;
    highlight.loadSyntaxFile(file.name());
    highlight.setDocument(&document);
    QCOMPARE(groupsOf(document), QStringList({"KK", "KK"}));
    highlight.rehighlight();
    QCoreApplication::processEvents(); // nothing is left to be done later
    QCOMPARE(highlight.blocks, 2);
}

void TestSyntaxHighlight::applyingAgainColoursNothingAnew()
{
    Coloured coloured(definitionXml({"\\bif\\b", "x"}, {}, blockComments), "if x\nif /*");
    const QStringList groups = coloured.groups();
    coloured.highlight.blocks = 0;
    for (int i = 0; i < 100; ++i)
        coloured.applyAgain();
    QCoreApplication::processEvents();
    QCOMPARE(coloured.highlight.blocks, 0);
    QCOMPARE(coloured.groups(), groups);
}

void TestSyntaxHighlight::changedDefinitionIsAppliedAgain()
{
    Coloured coloured(definitionXml({"a"}), "ab\nba");
    coloured.definition.write(definitionXml({"b"}));
    coloured.highlight.loadSyntaxFile(coloured.definition.path());
    coloured.highlight.setDocument(&coloured.document);
    QCOMPARE(coloured.groups(), QStringList({"K.", ".K"})); // as it was, until asked for
    coloured.highlight.rehighlight();
    QCOMPARE(coloured.groups(), QStringList({"KK", "KK"}));
    coloured.highlight.blocks = 0;
    coloured.applyAgain();
    QCOMPARE(coloured.highlight.blocks, 0);
}

/// What was loaded before stays, in the colours of the last load.
void TestSyntaxHighlight::patternsOfTheSameFileAddUp()
{
    Coloured coloured(definitionXml({"a"}, {}, blockComments), "abc /*a*/");
    QByteArray changed = definitionXml({"\\bb\\b", "b"}, {"c"});
    changed.replace("#000001", "#000004");
    coloured.definition.write(changed);
    coloured.applyAgain();
    QCOMPARE(coloured.groups(), QStringList({"QQT.CCCCC"}));
}

void TestSyntaxHighlight::anotherFileReplacesTheDefinition()
{
    Coloured coloured(definitionXml({"a", "\\bd\\b"}, {}, blockComments), "abc d /* */");
    const DefinitionFile other(definitionXml({}, {"b"}));
    coloured.highlight.loadSyntaxFile("somewhere/" + other.name());
    coloured.highlight.rehighlight();
    QCOMPARE(coloured.groups(), QStringList({".T........."}));
    coloured.applyAgain();
    QCOMPARE(coloured.groups(), QStringList({"K...K.CCCCC"}));
}

void TestSyntaxHighlight::failedLoadColoursNothing()
{
    Coloured coloured(definitionXml({"a", "\\bd\\b"}, {}, blockComments), "a d /* */");
    coloured.definition.write("<broken");
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    coloured.applyAgain();
    QCOMPARE(answers.texts(),
             QStringList(QStringLiteral("Format of syntax file '%1' is wrong!").arg(coloured.definition.path())));
    QCOMPARE(coloured.groups(), QStringList({"........."}));
    coloured.document.setPlainText("a");
    QCOMPARE(coloured.groups(), QStringList({"."}));
}

void TestSyntaxHighlight::loadsAfterAFailure()
{
    Coloured coloured(definitionXml({"a"}), "ab");
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    coloured.highlight.loadSyntaxFile("gone.xml");
    QCOMPARE(answers.seen().size(), 1);
    coloured.applyAgain();
    QCOMPARE(coloured.groups(), QStringList({"K."}));
    QCOMPARE(answers.seen().size(), 1);
}

void TestSyntaxHighlight::textIsNeverTouched()
{
    Coloured coloured(definitionXml({"a"}, {}, blockComments), "a\n/* a\nb */");
    for (const bool modified : {false, true}) {
        coloured.document.setModified(modified);
        coloured.definition.write(definitionXml({modified ? "b" : "c"}));
        coloured.applyAgain();
        coloured.highlight.setDocument(nullptr);
        coloured.highlight.setDocument(&coloured.document);
        QCOMPARE(coloured.document.isModified(), modified);
        QCOMPARE(coloured.document.availableUndoSteps(), 0);
    }
    QCOMPARE(coloured.document.toPlainText(), QStringLiteral("a\n/* a\nb */"));
    QCOMPARE(QTextCursor(&coloured.document).charFormat().foreground().style(), Qt::NoBrush);
}

void TestSyntaxHighlight::coloursGoWithTheHighlighter()
{
    const DefinitionFile file(definitionXml({"a"}));
    QTextDocument document;
    document.setPlainText("a\na");
    document.setModified(false);
    auto highlight = std::make_unique<SyntaxHighlight>(nullptr);
    highlight->loadSyntaxFile(file.name());
    highlight->setDocument(&document);
    QCOMPARE(groupsOf(document), QStringList({"K", "K"}));
    highlight.reset();
    QCOMPARE(groupsOf(document), QStringList({".", "."}));
    QCOMPARE(document.isModified(), false);
    // On again: a fresh start.
    highlight = std::make_unique<SyntaxHighlight>(nullptr);
    highlight->loadSyntaxFile(file.name());
    highlight->setDocument(&document);
    QCOMPARE(groupsOf(document), QStringList({"K", "K"}));
}

void TestSyntaxHighlight::documentMayDieFirst()
{
    const DefinitionFile file(definitionXml({"a"}));
    SyntaxHighlight highlight(nullptr);
    highlight.loadSyntaxFile(file.name());
    highlight.rehighlight(); // no document yet
    auto document = std::make_unique<QTextDocument>("a");
    highlight.setDocument(document.get());
    document.reset();
    highlight.rehighlight();
    QCOMPARE(highlight.document(), nullptr);
    QTextDocument next;
    next.setPlainText("a");
    highlight.setDocument(&next);
    QCOMPARE(groupsOf(next), QStringList({"K"}));
}

void TestSyntaxHighlight::changesTheDocument()
{
    Coloured coloured(definitionXml({"a"}), "a");
    QTextDocument other;
    other.setPlainText("ba");
    coloured.highlight.setDocument(&other);
    QCOMPARE(coloured.groups(), QStringList({"."}));
    QCOMPARE(groupsOf(other), QStringList({".K"}));
    coloured.highlight.setDocument(nullptr);
    QCOMPARE(groupsOf(other), QStringList({".."}));
}

REGISTER_TEST(TestSyntaxHighlight)
#include "tst_syntaxhighlight.moc"
