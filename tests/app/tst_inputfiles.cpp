// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/eventlog.h"
#include "app/inputfiles.h"
#include "support/testmain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <vector>

class TestInputFiles : public QObject
{
    Q_OBJECT

private slots:
    void bound_data();
    void bound();
    void argumentsAreFileNames();
    void lineInTheLog_data();
    void lineInTheLog();
};

namespace {

QStringList filesOf(const std::vector<const char *> &arguments)
{
    return inputFiles(static_cast<int>(arguments.size()), arguments.data());
}

} // namespace

void TestInputFiles::bound_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("used");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("nineteen") << 19 << 19;
    QTest::newRow("twenty") << 20 << 20;
    QTest::newRow("twenty-one") << 21 << 20;
    QTest::newRow("twenty-five") << 25 << 20;
    QTest::newRow("very many") << 5000 << 20;
}

void TestInputFiles::bound()
{
    QFETCH(int, given);
    QFETCH(int, used);
    QList<QByteArray> names{"kestrin7"};
    for (int i = 1; i <= given; ++i)
        names.append("file " + QByteArray::number(i));
    std::vector<const char *> arguments;
    for (const QByteArray &name : std::as_const(names))
        arguments.push_back(name.constData());
    const QStringList files = filesOf(arguments);
    QCOMPARE(files.size(), used);
    for (int i = 0; i < used; ++i)
        QCOMPARE(files.at(i), QStringLiteral("file %1").arg(i + 1));
}

void TestInputFiles::argumentsAreFileNames()
{
    const QStringList files = filesOf(
        {"kestrin7", "--help", "-", "", "a b%1\n\"'.txt", "\u017c\u00f3\u0142\u0107.oxn", "../x", "same", "same"});
    const QStringList expected{"--help", "-",    "",    "a b%1\n\"'.txt", "\u017c\u00f3\u0142\u0107.oxn",
                               "../x",   "same", "same"};
    QCOMPARE(files, expected);
}

void TestInputFiles::lineInTheLog_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<bool>("line");
    QTest::newRow("no argument at all") << -1 << false;
    QTest::newRow("program name only") << 0 << false;
    QTest::newRow("one file") << 1 << true;
    QTest::newRow("too many files") << 30 << true;
}

void TestInputFiles::lineInTheLog()
{
    QFETCH(int, given);
    QFETCH(bool, line);
    const QTemporaryDir folder;
    const std::string logName = folder.filePath("log").toStdString();
    QVERIFY(openLogFiles(logName, folder.filePath("dump").toStdString()));
    filesOf(std::vector<const char *>(static_cast<std::size_t>(given + 1), "name"));
    QFile log(QString::fromStdString(logName));
    QVERIFY(log.open(QIODevice::ReadOnly));
    QCOMPARE(log.readAll().count("List of the input files processed\n"), line ? 1 : 0);
}

REGISTER_TEST(TestInputFiles)
#include "tst_inputfiles.moc"
