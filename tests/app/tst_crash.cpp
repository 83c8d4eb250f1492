// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/childprocess.h"
#include "support/logtext.h"
#include "support/testmain.h"

#include <QFile>
#include <QTest>

#include <csignal>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

const QByteArray endMarker = "---- RB END ----";
const QByteArray crashTitle = "Application Crashed";
const QByteArray crashText =
    "Ooops, Kestrin 7 crashed! Please, send files 'sys\\logs\\dumped.dat' and       'sys\\logs\\log.dat' to the "
    "Kestrin 7 support team. This will help to find the reason of this behavior.";
/// Writes down what it was called with, and how much of the record was there by then.
const QByteArray noteTaker = "printf '%s|' \"$#\" \"$1\" \"$2\" >box\ncp sys/logs/dumped.dat record\n";

/// Stays until the file "ok" appears, or the folder goes with a failed test.
const QByteArray patientBox = "touch shown\nuntil [ -e ok ] || [ ! -e shown ]; do sleep 0.01; done\ntouch closed\n";

QByteArray record(int lines)
{
    QByteArray text;
    for (int i = 1; i <= lines; ++i)
        text += "[R6 hh:mm:ss] line " + QByteArray::number(i) + '\n';
    return text + endMarker;
}

/// A socket to which one child can connect.
class Listener
{
public:
    explicit Listener(const QString &path)
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray name = path.toLocal8Bit();
        std::copy_n(name.begin(), name.size(), address.sun_path);
        listener = socket(AF_UNIX, SOCK_STREAM, 0);
        bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof address);
        listen(listener, 1);
    }
    ~Listener()
    {
        close(connection);
        close(listener);
    }
    void accept() { connection = ::accept(listener, nullptr, nullptr); }
    bool isHungUp() const
    {
        char byte = 0;
        return recv(connection, &byte, 1, MSG_DONTWAIT) == 0;
    }

private:
    int listener = -1;
    int connection = -1;
};

} // namespace

Q_DECLARE_METATYPE(ChildProcess::Build)

class TestCrash : public QObject
{
    Q_OBJECT

private slots:
    void faultLeavesARecordAndABox_data();
    void faultLeavesARecordAndABox();
    void longRecordIsWhole();
    void recordGoesOverAnEarlierDump();
    void recordIsFoundFromElsewhere();
    void missingHelperIsNoHindrance();
    void missingDisplayIsNoHindrance();
    void brokenHelperIsNoHindrance();
    void waitsForTheBox();
    void doesNotWaitForever();
    void secondFaultEndsItAtOnce();
    void letsGoOfTheDisplay();
    void unusableDumpFile_data();
    void unusableDumpFile();
    void boxSpeaksTheLanguageOfTheWindow_data();
    void boxSpeaksTheLanguageOfTheWindow();
    void afterMainNothingIsRecorded();
    void helperWantsTwoTexts_data();
    void helperWantsTwoTexts();
};

void TestCrash::faultLeavesARecordAndABox_data()
{
    QTest::addColumn<ChildProcess::Build>("build");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("number");
    const QList<std::pair<QString, int>> faults{
        {"null", SIGSEGV},
        {"overflow", SIGSEGV},
        {"abort", SIGABRT},
        {"exception", SIGABRT},
        {"kill", SIGSEGV},
        {"thread", SIGSEGV},
        {QString::number(SIGBUS), SIGBUS},
        {QString::number(SIGFPE), SIGFPE},
        {QString::number(SIGILL), SIGILL},
    };
    for (const auto &[fault, number] : faults) {
        QTest::newRow(qPrintable(fault + " plain")) << ChildProcess::Plain << fault << number;
        QTest::newRow(qPrintable(fault + " sanitized")) << ChildProcess::Sanitized << fault << number;
    }
    QTest::newRow("heap plain") << ChildProcess::Plain << "heap" << SIGABRT;
}

void TestCrash::faultLeavesARecordAndABox()
{
    QFETCH(ChildProcess::Build, build);
    QFETCH(QString, fault);
    QFETCH(int, number);
    ChildProcess child(build);
    QVERIFY(child.replaceCrashBox(noteTaker));
    child.process().setProcessChannelMode(QProcess::SeparateChannels);
    child.run({"hook=60", "handler", "open", "header", "application", "lines=3", "trace=unfinished", "fault=" + fault});
    QCOMPARE(child.endedBy(), number);
    QCOMPARE(withoutTimes(child.dump()), record(3));
    QCOMPARE(withoutTimes(child.read("record")), record(3));
    QCOMPARE(child.read("box"), "2|" + crashTitle + '|' + crashText + '|');
    QVERIFY(withoutTimes(child.log()).endsWith("[L0 hh:mm:ss] Byte ordering: 1\n"));
}

void TestCrash::longRecordIsWhole()
{
    ChildProcess child;
    const QString text(5000, QLatin1Char('x'));
    child.run({"hook=60", "open", "lines=700", "trace=" + text, "traceend=0", "fault=null"});
    QCOMPARE(child.endedBy(), SIGSEGV);
    QByteArray expected = record(700);
    for (int dropped = 1; dropped <= 201; ++dropped)
        expected.remove(0, expected.indexOf('\n') + 1);
    expected.insert(expected.size() - endMarker.size(), "[R6 hh:mm:ss] " + text.toLatin1() + '\n');
    QCOMPARE(withoutTimes(child.dump()), expected);
}

void TestCrash::recordGoesOverAnEarlierDump()
{
    ChildProcess child;
    child.run({"hook=60", "open", "lines=2", "dump", "lines=1", "fault=null"});
    QCOMPARE(child.endedBy(), SIGSEGV);
    QCOMPARE(withoutTimes(child.dump()), "[R6 hh:mm:ss] line 1\n[R6 hh:mm:ss] line 2\n" + record(1));
}

void TestCrash::recordIsFoundFromElsewhere()
{
    ChildProcess child;
    QVERIFY(child.replaceCrashBox("touch \"$(dirname \"$0\")/box\"\n"));
    child.run({"hook=60", "open", "lines=3", "chdir=/", "fault=null"});
    QCOMPARE(child.endedBy(), SIGSEGV);
    QCOMPARE(withoutTimes(child.dump()), record(3));
    QVERIFY(QFile::exists(child.path("box")));
}

void TestCrash::missingHelperIsNoHindrance()
{
    ChildProcess child;
    child.run({"hook=60", "open", "lines=3", "fault=null"});
    QCOMPARE(child.endedBy(), SIGSEGV);
    QCOMPARE(withoutTimes(child.dump()), record(3));
}

void TestCrash::missingDisplayIsNoHindrance()
{
    ChildProcess child;
    const QString helper = QCoreApplication::applicationDirPath() + "/kestrin7-crashbox";
    QVERIFY(QFile::copy(helper, child.path("kestrin7-crashbox")));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    environment.insert("QT_QPA_PLATFORM", "xcb");
    child.process().setProcessEnvironment(environment);
    child.process().setProcessChannelMode(QProcess::SeparateChannels);
    child.run({"hook=600", "open", "lines=3", "fault=null"});
    QCOMPARE(child.endedBy(), SIGSEGV);
    QCOMPARE(withoutTimes(child.dump()), record(3));
}

void TestCrash::brokenHelperIsNoHindrance()
{
    ChildProcess child;
    QVERIFY(child.replaceCrashBox("kill -SEGV $$\n"));
    child.run({"hook=600", "open", "lines=3", "fault=abort"});
    QCOMPARE(child.endedBy(), SIGABRT);
    QCOMPARE(withoutTimes(child.dump()), record(3));
}

void TestCrash::waitsForTheBox()
{
    ChildProcess child;
    QVERIFY(child.replaceCrashBox(patientBox));
    child.start({"hook=600", "open", "lines=3", "fault=null"});
    QTRY_VERIFY(QFile::exists(child.path("shown")));
    QCOMPARE(withoutTimes(child.dump()), record(3));
    QVERIFY(child.process().state() == QProcess::Running);
    QVERIFY(child.write("ok", ""));
    QVERIFY(child.waitForEnd());
    QVERIFY(QFile::exists(child.path("closed")));
    QCOMPARE(child.endedBy(), SIGSEGV);
}

void TestCrash::doesNotWaitForever()
{
    ChildProcess child;
    QVERIFY(child.replaceCrashBox(patientBox));
    child.start({"hook=1", "open", "lines=3", "fault=null"});
    QVERIFY(child.waitForEnd());
    QCOMPARE(child.endedBy(), SIGSEGV);
    QCOMPARE(withoutTimes(child.dump()), record(3));
    // The box itself stays until it is closed.
    QVERIFY(!QFile::exists(child.path("closed")));
    QVERIFY(child.write("ok", ""));
    QTRY_VERIFY(QFile::exists(child.path("closed")));
}

void TestCrash::secondFaultEndsItAtOnce()
{
    ChildProcess child;
    QVERIFY(child.replaceCrashBox(patientBox));
    child.start({"hook=600", "open", "lines=3", "fault=null"});
    QTRY_VERIFY(QFile::exists(child.path("shown")));
    kill(static_cast<pid_t>(child.process().processId()), SIGBUS);
    QVERIFY(child.waitForEnd());
    QCOMPARE(child.endedBy(), SIGBUS);
    QCOMPARE(withoutTimes(child.dump()), record(3));
    QVERIFY(child.write("ok", ""));
    QTRY_VERIFY(QFile::exists(child.path("closed")));
}

void TestCrash::letsGoOfTheDisplay()
{
    ChildProcess child;
    Listener display(child.path("display"));
    QVERIFY(child.replaceCrashBox(patientBox));
    child.start({"hook=600", "open", "connect=display", "await=go", "fault=null"});
    display.accept();
    QVERIFY(!display.isHungUp());
    QVERIFY(child.write("go", ""));
    QTRY_VERIFY(QFile::exists(child.path("shown")));
    QVERIFY(display.isHungUp());
    QVERIFY(child.process().state() == QProcess::Running);
    QVERIFY(child.write("ok", ""));
    QVERIFY(child.waitForEnd());
    QCOMPARE(child.endedBy(), SIGSEGV);
}

void TestCrash::unusableDumpFile_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"folder missing", "pipe", "full disk"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestCrash::unusableDumpFile()
{
    QFETCH(QString, kind);
    ChildProcess child;
    QVERIFY(child.replaceCrashBox("touch box\n"));
    const QString dumpFile = child.path("sys/logs/dumped.dat");
    if (kind == QLatin1String("folder missing"))
        QVERIFY(QFile::rename(child.path("sys/logs"), child.path("sys/elsewhere")));
    else if (kind == QLatin1String("pipe"))
        QCOMPARE(mkfifo(qPrintable(dumpFile), 0600), 0);
    else
        QVERIFY(QFile::link("/dev/full", dumpFile));
    child.run({"hook=60", "open", "lines=3", "fault=null"});
    QCOMPARE(child.endedBy(), SIGSEGV);
    QVERIFY(QFile::exists(child.path("box")));
}

void TestCrash::boxSpeaksTheLanguageOfTheWindow_data()
{
    QTest::addColumn<QStringList>("operations");
    QTest::newRow("known before") << QStringList{"translate", "follow"};
    QTest::newRow("changed later") << QStringList{"follow", "translate"};
}

void TestCrash::boxSpeaksTheLanguageOfTheWindow()
{
    QFETCH(const QStringList, operations);
    ChildProcess child;
    QVERIFY(child.replaceCrashBox(noteTaker));
    child.run(QStringList{"hook=60", "open", "application"} + operations + QStringList{"fault=null"});
    QCOMPARE(child.endedBy(), SIGSEGV);
    QCOMPARE(child.read("box"), "2|<" + crashTitle + ">|<" + crashText + ">|");
}

void TestCrash::afterMainNothingIsRecorded()
{
    ChildProcess child;
    QVERIFY(child.replaceCrashBox("touch box\n"));
    child.run({"lastword=fault", "hook=60", "open", "lines=2", "dump", "lines=1"});
    QCOMPARE(child.endedBy(), SIGSEGV);
    QCOMPARE(withoutTimes(child.dump()), record(2));
    QVERIFY(!QFile::exists(child.path("box")));
}

void TestCrash::helperWantsTwoTexts_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("one") << QStringList{"title"};
    QTest::newRow("three") << QStringList{"title", "text", "more"};
}

void TestCrash::helperWantsTwoTexts()
{
    QFETCH(QStringList, arguments);
    QProcess helper;
    helper.start(QCoreApplication::applicationDirPath() + "/kestrin7-crashbox", arguments);
    QVERIFY(helper.waitForFinished());
    QCOMPARE(helper.exitStatus(), QProcess::NormalExit);
    QCOMPARE(helper.exitCode(), 1);
}

REGISTER_TEST(TestCrash)
#include "tst_crash.moc"
