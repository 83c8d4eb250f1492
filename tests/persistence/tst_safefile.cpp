// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/safefile.h"

#include "support/files.h"
#include "support/fulldisk.h"
#include "support/testmain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>

class TestSafeFile : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void writesNewFiles();
    void replacesFiles_data();
    void replacesFiles();
    void keepsPermissions();
    void keepsTheOwner();
    void followsLinks();
    void followsLinksThatPointNowhere();
    void refusesWhatIsNoFile_data();
    void refusesWhatIsNoFile();
    void missingFolder();
    void fullDiskLeavesTheOldFile_data();
    void fullDiskLeavesTheOldFile();
    void fullDiskLeavesNoNewFile();
    void whatWasWrittenIsReadBack();
    void failuresOfWriterAndCheckLeaveTheOldFile();
    void readsFilesWhole();
    void readingWhatIsNotThere();
    void readingAPipeDoesNotWait();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList names() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestSafeFile::writesNewFiles()
{
    QCOMPARE(writeSafely(path("a"), "text"), QFileDevice::NoError);
    QCOMPARE(bytesIn(path("a")), QByteArray("text"));
    QCOMPARE(names(), QStringList{"a"});
}

void TestSafeFile::replacesFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("shorter") << "a.txt" << QByteArray("x");
    QTest::newRow("longer") << "a.txt" << QByteArray(1'000'000, 'y');
    QTest::newRow("empty") << "a.txt" << QByteArray();
    QTest::newRow("blanks in the name") << " a b " << QByteArray("x");
    QTest::newRow("quotes in the name") << "a\"b'c" << QByteArray("x");
    QTest::newRow("line feed in the name") << "a\nb" << QByteArray("x");
    QTest::newRow("percent signs in the name") << "%1%20%%" << QByteArray("x");
    QTest::newRow("letters beyond ASCII") << QStringLiteral("\u017c\u00f3\u0142w \u6587.txt") << QByteArray("x");
}

void TestSafeFile::replacesFiles()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, data);
    store(path(name), "the old contents");
    QCOMPARE(writeSafely(path(name), data), QFileDevice::NoError);
    QCOMPARE(bytesIn(path(name)), data);
    QCOMPARE(names(), QStringList{name});
}

void TestSafeFile::keepsPermissions()
{
    store(path("a"), "old");
    for (const mode_t mode : {0640u, 0755u, 0600u}) {
        QCOMPARE(chmod(QFile::encodeName(path("a")).constData(), mode), 0);
        QCOMPARE(writeSafely(path("a"), "new"), QFileDevice::NoError);
        struct stat info = {};
        QCOMPARE(stat(QFile::encodeName(path("a")).constData(), &info), 0);
        QCOMPARE(info.st_mode & 07777, mode);
    }
}

void TestSafeFile::keepsTheOwner()
{
    store(path("a"), "old");
    // Only root can give a file away; others keep their own, which is the same check.
    const uid_t owner = geteuid() == 0 ? 12345 : geteuid();
    const gid_t group = geteuid() == 0 ? 12346 : getegid();
    QCOMPARE(chown(QFile::encodeName(path("a")).constData(), owner, group), 0);
    QCOMPARE(chmod(QFile::encodeName(path("a")).constData(), 0664), 0);
    QCOMPARE(writeSafely(path("a"), "new"), QFileDevice::NoError);
    struct stat info = {};
    QCOMPARE(stat(QFile::encodeName(path("a")).constData(), &info), 0);
    QCOMPARE(info.st_uid, owner);
    QCOMPARE(info.st_gid, group);
    QCOMPARE(info.st_mode & 07777, mode_t(0664));
}

void TestSafeFile::followsLinks()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("real")));
    store(path("real/file"), "old");
    QVERIFY(QFile::link(QStringLiteral("real/file"), path("second")));
    QVERIFY(QFile::link(path("second"), path("first")));
    QCOMPARE(writeSafely(path("first"), "new"), QFileDevice::NoError);
    QVERIFY(QFileInfo(path("first")).isSymLink());
    QVERIFY(QFileInfo(path("second")).isSymLink());
    QVERIFY(!QFileInfo(path("real/file")).isSymLink());
    QCOMPARE(bytesIn(path("real/file")), QByteArray("new"));
}

void TestSafeFile::followsLinksThatPointNowhere()
{
    QVERIFY(QFile::link(path("target"), path("link")));
    QCOMPARE(writeSafely(path("link"), "new"), QFileDevice::NoError);
    QVERIFY(QFileInfo(path("link")).isSymLink());
    QCOMPARE(bytesIn(path("target")), QByteArray("new"));
}

void TestSafeFile::refusesWhatIsNoFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("folder") << "folder";
    QTest::newRow("pipe") << "pipe";
    QTest::newRow("link to a pipe") << "link";
    QTest::newRow("device") << "/dev/full";
    QTest::newRow("file in a folder that takes none") << "/proc/a.txt";
    QTest::newRow("file below a file") << "file/a.txt";
    QTest::newRow("no name") << "";
}

void TestSafeFile::refusesWhatIsNoFile()
{
    QFETCH(QString, name);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    store(path("file"), "old");
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QVERIFY(QFile::link(path("pipe"), path("link")));
    const QStringList before = names();
    if (!name.isEmpty() && !name.startsWith(QLatin1Char('/')))
        name = path(name);
    QVERIFY(writeSafely(name, "new") != QFileDevice::NoError);
    QCOMPARE(names(), before);
    QCOMPARE(bytesIn(path("file")), QByteArray("old"));
    QVERIFY(QFileInfo(path("folder")).isDir());
}

void TestSafeFile::missingFolder()
{
    QVERIFY(writeSafely(path("no/such/folder/a"), "new") != QFileDevice::NoError);
    QVERIFY(names().isEmpty());
}

void TestSafeFile::fullDiskLeavesTheOldFile_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("size");
    QTest::newRow("not a byte left") << 0 << 10;
    QTest::newRow("a few bytes left") << 5 << 10;
    QTest::newRow("one byte short") << 99'999 << 100'000;
    QTest::newRow("far too small") << 4096 << 10'000'000;
}

void TestSafeFile::fullDiskLeavesTheOldFile()
{
    QFETCH(const int, bytes);
    QFETCH(const int, size);
    store(path("a"), "the old contents");
    {
        const FullDisk disk{rlim_t(bytes)};
        QVERIFY(writeSafely(path("a"), QByteArray(size, 'x')) != QFileDevice::NoError);
    }
    QCOMPARE(bytesIn(path("a")), QByteArray("the old contents"));
    QCOMPARE(names(), QStringList{"a"});
}

void TestSafeFile::fullDiskLeavesNoNewFile()
{
    {
        const FullDisk disk{10};
        QVERIFY(writeSafely(path("a"), QByteArray(1000, 'x')) != QFileDevice::NoError);
    }
    QVERIFY(names().isEmpty());
}

void TestSafeFile::whatWasWrittenIsReadBack()
{
    for (const char *name : {"new", "existing"}) {
        store(path("existing"), "the old contents, longer than the new ones");
        QByteArray seen;
        const auto error = writeSafely(
            path(name), [](QIODevice &device) { return device.write("abc") == 3 && device.write("def") == 3; },
            [&seen](QIODevice &device) {
                seen = device.readAll();
                return true;
            });
        QCOMPARE(error, QFileDevice::NoError);
        QCOMPARE(seen, QByteArray("abcdef"));
        QCOMPARE(bytesIn(path(name)), QByteArray("abcdef"));
    }
}

void TestSafeFile::failuresOfWriterAndCheckLeaveTheOldFile()
{
    store(path("a"), "old");
    const auto write = [](QIODevice &device) { return device.write("new") == 3; };
    const auto refuse = [](QIODevice & /*device*/) { return false; };
    bool checked = false;
    const auto accept = [&checked](QIODevice & /*device*/) { return checked = true; };
    QVERIFY(writeSafely(path("a"), refuse, accept) != QFileDevice::NoError);
    QVERIFY(!checked);
    QVERIFY(writeSafely(path("a"), write, refuse) != QFileDevice::NoError);
    QCOMPARE(bytesIn(path("a")), QByteArray("old"));
    QCOMPARE(names(), QStringList{"a"});
}

void TestSafeFile::readsFilesWhole()
{
    QByteArray data;
    for (const QByteArray &contents : {QByteArray(), QByteArray("a\r\n\0b", 5), QByteArray(5'000'000, 'z')}) {
        store(path("a"), contents);
        QCOMPARE(readWhole(path("a"), &data), QFileDevice::NoError);
        QCOMPARE(data, contents);
    }
    // Such files say that they are empty.
    QCOMPARE(readWhole(QStringLiteral("/proc/self/status"), &data), QFileDevice::NoError);
    QVERIFY(data.contains("Name:"));
}

void TestSafeFile::readingWhatIsNotThere()
{
    QByteArray data;
    QCOMPARE(readWhole(path("missing"), &data), QFileDevice::OpenError);
    QCOMPARE(readWhole(m_folder->path(), &data), QFileDevice::OpenError);
    QCOMPARE(readWhole(QString(), &data), QFileDevice::OpenError);
    QCOMPARE(readWhole(QStringLiteral("/dev/zero"), &data), QFileDevice::OpenError);
    QVERIFY(QFile::link(path("loop"), path("loop")));
    QCOMPARE(readWhole(path("loop"), &data), QFileDevice::OpenError);
    store(path("huge"), "x");
    QCOMPARE(truncate(QFile::encodeName(path("huge")).constData(), 3LL << 30), 0);
    QCOMPARE(readWhole(path("huge"), &data), QFileDevice::ResourceError);
}

void TestSafeFile::readingAPipeDoesNotWait()
{
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QElapsedTimer clock;
    clock.start();
    QByteArray data;
    QCOMPARE(readWhole(path("pipe"), &data), QFileDevice::OpenError);
    QVERIFY(clock.elapsed() < 5000);
}

REGISTER_TEST(TestSafeFile)
#include "tst_safefile.moc"
