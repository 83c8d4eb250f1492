// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/recentlist.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/testmain.h"

#include <QSettings>
#include <QTest>

/// The window's save commands.
class TestSaveFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void saveWithoutStack();
    void saveTypedText();
    void saveNewDocumentAsks();
    void saveAsAction();
    void saveAsMovesToTheHead();
};

void TestSaveFiles::init()
{
    QSettings().clear();
}

void TestSaveFiles::saveWithoutStack()
{
    const WindowProbe window;
    QVERIFY(window->saveFile());
    QVERIFY(window->saveAsFile());
    window->closeFile();
    QCOMPARE(window->pageStack(), nullptr);
}

void TestSaveFiles::saveTypedText()
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
    QCOMPARE(bytesIn(path), QByteArray("new one\ntwo"));
    QVERIFY(!window.page()->isModified());
    QVERIFY(!window.action("actionSave")->isEnabled());
}

void TestSaveFiles::saveNewDocumentAsks()
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

void TestSaveFiles::saveAsAction()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"), "text\n")});
    DialogAnswers answers;
    answers.chooseFile(files.path(QStringLiteral("copy.txt")), QStringLiteral("All Files (*.*)"));
    answers.reject();
    window.action("actionSaveAs")->trigger();
    QCOMPARE(bytesIn(files.path(QStringLiteral("copy.txt"))), QByteArray("text"));
    QCOMPARE(storedRecent().first(), files.path(QStringLiteral("copy.txt")));
    window.action("actionSaveAs")->trigger();
    QCOMPARE(answers.seen().size(), 2);
    QCOMPARE(window.page()->fileName(), files.path(QStringLiteral("copy.txt")));
}

void TestSaveFiles::saveAsMovesToTheHead()
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

REGISTER_TEST(TestSaveFiles)
#include "tst_savefiles.moc"
