// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"
#include "tools/tool.h"

#include <QFileDialog>
#include <QImageWriter>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTest>
#include <QTextDocument>
#include <QWindow>

namespace {

const QLatin1String recentKey("General/RecentFileList");

QStringList storedRecent()
{
    return QSettings().value(recentKey).toStringList();
}

QStringList recentPaths(const WindowProbe &window)
{
    QStringList paths;
    for (const QAction *action : window.recentActions())
        paths.append(action->data().toString());
    return paths;
}

QString titleOf(const QString &name)
{
    return QStringLiteral("Kestrin 7 [%1]").arg(name);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Chooses several files of one folder in the Open dialog.
void chooseFiles(DialogAnswers &answers, const QString &folder, const QStringList &names)
{
    answers.handle([=](QDialog *dialog) {
        auto *fileDialog = qobject_cast<QFileDialog *>(dialog);
        QVERIFY(fileDialog);
        QCOMPARE(fileDialog->fileMode(), QFileDialog::ExistingFiles);
        fileDialog->setDirectory(folder);
        auto *edit = fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->setText('"' + names.join(QStringLiteral("\" \"")) + '"');
        QMetaObject::invokeMethod(fileDialog, "accept");
    });
}

} // namespace

class TestFileCommands : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void newProject();
    void newProjectTwice();
    void newProjectTrace();
    void openDialogLooks();
    void openDialogFilterOrder();
    void openSeveralFiles();
    void openCancelled();
    void openSameFileAgain();
    void openMissingFileKeepsItsTraces();
    void chosenFilterComesFirst();
    void startsWhereTheLastFileWas();
    void recentAction();
    void recentActionOfOpenFile();
    void recentMissingFile();
    void recentTexts();
    void recentSurvivesAWindow();
    void recentLimit_data();
    void recentLimit();
    void limitIsReadOnce();
    void longListIsCutLater();
    void caseMakesAnotherEntry();
    void newestFirst();
    void emptyPathIsIgnored();
    void titleRule();
    void titleFollowsTheTab();
    void oddNames_data();
    void oddNames();
    void openedDocumentIsReady();
    void newViewHasTheToolsCursor();
    void saveWithoutStack();
    void saveTypedText();
    void saveNewDocumentAsks();
    void saveAsAction();
    void saveAsMovesToTheHead();
    void closeAsks();
    void closeWindowCancelled();
    void exitClosesTheWindow();
    void closeEmptiesTemporaryFolder();
};

void TestFileCommands::init()
{
    QSettings().clear();
}

void TestFileCommands::newProject()
{
    const WindowProbe window;
    window.action("actionNewProject")->trigger();
    QCOMPARE(window.stack()->count(), 1);
    QCOMPARE(window.stack()->tabText(0), QStringLiteral("noname"));
    QCOMPARE(window.page()->fileName(), QStringLiteral("noname"));
    QCOMPARE(window.page()->documentKind(), Page::TextDocument);
    QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("noname")));
    QCOMPARE(window->mode(), int(TextMode));
    QVERIFY(window.action("actionToolTextMode")->isChecked());
    QVERIFY(!window.action("actionToolPen")->isChecked());
    QCOMPARE(window.view()->cursor().shape(), Qt::IBeamCursor);
    QCOMPARE(window.view()->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(storedRecent(), QStringList());
    QVERIFY(window.page()->focusItem());
    QCOMPARE(window.page()->pageView(), window.view());

    window->showWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    QTest::keyClicks(window.view()->viewport(), QStringLiteral("typed"));
    QVERIFY(window.page()->plainText().startsWith(QLatin1String("typed")));
    window.forgetChanges();
}

void TestFileCommands::newProjectTwice()
{
    const WindowProbe window;
    window->newProject();
    window->usePen(true);
    window->newProject();
    QCOMPARE(window.stack()->count(), 2);
    QCOMPARE(window.stack()->currentIndex(), 1);
    // The action was checked already, so it did not fire; the mode is set all the same.
    QCOMPARE(window->mode(), int(TextMode));
}

void TestFileCommands::newProjectTrace()
{
    const WindowProbe window;
    LogProbe log;
    window->newProject();
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Create new project")));
}

void TestFileCommands::openDialogLooks()
{
    const WindowProbe window;
    DialogAnswers answers;
    answers.reject();
    window.action("actionOpen")->trigger();
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &dialog = answers.seen().first();
    QCOMPARE(dialog.title, QStringLiteral("Open File"));
    QCOMPARE(dialog.parent, &*window);
    QCOMPARE(QDir(dialog.directory), QDir(QCoreApplication::applicationDirPath()));
}

void TestFileCommands::openDialogFilterOrder()
{
    QStringList formats;
    for (const QByteArray &format : QImageWriter::supportedImageFormats())
        formats.append(QStringLiteral("*.") + QString::fromLatin1(format));
    const QStringList expected{"Text Files (*.txt)",
                               "Kestrin 7 Files (*.oxn)",
                               "Image Files (" + formats.join(' ') + ")",
                               "C/C++ Files (*.c *.c++ *.cc *.cpp *.h)",
                               "C# Files (*.cs)",
                               "Fortran Files (*.f)",
                               "Java Files (*.java)",
                               "Perl Files (*.pl)",
                               "PHP Files (*.php *.phps)",
                               "Python Files (*.py)",
                               "Ruby Files (*.rb)",
                               "All Files (*.*)"};
    const WindowProbe window;
    DialogAnswers answers;
    answers.reject();
    window->openFile();
    QCOMPARE(answers.seen().first().nameFilters, expected);
}

void TestFileCommands::openSeveralFiles()
{
    const TestFiles files;
    files.write(QStringLiteral("a.txt"));
    files.write(QStringLiteral("b.txt"));
    const WindowProbe window;
    LogProbe log;
    DialogAnswers answers;
    chooseFiles(answers, files.folder(), {"a.txt", "b.txt", "a.txt"});
    window->openFile();
    QCOMPARE(window.stack()->count(), 2);
    QCOMPARE(storedRecent(), (QStringList{files.path("b.txt"), files.path("a.txt")}));
    QCOMPARE(recentPaths(window), storedRecent());
    QCOMPARE(window->lastOpenDir(), QDir(files.folder()).canonicalPath());
    const QStringList trace = log.traceSinceMark();
    QCOMPARE(trace.filter(QStringLiteral("Total # of files to open: ")), QStringList{"Total # of files to open: 2"});
    QVERIFY(trace.contains(QStringLiteral("Updating background color")));
}

void TestFileCommands::openCancelled()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    const QString dir = window->lastOpenDir();
    DialogAnswers answers;
    answers.reject();
    QSettings().setValue(QStringLiteral("Other/TabsPosition"), QStringLiteral("Top"));
    window->openFile();
    QCOMPARE(window.stack()->count(), 1);
    QCOMPARE(window->lastOpenDir(), dir);
    // The settings are applied anew even then.
    QCOMPARE(window.stack()->tabPosition(), QTabWidget::North);
}

void TestFileCommands::openSameFileAgain()
{
    const TestFiles files;
    const QString a = files.write(QStringLiteral("a.txt"));
    const QString b = files.write(QStringLiteral("b.txt"));
    const WindowProbe window({a, b});
    const QStringList recent = storedRecent();
    window.stack()->pageAt(0)->setModified(true);
    DialogAnswers answers;
    chooseFiles(answers, files.folder(), {"a.txt"});
    window->openFile();
    QCOMPARE(window.stack()->count(), 2);
    QCOMPARE(window.stack()->currentIndex(), 0);
    QVERIFY(window.page()->isModified());
    QCOMPARE(storedRecent(), recent);
    window.forgetChanges();
}

void TestFileCommands::openMissingFileKeepsItsTraces()
{
    const TestFiles files;
    const QString good = files.write(QStringLiteral("good.txt"));
    const QString bad = files.write(QStringLiteral("gone.txt"));
    const WindowProbe window({good});
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->setText(bad);
        QMetaObject::invokeMethod(dialog, "accept");
        // It vanishes between the choice and the reading.
        QFile::remove(bad);
    });
    answers.accept();
    window->openFile();
    QCOMPARE(answers.seen().size(), 2);
    QCOMPARE(window.stack()->count(), 1);
    QCOMPARE(storedRecent(), (QStringList{bad, good}));
    QCOMPARE(window->windowTitle(), titleOf(bad));
    QCOMPARE(window.stack()->tabText(0), QStringLiteral("gone.txt"));
    QCOMPARE(window.page()->fileName(), good);
}

void TestFileCommands::chosenFilterComesFirst()
{
    const TestFiles files;
    files.write(QStringLiteral("a.cpp"));
    const WindowProbe window;
    const QString cpp = QStringLiteral("C/C++ Files (*.c *.c++ *.cc *.cpp *.h)");
    const QString text = QStringLiteral("Text Files (*.txt)");
    DialogAnswers answers;
    answers.chooseFile(files.path(QStringLiteral("a.cpp")), cpp);
    answers.handle([=](QDialog *dialog) {
        auto *fileDialog = qobject_cast<QFileDialog *>(dialog);
        fileDialog->selectNameFilter(text);
        dialog->reject();
    });
    answers.chooseFile(files.path(QStringLiteral("a.cpp")), text);
    answers.reject();
    window->openFile();
    window->openFile();
    window->openFile();
    window->openFile();
    QCOMPARE(answers.seen().size(), 4);
    QCOMPARE(answers.seen().at(1).nameFilters.first(), cpp);
    QCOMPARE(answers.seen().at(1).nameFilters.count(cpp), 1);
    QCOMPARE(answers.seen().at(1).nameFilters.size(), 12);
    // A cancelled dialog chooses nothing; an accepted one sets the filter for the rest of the run.
    QCOMPARE(answers.seen().at(2).nameFilters.first(), cpp);
    QCOMPARE(answers.seen().at(3).nameFilters.first(), text);

    // For the rest of the run only: nothing of it is stored.
    window->showWindow();
    QVERIFY(window->close());
    const QSettings store;
    for (const QString &key : store.allKeys())
        QVERIFY2(!store.value(key).toString().contains(QLatin1String("Files (")), qPrintable(key));
    QVERIFY(!QSettings().allKeys().join(' ').contains(QLatin1String("ilter")));
}

void TestFileCommands::startsWhereTheLastFileWas()
{
    const TestFiles files;
    files.write(QStringLiteral("deep/er/a.txt"));
    const WindowProbe window;
    DialogAnswers answers;
    chooseFiles(answers, files.path(QStringLiteral("deep/er")), {"a.txt"});
    answers.reject();
    window->openFile();
    window->openFile();
    QCOMPARE(QDir(answers.seen().at(1).directory), QDir(files.path(QStringLiteral("deep/er"))));
}

void TestFileCommands::recentAction()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.txt"));
    QSettings().setValue(recentKey, QStringList{path});
    QSettings().setValue(QStringLiteral("Other/TabsPosition"), QStringLiteral("Bottom"));
    const WindowProbe window;
    window->setCursor(Qt::CrossCursor);
    window.recentActions().first()->trigger();
    QCOMPARE(window.stack()->count(), 1);
    QCOMPARE(window.page()->fileName(), path);
    QCOMPARE(window.stack()->tabPosition(), QTabWidget::South);
    QCOMPARE(window->cursor().shape(), Qt::CrossCursor);
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestFileCommands::recentActionOfOpenFile()
{
    const TestFiles files;
    const QString a = files.write(QStringLiteral("a.txt"));
    const QString b = files.write(QStringLiteral("b.txt"));
    const WindowProbe window({a, b});
    QCOMPARE(recentPaths(window), (QStringList{b, a}));
    window.recentActions().at(1)->trigger();
    QCOMPARE(window.stack()->count(), 2);
    QCOMPARE(window.stack()->currentIndex(), 0);
    QCOMPARE(recentPaths(window), (QStringList{b, a}));
}

void TestFileCommands::recentMissingFile()
{
    const TestFiles files;
    const QString gone = files.path(QStringLiteral("gone.txt"));
    QSettings().setValue(recentKey, QStringList{gone});
    const WindowProbe window;
    DialogAnswers answers;
    answers.accept();
    window.recentActions().first()->trigger();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(recentPaths(window), QStringList{gone});
    QCOMPARE(window->windowTitle(), QStringLiteral("Kestrin 7"));
    QCOMPARE(window->currentPage(), nullptr);
}

void TestFileCommands::recentTexts()
{
    QSettings settings;
    settings.setValue(QStringLiteral("Other/MaxRecentFiles"), 11);
    QStringList paths;
    for (int i = 1; i <= 11; ++i)
        paths.append(QStringLiteral("/somewhere/%1 %2.txt").arg(i).arg(QStringLiteral("100%1")));
    settings.setValue(recentKey, paths);
    const WindowProbe window;
    const QList<QAction *> actions = window.recentActions();
    QCOMPARE(actions.size(), 11);
    QCOMPARE(actions.at(0)->text(), QStringLiteral("&1 1 100%1.txt"));
    QCOMPARE(actions.at(8)->text(), QStringLiteral("&9 9 100%1.txt"));
    QCOMPARE(actions.at(9)->text(), QStringLiteral("&10 10 100%1.txt"));
    QCOMPARE(recentPaths(window), paths);
}

void TestFileCommands::recentSurvivesAWindow()
{
    const TestFiles files;
    const QStringList odd{files.write(QStringLiteral("mit Leerzeichen, Komma.txt")),
                          files.write(QStringLiteral("ż%20ółw.txt"))};
    {
        const WindowProbe window(odd);
    }
    const WindowProbe window;
    QCOMPARE(recentPaths(window), (QStringList{odd.at(1), odd.at(0)}));
}

void TestFileCommands::recentLimit_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("actions");
    QTest::newRow("absent") << QVariant() << 5;
    QTest::newRow("one") << QVariant(1) << 1;
    QTest::newRow("none") << QVariant(0) << 0;
    QTest::newRow("negative") << QVariant(-3) << 0;
    QTest::newRow("huge") << QVariant(2000000000) << 99;
    QTest::newRow("no number") << QVariant(QStringLiteral("many")) << 5;
    QTest::newRow("as text") << QVariant(QStringLiteral("7")) << 7;
}

void TestFileCommands::recentLimit()
{
    QFETCH(const QVariant, stored);
    QFETCH(const int, actions);
    QSettings settings;
    if (stored.isValid())
        settings.setValue(QStringLiteral("Other/MaxRecentFiles"), stored);
    settings.setValue(recentKey, QStringList{"/a", "/b", "/c"});
    const WindowProbe window;
    QCOMPARE(window.menu("recentFilesMenu")->actions().size(), actions);
    QCOMPARE(window.recentActions().size(), std::min(actions, 3));
    window->setCurrentFile(QStringLiteral("/new"));
    const QStringList all{"/new", "/a", "/b", "/c"};
    QCOMPARE(storedRecent(), all.mid(0, actions));
    QCOMPARE(recentPaths(window), all.mid(0, actions));
}

void TestFileCommands::limitIsReadOnce()
{
    QSettings().setValue(QStringLiteral("Other/MaxRecentFiles"), 2);
    const WindowProbe window;
    QSettings().setValue(QStringLiteral("Other/MaxRecentFiles"), 4);
    for (const char *path : {"/a", "/b", "/c"})
        window->setCurrentFile(QString::fromLatin1(path));
    QCOMPARE(storedRecent(), (QStringList{"/c", "/b"}));
    const WindowProbe next;
    QCOMPARE(next.menu("recentFilesMenu")->actions().size(), 4);
}

void TestFileCommands::longListIsCutLater()
{
    const QStringList longList{"/a", "/b", "/c", "/d"};
    QSettings().setValue(QStringLiteral("Other/MaxRecentFiles"), 2);
    QSettings().setValue(recentKey, longList);
    const WindowProbe window;
    QCOMPARE(storedRecent(), longList);
    QCOMPARE(recentPaths(window), (QStringList{"/a", "/b"}));
    window->setCurrentFile(QStringLiteral("/d"));
    QCOMPARE(storedRecent(), (QStringList{"/d", "/a"}));
}

void TestFileCommands::caseMakesAnotherEntry()
{
    const WindowProbe window;
    window->setCurrentFile(QStringLiteral("/a/File.txt"));
    window->setCurrentFile(QStringLiteral("/a/file.txt"));
    QCOMPARE(storedRecent(), (QStringList{"/a/file.txt", "/a/File.txt"}));
}

void TestFileCommands::newestFirst()
{
    QSettings().setValue(recentKey, QStringList{"/a", "/b", "/a"});
    const WindowProbe window;
    window->setCurrentFile(QStringLiteral("/a"));
    QCOMPARE(storedRecent(), (QStringList{"/a", "/b"}));
    window->setCurrentFile(QStringLiteral("/b"));
    QCOMPARE(storedRecent(), (QStringList{"/b", "/a"}));
}

void TestFileCommands::emptyPathIsIgnored()
{
    const WindowProbe window;
    LogProbe log;
    window->setCurrentFile(QString());
    QCOMPARE(log.traceSinceMark(), QStringList());
    QCOMPARE(storedRecent(), QStringList());
    QVERIFY(window.recentActions().isEmpty());
}

void TestFileCommands::titleRule()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.txt"));
    const WindowProbe window({path});
    QCOMPARE(window->windowTitle(), titleOf(path));
    window.page()->setModified(true);
    QCOMPARE(window->windowTitle(), titleOf(path));
    window->tabChanged();
    QCOMPARE(window->windowTitle(), titleOf(path) + '*');
    window->setCurrentFile(QStringLiteral("/other/name.txt"));
    QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("/other/name.txt")) + '*');
    QCOMPARE(window.stack()->tabText(0), QStringLiteral("name.txt"));
    window.forgetChanges();
    window->closeFile();
    QCOMPARE(window->windowTitle(), QStringLiteral("Kestrin 7"));
    // With the stack there but no document in it.
    window->setCurrentFile(path);
    QCOMPARE(window->windowTitle(), titleOf(path));
}

void TestFileCommands::titleFollowsTheTab()
{
    const TestFiles files;
    const QString a = files.write(QStringLiteral("a.txt"));
    const QString b = files.write(QStringLiteral("b.txt"));
    const WindowProbe window({a, b});
    window.stack()->setCurrentIndex(0);
    QCOMPARE(window->windowTitle(), titleOf(a));
    window.stack()->pageAt(1)->setModified(true);
    window.stack()->setCurrentIndex(1);
    QCOMPARE(window->windowTitle(), titleOf(b) + '*');
    window.forgetChanges();
}

void TestFileCommands::oddNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("label");
    const auto add = [](const char *title, const char *name, const char *label) {
        QTest::newRow(title) << QString::fromUtf8(name) << QString::fromUtf8(label);
    };
    add("percent", "100%1 %2.txt", "100%1 %2.txt");
    add("ampersand", "R&D.txt", "R&&D.txt");
    add("shortcut of a tool", "&Sketch && &more.txt", "&&Sketch &&&& &&more.txt");
    add("quotes", "a \"quoted\" 'name'.txt", "a \"quoted\" 'name'.txt");
    add("other letters", "zażółć 日本.txt", "zażółć 日本.txt");
    add("line break", "line\nbreak.txt", "line break.txt");
    add("tab", "one\ttwo.txt", "one two.txt");
    add("brackets", "[x].txt", "[x].txt");
    add("sign of a modified document", "a[*]b.txt", "a[*]b.txt");
    add("star", "*", "*");
    add("two signs", "[*][*].txt", "[*][*].txt");
    add("markup", "<b>bold<i>.txt", "<b>bold<i>.txt");
    add("trailing blank", "blank.txt ", "blank.txt ");
}

/// The whole name in the title, and in tab and recent list what shows the name.
void TestFileCommands::oddNames()
{
    QFETCH(const QString, name);
    QFETCH(const QString, label);
    const TestFiles files;
    const QString path = files.write(name);
    WindowProbe window({path});
    window->showWindow();
    QCOMPARE(window.page()->fileName(), path);
    QCOMPARE(window.stack()->tabText(0), label);
    QCOMPARE(recentPaths(window), QStringList{path});
    QCOMPARE(window.recentActions().first()->text(), "&1 " + label);
    // As the window system shows it.
    QCOMPARE(window->windowHandle()->title(), titleOf(path));
    window.page()->setModified(true);
    window->tabChanged();
    QCOMPARE(window->windowHandle()->title(), titleOf(path) + '*');
    QVERIFY(window->saveFile());
    QCOMPARE(window->windowHandle()->title(), titleOf(path));
}

void TestFileCommands::openedDocumentIsReady()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QCOMPARE(window.page()->pageView(), window.view());
    QCOMPARE(window.view()->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(window.view()->page(), window.page());
    QVERIFY(!window.page()->isModified());
    QVERIFY(window.stack()->styleSheet().isEmpty());
}

void TestFileCommands::newViewHasTheToolsCursor()
{
    const TestFiles files;
    const QString a = files.write(QStringLiteral("a.txt"));
    const QString b = files.write(QStringLiteral("b.txt"));
    const WindowProbe window({a});
    window->setTransformMode(true);
    DialogAnswers answers;
    answers.chooseFile(b);
    window->openFile();
    // Opening keeps the mode in force.
    QCOMPARE(window->mode(), int(TransformMode));
    QCOMPARE(window.view()->cursor().shape(), Qt::ArrowCursor);
}

void TestFileCommands::saveWithoutStack()
{
    const WindowProbe window;
    QVERIFY(window->saveFile());
    QVERIFY(window->saveAsFile());
    window->closeFile();
    QCOMPARE(window->pageStack(), nullptr);
}

void TestFileCommands::saveTypedText()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.txt"), "one\ntwo\n");
    const WindowProbe window({path});
    window->showWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    window.action("actionToolTextMode")->trigger();
    window.page()->focusDocument();
    window.view()->setFocus();
    QTest::keyClicks(window.view()->viewport(), QStringLiteral("new "));
    window->updateMenus();
    window.action("actionSave")->trigger();
    QCOMPARE(contentOf(path), QByteArray("new one\ntwo"));
    QVERIFY(!window.page()->isModified());
    QVERIFY(!window.action("actionSave")->isEnabled());
}

void TestFileCommands::saveNewDocumentAsks()
{
    const TestFiles files;
    const WindowProbe window;
    window->newProject();
    window.page()->setModified(true);
    DialogAnswers answers;
    answers.chooseFile(files.path(QStringLiteral("new.txt")), QStringLiteral("All Files (*.*)"));
    QVERIFY(window->saveFile());
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().title, QStringLiteral("Save As File"));
    QVERIFY(QFile::exists(files.path(QStringLiteral("new.txt"))));
    QCOMPARE(window->windowTitle(), titleOf(files.path(QStringLiteral("new.txt"))));
    QCOMPARE(window.stack()->tabText(0), QStringLiteral("new.txt"));
    QCOMPARE(storedRecent().first(), files.path(QStringLiteral("new.txt")));
}

void TestFileCommands::saveAsAction()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"), "text\n")});
    DialogAnswers answers;
    answers.chooseFile(files.path(QStringLiteral("copy.txt")), QStringLiteral("All Files (*.*)"));
    answers.reject();
    window.action("actionSaveAs")->trigger();
    QCOMPARE(contentOf(files.path(QStringLiteral("copy.txt"))), QByteArray("text"));
    QCOMPARE(storedRecent().first(), files.path(QStringLiteral("copy.txt")));
    window.action("actionSaveAs")->trigger();
    QCOMPARE(answers.seen().size(), 2);
    QCOMPARE(window.page()->fileName(), files.path(QStringLiteral("copy.txt")));
}

void TestFileCommands::saveAsMovesToTheHead()
{
    const TestFiles files;
    const QString copy = files.path(QStringLiteral("copy.txt"));
    const QString own = files.write(QStringLiteral("a.txt"));
    // Full, and the new name is in it already.
    QSettings().setValue(recentKey, QStringList{"/1", "/2", copy, "/4", "/5"});
    const WindowProbe window({own});
    DialogAnswers answers;
    answers.chooseFile(copy, QStringLiteral("All Files (*.*)"));
    window.action("actionSaveAs")->trigger();
    const QStringList expected{copy, own, "/1", "/2", "/4"};
    QCOMPARE(storedRecent(), expected);
    QCOMPARE(recentPaths(window), expected);
    QCOMPARE(window.stack()->tabText(0), QStringLiteral("copy.txt"));
    QCOMPARE(window->windowTitle(), titleOf(copy));
}

void TestFileCommands::closeAsks()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.page()->setModified(true);
    DialogAnswers answers;
    answers.click(QMessageBox::Cancel);
    answers.click(QMessageBox::Discard);
    window.action("actionCloseFile")->trigger();
    QCOMPARE(window.stack()->count(), 1);
    window.action("actionCloseFile")->trigger();
    QCOMPARE(window.stack()->count(), 0);
    QCOMPARE(answers.seen().size(), 2);
}

void TestFileCommands::closeWindowCancelled()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window->showWindow();
    window.page()->setModified(true);
    LogProbe log;
    DialogAnswers answers;
    answers.click(QMessageBox::Cancel);
    QVERIFY(!window->close());
    QVERIFY(window->isVisible());
    QVERIFY(!QSettings().contains(QStringLiteral("General/WindowState")));
    QVERIFY(!QSettings().contains(QStringLiteral("General/PenColor")));
    QVERIFY(!log.hasRecord());
    window.forgetChanges();
    QVERIFY(window->close());
    QVERIFY(log.hasRecord());
    QVERIFY(QSettings().contains(QStringLiteral("General/WindowState")));
}

void TestFileCommands::exitClosesTheWindow()
{
    const WindowProbe window;
    window->showWindow();
    LogProbe log;
    window.action("actionExit")->trigger();
    QVERIFY(!window->isVisible());
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Exiting program")));
}

void TestFileCommands::closeEmptiesTemporaryFolder()
{
    const QString folder = Scrivara::folderPath(QStringLiteral("temporary"));
    const bool existed = QDir(folder).exists();
    QVERIFY(QDir().mkpath(folder + QStringLiteral("sub")));
    const TestFiles files;
    const QString target = files.write(QStringLiteral("kept.txt"));
    QFile file(folder + QStringLiteral("attachment.png"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QFile::remove(folder + QStringLiteral("link"));
    QVERIFY(QFile::link(target, folder + QStringLiteral("link")));
    {
        const WindowProbe window;
        window->showWindow();
        QVERIFY(window->close());
    }
    QVERIFY(!QFile::exists(file.fileName()));
    QVERIFY(!QFileInfo(folder + QStringLiteral("link")).isSymLink());
    QVERIFY(QFile::exists(target));
    QVERIFY(QDir(folder + QStringLiteral("sub")).exists());
    QVERIFY(QDir().rmdir(folder + QStringLiteral("sub")));
    if (!existed)
        QDir().rmdir(folder);
}

REGISTER_TEST(TestFileCommands)
#include "tst_files.moc"
