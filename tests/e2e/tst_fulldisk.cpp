// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"
#include "support/testmain.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QRandomGenerator>
#include <QTest>

namespace {

/// Saves on a disk that is full. The documents lie on a file system of 64 KB that only the program and its children
/// see; where a user may not make one, no file may grow beyond 8 KB instead. The first word behind is the folder.
const QStringList fullDiskStarter{
    "sh", "-c",
    "documents=$1; shift; "
    "if unshare -rm mount -t tmpfs none \"$documents\" 2>/dev/null; then "
    "  exec unshare -rm sh -c '"
    "    cp -r \"$0\" \"$0.kept\" && mount -t tmpfs -o size=64k none \"$0\" && cp \"$0.kept\"/* \"$0\" &&"
    "    { cat /dev/zero > \"$0/filler\" 2>/dev/null; exec \"$@\"; }' \"$documents\" \"$@\"; "
    "fi; "
    "trap '' XFSZ; ulimit -f 8; exec \"$@\"",
    "sh"};

/// A picture that no format makes small.
QByteArray noise(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, random.generate() | 0xff000000U);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

/// Saving where there is no room left.
class TestFullDisk : public QObject
{
    Q_OBJECT

private slots:
    void originalStays_data();
    void originalStays();

private:
    XSession m_session;
};

void TestFullDisk::originalStays_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("boxes");
    QTest::newRow("text") << "kept.txt" << QByteArray(20000, 'k') + '\n' << QStringList{"I/O Error", "I/O Warning"};
    QTest::newRow("picture") << "kept.png" << noise(QSize(80, 80)) << QStringList{"I/O Warning"};
}

void TestFullDisk::originalStays()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, contents);
    QFETCH(const QStringList, boxes);
    InstalledProgram program(m_session);
    const QString path = program.writeDocument(name, contents);
    program.setStarter(fullDiskStarter + QStringList(QDir(program.document(QString())).path()));
    QVERIFY(!program.start({path}).isEmpty());
    // As the program sees it.
    const QString seen = QStringLiteral("/proc/%1/root").arg(program.processId());
    QCOMPARE(InstalledProgram::read(seen + path), contents);
    const QStringList entries = QDir(seen + program.document(QString())).entryList(QDir::Files | QDir::Hidden);

    program.startTyping();
    m_session.type(QStringLiteral("x"));
    program.refreshMenus();
    m_session.key(QStringLiteral("ctrl+s"));
    for (const QString &box : boxes) {
        QVERIFY2(!m_session.waitForWindow('^' + box + '$').isEmpty(), qPrintable(box));
        m_session.key(QStringLiteral("Return"));
        QTRY_VERIFY(m_session.windows('^' + box + '$').isEmpty());
    }
    QCOMPARE(InstalledProgram::read(seen + path), contents);
    QCOMPARE(QDir(seen + program.document(QString())).entryList(QDir::Files | QDir::Hidden), entries);

    // Not taken for saved: closing asks.
    m_session.close(program.window());
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Kestrin 7$")).isEmpty());
    m_session.key(QStringLiteral("Escape"));
    QTRY_COMPARE(m_session.windows(QStringLiteral("^Kestrin 7$")), QStringList());
    QVERIFY(program.isRunning());
}

REGISTER_TEST(TestFullDisk)
#include "tst_fulldisk.moc"
