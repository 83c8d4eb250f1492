// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/privatefile.h"

#include "persistence/safefile.h"
#include "support/files.h"
#include "support/plainuser.h"
#include "support/testmain.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

namespace {

/// Permissions as chmod writes them.
int modeOf(const QString &path)
{
    const auto permissions = QFileInfo(path).permissions();
    return (permissions & QFile::ReadOwner ? 0400 : 0) | (permissions & QFile::WriteOwner ? 0200 : 0) |
           (permissions & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup) ? 0070 : 0) |
           (permissions & (QFile::ReadOther | QFile::WriteOther | QFile::ExeOther) ? 0007 : 0);
}

} // namespace

class TestPrivateFile : public QObject
{
    Q_OBJECT

private slots:
    void newFile();
    void oldFileIsClosedToOthers();
    void linkIsNotFollowed();
    void impossiblePlaces();
};

void TestPrivateFile::newFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.oxn"));
    QVERIFY(makePrivate(path));
    QCOMPARE(modeOf(path), 0600);
    QCOMPARE(writeSafely(path, "text"), QFileDevice::NoError);
    QCOMPARE(modeOf(path), 0600);
    QCOMPARE(bytesIn(path), QByteArray("text"));
}

void TestPrivateFile::oldFileIsClosedToOthers()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.oxn"));
    store(path, "old");
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
    QVERIFY(makePrivate(path));
    QCOMPARE(modeOf(path), 0600);
    // Should nothing be written after all, the old contents are still there.
    QCOMPARE(bytesIn(path), QByteArray("old"));
    QCOMPARE(writeSafely(path, "new"), QFileDevice::NoError);
    QCOMPARE(modeOf(path), 0600);
}

void TestPrivateFile::linkIsNotFollowed()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.oxn"));
    const QString other = folder.filePath(QStringLiteral("other"));
    store(other, "other");
    for (const QString &target : {other, folder.filePath(QStringLiteral("nowhere"))}) {
        QFile::remove(path);
        QCOMPARE(symlink(target.toLocal8Bit().constData(), path.toLocal8Bit().constData()), 0);
        QVERIFY(makePrivate(path));
        QVERIFY(!QFileInfo(path).isSymLink());
        QCOMPARE(modeOf(path), 0600);
    }
    QCOMPARE(bytesIn(other), QByteArray("other"));
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("nowhere"))));
}

void TestPrivateFile::impossiblePlaces()
{
    const QTemporaryDir folder;
    QVERIFY(!makePrivate(folder.filePath(QStringLiteral("none/a.oxn"))));
    QVERIFY(!makePrivate(folder.path()));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("closed")));
    const PlainUser user;
    QVERIFY(!makePrivate(folder.filePath(QStringLiteral("closed/a.oxn"))));
}

REGISTER_TEST(TestPrivateFile)
#include "tst_privatefile.moc"
