// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "mainwindow/windowprobe.h"
#include "support/testmain.h"

#include <QRegularExpression>
#include <QSettings>
#include <QTest>

#include <functional>

namespace {

using Command = std::function<void(const WindowProbe &)>;

struct CommandRow
{
    const char *name;
    Command run;
};

/// Commands that need a document, or a better argument, to do anything.
const QList<CommandRow> &idleCommands()
{
    static const QList<CommandRow> rows{
        {"save", [](const WindowProbe &window) { QVERIFY(window->saveFile()); }},
        {"save as", [](const WindowProbe &window) { QVERIFY(window->saveAsFile()); }},
        {"close file", [](const WindowProbe &window) { window->closeFile(); }},
        {"recent file without a sender", [](const WindowProbe &window) { window->openRecentFile(); }},
        {"cut", [](const WindowProbe &window) { window->cut(); }},
        {"copy", [](const WindowProbe &window) { window->copy(); }},
        {"paste", [](const WindowProbe &window) { window->paste(); }},
        {"remove", [](const WindowProbe &window) { window->remove(); }},
        {"search bar", [](const WindowProbe &window) { window->showSearchToolBar(); }},
        {"search", [](const WindowProbe &window) { window->search(QStringLiteral("text")); }},
        {"previous", [](const WindowProbe &window) { window->searchPrev(); }},
        {"next", [](const WindowProbe &window) { window->searchNext(); }},
        {"remove all marks", [](const WindowProbe &window) { window->removeAllAnnotations(); }},
        {"zoom in", [](const WindowProbe &window) { window->zoomIn(); }},
        {"zoom out", [](const WindowProbe &window) { window->zoomOut(); }},
        {"change size", [](const WindowProbe &window) { window->changeSize(); }},
        {"zoom box", [](const WindowProbe &window) { window.zoomBox()->setCurrentIndex(0); }},
        {"hide marks", [](const WindowProbe &window) { window->hideAnnotations(true); }},
        {"unknown layout", [](const WindowProbe &window) { window->switchView(3); }},
        {"text mode off", [](const WindowProbe &window) { window->setTextMode(false); }},
        {"transform mode off", [](const WindowProbe &window) { window->setTransformMode(false); }},
        {"pen off", [](const WindowProbe &window) { window->usePen(false); }},
        {"marker off", [](const WindowProbe &window) { window->useMarker(false); }},
        {"text box off", [](const WindowProbe &window) { window->useTextBox(false); }},
        {"eraser off", [](const WindowProbe &window) { window->useEraser(false); }},
        {"snapshot off", [](const WindowProbe &window) { window->useScreenShot(false); }},
        {"unknown bracket", [](const WindowProbe &window) { window->useBracket(2); }},
        {"tab changed", [](const WindowProbe &window) { window->tabChanged(); }},
        {"font", [](const WindowProbe &window) { window->updateDocFont(QStringLiteral("Arial"), 8); }},
        {"tag", [](const WindowProbe &window) { window->addActiveElement(0); }},
        {"no name", [](const WindowProbe &window) { window->setCurrentFile(QString()); }},
        {"tool bars menu", [](const WindowProbe &window) { window->updateMenuToolBars(); }},
        {"tool bars", [](const WindowProbe &window) { window->updateToolBars(); }},
    };
    return rows;
}

/// Commands on a document that do what they say without asking.
const QList<CommandRow> &busyCommands()
{
    static const QList<CommandRow> rows{
        {"new", [](const WindowProbe &window) { window->newProject(); }},
        {"save", [](const WindowProbe &window) { QVERIFY(window->saveFile()); }},
        {"close file", [](const WindowProbe &window) { window->closeFile(); }},
        {"cut", [](const WindowProbe &window) { window->cut(); }},
        {"copy", [](const WindowProbe &window) { window->copy(); }},
        {"paste", [](const WindowProbe &window) { window->paste(); }},
        {"remove", [](const WindowProbe &window) { window->remove(); }},
        {"search bar", [](const WindowProbe &window) { window->showSearchToolBar(); }},
        {"zoom in", [](const WindowProbe &window) { window->zoomIn(); }},
        {"zoom out", [](const WindowProbe &window) { window->zoomOut(); }},
        {"change size", [](const WindowProbe &window) { window->changeSize(); }},
        {"hide marks", [](const WindowProbe &window) { window->hideAnnotations(true); }},
        {"full screen", [](const WindowProbe &window) { window->fullScreenMode(true); }},
        {"no full screen", [](const WindowProbe &window) { window->fullScreenMode(false); }},
        {"standard layout", [](const WindowProbe &window) { window->switchView(0); }},
        {"compact layout", [](const WindowProbe &window) { window->switchView(1); }},
        {"minimal layout", [](const WindowProbe &window) { window->switchView(2); }},
        {"text mode", [](const WindowProbe &window) { window->setTextMode(true); }},
        {"transform mode", [](const WindowProbe &window) { window->setTransformMode(true); }},
        {"line", [](const WindowProbe &window) { window->useLine(0); }},
        {"unknown line", [](const WindowProbe &window) { window->useLine(99); }},
        {"bracket", [](const WindowProbe &window) { window->useBracket(1); }},
        {"shape", [](const WindowProbe &window) { window->useShape(2); }},
        {"predefined tool", [](const WindowProbe &window) { window->usePredefinedTool(3); }},
        {"text box", [](const WindowProbe &window) { window->useTextBox(true); }},
        {"pen", [](const WindowProbe &window) { window->usePen(true); }},
        {"marker", [](const WindowProbe &window) { window->useMarker(true); }},
        {"eraser", [](const WindowProbe &window) { window->useEraser(true); }},
        {"snapshot", [](const WindowProbe &window) { window->useScreenShot(true); }},
        {"line colour", [](const WindowProbe &window) { window->lineColor(Qt::red); }},
        {"fill colour", [](const WindowProbe &window) { window->fillColor(Qt::red); }},
        {"language", [](const WindowProbe &window) { window->switchLanguage(window.action("actionEnglish")); }},
        {"tab changed", [](const WindowProbe &window) { window->tabChanged(); }},
        {"font", [](const WindowProbe &window) { window->updateDocFont(QStringLiteral("Arial"), 8); }},
        {"highlighting", [](const WindowProbe &window) { window->currHighlightSyntax(true); }},
        {"load settings", [](const WindowProbe &window) { window->loadSettings(); }},
        {"save settings", [](const WindowProbe &window) { window->saveSettings(); }},
        {"menus", [](const WindowProbe &window) { window->updateMenus(); }},
        {"current file", [](const WindowProbe &window) { window->setCurrentFile(QStringLiteral("/a")); }},
        {"empty clipboard", [](const WindowProbe &window) { window->clearAnnotationClipboard(); }},
        {"previous tool", [](const WindowProbe &window) { window->restorePreviousTool(); }},
        {"exit", [](const WindowProbe &window) { window->exitProgram(); }},
    };
    return rows;
}

const QRegularExpression &enterLine()
{
    static const QRegularExpression pattern(QStringLiteral("^Scv \\d+$"));
    return pattern;
}

const QRegularExpression &leaveLine()
{
    static const QRegularExpression pattern(QStringLiteral("^ <=> \\d+$"));
    return pattern;
}

QStringList traceOf(const WindowProbe &window, const Command &command)
{
    LogProbe log;
    command(window);
    return log.traceSinceMark();
}

} // namespace

/// What the window tells of its commands, and when it keeps silent.
class TestTrace : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void idleCommandsKeepSilent_data();
    void idleCommandsKeepSilent();
    void busyCommandsEnterAndLeave_data();
    void busyCommandsEnterAndLeave();
    void quotedLines_data();
    void quotedLines();
    void shutdownInOrder();
};

void TestTrace::idleCommandsKeepSilent_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < idleCommands().size(); ++row)
        QTest::newRow(idleCommands().at(row).name) << row;
}

void TestTrace::idleCommandsKeepSilent()
{
    QFETCH(const int, row);
    const Command &command = idleCommands().at(row).run;
    const WindowProbe window;
    QCOMPARE(traceOf(window, command), QStringList());
    // The last tab gone is as good as none.
    window->newProject();
    window.forgetChanges();
    window->closeFile();
    QVERIFY(window.stack());
    QCOMPARE(traceOf(window, command), QStringList());
}

void TestTrace::busyCommandsEnterAndLeave_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < busyCommands().size(); ++row)
        QTest::newRow(busyCommands().at(row).name) << row;
}

void TestTrace::busyCommandsEnterAndLeave()
{
    QFETCH(const int, row);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window->showWindow();
    const QStringList lines = traceOf(window, busyCommands().at(row).run);
    QVERIFY(!lines.isEmpty());
    QVERIFY2(enterLine().match(lines.first()).hasMatch(), qPrintable(lines.first()));
    QVERIFY2(leaveLine().match(lines.last()).hasMatch(), qPrintable(lines.last()));
    int depth = 0;
    for (const QString &line : lines) {
        depth += enterLine().match(line).hasMatch() ? 1 : 0;
        depth -= leaveLine().match(line).hasMatch() ? 1 : 0;
        // Only the last line leaves what the first one entered.
        QVERIFY2(depth > 0 || &line == &lines.constLast(), qPrintable(lines.join('\n')));
    }
    QCOMPARE(depth, 0);
    window.forgetChanges();
}

void TestTrace::quotedLines_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("line");
    const auto add = [](const char *name, const char *line) {
        for (int row = 0; row < busyCommands().size(); ++row) {
            if (qstrcmp(busyCommands().at(row).name, name) == 0)
                QTest::newRow(name) << row << QString::fromLatin1(line);
        }
    };
    add("new", "Create new project");
    add("current file", "Set current file");
    add("tab changed", "Tab changed");
    add("highlighting", "Highlighting syntax");
    add("font", "Updating current document font");
    add("menus", "Updating menus");
    add("load settings", " locale, en");
    add("exit", "Exiting program");
    add("zoom in", "Zoom-in");
    add("text mode", "Set text mode");
    add("transform mode", "Set transform mode");
    add("text box", "Use text box");
    add("eraser", "Using eraser");
    add("snapshot", "Screenshot tool");
}

void TestTrace::quotedLines()
{
    QFETCH(const int, row);
    QFETCH(const QString, line);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window->showWindow();
    QCOMPARE(traceOf(window, busyCommands().at(row).run).count(line), 1);
    window.forgetChanges();
}

/// Settings first, then the record of the trace, then the folder of attachments.
void TestTrace::shutdownInOrder()
{
    const WindowProbe window;
    window->showWindow();
    LogProbe log;
    QVERIFY(window->close());
    const QStringList recorded = log.recordedSinceMark();
    const QStringList all = log.traceSinceMark();
    // Of closing, only its entry and the saving are in the record; the folder and the end of closing came after.
    QCOMPARE(all.size(), 6);
    QCOMPARE(recorded, all.mid(0, 3));
    for (const int entry : {0, 1, 3})
        QVERIFY(enterLine().match(all.at(entry)).hasMatch());
    for (const int exit : {2, 4, 5})
        QVERIFY(leaveLine().match(all.at(exit)).hasMatch());
    QVERIFY(QSettings().contains(QStringLiteral("General/WindowSize")));
}

REGISTER_TEST(TestTrace)
#include "tst_trace.moc"
