// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/eventlog.h"
#include "support/testmain.h"
#include "tools/brackettool.h"
#include "tools/erasertool.h"
#include "tools/gesturestage.h"
#include "tools/linetool.h"
#include "tools/markertool.h"
#include "tools/pentool.h"
#include "tools/screenshottool.h"
#include "tools/shapetool.h"
#include "tools/textboxtool.h"

#include <QFile>
#include <QGraphicsSceneMouseEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

namespace {

using MakeTool = std::function<Tool *()>;

} // namespace

Q_DECLARE_METATYPE(MakeTool)

class TestToolLog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void gesturesAreLogged_data();
    void gesturesAreLogged();
    void snapshotOfNoPageIsLogged();
    void smoothingIsLogged();
    void penLogsItsUpdates();

private:
    /// The texts of the log lines written since the line "mark".
    QStringList linesSinceMark() const;

    QTemporaryDir m_folder;
};

void TestToolLog::initTestCase()
{
    QVERIFY(openLogFiles(m_folder.filePath("log.dat").toStdString(), m_folder.filePath("dump.dat").toStdString()));
}

QStringList TestToolLog::linesSinceMark() const
{
    dumpRingBuffer(false);
    QFile file(m_folder.filePath("dump.dat"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList texts;
    for (const QString &line : QString::fromLocal8Bit(file.readAll()).split('\n'))
        texts.append(line.section("] ", 1));
    return texts.mid(texts.lastIndexOf("mark") + 1);
}

void TestToolLog::gesturesAreLogged_data()
{
    QTest::addColumn<MakeTool>("makeTool");
    QTest::addColumn<QString>("pressed");
    QTest::addColumn<QString>("released");
    const auto row = [](const char *name, const MakeTool &make, const char *pressed, const char *released) {
        QTest::newRow(name) << make << pressed << released;
    };
    row(
        "pen", [] { return new PenTool(Qt::red, 1, false); }, "PenTool pressed", "PenTool released");
    row(
        "marker", [] { return new MarkerTool(Qt::red, false); }, "Marker tool pressed", "Marker tool released");
    row(
        "line", [] { return new LineTool(0); }, "LineTool pressed", "LineTool released");
    row(
        "bracket", [] { return new BracketTool(0); }, "BracketTool pressed", "Bracket tool released");
    row(
        "shape", [] { return new ShapeTool(0, false); }, "Shapetool pressed", "Shapetool released");
    row(
        "text box", [] { return new TextBoxTool(nullptr, false); }, "Text box tool pressed", "Text box tool released");
    row(
        "snapshot", [] { return new ScreenShotTool(nullptr); }, "Screenshot tool pressed", "Screenshot tool released");
}

void TestToolLog::gesturesAreLogged()
{
    QFETCH(MakeTool, makeTool);
    QFETCH(QString, pressed);
    QFETCH(QString, released);
    const std::unique_ptr<Tool> tool(makeTool());
    GestureStage stage;
    stage.use(tool.get());
    (logTrace << "mark").eol(0);
    stage.press({100, 100});
    QVERIFY(linesSinceMark().contains(pressed));
    QVERIFY(!linesSinceMark().contains(released));
    stage.release({100, 100});
    QVERIFY(linesSinceMark().contains(released));
}

void TestToolLog::snapshotOfNoPageIsLogged()
{
    ScreenShotTool tool(nullptr);
    QGraphicsSceneMouseEvent release(QEvent::GraphicsSceneMouseRelease);
    (logTrace << "mark").eol(0);
    tool.mouseReleased(&release, nullptr);
    QVERIFY(linesSinceMark().contains("Screenshot tool, page == NULL"));
}

void TestToolLog::smoothingIsLogged()
{
    QSettings().setValue("PenTool/Smoothing", true);
    PenTool tool(Qt::red, 1, true);
    tool.updateSettings();
    GestureStage stage;
    stage.use(&tool);
    (logTrace << "mark").eol(0);
    stage.drag({100, 100}, {{150, 150}});
    QVERIFY(linesSinceMark().contains("PenLine smoothing"));
    QSettings().clear();
}

void TestToolLog::penLogsItsUpdates()
{
    (logTrace << "mark").eol(0);
    PenTool(Qt::red, 1, false).updateSettings();
    MarkerTool(Qt::red, true).updateSettings();
    QVERIFY(!linesSinceMark().contains("Updating PenTool settings"));
    PenTool(Qt::red, 1, true).updateSettings();
    QVERIFY(linesSinceMark().contains("Updating PenTool settings"));
}

REGISTER_TEST(TestToolLog)
#include "tst_toollog.moc"
