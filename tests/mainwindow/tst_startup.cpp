// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QDialog>
#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

namespace {

/// Set in the process of its own that a test starts with a larger screen.
constexpr char largeScreen[] = "KESTRIN_TEST_LARGE_SCREEN";

/// Windows that the window system has on the screen.
QStringList mappedWindows()
{
    QStringList names;
    for (const QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible())
            names.append(window->objectName());
    }
    return names;
}

/// The quoted lines of the log, without the entry and leave lines of methods.
QStringList plainLines(const QStringList &lines)
{
    static const QRegularExpression bracket(QStringLiteral("^(Scv | <=> )\\d+$"));
    QStringList plain;
    for (const QString &line : lines) {
        if (!line.isEmpty() && !bracket.match(line).hasMatch())
            plain.append(line);
    }
    return plain;
}

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void logLines();
    void everyConstructionStepIsTraced();
    void nothingIsMappedBeforeShowWindow();
    void floatingBarWaitsForTheWindow();
    void floatingToolBarWaitsForTheWindow();
    void showWindowMaximized();
    void showWindowFromGeometry();
    void showWindowDefaultGeometry();
    void notCentredOnASmallScreen();
    void centredOnALargerScreen();
    void applicationNames();
    void withoutFiles();
    void opensListedFiles();
    void sameFileTwice();
    void relativeNameBecomesFull();
    void missingFileIsSkipped();
    void onlyMissingFiles();
    void emptyStackIsReplaced();
    void updatesStateOnlyWithFiles();
    void folderPaths();
    void closesWithDocumentsOpen();
};

void TestStartup::init()
{
    QSettings().clear();
}

void TestStartup::logLines()
{
    const TestFiles files;
    const QString first = files.write(QStringLiteral("a.txt"));
    const QString second = files.write(QStringLiteral("b.txt"));
    const LogProbe log;
    const WindowProbe window({first, second});
    const QStringList lines = plainLines(log.info());
    const QStringList expected{"start",
                               "Main area created, recent files initialized",
                               "Toolbars created",
                               "GUI built",
                               "All actions initialized",
                               "Active elements initialized",
                               "StatusBar initialized",
                               "Popup menus created",
                               "Tools created",
                               "Default state setup",
                               "Settings loaded",
                               "Menus updated",
                               "Input file [0]: " + first,
                               "Input file [1]: " + second};
    QCOMPARE(lines.mid(0, expected.size()), expected);
    QCOMPARE(lines.size(), expected.size() + 2);
    const QRegularExpression built(
        QStringLiteral("^Time stamp 1: [A-Z][a-z]{2} [ \\d]\\d \\d{4} \\d\\d:\\d\\d:\\d\\d$"));
    QVERIFY2(built.match(lines.at(expected.size())).hasMatch(), qPrintable(lines.at(expected.size())));
    QVERIFY(lines.last().startsWith(QLatin1String("Time stamp 2: ")));
    QVERIFY(lines.last().endsWith(QString::number(QDate::currentDate().year())));
}

void TestStartup::everyConstructionStepIsTraced()
{
    const LogProbe log;
    const WindowProbe window;
    const QRegularExpression enter(QStringLiteral("^Scv \\d+$"));
    const QRegularExpression leave(QStringLiteral("^ <=> \\d+$"));
    const QStringList lines = log.info();
    QVERIFY(lines.filter(enter).size() > 10);
    QCOMPARE(lines.filter(leave).size(), lines.filter(enter).size());
}

void TestStartup::nothingIsMappedBeforeShowWindow()
{
    const TestFiles files;
    WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QCOMPARE(mappedWindows(), QStringList());
    QVERIFY(window->isVisible());
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QCOMPARE(mappedWindows().size(), 1);
    QVERIFY(window->windowHandle()->isVisible());
    window->close();
    QTRY_COMPARE(mappedWindows(), QStringList());
}

void TestStartup::floatingBarWaitsForTheWindow()
{
    QSettings().setValue(QStringLiteral("Other/FullscreenAtStart"), true);
    WindowProbe window;
    QVERIFY(window->isFullScreen());
    QCOMPARE(mappedWindows(), QStringList());
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QCOMPARE(mappedWindows().size(), 2);
    QVERIFY(window->windowState().testFlag(Qt::WindowFullScreen));
    window->fullScreenMode(false);
    QTRY_COMPARE(mappedWindows().size(), 1);
}

void TestStartup::floatingToolBarWaitsForTheWindow()
{
    {
        WindowProbe window;
        window->showWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&*window));
        window.bar("ScvEditToolBar")->setWindowFlag(Qt::Tool);
        window.bar("ScvEditToolBar")->show();
        QVERIFY(window.bar("ScvEditToolBar")->isFloating());
        window->close();
    }
    WindowProbe window;
    QVERIFY(window.bar("ScvEditToolBar")->isFloating());
    QCOMPARE(mappedWindows(), QStringList());
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QTRY_COMPARE(mappedWindows().size(), 2);
}

void TestStartup::showWindowMaximized()
{
    QSettings settings;
    settings.setValue(QStringLiteral("General/WindowSize"), QSize(1300, 900));
    settings.setValue(QStringLiteral("General/WindowPosition"), QPoint(20, 30));
    WindowProbe window;
    const QSize sizeBefore = window->size();
    window->showWindow();
    QVERIFY(window->isMaximized());
    // Neither is applied: not even to what the window goes back to.
    QCOMPARE(window->normalGeometry(), QRect(QPoint(0, 0), sizeBefore));
    window->showNormal();
    QTRY_COMPARE(window->size(), sizeBefore);
}

void TestStartup::showWindowFromGeometry()
{
    QSettings settings;
    settings.setValue(QStringLiteral("General/WindowMaximized"), false);
    settings.setValue(QStringLiteral("General/WindowSize"), QSize(700, 500));
    settings.setValue(QStringLiteral("General/WindowPosition"), QPoint(20, 30));
    WindowProbe window;
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QVERIFY(!window->isMaximized());
    QCOMPARE(window->size(), QSize(700, 500));
    QTRY_COMPARE(window->pos(), QPoint(20, 30));
}

void TestStartup::showWindowDefaultGeometry()
{
    QSettings().setValue(QStringLiteral("General/WindowMaximized"), false);
    WindowProbe window;
    window->showWindow();
    QCOMPARE(window->size(), QSize(1000, 800));
    QTRY_COMPARE(window->pos(), QPoint(50, 50));
}

/// The usual screen of the tests is as wide as the window: there is no room to centre it in.
void TestStartup::notCentredOnASmallScreen()
{
    QVERIFY(QGuiApplication::primaryScreen()->availableGeometry().width() <= 801);
    const WindowProbe window;
    QCOMPARE(window->pos(), QPoint(0, 0));
}

void TestStartup::centredOnALargerScreen()
{
    if (qEnvironmentVariableIsSet(largeScreen)) {
        QCOMPARE(QGuiApplication::primaryScreen()->availableGeometry(), QRect(0, 0, 1601, 1201));
        const WindowProbe window;
        QCOMPARE(window->pos(), QPoint((1601 - 800) / 2, (1201 - 617) / 2));
        return;
    }
    // The screen is chosen when a process starts.
    const TestFiles files;
    const QString screens = files.write(QStringLiteral("screens.json"),
                                        R"({"screens": [{"name": "large", "width": 1601, "height": 1201}]})");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(largeScreen), QStringLiteral("1"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen:configfile=") + screens);
    QProcess run;
    run.setProcessEnvironment(environment);
    run.setProcessChannelMode(QProcess::MergedChannels);
    run.start(QCoreApplication::applicationFilePath(), {"startup", QTest::currentTestFunction()});
    QVERIFY(run.waitForFinished(60000));
    const QByteArray output = run.readAll();
    QVERIFY2(run.exitStatus() == QProcess::NormalExit && run.exitCode() == 0, output.constData());
    QVERIFY2(output.contains("PASS   : TestStartup::centredOnALargerScreen()"), output.constData());
}

void TestStartup::applicationNames()
{
    const WindowProbe window;
    QCOMPARE(QCoreApplication::organizationName(), QStringLiteral("Moorfield"));
    QCOMPARE(QCoreApplication::organizationDomain(), QStringLiteral("moorfield.example"));
    QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("Kestrin 7"));
    QCOMPARE(window->windowTitle(), QStringLiteral("Kestrin 7"));
    QCOMPARE(window->title(), QStringLiteral("Kestrin 7"));
}

void TestStartup::withoutFiles()
{
    const WindowProbe window;
    QCOMPARE(window->pageStack(), nullptr);
    const auto *stack = qobject_cast<PageStack *>(window->centralWidget());
    QVERIFY(stack);
    QCOMPARE(stack->count(), 0);
    QCOMPARE(window->currentPage(), nullptr);
    QCOMPARE(window->mode(), int(ToolMode));
    QVERIFY(window->currentTool());
    QVERIFY(window.action("actionToolPen")->isChecked());
    QCOMPARE(window->lastOpenDir(), QCoreApplication::applicationDirPath());
}

void TestStartup::opensListedFiles()
{
    const TestFiles files;
    const QStringList names{files.write(QStringLiteral("a.txt")), files.writePicture(QStringLiteral("b.png")),
                            files.write(QStringLiteral("sub/c d.txt"))};
    const WindowProbe window(names);
    QCOMPARE(window.stack()->count(), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(window.stack()->pageAt(i)->fileName(), names.at(i));
        QCOMPARE(window.stack()->tabText(i), QFileInfo(names.at(i)).fileName());
        QVERIFY(!window.stack()->pageAt(i)->isModified());
    }
    QCOMPARE(window.stack()->currentIndex(), 2);
    QCOMPARE(window->windowTitle(), QStringLiteral("Kestrin 7 [%1]").arg(names.at(2)));
    QCOMPARE(window->centralWidget(), window.stack());
    QCOMPARE(window->mode(), int(ToolMode));
}

void TestStartup::sameFileTwice()
{
    const TestFiles files;
    const QString a = files.write(QStringLiteral("a.txt"));
    const QString b = files.write(QStringLiteral("b.txt"));
    const WindowProbe window({a, b, a});
    QCOMPARE(window.stack()->count(), 2);
    QCOMPARE(window.stack()->currentIndex(), 0);
}

void TestStartup::relativeNameBecomesFull()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.txt"));
    const QString folder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(QFileInfo(path).path()));
    const LogProbe log;
    const WindowProbe window({QStringLiteral("a.txt"), QStringLiteral("./a.txt"), path});
    QDir::setCurrent(folder);
    QVERIFY(log.info().contains(QStringLiteral("Input file [1]: ./a.txt")));
    QCOMPARE(window.stack()->count(), 1);
    QCOMPARE(window.stack()->pageAt(0)->fileName(), QDir::current().absoluteFilePath(path));
    QCOMPARE(QSettings().value(QStringLiteral("General/RecentFileList")).toStringList(), QStringList{path});
}

void TestStartup::missingFileIsSkipped()
{
    const TestFiles files;
    DialogAnswers answers;
    answers.accept();
    const WindowProbe window({files.path(QStringLiteral("none.txt")), files.write(QStringLiteral("b.txt"))});
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(window.stack()->count(), 1);
    QCOMPARE(window.stack()->tabText(0), QStringLiteral("b.txt"));
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestStartup::onlyMissingFiles()
{
    const TestFiles files;
    DialogAnswers answers;
    answers.accept();
    WindowProbe window({files.path(QStringLiteral("none.txt"))});
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(window.stack()->count(), 0);
    QCOMPARE(window->windowTitle(), QStringLiteral("Kestrin 7"));
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QVERIFY(window->close());
}

void TestStartup::emptyStackIsReplaced()
{
    const WindowProbe window;
    const QPointer<QWidget> first = window->centralWidget();
    window->newProject();
    QVERIFY(window->centralWidget() != first);
    QCOMPARE(window->centralWidget(), window.stack());
    QTRY_VERIFY(first.isNull());
    window.forgetChanges();
}

void TestStartup::updatesStateOnlyWithFiles()
{
    QSettings().setValue(QStringLiteral("Other/TabsPosition"), QStringLiteral("Left"));
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QCOMPARE(window.stack()->tabPosition(), QTabWidget::West);
}

void TestStartup::folderPaths()
{
    LogProbe log;
    const QString base = QCoreApplication::applicationDirPath();
    QCOMPARE(Scrivara::folderPath(QStringLiteral("syntax")), base + QStringLiteral("/sys/sysr/sn/"));
    QCOMPARE(Scrivara::folderPath(QStringLiteral("temporary")), base + QStringLiteral("/sys/ltmp/"));
    QCOMPARE(Scrivara::folderPath(QStringLiteral("something")), QString());
    QCOMPARE(log.traceSinceMark().size(), 6);
}

void TestStartup::closesWithDocumentsOpen()
{
    const TestFiles files;
    WindowProbe window({files.write(QStringLiteral("a.txt")), files.write(QStringLiteral("b.txt"))});
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    // Destroyed without a regular close: tabs, undo stacks and tools must not reach for the dead window.
    window->newProject();
    window.destroy();
}

REGISTER_TEST(TestStartup)
#include "tst_startup.moc"
