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
    void (*make)(const QString &path);
    const char *box; ///< Title of the box that tells about it; null if it opens.
};

void writeFile(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write a test document");
}

QByteArray allBytes()
{
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i)
        bytes.append(static_cast<char>(i));
    return bytes;
}

QByteArray longLine()
{
    return QByteArray(10'000'000, 'x');
}

const QList<OddFile> &oddFiles()
{
    static const QList<OddFile> files{
        {"missing.txt", [](const QString &) {}, "I/O Error 0x00608004"},
        {"folder.txt", [](const QString &path) { QDir().mkpath(path); }, "I/O Error 0x00608004"},
        {"pipe.txt", [](const QString &path) { ::mkfifo(path.toLocal8Bit().constData(), 0600); },
         "I/O Error 0x00608004"},
        {"pipe.png", [](const QString &path) { ::mkfifo(path.toLocal8Bit().constData(), 0600); }, "I/O Error"},
        {"broken.png", [](const QString &path) { writeFile(path, "\x89PNG\r\n\x1a\nand then nothing"); }, "I/O Error"},
        {"empty.png", [](const QString &path) { writeFile(path, {}); }, "I/O Error"},
        {"binary.dat", [](const QString &path) { writeFile(path, allBytes()); }, nullptr},
        {"long.txt", [](const QString &path) { writeFile(path, longLine()); }, nullptr},
        {"empty.txt", [](const QString &path) { writeFile(path, {}); }, nullptr},
    };
    return files;
}

constexpr int patience = 60000; // milliseconds; ten million letters take their time on a busy machine

} // namespace

/// Files that are no documents, or odd ones, given to the real program. It says so in a box or opens them, and works
/// on.
class TestBadFiles : public QObject
{
    Q_OBJECT

private slots:
    void onTheCommandLine_data() { addRows(); }
    void onTheCommandLine();
    void throughTheDialog_data() { addRows(); }
    void throughTheDialog();

private:
    static void addRows();
    QString exactly(const char *title) const { return QStringLiteral("^%1$").arg(QLatin1String(title)); }
    /// Types into the good document in front and saves it.
    void verifyItWorks(const InstalledProgram &program, const QString &path) const;

    XSession m_session;
};

void TestBadFiles::addRows()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < oddFiles().size(); ++row)
        QTest::newRow(oddFiles().at(row).name) << row;
}

void TestBadFiles::verifyItWorks(const InstalledProgram &program, const QString &path) const
{
    program.startTyping();
    m_session.type(QStringLiteral("still here "));
    m_session.key(QStringLiteral("ctrl+s"));
    QTRY_COMPARE_WITH_TIMEOUT(InstalledProgram::read(path), QByteArray("still here good\n"), patience);
}

void TestBadFiles::onTheCommandLine()
{
    QFETCH(const int, row);
    const OddFile &odd = oddFiles().at(row);
    InstalledProgram program(m_session);
    const QString good = program.writeDocument(QStringLiteral("good.txt"), "good\n");
    const QString path = program.document(QString::fromLatin1(odd.name));
    odd.make(path);
    program.launch({path, good});
    if (odd.box != nullptr) {
        QVERIFY(!m_session.waitForWindow(exactly(odd.box)).isEmpty());
        m_session.key(QStringLiteral("Return"));
    }
    QVERIFY(!program.waitForMainWindow(true).isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(m_session.title(program.window()), "Kestrin 7 [" + good + ']', patience);
    verifyItWorks(program, good);
    QVERIFY(program.closeRegularly());
    const QStringList opened = program.setting(QStringLiteral("General/RecentFileList")).toStringList();
    QCOMPARE(opened, odd.box == nullptr ? QStringList({good, path}) : QStringList({good}));
}

void TestBadFiles::throughTheDialog()
{
    QFETCH(const int, row);
    const OddFile &odd = oddFiles().at(row);
    InstalledProgram program(m_session);
    const QString good = program.writeDocument(QStringLiteral("good.txt"), "good\n");
    const QString path = program.document(QString::fromLatin1(odd.name));
    odd.make(path);
    QVERIFY(!program.start({good}).isEmpty());
    m_session.waitUntilQuiet();
    m_session.key(QStringLiteral("ctrl+o"));
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Open File$")).isEmpty());
    m_session.type(path);
    m_session.key(QStringLiteral("Return"));

    const bool refusedByTheDialog = !QFileInfo::exists(path) || QFileInfo(path).isDir();
    if (refusedByTheDialog) {
        // It says that there is no such file, or goes into the folder; either way it can be left.
        m_session.waitUntilQuiet();
        m_session.key(QStringLiteral("Escape"));
        m_session.waitUntilQuiet();
        if (!m_session.windows(QStringLiteral("^Open File$")).isEmpty())
            m_session.key(QStringLiteral("Escape"));
    } else if (odd.box != nullptr) {
        QVERIFY(!m_session.waitForWindow(exactly(odd.box)).isEmpty());
        m_session.key(QStringLiteral("Return"));
        QTRY_VERIFY(m_session.windows(exactly(odd.box)).isEmpty());
    } else {
        QTRY_COMPARE_WITH_TIMEOUT(m_session.title(program.window()), "Kestrin 7 [" + path + ']', patience);
        // Back to the good one: the odd one is closed.
        m_session.key(QStringLiteral("ctrl+w"));
        QTRY_COMPARE_WITH_TIMEOUT(m_session.title(program.window()), "Kestrin 7 [" + good + ']', patience);
    }
    QTRY_VERIFY(m_session.windows(QStringLiteral("^Open File$")).isEmpty());
    verifyItWorks(program, good);
    QVERIFY(program.closeRegularly());
}

REGISTER_TEST(TestBadFiles)
#include "tst_badfiles.moc"
