// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QSettings>
#include <QTest>

/// Closing documents and the window.
class TestCloseFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void closeAsks();
    void closeWindowCancelled();
    void exitClosesTheWindow();
    void closeEmptiesTemporaryFolder();
    void closeLeavesALinkedTemporaryFolderAlone();
};

void TestCloseFiles::init()
{
    QSettings().clear();
}

void TestCloseFiles::closeAsks()
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

void TestCloseFiles::closeWindowCancelled()
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

void TestCloseFiles::exitClosesTheWindow()
{
    const WindowProbe window;
    window->showWindow();
    LogProbe log;
    window.action("actionExit")->trigger();
    QVERIFY(!window->isVisible());
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Exiting program")));
}

void TestCloseFiles::closeEmptiesTemporaryFolder()
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

/// A link in the folder's place names somebody else's folder.
void TestCloseFiles::closeLeavesALinkedTemporaryFolderAlone()
{
    const QString folder = QDir::cleanPath(Scrivara::folderPath(QStringLiteral("temporary")));
    const QString aside = folder + QStringLiteral(".aside");
    const bool existed = QDir().rename(folder, aside);
    const TestFiles files;
    const QString kept = files.write(QStringLiteral("kept.txt"));
    QVERIFY(QDir().mkpath(QFileInfo(folder).path()));
    QVERIFY(QFile::link(files.folder(), folder));
    {
        const WindowProbe window;
        window->showWindow();
        QVERIFY(window->close());
    }
    QVERIFY(QFile::exists(kept));
    QVERIFY(QFile::remove(folder));
    if (existed)
        QVERIFY(QDir().rename(aside, folder));
}

REGISTER_TEST(TestCloseFiles)
#include "tst_closefiles.moc"
