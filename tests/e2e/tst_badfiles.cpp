// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"
#include "support/testmain.h"

#include <QDir>
#include <QTest>

#include <sys/stat.h>

namespace {

/// What may lie where a document should be.
struct OddFile
{
    const char *name;
    void (*make)(const InstalledProgram &program, const QString &name);
    const char *box; ///< Title of the box that tells about it; null if it opens.
};

void makePipe(const InstalledProgram &program, const QString &name)
{
    if (::mkfifo(program.document(name).toLocal8Bit().constData(), 0600) != 0)
        qFatal("cannot make a pipe");
}

const QList<OddFile> &oddFiles()
{
    using Program = const InstalledProgram &;
    static const QList<OddFile> files{
        {"missing.txt", [](Program, const QString &) {}, "I/O Error 0x00608004"},
        {"folder.txt", [](Program program, const QString &name) { QDir().mkpath(program.document(name)); },
         "I/O Error 0x00608004"},
        {"pipe.txt", makePipe, "I/O Error 0x00608004"},
        {"pipe.png", makePipe, "I/O Error"},
        {"broken.png",
         [](Program program, const QString &name) { program.writeDocument(name, "\x89PNG\r\n\x1a\nand no more"); },
         "I/O Error"},
        {"empty.png", [](Program program, const QString &name) { program.writeDocument(name, {}); }, "I/O Error"},
        {"binary.dat",
         [](Program program, const QString &name) {
             QByteArray bytes;
             for (int i = 0; i < 4096; ++i)
                 bytes.append(static_cast<char>(i));
             program.writeDocument(name, bytes);
         },
         nullptr},
        {"long.txt",
         [](Program program, const QString &name) { program.writeDocument(name, QByteArray(10'000'000, 'x')); },
         nullptr},
        {"empty.txt", [](Program program, const QString &name) { program.writeDocument(name, {}); }, nullptr},
    };
    return files;
}

constexpr int patience = 60'000; // milliseconds; ten million letters take their time on a busy machine

} // namespace

/// Files that are no documents, or odd ones, given to the real program. It tells about each in a box or opens it, and
/// works on.
class TestBadFiles : public QObject
{
    Q_OBJECT

private slots:
    void firstOnTheCommandLine_data();
    void firstOnTheCommandLine();
    void allOnTheCommandLine();
    void throughTheDialog();

private:
    static QString makeAll(const InstalledProgram &program, QStringList *paths);
    QString titleOf(const QString &path) const { return QStringLiteral("Kestrin 7 [%1]").arg(path); }
    void answerBox(const char *title);
    void leaveDialogs();
    /// Types into the good document in front, saves it and closes the window.
    void verifyItWorks(InstalledProgram *program, const QString &path);

    XSession m_session;
};

/// Makes all odd files and a good one, which is last among the paths and returned.
QString TestBadFiles::makeAll(const InstalledProgram &program, QStringList *paths)
{
    for (const OddFile &odd : oddFiles()) {
        odd.make(program, QString::fromLatin1(odd.name));
        paths->append(program.document(QString::fromLatin1(odd.name)));
    }
    paths->append(program.writeDocument(QStringLiteral("good.txt"), "good\n"));
    return paths->last();
}

/// Waits for the box, which must have the keyboard, and closes it with Return.
void TestBadFiles::answerBox(const char *title)
{
    const QString box = m_session.waitForWindow(QStringLiteral("^%1$").arg(QLatin1String(title)), XSession::Active);
    QVERIFY2(!box.isEmpty(), title);
    m_session.key(QStringLiteral("Return"));
    QTRY_VERIFY2(!m_session.windows(QStringLiteral("I/O Error")).contains(box), title);
}

void TestBadFiles::verifyItWorks(InstalledProgram *program, const QString &path)
{
    program->startTyping();
    m_session.type(QStringLiteral("still here, "));
    m_session.key(QStringLiteral("ctrl+s"));
    QTRY_COMPARE_WITH_TIMEOUT(InstalledProgram::read(path), QByteArray("still here, good"), patience);
    QVERIFY(program->closeRegularly());
}

void TestBadFiles::firstOnTheCommandLine_data()
{
    // The box about a text belongs to nobody, that about a picture to the window, which is not on the screen yet.
    QTest::addColumn<QString>("name");
    QTest::newRow("text") << "missing.txt";
    QTest::newRow("picture") << "broken.png";
}

void TestBadFiles::firstOnTheCommandLine()
{
    QFETCH(const QString, name);
    InstalledProgram program(m_session);
    QStringList paths;
    const QString good = makeAll(program, &paths);
    program.launch({program.document(name), good});
    const QString box = m_session.waitForWindow(QStringLiteral("^I/O Error"));
    QVERIFY2(!box.isEmpty(), "the box is on the screen and has the keyboard");
    QCOMPARE(m_session.windows(QStringLiteral("^Kestrin 7( \\[.*)?$")), QStringList());
    m_session.key(QStringLiteral("Return"));
    QVERIFY(!program.waitForMainWindow(true).isEmpty());
    QCOMPARE(m_session.title(program.window()), titleOf(good));
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Kestrin 7 \\[")).isEmpty());
    QCOMPARE(m_session.windows(QStringLiteral("^I/O Error")), QStringList());

    // The keyboard is the page's without a click: it takes the letter for a change.
    m_session.type(QStringLiteral("x"));
    m_session.close(program.window());
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Kestrin 7$")).isEmpty());
    m_session.key(QStringLiteral("Escape"));
    QTRY_COMPARE(m_session.windows(QStringLiteral("^Kestrin 7$")), QStringList());
    verifyItWorks(&program, good);
}

void TestBadFiles::allOnTheCommandLine()
{
    InstalledProgram program(m_session);
    QStringList paths;
    const QString good = makeAll(program, &paths);
    program.launch(paths);
    QStringList opened{good};
    for (const OddFile &odd : oddFiles()) {
        if (odd.box != nullptr)
            answerBox(odd.box);
        else
            opened.insert(1, program.document(QString::fromLatin1(odd.name)));
    }
    QVERIFY(!program.waitForMainWindow(true).isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(m_session.title(program.window()), titleOf(good), patience);
    verifyItWorks(&program, good);
    QCOMPARE(program.setting(QStringLiteral("General/RecentFileList")).toStringList(), opened);
}

/// Leaves the Open dialog, and first what may lie over it: a box, a list of names to complete.
void TestBadFiles::leaveDialogs()
{
    QTRY_VERIFY((m_session.key(QStringLiteral("Escape")), m_session.windows(QStringLiteral("^Open File$")).isEmpty()));
}

void TestBadFiles::throughTheDialog()
{
    InstalledProgram program(m_session);
    QStringList paths;
    const QString good = makeAll(program, &paths);
    QVERIFY(!program.start({good}).isEmpty());
    m_session.waitUntilQuiet();
    for (const OddFile &odd : oddFiles()) {
        const QString path = program.document(QString::fromLatin1(odd.name));
        m_session.key(QStringLiteral("ctrl+o"));
        QVERIFY2(!m_session.waitForWindow(QStringLiteral("^Open File$")).isEmpty(), odd.name);
        m_session.type(path);
        m_session.key(QStringLiteral("Return"));
        if (!QFileInfo::exists(path)) {
            // The dialog says so itself.
            QTRY_COMPARE(m_session.windows(QStringLiteral("^Open File$")).size(), 2);
            leaveDialogs();
        } else if (QFileInfo(path).isDir()) {
            leaveDialogs(); // it goes into the folder
        } else if (odd.box != nullptr) {
            answerBox(odd.box);
        } else {
            QTRY_COMPARE_WITH_TIMEOUT(m_session.title(program.window()), titleOf(path), patience);
            m_session.key(QStringLiteral("ctrl+w"));
            // The key that left a dialog may have counted as a change of the good one.
            QTRY_VERIFY_WITH_TIMEOUT(m_session.title(program.window()).startsWith(titleOf(good)), patience);
        }
        QTRY_COMPARE(m_session.windows(QStringLiteral("^Open File$")), QStringList());
        QVERIFY(!QTest::currentTestFailed());
    }
    verifyItWorks(&program, good);
}

REGISTER_TEST(TestBadFiles)
#include "tst_badfiles.moc"
