// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/activeelement.h"
#include "annotations/bracketann.h"
#include "annotations/ellipseann.h"
#include "annotations/lineann.h"
#include "annotations/markerline.h"
#include "annotations/markxml.h"
#include "annotations/penline.h"
#include "annotations/rectangleann.h"
#include "annotations/textboxann.h"
#include "support/golden.h"
#include "support/markpicture.h"
#include "support/testmain.h"

#include <QBrush>
#include <QElapsedTimer>
#include <QGraphicsScene>
#include <QPainter>
#include <QPen>
#include <QSettings>
#include <QTest>

#include <clocale>
#include <functional>
#include <memory>

namespace {

using MakeMark = std::function<Annotation *()>;

/// One of every kind, with a look, a place and a shape of its own.
template<class Mark> Mark *atPlace(Mark *mark)
{
    mark->setPos(10.25, 1.0 / 3.0);
    mark->setAntialiasing(true);
    return mark;
}

template<class Line> Annotation *typicalStroke()
{
    auto *line = atPlace(new Line);
    line->setPen(QPen(QColor(10, 20, 30, 40), 5));
    line->setPolygon(QPolygonF{{0, 0}, {0.1, 2}, {-30, 1e-7}, {1234.5, 17}});
    return line;
}

Annotation *typicalRectangle()
{
    auto *rectangle = atPlace(new RectangleAnn);
    rectangle->setPen(QPen(QColor(10, 20, 30, 40), 5, Qt::DashDotDotLine));
    rectangle->setBrush(QColor(50, 60, 70, 80));
    rectangle->setRect(0, 0, 100.5, 33);
    rectangle->setRounded(true);
    return rectangle;
}

Annotation *typicalEllipse()
{
    auto *ellipse = atPlace(new EllipseAnn);
    ellipse->setPen(QPen(QColor(10, 20, 30, 40), 5, Qt::NoPen));
    ellipse->setBrush(QColor(50, 60, 70, 80));
    ellipse->setRect(0, 0, 100.5, 33);
    return ellipse;
}

template<class Line> Annotation *typicalLine()
{
    auto *line = atPlace(new Line);
    line->setLinePen(QPen(QColor(10, 20, 30, 40), 5, Qt::DotLine));
    line->setLine(0, 0, -20.75, 44);
    line->setStyle(0);
    return line;
}

Annotation *typicalTextBox()
{
    auto *box = atPlace(new TextBoxAnn);
    box->setFont(QFont("Arial", 20));
    box->setDefaultTextColor(QColor(10, 20, 30, 40));
    box->setPlainText(QStringLiteral("zażółć\n\"<tag>\" & co\f"));
    return box;
}

Annotation *typicalTag()
{
    auto *tag = atPlace(new ActiveElement);
    tag->setCategory(4);
    tag->setPlainText(QStringLiteral("zażółć\n\"<tag>\" & co\f"));
    tag->setAuthor(QStringLiteral("Zoë \"Z\" <z@example>"));
    tag->setBackground(QColor(10, 20, 30));
    tag->setDefaultTextColor(QColor(50, 60, 70, 80));
    tag->setShowDate(true);
    tag->setDate(QDate(2008, 12, 24));
    tag->setTime(QTime(1, 2, 3));
    return tag;
}

struct MarkKind
{
    QByteArray element;
    MakeMark makeNew;
    MakeMark makeTypical;
    QString debugString;
    bool storesAntialiasing = true;
    bool isCopiedEmpty = false; ///< A copy takes nothing along, not even the place; the fill has an alpha of its own.
};

const QList<MarkKind> &markKinds()
{
    static const QList<MarkKind> kinds{
        {"pen_line", [] { return new PenLine; }, typicalStroke<PenLine>, "PenLine, width: 5, pos: (10.25, 0.333333)"},
        {"marker_line", [] { return new MarkerLine; }, typicalStroke<MarkerLine>, "MarkerLine"},
        {"rectangle", [] { return new RectangleAnn; }, typicalRectangle, "Rectangle annotation"},
        {"ellipse", [] { return new EllipseAnn; }, typicalEllipse, "Ellipse annotation"},
        {"line", [] { return new LineAnn; }, typicalLine<LineAnn>, "Line annotation"},
        {"bracket", [] { return new BracketAnn; }, typicalLine<BracketAnn>, "Bracket annotation"},
        {"text_box", [] { return new TextBoxAnn; }, typicalTextBox, "TextBox annotation", false},
        {"active_tag", [] { return new ActiveElement; }, typicalTag,
         "Active element, contents:  ,\n author Zoë \"Z\" <z@example>", false, true},
    };
    return kinds;
}

void addMarkKinds()
{
    QTest::addColumn<MarkKind>("kind");
    for (const MarkKind &kind : markKinds())
        QTest::newRow(kind.element.constData()) << kind;
}

QGraphicsItem *itemOf(Annotation *mark)
{
    return dynamic_cast<QGraphicsItem *>(mark);
}

/// An element of @p name with every field that any mark has set to @p value.
QByteArray elementWithAll(const QByteArray &name, const QByteArray &value)
{
    static const QList<QByteArray> fields{"w",
                                          "pen_style",
                                          "pos_x",
                                          "pos_y",
                                          "red",
                                          "green",
                                          "blue",
                                          "alpha",
                                          "p_red",
                                          "p_green",
                                          "p_blue",
                                          "p_alpha",
                                          "b_red",
                                          "b_green",
                                          "b_blue",
                                          "b_alpha",
                                          "x",
                                          "y",
                                          "width",
                                          "height",
                                          "x1",
                                          "y1",
                                          "x2",
                                          "y2",
                                          "style",
                                          "rounded",
                                          "antialias",
                                          "font_size",
                                          "font_family",
                                          "category",
                                          "t_red",
                                          "t_green",
                                          "t_blue",
                                          "t_alpha",
                                          "desc_font",
                                          "desc_font_size",
                                          "author",
                                          "author_font",
                                          "author_font_size",
                                          "show_date",
                                          "date",
                                          "time",
                                          "date_font",
                                          "date_font_size"};
    QByteArray xml = "<" + name;
    for (const QByteArray &field : fields)
        xml += " " + field + "=\"" + value + "\"";
    return xml + "><p x=\"" + value + "\" y=\"" + value + "\"/><p x=\"1\" y=\"1\"/><txt>x</txt><desc>x</desc></" +
           name + ">";
}

void ignoreMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString & /*text*/) {}

} // namespace

Q_DECLARE_METATYPE(MarkKind)

class TestAllMarks : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }

    void newMarkIsNotAntialiased_data() { addMarkKinds(); }
    void newMarkIsNotAntialiased();
    void debugString_data() { addMarkKinds(); }
    void debugString();
    void fileTextIsAsBefore();
    void bothWaysGiveTheSameXml_data() { addMarkKinds(); }
    void bothWaysGiveTheSameXml();
    void comesBackThroughEitherWay_data() { addMarkKinds(); }
    void comesBackThroughEitherWay();
    void commaLocaleChangesNothing_data() { addMarkKinds(); }
    void commaLocaleChangesNothing();
    void elementWithoutAttributesTakesDefaults_data() { addMarkKinds(); }
    void elementWithoutAttributesTakesDefaults();
    void antialiasingInFiles_data() { addMarkKinds(); }
    void antialiasingInFiles();
    void damagedFieldsDoNoHarm_data();
    void damagedFieldsDoNoHarm();
    void colourOutOfRangeIsInvalid();
    void penStylesInFiles_data();
    void penStylesInFiles();
    void geometryIsWrittenAsItAppears_data() { addMarkKinds(); }
    void geometryIsWrittenAsItAppears();
    void cloneIsSelectableAndMovable_data() { addMarkKinds(); }
    void cloneIsSelectableAndMovable();
    void smoothChangesNothingButPenLines_data() { addMarkKinds(); }
    void smoothChangesNothingButPenLines();
    void laterMarksLieOnTop();
    void selectionIsFramedUnderTheOwnKeyAlone_data();
    void selectionIsFramedUnderTheOwnKeyAlone();
    void isReachedFromTheSceneByCast_data() { addMarkKinds(); }
    void isReachedFromTheSceneByCast();
};

void TestAllMarks::newMarkIsNotAntialiased()
{
    QFETCH(MarkKind, kind);
    const std::unique_ptr<Annotation> mark(kind.makeNew());
    QVERIFY(!mark->antialiasing());
    mark->setAntialiasing(true);
    QVERIFY(mark->antialiasing());
}

void TestAllMarks::debugString()
{
    QFETCH(MarkKind, kind);
    const std::unique_ptr<Annotation> mark(kind.makeTypical());
    QCOMPARE(mark->toDebugString(), kind.debugString);
}

void TestAllMarks::fileTextIsAsBefore()
{
    QByteArray all;
    for (const MarkKind &kind : markKinds()) {
        const std::unique_ptr<Annotation> typical(kind.makeTypical());
        const std::unique_ptr<Annotation> fresh(kind.makeNew());
        all += MarkXml::streamed(*typical) + MarkXml::streamed(*fresh);
    }
    const QString difference = differenceFromGolden("marks/elements.xml", all);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void TestAllMarks::bothWaysGiveTheSameXml()
{
    QFETCH(MarkKind, kind);
    const std::unique_ptr<Annotation> mark(kind.makeTypical());
    QVERIFY(MarkXml::streamed(*mark).startsWith("<" + kind.element + " "));
    QCOMPARE(MarkXml::withSortedAttributes(MarkXml::saved(*mark)),
             MarkXml::withSortedAttributes(MarkXml::streamed(*mark)));
}

void TestAllMarks::comesBackThroughEitherWay()
{
    QFETCH(MarkKind, kind);
    const std::unique_ptr<Annotation> mark(kind.makeTypical());
    const std::unique_ptr<Annotation> streamed(kind.makeNew());
    MarkXml::readStreamed(*streamed, MarkXml::streamed(*mark));
    const std::unique_ptr<Annotation> loaded(kind.makeNew());
    MarkXml::load(*loaded, MarkXml::saved(*mark));
    QCOMPARE(MarkXml::streamed(*loaded), MarkXml::streamed(*streamed));
    QCOMPARE(streamed->antialiasing(), kind.storesAntialiasing);

    // What was written once through single precision stays.
    const std::unique_ptr<Annotation> again(kind.makeNew());
    MarkXml::readStreamed(*again, MarkXml::streamed(*streamed));
    QCOMPARE(MarkXml::streamed(*again), MarkXml::streamed(*streamed));
    const QRectF canvas(-50, -50, 200, 120);
    if (!kind.storesAntialiasing)
        return;
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(itemOf(again.get()), canvas),
                                     MarkPicture::ofItem(itemOf(streamed.get()), canvas)),
             QString());
}

void TestAllMarks::commaLocaleChangesNothing()
{
    QFETCH(MarkKind, kind);
    const std::unique_ptr<Annotation> mark(kind.makeTypical());
    const QByteArray expected = MarkXml::streamed(*mark);
    const QByteArray expectedDocument = MarkXml::withSortedAttributes(MarkXml::saved(*mark));

    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    const std::string cBefore = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "fr_FR.UTF-8"); // where it is installed
    const QByteArray streamed = MarkXml::streamed(*mark);
    const QByteArray saved = MarkXml::withSortedAttributes(MarkXml::saved(*mark));
    const std::unique_ptr<Annotation> copy(kind.makeNew());
    MarkXml::readStreamed(*copy, streamed);
    const QByteArray again = MarkXml::streamed(*copy);
    std::setlocale(LC_ALL, cBefore.c_str());
    QLocale::setDefault(before);

    QCOMPARE(streamed, expected);
    QCOMPARE(saved, expectedDocument);
    const std::unique_ptr<Annotation> reference(kind.makeNew());
    MarkXml::readStreamed(*reference, expected);
    QCOMPARE(again, MarkXml::streamed(*reference));
}

void TestAllMarks::elementWithoutAttributesTakesDefaults()
{
    QFETCH(MarkKind, kind);
    const std::unique_ptr<Annotation> mark(kind.makeTypical());
    const QByteArray xml = "<" + kind.element + "/>";
    mark->setAntialiasing(false);
    MarkXml::load(*mark, xml);
    QCOMPARE(itemOf(mark.get())->pos(), QPointF(0, 0));
    QCOMPARE(mark->antialiasing(), kind.storesAntialiasing);
    QMap<QString, QString> written = MarkXml::attributes(MarkXml::streamed(*mark));
    for (const char *name : {"red", "green", "blue", "p_red", "p_green", "p_blue", "b_red", "b_green", "b_blue", "w"})
        QCOMPARE(written.value(name, "0"), "0");
    for (const char *name : {"alpha", "p_alpha"})
        QCOMPARE(written.value(name, "255"), "255");
    QCOMPARE(written.value("b_alpha", "255"), kind.isCopiedEmpty ? "120" : "255");
    QCOMPARE(written.value("pen_style", "1"), "1");
    if (const auto *line = dynamic_cast<QGraphicsLineItem *>(mark.get()))
        QVERIFY(line->pen().isCosmetic());
    if (const auto *shape = dynamic_cast<QAbstractGraphicsShapeItem *>(mark.get()))
        QVERIFY(shape->pen().isCosmetic());

    // The other way reads the same.
    const std::unique_ptr<Annotation> streamed(kind.makeTypical());
    MarkXml::readStreamed(*streamed, xml);
    QCOMPARE(MarkXml::streamed(*streamed), MarkXml::streamed(*mark));
}

void TestAllMarks::antialiasingInFiles()
{
    QFETCH(MarkKind, kind);
    const QList<std::pair<QByteArray, bool>> cases{{"1", true},  {"0", false},   {"7", true},
                                                   {"-1", true}, {"yes", false}, {"", false}};
    for (const auto &[text, expected] : cases) {
        const std::unique_ptr<Annotation> mark(kind.makeNew());
        mark->setAntialiasing(!expected);
        MarkXml::load(*mark, "<" + kind.element + " antialias='" + text + "'/>");
        QCOMPARE(mark->antialiasing(), kind.storesAntialiasing ? expected : !expected);
    }
    const std::unique_ptr<Annotation> mark(kind.makeNew());
    QCOMPARE(MarkXml::attributes(MarkXml::streamed(*mark)).contains("antialias"), kind.storesAntialiasing);
}

void TestAllMarks::damagedFieldsDoNoHarm_data()
{
    QTest::addColumn<MarkKind>("kind");
    QTest::addColumn<QByteArray>("value");
    const QList<QByteArray> values{"",    "x",   "-1",   "256",    "1e30",       "-1e30",
                                   "inf", "nan", "1e99", "0.0001", "2147483647", "-2147483648",
                                   "6",   "15",  "16",   "-5.5",   "yes",        "\xC2\xA0"};
    for (const MarkKind &kind : markKinds()) {
        for (const QByteArray &value : values)
            QTest::addRow("%s \"%s\"", kind.element.constData(), value.constData()) << kind << value;
    }
}

void TestAllMarks::damagedFieldsDoNoHarm()
{
    QFETCH(MarkKind, kind);
    QFETCH(QByteArray, value);
    // Qt has its say about colours and widths out of range; that is not the point here.
    const auto handler = qInstallMessageHandler(ignoreMessage);
    const QByteArray xml = elementWithAll(kind.element, value);
    const std::unique_ptr<Annotation> loaded(kind.makeTypical());
    MarkXml::load(*loaded, xml);
    const std::unique_ptr<Annotation> streamed(kind.makeTypical());
    MarkXml::readStreamed(*streamed, xml);

    QElapsedTimer timer;
    timer.start();
    itemOf(streamed.get())->setFlag(QGraphicsItem::ItemIsSelectable);
    const QImage image = MarkPicture::ofItem(itemOf(streamed.get()), QRectF(-50, -50, 100, 100), true);
    const bool hit = itemOf(streamed.get())->contains(QPointF(1, 1));
    const qint64 elapsed = timer.elapsed();
    qInstallMessageHandler(handler);

    QCOMPARE(itemOf(loaded.get())->contains(QPointF(1, 1)), hit);
    QCOMPARE(MarkXml::streamed(*loaded), MarkXml::streamed(*streamed));
    QVERIFY(std::isfinite(itemOf(streamed.get())->pos().x()));
    QVERIFY(std::isfinite(itemOf(streamed.get())->boundingRect().width()));
    QVERIFY(!image.isNull());
    QVERIFY2(elapsed < 10000, "painting a damaged mark must not take long");
    // What was made of it can be saved and read again.
    const std::unique_ptr<Annotation> again(kind.makeNew());
    MarkXml::readStreamed(*again, MarkXml::streamed(*streamed));
    QCOMPARE(MarkXml::streamed(*again), MarkXml::streamed(*streamed));
}

void TestAllMarks::colourOutOfRangeIsInvalid()
{
    QTest::ignoreMessage(QtWarningMsg, "QColor::setRgb: RGB parameters out of range");
    PenLine line;
    MarkXml::load(line, "<pen_line red='300' green='10' blue='10'/>");
    QVERIFY(!line.pen().color().isValid());
}

void TestAllMarks::penStylesInFiles_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("style");
    QTest::newRow("none") << QByteArray("0") << "0";
    QTest::newRow("dash dot dot") << QByteArray("5") << "5";
    QTest::newRow("blanks around") << QByteArray(" 3 ") << "3";
    QTest::newRow("empty") << QByteArray() << "0";
    QTest::newRow("no number") << QByteArray("x") << "0";
    QTest::newRow("last that the type can hold") << QByteArray("15") << "15";
    // What the type cannot hold becomes a solid line.
    QTest::newRow("first beyond") << QByteArray("16") << "1";
    QTest::newRow("far beyond") << QByteArray("99") << "1";
    QTest::newRow("negative") << QByteArray("-1") << "1";
}

void TestAllMarks::penStylesInFiles()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, style);
    for (const MarkKind &kind : markKinds()) {
        const std::unique_ptr<Annotation> mark(kind.makeTypical());
        if (!MarkXml::attributes(MarkXml::streamed(*mark)).contains("pen_style"))
            continue;
        MarkXml::load(*mark, "<" + kind.element + " pen_style='" + text + "'/>");
        QCOMPARE(MarkXml::attributes(MarkXml::streamed(*mark)).value("pen_style"), style);
    }
}

void TestAllMarks::geometryIsWrittenAsItAppears()
{
    QFETCH(MarkKind, kind);
    const std::unique_ptr<Annotation> mark(kind.makeTypical());
    const QMap<QString, QString> plain = MarkXml::attributes(MarkXml::streamed(*mark));
    itemOf(mark.get())->setTransform(QTransform::fromScale(2, 4));
    const QMap<QString, QString> scaled = MarkXml::attributes(MarkXml::streamed(*mark));
    for (const char *name : {"x", "x1", "x2", "width"})
        QCOMPARE(scaled.value(name).toDouble(), 2 * plain.value(name).toDouble());
    for (const char *name : {"y", "y1", "y2", "height"})
        QCOMPARE(scaled.value(name).toDouble(), 4 * plain.value(name).toDouble());
    QCOMPARE(scaled.value("pos_x"), plain.value("pos_x"));
    QCOMPARE(scaled.value("pos_y"), plain.value("pos_y"));

    // Reading does not divide: the copy has the size that was seen, without a scale of its own.
    const std::unique_ptr<Annotation> copy(kind.makeNew());
    MarkXml::readStreamed(*copy, MarkXml::streamed(*mark));
    QVERIFY(itemOf(copy.get())->transform().isIdentity());
    const QMap<QString, QString> read = MarkXml::attributes(MarkXml::streamed(*copy));
    for (const char *name : {"x", "y", "width", "height", "x1", "y1", "x2", "y2"})
        QCOMPARE(read.value(name).toDouble(), scaled.value(name).toDouble());
    if (auto *stroke = dynamic_cast<Stroke *>(mark.get())) {
        QCOMPARE(dynamic_cast<Stroke *>(copy.get())->polygon().at(3), QPointF(2469, 68));
        QCOMPARE(stroke->polygon().at(3), QPointF(1234.5, 17));
    }
}

void TestAllMarks::cloneIsSelectableAndMovable()
{
    QFETCH(MarkKind, kind);
    const std::unique_ptr<Annotation> mark(kind.makeTypical());
    itemOf(mark.get())->setPos(100, 200);
    const std::unique_ptr<Annotation> copy(mark->clone());
    QGraphicsItem *item = itemOf(copy.get());
    QCOMPARE(item->pos(), kind.isCopiedEmpty ? QPointF(0, 0) : QPointF(120, 220));
    QVERIFY(item->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    QVERIFY(item->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(!item->scene());
    QVERIFY(!item->parentItem());
    QVERIFY(!copy->antialiasing());
    QCOMPARE(itemOf(mark.get())->pos(), QPointF(100, 200));
    QVERIFY(typeid(*copy) == typeid(*mark));
}

void TestAllMarks::smoothChangesNothingButPenLines()
{
    QFETCH(MarkKind, kind);
    const std::unique_ptr<Annotation> mark(kind.makeTypical());
    if (auto *stroke = dynamic_cast<Stroke *>(mark.get()))
        stroke->setPolygon(QPolygonF{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}});
    const QByteArray before = MarkXml::streamed(*mark);
    mark->smooth();
    QCOMPARE(MarkXml::streamed(*mark) == before, kind.element != "pen_line");
}

void TestAllMarks::laterMarksLieOnTop()
{
    QGraphicsScene scene;
    for (const QColor color : {Qt::red, Qt::blue}) {
        auto *rectangle = new RectangleAnn;
        rectangle->setBrush(color);
        rectangle->setRect(0, 0, 50, 50);
        QCOMPARE(rectangle->zValue(), 0.0);
        scene.addItem(rectangle);
    }
    QImage image(50, 50, QImage::Format_RGB32);
    QPainter painter(&image);
    scene.render(&painter, QRectF(0, 0, 50, 50), QRectF(0, 0, 50, 50));
    QCOMPARE(image.pixelColor(25, 25), QColor(Qt::blue));
}

void TestAllMarks::selectionIsFramedUnderTheOwnKeyAlone_data()
{
    QTest::addColumn<MarkKind>("kind");
    QTest::addColumn<QString>("ownKey");
    const QMap<QByteArray, QString> keys{{"pen_line", "PenTool/DrawSelection"},
                                         {"marker_line", "MarkerTool/ShowSelection"},
                                         {"line", "LineTool/ShowSelection"},
                                         {"bracket", "LineTool/ShowSelection"}};
    for (const MarkKind &kind : markKinds())
        QTest::newRow(kind.element.constData()) << kind << keys.value(kind.element);
}

void TestAllMarks::selectionIsFramedUnderTheOwnKeyAlone()
{
    QFETCH(MarkKind, kind);
    QFETCH(QString, ownKey);
    const QRectF canvas(-50, -50, 200, 120);
    const std::unique_ptr<Annotation> mark(kind.makeTypical());
    itemOf(mark.get())->setFlag(QGraphicsItem::ItemIsSelectable);
    const QImage plain = MarkPicture::ofItem(itemOf(mark.get()), canvas, true);
    for (const char *key : {"PenTool/DrawSelection", "PenTool/ShowSelection", "MarkerTool/DrawSelection",
                            "MarkerTool/ShowSelection", "LineTool/DrawSelection", "LineTool/ShowSelection",
                            "BracketTool/ShowSelection", "ShapeTool/ShowSelection", "TextBoxTool/ShowSelection"}) {
        QSettings().setValue(key, true);
        QCOMPARE(MarkPicture::ofItem(itemOf(mark.get()), canvas, true) != plain, key == ownKey);
        QSettings().remove(key);
    }
}

void TestAllMarks::isReachedFromTheSceneByCast()
{
    QFETCH(MarkKind, kind);
    QGraphicsScene scene;
    Annotation *mark = kind.makeTypical();
    scene.addItem(itemOf(mark));
    QCOMPARE(scene.items().size(), 1);
    QCOMPARE(dynamic_cast<Annotation *>(scene.items().constFirst()), mark);
    // Deleting it as a mark deletes the whole item: the scene forgets it.
    delete mark;
    QVERIFY(scene.items().isEmpty());
}

REGISTER_TEST(TestAllMarks)
#include "tst_allmarks.moc"
