// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/childprocess.h"
#include "support/testmain.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray lastLine = "[L0 hh:mm:ss] Start the main event loop\n";

/// The program in a private folder with its data tree, running on no screen until the end of the test.
class RunningProgram
{
public:
    RunningProgram()
    {
        for (const char *part : {"sys/ltmp", "sys/logs", "sys/sysr/lg", "sys/sysr/sn"})
            QDir(folder.path()).mkpath(QString::fromLatin1(part));
        QFile::copy(QCoreApplication::applicationDirPath() + "/kestrin7", folder.filePath("kestrin7"));
        process.setWorkingDirectory(folder.path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_CONFIG_HOME", folder.path());
        process.setProcessEnvironment(environment);
    }
    ~RunningProgram()
    {
        process.kill();
        process.waitForFinished();
    }
    void start(const QStringList &arguments)
    {
        process.start(folder.filePath("kestrin7"), arguments);
        process.waitForStarted();
    }
    QByteArray log() const
    {
        QFile file(folder.filePath("sys/logs/log.dat"));
        return file.open(QIODevice::ReadOnly) ? withoutTimes(file.readAll()) : QByteArray();
    }
    bool hasStarted() const { return log().endsWith(lastLine); }
    /// True when the settings tell that a file whose path ends in @p end is the latest.
    bool hasOpened(const QByteArray &end) const
    {
        QFile settings(folder.filePath("Moorfield/Kestrin 7.conf"));
        return settings.open(QIODevice::ReadOnly) && settings.readAll().contains(end + '\n');
    }
    /// The start-up's own lines and those of the files, without prefix; what the window says of its parts is left out.
    QByteArrayList startupLines() const
    {
        static const QRegularExpression own("^(Kestrin 7 start|List of|Main window|Input file|Start the)");
        QByteArrayList lines;
        for (const QByteArray &line : log().split('\n')) {
            const QByteArray text = line.mid(static_cast<int>(qstrlen("[L0 hh:mm:ss] ")));
            if (own.match(QString::fromUtf8(text)).hasMatch())
                lines.append(text);
        }
        return lines;
    }
    /// Makes the files "1" to @p count.
    QStringList makeFiles(int count) const
    {
        QStringList names;
        for (int i = 1; i <= count; ++i) {
            names.append(QString::number(i));
            QFile file(folder.filePath(names.last()));
            if (!file.open(QIODevice::WriteOnly) || file.write("text\n") < 0)
                qFatal("cannot write a test document");
        }
        return names;
    }

    QTemporaryDir folder;
    QProcess process;
};

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void linesAreInOrder_data();
    void linesAreInOrder();
    void otherWorkingDirectory();
    void missingDataTree();
};

void TestStartup::linesAreInOrder_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("opened");
    QTest::newRow("no files") << 0 << 0;
    QTest::newRow("one file") << 1 << 1;
    QTest::newRow("twenty-five files") << 25 << 20;
}

void TestStartup::linesAreInOrder()
{
    QFETCH(int, given);
    QFETCH(int, opened);
    RunningProgram program;
    program.start(program.makeFiles(given));
    QTRY_VERIFY_WITH_TIMEOUT(program.hasStarted(), 60000);
    QByteArrayList expected{"Kestrin 7 start-up phase"};
    if (given > 0)
        expected += "List of the input files processed";
    expected += "Main window creation";
    for (int i = 0; i < opened; ++i)
        expected += "Input file [" + QByteArray::number(i) + "]: " + QByteArray::number(i + 1);
    expected += "Start the main event loop";
    QCOMPARE(program.startupLines(), expected);
    QVERIFY(program.log().startsWith("[L0 hh:mm:ss] ---------"));
}

void TestStartup::otherWorkingDirectory()
{
    const QTemporaryDir elsewhere;
    RunningProgram program;
    program.makeFiles(1);
    program.process.setWorkingDirectory(elsewhere.path());
    program.start({program.folder.filePath("1")});
    QTRY_VERIFY_WITH_TIMEOUT(program.hasOpened("/1"), 60000);
    QCOMPARE(program.process.state(), QProcess::Running);
    QCOMPARE(QDir(elsewhere.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    QCOMPARE(QDir(program.folder.filePath("sys/logs")).entryList(QDir::Files), QStringList());
}

void TestStartup::missingDataTree()
{
    RunningProgram program;
    QVERIFY(QDir(program.folder.filePath("sys")).removeRecursively());
    program.start(program.makeFiles(1));
    QTRY_VERIFY_WITH_TIMEOUT(program.hasOpened("1"), 60000);
    QCOMPARE(program.process.state(), QProcess::Running);
    QVERIFY(!QFile::exists(program.folder.filePath("sys")));
}

REGISTER_TEST(TestStartup)
#include "tst_startup.moc"
