// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing of pictures. Text: tst_iosystem.cpp.
#include "documents/documentitem.h"
#include "documents/page.h"
#include "persistence/iosystem.h"
#include "persistence/scenepicture.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/files.h"
#include "support/testmain.h"

#include <QDir>
#include <QGraphicsPixmapItem>
#include <QGraphicsRectItem>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

#include <memory>

class TestPictures : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pictureIsReadIntoThePage();
    void unreadablePicture_data();
    void unreadablePicture();
    void hugePhotoOpens();
    void pictureForDenseScreensOpensAtFullSize();
    void pictureIsTheScene();
    void pictureOfATallText();
    void pictureFormats_data();
    void pictureFormats();
    void pictureThatCannotBeSaved();
    void emptySceneCannotBeSaved();
    void sceneBeyondAllSizes_data();
    void sceneBeyondAllSizes();
    void imageSavedAsTextIsEmpty();
    void unwritablePictureIsNotReplaced();
    void nothingIsSavedOfNoPage();
    void largePictureIsEncoded();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<Page> m_page;
};

void TestPictures::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<FakeHost>();
    m_page = std::make_unique<Page>(m_host.get());
}

void TestPictures::cleanup()
{
    m_page.reset();
    m_host.reset();
}

void TestPictures::pictureIsReadIntoThePage()
{
    QPixmap picture(40, 30);
    picture.fill(Qt::darkCyan);
    picture.save(path("p.PNG"));
    QVERIFY(IoSystem::instance()->load(m_page.get(), path("p.PNG")));
    QCOMPARE(m_page->documentKind(), Page::ImageDocument);
    QCOMPARE(m_page->imageLink(), path("p.PNG"));
    QCOMPARE(m_page->fileType(), QStringLiteral("PNG"));
    QCOMPARE(m_page->sceneRect(), QRectF(0, 0, 40, 30));
    QCOMPARE(m_page->documentItem()->pixmapItem()->pixmap().toImage().pixelColor(5, 5), QColor(Qt::darkCyan));
}

void TestPictures::unreadablePicture_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << "missing.png";
    QTest::newRow("empty") << "empty.png";
    QTest::newRow("no picture") << "text.png";
    QTest::newRow("cut off in the header") << "header.png";
    QTest::newRow("cut off in the middle") << "middle.png";
    QTest::newRow("folder") << "folder.png";
    QTest::newRow("pipe") << "pipe.png";
    QTest::newRow("oversized") << "oversized.bmp";
}

void TestPictures::unreadablePicture()
{
    QFETCH(const QString, name);
    store(path("empty.png"), QByteArray());
    store(path("text.png"), "this is no picture");
    QPixmap(300, 300).save(path("whole.png"));
    store(path("header.png"), bytesIn(path("whole.png")).left(30));
    QImage noise(300, 300, QImage::Format_RGB32);
    for (int i = 0; i < 300 * 300; ++i)
        noise.setPixel(i % 300, i / 300, QRgb(i * 7919));
    QVERIFY(noise.save(path("noise.png")));
    store(path("middle.png"), bytesIn(path("noise.png")).left(int(QFileInfo(path("noise.png")).size() / 2)));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder.png")));
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe.png")).constData(), 0600), 0);
    QPixmap(10, 10).save(path("small.bmp"));
    QByteArray oversized = bytesIn(path("small.bmp"));
    const qint32 side = 30'000;
    oversized.replace(18, 4, QByteArray(reinterpret_cast<const char *>(&side), 4));
    oversized.replace(22, 4, QByteArray(reinterpret_cast<const char *>(&side), 4));
    store(path("oversized.bmp"), oversized);

    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!IoSystem::instance()->load(m_page.get(), path(name)));
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().title, QStringLiteral("I/O Error"));
    QCOMPARE(answers.seen().first().text,
             QStringLiteral("File %1 not found or its format is currently unsupported!").arg(path(name)));
    QCOMPARE(m_page->documentKind(), Page::NoDocument);
    QCOMPARE(m_page->fileType(), QFileInfo(name).suffix());
    QCOMPARE(m_host->bar->value(), 100);
}

void TestPictures::hugePhotoOpens()
{
    // 100 million pixels, 400 MB of memory: above what Qt reads by itself.
    QImage photo(10'000, 10'000, QImage::Format_Grayscale8);
    photo.fill(128);
    QVERIFY(photo.save(path("photo.png")));
    photo = QImage();
    QVERIFY(IoSystem::instance()->load(m_page.get(), path("photo.png")));
    QCOMPARE(m_page->sceneRect(), QRectF(0, 0, 10'000, 10'000));
}

void TestPictures::pictureForDenseScreensOpensAtFullSize()
{
    QPixmap(60, 40).save(path("icon@2x.png"));
    QVERIFY(IoSystem::instance()->load(m_page.get(), path("icon@2x.png")));
    QCOMPARE(m_page->sceneRect(), QRectF(0, 0, 60, 40));
    QCOMPARE(m_page->documentItem()->pixmapItem()->boundingRect().size(), QSizeF(60, 40));
}

void TestPictures::pictureIsTheScene()
{
    QImage original(50, 40, QImage::Format_RGB32);
    original.fill(Qt::yellow);
    original.setPixelColor(49, 39, Qt::black);
    QVERIFY(original.save(path("p.png")));
    QVERIFY(IoSystem::instance()->load(m_page.get(), path("p.png")));
    auto *visible = m_page->addRect(10, 10, 10, 10, Qt::NoPen, Qt::blue);
    m_page->addRect(30, 10, 10, 10, Qt::NoPen, Qt::red)->setVisible(false);
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("q.png")));
    const QImage saved(path("q.png"));
    QCOMPARE(saved.size(), QSize(50, 40));
    QCOMPARE(saved.pixelColor(15, 15), QColor(Qt::blue));
    QCOMPARE(saved.pixelColor(35, 15), QColor(Qt::yellow));
    QCOMPARE(saved.pixelColor(49, 39), QColor(Qt::black));
    QVERIFY(!saved.hasAlphaChannel());
    delete visible;
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("r.png")));
    QCOMPARE(QImage(path("r.png")).convertToFormat(QImage::Format_RGB32), original);
}

void TestPictures::pictureOfATallText()
{
    // Further down than a painter reaches in one go.
    store(path("a.txt"), QByteArray("line\n").repeated(2999) + "last");
    QVERIFY(IoSystem::instance()->load(m_page.get(), path("a.txt")));
    m_page->setBackgroundBrush(Qt::white);
    QVERIFY(m_page->sceneRect().height() > 40'000);
    const double bottom = m_page->sceneRect().height();
    m_page->addRect(5, bottom - 50, 20, 20, Qt::NoPen, Qt::blue);
    m_page->addRect(5, 16'384 - 10, 20, 20, Qt::NoPen, Qt::green);
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("a.png")));
    QImageReader::setAllocationLimit(1024);
    const QImage saved(path("a.png"));
    QCOMPARE(saved.size(), QSize(int(m_page->sceneRect().width()), int(bottom)));
    QCOMPARE(saved.pixelColor(15, int(bottom) - 40), QColor(Qt::blue));
    for (const int y : {16'384 - 5, 16'384, 16'384 + 5})
        QCOMPARE(saved.pixelColor(15, y), QColor(Qt::green));
}

void TestPictures::pictureFormats_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const QByteArray &format : QImageWriter::supportedImageFormats())
        QTest::newRow(format.constData()) << format;
}

void TestPictures::pictureFormats()
{
    QFETCH(const QByteArray, format);
    m_page->setTextContents(QStringLiteral("a"), QStringLiteral("some text"), QStringLiteral("1\n"));
    const QString name = path(QStringLiteral("a.") + QString::fromLatin1(format).toUpper());
    const bool saved = IoSystem::instance()->save(m_page.get(), name);
    // No file instead of a wrong one.
    QCOMPARE(QFile::exists(name), saved);
    if (saved && QImageReader::supportedImageFormats().contains(format))
        QVERIFY(!QImageReader(name).read().isNull());
    if (format == "png" || format == "jpg" || format == "bmp")
        QVERIFY(saved);
}

void TestPictures::pictureThatCannotBeSaved()
{
    m_page->newDocument();
    const DialogAnswers answers;
    QVERIFY(!IoSystem::instance()->saveImage(m_page.get(), path("no/such/folder.png")));
    QVERIFY(!IoSystem::instance()->saveImage(nullptr, path("a.png")));
    QVERIFY(!IoSystem::instance()->saveImage(m_page.get(), QString()));
    QCOMPARE(answers.seen().size(), 0);

    m_page->setSceneRect(0, 0, 100'000, 100'000);
    QVERIFY(!IoSystem::instance()->saveImage(m_page.get(), path("a.png")));
    QVERIFY(!QFile::exists(path("a.png")));
}

void TestPictures::emptySceneCannotBeSaved()
{
    store(path("a.png"), "old");
    m_page->setSceneRect(0, 0, 0.9, 10);
    QVERIFY(!IoSystem::instance()->saveImage(m_page.get(), path("a.png")));
    QCOMPARE(bytesIn(path("a.png")), QByteArray("old"));
}

void TestPictures::sceneBeyondAllSizes_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::newRow("wide") << QRectF(0, 0, 1e38, 5);
    QTest::newRow("high") << QRectF(0, -1e38, 5, 1e38);
    QTest::newRow("as small as any once cut to 32 bits") << QRectF(0, 0, 4294967396.0, 100);
    QTest::newRow("more than there is memory for") << QRectF(0, 0, 90'000, 90'000);
    QTest::newRow("no number") << QRectF(0, 0, qQNaN(), 5);
    QTest::newRow("empty") << QRectF(0, 0, 0.5, 100);
}

void TestPictures::sceneBeyondAllSizes()
{
    QFETCH(const QRectF, rect);
    QGraphicsScene scene(rect);
    QVERIFY(renderPicture(&scene).isNull());
}

void TestPictures::imageSavedAsTextIsEmpty()
{
    QPixmap(5, 5).save(path("p.png"));
    QVERIFY(IoSystem::instance()->load(m_page.get(), path("p.png")));
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("p.txt")));
    QCOMPARE(bytesIn(path("p.txt")), QByteArray());
}

void TestPictures::unwritablePictureIsNotReplaced()
{
    const QByteArray gif =
        QByteArray::fromHex("47494638396101000100800000ff0000ffffff2c00000000010001000002024401003b");
    store(path("dot.gif"), gif);
    QVERIFY(m_page->loadFile(path("dot.gif")));
    QCOMPARE(m_page->documentKind(), Page::ImageDocument);
    QVERIFY(!IoSystem::instance()->save(m_page.get(), path("dot.gif")));
    QCOMPARE(bytesIn(path("dot.gif")), gif);
    QVERIFY(IoSystem::instance()->save(m_page.get(), path("dot.png")));
    QCOMPARE(QImage(path("dot.png")).size(), QSize(1, 1));
}

void TestPictures::nothingIsSavedOfNoPage()
{
    for (const char *name : {"a.txt", "a.png", "a.oxn"}) {
        QVERIFY(!IoSystem::instance()->save(nullptr, path(name)));
        QVERIFY(!QFile::exists(path(name)));
    }
}

void TestPictures::largePictureIsEncoded()
{
    QImageReader::setAllocationLimit(1);
    QImage picture(1024, 1024, QImage::Format_RGB32);
    picture.fill(Qt::green);
    QVERIFY(!encodePicture(picture, QStringLiteral("png")).isEmpty());
}

REGISTER_TEST(TestPictures)
#include "tst_pictures.moc"
