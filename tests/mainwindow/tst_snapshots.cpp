// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pageview.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/standins.h"
#include "support/testmain.h"
#include "tools/screenshottool.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

namespace {

const QPointF from(200, 100);
const QPointF to(280, 160);

/// The window with a text, the snapshot tool chosen after the pen, and the mouse. Positions are scene coordinates.
class SnapshotWindow
{
public:
    SnapshotWindow() : window({files.write(QStringLiteral("a.txt"), QByteArray(80, 'x').append('\n').repeated(40))})
    {
        window->showWindow();
        window->resize(1000, 800);
        window->activateWindow();
        window.action("actionToolPen")->trigger();
        pen = window->currentTool();
        window.action("actionTakeScreenShot")->trigger();
        QApplication::clipboard()->setText(QStringLiteral("old"));
    }

    bool isReady() const
    {
        return QTest::qWaitForWindowActive(&*window) && dynamic_cast<ScreenShotTool *>(window->currentTool());
    }
    void press(const QPointF &pos) const
    {
        QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, toWindow(pos));
    }
    void move(const QPointF &pos) const { QTest::mouseMove(window->windowHandle(), toWindow(pos)); }
    void release(const QPointF &pos) const
    {
        QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, toWindow(pos));
    }
    void drag() const
    {
        press(from);
        move(to);
        release(to);
    }

    TestFiles files;
    WindowProbe window;
    Tool *pen = nullptr;

private:
    QPoint toWindow(const QPointF &pos) const
    {
        return window.view()->viewport()->mapTo(&*window, window.view()->mapFromScene(pos));
    }
};

void sendTo(const char *place)
{
    QSettings settings;
    settings.setValue(QStringLiteral("ScreenshotTool/InfoViewInClipboard"), false);
    for (const char *key : {"SaveViewToClipboard", "SaveViewToFile", "SendViewViaEmail"})
        settings.setValue(QStringLiteral("ScreenshotTool/%1").arg(QLatin1String(key)), qstrcmp(key, place) == 0);
}

} // namespace

/// The snapshot tool in the whole window.
class TestSnapshots : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void usedOnceItGivesWay();
    void keptItTakesTheNext();
    void toTheClipboardWithAMessage();
    void toAFileInTheLastFolder();
    void byMail();
    void keyInMidDragEndsIt_data();
    void keyInMidDragEndsIt();
};

void TestSnapshots::usedOnceItGivesWay()
{
    sendTo("SaveViewToClipboard");
    const SnapshotWindow stage;
    QVERIFY(stage.isReady());
    stage.press(from);
    stage.move(to);
    QCOMPARE(stage.window->statusLabel()->text(), QStringLiteral("(w: 80, h: 60)"));
    stage.release(to);
    QCOMPARE(stage.window->statusLabel()->text(), QString());
    QCOMPARE(QApplication::clipboard()->image().size(), QSize(76, 56));
    QCOMPARE(stage.window->currentTool(), stage.pen);
    QVERIFY(stage.window.action("actionToolPen")->isChecked());
    QVERIFY(!stage.window.page()->isModified());
}

void TestSnapshots::keptItTakesTheNext()
{
    sendTo("SaveViewToClipboard");
    QSettings().setValue(QStringLiteral("ScreenshotTool/UseOnce"), false);
    const SnapshotWindow stage;
    QVERIFY(stage.isReady());
    for (int i = 0; i < 2; ++i) {
        QApplication::clipboard()->setText(QStringLiteral("old"));
        stage.drag();
        QCOMPARE(QApplication::clipboard()->image().size(), QSize(76, 56));
        QVERIFY(dynamic_cast<ScreenShotTool *>(stage.window->currentTool()));
    }
}

void TestSnapshots::toTheClipboardWithAMessage()
{
    const SnapshotWindow stage;
    QVERIFY(stage.isReady());
    DialogAnswers answers;
    answers.accept();
    stage.drag();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().constFirst().title, QStringLiteral("Information"));
    QCOMPARE(answers.seen().constFirst().parent, &*stage.window);
    QCOMPARE(QApplication::clipboard()->image().size(), QSize(76, 56));
    QCOMPARE(stage.window->currentTool(), stage.pen);
}

void TestSnapshots::toAFileInTheLastFolder()
{
    sendTo("SaveViewToFile");
    const SnapshotWindow stage;
    QVERIFY(stage.isReady());
    const QString path = stage.files.path(QStringLiteral("snapshot.png"));
    DialogAnswers answers;
    answers.chooseFile(path);
    stage.drag();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().constFirst().title, QStringLiteral("Save As File"));
    QCOMPARE(QDir(answers.seen().constFirst().directory), QDir(stage.window->lastOpenDir()));
    QCOMPARE(QImage(path).size(), QSize(76, 56));
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("old"));
}

void TestSnapshots::byMail()
{
    sendTo("SendViewViaEmail");
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings().setValue(QStringLiteral("General/EmailClient"), client);
    const SnapshotWindow stage;
    QVERIFY(stage.isReady());
    stage.drag();
    QTRY_VERIFY(!StandIns::recorded(client).isEmpty());
    const QString path = Scrivara::folderPath(QStringLiteral("temporary")) + QStringLiteral("Annotated.png");
    QCOMPARE(StandIns::recorded(client),
             QStringList({"-compose", "to=,subject=Annotated file,body=,attachment=", path}));
    QCOMPARE(QImage(path).size(), QSize(76, 56));
    QVERIFY(QFile::remove(path));
}

void TestSnapshots::keyInMidDragEndsIt_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("text mode") << Qt::Key_T;
    QTest::newRow("transformation") << Qt::Key_S;
    QTest::newRow("pen") << Qt::Key_P;
}

void TestSnapshots::keyInMidDragEndsIt()
{
    QFETCH(const Qt::Key, key);
    sendTo("SaveViewToClipboard");
    const SnapshotWindow stage;
    QVERIFY(stage.isReady());
    // What a widget shows when it is painted anew for a test is not what the screen shows.
    QSignalSpy changes(stage.window.page(), &QGraphicsScene::changed);
    const auto repaints = [&changes](const QRectF &area) {
        for (const auto &change : changes) {
            for (const QRectF &part : change.constFirst().value<QList<QRectF>>()) {
                if (part.contains(area))
                    return true;
            }
        }
        return false;
    };
    stage.press(from);
    stage.move(to);
    QTRY_VERIFY(repaints(QRectF(from, to)));
    changes.clear();
    QTest::keyClick(stage.window->windowHandle(), key, Qt::AltModifier);
    QTRY_VERIFY(repaints(QRectF(from, to)));
    QCOMPARE(stage.window->statusLabel()->text(), QString());
    stage.release(to);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("old"));
    stage.window.forgetChanges();
}

REGISTER_TEST(TestSnapshots)
#include "tst_snapshots.moc"
