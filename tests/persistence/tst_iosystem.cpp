// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/iosystem.h"

#include "documents/documentitem.h"
#include "documents/page.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/files.h"
#include "support/plainuser.h"
#include "support/testmain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGraphicsTextItem>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

#include <sys/stat.h>

#include <memory>

namespace {

QString numbers(int last)
{
    QString text;
    for (int i = 1; i <= last; ++i)
        text += QString::number(i) + QLatin1Char('\n');
    return text;
}

void permit(const QString &path, mode_t mode)
{
    QCOMPARE(chmod(QFile::encodeName(path).constData(), mode), 0);
}

} // namespace

class TestIoSystem : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void oneInstance();
    void formatIsChosenBySuffix_data();
    void formatIsChosenBySuffix();
    void noPageNoLoad();
    void textIsReadIntoThePage();
    void numbersDoNotCountTheFinalLineFeed_data();
    void numbersDoNotCountTheFinalLineFeed();
    void textIsTheSameOnDisk_data();
    void textIsTheSameOnDisk();
    void finalLineEndIsNotWritten_data();
    void finalLineEndIsNotWritten();
    void typedTextIsOnDiskAsTyped();
    void newDocumentIsSixtyBlanks();
    void latin1GrowsIntoUtf8();
    void savedFormatCanBeReadByTheSameRules();
    void progressIsShown();
    void unreadableText_data();
    void unreadableText();
    void unwritableText_data();
    void unwritableText();
    void noPermissionToRead();
    void becameReadOnlyWhileOpen();
    void folderBecameReadOnlyWhileOpen();
    void vanishedFileIsWrittenAnew();
    void pipeTakesTheFilesPlace();
    void namesOfAllKinds_data();
    void namesOfAllKinds();
    void oneVeryLongLine();
    void binaryFile();
    void annotatedFilesFailCleanly();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void loadText(const QString &name, const QByteArray &contents);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<Page> m_page;
};

void TestIoSystem::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<FakeHost>();
    m_page = std::make_unique<Page>(m_host.get());
}

void TestIoSystem::cleanup()
{
    m_page.reset();
    m_host.reset();
}

void TestIoSystem::loadText(const QString &name, const QByteArray &contents)
{
    store(path(name), contents);
    QVERIFY(IoSystem::instance()->load(m_page.get(), path(name)));
}

void TestIoSystem::oneInstance()
{
    QVERIFY(IoSystem::instance());
    QCOMPARE(IoSystem::instance(), IoSystem::instance());
    QCOMPARE(IoSystem::instance()->parent(), nullptr);
}

void TestIoSystem::formatIsChosenBySuffix_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isPicture");
    QTest::newRow("png") << "a.png" << true;
    QTest::newRow("PNG in capitals") << "a.PNG" << true;
    QTest::newRow("jpeg") << "a.b.jpeg" << true;
    QTest::newRow("text") << "a.txt" << false;
    QTest::newRow("unknown") << "a.xyz" << false;
    QTest::newRow("no suffix") << "png" << false;
    QTest::newRow("only a suffix") << ".png" << true;
    QTest::newRow("dot at the end") << "a.png." << false;
    QTest::newRow("suffix in the folder") << "a.png/b" << false;
}

void TestIoSystem::formatIsChosenBySuffix()
{
    QFETCH(const QString, name);
    QFETCH(const bool, isPicture);
    QDir(m_folder->path()).mkpath(QFileInfo(path(name)).path());
    m_page->newDocument();
    QVERIFY(IoSystem::instance()->save(m_page.get(), path(name)));
    const bool written = bytesIn(path(name)) != QByteArray(60, ' ');
    QCOMPARE(written, isPicture);
    QVERIFY(IoSystem::instance()->load(m_page.get(), path(name)));
    QCOMPARE(m_page->documentKind(), isPicture ? Page::ImageDocument : Page::TextDocument);
    QCOMPARE(m_page->fileType(), QFileInfo(name).suffix());
}

void TestIoSystem::noPageNoLoad()
{
    store(path("a.txt"), "x");
    QVERIFY(!IoSystem::instance()->load(nullptr, path("a.txt")));
    QVERIFY(!IoSystem::instance()->load(nullptr, QString()));
}

void TestIoSystem::textIsReadIntoThePage()
{
    loadText("a.cpp", "int a;\nint b;\n");
    QCOMPARE(m_page->fileName(), path("a.cpp"));
    QCOMPARE(m_page->fileType(), QStringLiteral("cpp"));
    QCOMPARE(m_page->plainText(), QStringLiteral("int a;\nint b;"));
    QCOMPARE(m_page->documentKind(), Page::TextDocument);
    QVERIFY(!m_page->isModified());
    loadText("b.TXT", "x");
    QCOMPARE(m_page->fileType(), QStringLiteral("TXT"));
    QCOMPARE(m_page->documentItem()->lineCount(), 1);
}

void TestIoSystem::numbersDoNotCountTheFinalLineFeed_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<int>("lines");
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("line feed only") << QByteArray("\n") << 1;
    QTest::newRow("no final line feed") << QByteArray("a\nb") << 2;
    QTest::newRow("final line feed") << QByteArray("a\nb\n") << 2;
    QTest::newRow("two final line feeds") << QByteArray("a\nb\n\n") << 3;
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << 2;
}

void TestIoSystem::numbersDoNotCountTheFinalLineFeed()
{
    QFETCH(const QByteArray, contents);
    QFETCH(const int, lines);
    loadText("a.txt", contents);
    QCOMPARE(m_page->documentItem()->lineNumbersItem()->toPlainText(), numbers(lines));
    QCOMPARE(m_page->textDocument()->blockCount(), std::max(1, lines));
}

void TestIoSystem::textIsTheSameOnDisk_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("two lines") << QByteArray("a\nb");
    QTest::newRow("CR LF") << QByteArray("a\r\nb");
    QTest::newRow("CR") << QByteArray("a\rb");
    QTest::newRow("mixed line ends") << QByteArray("a\nb\r\nc\rd\n\r\ne");
    QTest::newRow("trailing blanks") << QByteArray("a  \n\t\n  b ");
    QTest::newRow("UTF-8") << QByteArray("\xC5\xBC\xC3\xB3\xC5\x82w \xE2\x82\xAC");
    QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBFxyz\r\na");
    QTest::newRow("UTF-16 LE") << QByteArray("\xFF\xFE"
                                             "a\0\r\0\n\0b\0",
                                             10);
    QTest::newRow("UTF-16 BE") << QByteArray("\xFE\xFF\0a\0\n\0b", 8);
    QTest::newRow("UTF-32 LE") << QByteArray("\xFF\xFE\0\0a\0\0\0\n\0\0\0b\0\0\0", 16);
    QTest::newRow("Latin-1") << QByteArray("gr\xFC\xDF\x65");
    QTest::newRow("no-break space") << QByteArray("a\xC2\xA0\x62");
    QTest::newRow("no-break space in Latin-1") << QByteArray("a\xA0\x62");
    QTest::newRow("line separator") << QByteArray("a\xE2\x80\xA8\x62");
    QTest::newRow("paragraph separator") << QByteArray("a\xE2\x80\xA9\x62");
    QTest::newRow("next line") << QByteArray("a\xC2\x85\x62");
    QTest::newRow("null bytes") << QByteArray("a\0b\0\0\nc", 7);
    QTest::newRow("control characters") << QByteArray("a\x01\x02\f\v\x1B"
                                                      "[0m");
    QTest::newRow("object replacement") << QByteArray("a\xEF\xBF\xBC\x62");
    QTest::newRow("replacement character") << QByteArray("a\xEF\xBF\xBD\x62");
    QTest::newRow("non-characters") << QByteArray("\xEF\xB7\x90\xEF\xB7\x91\xEF\xBF\xBE");
    QTest::newRow("emoji with joiners") << QByteArray("\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x92\xBB");
    QTest::newRow("right to left with marks") << QByteArray("\xE2\x80\x8F\xD7\x90\xD7\x91\xE2\x80\xAE");
    QTest::newRow("combining, not composed") << QByteArray("e\xCC\x81");
    QByteArray all;
    for (int i = 0; i < 256; ++i)
        all.append(char(i));
    QTest::newRow("every byte") << all;
}

void TestIoSystem::textIsTheSameOnDisk()
{
    QFETCH(const QByteArray, contents);
    loadText("a.txt", contents);
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("b.txt")));
    QCOMPARE(bytesIn(path("b.txt")), contents);
    // The same after an edit that was taken back.
    QTextCursor cursor(m_page->textDocument());
    cursor.insertText(QStringLiteral("x"));
    cursor.deletePreviousChar();
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("b.txt")));
    QCOMPARE(bytesIn(path("b.txt")), contents);
}

/// Like a text editor of the plain kind: the end of the last line is no part of the text.
void TestIoSystem::finalLineEndIsNotWritten_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QByteArray>("saved");
    QTest::newRow("one line") << QByteArray("a\n") << QByteArray("a");
    QTest::newRow("two lines") << QByteArray("a\nb\n") << QByteArray("a\nb");
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << QByteArray("a\r\nb");
    QTest::newRow("empty lines at the end") << QByteArray("a\n\n\n") << QByteArray("a\n\n");
    QTest::newRow("a line feed alone") << QByteArray("\n") << QByteArray();
    QTest::newRow("UTF-16 BE") << QByteArray("\xFE\xFF\0a\0\n", 6) << QByteArray("\xFE\xFF\0a", 4);
}

void TestIoSystem::finalLineEndIsNotWritten()
{
    QFETCH(const QByteArray, contents);
    loadText("a.txt", contents);
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("a.txt")));
    QTEST(bytesIn(path("a.txt")), "saved");
}

void TestIoSystem::typedTextIsOnDiskAsTyped()
{
    loadText("a.txt", "one\ntwo\n");
    QTextCursor cursor(m_page->textDocument());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("\nthree\u00a0\u20ac"));
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("a.txt")));
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("one\ntwo\nthree\xC2\xA0\xE2\x82\xAC"));
}

void TestIoSystem::newDocumentIsSixtyBlanks()
{
    m_page->newDocument();
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("new")));
    QCOMPARE(bytesIn(path("new")), QByteArray(60, ' '));
}

void TestIoSystem::latin1GrowsIntoUtf8()
{
    loadText("a.txt", "gr\xFC\xDF\x65\n");
    QTextCursor cursor(m_page->textDocument());
    cursor.insertText(QStringLiteral("\u00e4"));
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("a.txt")));
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("\xE4gr\xFC\xDF\x65"));
    cursor.insertText(QStringLiteral("\u20ac"));
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("a.txt")));
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("\xC3\xA4\xE2\x82\xACgr\xC3\xBC\xC3\x9F\x65"));
    // Once the character is gone the text fits again.
    cursor.deletePreviousChar();
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("a.txt")));
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("\xE4gr\xFC\xDF\x65"));
}

void TestIoSystem::savedFormatCanBeReadByTheSameRules()
{
    loadText("a.txt", "\xFF\n");
    m_page->textDocument()->setPlainText(QStringLiteral("\u00c3\u00a4"));
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("a.txt")));
    QVERIFY(IoSystem::instance()->load(m_page.get(), path("a.txt")));
    QCOMPARE(m_page->plainText(), QStringLiteral("\u00c3\u00a4"));
}

void TestIoSystem::progressIsShown()
{
    QList<int> values;
    connect(m_host->bar, &QProgressBar::valueChanged, this, [&values](int value) { values.append(value); });
    loadText("a.txt", "x\n");
    QCOMPARE(values, (QList<int>{50, 100}));
    values.clear();
    QPixmap(2, 2).save(path("p.png"));
    QVERIFY(IoSystem::instance()->load(m_page.get(), path("p.png")));
    QCOMPARE(values, (QList<int>{50, 100}));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!IoSystem::instance()->load(m_page.get(), path("missing.txt")));
    QVERIFY(m_host->bar->value() < m_host->bar->minimum());
}

void TestIoSystem::unreadableText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("code");
    QTest::newRow("missing") << "missing.txt" << int(QFileDevice::OpenError);
    QTest::newRow("missing, markup and percent signs in the name") << "<b>%1%2%L1</b>" << int(QFileDevice::OpenError);
    QTest::newRow("folder") << "folder" << int(QFileDevice::OpenError);
    QTest::newRow("pipe") << "pipe" << int(QFileDevice::OpenError);
    QTest::newRow("link to itself") << "loop" << int(QFileDevice::OpenError);
    QTest::newRow("below a file") << "file/a.txt" << int(QFileDevice::OpenError);
    QTest::newRow("device") << "/dev/zero" << int(QFileDevice::OpenError);
}

void TestIoSystem::unreadableText()
{
    QFETCH(QString, name);
    QFETCH(const int, code);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QVERIFY(QFile::link(path("loop"), path("loop")));
    store(path("file"), "x");
    if (!name.startsWith(QLatin1Char('/')))
        name = path(name);
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!IoSystem::instance()->load(m_page.get(), name));
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &box = answers.seen().first();
    QCOMPARE(box.title, QStringLiteral("I/O Error 0x00608004"));
    QCOMPARE(box.text, QStringLiteral("Can't open file ") + name + QStringLiteral("\nError code: %1").arg(code));
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.parent, nullptr);
    QCOMPARE(m_page->documentKind(), Page::NoDocument);
}

void TestIoSystem::unwritableText_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing folder") << "no/such/folder.txt";
    QTest::newRow("folder") << "folder";
    QTest::newRow("pipe") << "pipe";
    QTest::newRow("below a file") << "file/a.txt";
    QTest::newRow("place that takes no files") << "/proc/a.txt";
    QTest::newRow("device") << "/dev/full";
    QTest::newRow("name too long") << QString(300, QLatin1Char('n'));
}

void TestIoSystem::unwritableText()
{
    QFETCH(QString, name);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    store(path("file"), "x");
    if (!name.startsWith(QLatin1Char('/')))
        name = path(name);
    m_page->newDocument();
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!IoSystem::instance()->save(m_page.get(), name));
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &box = answers.seen().first();
    QCOMPARE(box.title, QStringLiteral("I/O Error"));
    QCOMPARE(box.text, QStringLiteral("Cannot save file ") + name + QStringLiteral(".\nError code: "));
    QCOMPARE(box.parent, nullptr);
    QCOMPARE(m_page->plainText().size(), 60);
}

void TestIoSystem::noPermissionToRead()
{
    store(path("secret.txt"), "secret");
    QPixmap(3, 3).save(path("secret.png"));
    permit(m_folder->path(), 0755);
    permit(path("secret.txt"), 0000);
    permit(path("secret.png"), 0000);
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    answers.click(QMessageBox::Ok);
    const PlainUser user;
    QVERIFY(!IoSystem::instance()->load(m_page.get(), path("secret.txt")));
    QVERIFY(!IoSystem::instance()->load(m_page.get(), path("secret.png")));
    QCOMPARE(answers.seen().size(), 2);
    QCOMPARE(answers.texts().at(0), QStringLiteral("Can't open file %1\nError code: 5").arg(path("secret.txt")));
    QCOMPARE(answers.texts().at(1),
             QStringLiteral("File %1 not found or its format is currently unsupported!").arg(path("secret.png")));
}

void TestIoSystem::becameReadOnlyWhileOpen()
{
    loadText("a.txt", "old\n");
    QTextCursor(m_page->textDocument()).insertText(QStringLiteral("new "));
    permit(m_folder->path(), 0777);
    permit(path("a.txt"), 0444);
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    {
        const PlainUser user;
        QVERIFY(!IoSystem::instance()->save(m_page.get(), path("a.txt")));
        QCOMPARE(answers.texts(), QStringList(QStringLiteral("Cannot save file %1.\nError code: ").arg(path("a.txt"))));
        // Elsewhere it can be saved.
        QVERIFY(IoSystem::instance()->save(m_page.get(), path("b.txt")));
    }
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("old\n"));
    QCOMPARE(bytesIn(path("b.txt")), QByteArray("new old"));
}

void TestIoSystem::folderBecameReadOnlyWhileOpen()
{
    loadText("a.txt", "old\n");
    QTextCursor(m_page->textDocument()).insertText(QStringLiteral("new "));
    permit(path("a.txt"), 0666);
    permit(m_folder->path(), 0555);
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    {
        const PlainUser user;
        // Without a place for the new contents beside the old file, it is not touched.
        QVERIFY(!IoSystem::instance()->save(m_page.get(), path("a.txt")));
    }
    permit(m_folder->path(), 0755);
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("old\n"));
    QCOMPARE(answers.seen().size(), 1);
}

void TestIoSystem::vanishedFileIsWrittenAnew()
{
    loadText("a.txt", "one\n");
    QVERIFY(QFile::remove(path("a.txt")));
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("a.txt")));
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("one"));
}

void TestIoSystem::pipeTakesTheFilesPlace()
{
    loadText("a.txt", "one\n");
    QVERIFY(QFile::remove(path("a.txt")));
    QCOMPARE(mkfifo(QFile::encodeName(path("a.txt")).constData(), 0600), 0);
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!IoSystem::instance()->save(m_page.get(), path("a.txt")));
    struct stat info = {};
    QCOMPARE(stat(QFile::encodeName(path("a.txt")).constData(), &info), 0);
    QVERIFY(S_ISFIFO(info.st_mode));
}

void TestIoSystem::namesOfAllKinds_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << " a b .txt";
    QTest::newRow("quotes") << "a\"'`b.txt";
    QTest::newRow("line feed") << "a\nb.txt";
    QTest::newRow("percent signs") << "%1 %n %%2.txt";
    QTest::newRow("letters beyond ASCII") << QStringLiteral("\u017c\u00f3\u0142\u0107 \u65e5\u672c.txt");
    QTest::newRow("markup") << "<i>a&amp;b.txt";
    QTest::newRow("backslash") << "a\\b.txt";
    QTest::newRow("leading minus") << "-a.txt";
}

void TestIoSystem::namesOfAllKinds()
{
    QFETCH(const QString, name);
    loadText(name, "text\n");
    QCOMPARE(m_page->fileName(), path(name));
    QTextCursor(m_page->textDocument()).insertText(QStringLiteral("new "));
    QVERIFY(IoSystem::instance()->save(m_page.get(), path(name)));
    QCOMPARE(bytesIn(path(name)), QByteArray("new text"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
}

void TestIoSystem::oneVeryLongLine()
{
    const QByteArray contents = QByteArray("0123456789").repeated(1'000'000);
    QElapsedTimer clock;
    clock.start();
    loadText("a.txt", contents);
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("b.txt")));
    QCOMPARE(bytesIn(path("b.txt")), contents);
    QVERIFY2(clock.elapsed() < 60'000, qPrintable(QString::number(clock.elapsed())));
}

void TestIoSystem::binaryFile()
{
    const QByteArray contents = bytesIn(QCoreApplication::applicationFilePath()).left(300'000);
    loadText("program.bin", contents);
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("copy.bin")));
    QVERIFY(bytesIn(path("copy.bin")) == contents);
}

void TestIoSystem::annotatedFilesFailCleanly()
{
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    answers.click(QMessageBox::Ok);
    QVERIFY(!IoSystem::instance()->load(m_page.get(), path("missing.OXN")));
    QCOMPARE(answers.seen().at(0).title, QStringLiteral("Kestrin 7 I/O Error"));
    QCOMPARE(answers.seen().at(0).text, QStringLiteral("Cannot open file %1!").arg(path("missing.OXN")));
    m_page->newDocument();
    QVERIFY(!IoSystem::instance()->save(m_page.get(), path("no/such/folder.oxn")));
    QCOMPARE(answers.seen().at(1).title, QStringLiteral("I/O Error 0x00608005"));
    QCOMPARE(answers.seen().at(1).text,
             QStringLiteral("Can't save file %1.\nError code: ").arg(path("no/such/folder.oxn")));
    QCOMPARE(answers.seen().at(1).parent, nullptr);
}

REGISTER_TEST(TestIoSystem)
#include "tst_iosystem.moc"
