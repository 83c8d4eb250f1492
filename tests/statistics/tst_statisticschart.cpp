// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/statisticschart.h"
#include "support/markpicture.h"
#include "support/testmain.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTest>

#include <climits>
#include <cmath>

namespace {

/// Lines of all kinds, of code, of comments and empty ones: columns 1 to 4 of a row.
using Counts = std::array<int, 4>;

constexpr QSize chartSize(440, 320);

/// Makes the protected operations reachable.
class OpenChart : public StatisticsChart
{
public:
    using StatisticsChart::edit;
    using StatisticsChart::horizontalOffset;
    using StatisticsChart::isIndexHidden;
    using StatisticsChart::moveCursor;
    using StatisticsChart::setSelection;
    using StatisticsChart::verticalOffset;
    using StatisticsChart::visualRegionForSelection;

    using StatisticsChart::CursorAction;
    using StatisticsChart::MoveDown;
    using StatisticsChart::MoveEnd;
    using StatisticsChart::MoveHome;
    using StatisticsChart::MoveLeft;
    using StatisticsChart::MoveNext;
    using StatisticsChart::MovePageDown;
    using StatisticsChart::MovePageUp;
    using StatisticsChart::MovePrevious;
    using StatisticsChart::MoveRight;
    using StatisticsChart::MoveUp;

    bool isEditing() const { return state() == EditingState; }
};

/// A chart without a frame on a model with these rows, of which some are selected.
struct ChartOf
{
    explicit ChartOf(const QList<Counts> &rows, const QList<int> &selected = {})
    {
        chart.setFrameShape(QFrame::NoFrame);
        chart.resize(chartSize);
        chart.setModel(&model);
        for (const Counts &row : rows)
            append(row);
        for (const int row : selected)
            select(row);
    }
    void append(const Counts &counts)
    {
        const int row = model.rowCount();
        model.insertRow(row);
        model.setData(model.index(row, 0), QStringLiteral("file"));
        for (int i = 0; i < 4; ++i)
            model.setData(model.index(row, i + 1), counts.at(std::size_t(i)));
    }
    void select(int row)
    {
        chart.selectionModel()->select(model.index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    QImage picture() { return chart.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    QStandardItemModel model{0, 5};
    OpenChart chart;
};

/// What the chart should look like, drawn from the rules alone.
QImage expectedPicture(const std::function<void(QPainter &)> &paint = {}, bool withCircle = true)
{
    QPixmap pixmap(chartSize);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.setFont(QApplication::font());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::black);
    painter.translate(8, 8);
    if (withCircle)
        painter.drawEllipse(0, 0, 284, 284);
    if (paint)
        paint(painter);
    painter.end();
    return pixmap.toImage().convertToFormat(QImage::Format_RGB32);
}

QBrush sweep(double from, const QColor &first, double to, const QColor &last)
{
    QConicalGradient gradient(142, 142, 0);
    gradient.setColorAt(from, first);
    gradient.setColorAt(to, last);
    return gradient;
}

/// Spans in sixteenths of a degree; @p percentages are texts with the places of their left ends.
struct ExpectedPie
{
    int commentsSpan = 0;
    int codeStart = 0;
    int codeSpan = 0;
    int emptyStart = 0;
    int emptySpan = 0;
    QString commentsText;
    QPoint commentsPlace;
    QString codeText;
    QPoint codePlace;
    QString totalText;

    void paint(QPainter &painter) const
    {
        painter.setBrush(sweep(0.0, QColor(255, 140, 140), 0.2, Qt::red));
        painter.drawPie(0, 0, 284, 284, 0, commentsSpan);
        painter.setPen(QColor(255, 220, 220));
        painter.drawText(commentsPlace, commentsText);
        painter.fillRect(294, 244, 10, 10, QColor(255, 68, 94));
        painter.setPen(Qt::black);
        painter.drawText(314, 254, "comments");

        painter.setBrush(sweep(0.0, QColor(140, 255, 140), 0.8, QColor(44, 171, 53)));
        painter.drawPie(0, 0, 284, 284, codeStart, codeSpan);
        painter.setPen(QColor(230, 255, 230));
        painter.drawText(codePlace, codeText);
        painter.fillRect(294, 259, 10, 10, QColor(44, 171, 53));
        painter.setPen(Qt::black);
        painter.drawText(314, 269, "code");

        painter.setBrush(sweep(0.6, QColor(170, 170, 255), 1.0, Qt::blue));
        painter.drawPie(0, 0, 284, 284, emptyStart, emptySpan);
        painter.fillRect(294, 274, 10, 10, QColor(77, 63, 255));
        painter.setPen(Qt::black);
        painter.drawText(314, 284, "empty lines");

        painter.setPen(Qt::darkGray);
        painter.drawText(294, 229, totalText);
    }
};

bool isReddish(const QColor &color)
{
    return color.red() > 200 && color.green() < 160 && color.blue() < 160;
}

bool isGreenish(const QColor &color)
{
    return color.green() > 160 && color.red() < 160 && color.blue() < 160;
}

bool isBluish(const QColor &color)
{
    return color.blue() > 200 && color.red() < 200 && color.green() < 200;
}

/// A point of the pie, in pixels from its centre, y upwards.
QColor inPie(const QImage &image, int x, int y)
{
    return image.pixelColor(8 + 142 + x, 8 + 142 - y);
}

} // namespace

class TestStatisticsChart : public QObject
{
    Q_OBJECT

private slots:
    void pie_data();
    void pie();
    void onlyTheCircle_data();
    void onlyTheCircle();
    void onlyTheBackground_data();
    void onlyTheBackground();
    void wedgesGoCounterclockwiseFromThreeOClock();
    void colorsGoOnOverTheWedges();
    void drawOverTheEdgeOfTheEarlierWedge();
    void lineCountsInAnyForm();
    void hugeCounts_data();
    void hugeCounts();
    void removedRowsLeaveTheCircle();
    void changedDataIsDrawn();
    void selectionIsDrawnWhenAsked();
    void anotherModel();
    void paletteOfTheChart();
    void groundIsLight();
    void placesStandForNothing();
    void draggingDrawsAFrame();
    void clickingSelectsNothing();
    void cursorMoves_data();
    void cursorMoves();
    void cursorWithoutAModel();
    void keysMoveAlongTheRows();
    void scrollBarsStay();
};

void TestStatisticsChart::pie_data()
{
    QTest::addColumn<QList<Counts>>("rows");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<ExpectedPie>("expected");

    ExpectedPie allCode;
    allCode.codeSpan = 5760;
    allCode.commentsText = "0 %";
    allCode.commentsPlace = {213, 142};
    allCode.codeText = "100 %";
    allCode.codePlace = {71, 142};
    allCode.emptyStart = 5760;
    allCode.totalText = "Total # of lines: 1";
    QTest::newRow("one line of code") << QList<Counts>{{1, 1, 0, 0}} << QList{0} << allCode;

    ExpectedPie fourths;
    fourths.commentsSpan = 1440;
    fourths.codeStart = 1440;
    fourths.codeSpan = 2880;
    fourths.emptyStart = 4320;
    fourths.emptySpan = 1440;
    fourths.commentsText = "25 %";
    fourths.commentsPlace = {192, 91};
    fourths.codeText = "50 %";
    fourths.codePlace = {71, 142};
    fourths.totalText = "Total # of lines: 8";
    QTest::newRow("all kinds") << QList<Counts>{{8, 4, 2, 2}} << QList{0} << fourths;
    QTest::newRow("sums of the selected rows")
        << QList<Counts>{{3, 1, 1, 1}, {100, 90, 5, 5}, {5, 3, 1, 1}} << QList{0, 2} << fourths;
    QTest::newRow("negative and zero values count for nothing")
        << QList<Counts>{{8, 4, -7, 2}, {-5, 0, 2, -1}, {0, 0, 0, 0}} << QList{0, 1, 2} << fourths;

    ExpectedPie comments;
    comments.commentsSpan = 5760;
    comments.commentsText = "100 %";
    comments.commentsPlace = {71, 142};
    comments.codeStart = 5760;
    comments.codeText = "0 %";
    // A little short of a whole turn, since the constant for pi is not exact.
    comments.codePlace = {212, 141};
    comments.emptyStart = 5760;
    comments.totalText = "Total # of lines: 12";
    QTest::newRow("comments alone") << QList<Counts>{{12, 0, 12, 0}} << QList{0} << comments;

    ExpectedPie empty;
    empty.emptySpan = 5760;
    empty.commentsText = empty.codeText = "0 %";
    empty.commentsPlace = empty.codePlace = {213, 142};
    empty.totalText = "Total # of lines: 7";
    QTest::newRow("empty lines alone") << QList<Counts>{{7, 0, 0, 7}} << QList{0} << empty;

    // 359.99 degrees are 5759.84 sixteenths, 0.01 are 0.16.
    ExpectedPie cut;
    cut.codeSpan = 5759;
    cut.emptyStart = 5759;
    cut.commentsText = "0 %";
    cut.commentsPlace = {213, 142};
    cut.codeText = "100 %";
    cut.codePlace = {71, 141};
    cut.totalText = "Total # of lines: 36000";
    QTest::newRow("spans are cut, not rounded") << QList<Counts>{{36000, 35999, 0, 1}} << QList{0} << cut;

    // 120 degrees each; the percentage has three digits.
    ExpectedPie thirds;
    thirds.commentsSpan = 1920;
    thirds.codeStart = thirds.codeSpan = 1920;
    thirds.emptyStart = 3840;
    thirds.emptySpan = 1920;
    thirds.commentsText = thirds.codeText = "33.3 %";
    thirds.commentsPlace = {177, 80};
    thirds.totalText = "Total # of lines: 3";
    thirds.codePlace = {71, 142};
    QTest::newRow("thirds") << QList<Counts>{{3, 1, 1, 1}} << QList{0} << thirds;

    // A share of less than a tenth of a percent; 10000 lines are no thousands for the total.
    ExpectedPie small;
    small.commentsSpan = 0;
    small.codeStart = 0;
    small.codeSpan = 5759;
    small.emptyStart = 5760;
    small.commentsText = "0.01 %";
    small.commentsPlace = {212, 141};
    small.codeText = "100 %";
    small.codePlace = {71, 142};
    small.totalText = "Total # of lines: 10000";
    QTest::newRow("one comment among many lines") << QList<Counts>{{10000, 9999, 1, 0}} << QList{0} << small;
}

void TestStatisticsChart::pie()
{
    QFETCH(const QList<Counts>, rows);
    QFETCH(const QList<int>, selected);
    QFETCH(const ExpectedPie, expected);
    ChartOf stage(rows, selected);
    const QImage picture = expectedPicture([&](QPainter &painter) { expected.paint(painter); });
    QCOMPARE(MarkPicture::difference(stage.picture(), picture), QString());
}

void TestStatisticsChart::onlyTheCircle_data()
{
    QTest::addColumn<QList<Counts>>("rows");
    QTest::addColumn<QList<int>>("selected");
    QTest::newRow("nothing selected") << QList<Counts>{{5, 5, 0, 0}} << QList<int>();
    QTest::newRow("selected rows without lines") << QList<Counts>{{5, 5, 0, 0}, {0, 3, 3, 3}} << QList{1};
    QTest::newRow("selected rows below zero") << QList<Counts>{{5, 5, 0, 0}, {-3, 3, 3, 3}} << QList{1};
}

void TestStatisticsChart::onlyTheCircle()
{
    QFETCH(const QList<Counts>, rows);
    QFETCH(const QList<int>, selected);
    ChartOf stage(rows, selected);
    QCOMPARE(MarkPicture::difference(stage.picture(), expectedPicture()), QString());
}

void TestStatisticsChart::onlyTheBackground_data()
{
    QTest::addColumn<QList<Counts>>("rows");
    QTest::addColumn<QList<int>>("selected");
    QTest::newRow("no rows") << QList<Counts>() << QList<int>();
    QTest::newRow("rows without lines") << QList<Counts>{{0, 0, 0, 0}, {0, 1, 1, 1}} << QList{0, 1};
    QTest::newRow("rows below zero") << QList<Counts>{{-1, 4, 4, 4}} << QList{0};
}

void TestStatisticsChart::onlyTheBackground()
{
    QFETCH(const QList<Counts>, rows);
    QFETCH(const QList<int>, selected);
    ChartOf stage(rows, selected);
    QCOMPARE(MarkPicture::difference(stage.picture(), expectedPicture({}, false)), QString());
}

void TestStatisticsChart::wedgesGoCounterclockwiseFromThreeOClock()
{
    ChartOf stage({{4, 1, 1, 2}}, {0});
    const QImage image = stage.picture();
    QVERIFY(isReddish(inPie(image, 100, 30)));
    QVERIFY(isReddish(inPie(image, 20, 110)));
    QVERIFY(isGreenish(inPie(image, -20, 110)));
    QVERIFY(isGreenish(inPie(image, -100, 30)));
    QVERIFY(isBluish(inPie(image, -100, -30)));
    QVERIFY(isBluish(inPie(image, 100, -30)));
}

void TestStatisticsChart::colorsGoOnOverTheWedges()
{
    // Code from 180 degrees on starts in mid-sweep, not with the first colour.
    ChartOf stage({{2, 1, 1, 0}}, {0});
    const QColor begin = inPie(stage.picture(), -100, -3);
    const double t = 0.5 / 0.8;
    const QColor expected(int(140 + t * (44 - 140)), int(255 + t * (171 - 255)), int(140 + t * (53 - 140)));
    QVERIFY2(std::abs(begin.red() - expected.red()) < 6 && std::abs(begin.green() - expected.green()) < 6,
             qPrintable(begin.name()));
    // Comments are plain red from a fifth on.
    QCOMPARE(inPie(stage.picture(), -100, 5), QColor(Qt::red));
}

void TestStatisticsChart::drawOverTheEdgeOfTheEarlierWedge()
{
    // The outline of the first wedge has the foreground of the palette, those of the others are black.
    ChartOf stage({{4, 1, 2, 1}}, {0});
    QPalette palette = stage.chart.palette();
    palette.setColor(QPalette::WindowText, Qt::magenta);
    stage.chart.setPalette(palette);
    const QImage image = stage.picture();
    const QColor rim = image.pixelColor(8 + 142, 8);
    QVERIFY2(rim.red() > 200 && rim.blue() > rim.green() + 60, qPrintable(rim.name()));
    const QColor black = inPie(image, -100, 0);
    QVERIFY2(qMax(black.red(), black.blue()) < 140, qPrintable(black.name()));
}

void TestStatisticsChart::lineCountsInAnyForm()
{
    ChartOf plain({{8, 4, 2, 2}}, {0});
    ChartOf texts({{1, 0, 0, 0}}, {0});
    int column = 1;
    for (const char *text : {"8", "4", "2", "2"})
        texts.model.setData(texts.model.index(0, column++), text);
    QCOMPARE(MarkPicture::difference(texts.picture(), plain.picture()), QString());
    texts.model.setData(texts.model.index(0, 1), "many");
    QCOMPARE(MarkPicture::difference(texts.picture(), expectedPicture({}, false)), QString());
}

void TestStatisticsChart::hugeCounts_data()
{
    QTest::addColumn<QList<Counts>>("rows");
    QTest::addColumn<QString>("total");
    QTest::newRow("largest in one row") << QList<Counts>{{INT_MAX, INT_MAX, 0, 0}} << "Total # of lines: 2147483647";
    QTest::newRow("beyond in two") << QList<Counts>{{INT_MAX, INT_MAX, 0, 0}, {INT_MAX, INT_MAX, 0, 0}}
                                   << "Total # of lines: 4294967294";
    QTest::newRow("smallest counts for nothing")
        << QList<Counts>{{INT_MAX, INT_MAX, INT_MIN, INT_MIN}, {INT_MIN, INT_MIN, 0, 0}}
        << "Total # of lines: 2147483647";
}

void TestStatisticsChart::hugeCounts()
{
    QFETCH(const QList<Counts>, rows);
    QFETCH(const QString, total);
    QList<int> all;
    for (int i = 0; i < rows.size(); ++i)
        all.append(i);
    ChartOf stage(rows, all);
    ExpectedPie expected;
    expected.codeSpan = expected.emptyStart = 5760;
    expected.commentsText = "0 %";
    expected.commentsPlace = {213, 142};
    expected.codeText = "100 %";
    expected.codePlace = {71, 142};
    expected.totalText = total;
    const QImage picture = expectedPicture([&](QPainter &painter) { expected.paint(painter); });
    QCOMPARE(MarkPicture::difference(stage.picture(), picture), QString());
    // More of one kind than of all: round and round, but no harm.
    stage.append({1, INT_MAX, INT_MAX, INT_MAX});
    stage.chart.selectionModel()->clear();
    stage.select(int(rows.size()));
    QVERIFY(stage.picture() != expectedPicture());
}

void TestStatisticsChart::removedRowsLeaveTheCircle()
{
    ChartOf stage({{5, 5, 0, 0}}, {0});
    stage.model.removeRows(0, 1);
    QCOMPARE(MarkPicture::difference(stage.picture(), expectedPicture()), QString());
    // The next change of data notices.
    stage.append({0, 0, 0, 0});
    QCOMPARE(MarkPicture::difference(stage.picture(), expectedPicture({}, false)), QString());
}

void TestStatisticsChart::changedDataIsDrawn()
{
    ChartOf stage({{5, 5, 0, 0}}, {0});
    stage.chart.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage.chart));
    const QImage before = stage.picture();
    stage.model.setData(stage.model.index(0, 1), 10);
    stage.model.setData(stage.model.index(0, 3), 5);
    ChartOf expected({{10, 5, 5, 0}}, {0});
    QVERIFY(stage.picture() != before);
    QCOMPARE(MarkPicture::difference(stage.picture(), expected.picture()), QString());
}

/// Counts how often a widget was painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

void TestStatisticsChart::selectionIsDrawnWhenAsked()
{
    ChartOf stage({{5, 5, 0, 0}, {3, 0, 3, 0}}, {0});
    stage.chart.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage.chart));
    QCoreApplication::processEvents();
    const PaintCounter counter(stage.chart.viewport());
    stage.select(1);
    QCoreApplication::processEvents();
    QCOMPARE(counter.count, 0);
    stage.chart.redrawChart();
    QTRY_COMPARE(counter.count, 1);
}

void TestStatisticsChart::anotherModel()
{
    ChartOf stage({{5, 5, 0, 0}}, {0});
    // What was counted stays until data change; nothing is drawn from a model that is gone.
    stage.chart.setModel(nullptr);
    QCOMPARE(MarkPicture::difference(stage.picture(), expectedPicture()), QString());
    QStandardItemModel narrow(1, 2);
    stage.chart.setModel(&narrow);
    narrow.setData(narrow.index(0, 1), 4);
    stage.chart.selectionModel()->select(narrow.index(0, 1), QItemSelectionModel::Select);
    // Lines of no kind: three wedges of nothing, and the legend.
    QVERIFY(stage.picture() != expectedPicture());
}

void TestStatisticsChart::paletteOfTheChart()
{
    ChartOf stage({{5, 5, 0, 0}});
    QPalette palette = stage.chart.palette();
    palette.setColor(QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::WindowText, Qt::blue);
    stage.chart.setPalette(palette);
    const QImage image = stage.picture();
    QCOMPARE(image.pixelColor(5, 5), QColor(Qt::yellow));
    QVERIFY(image.pixelColor(8 + 142, 8).blue() > image.pixelColor(8 + 142, 8).red());
    palette.setColor(QPalette::Disabled, QPalette::Base, Qt::cyan);
    stage.chart.setPalette(palette);
    stage.chart.setEnabled(false);
    QCOMPARE(stage.picture().pixelColor(5, 5), QColor(Qt::cyan));
}

void TestStatisticsChart::groundIsLight()
{
    // The legend is black, so that it could not be read on a dark ground.
    const QPalette before = QApplication::palette();
    QPalette dark;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        dark.setColor(role, QColor(30, 30, 30));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, Qt::white);
    QApplication::setPalette(dark);
    ChartOf stage({{5, 5, 0, 0}}, {0});
    const QImage inDark = stage.picture();
    QApplication::setPalette(before);
    ChartOf light({{5, 5, 0, 0}}, {0});
    QCOMPARE(MarkPicture::difference(inDark, light.picture()), QString());
}

void TestStatisticsChart::placesStandForNothing()
{
    ChartOf stage({{5, 5, 0, 0}}, {0});
    const QModelIndex index = stage.model.index(0, 1);
    QVERIFY(stage.chart.visualRect(index).isNull());
    QVERIFY(!stage.chart.indexAt(QPoint(150, 150)).isValid());
    QVERIFY(!stage.chart.isIndexHidden(index));
    QVERIFY(!stage.chart.edit(index, QAbstractItemView::AllEditTriggers, nullptr));
    QVERIFY(stage.chart.visualRegionForSelection(stage.chart.selectionModel()->selection()).isEmpty());
    const QItemSelection before = stage.chart.selectionModel()->selection();
    stage.chart.setSelection(QRect(0, 0, 1000, 1000), QItemSelectionModel::ClearAndSelect);
    QCOMPARE(stage.chart.selectionModel()->selection(), before);
    stage.chart.scrollTo(index);
    QCOMPARE(stage.chart.horizontalOffset(), 0);
    QCOMPARE(stage.chart.verticalOffset(), 0);
}

void TestStatisticsChart::draggingDrawsAFrame()
{
    ChartOf stage({{5, 5, 0, 0}}, {0});
    QWidget *viewport = stage.chart.viewport();
    stage.chart.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage.chart));
    QVERIFY(!stage.chart.findChild<QRubberBand *>());
    // Moving without a press is no drag.
    QTest::mouseMove(viewport, QPoint(10, 10));
    QVERIFY(!stage.chart.findChild<QRubberBand *>());
    QTest::mousePress(viewport, Qt::LeftButton, {}, QPoint(100, 120));
    const auto *band = stage.chart.findChild<QRubberBand *>();
    QVERIFY(band);
    QCOMPARE(band->parent(), &stage.chart);
    QCOMPARE(band->shape(), QRubberBand::Rectangle);
    QVERIFY(band->isVisible());
    QMouseEvent move(QEvent::MouseMove, QPoint(60, 160), viewport->mapToGlobal(QPoint(60, 160)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &move);
    QCOMPARE(band->geometry(), QRect(QPoint(100, 120), QPoint(60, 160)).normalized());
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, QPoint(60, 160));
    QVERIFY(!band->isVisible());
    QTest::mousePress(viewport, Qt::LeftButton, {}, QPoint(10, 20));
    QCOMPARE(stage.chart.findChildren<QRubberBand *>().size(), 1);
    QVERIFY(band->isVisible());
    QCOMPARE(band->pos(), QPoint(10, 20));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, QPoint(10, 20));
}

void TestStatisticsChart::clickingSelectsNothing()
{
    ChartOf stage({{5, 5, 0, 0}, {3, 0, 3, 0}}, {0});
    const auto selectsMore = [&] { return stage.chart.selectionModel()->isSelected(stage.model.index(1, 0)); };
    for (const QPoint place : {QPoint(150, 150), QPoint(5, 5), QPoint(320, 270)}) {
        QTest::mouseClick(stage.chart.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(stage.chart.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseClick(stage.chart.viewport(), Qt::LeftButton, Qt::ControlModifier, place);
        QVERIFY(!selectsMore());
    }
    QTest::mousePress(stage.chart.viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseMove(stage.chart.viewport(), QPoint(300, 300));
    QTest::mouseRelease(stage.chart.viewport(), Qt::LeftButton, {}, QPoint(300, 300));
    QVERIFY(!selectsMore());
    QVERIFY(!stage.chart.currentIndex().isValid());
}

void TestStatisticsChart::cursorMoves_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    const std::pair<const char *, int> up[]{{"up", OpenChart::MoveUp}, {"left", OpenChart::MoveLeft}};
    const std::pair<const char *, int> down[]{{"down", OpenChart::MoveDown}, {"right", OpenChart::MoveRight}};
    for (const auto &[name, action] : up) {
        QTest::addRow("%s from the middle", name) << action << 1 << 0;
        QTest::addRow("%s from the first", name) << action << 0 << 0;
        QTest::addRow("%s from nowhere", name) << action << -1 << -1;
    }
    for (const auto &[name, action] : down) {
        QTest::addRow("%s from the middle", name) << action << 1 << 2;
        QTest::addRow("%s from the last", name) << action << 2 << 2;
        QTest::addRow("%s from nowhere", name) << action << -1 << -1;
    }
    for (const int action : {OpenChart::MoveHome, OpenChart::MoveEnd, OpenChart::MovePageUp, OpenChart::MovePageDown,
                             OpenChart::MoveNext, OpenChart::MovePrevious})
        QTest::addRow("other %d", action) << action << 1 << 1;
}

void TestStatisticsChart::cursorMoves()
{
    QFETCH(const int, action);
    QFETCH(const int, from);
    QFETCH(const int, to);
    ChartOf stage({{1, 1, 0, 0}, {2, 2, 0, 0}, {3, 3, 0, 0}});
    stage.chart.selectionModel()->setCurrentIndex(stage.model.index(from, 2), QItemSelectionModel::NoUpdate);
    const QModelIndex moved = stage.chart.moveCursor(OpenChart::CursorAction(action), {});
    QCOMPARE(moved, stage.model.index(to, 2));
    QCOMPARE(stage.chart.currentIndex(), stage.model.index(from, 2));
}

void TestStatisticsChart::cursorWithoutAModel()
{
    OpenChart chart;
    QVERIFY(!chart.moveCursor(OpenChart::MoveDown, {}).isValid());
    QVERIFY(!chart.moveCursor(OpenChart::MoveUp, {}).isValid());
    QStandardItemModel empty(0, 5);
    chart.setModel(&empty);
    QVERIFY(!chart.moveCursor(OpenChart::MoveDown, {}).isValid());
    QVERIFY(!chart.moveCursor(OpenChart::MoveUp, {}).isValid());
    chart.resize(50, 50);
    QVERIFY(!chart.grab().isNull());
}

void TestStatisticsChart::keysMoveAlongTheRows()
{
    ChartOf stage({{1, 1, 0, 0}, {2, 2, 0, 0}, {3, 3, 0, 0}});
    stage.chart.show();
    QVERIFY(QTest::qWaitForWindowActive(&stage.chart));
    stage.chart.setCurrentIndex(stage.model.index(0, 1));
    QTest::keyClick(&stage.chart, Qt::Key_Down);
    QTest::keyClick(&stage.chart, Qt::Key_Right);
    QTest::keyClick(&stage.chart, Qt::Key_Down);
    QCOMPARE(stage.chart.currentIndex(), stage.model.index(2, 1));
    QTest::keyClick(&stage.chart, Qt::Key_Left);
    QCOMPARE(stage.chart.currentIndex(), stage.model.index(1, 1));
    // No key opens an editor.
    QTest::keyClick(&stage.chart, Qt::Key_F2);
    QTest::keyClick(&stage.chart, Qt::Key_A);
    QVERIFY(!stage.chart.isEditing());
}

void TestStatisticsChart::scrollBarsStay()
{
    ChartOf stage({{1, 1, 0, 0}}, {0});
    stage.chart.show();
    for (const QSize size : {QSize(40, 30), QSize(1000, 800), QSize(1, 1)}) {
        stage.chart.resize(size);
        for (const QScrollBar *bar : {stage.chart.horizontalScrollBar(), stage.chart.verticalScrollBar()}) {
            QCOMPARE(bar->minimum(), 0);
            QCOMPARE(bar->maximum(), 0);
        }
    }
}

REGISTER_TEST(TestStatisticsChart)
#include "tst_statisticschart.moc"
