// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "persistence/iosystem.h"
#include "persistence/scenepicture.h"
#include "support/testmain.h"

#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

/// Pictures that Qt reads but cannot write, and pictures larger than Qt reads by default.
class TestPictures : public QObject
{
    Q_OBJECT

private slots:
    void unwritablePictureIsNotReplaced();
    void nothingIsSavedOfNoPage();
    void largePictureIsEncoded();
};

void TestPictures::unwritablePictureIsNotReplaced()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("dot.gif"));
    const QByteArray gif =
        QByteArray::fromHex("47494638396101000100800000ff0000ffffff2c00000000010001000002024401003b");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(gif);
    file.close();

    Page page(nullptr);
    QVERIFY(page.loadFile(path));
    QCOMPARE(page.documentKind(), Page::ImageDocument);
    QVERIFY(!IoSystem::instance()->save(&page, path));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), gif);
    const QString png = folder.filePath(QStringLiteral("dot.png"));
    QVERIFY(IoSystem::instance()->save(&page, png));
    QCOMPARE(QImage(png).size(), QSize(1, 1));
}

void TestPictures::nothingIsSavedOfNoPage()
{
    const QTemporaryDir folder;
    for (const char *name : {"a.txt", "a.png", "a.oxn"}) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        QVERIFY(!IoSystem::instance()->save(nullptr, path));
        QVERIFY(!QFile::exists(path));
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
