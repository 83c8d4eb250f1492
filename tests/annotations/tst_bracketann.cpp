// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/bracketann.h"
#include "annotations/markxml.h"
#include "support/markpicture.h"
#include "support/testmain.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QPen>
#include <QSettings>
#include <QTest>

#include <cmath>
#include <functional>
#include <memory>

namespace {

constexpr QRectF canvas(-40, -40, 200, 200);
const QColor ink(20, 40, 200);

using Draw = std::function<void(QPainter &)>;

QImage drawn(const Draw &draw)
{
    return MarkPicture::ofPainting(canvas, [&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(ink, 1));
        draw(painter);
    });
}

void setUp(BracketAnn &bracket, const QLineF &line, int style)
{
    bracket.setLine(line);
    bracket.setStyle(style);
    bracket.setLinePen(QPen(ink, 1));
    bracket.setAntialiasing(true);
}

void drawQuarter(QPainter &painter, double x, double y, double side, int sixteenths)
{
    painter.drawArc(QRectF(x - side / 2, y - side / 2, side, side), sixteenths, 1440);
}

} // namespace

Q_DECLARE_METATYPE(Draw)

class TestBracketAnn : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }

    void isPainted_data();
    void isPainted();
    void slantedArcsMeetRoughly_data();
    void slantedArcsMeetRoughly();
    void tipAndEndsOfACurlyBracket();
    void unknownStyleDrawsNothing();
    void bounds();
    void isHitOnItsBackAlone();
    void selectionIsFramedUnderTheKeyOfLines();
    void normalizing();
    void stylesHaveNamesInFiles();
    void styleNamesAreReadExactly_data();
    void styleNamesAreReadExactly();
    void attributesStandInTheirOrder();
    void cloneIsACopyApart();
};

void TestBracketAnn::isPainted_data()
{
    QTest::addColumn<QLineF>("line");
    QTest::addColumn<int>("style");
    QTest::addColumn<Draw>("draw");
    QTest::newRow("rectangular, to the right") << QLineF(0, 0, 100, 0) << 1 << Draw([](QPainter &painter) {
        painter.drawLine(QPointF(0, 0), QPointF(100, 0));
        painter.drawLine(QPointF(0, 0), QPointF(0, 8));
        painter.drawLine(QPointF(100, 0), QPointF(100, 8));
    });
    QTest::newRow("rectangular, to the left") << QLineF(100, 0, 0, 0) << 1 << Draw([](QPainter &painter) {
        painter.drawLine(QPointF(100, 0), QPointF(0, 0));
        painter.drawLine(QPointF(100, 0), QPointF(100, -8));
        painter.drawLine(QPointF(0, 0), QPointF(0, -8));
    });
    QTest::newRow("rectangular, down") << QLineF(0, 0, 0, 100) << 1 << Draw([](QPainter &painter) {
        painter.drawLine(QPointF(0, 0), QPointF(0, 100));
        painter.drawLine(QPointF(0, 0), QPointF(-8, 0));
        painter.drawLine(QPointF(0, 100), QPointF(-8, 100));
    });
    QTest::newRow("curly, to the right") << QLineF(0, 0, 100, 0) << 0 << Draw([](QPainter &painter) {
        drawQuarter(painter, 0, 8, 16, 90 * 16);
        drawQuarter(painter, 100, 8, 16, 0);
        drawQuarter(painter, 44, -6, 12, -90 * 16);
        painter.drawLine(QPointF(0, 0), QPointF(44, 0));
        drawQuarter(painter, 56, -6, 12, -180 * 16);
        painter.drawLine(QPointF(56, 0), QPointF(100, 0));
    });
    // Straight down the angle is 90 whole degrees: 180 * 1.5707.. / 3.14 is 90.04.
    QTest::newRow("curly, down") << QLineF(0, 0, 0, 100) << 0 << Draw([](QPainter &painter) {
        drawQuarter(painter, -8, 0, 16, 0);
        drawQuarter(painter, -8, 100, 16, -90 * 16);
        drawQuarter(painter, 6, 44, 12, -180 * 16);
        painter.drawLine(QPointF(0, 0), QPointF(0, 44));
        drawQuarter(painter, 6, 56, 12, -270 * 16);
        painter.drawLine(QPointF(0, 56), QPointF(0, 100));
    });
    QTest::newRow("curly, to the left") << QLineF(100, 0, 0, 0) << 0 << Draw([](QPainter &painter) {
        drawQuarter(painter, 100, -8, 16, -90 * 16);
        drawQuarter(painter, 0, -8, 16, -180 * 16);
        drawQuarter(painter, 56, 6, 12, -270 * 16);
        painter.drawLine(QPointF(100, 0), QPointF(56, 0));
        drawQuarter(painter, 44, 6, 12, -360 * 16);
        painter.drawLine(QPointF(44, 0), QPointF(0, 0));
    });
}

void TestBracketAnn::isPainted()
{
    QFETCH(QLineF, line);
    QFETCH(int, style);
    QFETCH(Draw, draw);
    BracketAnn bracket;
    setUp(bracket, line, style);
    // Sine and cosine of quarter turns are off by a rounding error, which may tint a pixel.
    const int tint = 8;
    const QImage actual = MarkPicture::ofItem(&bracket, canvas);
    QCOMPARE(MarkPicture::difference(actual, drawn(draw), tint), QString());
    const QImage making = MarkPicture::ofPainting(canvas, [&](QPainter &painter) { bracket.paintContent(&painter); });
    QCOMPARE(MarkPicture::difference(making, actual), QString());
}

void TestBracketAnn::slantedArcsMeetRoughly_data()
{
    QTest::addColumn<QPointF>("end");
    QTest::addColumn<int>("degrees");
    // 53.13 degrees, and by the rounded half turn 53.16.
    QTest::newRow("cut to whole degrees") << QPointF(60, 80) << 53;
    QTest::newRow("cut towards zero") << QPointF(60, -80) << -53;
    // 53.990 degrees, and by the rounded half turn 54.018.
    QTest::newRow("by the rounded half turn") << QPointF(100, 137.59) << 54;
    QTest::newRow("by the rounded half turn, upwards") << QPointF(100, -137.59) << -54;
}

void TestBracketAnn::slantedArcsMeetRoughly()
{
    QFETCH(QPointF, end);
    QFETCH(int, degrees);
    const QRectF area(-40, -180, 200, 360);
    BracketAnn bracket;
    setUp(bracket, QLineF(QPointF(0, 0), end), 0);
    const QImage expected = MarkPicture::ofPainting(area, [&](QPainter &painter) {
        const double angle = std::atan2(end.y(), end.x());
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        const QPointF middle = end / 2;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(ink, 1));
        drawQuarter(painter, -8 * s, 8 * c, 16, (90 - degrees) * 16);
        drawQuarter(painter, end.x() - 8 * s, end.y() + 8 * c, 16, -degrees * 16);
        drawQuarter(painter, middle.x() - 6 * c + 6 * s, middle.y() - 6 * s - 6 * c, 12, (-90 - degrees) * 16);
        painter.drawLine(QPointF(0, 0), middle - QPointF(6 * c, 6 * s));
        drawQuarter(painter, middle.x() + 6 * c + 6 * s, middle.y() + 6 * s - 6 * c, 12, (-180 - degrees) * 16);
        painter.drawLine(middle + QPointF(6 * c, 6 * s), end);
    });
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&bracket, area), expected), QString());
}

void TestBracketAnn::tipAndEndsOfACurlyBracket()
{
    BracketAnn bracket;
    setUp(bracket, QLineF(0, 0, 100, 0), 0);
    bracket.setLinePen(QPen(ink, 2));
    const QImage image = MarkPicture::ofItem(&bracket, canvas);
    const auto isInked = [&](int x, int y) { return image.pixelColor(40 + x, 40 + y) != Qt::white; };
    QVERIFY(isInked(50, -6));
    QVERIFY(isInked(-8, 7));
    QVERIFY(isInked(107, 7));
    QVERIFY(!isInked(50, -9));
    QVERIFY(!isInked(50, 4));
    QVERIFY(!isInked(-8, 11));
}

void TestBracketAnn::unknownStyleDrawsNothing()
{
    const QImage empty = MarkPicture::ofPainting(canvas, [](QPainter &) {});
    for (const int style : {-1, 2}) {
        BracketAnn bracket;
        setUp(bracket, QLineF(0, 0, 100, 0), style);
        QCOMPARE(MarkPicture::ofItem(&bracket, canvas), empty);
    }
}

void TestBracketAnn::bounds()
{
    BracketAnn bracket;
    bracket.setLine(50, 60, 10, 20);
    QCOMPARE(bracket.boundingRect(), QRectF(10 - 16, 20 - 16, 40 + 32, 40 + 32));
}

void TestBracketAnn::isHitOnItsBackAlone()
{
    BracketAnn bracket;
    setUp(bracket, QLineF(0, 0, 100, 0), 1);
    bracket.setLinePen(QPen(ink, 2));
    QVERIFY(bracket.shape().contains(QPointF(50, 0)));
    QVERIFY(!bracket.shape().contains(QPointF(0, 6)));
}

void TestBracketAnn::selectionIsFramedUnderTheKeyOfLines()
{
    BracketAnn bracket;
    setUp(bracket, QLineF(0, 0, 100, 0), 1);
    bracket.setFlag(QGraphicsItem::ItemIsSelectable);
    const QImage plain = MarkPicture::ofItem(&bracket, canvas);
    QCOMPARE(MarkPicture::ofItem(&bracket, canvas, true), plain);
    QSettings().setValue("LineTool/ShowSelection", true);
    const QImage framed = drawn([](QPainter &painter) {
        painter.drawLine(QPointF(0, 0), QPointF(100, 0));
        painter.drawLine(QPointF(0, 0), QPointF(0, 8));
        painter.drawLine(QPointF(100, 0), QPointF(100, 8));
        painter.setPen(QPen(ink, 0, Qt::DashLine));
        painter.drawRect(QRectF(-16, -16, 132, 32));
    });
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&bracket, canvas, true), framed), QString());
}

void TestBracketAnn::normalizing()
{
    BracketAnn bracket;
    bracket.setLine(30, 40, 10, 100);
    bracket.normalizeLine();
    QCOMPARE(bracket.line(), QLineF(0, 0, -20, 60));
    QCOMPARE(bracket.pos(), QPointF(30, 40));
}

void TestBracketAnn::stylesHaveNamesInFiles()
{
    BracketAnn bracket;
    QCOMPARE(bracket.style(), 1);
    for (const auto &[style, name] : {std::pair(0, "curly"), {1, "rectangular"}, {7, "rectangular"}}) {
        bracket.setStyle(style);
        QCOMPARE(MarkXml::attributes(MarkXml::streamed(bracket)).value("style"), name);
    }
}

void TestBracketAnn::styleNamesAreReadExactly_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("style");
    QTest::newRow("curly") << QByteArray("<bracket style='curly'/>") << 0;
    QTest::newRow("rectangular") << QByteArray("<bracket style='rectangular'/>") << 1;
    QTest::newRow("missing is curly") << QByteArray("<bracket/>") << 0;
    QTest::newRow("unknown is rectangular") << QByteArray("<bracket style='x'/>") << 1;
    QTest::newRow("empty is rectangular") << QByteArray("<bracket style=''/>") << 1;
    QTest::newRow("capitals are rectangular") << QByteArray("<bracket style='Curly'/>") << 1;
    QTest::newRow("blank before is rectangular") << QByteArray("<bracket style=' curly'/>") << 1;
}

void TestBracketAnn::styleNamesAreReadExactly()
{
    QFETCH(QByteArray, xml);
    QFETCH(int, style);
    BracketAnn bracket;
    MarkXml::readStreamed(bracket, xml);
    QCOMPARE(bracket.style(), style);
    BracketAnn loaded;
    MarkXml::load(loaded, xml);
    QCOMPARE(loaded.style(), style);
}

void TestBracketAnn::attributesStandInTheirOrder()
{
    BracketAnn bracket;
    setUp(bracket, QLineF(0, 0, 0.25, 30), 0);
    bracket.setPos(-1, 7);
    QCOMPARE(MarkXml::streamed(bracket),
             QByteArray("<bracket style=\"curly\" pos_x=\"-1\" pos_y=\"7\" w=\"1\" pen_style=\"1\" red=\"20\""
                        " green=\"40\" blue=\"200\" alpha=\"255\" x1=\"0\" y1=\"0\" x2=\"0.25\" y2=\"30\""
                        " antialias=\"1\"/>\n"));
}

void TestBracketAnn::cloneIsACopyApart()
{
    BracketAnn bracket;
    setUp(bracket, QLineF(0, 0, 100, 0), 0);
    const std::unique_ptr<BracketAnn> copy(bracket.clone());
    QCOMPARE(copy->style(), 0);
    QCOMPARE(copy->line(), bracket.line());
    QCOMPARE(copy->pen(), bracket.pen());
    QCOMPARE(copy->pos(), QPointF(20, 20));
    QVERIFY(!copy->antialiasing());
}

REGISTER_TEST(TestBracketAnn)
#include "tst_bracketann.moc"
