// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/folders.h"
#include "settings/groupdialog.h"
#include "settings/settingsprobe.h"
#include "settings/syntaxtab.h"
#include "support/definitions.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/fulldisk.h"
#include "support/plainuser.h"
#include "support/testmain.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFontDialog>
#include <QInputDialog>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>
#include <QToolButton>

namespace {

QString definitionPath(const QString &extension)
{
    return dataFolder(QStringLiteral("syntax")) + extension + QStringLiteral(".xml");
}

QString extensionOf(const DefinitionFile &file)
{
    return file.name().chopped(4);
}

/// The syntax page with the store and the folder as they are, worked by its buttons. All dialogs that come up are
/// answered here.
class SyntaxPage
{
public:
    /// @p warnings message boxes are expected and accepted while the definitions are read.
    explicit SyntaxPage(int warnings = 0)
    {
        acceptMessages(warnings);
        reopen();
    }

    void reopen() { m_tab.load(QSettings()); }
    void accept()
    {
        QSettings settings;
        m_tab.store(settings);
    }

    QComboBox *extensions() const { return m_tab.findChild<QComboBox *>(QStringLiteral("extensionComboBox")); }
    QListWidget *elements() const { return m_tab.findChild<QListWidget *>(QStringLiteral("elementsListWidget")); }
    QStringList extensionTexts() const
    {
        QStringList texts;
        for (int i = 0; i < extensions()->count(); ++i)
            texts.append(extensions()->itemText(i));
        return texts;
    }
    void click(const char *button) const { m_tab.findChild<QAbstractButton *>(QString::fromLatin1(button))->click(); }
    void select(const QString &extension, int row) const
    {
        extensions()->setCurrentText(extension);
        elements()->setCurrentRow(row);
    }

    /// The patterns of the present choice, as the dialog for them shows them.
    QStringList patterns()
    {
        QStringList texts;
        m_answers.handle([&texts](QDialog *dialog) {
            const auto *list = dialog->findChild<QListWidget *>(QStringLiteral("patternsListWidget"));
            for (int row = 0; list != nullptr && row < list->count(); ++row)
                texts.append(list->item(row)->text());
            dialog->close();
        });
        click("editButton");
        return texts;
    }
    /// Replaces them.
    void setPatterns(const QStringList &patterns)
    {
        m_answers.handle([&patterns](QDialog *dialog) {
            auto *list = dialog->findChild<QListWidget *>(QStringLiteral("patternsListWidget"));
            list->clear();
            list->addItems(patterns);
            dialog->findChild<QPushButton *>(QStringLiteral("okButton"))->click();
        });
        click("editButton");
    }
    /// The colour that the colour dialog behind @p button starts from.
    QColor color(const char *button)
    {
        QColor color;
        m_answers.handle([&color](QDialog *dialog) {
            if (const auto *colors = qobject_cast<QColorDialog *>(dialog))
                color = colors->currentColor();
            dialog->reject();
        });
        click(button);
        return color;
    }
    void setColor(const char *button, const QColor &color)
    {
        m_answers.handle([&color](QDialog *dialog) {
            qobject_cast<QColorDialog *>(dialog)->setCurrentColor(color);
            dialog->accept();
        });
        click(button);
    }
    void registerExtension(const QString &extension)
    {
        m_answers.handle([&extension](QDialog *dialog) {
            qobject_cast<QInputDialog *>(dialog)->setTextValue(extension);
            dialog->accept();
        });
        click("newButton");
    }
    void acceptMessages(int count)
    {
        for (int i = 0; i < count; ++i)
            m_answers.accept();
    }

    SyntaxTab &tab() { return m_tab; }
    DialogAnswers &answers() { return m_answers; }
    /// The texts of the message boxes so far.
    QStringList messages() const { return m_answers.texts(); }

private:
    DialogAnswers m_answers;
    SyntaxTab m_tab;
};

/// An extension that nothing is registered for, whose file goes when this does.
class FreshExtension
{
public:
    explicit FreshExtension(const QString &tail = QString())
        : m_name(QStringLiteral("fresh%1%2").arg(QCoreApplication::applicationPid()).arg(tail))
    {
    }
    ~FreshExtension() { QFile::remove(path()); }
    Q_DISABLE_COPY_MOVE(FreshExtension)

    QString name() const { return m_name; }
    QString path() const { return definitionPath(m_name); }

private:
    QString m_name;
};

QVector<QString> patternsIn(const QString &path, SyntaxFile::Group group)
{
    SyntaxFile file{QString()};
    if (!file.parse(bytesIn(path)))
        qFatal("no definition in %s", qPrintable(path));
    return file.patterns(group);
}

/// The whole folder by name and bytes.
QHash<QString, QByteArray> folderContents()
{
    const QDir folder(dataFolder(QStringLiteral("syntax")));
    QHash<QString, QByteArray> contents;
    for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden))
        contents.insert(name, bytesIn(folder.filePath(name)));
    return contents;
}

} // namespace

class TestSyntaxTab : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void listsEveryDefinition();
    void loadingTwiceDoublesNothing();
    void currentExtensionStays();
    void filesComeAndGo();
    void damagedFileWarnsOnce();
    void newExtension();
    void newExtensionWithoutText();
    void registeredExtension();
    void refusedExtensions_data();
    void refusedExtensions();
    void extensionWithDots();
    void editNeedsARow();
    void rowsAreGroups();
    void rowsAreGroupsInEveryLanguage();
    void emptyListStaysEmpty();
    void fontDialog();
    void colorDialogs();
    void colorOfANewDefinition();
    void nothingIsWrittenWithoutOk();
    void reopeningForgetsCancelledEdits();
    void okWritesEditedDefinitionsOnly();
    void okWritesANewDefinition();
    void okWithoutEdits();
    void okWritesOnce();
    void highlightByDefault();
    void changedByAnotherProgram();
    void editedByBoth();
    void goneBeforeOk();
    void goneUneditedStaysGone();
    void createdByAnotherProgram();
    void damagedBeforeOk();
    void damagedAtOpening();
    void repairedWhileOpen();
    void readOnlyFile();
    void readOnlyFolder();
    void readOnlyFolderAndANewDefinition();
    void fullDisk();
    void folderInPlaceOfAFile();
    void oneMessageForAll();
    void linksAreFollowed();
    void unwritablePattern();
};

void TestSyntaxTab::listsEveryDefinition()
{
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    const QDir folder(dataFolder(QStringLiteral("syntax")));
    QStringList expected = folder.entryList({"*.xml"}, QDir::Files | QDir::Hidden, QDir::Name);
    expected.replaceInStrings(QRegularExpression(QStringLiteral("\\.xml$")), QString());
    QVERIFY(expected.contains(QStringLiteral("cpp")));
    QVERIFY(expected.contains(extensionOf(file)));
    QCOMPARE(page.extensionTexts(), expected);
    page.select(QStringLiteral("cpp"), 0);
    QVERIFY(page.patterns().contains(QStringLiteral("\\bclass\\b")));
}

void TestSyntaxTab::loadingTwiceDoublesNothing()
{
    const DefinitionFile file(definitionXml({"a", "b"}));
    SyntaxPage page;
    const QStringList before = page.extensionTexts();
    page.reopen();
    page.reopen();
    QCOMPARE(page.extensionTexts(), before);
    page.select(extensionOf(file), 0);
    QCOMPARE(page.patterns(), QStringList({"a", "b"}));
}

void TestSyntaxTab::currentExtensionStays()
{
    SyntaxPage page;
    page.select(QStringLiteral("cpp"), 2);
    page.reopen();
    QCOMPARE(page.extensions()->currentText(), QStringLiteral("cpp"));
    QCOMPARE(page.elements()->currentRow(), 2);
}

void TestSyntaxTab::filesComeAndGo()
{
    SyntaxPage page;
    QString name;
    {
        const DefinitionFile file(definitionXml({"a"}));
        name = extensionOf(file);
        page.reopen();
        QVERIFY(page.extensionTexts().contains(name));
        page.select(name, 0);
    }
    page.reopen();
    QVERIFY(!page.extensionTexts().contains(name));
    QVERIFY(page.extensions()->currentIndex() == 0);
}

void TestSyntaxTab::damagedFileWarnsOnce()
{
    const DefinitionFile file("not a definition");
    SyntaxPage page(1);
    page.reopen();
    QCOMPARE(page.messages(), QStringList{"Format of syntax file '" + file.path() + "' is wrong!"});
    QVERIFY(page.extensionTexts().contains(extensionOf(file)));
    page.reopen();
    page.accept();
    QCOMPARE(page.messages().size(), 1);
    QCOMPARE(bytesIn(file.path()), QByteArray("not a definition"));
}

void TestSyntaxTab::newExtension()
{
    const FreshExtension fresh;
    SyntaxPage page;
    const QStringList before = page.extensionTexts();
    QStringList seen;
    page.answers().handle([&](QDialog *dialog) {
        auto *input = qobject_cast<QInputDialog *>(dialog);
        seen = QStringList{input->windowTitle(), input->labelText(), input->textValue()};
        input->setTextValue(fresh.name());
        input->accept();
    });
    page.click("newButton");
    QCOMPARE(seen, QStringList({"Register extension", "New file extension: ", ""}));
    QCOMPARE(page.extensionTexts(), before + QStringList(fresh.name()));
    QVERIFY(page.extensions()->itemIcon(page.extensions()->count() - 1).isNull());
    QVERIFY(!QFile::exists(fresh.path()));
    // Its lists can be edited like all others.
    page.select(fresh.name(), 3);
    QCOMPARE(page.patterns(), QStringList());
    page.setPatterns({"\".*\""});
    QCOMPARE(page.patterns(), QStringList({"\".*\""}));
    QVERIFY(!QFile::exists(fresh.path()));
}

void TestSyntaxTab::newExtensionWithoutText()
{
    SyntaxPage page;
    const QStringList before = page.extensionTexts();
    page.registerExtension(QString());
    page.answers().reject();
    page.click("newButton");
    QCOMPARE(page.answers().seen().size(), 2);
    QCOMPARE(page.extensionTexts(), before);
}

void TestSyntaxTab::registeredExtension()
{
    SyntaxPage page;
    const QStringList before = page.extensionTexts();
    page.answers().handle([](QDialog *dialog) {
        qobject_cast<QInputDialog *>(dialog)->setTextValue(QStringLiteral("cpp"));
        dialog->accept();
    });
    page.acceptMessages(1);
    page.click("newButton");
    QCOMPARE(page.answers().seen().size(), 2);
    QCOMPARE(page.answers().seen().at(1).title, QStringLiteral("Warning"));
    QCOMPARE(page.answers().seen().at(1).text, QStringLiteral("This file extension is already registered!"));
    QCOMPARE(page.answers().seen().at(1).icon, QMessageBox::Warning);
    QCOMPARE(page.extensionTexts(), before);
}

void TestSyntaxTab::refusedExtensions_data()
{
    QTest::addColumn<QString>("extension");
    QTest::newRow("upwards") << QStringLiteral("a/../b");
    QTest::newRow("folder") << QStringLiteral("a/b");
    QTest::newRow("absolute") << QStringLiteral("/tmp/x");
    QTest::newRow("other separator") << QStringLiteral("a\\b");
    QTest::newRow("null character") << QString(QChar(QChar::Null)) + QLatin1Char('x');
}

void TestSyntaxTab::refusedExtensions()
{
    QFETCH(const QString, extension);
    SyntaxPage page;
    const auto before = folderContents();
    const QStringList extensions = page.extensionTexts();
    page.registerExtension(extension);
    QCOMPARE(page.extensionTexts(), extensions);
    page.accept();
    QCOMPARE(folderContents(), before);
}

/// The part of the name before the first dot is not enough to find such a definition again.
void TestSyntaxTab::extensionWithDots()
{
    const FreshExtension plain;
    const FreshExtension dotted(QStringLiteral(".gz"));
    SyntaxPage page;
    page.registerExtension(plain.name());
    page.registerExtension(dotted.name());
    page.select(dotted.name(), 0);
    page.setPatterns({"zipped"});
    page.accept();
    QCOMPARE(patternsIn(dotted.path(), SyntaxFile::Keywords), QVector<QString>({"zipped"}));
    QCOMPARE(patternsIn(plain.path(), SyntaxFile::Keywords), QVector<QString>());
    page.reopen();
    page.select(dotted.name(), 0);
    QCOMPARE(page.patterns(), QStringList({"zipped"}));
}

void TestSyntaxTab::editNeedsARow()
{
    SyntaxPage page;
    page.elements()->setCurrentRow(-1);
    for (const char *button : {"editButton", "fontToolButton", "colorToolButton", "bgColorToolButton"})
        page.click(button);
    page.elements()->setCurrentRow(0);
    page.extensions()->setCurrentIndex(-1);
    for (const char *button : {"editButton", "fontToolButton", "colorToolButton", "bgColorToolButton"})
        page.click(button);
    QCOMPARE(page.answers().seen().size(), 0);
}

void TestSyntaxTab::rowsAreGroups()
{
    const DefinitionFile file(definitionXml({"k"}, {"t"}, {"c"}, {"q"}));
    SyntaxPage page;
    const QStringList expected{"k", "t", "c", "q"};
    for (int row = 0; row < 4; ++row) {
        page.select(extensionOf(file), row);
        QCOMPARE(page.patterns(), QStringList(expected.at(row)));
        QCOMPARE(page.color("colorToolButton"), QColor(0, 0, row + 1));
    }
}

void TestSyntaxTab::rowsAreGroupsInEveryLanguage()
{
    const DefinitionFile file(definitionXml({"k"}, {"t"}, {"c"}, {"q"}));
    SyntaxPage page;
    const MarkedLanguage language;
    language.announceTo(&page.tab());
    QCOMPARE(page.elements()->item(3)->text(), language.mark + "Text");
    const QStringList expected{"k", "t", "c", "q"};
    for (int row = 0; row < 4; ++row) {
        page.select(extensionOf(file), row);
        QCOMPARE(page.patterns(), QStringList(expected.at(row)));
    }
}

void TestSyntaxTab::emptyListStaysEmpty()
{
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({});
    QCOMPARE(page.patterns(), QStringList());
    page.accept();
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Keywords), QVector<QString>());
}

void TestSyntaxTab::fontDialog()
{
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    const auto choose = [&page](bool confirm, QFont *seen) {
        page.answers().handle([confirm, seen](QDialog *dialog) {
            auto *fonts = qobject_cast<QFontDialog *>(dialog);
            *seen = fonts->currentFont();
            QFont font(QStringLiteral("DejaVu Sans"), 20);
            font.setBold(true);
            fonts->setCurrentFont(font);
            confirm ? dialog->accept() : dialog->reject();
        });
    };
    QFont first;
    QFont second;
    QFont third;
    choose(false, &first);
    page.click("fontToolButton");
    choose(true, &second);
    page.click("fontToolButton");
    choose(false, &third);
    page.click("fontToolButton");
    QVERIFY(!first.bold());
    QVERIFY(!second.bold());
    QCOMPARE(third.pointSize(), 20);
    QVERIFY(third.bold());
    QCOMPARE(page.answers().seen().constFirst().parent, &page.tab());
    page.accept();
    QVERIFY(bytesIn(file.path()).contains("weight=\"Bold\""));
    QVERIFY(!bytesIn(file.path()).contains("DejaVu"));
}

void TestSyntaxTab::colorDialogs()
{
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    page.select(extensionOf(file), 1);
    for (const char *button : {"colorToolButton", "bgColorToolButton"}) {
        const QColor before = page.color(button);
        QVERIFY(before.isValid());
        QCOMPARE(page.color(button), before);
        page.setColor(button, QColor(10, 20, 30));
        QCOMPARE(page.color(button), QColor(10, 20, 30));
        page.setColor(button, QColor(40, 50, 60));
    }
    page.accept();
    SyntaxFile written{QString()};
    QVERIFY(written.parse(bytesIn(file.path())));
    const QTextCharFormat &format = written.format(SyntaxFile::Types);
    QCOMPARE(format.brushProperty(QTextFormat::ForegroundBrush), QBrush(QColor(40, 50, 60), Qt::SolidPattern));
    QCOMPARE(format.brushProperty(QTextFormat::BackgroundBrush), QBrush(QColor(40, 50, 60), Qt::SolidPattern));
    QCOMPARE(written.format(SyntaxFile::Keywords).foreground().color(), QColor(0, 0, 1));
}

void TestSyntaxTab::colorOfANewDefinition()
{
    const FreshExtension fresh;
    SyntaxPage page;
    page.registerExtension(fresh.name());
    const QList<QColor> usual{Qt::red, Qt::blue, Qt::gray, Qt::darkGreen};
    for (int row = 0; row < 4; ++row) {
        page.select(fresh.name(), row);
        QCOMPARE(page.color("colorToolButton"), usual.at(row));
    }
}

void TestSyntaxTab::nothingIsWrittenWithoutOk()
{
    const FreshExtension fresh;
    const DefinitionFile file(definitionXml({"k"}));
    const auto before = folderContents();
    {
        SyntaxPage page;
        page.select(extensionOf(file), 0);
        page.setPatterns({"x"});
        page.setColor("colorToolButton", Qt::red);
        page.registerExtension(fresh.name());
        page.reopen();
    }
    QCOMPARE(folderContents(), before);
}

void TestSyntaxTab::reopeningForgetsCancelledEdits()
{
    const FreshExtension fresh;
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({"x"});
    page.setColor("colorToolButton", Qt::red);
    page.registerExtension(fresh.name());
    page.reopen();
    QVERIFY(!page.extensionTexts().contains(fresh.name()));
    QCOMPARE(page.extensions()->currentText(), extensionOf(file));
    QCOMPARE(page.patterns(), QStringList({"k"}));
    QCOMPARE(page.color("colorToolButton"), QColor(0, 0, 1));
    page.accept();
    QCOMPARE(bytesIn(file.path()), definitionXml({"k"}));
}

void TestSyntaxTab::okWritesEditedDefinitionsOnly()
{
    const DefinitionFile edited(definitionXml({"k"}, {"t"}));
    const DefinitionFile untouched(definitionXml({"k"}));
    auto expected = folderContents();
    SyntaxPage page;
    page.select(extensionOf(edited), 1);
    page.setPatterns({"t", "u"});
    page.accept();
    QCOMPARE(patternsIn(edited.path(), SyntaxFile::Types), QVector<QString>({"t", "u"}));
    QCOMPARE(patternsIn(edited.path(), SyntaxFile::Keywords), QVector<QString>({"k"}));
    auto found = folderContents();
    expected.remove(edited.name());
    found.remove(edited.name());
    QCOMPARE(found, expected);
    page.reopen();
    QCOMPARE(page.patterns(), QStringList({"t", "u"}));
}

void TestSyntaxTab::okWritesANewDefinition()
{
    const FreshExtension fresh;
    SyntaxPage page;
    page.registerExtension(fresh.name());
    page.accept();
    const QByteArray bytes = bytesIn(fresh.path());
    QVERIFY(bytes.contains("<syntaxfile type=\"" + fresh.name().toLatin1() + "\" version=\"1.0\">"));
    QCOMPARE(bytes.count("<element "), 4);
    page.reopen();
    QVERIFY(page.extensionTexts().contains(fresh.name()));
    // From now on it is a definition like all others.
    QVERIFY(QFile::remove(fresh.path()));
    page.accept();
    QVERIFY(!QFile::exists(fresh.path()));
    page.reopen();
    QVERIFY(!page.extensionTexts().contains(fresh.name()));
}

void TestSyntaxTab::okWithoutEdits()
{
    const DefinitionFile file(definitionXml({"k"}));
    const auto before = folderContents();
    SyntaxPage page;
    // There and back again is no edit.
    page.select(extensionOf(file), 0);
    page.setPatterns({"x"});
    page.setPatterns({"k"});
    page.setColor("colorToolButton", Qt::red);
    page.setColor("colorToolButton", QColor(0, 0, 1));
    page.accept();
    QCOMPARE(folderContents(), before);
}

void TestSyntaxTab::okWritesOnce()
{
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({"x"});
    page.accept();
    const QByteArray other = definitionXml({"other"});
    store(file.path(), other);
    page.accept();
    QCOMPARE(bytesIn(file.path()), other);
}

void TestSyntaxTab::highlightByDefault()
{
    SyntaxPage page;
    QWidget *box = partOf(&page.tab(), QStringLiteral("defaultHighlightCheckBox"));
    QCOMPARE(shownBy(box), QVariant(true));
    choose(box, false);
    page.accept();
    QCOMPARE(QSettings().value(QStringLiteral("Syntax/HighlightByDefault")).toBool(), false);
}

/// Each side's changes arrive, as long as they are in different groups.
void TestSyntaxTab::changedByAnotherProgram()
{
    const DefinitionFile file(definitionXml({"k"}, {"t"}));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({"mine"});
    store(file.path(), "<!-- theirs -->" + definitionXml({"k"}, {"theirs"}));
    page.accept();
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Keywords), QVector<QString>({"mine"}));
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Types), QVector<QString>({"theirs"}));
    QVERIFY(bytesIn(file.path()).contains("<!-- theirs -->"));
    page.reopen();
    page.select(extensionOf(file), 1);
    QCOMPARE(page.patterns(), QStringList({"theirs"}));
}

void TestSyntaxTab::editedByBoth()
{
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({"mine"});
    store(file.path(), definitionXml({"theirs"}));
    page.accept();
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Keywords), QVector<QString>({"mine"}));
}

void TestSyntaxTab::goneBeforeOk()
{
    const DefinitionFile file(definitionXml({"k"}, {"t"}));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({"mine"});
    QVERIFY(QFile::remove(file.path()));
    page.accept();
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Keywords), QVector<QString>({"mine"}));
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Types), QVector<QString>({"t"}));
}

void TestSyntaxTab::goneUneditedStaysGone()
{
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    QVERIFY(QFile::remove(file.path()));
    page.accept();
    QVERIFY(!QFile::exists(file.path()));
    page.reopen();
    QVERIFY(!page.extensionTexts().contains(extensionOf(file)));
    QCOMPARE(page.messages().size(), 0);
}

void TestSyntaxTab::createdByAnotherProgram()
{
    const FreshExtension fresh;
    SyntaxPage page;
    page.registerExtension(fresh.name());
    page.select(fresh.name(), 0);
    page.setPatterns({"mine"});
    store(fresh.path(), definitionXml({"k"}, {"theirs"}));
    page.accept();
    QCOMPARE(patternsIn(fresh.path(), SyntaxFile::Keywords), QVector<QString>({"mine"}));
    QCOMPARE(patternsIn(fresh.path(), SyntaxFile::Types), QVector<QString>({"theirs"}));
}

void TestSyntaxTab::damagedBeforeOk()
{
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({"mine"});
    store(file.path(), "half a defin");
    page.acceptMessages(1);
    page.accept();
    QCOMPARE(page.messages(), QStringList{"Can't save syntax file: " + file.path() + " !"});
    QCOMPARE(bytesIn(file.path()), QByteArray("half a defin"));
    // The edits wait for better times, in silence.
    page.accept();
    page.reopen();
    QCOMPARE(page.patterns(), QStringList({"mine"}));
    store(file.path(), definitionXml({"k"}, {"t"}));
    page.accept();
    QCOMPARE(page.messages().size(), 1);
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Keywords), QVector<QString>({"mine"}));
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Types), QVector<QString>({"t"}));
}

/// A definition that could not be read is never written, whatever the user enters.
void TestSyntaxTab::damagedAtOpening()
{
    const DefinitionFile file("<syntaxfile");
    SyntaxPage page(1);
    QCOMPARE(page.messages().size(), 1);
    page.select(extensionOf(file), 0);
    page.setPatterns({"mine"});
    page.acceptMessages(1);
    page.accept();
    QCOMPARE(page.messages().constLast(), "Can't save syntax file: " + file.path() + " !");
    QCOMPARE(bytesIn(file.path()), QByteArray("<syntaxfile"));
    store(file.path(), definitionXml({"theirs"}));
    page.accept();
    QCOMPARE(bytesIn(file.path()), definitionXml({"theirs"}));
    QCOMPARE(page.messages().size(), 2);
}

void TestSyntaxTab::repairedWhileOpen()
{
    const DefinitionFile file("<syntaxfile");
    SyntaxPage page(1);
    store(file.path(), definitionXml({"whole"}));
    page.reopen();
    page.select(extensionOf(file), 0);
    QCOMPARE(page.patterns(), QStringList({"whole"}));
    page.setPatterns({"mine"});
    page.accept();
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Keywords), QVector<QString>({"mine"}));
    QCOMPARE(page.messages().size(), 1);
}

void TestSyntaxTab::readOnlyFile()
{
    const DefinitionFile file(definitionXml({"k"}));
    QVERIFY(QFile::setPermissions(file.path(), QFileDevice::ReadOwner | QFileDevice::ReadOther));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({"mine"});
    page.acceptMessages(1);
    {
        const PlainUser user;
        page.accept();
    }
    QCOMPARE(page.messages(), QStringList{"Can't save syntax file: " + file.path() + " !"});
    QCOMPARE(bytesIn(file.path()), definitionXml({"k"}));
}

void TestSyntaxTab::readOnlyFolder()
{
    const DefinitionFile file(definitionXml({"k"}));
    const auto before = folderContents();
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({"mine"});
    page.setColor("colorToolButton", Qt::red);
    page.acceptMessages(1);
    {
        const PlainUser user;
        page.accept();
        QCOMPARE(page.messages().size(), 1);
        QCOMPARE(page.answers().seen().constLast().title, QStringLiteral("Warning"));
        QCOMPARE(page.answers().seen().constLast().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        // Accepted edits survive the next opening, edits made in it and cancelled do not.
        page.reopen();
        page.setPatterns({"other"});
        page.reopen();
        page.accept();
    }
    QCOMPARE(page.messages().size(), 1);
    QCOMPARE(folderContents(), before);
    QCOMPARE(page.patterns(), QStringList({"mine"}));
    QCOMPARE(page.color("colorToolButton"), QColor(Qt::red));
    // Once the folder can be written they arrive.
    page.accept();
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Keywords), QVector<QString>({"mine"}));
}

void TestSyntaxTab::readOnlyFolderAndANewDefinition()
{
    const FreshExtension fresh;
    SyntaxPage page;
    page.registerExtension(fresh.name());
    page.acceptMessages(1);
    {
        const PlainUser user;
        page.accept();
        page.reopen();
        page.accept();
    }
    QCOMPARE(page.messages(), QStringList{"Can't save syntax file: " + fresh.path() + " !"});
    QVERIFY(page.extensionTexts().contains(fresh.name()));
    QVERIFY(!QFile::exists(fresh.path()));
    page.accept();
    QVERIFY(QFile::exists(fresh.path()));
}

void TestSyntaxTab::fullDisk()
{
    const DefinitionFile file(definitionXml({"k"}));
    const auto before = folderContents();
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({"mine"});
    page.acceptMessages(1);
    {
        const FullDisk disk(16);
        page.accept();
    }
    QCOMPARE(page.messages(), QStringList{"Can't save syntax file: " + file.path() + " !"});
    // No half-written file beside it, either.
    QCOMPARE(folderContents(), before);
    QCOMPARE(page.patterns(), QStringList({"mine"}));
}

void TestSyntaxTab::folderInPlaceOfAFile()
{
    const FreshExtension fresh;
    SyntaxPage page;
    page.registerExtension(fresh.name());
    QVERIFY(QDir().mkdir(fresh.path()));
    page.acceptMessages(1);
    page.accept();
    QCOMPARE(page.messages(), QStringList{"Can't save syntax file: " + fresh.path() + " !"});
    QVERIFY(QDir().rmdir(fresh.path()));
}

void TestSyntaxTab::oneMessageForAll()
{
    const DefinitionFile first(definitionXml({"k"}));
    const DefinitionFile second(definitionXml({"k"}));
    SyntaxPage page;
    for (const DefinitionFile *file : {&first, &second}) {
        page.select(extensionOf(*file), 0);
        page.setPatterns({"mine"});
    }
    page.acceptMessages(1);
    {
        const PlainUser user;
        page.accept();
    }
    QCOMPARE(page.messages().size(), 1);
    const QString text = page.messages().constFirst();
    QVERIFY(text.startsWith(QStringLiteral("Can't save syntax file: ")) && text.endsWith(QStringLiteral(" !")));
    QVERIFY(text.contains(",\n") && text.contains(first.path()) && text.contains(second.path()));
}

void TestSyntaxTab::linksAreFollowed()
{
    const DefinitionFile file(definitionXml({"k"}));
    const FreshExtension link;
    QVERIFY(QFile::link(file.path(), link.path()));
    SyntaxPage page;
    page.select(link.name(), 0);
    page.setPatterns({"mine"});
    page.accept();
    QVERIFY(QFileInfo(link.path()).isSymLink());
    QCOMPARE(patternsIn(file.path(), SyntaxFile::Keywords), QVector<QString>({"mine"}));
}

void TestSyntaxTab::unwritablePattern()
{
    const DefinitionFile file(definitionXml({"k"}));
    SyntaxPage page;
    page.select(extensionOf(file), 0);
    page.setPatterns({QStringLiteral("a\x01") + QLatin1Char('b')});
    page.acceptMessages(1);
    page.accept();
    QCOMPARE(page.messages(), QStringList{"Can't save syntax file: " + file.path() + " !"});
    QCOMPARE(bytesIn(file.path()), definitionXml({"k"}));
}

REGISTER_TEST(TestSyntaxTab)
#include "tst_syntaxtab.moc"
