// SPDX-License-Identifier: GPL-3.0-or-later
// When a page colours its text. How the colours come about: tests/syntax.
#include "app/folders.h"
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/testmark.h"
#include "support/definitions.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/files.h"
#include "support/testmain.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

const QString numbers = QStringLiteral("1\n2\n3\n");
const QStringList blockComments{"MULTI_START=/\\*", "MULTI_END=\\*/"};

/// A file name whose suffix is that of the definition.
QString nameFor(const DefinitionFile &definition)
{
    return "/nowhere/text." + QFileInfo(definition.name()).completeBaseName();
}

void replaceText(const Page &page, int position, int length, const QString &text)
{
    QTextCursor cursor(page.textDocument());
    cursor.setPosition(position);
    cursor.setPosition(position + length, QTextCursor::KeepAnchor);
    cursor.insertText(text);
}

} // namespace

class TestHighlighting : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void textIsColouredAsItComes();
    void offByDefaultUntilAskedFor();
    void annotatedFileFollowsTheTextInside_data();
    void annotatedFileFollowsTheTextInside();
    void typeWithoutDefinitionStaysPlain_data();
    void typeWithoutDefinitionStaysPlain();
    void definitionForNamesWithoutSuffix();
    void missingDefinitionLeavesTheColours();
    void definitionOutsideOfTheFolderIsNotRead();
    void offAndOn();
    void newNameBringsItsDefinition();
    void secondTextHasItsOwnDefinition();
    void neverModifies();
    void damagedDefinitionIsToldOnce();
    void picturesIgnoreIt();
    void typingRecolours();
    void commentOverManyLines();
    void exactTextAndLineEndsStay();
    void marksStayWhereTheyAre();
};

void TestHighlighting::cleanup()
{
    QSettings().clear();
}

void TestHighlighting::textIsColouredAsItComes()
{
    const DefinitionFile definition(definitionXml({"\\bif\\b"}));
    Page page(nullptr);
    page.setTextContents(nameFor(definition), "if\nx if", numbers);
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"KK", "..KK"}));
}

void TestHighlighting::offByDefaultUntilAskedFor()
{
    QSettings().setValue("Syntax/HighlightByDefault", false);
    const DefinitionFile definition(definitionXml({"if"}));
    Page page(nullptr);
    page.setTextContents(nameFor(definition), "if\nif", numbers);
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"..", ".."}));
    page.highlightSyntax(true);
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"KK", "KK"}));
}

void TestHighlighting::annotatedFileFollowsTheTextInside_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"a.oxn", "A.OXN", "a.b.Oxn"})
        QTest::newRow(name) << name;
}

void TestHighlighting::annotatedFileFollowsTheTextInside()
{
    QFETCH(const QString, name);
    const DefinitionFile definition(definitionXml({"if"}));
    Page page(nullptr);
    page.setFileType(QFileInfo(definition.name()).completeBaseName());
    page.setTextContents("/nowhere/" + name, "if", "1\n");
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"KK"}));
}

void TestHighlighting::typeWithoutDefinitionStaysPlain_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown suffix") << "/nowhere/a.nosuchtype";
    QTest::newRow("no suffix") << "/nowhere/a";
    QTest::newRow("no name") << QString();
    QTest::newRow("new document") << "noname";
    QTest::newRow("dot at the end") << "/nowhere/a.";
    QTest::newRow("capitals") << "/nowhere/a.CPP";
    QTest::newRow("annotated, type unknown") << "/nowhere/a.oxn";
}

void TestHighlighting::typeWithoutDefinitionStaysPlain()
{
    QFETCH(const QString, name);
    QVERIFY(QFileInfo::exists(dataFolder("syntax") + "cpp.xml"));
    DialogAnswers answers; // none is needed: nothing is said
    Page page(nullptr);
    page.setTextContents(name, "if (int x)", "1\n");
    page.highlightSyntax(true);
    QCOMPARE(formatsOf(page.textDocument()->firstBlock()), QList<QTextCharFormat>(10));
    QVERIFY(answers.seen().isEmpty());
}

void TestHighlighting::definitionForNamesWithoutSuffix()
{
    const QString path = dataFolder("syntax") + ".xml";
    store(path, definitionXml({"xyzzy"}));
    const auto removed = qScopeGuard([&path] { QFile::remove(path); });
    Page page(nullptr);
    page.setTextContents("/nowhere/Makefile", "an xyzzy", "1\n");
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"...KKKKK"}));
}

void TestHighlighting::missingDefinitionLeavesTheColours()
{
    const DefinitionFile definition(definitionXml({"if"}));
    Page page(nullptr);
    page.setTextContents(nameFor(definition), "if", "1\n");
    page.setFileName("/nowhere/a.nosuchtype");
    page.highlightSyntax(true);
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"KK"}));
}

void TestHighlighting::definitionOutsideOfTheFolderIsNotRead()
{
    const QTemporaryDir folder;
    QFile outside(folder.filePath("evil.xml"));
    QVERIFY(outside.open(QIODevice::WriteOnly) && outside.write(definitionXml({"if"})) > 0);
    outside.close();
    Page page(nullptr);
    page.setFileType(QString("../").repeated(20) + folder.path() + "/evil");
    page.setTextContents("/nowhere/a.oxn", "if", "1\n");
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({".."}));
}

void TestHighlighting::offAndOn()
{
    const DefinitionFile definition(definitionXml({"if"}));
    Page page(nullptr);
    page.setTextContents(nameFor(definition), "if\nif", numbers);
    for (int i = 0; i < 3; ++i) {
        page.highlightSyntax(false);
        QCOMPARE(groupsOf(*page.textDocument()), QStringList({"..", ".."}));
        page.highlightSyntax(true);
        page.highlightSyntax(true);
        QCOMPARE(groupsOf(*page.textDocument()), QStringList({"KK", "KK"}));
    }
}

void TestHighlighting::newNameBringsItsDefinition()
{
    const DefinitionFile first(definitionXml({"a"}));
    const DefinitionFile second(definitionXml({"b"}));
    Page page(nullptr);
    page.setTextContents(nameFor(first), "ab", "1\n");
    page.setFileName(nameFor(second));
    page.highlightSyntax(true);
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({".K"}));
}

void TestHighlighting::secondTextHasItsOwnDefinition()
{
    const DefinitionFile first(definitionXml({"a"}));
    const DefinitionFile second(definitionXml({"b"}));
    Page page(nullptr);
    page.setTextContents(nameFor(first), "ab", "1\n");
    page.setTextContents(nameFor(second), "abb", "1\n");
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({".KK"}));
    page.setTextContents("/nowhere/plain", "ab", "1\n");
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({".."}));
}

void TestHighlighting::neverModifies()
{
    const DefinitionFile definition(definitionXml({"if"}));
    FakeHost host;
    Page page(&host);
    page.setTextContents(nameFor(definition), "if", "1\n");
    QVERIFY(!page.isModified());
    for (const bool modified : {false, true}) {
        page.setModified(modified);
        for (const bool on : {false, true, true, false}) {
            page.highlightSyntax(on);
            QCOMPARE(page.isModified(), modified);
            QVERIFY(!page.textDocument()->isUndoAvailable());
        }
    }
}

void TestHighlighting::damagedDefinitionIsToldOnce()
{
    DefinitionFile definition("<syntaxfile><element");
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    Page page(nullptr);
    page.setTextContents(nameFor(definition), "if", "1\n");
    QCOMPARE(answers.texts(),
             QStringList(QStringLiteral("Format of syntax file '%1' is wrong!").arg(definition.path())));
    page.highlightSyntax(true);
    page.highlightSyntax(true);
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({".."}));
    definition.write(definitionXml({"if"}));
    page.highlightSyntax(true);
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"KK"}));
}

void TestHighlighting::picturesIgnoreIt()
{
    const DefinitionFile definition(definitionXml({"if"}));
    const QTemporaryDir folder;
    const QString picture = folder.filePath("a.png");
    QVERIFY(QImage(4, 4, QImage::Format_RGB32).save(picture));
    Page page(nullptr);
    QVERIFY(page.setImageContents(nameFor(definition), picture));
    page.highlightSyntax(true);
    page.textDocument()->setPlainText("if");
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({".."}));
}

void TestHighlighting::typingRecolours()
{
    const DefinitionFile definition(definitionXml({"\\bif\\b"}, {}, blockComments));
    Page page(nullptr);
    page.setTextContents(nameFor(definition), "i\nif\nif", numbers);
    replaceText(page, 1, 0, "f");
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"KK", "KK", "KK"}));
    replaceText(page, 0, 0, "/*");
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"CCCC", "CC", "CC"}));
    replaceText(page, 0, 2, QString());
    QCOMPARE(groupsOf(*page.textDocument()), QStringList({"KK", "KK", "KK"}));
}

void TestHighlighting::commentOverManyLines()
{
    const DefinitionFile definition(definitionXml({"x"}, {}, blockComments));
    constexpr int lines = 3000;
    QString gutter;
    for (int i = 1; i <= lines; ++i)
        gutter += QString::number(i) + '\n';
    Page page(nullptr);
    page.setTextContents(nameFor(definition), QString("x\n").repeated(lines - 1) + "x", gutter);
    replaceText(page, 0, 0, "/*");
    QCOMPARE(groupsOf(page.textDocument()->lastBlock()), QStringLiteral("C"));
    replaceText(page, int(page.textDocument()->characterCount()) - 2, 0, "*/");
    QCOMPARE(groupsOf(page.textDocument()->lastBlock()), QStringLiteral("CCK"));
}

/// The page keeps the ends of odd lines beside the text; a highlighter must leave them there.
void TestHighlighting::exactTextAndLineEndsStay()
{
    const DefinitionFile definition(definitionXml({"if"}, {}, blockComments));
    const QString text = QStringLiteral("if\u00a0/*\u2028x*/\nif");
    Page page(nullptr);
    page.setTextContents(nameFor(definition), text, numbers);
    QCOMPARE(page.plainText(), text);
    page.highlightSyntax(false);
    page.highlightSyntax(true);
    QCOMPARE(page.plainText(), text);
}

void TestHighlighting::marksStayWhereTheyAre()
{
    const DefinitionFile definition(definitionXml({"if"}, {}, blockComments));
    FakeHost host;
    Page page(&host);
    page.setTextContents(nameFor(definition), "if\nif\n/* */", numbers);
    auto *mark = new TestMark;
    mark->setPos(10, 40);
    page.addAnnotation(mark);
    page.highlightSyntax(false);
    page.highlightSyntax(true);
    QCOMPARE(mark->pos(), QPointF(10, 40));
    replaceText(page, 0, 0, "/*"); // recolours the lines below without adding one
    QCOMPARE(mark->pos(), QPointF(10, 40));
}

REGISTER_TEST(TestHighlighting)
#include "tst_highlighting.moc"
