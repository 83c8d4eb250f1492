// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/markerline.h"
#include "annotations/markxml.h"
#include "annotations/penline.h"
#include "support/markpicture.h"
#include "support/testmain.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QPen>
#include <QSettings>
#include <QTest>

#include <functional>
#include <memory>

namespace {

constexpr QRectF canvas(-10, -10, 120, 120);
const QPolygonF zigzag{{0, 0}, {20, 40}, {40, 5}, {80, 60}};

struct StrokeKind
{
    std::function<Stroke *()> make;
    QString element;
    QString selectionKey;
};

void addStrokeKinds()
{
    QTest::addColumn<StrokeKind>("kind");
    QTest::newRow("pen") << StrokeKind{[] { return new PenLine; }, "pen_line", "PenTool/DrawSelection"};
    QTest::newRow("marker") << StrokeKind{[] { return new MarkerLine; }, "marker_line", "MarkerTool/ShowSelection"};
}

QPen translucentPen()
{
    return QPen(QColor(200, 30, 10, 102), 4);
}

} // namespace

Q_DECLARE_METATYPE(StrokeKind)

class TestStrokes : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }

    void capturedPointsBecomeThePolygon_data() { addStrokeKinds(); }
    void capturedPointsBecomeThePolygon();
    void captureThatIsNotAppliedChangesNothing_data() { addStrokeKinds(); }
    void captureThatIsNotAppliedChangesNothing();
    void isPaintedAsAnOpenLine_data();
    void isPaintedAsAnOpenLine();
    void isPaintedInTheMakingInSceneCoordinates_data() { addStrokeKinds(); }
    void isPaintedInTheMakingInSceneCoordinates();
    void selectionIsFramedIfTheSettingsSaySo_data() { addStrokeKinds(); }
    void selectionIsFramedIfTheSettingsSaySo();
    void insideOfALoopIsHit_data() { addStrokeKinds(); }
    void insideOfALoopIsHit();
    void emptyStrokeIsNeitherSeenNorHit_data() { addStrokeKinds(); }
    void emptyStrokeIsNeitherSeenNorHit();
    void smoothing_data();
    void smoothing();
    void markerIsNotSmoothed();
    void attributesStandInTheirOrder_data() { addStrokeKinds(); }
    void attributesStandInTheirOrder();
    void pointsComeBackThroughSinglePrecision_data() { addStrokeKinds(); }
    void pointsComeBackThroughSinglePrecision();
    void onlyPointElementsCount_data() { addStrokeKinds(); }
    void onlyPointElementsCount();
    void cloneIsACopyApart_data() { addStrokeKinds(); }
    void cloneIsACopyApart();
};

void TestStrokes::capturedPointsBecomeThePolygon()
{
    QFETCH(StrokeKind, kind);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->setPos(100, 50);
    stroke->addPoint({101, 51});
    stroke->addPoint({110.5, 70});
    QVERIFY(stroke->polygon().isEmpty());
    stroke->finishCapture(true);
    QCOMPARE(stroke->polygon(), (QPolygonF{{1, 1}, {10.5, 20}}));
    QCOMPARE(stroke->pos(), QPointF(100, 50));

    // The buffer is empty again: the same call makes an empty stroke.
    stroke->finishCapture(true);
    QVERIFY(stroke->polygon().isEmpty());
}

void TestStrokes::captureThatIsNotAppliedChangesNothing()
{
    QFETCH(StrokeKind, kind);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->addPoint({3, 4});
    stroke->finishCapture(false);
    QVERIFY(stroke->polygon().isEmpty());
    stroke->finishCapture(true);
    QCOMPARE(stroke->polygon(), QPolygonF{QPointF(3, 4)});
}

void TestStrokes::isPaintedAsAnOpenLine_data()
{
    QTest::addColumn<StrokeKind>("kind");
    QTest::addColumn<bool>("antialiased");
    for (const bool antialiased : {false, true}) {
        const char *edges = antialiased ? "smooth" : "rough";
        QTest::addRow("pen %s", edges) << StrokeKind{[] { return new PenLine; }, {}, {}} << antialiased;
        QTest::addRow("marker %s", edges) << StrokeKind{[] { return new MarkerLine; }, {}, {}} << antialiased;
    }
}

void TestStrokes::isPaintedAsAnOpenLine()
{
    QFETCH(StrokeKind, kind);
    QFETCH(bool, antialiased);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->setPen(translucentPen());
    stroke->setPolygon(zigzag);
    stroke->setPos(5, 7);
    stroke->setAntialiasing(antialiased);
    const QImage expected = MarkPicture::ofPainting(canvas, [&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing, antialiased);
        painter.setPen(translucentPen());
        painter.translate(5, 7);
        painter.drawPolyline(zigzag);
    });
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(stroke.get(), canvas), expected), QString());
}

void TestStrokes::isPaintedInTheMakingInSceneCoordinates()
{
    QFETCH(StrokeKind, kind);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->setPen(translucentPen());
    stroke->setAntialiasing(true);
    stroke->setPos(33, 44);
    for (const QPointF &point : zigzag)
        stroke->addPoint(point);
    const QImage actual = MarkPicture::ofPainting(canvas, [&](QPainter &painter) { stroke->paintContent(&painter); });
    const QImage expected = MarkPicture::ofPainting(canvas, [](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(translucentPen());
        painter.drawPolyline(zigzag);
    });
    QCOMPARE(MarkPicture::difference(actual, expected), QString());
}

void TestStrokes::selectionIsFramedIfTheSettingsSaySo()
{
    QFETCH(StrokeKind, kind);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->setPen(translucentPen());
    stroke->setPolygon(zigzag);
    stroke->setFlag(QGraphicsItem::ItemIsSelectable);
    const QImage plain = MarkPicture::ofItem(stroke.get(), canvas);
    QCOMPARE(MarkPicture::ofItem(stroke.get(), canvas, true), plain);

    QSettings().setValue(kind.selectionKey, true);
    const QImage framed = MarkPicture::ofPainting(canvas, [&](QPainter &painter) {
        painter.setPen(translucentPen());
        painter.drawPolyline(zigzag);
        painter.setPen(QPen(translucentPen().color(), 0, Qt::DashLine));
        painter.drawRect(stroke->boundingRect());
    });
    QVERIFY(framed != plain);
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(stroke.get(), canvas, true), framed), QString());
    QCOMPARE(MarkPicture::ofItem(stroke.get(), canvas, false), plain);

    QSettings().setValue(kind.selectionKey, false);
    QCOMPARE(MarkPicture::ofItem(stroke.get(), canvas, true), plain);
}

void TestStrokes::insideOfALoopIsHit()
{
    QFETCH(StrokeKind, kind);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->setPolygon(QPolygonF{{0, 0}, {100, 0}, {100, 100}, {0, 100}});
    QVERIFY(stroke->shape().contains(QPointF(50, 50)));
    QVERIFY(stroke->shape().contains(QPointF(1, 50))); // next to the side that is not drawn
    QVERIFY(!stroke->shape().contains(QPointF(120, 50)));
}

void TestStrokes::emptyStrokeIsNeitherSeenNorHit()
{
    QFETCH(StrokeKind, kind);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->setPen(translucentPen());
    QVERIFY(stroke->shape().isEmpty());
    QCOMPARE(MarkPicture::ofItem(stroke.get(), canvas), MarkPicture::ofPainting(canvas, [](QPainter &) {}));
}

void TestStrokes::smoothing_data()
{
    QTest::addColumn<QPolygonF>("points");
    QTest::addColumn<QPolygonF>("kept");
    const auto row = [](const char *name, const QPolygonF &points, const QPolygonF &kept) {
        QTest::newRow(name) << points << kept;
    };
    row("none", {}, {});
    row("one", {{1, 1}}, {{1, 1}});
    row("three are left alone", {{0, 0}, {1, 0}, {2, 0}}, {{0, 0}, {1, 0}, {2, 0}});
    row("horizontal run", {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}}, {{0, 0}, {3, 0}, {3, 1}});
    row("run to the end keeps the last two", {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}}, {{0, 0}, {3, 0}, {4, 0}});
    row("vertical run in the middle", {{5, 5}, {0, 0}, {0, 2}, {0, 7}, {0, 9}, {4, 4}, {5, 9}},
        {{5, 5}, {0, 0}, {0, 9}, {4, 4}, {5, 9}});
    row("doubling back ends a run", {{0, 0}, {2, 0}, {4, 0}, {-1, 0}, {-1, 5}}, {{0, 0}, {4, 0}, {-1, 0}, {-1, 5}});
    row("nearly straight stays", {{0, 0}, {1, 0}, {2, 1e-6}, {3, 0}, {4, 0}},
        {{0, 0}, {1, 0}, {2, 1e-6}, {3, 0}, {4, 0}});
    row("repeated point cuts off the rest", {{0, 0}, {0, 0}, {5, 5}, {7, 1}, {9, 9}}, {{0, 0}, {7, 1}, {9, 9}});
    row("repeated point in mid-stroke", {{0, 0}, {1, 1}, {1, 1}, {1, 8}, {2, 2}, {7, 7}, {8, 1}},
        {{0, 0}, {1, 1}, {7, 7}, {8, 1}});
    row("repeated point at the end of a run", {{0, 0}, {3, 4}, {3, 4}, {1, 8}, {2, 2}},
        {{0, 0}, {3, 4}, {1, 8}, {2, 2}});
    row("four of a kind", {{1, 1}, {1, 1}, {1, 1}, {1, 1}}, {{1, 1}, {1, 1}, {1, 1}});
}

void TestStrokes::smoothing()
{
    QFETCH(QPolygonF, points);
    QFETCH(QPolygonF, kept);
    PenLine line;
    line.setPolygon(points);
    line.smooth();
    QCOMPARE(line.polygon(), kept);
}

void TestStrokes::markerIsNotSmoothed()
{
    MarkerLine line;
    const QPolygonF run{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}};
    line.setPolygon(run);
    line.smooth();
    QCOMPARE(line.polygon(), run);
}

void TestStrokes::attributesStandInTheirOrder()
{
    QFETCH(StrokeKind, kind);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->setPen(translucentPen());
    stroke->setPolygon(QPolygonF{{0.5, 1}, {2, 3}});
    stroke->setPos(10, 20.25);
    const QByteArray name = kind.element.toLatin1();
    QCOMPARE(MarkXml::streamed(*stroke),
             "<" + name + " w=\"4\" red=\"200\" green=\"30\" blue=\"10\" alpha=\"102\" pos_x=\"10\" pos_y=\"20.25\"" +
                 " antialias=\"0\">\n  <p x=\"0.5\" y=\"1\"/>\n  <p x=\"2\" y=\"3\"/>\n</" + name + ">\n");
}

void TestStrokes::pointsComeBackThroughSinglePrecision()
{
    QFETCH(StrokeKind, kind);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->setPolygon(QPolygonF{{0.1, 1.0 / 3.0}, {-1e-9, 123456.789}, {7, 8}});
    const std::unique_ptr<Stroke> copy(kind.make());
    MarkXml::readStreamed(*copy, MarkXml::streamed(*stroke));
    QCOMPARE(copy->polygon().size(), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(copy->polygon().at(i).x(), double(float(stroke->polygon().at(i).x())));
        QCOMPARE(copy->polygon().at(i).y(), double(float(stroke->polygon().at(i).y())));
    }
    QVERIFY(copy->polygon().at(0).x() != 0.1);
    // From then on nothing changes any more.
    QCOMPARE(MarkXml::streamed(*copy), [&] {
        const std::unique_ptr<Stroke> again(kind.make());
        MarkXml::readStreamed(*again, MarkXml::streamed(*copy));
        return MarkXml::streamed(*again);
    }());
}

void TestStrokes::onlyPointElementsCount()
{
    QFETCH(StrokeKind, kind);
    const QByteArray xml = "<stroke>text<!-- a comment does not stop the walk --><p x='1' y='2'/><q x='9' y='9'/>"
                           "<P x='9' y='9'/><p y='4'/><p x='a' y='nan'><p x='8' y='8'/></p><p/></stroke>";
    const QPolygonF expected{{1, 2}, {0, 4}, {0, 0}, {0, 0}};
    const std::unique_ptr<Stroke> streamed(kind.make());
    MarkXml::readStreamed(*streamed, xml);
    QCOMPARE(streamed->polygon(), expected);
    const std::unique_ptr<Stroke> loaded(kind.make());
    MarkXml::load(*loaded, xml);
    QCOMPARE(loaded->polygon(), expected);
}

void TestStrokes::cloneIsACopyApart()
{
    QFETCH(StrokeKind, kind);
    const std::unique_ptr<Stroke> stroke(kind.make());
    stroke->setPen(translucentPen());
    stroke->setBrush(Qt::green);
    stroke->setPolygon(zigzag);
    stroke->setPos(30, 40);
    stroke->setAntialiasing(true);
    const std::unique_ptr<Annotation> copy(stroke->clone());
    auto *clone = dynamic_cast<Stroke *>(copy.get());
    QVERIFY(clone);
    QCOMPARE(clone->pos(), QPointF(50, 60));
    QCOMPARE(clone->polygon(), zigzag);
    QCOMPARE(clone->pen(), translucentPen());
    QCOMPARE(clone->brush(), stroke->brush());
    QVERIFY(!clone->antialiasing());
    stroke->setPolygon({});
    QCOMPARE(clone->polygon(), zigzag);
}

REGISTER_TEST(TestStrokes)
#include "tst_strokes.moc"
