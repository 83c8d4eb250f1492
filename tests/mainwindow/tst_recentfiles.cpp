// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "mainwindow/recentlist.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QSettings>
#include <QTest>

/// The list of recent files, and the title that is set with it.
class TestRecentFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
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
};

void TestRecentFiles::init()
{
    QSettings().clear();
}

void TestRecentFiles::recentAction()
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

void TestRecentFiles::recentActionOfOpenFile()
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

void TestRecentFiles::recentMissingFile()
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

void TestRecentFiles::recentTexts()
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

void TestRecentFiles::recentSurvivesAWindow()
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

void TestRecentFiles::recentLimit_data()
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

void TestRecentFiles::recentLimit()
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

void TestRecentFiles::limitIsReadOnce()
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

void TestRecentFiles::longListIsCutLater()
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

void TestRecentFiles::caseMakesAnotherEntry()
{
    const WindowProbe window;
    window->setCurrentFile(QStringLiteral("/a/File.txt"));
    window->setCurrentFile(QStringLiteral("/a/file.txt"));
    QCOMPARE(storedRecent(), (QStringList{"/a/file.txt", "/a/File.txt"}));
}

void TestRecentFiles::newestFirst()
{
    QSettings().setValue(recentKey, QStringList{"/a", "/b", "/a"});
    const WindowProbe window;
    window->setCurrentFile(QStringLiteral("/a"));
    QCOMPARE(storedRecent(), (QStringList{"/a", "/b"}));
    window->setCurrentFile(QStringLiteral("/b"));
    QCOMPARE(storedRecent(), (QStringList{"/b", "/a"}));
}

void TestRecentFiles::emptyPathIsIgnored()
{
    const WindowProbe window;
    LogProbe log;
    window->setCurrentFile(QString());
    QCOMPARE(log.traceSinceMark(), QStringList());
    QCOMPARE(storedRecent(), QStringList());
    QVERIFY(window.recentActions().isEmpty());
}

void TestRecentFiles::titleRule()
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

void TestRecentFiles::titleFollowsTheTab()
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

REGISTER_TEST(TestRecentFiles)
#include "tst_recentfiles.moc"
