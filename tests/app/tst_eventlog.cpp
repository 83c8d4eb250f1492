// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/childprocess.h"
#include "support/logtext.h"
#include "support/testmain.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>
#include <sys/utsname.h>

namespace {

const QByteArray infoPrefix = "[L0 hh:mm:ss] ";
const QByteArray tracePrefix = "[R6 hh:mm:ss] ";
const QByteArray endMarker = "---- RB END ----";

/// What a dump of the numbered lines @p from to @p to looks like.
QByteArray numberedLines(int from, int to)
{
    QByteArray lines;
    for (int i = from; i <= to; ++i)
        lines += tracePrefix + "line " + QByteArray::number(i) + '\n';
    return lines;
}

int systemVersion()
{
    utsname system{};
    uname(&system);
    const QByteArrayList parts = QByteArray(system.release).split('.');
    return 1000 * parts.value(0).toInt() + parts.value(1).toInt();
}

} // namespace

class TestEventLog : public QObject
{
    Q_OBJECT

private slots:
    void headerIsByteExact();
    void logLines_data();
    void logLines();
    void traceLines_data();
    void traceLines();
    void dumpHoldsTheLastLines_data();
    void dumpHoldsTheLastLines();
    void shorterDumpLeavesTheTailOfTheLonger();
    void dumpMayBeRepeated();
    void startEmptiesBothFiles();
    void stampIsThatOfThePreviousLine();
    void logReachesTheDiskLineByLine();
    void unusableLogFolderIsSilent_data();
    void unusableLogFolderIsSilent();
    void readOnlyLogFolderIsSilent();
    void fullDiskIsSilent();
    void otherWorkingDirectoryLosesTheLog();
    void crashMessageShowsABox();
};

void TestEventLog::headerIsByteExact()
{
    ChildProcess child;
    QVERIFY(child.run({"open", "header"}));
    QCOMPARE(child.output(), "1");
    const QByteArray rule(71, '-');
    const QByteArrayList lines{rule,
                               "              Generated automatically, do not modify it!               ",
                               rule,
                               "If you encounter any problem with the Kestrin 7, please send this file ",
                               "to the Kestrin 7 team (the e-mail address can be found using menu Help >>",
                               "About ). This will help to find possible bugs and improve the program. ",
                               rule,
                               "",
                               "Windows version: " + QByteArray::number(systemVersion()),
                               "Word size: 32",
                               "Byte ordering: 1",
                               ""};
    QCOMPARE(withoutTimes(child.log()), infoPrefix + lines.join('\n' + infoPrefix));
}

void TestEventLog::logLines_data()
{
    QTest::addColumn<QStringList>("operations");
    QTest::addColumn<QByteArray>("log");
    QTest::newRow("nothing") << QStringList() << QByteArray();
    QTest::newRow("one line") << QStringList{"info=Main window creation", "infoend=0"}
                              << infoPrefix + "Main window creation\n" + infoPrefix;
    QTest::newRow("pieces") << QStringList{"info=a", "info=b", "infonumber=3", "info=", "infoend=0"}
                            << infoPrefix + "ab3\n" + infoPrefix;
    QTest::newRow("number first") << QStringList{"infonumber=7", "infoend=0"} << infoPrefix + "7\n" + infoPrefix;
    QTest::newRow("other codes leave the line open")
        << QStringList{"info=a", "infoend=1", "infoend=-1", "info=b"} << infoPrefix + "ab";
    QTest::newRow("line end before any text")
        << QStringList{"infoend=0", "info=a", "infoend=0"} << '\n' + infoPrefix + infoPrefix + "a\n" + infoPrefix;
    QTest::newRow("another level shares the line start")
        << QStringList{"info=a", "infoend=0", "warn=b"} << infoPrefix + "a\n" + infoPrefix + "b\n[L1 hh:mm:ss] ";
    QTest::newRow("bytes as given") << QStringList{"info=\u0142\u00f3", "infoend=0"}
                                    << infoPrefix + QByteArray("\u0142\u00f3") + '\n' + infoPrefix;
}

void TestEventLog::logLines()
{
    QFETCH(QStringList, operations);
    ChildProcess child;
    QVERIFY(child.run(QStringList{"open"} + operations));
    QTEST(withoutTimes(child.log()), "log");
    QCOMPARE(child.dump(), QByteArray());
}

void TestEventLog::traceLines_data()
{
    QTest::addColumn<QStringList>("operations");
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("nothing") << QStringList() << QByteArray();
    QTest::newRow("one line") << QStringList{"trace=PenTool pressed", "traceend=0"}
                              << tracePrefix + "PenTool pressed\n";
    QTest::newRow("unfinished") << QStringList{"trace=a", "traceend=0", "trace=b"} << tracePrefix + "a\n";
    QTest::newRow("left open") << QStringList{"trace=a", "traceend=1", "trace=b", "traceend=0"} << tracePrefix + "ab\n";
    QTest::newRow("empty second line") << QStringList{"trace=a", "traceend=0", "traceend=0"}
                                       << tracePrefix + "a\n" + tracePrefix + '\n';
    QTest::newRow("line end before any text")
        << QStringList{"traceend=0", "trace=a", "traceend=0"} << '\n' + tracePrefix + "a\n";
    QTest::newRow("another level shares the line start")
        << QStringList{"trace=a", "traceend=0", "ownring=b", "ownring=c"} << tracePrefix + "a\nb\n[R7 hh:mm:ss] c\n";
    const QList<std::pair<QString, QByteArray>> numbers{
        {"2444", "2444"}, {"999999", "999999"},      {"1234567", "1.23457e+06"}, {"-3", "-3"},   {"0", "0"},
        {"0.5", "0.5"},   {"3.14159265", "3.14159"}, {"1e300", "1e+300"},        {"inf", "inf"}, {"0.00001", "1e-05"},
        {"-0", "-0"},     {"1000000", "1e+06"},
    };
    for (const auto &[given, printed] : numbers)
        QTest::newRow(qPrintable("number " + given))
            << QStringList{"trace=id ", "tracenumber=" + given, "traceend=0"} << tracePrefix + "id " + printed + '\n';
}

void TestEventLog::traceLines()
{
    QFETCH(QStringList, operations);
    QFETCH(QByteArray, lines);
    ChildProcess child;
    QVERIFY(child.run(QStringList{"open"} + operations + QStringList{"dump"}));
    QCOMPARE(withoutTimes(child.dump()), lines + endMarker);
    QCOMPARE(child.log(), QByteArray());
}

void TestEventLog::dumpHoldsTheLastLines_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("first");
    QTest::newRow("none") << 0 << 1;
    QTest::newRow("499") << 499 << 1;
    QTest::newRow("500") << 500 << 1;
    QTest::newRow("501") << 501 << 2;
    QTest::newRow("999") << 999 << 500;
    QTest::newRow("1000") << 1000 << 501;
    QTest::newRow("1750") << 1750 << 1251;
}

void TestEventLog::dumpHoldsTheLastLines()
{
    QFETCH(int, count);
    QFETCH(int, first);
    ChildProcess child;
    QVERIFY(child.run({"open", QStringLiteral("lines=%1").arg(count), "dump"}));
    QCOMPARE(withoutTimes(child.dump()), numberedLines(first, count) + endMarker);
}

void TestEventLog::shorterDumpLeavesTheTailOfTheLonger()
{
    // A dump only shortens when long lines are pushed out of the full ring.
    const QString text(20000, QLatin1Char('x'));
    ChildProcess child;
    QVERIFY(child.run({"open", "trace=" + text, "traceend=0", "dump", "lines=500", "dump"}));
    const QByteArray longer = tracePrefix + text.toLatin1() + '\n' + endMarker;
    const QByteArray shorter = numberedLines(1, 500) + endMarker;
    QVERIFY(shorter.size() < longer.size());
    QCOMPARE(withoutTimes(child.dump()), shorter + longer.mid(shorter.size()));
}

void TestEventLog::dumpMayBeRepeated()
{
    ChildProcess child;
    QVERIFY(child.run({"open", "lines=3", "dump", "dump", "lines=1", "dump"}));
    QCOMPARE(withoutTimes(child.dump()), numberedLines(1, 3) + numberedLines(1, 1) + endMarker);
}

void TestEventLog::startEmptiesBothFiles()
{
    ChildProcess child;
    QVERIFY(child.write("sys/logs/log.dat", "old"));
    QVERIFY(child.write("sys/logs/dumped.dat", "old"));
    QVERIFY(child.write("sys/logs/syslog.dat", "old"));
    QVERIFY(child.run({"handler", "open"}));
    QCOMPARE(child.log(), QByteArray());
    QCOMPARE(child.dump(), QByteArray());
    QCOMPARE(child.messages(), "old");
}

void TestEventLog::stampIsThatOfThePreviousLine()
{
    ChildProcess child;
    QVERIFY(child.run({"open", "info=a", "infoend=0", "pause=1100", "info=b", "infoend=0"}));
    const QByteArrayList lines = child.log().split('\n');
    QCOMPARE(lines.size(), 3);
    const auto stamp = [&lines](int line) { return QTime::fromString(QString::fromLatin1(lines.at(line).mid(4, 8))); };
    QVERIFY(stamp(0).isValid() && stamp(1).isValid() && stamp(2).isValid());
    QVERIFY(stamp(1) != stamp(2));
    QVERIFY(stamp(0).secsTo(stamp(1)) <= 1);
}

void TestEventLog::logReachesTheDiskLineByLine()
{
    ChildProcess child;
    child.start({"open", "info=a", "infoend=0", "await=go"});
    QTRY_COMPARE(withoutTimes(child.log()), infoPrefix + "a\n");
    QVERIFY(child.write("go", ""));
    QVERIFY(child.waitForEnd());
    QCOMPARE(withoutTimes(child.log()), infoPrefix + "a\n" + infoPrefix);
}

void TestEventLog::unusableLogFolderIsSilent_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"missing", "not a folder", "a pipe", "pipes in it", "folders in it"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestEventLog::unusableLogFolderIsSilent()
{
    QFETCH(QString, kind);
    ChildProcess child;
    const QDir root(child.path(QString()));
    const QStringList files{"sys/logs/log.dat", "sys/logs/dumped.dat", "sys/logs/syslog.dat"};
    if (!kind.endsWith(QLatin1String("in it")))
        QVERIFY(root.rmdir("sys/logs"));
    if (kind == QLatin1String("not a folder"))
        QVERIFY(child.write("sys/logs", "text"));
    if (kind == QLatin1String("a pipe"))
        QCOMPARE(mkfifo(qPrintable(child.path("sys/logs")), 0600), 0);
    for (const QString &file : files) {
        if (kind == QLatin1String("pipes in it"))
            QCOMPARE(mkfifo(qPrintable(child.path(file)), 0600), 0);
        if (kind == QLatin1String("folders in it"))
            QVERIFY(root.mkdir(file));
    }
    child.process().setProcessChannelMode(QProcess::SeparateChannels);
    QVERIFY(child.run({"handler", "open", "header", "info=a", "infoend=0", "warning=w", "lines=600", "dump", "dump"}));
    QCOMPARE(child.output(), "0");
    QCOMPARE(child.process().readAllStandardError(), QByteArray());
    if (kind == QLatin1String("missing"))
        QVERIFY(!root.exists("sys/logs"));
}

void TestEventLog::readOnlyLogFolderIsSilent()
{
    ChildProcess child(ChildProcess::Plain);
    const auto readable = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(child.path(QString()), readable | QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(child.path("sys/logs"), readable));
    QVERIFY(child.run({"droprights", "handler", "open", "header", "warning=w", "lines=600", "dump"}));
    QCOMPARE(child.output(), "0");
    QCOMPARE(QDir(child.path("sys/logs")).entryList(QDir::Files), QStringList());
}

void TestEventLog::fullDiskIsSilent()
{
    ChildProcess child;
    for (const char *file : {"sys/logs/log.dat", "sys/logs/dumped.dat", "sys/logs/syslog.dat"})
        QVERIFY(QFile::link("/dev/full", child.path(file)));
    child.process().setProcessChannelMode(QProcess::SeparateChannels);
    QVERIFY(child.run({"handler", "open", "header", "warning=w", "threads=2", "lines=600", "dump", "dump"}));
    QCOMPARE(child.output(), "1");
    QCOMPARE(child.process().readAllStandardError(), QByteArray());
}

void TestEventLog::otherWorkingDirectoryLosesTheLog()
{
    ChildProcess child;
    QVERIFY(child.run({"chdir=/", "handler", "open", "header", "warning=w", "lines=3", "dump"}));
    QCOMPARE(child.output(), "00");
    QCOMPARE(QDir(child.path("sys/logs")).entryList(QDir::Files), QStringList());
    QVERIFY(!QFile::exists("/sys/logs"));
}

void TestEventLog::crashMessageShowsABox()
{
    ChildProcess child;
    QVERIFY(child.run({"open", "application", "lines=2", "crashmessage"}));
    QCOMPARE(child.output(),
             "1critical|Application Crashed|Ooops, Kestrin 7 crashed! Please, send files 'sys\\logs\\dumped.dat' and   "
             "    'sys\\logs\\log.dat' to the Kestrin 7 support team. This will help to find the reason of this "
             "behavior.|ok");
    QCOMPARE(withoutTimes(child.dump()), numberedLines(1, 2) + endMarker);
}

REGISTER_TEST(TestEventLog)
#include "tst_eventlog.moc"
