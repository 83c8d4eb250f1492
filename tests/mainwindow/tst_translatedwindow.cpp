// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"
#include "support/textrecorder.h"
#include "support/tsfile.h"
#include "widgets/aboutdialog.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

namespace {

const char *const languageActions[]{"actionPolski", "actionFrancais", "actionEnglish"};

void addForeignLanguages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("Polish") << QStringLiteral("pl");
    QTest::newRow("French") << QStringLiteral("fr");
}

void switchTo(const WindowProbe &window, const QString &locale)
{
    QAction action;
    action.setData(locale);
    window->switchLanguage(&action);
    // The dialogs and the documents' tabs hear of it through the event loop.
    QCoreApplication::processEvents();
}

/// The menu and all menus below it.
QList<QMenu *> withSubMenus(QMenu *menu)
{
    QList<QMenu *> menus{menu};
    for (const QAction *action : menu->actions()) {
        if (action->menu() != nullptr)
            menus += withSubMenus(action->menu());
    }
    return menus;
}

QList<QMenu *> allMenus(const WindowProbe &window)
{
    QList<QMenu *> menus;
    for (const QAction *action : window->menuBar()->actions())
        menus += withSubMenus(action->menu());
    menus.append(window->popupMenu());
    return menus;
}

/// Every text that the window's menus, bars and buttons show.
QStringList shownTexts(const WindowProbe &window)
{
    QStringList texts;
    for (const QMenu *menu : allMenus(window)) {
        texts.append(menu->title());
        for (const QAction *action : menu->actions())
            texts += {action->text(), action->toolTip()};
    }
    for (const QToolBar *bar : window->findChildren<QToolBar *>()) {
        texts.append(bar->windowTitle());
        for (const QAction *action : bar->actions())
            texts += {action->text(), action->toolTip()};
    }
    for (const auto *button : window->findChildren<QAbstractButton *>())
        texts += {button->text(), button->toolTip()};
    for (const auto *label : window->findChildren<QLabel *>())
        texts.append(label->text());
    texts.removeDuplicates();
    return texts;
}

bool isCutOff(const QWidget *widget)
{
    if (const auto *button = qobject_cast<const QToolButton *>(widget)) {
        if (button->toolButtonStyle() == Qt::ToolButtonIconOnly && !button->icon().isNull())
            return false;
    }
    if (const auto *label = qobject_cast<const QLabel *>(widget); label != nullptr && label->wordWrap())
        return label->height() < label->heightForWidth(label->width());
    if (const auto *text = qobject_cast<const QTextEdit *>(widget))
        return text->verticalScrollBar()->maximum() > 0 || text->horizontalScrollBar()->maximum() > 0;
    const bool hasText = qobject_cast<const QAbstractButton *>(widget) != nullptr ||
                         qobject_cast<const QLabel *>(widget) != nullptr ||
                         qobject_cast<const QComboBox *>(widget) != nullptr;
    return hasText && (widget->width() < widget->minimumSizeHint().width() ||
                       widget->width() < widget->sizeHint().width() || widget->height() < widget->sizeHint().height());
}

QString textOf(const QWidget *widget)
{
    const QVariant text = widget->property("text");
    return QString::fromLatin1(widget->metaObject()->className()) + ' ' +
           (text.isValid() ? text.toString() : widget->objectName());
}

/// The visible parts of @p window that are too small for their texts, @p except aside.
QStringList cutOffTexts(const QWidget *window, const QStringList &except = {})
{
    QStringList cut;
    for (const auto *widget : window->findChildren<QWidget *>()) {
        if (widget->isVisible() && isCutOff(widget) && !except.contains(widget->objectName()))
            cut.append(textOf(widget) +
                       QStringLiteral(" %1 < %2").arg(widget->width()).arg(widget->sizeHint().width()));
    }
    return cut;
}

/// Texts of the sources by context, to which the translation gives other words.
QHash<LookedUpText, QString> translations(const QString &language)
{
    QHash<LookedUpText, QString> table;
    for (const TsMessage &message : readTsFile(ownTsFile(language)))
        table.insert({message.context, message.source}, message.translation);
    return table;
}

/// A compiled translation of a language that only the test has, removed with the object.
class LaidFile
{
public:
    LaidFile(const QString &name, const QByteArray &content)
        : m_file(Scrivara::folderPath(QStringLiteral("translations")) + name)
    {
        if (!m_file.open(QIODevice::WriteOnly) || m_file.write(content) != content.size())
            qFatal("cannot write the translation");
        m_file.close();
    }
    ~LaidFile() { m_file.remove(); }
    LaidFile(const LaidFile &) = delete;
    LaidFile &operator=(const LaidFile &) = delete;

private:
    QFile m_file;
};

QByteArray laidPolish()
{
    QFile file(laidTranslations() + "/scrivara_pl.qm");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestTranslatedWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void thereAndBack();
    void standardButtons_data();
    void standardButtons();
    void lookedUpTextsAreInTheFiles();
    void nothingStaysEnglish_data() { addForeignLanguages(); }
    void nothingStaysEnglish();
    void acceleratorsAreUnique_data();
    void acceleratorsAreUnique();
    void narrowTextsAreSeen();
    void windowShowsItsTextsWhole_data() { addForeignLanguages(); }
    void windowShowsItsTextsWhole();
    void dialogsShowTheirTextsWhole_data() { addForeignLanguages(); }
    void dialogsShowTheirTextsWhole();
    void damagedFiles_data();
    void damagedFiles();
    void halfOfTheFilesMissing();
    void otherWorkingDirectory();
};

void TestTranslatedWindow::init()
{
    QSettings().clear();
}

void TestTranslatedWindow::thereAndBack()
{
    const WindowProbe window;
    const QStringList english = shownTexts(window);
    const QHash<QString, QStringList> titles{
        {"actionPolski", {"Plik", "Edycja", "Narzędzia", "Ustawienia", "Widok", "Dodatki", "Pomoc"}},
        {"actionFrancais", {"Fichier", "Édition", "Outils", "Paramètres", "Affichage", "Divers", "Aide"}},
        {"actionEnglish", {"File", "Edit", "Tool", "Settings", "View", "Extras", "Help"}},
    };
    for (const char *language : languageActions) {
        window.action(language)->trigger();
        QStringList shown;
        for (const QAction *menu : window->menuBar()->actions())
            shown.append(menu->text());
        QCOMPARE(shown, titles.value(QString::fromLatin1(language)));
    }
    QCoreApplication::processEvents();
    QCOMPARE(shownTexts(window), english);
}

void TestTranslatedWindow::standardButtons_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<QString>("question");
    QTest::newRow("Polish") << QStringLiteral("pl") << QStringList{"Zapisz", "Nie zapisuj", "Anuluj"}
                            << QStringLiteral("Czy chcesz zapisać zmiany?");
    QTest::newRow("French") << QStringLiteral("fr") << QStringList{"Enregistrer", "Ne pas enregistrer", "Annuler"}
                            << QStringLiteral("Voulez-vous enregistrer les modifications\u00a0?");
    QTest::newRow("English") << QStringLiteral("en") << QStringList{"Save", "Discard", "Cancel"}
                             << QStringLiteral("Do you want to save changes?");
}

void TestTranslatedWindow::standardButtons()
{
    QFETCH(QString, language);
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    switchTo(window, QStringLiteral("pl"));
    switchTo(window, language);
    window.page()->setModified(true);
    QStringList buttons;
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        for (const auto button : {QMessageBox::Save, QMessageBox::Discard, QMessageBox::Cancel})
            buttons.append(box != nullptr && box->button(button) != nullptr ? box->button(button)->text() : QString());
        dialog->reject();
    });
    window->closeFile();
    QTEST(buttons, "buttons");
    QCOMPARE(answers.seen().size(), 1);
    QTEST(answers.seen().first().text.section('\n', 1), "question");
    window.forgetChanges();
}

void TestTranslatedWindow::lookedUpTextsAreInTheFiles()
{
    // What is looked up must stand in the files under the same context: a text that a class looks up under another
    // name than the one found in its source would stay English.
    const TestFiles files;
    const auto polish = translations(QStringLiteral("pl"));
    TextRecorder recorder;
    {
        const WindowProbe window({files.write("a.txt")});
        window->show();
        switchTo(window, QStringLiteral("pl"));
        DialogAnswers answers;
        for (int i = 0; i < 3; ++i)
            answers.reject();
        window->openFile();
        window->removeAllAnnotations();
        window->customizeToolBars();
        QCOMPARE(answers.seen().size(), 3);
        AboutDialog about;
        about.show();
        window.forgetChanges();
    }
    QStringList unknown;
    for (const LookedUpText &text : recorder.texts()) {
        const bool fromToolkit = text.first.startsWith('Q') && !text.first.startsWith(QLatin1String("Qt"));
        if (!fromToolkit && !polish.contains(text))
            unknown.append(text.first + ": " + text.second);
    }
    QCOMPARE(unknown.join(QLatin1String(" | ")), QString());
    QVERIFY(recorder.has("Scrivara", "File"));
    QVERIFY(recorder.has("PageStack", "Close File"));
}

void TestTranslatedWindow::nothingStaysEnglish()
{
    QFETCH(QString, language);
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    const QStringList english = shownTexts(window);
    switchTo(window, language);
    // A tool tip is made of its action's text without the dots and the accelerator.
    QStringList translated = translations(language).values();
    translated += QStringList(translated).replaceInStrings(QRegularExpression("\\.\\.\\.$|&"), QString());
    QStringList left;
    for (const QString &text : shownTexts(window)) {
        if (english.contains(text) && !translated.contains(text) && text.contains(QRegularExpression("[a-z]{3}")))
            left.append(text);
    }
    left.sort();
    // The document's own names, which no language changes.
    left.removeIf([](const QString &text) { return text.contains(QLatin1String("a.txt")); });
    QCOMPARE(left.join(QLatin1String(" | ")), QString());
}

void TestTranslatedWindow::acceleratorsAreUnique_data()
{
    addForeignLanguages();
    QTest::newRow("English") << QStringLiteral("en");
}

void TestTranslatedWindow::acceleratorsAreUnique()
{
    QFETCH(QString, language);
    const TestFiles files;
    const WindowProbe window({files.write("a.txt"), files.write("b.txt")});
    switchTo(window, language);
    QList<QKeySequence> shortcuts;
    for (const QAction *action : window->findChildren<QAction *>()) {
        if (!action->shortcut().isEmpty())
            shortcuts.append(action->shortcut());
    }
    QVERIFY(shortcuts.contains(QKeySequence(QStringLiteral("Alt+P"))));
    QList<QList<QAction *>> groups{window->menuBar()->actions()};
    for (const QMenu *menu : allMenus(window))
        groups.append(menu->actions());
    int found = 0;
    for (const QList<QAction *> &group : groups) {
        QSet<QKeySequence> used;
        for (const QAction *action : group) {
            const QKeySequence key = QKeySequence::mnemonic(action->text());
            if (key.isEmpty() || !action->isVisible())
                continue;
            ++found;
            QVERIFY2(!used.contains(key), qPrintable(action->text()));
            QVERIFY2(!shortcuts.contains(key), qPrintable(action->text()));
            used.insert(key);
        }
    }
    QVERIFY(found >= 2); // The recent files have numbers.
}

void TestTranslatedWindow::narrowTextsAreSeen()
{
    QWidget window;
    auto *label = new QLabel(QStringLiteral("Fichiers récents"), &window);
    auto *button = new QPushButton(QStringLiteral("Enregistrer"), &window);
    label->adjustSize();
    button->adjustSize();
    window.show();
    QCOMPARE(cutOffTexts(&window), QStringList());
    label->resize(label->width() - 1, label->height());
    QCOMPARE(cutOffTexts(&window).size(), 1);
    button->resize(button->width() - 1, button->height());
    QCOMPARE(cutOffTexts(&window).size(), 2);
}

void TestTranslatedWindow::windowShowsItsTextsWhole()
{
    QFETCH(QString, language);
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    window->resize(1000, 800);
    window->show();
    const QStringList before = cutOffTexts(&*window);
    switchTo(window, language);
    window->showSearchToolBar();
    // A bar takes its new width when the loop gets to it.
    QTRY_COMPARE(cutOffTexts(&*window), before);
    QCOMPARE(before, QStringList());
    for (const char *bar : {"ScvSearchToolBar"}) {
        const auto *more = window.bar(bar)->findChild<QWidget *>(QStringLiteral("qt_toolbar_ext_button"));
        QVERIFY2(more == nullptr || !more->isVisible(), bar);
    }
    // All menus' titles stand on the menu bar.
    const auto *more = window->menuBar()->findChild<QWidget *>(QStringLiteral("qt_menubar_ext_button"));
    QVERIFY(more == nullptr || !more->isVisible());
    for (QMenu *menu : allMenus(window))
        QVERIFY2(menu->sizeHint().width() < window->width() / 2, qPrintable(menu->title()));
}

void TestTranslatedWindow::dialogsShowTheirTextsWhole()
{
    QFETCH(QString, language);
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    switchTo(window, language);
    QStringList cut;
    DialogAnswers answers;
    const auto look = [&](QDialog *dialog) {
        cut += cutOffTexts(dialog, {"textBrowser", "fileTypeCombo", "lookInCombo"});
        dialog->reject();
    };
    for (int i = 0; i < 4; ++i)
        answers.handle(look);
    window->removeAllAnnotations();
    window->customizeToolBars();
    window->openFile();
    window.page()->setModified(true);
    window->closeFile();
    QCOMPARE(answers.seen().size(), 4);
    AboutDialog about;
    about.show();
    cut += cutOffTexts(&about, {"textBrowser"});
    QCOMPARE(cut.join(QLatin1String(" | ")), QString());
    window.forgetChanges();
}

void TestTranslatedWindow::damagedFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray whole = laidPolish();
    QVERIFY(whole.size() > 1000);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no translation") << QByteArray("<?xml version=\"1.0\"?><TS/>");
    QTest::newRow("zeros") << QByteArray(5000, '\0');
    QTest::newRow("other magic") << QByteArray(whole).replace(0, 4, "abcd");
    QTest::newRow("magic only") << whole.left(16);
    for (const int percent : {1, 10, 50, 90, 99})
        QTest::addRow("cut at %d %%", percent) << whole.left(whole.size() * percent / 100);
}

void TestTranslatedWindow::damagedFiles()
{
    QFETCH(QByteArray, content);
    const LaidFile own(QStringLiteral("scrivara_zz.qm"), content);
    const LaidFile toolkit(QStringLiteral("qt_zz.qm"), content);
    DialogAnswers answers;
    const WindowProbe window;
    const QStringList english = shownTexts(window);
    switchTo(window, QStringLiteral("pl"));
    switchTo(window, QStringLiteral("zz"));
    // Not a word: the source texts come back, none is empty, and the choice is kept.
    QCOMPARE(shownTexts(window), english);
    QCOMPARE(QMessageBox::tr("OK"), QStringLiteral("OK"));
    window->saveSettings();
    QCOMPARE(QSettings().value(QStringLiteral("Other/AppLanguage")).toString(), QStringLiteral("zz"));
    QCOMPARE(answers.seen().size(), 0);
    // And at the next start.
    const WindowProbe next;
    QCOMPARE(shownTexts(next), english);
}

void TestTranslatedWindow::halfOfTheFilesMissing()
{
    // The program's own texts do without those of the standard dialogs.
    const LaidFile own(QStringLiteral("scrivara_zz.qm"), laidPolish());
    const WindowProbe window;
    switchTo(window, QStringLiteral("zz"));
    QCOMPARE(window.menu("menuFile")->title(), QStringLiteral("Plik"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"));
}

void TestTranslatedWindow::otherWorkingDirectory()
{
    const QString before = QDir::currentPath();
    const QTemporaryDir elsewhere;
    QVERIFY(QDir::setCurrent(elsewhere.path()));
    QSettings().setValue(QStringLiteral("Other/AppLanguage"), QStringLiteral("fr"));
    {
        const WindowProbe window;
        QCOMPARE(window.menu("menuFile")->title(), QStringLiteral("Fichier"));
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Annuler"));
    }
    QVERIFY(QDir::setCurrent(before));
}

REGISTER_TEST(TestTranslatedWindow)
#include "tst_translatedwindow.moc"
