// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/childprocess.h"
#include "support/testmain.h"

#include <QRegularExpression>
#include <QTest>

#include <csignal>

class TestMessageHandler : public QObject
{
    Q_OBJECT

private slots:
    void prefixes_data();
    void prefixes();
    void firstMessageEmptiesTheFile();
    void firstMessageMayBeInformation();
    void failedOpenIsNotRetried();
    void fatalEndsTheProcessWithoutACrashRecord();
    void fatalEndsTheProcessWithoutAFile();
    void threadsDoNotMixLines();
    void speaksDuringStaticDestruction_data();
    void speaksDuringStaticDestruction();
    void textIsUtf8();
};

void TestMessageHandler::prefixes_data()
{
    QTest::addColumn<QStringList>("operations");
    QTest::addColumn<QByteArray>("messages");
    QTest::newRow("debug") << QStringList{"debug=a"} << QByteArray("[Log]: a\n");
    QTest::newRow("warning") << QStringList{"warning=a"} << QByteArray("[Warning]: a\n");
    QTest::newRow("critical") << QStringList{"critical=a"} << QByteArray("[Critical]: a\n");
    QTest::newRow("information") << QStringList{"information=a"} << QByteArray();
    QTest::newRow("all in order") << QStringList{"critical=a", "information=b", "debug=c", "warning=d"}
                                  << QByteArray("[Critical]: a\n[Log]: c\n[Warning]: d\n");
    QTest::newRow("empty") << QStringList{"warning="} << QByteArray("[Warning]: \n");
    QTest::newRow("lines inside") << QStringList{"warning=a\nb"} << QByteArray("[Warning]: a\nb\n");
}

void TestMessageHandler::prefixes()
{
    QFETCH(QStringList, operations);
    ChildProcess child;
    QVERIFY(child.run(QStringList{"handler"} + operations));
    QTEST(child.messages(), "messages");
}

void TestMessageHandler::firstMessageEmptiesTheFile()
{
    ChildProcess child;
    QVERIFY(child.write("sys/logs/syslog.dat", "from an earlier run, and longer"));
    QVERIFY(child.run({"handler", "warning=a"}));
    QCOMPARE(child.messages(), "[Warning]: a\n");
}

void TestMessageHandler::firstMessageMayBeInformation()
{
    ChildProcess child;
    QVERIFY(child.write("sys/logs/syslog.dat", "old"));
    QVERIFY(child.run({"handler", "information=a", "debug=b"}));
    QCOMPARE(child.messages(), "[Log]: b\n");
}

void TestMessageHandler::failedOpenIsNotRetried()
{
    ChildProcess child;
    const QString here = child.path(QString());
    QVERIFY(child.run({"handler", "chdir=/", "warning=a", "chdir=" + here, "warning=b"}));
    QCOMPARE(child.output(), "00");
    QVERIFY(!QFile::exists(child.path("sys/logs/syslog.dat")));
}

void TestMessageHandler::fatalEndsTheProcessWithoutACrashRecord()
{
    ChildProcess child;
    QVERIFY(child.replaceCrashBox("touch box-was-here\n"));
    child.run({"hook=60", "handler", "open", "lines=3", "fatal=the end"});
    QCOMPARE(child.endedBy(), SIGABRT);
    QCOMPARE(child.dump(), QByteArray());
    QVERIFY(!QFile::exists(child.path("box-was-here")));
}

void TestMessageHandler::fatalEndsTheProcessWithoutAFile()
{
    ChildProcess child;
    child.run({"chdir=/", "handler", "fatal=the end"});
    QCOMPARE(child.endedBy(), SIGABRT);
}

void TestMessageHandler::threadsDoNotMixLines()
{
    ChildProcess child;
    QVERIFY(child.run({"handler", "threads=4"}));
    static const QRegularExpression whole("^\\[Warning\\]: thread [0-3] message \\d+ end$");
    QStringList lines = QString::fromUtf8(child.messages()).split('\n');
    QCOMPARE(lines.takeLast(), QString());
    QCOMPARE(lines.size(), 800);
    for (const QString &line : std::as_const(lines))
        QVERIFY2(whole.match(line).hasMatch(), qPrintable(line));
    lines.removeDuplicates();
    QCOMPARE(lines.size(), 800);
}

void TestMessageHandler::speaksDuringStaticDestruction_data()
{
    QTest::addColumn<QStringList>("operations");
    QTest::addColumn<QByteArray>("messages");
    // What is built later is taken apart earlier.
    QTest::newRow("file still there") << QStringList{"warning=a", "lastword"}
                                      << QByteArray("[Warning]: a\n[Warning]: last word\n");
    QTest::newRow("file gone") << QStringList{"lastword", "warning=a"} << QByteArray("[Warning]: a\n");
    QTest::newRow("file never there") << QStringList{"lastword"} << QByteArray("[Warning]: last word\n");
}

void TestMessageHandler::speaksDuringStaticDestruction()
{
    QFETCH(QStringList, operations);
    ChildProcess child;
    QVERIFY(child.run(QStringList{"handler"} + operations));
    QTEST(child.messages(), "messages");
}

void TestMessageHandler::textIsUtf8()
{
    ChildProcess child;
    QVERIFY(child.run({"handler", "warning=\u0142\u00f3d\u017a"}));
    QCOMPARE(child.messages(), "[Warning]: \u0142\u00f3d\u017a\n");
}

REGISTER_TEST(TestMessageHandler)
#include "tst_messagehandler.moc"
