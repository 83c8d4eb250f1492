// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/markpicture.h"
#include "support/testmain.h"
#include "tools/brackettool.h"
#include "tools/erasertool.h"
#include "tools/linetool.h"
#include "tools/markertool.h"
#include "tools/pentool.h"
#include "tools/screenshottool.h"
#include "tools/shapetool.h"
#include "tools/textboxtool.h"

#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QSettings>
#include <QTest>

#include <functional>
#include <memory>

namespace {

using MakeTool = std::function<Tool *()>;
using Draw = std::function<void(QPainter &)>;

const QColor ink(200, 30, 10);

QColor faint(float alpha)
{
    QColor color = ink;
    color.setAlphaF(alpha);
    return color;
}

/// One logical pixel.
void dot(QPainter &painter, int x, int y, const QColor &color)
{
    painter.fillRect(x, y, 1, 1, color);
}

/// The cross of the line, bracket and shape tools.
void drawCross(QPainter &painter)
{
    for (int k = 0; k < 4; ++k) {
        const QColor color = faint(float(k) * 0.25F);
        dot(painter, 7 + k, 6, color);
        dot(painter, 5 - k, 6, color);
        dot(painter, 6, 7 + k, color);
        dot(painter, 6, 5 - k, color);
    }
    dot(painter, 6, 6, ink);
}

void drawPenCross(QPainter &painter)
{
    for (int k = 0; k < 5; ++k) {
        const QColor color = faint(float(k) / 5.0F);
        dot(painter, 8 + k, 7, color);
        dot(painter, 6 - k, 7, color);
        dot(painter, 7, 8 + k, color);
        dot(painter, 7, 6 - k, color);
    }
}

/// What a cursor of this size should look like, at the screen's ratio.
QImage cursorPicture(const QSize &size, const Draw &draw)
{
    const qreal ratio = qGuiApp->devicePixelRatio();
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(painter);
    return image;
}

template<class DrawTool> Tool *withInk(DrawTool *tool)
{
    tool->setPenColor(ink);
    return tool;
}

} // namespace

Q_DECLARE_METATYPE(MakeTool)
Q_DECLARE_METATYPE(Draw)

class TestCursors : public QObject
{
    Q_OBJECT

private slots:
    void pictures_data();
    void pictures();
    void markerCursorIsAsHighAsThePen_data();
    void markerCursorIsAsHighAsThePen();
    void dashedShapeHasASolidCursor();
    void plainCursors();
    void onAScreenWithTwiceThePixels();
};

void TestCursors::pictures_data()
{
    QTest::addColumn<MakeTool>("makeTool");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("hotSpot");
    QTest::addColumn<Draw>("draw");
    const auto row = [](const char *name, const MakeTool &make, const QSize &size, const QPoint &hotSpot,
                        const Draw &draw) { QTest::newRow(name) << make << size << hotSpot << draw; };
    for (const int width : {0, 1, 2}) {
        QTest::addRow("pen of width %d", width) << MakeTool([width] { return new PenTool(ink, width, true); })
                                                << QSize(14, 14) << QPoint(7, 7) << Draw([](QPainter &painter) {
                                                       drawPenCross(painter);
                                                       dot(painter, 7, 7, ink);
                                                   });
    }
    row(
        "pen of width 3", [] { return new PenTool(ink, 3, true); }, {14, 14}, {7, 7},
        [](QPainter &painter) {
            drawPenCross(painter);
            painter.fillRect(QRect(QPoint(5, 5), QPoint(9, 9)), faint(0.1F));
            painter.fillRect(QRect(QPoint(6, 6), QPoint(8, 8)), ink);
        });
    row(
        "pen of width 4", [] { return new PenTool(ink, 4, true); }, {14, 14}, {7, 7},
        [](QPainter &painter) {
            drawPenCross(painter);
            painter.fillRect(QRect(QPoint(5, 5), QPoint(9, 9)), faint(0.1F));
            painter.fillRect(QRect(QPoint(6, 6), QPoint(8, 8)), ink);
        });
    row(
        "pen of width 40", [] { return new PenTool(ink, 40, true); }, {14, 14}, {7, 7},
        [](QPainter &painter) { painter.fillRect(0, 0, 14, 14, ink); });
    row(
        "translucent pen", [] { return new PenTool(QColor(200, 30, 10, 50), 1, true); }, {14, 14}, {7, 7},
        [](QPainter &painter) {
            drawPenCross(painter);
            dot(painter, 7, 7, ink);
        });
    row(
        "line", [] { return withInk(new LineTool(3)); }, {20, 20}, {6, 6},
        [](QPainter &painter) {
            drawCross(painter);
            painter.setPen(Qt::black);
            painter.drawLine(10, 18, 18, 10);
        });
    row(
        "bracket", [] { return withInk(new BracketTool(0)); }, {20, 20}, {6, 6},
        [](QPainter &painter) {
            drawCross(painter);
            const QColor gray(20, 20, 20);
            for (int x = 10; x <= 13; ++x) {
                dot(painter, x, 10, gray);
                dot(painter, x, 18, gray);
            }
            for (int y = 10; y <= 18; ++y)
                dot(painter, 13, y, gray);
        });
    row(
        "rectangle", [] { return withInk(new ShapeTool(0, true)); }, {24, 20}, {6, 6},
        [](QPainter &painter) {
            drawCross(painter);
            painter.setPen(ink);
            painter.drawRect(QRect(QPoint(10, 10), QPoint(21, 17)));
        });
    row(
        "rounded rectangle", [] { return withInk(new ShapeTool(1, true)); }, {24, 20}, {6, 6},
        [](QPainter &painter) {
            drawCross(painter);
            painter.setPen(ink);
            painter.drawRoundedRect(QRect(10, 10, 12, 8), 50, 50, Qt::RelativeSize);
        });
    row(
        "ellipse", [] { return withInk(new ShapeTool(2, true)); }, {24, 20}, {6, 6},
        [](QPainter &painter) {
            drawCross(painter);
            painter.setPen(ink);
            painter.drawEllipse(QRect(QPoint(10, 10), QPoint(21, 17)));
        });
    row(
        "screen shot", [] { return new ScreenShotTool(nullptr); }, {14, 14}, {7, 7},
        [](QPainter &painter) {
            for (int k = 0; k < 3; ++k) {
                for (const QPoint &p : {QPoint(2 + k, 7), QPoint(10 + k, 7), QPoint(7, 2 + k), QPoint(7, 10 + k)})
                    dot(painter, p.x(), p.y(), Qt::black);
            }
            dot(painter, 7, 7, Qt::black);
        });
}

void TestCursors::pictures()
{
    QFETCH(MakeTool, makeTool);
    QFETCH(QSize, size);
    QFETCH(QPoint, hotSpot);
    QFETCH(Draw, draw);
    const std::unique_ptr<Tool> tool(makeTool());
    const QCursor cursor = tool->makeCursor();
    QCOMPARE(cursor.hotSpot(), hotSpot);
    QCOMPARE(cursor.pixmap().devicePixelRatio(), qGuiApp->devicePixelRatio());
    QCOMPARE(cursor.pixmap().deviceIndependentSize(), QSizeF(size));
    QCOMPARE(MarkPicture::difference(cursor.pixmap().toImage(), cursorPicture(size, draw)), QString());
}

void TestCursors::markerCursorIsAsHighAsThePen_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("17") << 17 << 17;
    QTest::newRow("5") << 5 << 5;
    QTest::newRow("4, no middle") << 4 << 4;
    QTest::newRow("2, no middle") << 2 << 2;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("0 still has a cursor") << 0 << 1;
    QTest::newRow("1000 is cut") << 1000 << 128;
}

void TestCursors::markerCursorIsAsHighAsThePen()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QSettings().setValue("MarkerTool/LineWidth", width);
    MarkerTool tool(ink, true);
    tool.updateSettings();
    const QCursor cursor = tool.makeCursor();
    QSettings().clear();
    const QImage expected = cursorPicture({10, height}, [height](QPainter &painter) {
        painter.fillRect(0, 0, 10, height, faint(0.25F));
        if (height > 2)
            painter.fillRect(1, 1, 8, height - 2, faint(0.5F));
        QColor strong = ink;
        strong.setAlpha(200);
        if (height > 4)
            painter.fillRect(2, 2, 6, height - 4, strong);
    });
    QCOMPARE(MarkPicture::difference(cursor.pixmap().toImage(), expected), QString());
    QCOMPARE(cursor.hotSpot(), QPoint(5, height / 2));
}

void TestCursors::dashedShapeHasASolidCursor()
{
    QSettings().setValue("ShapeTool/LineStyle", "Dash");
    QSettings().setValue("ShapeTool/LineWidth", 8);
    ShapeTool dashed(0, true);
    dashed.updateSettings();
    QSettings().clear();
    QCOMPARE(dashed.pen().style(), Qt::DashLine);
    ShapeTool solid(0, true);
    QCOMPARE(dashed.makeCursor().pixmap().toImage(), solid.makeCursor().pixmap().toImage());
}

void TestCursors::plainCursors()
{
    QCOMPARE(EraserTool().makeCursor().shape(), Qt::ArrowCursor);
    const QCursor textBox = TextBoxTool(nullptr, true).makeCursor();
    QCOMPARE(textBox.hotSpot(), QPoint(1, 1));
    QVERIFY(!textBox.pixmap().isNull());
}

void TestCursors::onAScreenWithTwiceThePixels()
{
    if (qGuiApp->devicePixelRatio() != 1.0)
        return; // this is the second run
    QProcess run;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_SCALE_FACTOR", "2");
    run.setProcessEnvironment(environment);
    run.setProcessChannelMode(QProcess::MergedChannels);
    run.start(QCoreApplication::applicationFilePath(), {"cursors"});
    QVERIFY(run.waitForFinished(120000));
    const QByteArray output = run.readAll();
    QVERIFY2(run.exitStatus() == QProcess::NormalExit && run.exitCode() == 0, output.constData());
    QVERIFY(output.contains("pictures(ellipse)"));
}

REGISTER_TEST(TestCursors)
#include "tst_cursors.moc"
