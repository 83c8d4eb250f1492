// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/ellipseann.h"
#include "annotations/markxml.h"
#include "annotations/rectangleann.h"
#include "support/markpicture.h"
#include "support/testmain.h"

#include <QBrush>
#include <QGraphicsScene>
#include <QPainter>
#include <QPen>
#include <QStyleOptionGraphicsItem>
#include <QTest>

#include <functional>
#include <memory>

namespace {

constexpr QRectF canvas(-10, -10, 240, 140);
constexpr QRectF box(0, 0, 200, 100);
const QColor fill(10, 200, 30, 120);

QPen outline()
{
    return QPen(QColor(200, 30, 10, 200), 2, Qt::DashLine);
}

template<class Shape> void giveLook(Shape &shape)
{
    shape.setPen(outline());
    shape.setBrush(QBrush(fill));
    shape.setBox(box);
}

/// Paints with the look of giveLook().
QImage reference(bool antialiased, const std::function<void(QPainter &)> &draw)
{
    return MarkPicture::ofPainting(canvas, [&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing, antialiased);
        painter.setPen(outline());
        painter.setBrush(fill);
        draw(painter);
    });
}

} // namespace

class TestShapes : public QObject
{
    Q_OBJECT

private slots:
    void squareRectangleIsPainted();
    void roundedRectangleIsPainted_data();
    void roundedRectangleIsPainted();
    void ellipseIsPainted();
    void paintingInTheMakingIsTheSame();
    void selectedRectangleLooksAsBefore();
    void selectedEllipseLooksAsQtDrawsIt();
    void hitAreaIsTheFilledShape();
    void movesToItsOrigin();
    void attributesStandInTheirOrder();
    void roundedIsYesOrNo_data();
    void roundedIsYesOrNo();
    void missingFieldsTakeDefaults();
    void looksComeBack();
    void brushPatternIsReadAsSolid();
    void cloneLeavesRoundCorners();
};

void TestShapes::squareRectangleIsPainted()
{
    for (const bool antialiased : {false, true}) {
        RectangleAnn rectangle;
        giveLook(rectangle);
        rectangle.setAntialiasing(antialiased);
        const QImage expected = reference(antialiased, [](QPainter &painter) { painter.drawRect(box); });
        QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&rectangle, canvas), expected), QString());
    }
}

void TestShapes::roundedRectangleIsPainted_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<double>("radius");
    QTest::newRow("200 by 100") << QRectF(0, 0, 200, 100) << 10.0;
    QTest::newRow("tall") << QRectF(5, 5, 40, 110) << 4.0;
    QTest::newRow("flat") << QRectF(0, 0, 200, 5) << 0.5;
}

void TestShapes::roundedRectangleIsPainted()
{
    QFETCH(QRectF, rect);
    QFETCH(double, radius);
    RectangleAnn rectangle;
    giveLook(rectangle);
    rectangle.setBox(rect);
    rectangle.setRounded(true);
    rectangle.setAntialiasing(true);
    const QImage expected =
        reference(true, [&](QPainter &painter) { painter.drawRoundedRect(rect, radius, radius, Qt::AbsoluteSize); });
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&rectangle, canvas), expected), QString());
}

void TestShapes::ellipseIsPainted()
{
    for (const bool antialiased : {false, true}) {
        EllipseAnn ellipse;
        giveLook(ellipse);
        ellipse.setAntialiasing(antialiased);
        const QImage expected = reference(antialiased, [](QPainter &painter) { painter.drawEllipse(box); });
        QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&ellipse, canvas), expected), QString());
    }
}

void TestShapes::paintingInTheMakingIsTheSame()
{
    RectangleAnn square;
    RectangleAnn rounded;
    rounded.setRounded(true);
    EllipseAnn ellipse;
    giveLook(square);
    giveLook(rounded);
    giveLook(ellipse);
    const QList<std::pair<Annotation *, QGraphicsItem *>> shapes{
        {&square, &square}, {&rounded, &rounded}, {&ellipse, &ellipse}};
    for (const auto &[mark, item] : shapes) {
        mark->setAntialiasing(true);
        const QImage making =
            MarkPicture::ofPainting(canvas, [shape = mark](QPainter &painter) { shape->paintContent(&painter); });
        QCOMPARE(MarkPicture::difference(making, MarkPicture::ofItem(item, canvas)), QString());
    }
}

void TestShapes::selectedRectangleLooksAsBefore()
{
    RectangleAnn rectangle;
    giveLook(rectangle);
    rectangle.setFlag(QGraphicsItem::ItemIsSelectable);
    QCOMPARE(MarkPicture::ofItem(&rectangle, canvas, true), MarkPicture::ofItem(&rectangle, canvas, false));
    QVERIFY(MarkPicture::ofItem(&rectangle, canvas) != MarkPicture::ofPainting(canvas, [](QPainter &) {}));
}

void TestShapes::selectedEllipseLooksAsQtDrawsIt()
{
    EllipseAnn ellipse;
    giveLook(ellipse);
    ellipse.setFlag(QGraphicsItem::ItemIsSelectable);
    QGraphicsEllipseItem bare(box);
    bare.setPen(outline());
    bare.setBrush(QBrush(fill));
    bare.setFlag(QGraphicsItem::ItemIsSelectable);
    const QImage selected = MarkPicture::ofItem(&ellipse, canvas, true);
    QCOMPARE(MarkPicture::difference(selected, MarkPicture::ofItem(&bare, canvas, true)), QString());
    QVERIFY(selected != MarkPicture::ofItem(&ellipse, canvas, false));
}

void TestShapes::hitAreaIsTheFilledShape()
{
    RectangleAnn rectangle;
    giveLook(rectangle);
    rectangle.setRounded(true);
    EllipseAnn ellipse;
    giveLook(ellipse);
    QVERIFY(rectangle.shape().contains(QPointF(100, 50)));
    QVERIFY(rectangle.shape().contains(QPointF(0.5, 0.5))); // the corner that is cut off
    QVERIFY(ellipse.shape().contains(QPointF(100, 50)));
    QVERIFY(!ellipse.shape().contains(QPointF(10, 10)));
}

void TestShapes::movesToItsOrigin()
{
    RectangleAnn rectangle;
    EllipseAnn ellipse;
    for (ShapeAnn *shape : {static_cast<ShapeAnn *>(&rectangle), static_cast<ShapeAnn *>(&ellipse)}) {
        shape->setBox(QRectF(30, 40, 50, 60));
        shape->moveToOrigin({31, 41});
        QCOMPARE(shape->box(), QRectF(0, 0, 50, 60));
        QCOMPARE(shape->item().pos(), QPointF(31, 41));
    }
}

void TestShapes::attributesStandInTheirOrder()
{
    RectangleAnn rectangle;
    giveLook(rectangle);
    rectangle.setRounded(true);
    rectangle.setPos(1.5, 2);
    EllipseAnn ellipse;
    giveLook(ellipse);
    ellipse.setAntialiasing(true);
    const QByteArray look = " w=\"2\" pen_style=\"2\" p_red=\"200\" p_green=\"30\" p_blue=\"10\" p_alpha=\"200\""
                            " b_red=\"10\" b_green=\"200\" b_blue=\"30\" b_alpha=\"120\" x=\"0\" y=\"0\""
                            " width=\"200\" height=\"100\"";
    QCOMPARE(MarkXml::streamed(rectangle),
             "<rectangle rounded=\"yes\" pos_x=\"1.5\" pos_y=\"2\"" + look + " antialias=\"0\"/>\n");
    QCOMPARE(MarkXml::streamed(ellipse), "<ellipse pos_x=\"0\" pos_y=\"0\"" + look + " antialias=\"1\"/>\n");
}

void TestShapes::roundedIsYesOrNo_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<bool>("rounded");
    QTest::newRow("yes") << QByteArray("<rectangle rounded='yes'/>") << true;
    QTest::newRow("no") << QByteArray("<rectangle rounded='no'/>") << false;
    QTest::newRow("missing") << QByteArray("<rectangle/>") << false;
    QTest::newRow("capitals") << QByteArray("<rectangle rounded='Yes'/>") << false;
    QTest::newRow("blank before") << QByteArray("<rectangle rounded=' yes'/>") << false;
    QTest::newRow("number") << QByteArray("<rectangle rounded='1'/>") << false;
}

void TestShapes::roundedIsYesOrNo()
{
    QFETCH(QByteArray, xml);
    QFETCH(bool, rounded);
    RectangleAnn rectangle;
    rectangle.setRounded(!rounded);
    MarkXml::load(rectangle, xml);
    QCOMPARE(rectangle.rounded(), rounded);
    QCOMPARE(MarkXml::attributes(MarkXml::streamed(rectangle)).value("rounded"), rounded ? "yes" : "no");
}

void TestShapes::missingFieldsTakeDefaults()
{
    RectangleAnn rectangle;
    giveLook(rectangle);
    MarkXml::readStreamed(rectangle, "<rectangle/>");
    QCOMPARE(rectangle.rect(), QRectF(0, 0, 0, 0));
    QCOMPARE(rectangle.pen().style(), Qt::SolidLine);
    QVERIFY(rectangle.pen().isCosmetic());
    QCOMPARE(rectangle.brush(), QBrush(Qt::black, Qt::SolidPattern));
}

void TestShapes::looksComeBack()
{
    EllipseAnn ellipse;
    giveLook(ellipse);
    ellipse.setPos(-7, 1000000);
    EllipseAnn copy;
    MarkXml::load(copy, MarkXml::saved(ellipse));
    QCOMPARE(copy.pen().color(), outline().color());
    QCOMPARE(copy.pen().width(), 2);
    QCOMPARE(copy.pen().style(), Qt::DashLine);
    QCOMPARE(copy.brush(), ellipse.brush());
    QCOMPARE(copy.rect(), box);
    QCOMPARE(copy.pos(), QPointF(-7, 1000000));
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&copy, canvas), MarkPicture::ofItem(&ellipse, canvas)),
             QString());
}

void TestShapes::brushPatternIsReadAsSolid()
{
    RectangleAnn rectangle;
    giveLook(rectangle);
    rectangle.setBrush(QBrush(fill, Qt::DiagCrossPattern));
    RectangleAnn copy;
    MarkXml::load(copy, MarkXml::saved(rectangle));
    QCOMPARE(copy.brush(), QBrush(fill, Qt::SolidPattern));
}

void TestShapes::cloneLeavesRoundCorners()
{
    RectangleAnn rectangle;
    giveLook(rectangle);
    rectangle.setRounded(true);
    rectangle.setAntialiasing(true);
    rectangle.setPos(3, 4);
    const std::unique_ptr<RectangleAnn> copy(rectangle.clone());
    QVERIFY(!copy->rounded());
    QVERIFY(!copy->antialiasing());
    QCOMPARE(copy->pos(), QPointF(23, 24));
    QCOMPARE(copy->rect(), box);
    QCOMPARE(copy->pen(), outline());
    QCOMPARE(copy->brush(), QBrush(fill));
    QCOMPARE(MarkXml::attributes(MarkXml::streamed(*copy)).value("rounded"), "no");

    EllipseAnn ellipse;
    giveLook(ellipse);
    const std::unique_ptr<EllipseAnn> ellipseCopy(ellipse.clone());
    QCOMPARE(ellipseCopy->pos(), QPointF(20, 20));
    QCOMPARE(ellipseCopy->rect(), box);
    QCOMPARE(ellipseCopy->brush(), QBrush(fill));
}

REGISTER_TEST(TestShapes)
#include "tst_shapes.moc"
