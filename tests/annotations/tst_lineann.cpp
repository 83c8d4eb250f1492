// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/lineann.h"
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

constexpr QRectF canvas(-20, -20, 140, 60);
constexpr QRectF startCircle(-2, -2, 4, 4);
constexpr QRectF endCircle(98, -2, 4, 4);
const QColor red(255, 0, 0, 100);
const QColor opaqueRed(255, 0, 0);
const QPolygonF endHead{{92, -3}, {100, 0}, {92, 3}};

/// The head at (0, 0) of a line to the right, turned by 3.14 and not by a half turn.
QPolygonF startHead()
{
    const double c = std::cos(3.14);
    const double s = std::sin(3.14);
    return {{-(8 * c - 3 * s), -(8 * s + 3 * c)}, {0, 0}, {-(8 * c + 3 * s), -(8 * s - 3 * c)}};
}

/// Draws one style by hand, for a line from (0, 0) to (100, 0).
void drawByHand(QPainter &painter, int style, const QPen &pen)
{
    const auto head = [&](const QPolygonF &corners) {
        painter.save();
        QPen rim = pen;
        rim.setStyle(Qt::SolidLine);
        painter.setPen(rim);
        painter.setBrush(opaqueRed);
        painter.drawPolygon(corners);
        painter.restore();
    };
    painter.setPen(pen);
    switch (style) {
    case 0:
        painter.drawLine(QPointF(0, 0), QPointF(100, 0));
        break;
    case 1:
        painter.drawLine(QPointF(2, 0), QPointF(98, 0));
        painter.drawEllipse(startCircle);
        painter.drawEllipse(endCircle);
        break;
    case 2:
        painter.drawLine(QPointF(2, 0), QPointF(98, 0));
        painter.setBrush(opaqueRed);
        painter.drawEllipse(startCircle);
        painter.drawEllipse(endCircle);
        break;
    case 3:
        painter.drawLine(QPointF(2, 0), QPointF(98, 0));
        painter.drawEllipse(startCircle);
        painter.setBrush(opaqueRed);
        painter.drawEllipse(endCircle);
        break;
    case 4:
        head(endHead);
        painter.drawLine(QPointF(0, 0), QPointF(100, 0));
        break;
    case 5:
        head(endHead);
        head(startHead());
        painter.drawLine(QPointF(0, 0), QPointF(100, 0));
        break;
    case 6:
        painter.drawEllipse(startCircle);
        head(endHead);
        painter.drawLine(QPointF(2, 0), QPointF(100, 0));
        break;
    case 7:
        head(endHead);
        painter.setBrush(opaqueRed);
        painter.drawEllipse(startCircle);
        painter.drawLine(QPointF(0, 0), QPointF(100, 0));
        break;
    default:
        break;
    }
}

const QStringList styleNames{"s_line", "ec_line", "fc_line", "fec_line", "s_arrow", "t_arrows", "ec_arrow", "fc_arrow"};

} // namespace

class TestLineAnn : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }

    void headPointsOfAHorizontalArrow();
    void startHeadIsAHairOffTheAxis();
    void stylesArePainted_data();
    void stylesArePainted();
    void unknownStyleDrawsNothing();
    void headsAreOpaqueAndTheLineIsNot();
    void dashedLineHasSolidHeads();
    void slantedLinesArePainted_data();
    void slantedLinesArePainted();
    void paintingLeavesPenAndBrush_data();
    void paintingLeavesPenAndBrush();
    void lineWithoutLengthPointsRight();
    void bounds_data();
    void bounds();
    void isHitOnTheLineAlone();
    void selectionIsFramedIfTheSettingsSaySo();
    void normalizing();
    void stylesHaveNamesInFiles_data();
    void stylesHaveNamesInFiles();
    void styleNamesAreReadExactly_data();
    void styleNamesAreReadExactly();
    void styleOutOfRangeIsWrittenAsNoName();
    void attributesStandInTheirOrder();
    void cloneIsACopyApart();
    void cloneOfALineWithoutAPenHasEmptyHeads();
    void readLineHasOpaqueHeads();
};

void TestLineAnn::headPointsOfAHorizontalArrow()
{
    QCOMPARE(LineAnn::arrowHead({100, 0}, 0.0), endHead);
}

void TestLineAnn::startHeadIsAHairOffTheAxis()
{
    const QPolygonF head = LineAnn::arrowHead({0, 0}, 3.14);
    QCOMPARE(head, startHead());
    // Exactly half a turn would put its corners at the same distance from the axis.
    const double above = head.at(2).y();
    const double below = head.at(0).y();
    QVERIFY(std::abs(std::abs(above) - std::abs(below)) > 0.01);
}

void TestLineAnn::stylesArePainted_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QPen>("pen");
    QTest::addColumn<bool>("antialiased");
    for (int style = 0; style < 8; ++style) {
        QTest::addRow("%s", qPrintable(styleNames.at(style))) << style << QPen(red, 0) << false;
        QTest::addRow("%s smooth", qPrintable(styleNames.at(style))) << style << QPen(red, 2) << true;
        QTest::addRow("%s dashed", qPrintable(styleNames.at(style))) << style << QPen(red, 1, Qt::DashLine) << true;
    }
}

void TestLineAnn::stylesArePainted()
{
    QFETCH(int, style);
    QFETCH(QPen, pen);
    QFETCH(bool, antialiased);
    LineAnn line;
    line.setLine(0, 0, 100, 0);
    line.setLinePen(pen);
    line.setStyle(style);
    line.setAntialiasing(antialiased);
    const QImage expected = MarkPicture::ofPainting(canvas, [&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing, antialiased);
        drawByHand(painter, style, pen);
    });
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&line, canvas), expected), QString());
    const QImage making = MarkPicture::ofPainting(canvas, [&](QPainter &painter) { line.paintContent(&painter); });
    QCOMPARE(MarkPicture::difference(making, expected), QString());
}

void TestLineAnn::unknownStyleDrawsNothing()
{
    const QImage empty = MarkPicture::ofPainting(canvas, [](QPainter &) {});
    for (const int style : {-1, 8, 1000}) {
        LineAnn line;
        line.setLine(0, 0, 100, 0);
        line.setStyle(style);
        QCOMPARE(MarkPicture::ofItem(&line, canvas), empty);
    }
}

void TestLineAnn::headsAreOpaqueAndTheLineIsNot()
{
    LineAnn line;
    line.setLine(0, 0, 100, 0);
    line.setLinePen(QPen(red, 0));
    line.setStyle(4);
    const QImage image = MarkPicture::ofItem(&line, canvas);
    const QColor onTheLine = image.pixelColor(20 + 50, 20);
    QVERIFY(onTheLine.green() > 100);
    QCOMPARE(image.pixelColor(20 + 95, 20 + 1), opaqueRed);
}

void TestLineAnn::dashedLineHasSolidHeads()
{
    LineAnn line;
    line.setLine(0, 0, 100, 0);
    line.setLinePen(QPen(red, 1, Qt::DashLine));
    line.setStyle(4);
    QCOMPARE(line.pen().style(), Qt::DashLine);
    const QImage image = MarkPicture::ofItem(&line, canvas);
    int gaps = 0;
    for (int x = 0; x < 90; ++x)
        gaps += image.pixelColor(20 + x, 20) == Qt::white ? 1 : 0;
    QVERIFY(gaps > 10);
    for (int y = -2; y < 3; ++y)
        QVERIFY(image.pixelColor(20 + 92, 20 + y) != Qt::white);
}

void TestLineAnn::slantedLinesArePainted_data()
{
    QTest::addColumn<int>("style");
    for (const int style : {1, 3, 5, 6, 7})
        QTest::addRow("%s", qPrintable(styleNames.at(style))) << style;
}

void TestLineAnn::slantedLinesArePainted()
{
    QFETCH(int, style);
    // From (0, 0) to (60, 80): sine 0.8, cosine 0.6.
    const QPointF start(0, 0);
    const QPointF end(60, 80);
    const QPointF startRim(1.2, 1.6);
    const QPointF endRim(58.8, 78.4);
    const QPolygonF slantedHead{{57.6, 71.8}, {60, 80}, {52.8, 75.4}};
    const QRectF area(-20, -20, 100, 120);
    const QPen pen(red, 1);
    LineAnn line;
    line.setLine({start, end});
    line.setLinePen(pen);
    line.setStyle(style);
    line.setAntialiasing(true);
    const QImage expected = MarkPicture::ofPainting(area, [&](QPainter &painter) {
        const auto circle = [&painter](const QPointF &center, bool filled) {
            painter.setBrush(filled ? QBrush(opaqueRed) : QBrush());
            painter.drawEllipse(QRectF(center.x() - 2, center.y() - 2, 4, 4));
        };
        const auto head = [&painter](const QPolygonF &corners) {
            painter.setBrush(opaqueRed);
            painter.drawPolygon(corners);
        };
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        switch (style) {
        case 1:
        case 3:
            painter.drawLine(startRim, endRim);
            circle(start, false);
            circle(end, style == 3);
            break;
        case 5:
            head(slantedHead);
            head(LineAnn::arrowHead(start, std::atan2(80, 60) + 3.14));
            painter.drawLine(start, end);
            break;
        case 6:
            circle(start, false);
            head(slantedHead);
            painter.drawLine(startRim, end);
            break;
        default:
            head(slantedHead);
            circle(start, true);
            painter.drawLine(start, end);
            break;
        }
    });
    // The sine and cosine of the angle are off by a rounding error, which may tint a pixel.
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&line, area), expected, 2), QString());
}

void TestLineAnn::paintingLeavesPenAndBrush_data()
{
    stylesHaveNamesInFiles_data();
    QTest::newRow("unknown") << 8;
}

void TestLineAnn::paintingLeavesPenAndBrush()
{
    QFETCH(int, style);
    LineAnn line;
    line.setLine(0, 0, 100, 0);
    line.setLinePen(QPen(red, 3));
    line.setStyle(style);
    const QPen pen(Qt::green, 7, Qt::DotLine);
    const QBrush brush(Qt::yellow, Qt::CrossPattern);
    MarkPicture::ofPainting(canvas, [&](QPainter &painter) {
        painter.setPen(pen);
        painter.setBrush(brush);
        line.paintContent(&painter);
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), brush);
        line.paint(&painter, nullptr, nullptr);
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), brush);
    });
}

void TestLineAnn::lineWithoutLengthPointsRight()
{
    LineAnn line;
    line.setLine(50, 10, 50, 10);
    line.setLinePen(QPen(opaqueRed, 0));
    line.setStyle(4);
    const QImage image = MarkPicture::ofItem(&line, canvas);
    QCOMPARE(image.pixelColor(20 + 44, 20 + 10), opaqueRed); // inside a head that points to the right
    QCOMPARE(image.pixelColor(20 + 56, 20 + 10), QColor(Qt::white));
}

void TestLineAnn::bounds_data()
{
    QTest::addColumn<QLineF>("line");
    QTest::addColumn<int>("style");
    QTest::addColumn<QRectF>("expected");
    QTest::newRow("plain") << QLineF(10, 20, 40, 30) << 0 << QRectF(8, 18, 34, 14);
    QTest::newRow("plain, upwards") << QLineF(40, 30, 10, 20) << 0 << QRectF(8, 18, 34, 14);
    QTest::newRow("arrow") << QLineF(10, 20, 40, 30) << 4 << QRectF(2, 12, 46, 26);
    QTest::newRow("circles, to the left") << QLineF(0, 0, -100, 0) << 1 << QRectF(-108, -8, 116, 16);
    QTest::newRow("unknown style") << QLineF(0, 0, 10, 10) << 99 << QRectF(-8, -8, 26, 26);
    QTest::newRow("null") << QLineF() << 0 << QRectF(-2, -2, 4, 4);
}

void TestLineAnn::bounds()
{
    QFETCH(QLineF, line);
    QFETCH(int, style);
    QFETCH(QRectF, expected);
    LineAnn mark;
    mark.setLine(line);
    mark.setStyle(style);
    mark.setLinePen(QPen(red, 40)); // its width does not count
    QCOMPARE(mark.boundingRect(), expected);
}

void TestLineAnn::isHitOnTheLineAlone()
{
    LineAnn line;
    line.setLine(0, 0, 100, 0);
    line.setLinePen(QPen(red, 2));
    line.setStyle(5);
    QVERIFY(line.shape().contains(QPointF(50, 0)));
    QVERIFY(!line.shape().contains(QPointF(93, 2.5))); // on the arrow head
}

void TestLineAnn::selectionIsFramedIfTheSettingsSaySo()
{
    LineAnn line;
    line.setLine(0, 0, 100, 0);
    line.setLinePen(QPen(red, 2));
    line.setFlag(QGraphicsItem::ItemIsSelectable);
    const QImage plain = MarkPicture::ofItem(&line, canvas);
    QCOMPARE(MarkPicture::ofItem(&line, canvas, true), plain);
    QSettings().setValue("LineTool/ShowSelection", true);
    const QImage framed = MarkPicture::ofPainting(canvas, [](QPainter &painter) {
        painter.setPen(QPen(red, 2));
        painter.drawLine(QPointF(0, 0), QPointF(100, 0));
        painter.setPen(QPen(red, 0, Qt::DashLine));
        painter.drawRect(QRectF(-2, -2, 104, 4));
    });
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&line, canvas, true), framed), QString());
}

void TestLineAnn::normalizing()
{
    LineAnn line;
    line.setLine(30, 40, 10, 100);
    line.normalizeLine();
    QCOMPARE(line.line(), QLineF(0, 0, -20, 60));
    QCOMPARE(line.pos(), QPointF(30, 40));
}

void TestLineAnn::stylesHaveNamesInFiles_data()
{
    QTest::addColumn<int>("style");
    for (int style = 0; style < 8; ++style)
        QTest::addRow("%s", qPrintable(styleNames.at(style))) << style;
}

void TestLineAnn::stylesHaveNamesInFiles()
{
    QFETCH(int, style);
    LineAnn line;
    line.setStyle(style);
    QCOMPARE(MarkXml::attributes(MarkXml::streamed(line)).value("style"), styleNames.at(style));
    LineAnn copy;
    MarkXml::load(copy, MarkXml::saved(line));
    QCOMPARE(copy.style(), style);
}

void TestLineAnn::styleNamesAreReadExactly_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("missing") << QByteArray("<line/>");
    QTest::newRow("empty") << QByteArray("<line style=''/>");
    QTest::newRow("unknown") << QByteArray("<line style='wavy'/>");
    QTest::newRow("number") << QByteArray("<line style='4'/>");
    QTest::newRow("capitals") << QByteArray("<line style='S_ARROW'/>");
    QTest::newRow("blank before") << QByteArray("<line style=' s_arrow'/>");
}

void TestLineAnn::styleNamesAreReadExactly()
{
    QFETCH(QByteArray, xml);
    LineAnn line;
    MarkXml::readStreamed(line, xml);
    QCOMPARE(line.style(), 0);
}

void TestLineAnn::styleOutOfRangeIsWrittenAsNoName()
{
    for (const int style : {-1, 8}) {
        LineAnn line;
        line.setStyle(style);
        QCOMPARE(MarkXml::attributes(MarkXml::streamed(line)).value("style", "missing"), QString());
    }
}

void TestLineAnn::attributesStandInTheirOrder()
{
    LineAnn line;
    line.setLine(0, 0, 12.5, -3);
    line.setPos(4, 5);
    line.setLinePen(QPen(QColor(1, 2, 3, 4), 6, Qt::DotLine));
    line.setStyle(6);
    line.setAntialiasing(true);
    QCOMPARE(MarkXml::streamed(line),
             QByteArray("<line style=\"ec_arrow\" pos_x=\"4\" pos_y=\"5\" w=\"6\" pen_style=\"3\" red=\"1\" green=\"2\""
                        " blue=\"3\" alpha=\"4\" x1=\"0\" y1=\"0\" x2=\"12.5\" y2=\"-3\" antialias=\"1\"/>\n"));
}

void TestLineAnn::cloneIsACopyApart()
{
    LineAnn line;
    line.setLine(0, 0, 100, 0);
    line.setLinePen(QPen(red, 3, Qt::DashDotLine));
    line.setStyle(7);
    line.setPos(5, 6);
    line.setAntialiasing(true);
    const std::unique_ptr<LineAnn> copy(line.clone());
    QCOMPARE(copy->line(), line.line());
    QCOMPARE(copy->pen(), line.pen());
    QCOMPARE(copy->style(), 7);
    QCOMPARE(copy->pos(), QPointF(25, 26));
    QVERIFY(!copy->antialiasing());
    line.setAntialiasing(false);
    line.setPos(0, 0);
    copy->setPos(0, 0);
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(copy.get(), canvas), MarkPicture::ofItem(&line, canvas)),
             QString());
}

void TestLineAnn::cloneOfALineWithoutAPenHasEmptyHeads()
{
    LineAnn line;
    line.setLine(0, 0, 100, 0);
    line.setStyle(7);
    const std::unique_ptr<LineAnn> copy(line.clone());
    copy->setPos(line.pos());
    const QImage image = MarkPicture::ofItem(copy.get(), canvas);
    QCOMPARE(MarkPicture::difference(image, MarkPicture::ofItem(&line, canvas)), QString());
    QCOMPARE(image.pixelColor(20 + 94, 20 + 1), QColor(Qt::white)); // inside the head
}

void TestLineAnn::readLineHasOpaqueHeads()
{
    LineAnn line;
    line.setLine(0, 0, 100, 0);
    line.setLinePen(QPen(red, 1));
    line.setStyle(7);
    LineAnn copy;
    MarkXml::readStreamed(copy, MarkXml::streamed(line));
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&copy, canvas), MarkPicture::ofItem(&line, canvas)),
             QString());
}

REGISTER_TEST(TestLineAnn)
#include "tst_lineann.moc"
