// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/penline.h"
#include "documents/page.h"
#include "persistence/iosystem.h"
#include "persistence/oxnfiles.h"
#include "support/dialogs.h"
#include "support/fulldisk.h"
#include "support/testmain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

#include <memory>

/// What happens to the file on disk, above all when a save fails.
class TestOxnSaving : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_page.reset(); }
    void replacesTheFile();
    void unwritable_data();
    void unwritable();
    void fullDisk_data();
    void fullDisk();
    void fullDiskAmongManyMarks();
    void linkIsFollowed();
    void permissionsStay();

private:
    bool save(const QString &name);

    std::unique_ptr<OxnFiles> m_files;
    std::unique_ptr<Page> m_page;
    QList<SeenDialog> m_boxes;
};

void TestOxnSaving::init()
{
    m_files = std::make_unique<OxnFiles>();
    m_page = std::make_unique<Page>(nullptr);
    m_page->newDocument();
    m_page->addItem(new PenLine);
}

bool TestOxnSaving::save(const QString &name)
{
    DialogAnswers answers;
    answers.accept();
    const bool saved = IoSystem::instance()->save(m_page.get(), name);
    m_boxes = answers.seen();
    return saved;
}

void TestOxnSaving::replacesTheFile()
{
    m_files->write("a.OXN", QByteArray(100'000, 'x'));
    QVERIFY(save(m_files->path("a.OXN")));
    QCOMPARE(m_boxes.size(), 0);
    QCOMPARE(m_files->names(), QStringList{"a.OXN"});
    QVERIFY(m_files->bytes("a.OXN").startsWith("<!DOCTYPE Zettelwerk_2008>\n"));
    QVERIFY(m_files->bytes("a.OXN").endsWith("</Zettelwerk-xml>\n"));
}

void TestOxnSaving::unwritable_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing folder") << "no/such/folder.oxn";
    QTest::newRow("folder") << "folder.oxn";
    QTest::newRow("pipe") << "pipe.oxn";
    QTest::newRow("link to a device") << "full.oxn";
    QTest::newRow("below a file") << "file/a.oxn";
    QTest::newRow("place that takes no files") << "/proc/a.oxn";
    QTest::newRow("name too long") << QString(300, 'n') + ".oxn";
    QTest::newRow("markup and percent signs in the name") << "no/<b>%1%2.oxn";
}

void TestOxnSaving::unwritable()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkdir(m_files->path("folder.oxn")));
    QCOMPARE(mkfifo(QFile::encodeName(m_files->path("pipe.oxn")).constData(), 0600), 0);
    QVERIFY(QFile::link("/dev/full", m_files->path("full.oxn")));
    m_files->write("file", "x");
    const QStringList before = m_files->names();
    if (!name.startsWith('/'))
        name = m_files->path(name);
    QVERIFY(!save(name));
    QCOMPARE(m_boxes.size(), 1);
    QCOMPARE(m_boxes.first().title, QStringLiteral("I/O Error 0x00608005"));
    QCOMPARE(m_boxes.first().text, "Can't save file " + name + ".\nError code: ");
    QCOMPARE(m_boxes.first().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(m_boxes.first().icon, QMessageBox::Warning);
    QCOMPARE(m_boxes.first().parent, nullptr);
    QCOMPARE(m_files->names(), before);
}

void TestOxnSaving::fullDisk_data()
{
    QTest::addColumn<int>("bytes");
    QTest::newRow("not a byte left") << 0;
    QTest::newRow("a few bytes left") << 10;
    QTest::newRow("room for half") << 200;
    QTest::newRow("one byte short") << -1;
}

void TestOxnSaving::fullDisk()
{
    QFETCH(const int, bytes);
    const auto whole = rlim_t(m_files->saved(*m_page).size());
    m_files->write("a.oxn", "precious");
    {
        const FullDisk disk(bytes < 0 ? whole - 1 : rlim_t(bytes));
        QVERIFY(!save(m_files->path("a.oxn")));
        QVERIFY(!save(m_files->path("new.oxn")));
    }
    QCOMPARE(m_boxes.size(), 1);
    QCOMPARE(m_files->bytes("a.oxn"), QByteArray("precious"));
    QCOMPARE(m_files->names(), QStringList{"a.oxn"});
    const FullDisk disk(whole);
    QVERIFY(save(m_files->path("a.oxn")));
    QCOMPARE(m_files->bytes("a.oxn").size(), qsizetype(whole));
}

void TestOxnSaving::fullDiskAmongManyMarks()
{
    for (int i = 0; i < 5'000; ++i)
        m_page->addItem(new PenLine);
    m_files->write("a.oxn", "precious");
    {
        const FullDisk disk(300'000);
        QVERIFY(!save(m_files->path("a.oxn")));
    }
    QCOMPARE(m_files->bytes("a.oxn"), QByteArray("precious"));
    QVERIFY(save(m_files->path("a.oxn")));
    QVERIFY(m_files->bytes("a.oxn").size() > 300'000);
}

void TestOxnSaving::linkIsFollowed()
{
    QVERIFY(QDir().mkdir(m_files->path("real")));
    m_files->write("real/a.oxn", "old");
    QVERIFY(QFile::link("real/a.oxn", m_files->path("link.oxn")));
    QVERIFY(save(m_files->path("link.oxn")));
    QVERIFY(QFileInfo(m_files->path("link.oxn")).isSymLink());
    QVERIFY(!QFileInfo(m_files->path("real/a.oxn")).isSymLink());
    QVERIFY(m_files->bytes("real/a.oxn").contains("<pen_line"));
}

void TestOxnSaving::permissionsStay()
{
    m_files->write("a.oxn", "old");
    QCOMPARE(chmod(QFile::encodeName(m_files->path("a.oxn")).constData(), 0640), 0);
    QVERIFY(save(m_files->path("a.oxn")));
    struct stat info = {};
    QCOMPARE(stat(QFile::encodeName(m_files->path("a.oxn")).constData(), &info), 0);
    QCOMPARE(info.st_mode & 07777, mode_t(0640));
}

REGISTER_TEST(TestOxnSaving)
#include "tst_oxnsaving.moc"
