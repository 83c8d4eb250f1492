// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/programcopy.h"
#include "support/testmain.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

QProcessEnvironment withoutScreen()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    return environment;
}

/// The program of this build, running on no screen until the end of the test.
class RunningProgram : public ProgramCopy
{
public:
    RunningProgram() : ProgramCopy(QCoreApplication::applicationDirPath(), withoutScreen()) {}

    bool hasStarted() const
    {
        const QStringList lines = logLines();
        return lines.size() > 1 && lines.at(lines.size() - 2) == "Start the main event loop";
    }
    /// Whether the settings tell that this file is the latest.
    bool hasOpened(const QString &path) const
    {
        return setting("General/RecentFileList").toStringList().value(0) == path;
    }
    /// The start-up's own lines and those of the files; what the window says of its parts is left out.
    QStringList startupLines() const
    {
        static const QRegularExpression own("^(Kestrin 7 start|List of|Main window creation|Input file|Start the)");
        return logLines().filter(own);
    }
    /// Writes the documents "1" to @p count.
    QStringList makeFiles(int count) const
    {
        QStringList paths;
        for (int i = 1; i <= count; ++i)
            paths.append(writeDocument(QString::number(i), "text\n"));
        return paths;
    }
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
    void secondInstance();
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
    const QStringList files = program.makeFiles(given);
    program.launch(files);
    QTRY_VERIFY_WITH_TIMEOUT(program.hasStarted(), 60000);
    QStringList expected{"Kestrin 7 start-up phase"};
    if (given > 0)
        expected += "List of the input files processed";
    expected += "Main window creation";
    for (int i = 0; i < opened; ++i)
        expected += QStringLiteral("Input file [%1]: ").arg(i) + files.at(i);
    expected += "Start the main event loop";
    QCOMPARE(program.startupLines(), expected);
    QVERIFY(program.logLines().first().startsWith("---------"));
}

void TestStartup::otherWorkingDirectory()
{
    const QTemporaryDir elsewhere;
    RunningProgram program;
    const QStringList files = program.makeFiles(1);
    program.setWorkingDirectory(elsewhere.path());
    program.launch(files);
    QTRY_VERIFY_WITH_TIMEOUT(program.hasOpened(files.first()), 60000);
    QVERIFY(program.isRunning());
    QCOMPARE(QDir(elsewhere.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    QCOMPARE(QDir(program.folder() + "/sys/logs").entryList(QDir::Files), QStringList());
}

void TestStartup::missingDataTree()
{
    RunningProgram program;
    const QStringList files = program.makeFiles(1);
    QVERIFY(QDir(program.folder() + "/sys").removeRecursively());
    program.launch(files);
    QTRY_VERIFY_WITH_TIMEOUT(program.hasOpened(files.first()), 60000);
    QVERIFY(program.isRunning());
    QVERIFY(!QFile::exists(program.folder() + "/sys"));
}

/// Nothing keeps a second one from starting; it begins the log of the first anew.
void TestStartup::secondInstance()
{
    RunningProgram program;
    const QStringList files = program.makeFiles(2);
    program.launch({files.first()});
    QTRY_VERIFY_WITH_TIMEOUT(program.hasStarted(), 60000);
    const QString firstLine = "Input file [0]: " + files.first();
    QVERIFY(program.logLines().contains(firstLine));

    QProcess second;
    second.setProcessEnvironment(program.environment());
    second.setWorkingDirectory(program.folder());
    second.start(program.folder() + "/kestrin7", {files.last()});
    QVERIFY(second.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(program.logLines().contains("Input file [0]: " + files.last()), 60000);
    QTRY_VERIFY_WITH_TIMEOUT(program.hasStarted(), 60000);
    QVERIFY(!program.logLines().contains(firstLine));
    QVERIFY(program.isRunning());
    QCOMPARE(second.state(), QProcess::Running);
    QVERIFY(program.hasOpened(files.last()));
    second.kill();
    QVERIFY(second.waitForFinished());
}

REGISTER_TEST(TestStartup)
#include "tst_startup.moc"
