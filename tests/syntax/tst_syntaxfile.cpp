// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/folders.h"
#include "support/definitions.h"
#include "support/dialogs.h"
#include "support/testmain.h"
#include "syntax/syntaxfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

class TestSyntaxFile : public QObject
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void readsAllGroups();
    void groupsThatAreMissingKeepTheirDefaults();
    void readsFormats_data();
    void readsFormats();
    void skipsWhatItDoesNotKnow();
    void trimsNamesAndPatterns();
    void sameGroupTwiceAppends();
    void secondLoadDoublesThePatterns();
    void emptyNameLoadsTheOwnFile();
    void onlyTheFileNameCounts_data();
    void onlyTheFileNameCounts();
    void extensionInCapitalsFindsNothing();
    void missingFile();
    void nameThatLooksLikeMarkup();
    void folderInPlaceOfAFile();
    void pipeInPlaceOfAFile();
    void wrongFormat_data();
    void wrongFormat();
    void knowsWhetherItIsUpToDate();
    void resetForgetsAllButTheName();
    void listsCanBeEdited();
};

void TestSyntaxFile::startsEmpty()
{
    const SyntaxFile file("x.xml");
    const QList<QColor> colors{Qt::red, Qt::blue, Qt::gray, Qt::darkGreen};
    for (int i = 0; i < SyntaxFile::groupCount; ++i) {
        const auto group = SyntaxFile::Group(i);
        QVERIFY(file.patterns(group).isEmpty());
        QCOMPARE(file.format(group).foreground(), QBrush(colors.at(i)));
        QVERIFY(!file.format(group).hasProperty(QTextFormat::BackgroundBrush));
        QVERIFY(!file.format(group).hasProperty(QTextFormat::FontWeight));
    }
    QCOMPARE(file.fileName(), QStringLiteral("x.xml"));
    QVERIFY(!file.isUpToDate());
}

void TestSyntaxFile::readsAllGroups()
{
    const DefinitionFile definition(definitionXml({"k1", "k2"}, {"t<1>"}, {"MULTI_START=a", "c"}, {"q & q"}));
    SyntaxFile file("other.xml");
    QVERIFY(file.load(definition.name()));
    QCOMPARE(file.fileName(), definition.name());
    QCOMPARE(file.patterns(SyntaxFile::Keywords), QVector<QString>({"k1", "k2"}));
    QCOMPARE(file.patterns(SyntaxFile::Types), QVector<QString>({"t<1>"}));
    QCOMPARE(file.patterns(SyntaxFile::Comments), QVector<QString>({"MULTI_START=a", "c"}));
    QCOMPARE(file.patterns(SyntaxFile::Quotation), QVector<QString>({"q & q"}));
    QCOMPARE(file.format(SyntaxFile::Quotation).foreground(), QBrush(QColor("#000004")));
    QCOMPARE(file.format(SyntaxFile::Quotation).background().color(), QColor(Qt::transparent));
    QCOMPARE(file.format(SyntaxFile::Quotation).background().style(), Qt::SolidPattern);
}

void TestSyntaxFile::groupsThatAreMissingKeepTheirDefaults()
{
    const DefinitionFile definition("<any><element name=\"Keywords\" color=\"#102030\" bg_color=\"white\">"
                                    "<pattern>k</pattern></element></any>");
    SyntaxFile file{QString()};
    QVERIFY(file.load(definition.name()));
    QCOMPARE(file.patterns(SyntaxFile::Keywords), QVector<QString>({"k"}));
    QCOMPARE(file.format(SyntaxFile::Keywords).foreground().color(), QColor(0x10, 0x20, 0x30));
    const SyntaxFile fresh{QString()};
    for (const auto group : {SyntaxFile::Types, SyntaxFile::Comments, SyntaxFile::Quotation}) {
        QVERIFY(file.patterns(group).isEmpty());
        QCOMPARE(file.format(group), fresh.format(group));
    }
}

void TestSyntaxFile::readsFormats_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QColor>("foreground");
    QTest::addColumn<QColor>("background");
    QTest::addColumn<int>("weight");
    const int normal = QFont::Normal;
    QTest::newRow("names of colours") << QByteArray("color=\"red\" bg_color=\"transparent\" weight=\"Bold\"")
                                      << QColor(Qt::red) << QColor(Qt::transparent) << int(QFont::Bold);
    QTest::newRow("numbers of colours") << QByteArray("color=\"#123\" bg_color=\"#80ff0000\"")
                                        << QColor(0x11, 0x22, 0x33) << QColor(255, 0, 0, 128) << normal;
    QTest::newRow("trimmed") << QByteArray("color=\" blue \" bg_color=\"\twhite\" weight=\" Bold \"")
                             << QColor(Qt::blue) << QColor(Qt::white) << int(QFont::Bold);
    QTest::newRow("no colour is an invalid one") << QByteArray("weight=\"Normal\"") << QColor() << QColor() << normal;
    QTest::newRow("unknown colours") << QByteArray("color=\"reddish\" bg_color=\"#12\"") << QColor() << QColor()
                                     << normal;
    QTest::newRow("small letters are not bold")
        << QByteArray("color=\"red\" bg_color=\"red\" weight=\"bold\"") << QColor(Qt::red) << QColor(Qt::red) << normal;
    QTest::newRow("italic has no effect")
        << QByteArray("color=\"red\" bg_color=\"red\" italic=\"true\"") << QColor(Qt::red) << QColor(Qt::red) << normal;
}

void TestSyntaxFile::readsFormats()
{
    QFETCH(const QByteArray, attributes);
    QFETCH(const QColor, foreground);
    QFETCH(const QColor, background);
    QFETCH(const int, weight);
    const DefinitionFile definition("<a><element name=\"Types\" " + attributes + "/></a>");
    SyntaxFile file{QString()};
    QVERIFY(file.load(definition.name()));
    const QTextCharFormat format = file.format(SyntaxFile::Types);
    QCOMPARE(format.foreground().color(), foreground);
    QCOMPARE(format.foreground().style(), Qt::SolidPattern);
    QCOMPARE(format.background().color(), background);
    QCOMPARE(format.background().style(), Qt::SolidPattern);
    QCOMPARE(format.fontWeight(), weight);
    QVERIFY(!format.fontItalic());
}

void TestSyntaxFile::skipsWhatItDoesNotKnow()
{
    const DefinitionFile definition(
        "<?xml version=\"1.0\"?><!DOCTYPE other><root type=\"x\" version=\"y\">text<!-- c "
        "--><other><pattern>no</pattern>"
        "</other><element name=\"keywords\"><pattern>no</pattern></element><?pi x?><element><pattern>no</pattern>"
        "</element><element name=\"Keywords\">text<!-- c "
        "--><other>no</other><Pattern>no</Pattern><pattern>yes</pattern>"
        "<![CDATA[no]]><pattern>too</pattern><other><pattern>no</pattern></other></element>"
        "<Element name=\"Types\"><pattern>no</pattern></Element></root>");
    SyntaxFile file{QString()};
    QVERIFY(file.load(definition.name()));
    QCOMPARE(file.patterns(SyntaxFile::Keywords), QVector<QString>({"yes", "too"}));
    QVERIFY(file.patterns(SyntaxFile::Types).isEmpty());
}

void TestSyntaxFile::trimsNamesAndPatterns()
{
    const DefinitionFile definition("<a><element name=\" Comments\n\"><pattern>\n  a b \t</pattern><pattern/>"
                                    "<pattern><![CDATA[<b>]]></pattern><pattern>1<i>2</i>3</pattern></element></a>");
    SyntaxFile file{QString()};
    QVERIFY(file.load(definition.name()));
    QCOMPARE(file.patterns(SyntaxFile::Comments), QVector<QString>({"a b", "", "<b>", "123"}));
}

void TestSyntaxFile::sameGroupTwiceAppends()
{
    const DefinitionFile definition("<a><element name=\"Types\" color=\"red\"><pattern>a</pattern></element>"
                                    "<element name=\"Types\" color=\"blue\"><pattern>b</pattern></element></a>");
    SyntaxFile file{QString()};
    QVERIFY(file.load(definition.name()));
    QCOMPARE(file.patterns(SyntaxFile::Types), QVector<QString>({"a", "b"}));
    QCOMPARE(file.format(SyntaxFile::Types).foreground().color(), QColor(Qt::blue));
}

void TestSyntaxFile::secondLoadDoublesThePatterns()
{
    const DefinitionFile definition(definitionXml({"k"}, {"t"}, {"c"}, {"q", "r"}));
    SyntaxFile file{QString()};
    QVERIFY(file.load(definition.name()));
    const QTextCharFormat format = file.format(SyntaxFile::Quotation);
    QVERIFY(file.load(definition.name()));
    QCOMPARE(file.patterns(SyntaxFile::Keywords), QVector<QString>({"k", "k"}));
    QCOMPARE(file.patterns(SyntaxFile::Quotation), QVector<QString>({"q", "r", "q", "r"}));
    QCOMPARE(file.format(SyntaxFile::Quotation), format);
    QVERIFY(file.load(QString()));
    QCOMPARE(file.patterns(SyntaxFile::Keywords).size(), 3);
}

void TestSyntaxFile::emptyNameLoadsTheOwnFile()
{
    const DefinitionFile definition(definitionXml({"k"}));
    SyntaxFile file(definition.name());
    QVERIFY(file.load(QString()));
    QCOMPARE(file.patterns(SyntaxFile::Keywords).size(), 1);
}

void TestSyntaxFile::onlyTheFileNameCounts_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("none") << QString();
    QTest::newRow("the syntax folder") << dataFolder("syntax");
    QTest::newRow("another folder") << QStringLiteral("/etc/");
    QTest::newRow("a folder above") << QStringLiteral("../../");
    QTest::newRow("a folder that is missing") << QStringLiteral("not/there/");
}

void TestSyntaxFile::onlyTheFileNameCounts()
{
    QFETCH(const QString, folder);
    const DefinitionFile definition(definitionXml({"k"}));
    SyntaxFile loaded{QString()};
    QVERIFY(loaded.load(folder + definition.name()));
    QCOMPARE(loaded.fileName(), definition.name());
    SyntaxFile built(folder + definition.name());
    QVERIFY(built.load(QString()));
}

void TestSyntaxFile::extensionInCapitalsFindsNothing()
{
    QVERIFY(QFileInfo::exists(dataFolder("syntax") + "cpp.xml"));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    SyntaxFile file{QString()};
    QVERIFY(!file.load("CPP.xml"));
    QCOMPARE(answers.texts(), QStringList("Syntax file for .CPP doesn't exist!"));
}

void TestSyntaxFile::missingFile()
{
    const DefinitionFile definition(definitionXml({"k"}));
    SyntaxFile file{QString()};
    QVERIFY(file.load(definition.name()));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!file.load("folder/gone.tar.xml"));
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &box = answers.seen().first();
    QCOMPARE(box.title, QStringLiteral("Warning"));
    QCOMPARE(box.text, QStringLiteral("Syntax file for .gone doesn't exist!"));
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.parent, nullptr);
    // Nothing has changed but the name.
    QCOMPARE(file.fileName(), QStringLiteral("gone.tar.xml"));
    QCOMPARE(file.patterns(SyntaxFile::Keywords), QVector<QString>({"k"}));
    QCOMPARE(file.format(SyntaxFile::Keywords).foreground().color(), QColor("#000001"));
}

void TestSyntaxFile::nameThatLooksLikeMarkup()
{
    DialogAnswers answers;
    Qt::TextFormat format = Qt::AutoText;
    answers.handle([&format](QDialog *dialog) {
        format = qobject_cast<QMessageBox *>(dialog)->textFormat();
        dialog->accept();
    });
    SyntaxFile file{QString()};
    QVERIFY(!file.load("<b>%1.xml"));
    QCOMPARE(answers.texts(), QStringList("Syntax file for .<b>%1 doesn't exist!"));
    QCOMPARE(format, Qt::PlainText);
}

void TestSyntaxFile::folderInPlaceOfAFile()
{
    const QString name = QStringLiteral("test-folder-%1.xml").arg(QCoreApplication::applicationPid());
    QDir folder(dataFolder("syntax"));
    QVERIFY(folder.mkdir(name));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    SyntaxFile file{QString()};
    const bool loaded = file.load(name);
    QVERIFY(folder.rmdir(name));
    QVERIFY(!loaded);
    QCOMPARE(answers.texts(),
             QStringList(QStringLiteral("Can't open syntax file: %1 !").arg(folder.path() + '/' + name)));
    QCOMPARE(answers.seen().first().title, QStringLiteral("Warning"));

    // Neither is the folder itself, nor the one above it.
    for (const QString &odd : {QString(), QStringLiteral(".."), QStringLiteral("a/..")}) {
        answers.click(QMessageBox::Ok);
        QVERIFY(!SyntaxFile(QString()).load(odd));
    }
    QCOMPARE(answers.seen().size(), 4);
}

void TestSyntaxFile::pipeInPlaceOfAFile()
{
#ifdef Q_OS_UNIX
    const QString path =
        dataFolder("syntax") + QStringLiteral("test-pipe-%1.xml").arg(QCoreApplication::applicationPid());
    QCOMPARE(mkfifo(path.toLocal8Bit().constData(), 0600), 0);
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    SyntaxFile file{QString()};
    const bool loaded = file.load(path); // would wait for a writer, were the pipe opened
    QVERIFY(QFile::remove(path));
    QVERIFY(!loaded);
    QCOMPARE(answers.texts(), QStringList(QStringLiteral("Can't open syntax file: %1 !").arg(path)));
#endif
}

void TestSyntaxFile::wrongFormat_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << definitionXml({"k"}).chopped(10);
    QTest::newRow("entities") << "<!DOCTYPE s [<!ENTITY e \"x\">]>" + definitionXml({"&e;"});
    QTest::newRow("damaged at its end") << definitionXml({"k"}) + "<";
    QTest::newRow("too long") << definitionXml({"k"}) + QByteArray(1 << 20, '\n');
}

void TestSyntaxFile::wrongFormat()
{
    QFETCH(const QByteArray, content);
    const DefinitionFile definition(content);
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    SyntaxFile file{QString()};
    QVERIFY(!file.load(definition.name()));
    QCOMPARE(answers.texts(),
             QStringList(QStringLiteral("Format of syntax file '%1' is wrong!").arg(definition.path())));
    QCOMPARE(answers.seen().first().title, QStringLiteral("Warning"));
    QCOMPARE(answers.seen().first().buttons, QMessageBox::Ok);
    QVERIFY(file.patterns(SyntaxFile::Keywords).isEmpty());
    QCOMPARE(file.format(SyntaxFile::Keywords), SyntaxFile(QString()).format(SyntaxFile::Keywords));
    QVERIFY(file.isUpToDate()); // nothing new is to be had from it
}

void TestSyntaxFile::knowsWhetherItIsUpToDate()
{
    DefinitionFile definition(definitionXml({"k"}));
    SyntaxFile file{QString()};
    QVERIFY(!file.isUpToDate());
    QVERIFY(file.load(definition.name()));
    QVERIFY(file.isUpToDate());
    definition.write(definitionXml({"x"})); // as long as before, within the same moment
    QVERIFY(!file.isUpToDate());
    QVERIFY(file.load(QString()));
    QVERIFY(file.isUpToDate());
    QVERIFY(QFile::remove(definition.path()));
    QVERIFY(!file.isUpToDate());
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!file.load(QString()));
    QVERIFY(file.isUpToDate());
    definition.write(definitionXml({"x"}));
    QVERIFY(!file.isUpToDate());
}

void TestSyntaxFile::resetForgetsAllButTheName()
{
    const DefinitionFile definition(definitionXml({"k"}, {"t"}));
    SyntaxFile file{QString()};
    QVERIFY(file.load(definition.name()));
    file.reset();
    QVERIFY(file.patterns(SyntaxFile::Keywords).isEmpty());
    QCOMPARE(file.format(SyntaxFile::Types), SyntaxFile(QString()).format(SyntaxFile::Types));
    QCOMPARE(file.fileName(), definition.name());
    QVERIFY(!file.isUpToDate());
}

void TestSyntaxFile::listsCanBeEdited()
{
    SyntaxFile file("x.xml");
    file.patterns(SyntaxFile::Types).append("t");
    file.format(SyntaxFile::Types).setForeground(Qt::cyan);
    const SyntaxFile &read = file;
    QCOMPARE(read.patterns(SyntaxFile::Types), QVector<QString>({"t"}));
    QCOMPARE(read.format(SyntaxFile::Types).foreground().color(), QColor(Qt::cyan));
}

REGISTER_TEST(TestSyntaxFile)
#include "tst_syntaxfile.moc"
