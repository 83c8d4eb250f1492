// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"
#include "support/testmain.h"

#include <QDir>
#include <QPainter>
#include <QTest>

#include <csignal>

/// The real binary from start to end: command line, logs, folders, crash record.
class TestStartStop : public QObject
{
    Q_OBJECT

private slots:
    void startsWithoutFiles();
    void opensFilesOfTheCommandLine();
    void usesTwentyArgumentsAtMost();
    void logsNothingFromAnotherFolder();
    void findsTranslationsFromAnotherFolder();
    void findsSyntaxFilesFromAnotherFolder();
    void emptiesTheTemporaryFolder();
    void keepsWindowGeometry();
    void endsFromFullScreen();
    void countsArgumentsNotFiles();
    void secondInstanceEmptiesTheLogs();
    void leavesACompleteRecordWhenKilled();

private:
    XSession m_session;
};

static QByteArray picture(QSize size, QColor color)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("picture.png"));
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    image.save(path);
    return InstalledProgram::read(path);
}

static int countColor(const QImage &image, QColor color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == color.rgb() ? 1 : 0;
    }
    return count;
}

/// Pixels that are no shade of grey.
static int countColors(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y).saturation() > 100 ? 1 : 0;
    }
    return count;
}

void TestStartStop::startsWithoutFiles()
{
    InstalledProgram program(m_session);
    QVERIFY(!program.start().isEmpty());
    QCOMPARE(m_session.title(program.window()), QStringLiteral("Kestrin 7"));
    QVERIFY(program.closeRegularly());

    const QStringList lines = program.logLines();
    QVERIFY(lines.size() > 20);
    QCOMPARE(lines.at(0), QString(71, '-'));
    QCOMPARE(lines.at(8).section(':', 0, 0), QStringLiteral("Windows version"));
    QCOMPARE(lines.at(9), QStringLiteral("Word size: 32"));
    QCOMPARE(lines.at(10), QStringLiteral("Byte ordering: 1"));
    QCOMPARE(lines.at(11), QStringLiteral("Kestrin 7 start-up phase"));
    QCOMPARE(lines.at(12), QStringLiteral("Main window creation"));
    QVERIFY(!lines.join('\n').contains(QLatin1String("List of the input files processed")));
    // The prefix of a line that never came.
    QVERIFY(!lines.last().isNull());
    QCOMPARE(lines.last(), QString());
    QCOMPARE(lines.at(lines.size() - 2), QStringLiteral("Start the main event loop"));

    const QByteArray dump = InstalledProgram::read(program.folder() + "/sys/logs/dumped.dat");
    QVERIFY(dump.startsWith("[R6 "));
    QVERIFY(dump.endsWith("\n---- RB END ----"));
    QCOMPARE(program.setting(QStringLiteral("Other/AppLanguage")).toString(), QStringLiteral("default"));
}

void TestStartStop::opensFilesOfTheCommandLine()
{
    InstalledProgram program(m_session);
    const QString source = program.writeDocument(QStringLiteral("page.cpp"), "int main()\n{\n    return 0;\n}\n");
    const QString notes = program.writeDocument(QStringLiteral("R\u00e9sum\u00e9 50% done.md"), "# Notes\n");
    const QColor green(12, 200, 40);
    const QString photo = program.writeDocument(QStringLiteral("photo.png"), picture(QSize(300, 200), green));
    QVERIFY(!program.start({source, notes, photo, source}).isEmpty());
    // The second mention of the source brings its tab forward without another tab or a new title entry.
    QTRY_VERIFY(m_session.title(program.window()).startsWith(QLatin1String("Kestrin 7 [") + source));
    // Three tabs: closing three times ends with the bare title, closing twice does not.
    m_session.key(QStringLiteral("ctrl+w"));
    QTRY_VERIFY(m_session.title(program.window()).contains(notes));
    m_session.key(QStringLiteral("ctrl+w"));
    QTRY_VERIFY(m_session.title(program.window()).contains(photo));
    QTRY_COMPARE(countColor(m_session.grab(), green), 300 * 200);
    m_session.key(QStringLiteral("ctrl+w"));
    QTRY_COMPARE(m_session.title(program.window()), QStringLiteral("Kestrin 7"));
    QVERIFY(program.closeRegularly());

    const QString log = program.logLines().join('\n');
    QVERIFY(log.contains(QLatin1String("List of the input files processed")));
    QVERIFY(log.contains(QLatin1String("Input file [0]: ") + source));
    QVERIFY(log.contains(QLatin1String("Input file [2]: ") + photo));
    const QStringList recent = program.setting(QStringLiteral("General/RecentFileList")).toStringList();
    QCOMPARE(recent, QStringList({photo, notes, source}));
}

void TestStartStop::usesTwentyArgumentsAtMost()
{
    InstalledProgram program(m_session);
    QStringList files;
    for (int i = 1; i <= 22; ++i)
        files.append(program.writeDocument(QStringLiteral("file%1.txt").arg(i), QByteArray::number(i)));
    QVERIFY(!program.start(files).isEmpty());
    QTRY_COMPARE(m_session.title(program.window()), QStringLiteral("Kestrin 7 [%1]").arg(files.at(19)));
    QVERIFY(program.closeRegularly());
    const QString log = program.logLines().join('\n');
    QVERIFY(log.contains(QLatin1String("Input file [19]: ")));
    QVERIFY(!log.contains(QLatin1String("Input file [20]: ")));
}

void TestStartStop::logsNothingFromAnotherFolder()
{
    InstalledProgram program(m_session);
    const QTemporaryDir elsewhere;
    program.setWorkingDirectory(elsewhere.path());
    QVERIFY(!program.start().isEmpty());
    QVERIFY(program.closeRegularly());
    QVERIFY(QDir(elsewhere.path()).isEmpty());
    QVERIFY(QDir(program.folder() + "/sys/logs").isEmpty());
}

void TestStartStop::findsTranslationsFromAnotherFolder()
{
    InstalledProgram program(m_session);
    const QString source = program.writeDocument(QStringLiteral("scrivara_pl.ts"), R"(<!DOCTYPE TS>
<TS version="2.1" language="pl"><context><name>Scrivara</name>
<message><source>Open File</source><translation>Otworz ten plik</translation></message>
</context></TS>)");
    const QString target = program.folder() + QStringLiteral("/sys/sysr/lg/scrivara_pl.qm");
    QCOMPARE(QProcess::execute(QStringLiteral(KESTRIN_LRELEASE), {"-silent", source, "-qm", target}), 0);
    program.setSetting(QStringLiteral("Other/AppLanguage"), QStringLiteral("pl"));
    const QTemporaryDir elsewhere;
    program.setWorkingDirectory(elsewhere.path());
    QVERIFY(!program.start().isEmpty());
    m_session.waitUntilQuiet();
    m_session.key(QStringLiteral("ctrl+o"));
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Otworz ten plik$")).isEmpty());
    m_session.key(QStringLiteral("Escape"));
    QVERIFY(program.closeRegularly());
}

void TestStartStop::findsSyntaxFilesFromAnotherFolder()
{
    InstalledProgram program(m_session);
    const QTemporaryDir elsewhere;
    program.setWorkingDirectory(elsewhere.path());
    const QByteArray text("return return return return\nreturn return return return\n");
    const QString plain = program.writeDocument(QStringLiteral("a.unknown"), text);
    QVERIFY(!program.start({plain, program.writeDocument(QStringLiteral("a.cpp"), text)}).isEmpty());
    // The keyword stands in the colour of its definition, and in black where there is none.
    m_session.waitUntilQuiet();
    const auto colors = [&] { return countColors(m_session.grab().copy(70, 85, 250, 60)); };
    QTRY_VERIFY(colors() > 0);
    m_session.key(QStringLiteral("ctrl+w"));
    QTRY_VERIFY(m_session.title(program.window()).contains(plain));
    QTRY_COMPARE(colors(), 0);
    QVERIFY(program.closeRegularly());
}

void TestStartStop::emptiesTheTemporaryFolder()
{
    InstalledProgram program(m_session);
    QVERIFY(!program.start().isEmpty());
    const QDir temporary(program.folder() + QStringLiteral("/sys/ltmp"));
    QVERIFY(temporary.mkdir(QStringLiteral("kept")));
    QFile inside(temporary.filePath(QStringLiteral("kept/inside.txt")));
    QVERIFY(inside.open(QIODevice::WriteOnly));
    inside.close();
    QFile attachment(temporary.filePath(QStringLiteral("attachment.png")));
    QVERIFY(attachment.open(QIODevice::WriteOnly));
    attachment.close();
    QVERIFY(program.closeRegularly());
    QCOMPARE(temporary.entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(QStringLiteral("kept")));
    QVERIFY2(inside.exists(), "folders are left as they are");
}

void TestStartStop::keepsWindowGeometry()
{
    InstalledProgram program(m_session);
    program.setSetting(QStringLiteral("General/WindowMaximized"), false);
    program.setSetting(QStringLiteral("General/WindowSize"), QSize(900, 600));
    program.setSetting(QStringLiteral("General/WindowPosition"), QPoint(120, 90));
    QVERIFY(!program.start().isEmpty());
    QTRY_COMPARE(m_session.geometry(program.window()).size(), QSize(900, 600));
    QVERIFY(program.closeRegularly());
    QCOMPARE(program.setting(QStringLiteral("General/WindowSize")).toSize(), QSize(900, 600));
    QCOMPARE(program.setting(QStringLiteral("General/WindowPosition")).toPoint(), QPoint(120, 90));
    QCOMPARE(program.setting(QStringLiteral("General/WindowMaximized")).toBool(), false);
}

void TestStartStop::endsFromFullScreen()
{
    InstalledProgram program(m_session);
    program.setSetting(QStringLiteral("Other/FullscreenAtStart"), true);
    QVERIFY(!program.start({program.writeDocument(QStringLiteral("a.txt"), "a\n")}).isEmpty());
    QTRY_COMPARE(m_session.geometry(program.window()), m_session.grab().rect());
    QVERIFY(program.closeRegularly());
}

void TestStartStop::countsArgumentsNotFiles()
{
    InstalledProgram program(m_session);
    const QString first = program.writeDocument(QStringLiteral("first.txt"), "1\n");
    QStringList files(19, first);
    files.append(program.writeDocument(QStringLiteral("second.txt"), "2\n"));
    files.append(program.writeDocument(QStringLiteral("third.txt"), "3\n"));
    QVERIFY(!program.start(files).isEmpty());
    QTRY_COMPARE(m_session.title(program.window()), QStringLiteral("Kestrin 7 [%1]").arg(files.at(19)));
    QVERIFY(program.closeRegularly());
    QCOMPARE(program.setting(QStringLiteral("General/RecentFileList")).toStringList(),
             QStringList({files.at(19), first}));
}

/// Nothing keeps a second run from using the same log files: it begins them anew.
void TestStartStop::secondInstanceEmptiesTheLogs()
{
    InstalledProgram program(m_session);
    const QString marked = program.writeDocument(QStringLiteral("of the first.txt"), "1\n");
    QVERIFY(!program.start({marked}).isEmpty());
    QTRY_VERIFY(program.logLines().contains(QLatin1String("Start the main event loop")));
    QVERIFY(program.logLines().join('\n').contains(marked));

    QProcess second;
    second.setProcessEnvironment(program.environment());
    second.setWorkingDirectory(program.folder());
    second.start(program.folder() + QStringLiteral("/kestrin7"), QStringList());
    const QString window = m_session.waitForWindow(QStringLiteral("^Kestrin 7$"));
    QVERIFY2(!window.isEmpty(), "it runs beside the first");
    QVERIFY(program.isRunning());
    QTRY_COMPARE(program.logLines().filter(QStringLiteral("Kestrin 7 start-up phase")).size(), 1);
    QVERIFY(!program.logLines().join('\n').contains(marked));
    QCOMPARE(InstalledProgram::read(program.folder() + "/sys/logs/dumped.dat"), QByteArray());
    m_session.close(window);
    QVERIFY(second.waitForFinished());
    QCOMPARE(second.exitCode(), 0);
    QVERIFY(InstalledProgram::read(program.folder() + "/sys/logs/dumped.dat").endsWith("\n---- RB END ----"));
    QVERIFY(program.closeRegularly());
}

void TestStartStop::leavesACompleteRecordWhenKilled()
{
    InstalledProgram program(m_session);
    QVERIFY(!program.start().isEmpty());
    QFile attachment(program.folder() + QStringLiteral("/sys/ltmp/attachment.png"));
    QVERIFY(attachment.open(QIODevice::WriteOnly));
    attachment.close();
    ::kill(static_cast<pid_t>(program.processId()), SIGSEGV);
    const QString box = m_session.waitForWindow(QStringLiteral("^Application Crashed$"));
    QVERIFY2(!box.isEmpty(), "the crash is told");
    const QByteArray dump = InstalledProgram::read(program.folder() + "/sys/logs/dumped.dat");
    QVERIFY(dump.startsWith("[R6 "));
    QVERIFY(dump.endsWith("\n---- RB END ----"));
    QVERIFY(dump.contains("Updating menus"));
    QVERIFY2(program.isRunning(), "the process waits for the box");
    m_session.key(QStringLiteral("Return"));
    QVERIFY(program.waitForExit());
    QCOMPARE(program.exitStatus(), QProcess::CrashExit);
    QVERIFY2(!program.setting(QStringLiteral("Other/AppLanguage")).isValid(), "settings are not saved after a crash");
    QVERIFY2(attachment.exists(), "nothing is cleaned up after a crash");
    QVERIFY(!program.start().isEmpty());
    QVERIFY(program.closeRegularly());
    QVERIFY(!attachment.exists());
}

REGISTER_TEST(TestStartStop)
#include "tst_startstop.moc"
