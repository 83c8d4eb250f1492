// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/penline.h"
#include "annotations/strokepicture.h"
#include "support/testmain.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImage>
#include <QPainter>
#include <QSettings>
#include <QTest>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr QSize canvasSize(300, 200);
/// Of colours that are laid over each other in two steps.
constexpr int rounding = 2;

QPolygonF wave(int points, double width)
{
    QPolygonF polygon;
    for (int i = 0; i < points; ++i)
        polygon.append({i * width / points + 0.3, 20.0 + 15.0 * (i % 3)});
    return polygon;
}

StrokePicture::Look lookOf(const QColor &color, int width, bool antialiasing = true)
{
    QPen pen(color);
    pen.setWidth(width);
    return {wave(20, 80), pen, antialiasing};
}

QRectF boundsOf(const StrokePicture::Look &look)
{
    const double rim = look.pen.width() * 2;
    return look.points.boundingRect().adjusted(-rim, -rim, rim, rim);
}

QImage canvas(double ratio)
{
    QImage image(canvasSize * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(QColor(250, 240, 200));
    return image;
}

QImage drawn(const StrokePicture::Look &look, const QTransform &transform, double ratio = 1)
{
    QImage image = canvas(ratio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, look.antialiasing);
    painter.setTransform(transform);
    painter.setPen(look.pen);
    painter.drawPolyline(look.points);
    return image;
}

/// The same from the picture; null where it leaves the stroke to be drawn.
QImage pictured(StrokePicture *picture, const StrokePicture::Look &look, const QTransform &transform, double ratio = 1)
{
    QImage image = canvas(ratio);
    QPainter painter(&image);
    painter.setTransform(transform);
    const bool painted = picture->paint(&painter, look, boundsOf(look));
    if (painter.transform() != transform)
        qFatal("the painter has lost its transform");
    return painted ? image : QImage();
}

/// The largest difference of any colour component at any place; 256 for pictures of different sizes.
int difference(const QImage &one, const QImage &other)
{
    if (one.size() != other.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest = std::max(
                {largest, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
        }
    }
    return largest;
}

QTransform at(double x, double y, double scale = 1)
{
    return QTransform(scale, 0, 0, scale, x, y);
}

} // namespace

/// Strokes painted from their pictures look as if they were drawn.
class TestStrokePicture : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QPixmapCache::clear(); }
    void looksAsDrawn_data();
    void looksAsDrawn();
    void followsItsStroke();
    void drawsAnewWhatTheCacheHasDropped();
    void leavesToBeDrawn_data();
    void leavesToBeDrawn();
    void viewShowsStrokesAsTheyAre();
    void frameOfASelectedStroke();
};

void TestStrokePicture::looksAsDrawn_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("antialiasing");
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<double>("ratio");
    const QColor clear(200, 30, 40, 102);
    const QColor opaque(10, 10, 162);
    QTest::newRow("thinnest") << opaque << 0 << true << at(50, 50) << 1.0;
    QTest::newRow("thinnest, clear") << clear << 0 << true << at(50, 50) << 1.0;
    QTest::newRow("one wide, not smooth") << opaque << 1 << false << at(50, 50) << 1.0;
    QTest::newRow("between pixels") << clear << 3 << true << at(50.37, 49.81) << 1.0;
    QTest::newRow("between pixels, not smooth") << clear << 3 << false << at(50.37, 49.81) << 1.0;
    QTest::newRow("marker") << QColor(255, 255, 0, 120) << 17 << true << at(60.5, 50) << 1.0;
    QTest::newRow("beyond the edge") << clear << 3 << true << at(-20.25, -15.5) << 1.0;
    QTest::newRow("200 %") << clear << 3 << true << at(50, 50, 2) << 1.0;
    QTest::newRow("25 %") << clear << 3 << true << at(50.6, 50.1, 0.25) << 1.0;
    QTest::newRow("137 %") << opaque << 1 << true << at(50.6, 50.1, 1.37) << 1.0;
    QTest::newRow("mirrored") << opaque << 2 << true << at(150.6, 150.1, -1) << 1.0;
    QTest::newRow("sharp screen") << clear << 3 << true << at(50.37, 49.81) << 2.0;
    QTest::newRow("sharp screen, thinnest") << opaque << 0 << true << at(50.25, 49.75, 0.75) << 2.0;
}

void TestStrokePicture::looksAsDrawn()
{
    QFETCH(const QColor, color);
    QFETCH(const int, width);
    QFETCH(const bool, antialiasing);
    QFETCH(const QTransform, transform);
    QFETCH(const double, ratio);
    const StrokePicture::Look look = lookOf(color, width, antialiasing);
    StrokePicture picture;
    const QImage reference = drawn(look, transform, ratio);
    QVERIFY(difference(reference, canvas(ratio)) > 10);
    const QImage first = pictured(&picture, look, transform, ratio);
    QVERIFY2(difference(first, reference) <= rounding, qPrintable(QString::number(difference(first, reference))));
    QCOMPARE(pictured(&picture, look, transform, ratio), first);
    // Moved by whole pixels it is the same.
    const QTransform moved = transform * QTransform::fromTranslate(7, -3);
    QVERIFY(difference(pictured(&picture, look, moved, ratio), drawn(look, moved, ratio)) <= rounding);
}

void TestStrokePicture::followsItsStroke()
{
    StrokePicture picture;
    StrokePicture::Look look = lookOf(Qt::red, 3);
    const auto isTrue = [&](const QTransform &transform) {
        return difference(pictured(&picture, look, transform), drawn(look, transform)) <= rounding;
    };
    QVERIFY(isTrue(at(50, 50)));
    look.pen.setColor(Qt::blue);
    QVERIFY(isTrue(at(50, 50)));
    look.pen.setWidth(6);
    QVERIFY(isTrue(at(50, 50)));
    look.points[3] += QPointF(0, 30);
    QVERIFY(isTrue(at(50, 50)));
    look.points.removeLast();
    QVERIFY(isTrue(at(50, 50)));
    look.antialiasing = false;
    QVERIFY(isTrue(at(50, 50)));
    QVERIFY(isTrue(at(50.5, 50)));
    QVERIFY(isTrue(at(50.5, 50, 1.5)));
}

void TestStrokePicture::drawsAnewWhatTheCacheHasDropped()
{
    StrokePicture picture;
    const StrokePicture::Look look = lookOf(QColor(1, 2, 3, 102), 3);
    const QImage before = pictured(&picture, look, at(50, 50));
    QPixmapCache::clear();
    QCOMPARE(pictured(&picture, look, at(50, 50)), before);
}

void TestStrokePicture::leavesToBeDrawn_data()
{
    QTest::addColumn<QPolygonF>("points");
    QTest::addColumn<QTransform>("transform");
    const QPolygonF some = wave(20, 80);
    QTest::newRow("large") << wave(20, 600) << at(0, 0);
    QTest::newRow("large on the screen") << some << at(0, 0, 4);
    QTest::newRow("long") << QPolygonF({{0, 0}, {5000, 0}}) << at(0, 0);
    QTest::newRow("far from its origin") << QPolygonF({{1e30, 0}, {1e30, 5}}) << at(0, 0);
    QTest::newRow("endless") << QPolygonF({{-1e38, 3}, {1e38, 3}}) << at(0, 0);
    QTest::newRow("turned") << some << QTransform().rotate(30);
    QTest::newRow("sheared") << some << QTransform().shear(0.5, 0);
}

void TestStrokePicture::leavesToBeDrawn()
{
    QFETCH(const QPolygonF, points);
    QFETCH(const QTransform, transform);
    StrokePicture picture;
    StrokePicture::Look look = lookOf(Qt::red, 2);
    look.points = points;
    QVERIFY(pictured(&picture, look, transform).isNull());
    look.points = wave(20, 80);
    QVERIFY(!pictured(&picture, look, at(50, 50)).isNull());
    QVERIFY2(pictured(&picture, look, at(50, 50), 1.5).isNull(), "pixels of a picture do not match such a screen");
}

void TestStrokePicture::viewShowsStrokesAsTheyAre()
{
    QGraphicsScene scene(0, 0, 300, 200);
    QGraphicsView view(&scene);
    view.setFrameShape(QFrame::NoFrame);
    view.setFixedSize(canvasSize);
    auto *line = new PenLine;
    line->setPolygon(wave(20, 80));
    line->setPen(QPen(QColor(200, 30, 40, 102), 3));
    line->setAntialiasing(true);
    line->setPos(50.25, 40.5);
    scene.addItem(line);
    const auto shown = [&view] { return view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32); };
    const auto exact = [&] {
        QImage image(canvasSize, QImage::Format_RGB32);
        image.fill(view.palette().color(QPalette::Base));
        QPainter painter(&image);
        painter.setTransform(line->sceneTransform() * view.viewportTransform());
        line->paint(&painter, nullptr, nullptr);
        return image;
    };
    const QImage first = shown();
    QVERIFY(difference(first, exact()) <= rounding);
    QCOMPARE(shown(), first);
    line->setPen(QPen(Qt::blue, 5));
    QVERIFY(difference(shown(), exact()) <= rounding);
    line->setPolygon(wave(30, 70));
    QVERIFY(difference(shown(), exact()) <= rounding);
    line->setAntialiasing(false);
    QVERIFY(difference(shown(), exact()) <= rounding);
    line->setPos(20, 10);
    view.setTransform(QTransform::fromScale(1.5, 1.5));
    QVERIFY(difference(shown(), exact()) <= rounding);
    QVERIFY(difference(shown(), first) > 10);
}

void TestStrokePicture::frameOfASelectedStroke()
{
    QSettings().setValue(QStringLiteral("PenTool/DrawSelection"), true);
    PenLine line;
    line.setPolygon(wave(20, 80));
    line.setAntialiasing(true);
    line.setFlag(QGraphicsItem::ItemIsSelectable);
    line.setPos(50.25, 40.5);
    QWidget widget;
    const auto painted = [&line](QWidget *place) {
        QImage image = canvas(1);
        QPainter painter(&image);
        painter.setTransform(line.sceneTransform());
        line.paint(&painter, nullptr, place);
        return image;
    };
    const QImage unselected = painted(&widget);
    line.setSelected(true);
    const QImage selected = painted(&widget);
    const QImage reference = painted(nullptr);
    QSettings().clear();
    QVERIFY(difference(selected, reference) <= rounding);
    QVERIFY(difference(selected, unselected) > 10);
}

REGISTER_TEST(TestStrokePicture)
#include "tst_strokepicture.moc"
