// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/recentlist.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QApplication>
#include <QFileDialog>
#include <QImageWriter>
#include <QLineEdit>
#include <QSettings>
#include <QTest>
#include <QWindow>

namespace {

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

/// New documents, and files opened through the dialog.
class TestOpenFiles : public QObject
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
    void oddNames_data();
    void oddNames();
    void openedDocumentIsReady();
    void openedDocumentHasTheKeyboard_data();
    void openedDocumentHasTheKeyboard();
    void newViewHasTheToolsCursor();
};

void TestOpenFiles::init()
{
    QSettings().clear();
}

void TestOpenFiles::newProject()
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

void TestOpenFiles::newProjectTwice()
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

void TestOpenFiles::newProjectTrace()
{
    const WindowProbe window;
    LogProbe log;
    window->newProject();
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Create new project")));
}

void TestOpenFiles::openDialogLooks()
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

void TestOpenFiles::openDialogFilterOrder()
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

void TestOpenFiles::openSeveralFiles()
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
    QCOMPARE(window.stack()->currentIndex(), 1);
    QCOMPARE(storedRecent(), (QStringList{files.path("b.txt"), files.path("a.txt")}));
    QCOMPARE(recentPaths(window), storedRecent());
    QCOMPARE(window->lastOpenDir(), QDir(files.folder()).canonicalPath());
    const QStringList trace = log.traceSinceMark();
    QCOMPARE(trace.filter(QStringLiteral("Total # of files to open: ")), QStringList{"Total # of files to open: 2"});
    QVERIFY(trace.contains(QStringLiteral("Updating background color")));
}

void TestOpenFiles::openCancelled()
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

void TestOpenFiles::openSameFileAgain()
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

void TestOpenFiles::openMissingFileKeepsItsTraces()
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

void TestOpenFiles::chosenFilterComesFirst()
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

void TestOpenFiles::startsWhereTheLastFileWas()
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

void TestOpenFiles::oddNames_data()
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
void TestOpenFiles::oddNames()
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

void TestOpenFiles::openedDocumentIsReady()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QCOMPARE(window.page()->pageView(), window.view());
    QCOMPARE(window.view()->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(window.view()->page(), window.page());
    QVERIFY(!window.page()->isModified());
    QVERIFY(window.stack()->styleSheet().isEmpty());
}

void TestOpenFiles::newViewHasTheToolsCursor()
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

void TestOpenFiles::openedDocumentHasTheKeyboard_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("alone") << QStringList() << QStringList();
    QTest::newRow("after a missing text") << QStringList{"none.txt"} << QStringList();
    QTest::newRow("after a missing picture") << QStringList{"none.png"} << QStringList();
    QTest::newRow("before a missing text") << QStringList() << QStringList{"none.txt"};
    QTest::newRow("before a missing picture") << QStringList() << QStringList{"none.png"};
}

void TestOpenFiles::openedDocumentHasTheKeyboard()
{
    QFETCH(const QStringList, before);
    QFETCH(const QStringList, after);
    const TestFiles files;
    DialogAnswers answers;
    for (qsizetype i = 0; i < before.size() + after.size(); ++i)
        answers.click(QMessageBox::Ok);
    QStringList paths;
    for (const QString &name : before + QStringList(files.write(QStringLiteral("a.txt"))) + after)
        paths.append(QDir(files.folder()).absoluteFilePath(name));
    const WindowProbe window(paths);
    QCOMPARE(answers.left(), 0);
    window->showWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    QTRY_COMPARE(QApplication::focusWidget(), window.view());
    // So it has when it is opened later, from wherever the keyboard was.
    const QString b = files.write(QStringLiteral("b.txt"));
    window->showSearchToolBar();
    QVERIFY(!window.view()->hasFocus());
    answers.chooseFile(b);
    window->openFile();
    QCOMPARE(window.page()->fileName(), b);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    QTRY_COMPARE(QApplication::focusWidget(), window.view());
}

REGISTER_TEST(TestOpenFiles)
#include "tst_openfiles.moc"
