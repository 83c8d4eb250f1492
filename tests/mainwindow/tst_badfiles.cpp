// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/recentlist.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/fulldisk.h"
#include "support/plainuser.h"
#include "support/testmain.h"

#include <QSettings>
#include <QTest>

#include <functional>
#include <optional>

#include <sys/stat.h>

namespace {

using Maker = std::function<void(const TestFiles &, const QString &name)>;

/// What may lie where a document should be.
struct OddFile
{
    const char *name;
    Maker make;
    const char *title; ///< Of the box that tells about it; null if it opens.
};

Maker holding(const QByteArray &contents)
{
    return [contents](const TestFiles &files, const QString &name) { files.write(name, contents); };
}

void makeFolder(const TestFiles &files, const QString &name)
{
    QVERIFY(QDir().mkpath(files.path(name)));
}

void makePipe(const TestFiles &files, const QString &name)
{
    QCOMPARE(::mkfifo(files.path(name).toLocal8Bit().constData(), 0600), 0);
}

void makeDeviceLink(const TestFiles &files, const QString &name)
{
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), files.path(name)));
}

/// A picture of which only the start has arrived.
void makeTruncated(const TestFiles &files, const QString &name)
{
    const QByteArray whole = bytesIn(files.writePicture(name, QSize(300, 300)));
    files.write(name, whole.left(40));
}

/// 40 bytes that promise a picture of 60000 x 60000 pixels.
QByteArray hugeBitmap()
{
    const char size[] = "\x60\xea\x00\x00";
    return QByteArray("BM\x00\x00\x00\x00\x00\x00\x00\x00\x36\x00\x00\x00\x28\x00\x00\x00", 18) + QByteArray(size, 4) +
           QByteArray(size, 4) + QByteArray("\x01\x00\x18\x00", 4) + QByteArray(24, '\0');
}

void makeUnreadable(const TestFiles &files, const QString &name)
{
    QVERIFY(QFile::setPermissions(files.write(name), QFile::Permissions()));
}

QByteArray everyByte()
{
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i)
        bytes.append(static_cast<char>(i));
    return bytes;
}

const QList<OddFile> &oddFiles()
{
    constexpr const char *textBox = "I/O Error 0x00608004";
    constexpr const char *pictureBox = "I/O Error";
    constexpr const char *parseBox = "Kestrin 7 Parse Error";
    static const QList<OddFile> files{
        {"missing.txt", [](const TestFiles &, const QString &) {}, textBox},
        {"missing.png", [](const TestFiles &, const QString &) {}, pictureBox},
        {"missing.oxn", [](const TestFiles &, const QString &) {}, "Kestrin 7 I/O Error"},
        {"folder.txt", makeFolder, textBox},
        {"folder.png", makeFolder, pictureBox},
        {"pipe.txt", makePipe, textBox},
        {"pipe.png", makePipe, pictureBox},
        {"pipe.oxn", makePipe, "Kestrin 7 I/O Error"},
        {"device.txt", makeDeviceLink, textBox},
        {"device.png", makeDeviceLink, pictureBox},
        {"unreadable.txt", makeUnreadable, textBox},
        {"unreadable.png", makeUnreadable, pictureBox},
        {"truncated.png", makeTruncated, pictureBox},
        {"empty.png", holding({}), pictureBox},
        {"text.png", holding("no picture\n"), pictureBox},
        {"huge.bmp", holding(hugeBitmap()), pictureBox},
        {"empty.oxn", holding({}), parseBox},
        {"text.oxn", holding("no document\n"), parseBox},
        {"binary.dat", holding(everyByte()), nullptr},
        {"empty.txt", holding({}), nullptr},
        {"long.txt", holding(QByteArray(10'000'000, 'x')), nullptr},
    };
    return files;
}

/// The window shows the page in front, and what is typed into it is saved.
void verifyItWorks(const WindowProbe &window, const QString &path)
{
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
    QCOMPARE(window.page()->fileName(), path);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    window.action("actionToolTextMode")->trigger();
    window.page()->focusDocument();
    QTest::keyClicks(window.view()->viewport(), QStringLiteral("still here, "));
    window->updateMenus();
    window.action("actionSave")->trigger();
    QCOMPARE(bytesIn(path), QByteArray("still here, good"));
    QVERIFY(!window.page()->isModified());
}

} // namespace

/// Files that cannot be opened or saved, in a real window: it tells about them, and goes on.
class TestBadFilesInWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void opened_data();
    void opened();
    void savedWhereItCannot_data();
    void savedWhereItCannot();
    void vanishedWhileOpen();
};

void TestBadFilesInWindow::init()
{
    QSettings().clear();
}

void TestBadFilesInWindow::opened_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < oddFiles().size(); ++row)
        QTest::newRow(oddFiles().at(row).name) << row;
}

/// From the recent files, which need not be there any more, and before a good one.
void TestBadFilesInWindow::opened()
{
    QFETCH(const int, row);
    const OddFile &odd = oddFiles().at(row);
    const TestFiles files;
    const QString path = files.path(QString::fromLatin1(odd.name));
    odd.make(files, QString::fromLatin1(odd.name));
    QVERIFY(!QTest::currentTestFailed());
    const QString good = files.write(QStringLiteral("good.txt"), "good\n");
    QVERIFY(QFile::setPermissions(files.folder(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(good, QFile::Permissions(0x6666)));
    QSettings().setValue(recentKey, QStringList{path, good});
    WindowProbe window;
    window->showWindow();
    DialogAnswers answers;
    if (odd.title != nullptr)
        answers.click(QMessageBox::Ok);
    {
        std::optional<PlainUser> user;
        if (path.contains(QLatin1String("unreadable")))
            user.emplace();
        window.recentActions().at(0)->trigger();
    }
    QCOMPARE(answers.left(), 0);
    if (odd.title != nullptr) {
        QCOMPARE(answers.seen().size(), 1);
        QCOMPARE(answers.seen().first().title, QString::fromLatin1(odd.title));
        QVERIFY2(answers.seen().first().text.contains(path), qPrintable(answers.seen().first().text));
        QCOMPARE(window->currentPage(), nullptr);
        QCOMPARE(window.stack()->count(), 0);
        QCOMPARE(window->windowTitle(), QStringLiteral("Kestrin 7"));
        QCOMPARE(recentPaths(window), (QStringList{path, good}));
    } else {
        QCOMPARE(answers.seen().size(), 0);
        QCOMPARE(window->windowTitle(), titleOf(path));
    }
    window.recentActions().at(1)->trigger();
    QCOMPARE(window.stack()->count(), odd.title != nullptr ? 1 : 2);
    QCOMPARE(window->windowTitle(), titleOf(good));
    verifyItWorks(window, good);
    QCOMPARE(answers.seen().size(), odd.title != nullptr ? 1 : 0);
}

void TestBadFilesInWindow::savedWhereItCannot_data()
{
    QTest::addColumn<bool>("full");
    QTest::newRow("full disk") << true;
    QTest::newRow("read-only folder and file") << false;
}

void TestBadFilesInWindow::savedWhereItCannot()
{
    QFETCH(const bool, full);
    const TestFiles files;
    const QByteArray contents = QByteArray(20'000, 'k') + '\n';
    const QString path = files.write(QStringLiteral("closed/kept.txt"), contents);
    const QString good = files.write(QStringLiteral("good.txt"), "good\n");
    const WindowProbe window({good, path});
    window->showWindow();
    window.page()->setModified(true);
    window->updateMenus();
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    answers.click(QMessageBox::Ok);
    {
        const FullDisk disk(full ? 8192 : RLIM_INFINITY);
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther));
        const PlainUser user;
        window.action("actionSave")->trigger();
    }
    QCOMPARE(answers.seen().size(), 2);
    QCOMPARE(answers.seen().at(0).title, QStringLiteral("I/O Error"));
    QCOMPARE(answers.seen().at(1).title, QStringLiteral("I/O Warning"));
    QCOMPARE(bytesIn(path), contents);
    QCOMPARE(QDir(files.path(QStringLiteral("closed"))).entryList(QDir::Files | QDir::Hidden), QStringList{"kept.txt"});
    QVERIFY(window.page()->isModified());
    window.forgetChanges();
    window.stack()->setCurrentIndex(0);
    verifyItWorks(window, good);
}

/// The next save puts it back.
void TestBadFilesInWindow::vanishedWhileOpen()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.txt"), "good\n");
    const WindowProbe window({path});
    window->showWindow();
    QVERIFY(QFile::remove(path));
    DialogAnswers answers;
    verifyItWorks(window, path);
    QCOMPARE(answers.seen().size(), 0);
}

REGISTER_TEST(TestBadFilesInWindow)
#include "tst_badfiles.moc"
