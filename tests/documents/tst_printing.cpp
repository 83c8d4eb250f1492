// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documentitem.h"
#include "documents/faketools.h"
#include "documents/page.h"
#include "support/fakehost.h"
#include "support/pdfprobe.h"
#include "support/testmain.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QDate>
#include <QFile>
#include <QFontMetrics>
#include <QPrinter>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

namespace {

constexpr QRgb bandBlue = qRgb(60, 157, 255);
constexpr QRgb markRed = qRgb(255, 0, 0);
constexpr QRgb overlayGreen = qRgb(0, 255, 0);
const QStringList printKeys{"PrintHeader",      "PrintFileName",    "PrintDate",
                            "PrintPageNumbers", "PrintLineNumbers", "PrintAnnotations"};

void setPrinting(const char *key, bool on)
{
    QSettings().setValue(QStringLiteral("Printing/%1").arg(QLatin1String(key)), on);
}

void setPrintingOff()
{
    for (const QString &key : printKeys)
        setPrinting(key.toLatin1().constData(), false);
}

void fill(Page *page, int lines)
{
    QString text;
    QString numbers;
    for (int line = 1; line <= lines; ++line) {
        text += (line == 1 ? QStringLiteral("text%1x") : QStringLiteral("\ntext%1x")).arg(line);
        numbers += QStringLiteral("%1\n").arg(line);
    }
    page->setTextContents(QStringLiteral("/folder/letter.txt"), text, numbers);
}

/// A mark that tells how the mouse cursor looks while it is printed.
class WatchingMark : public TestMark
{
public:
    using TestMark::TestMark;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        const QCursor *cursor = QApplication::overrideCursor();
        shapes.append(cursor ? int(cursor->shape()) : -1);
        TestMark::paint(painter, option, widget);
    }
    QList<int> shapes;
};

/// A printer into a PDF file, and what the file then shows at one pixel for one device pixel.
class PaperTrail
{
public:
    explicit PaperTrail(bool fullPage = true) : printer(QPrinter::ScreenResolution)
    {
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setFullPage(fullPage);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path());
    }
    QString path() const { return m_folder.filePath(QStringLiteral("out.pdf")); }
    PdfProbe pdf() const { return PdfProbe(path()); }
    QImage sheet(int number) const { return pdf().picture(number, printer.resolution()); }
    QRectF area() const { return printer.pageRect(QPrinter::DevicePixel); }
    double headerHeight() const { return QFontMetrics(QFont(QFont(), &printer)).height() + 10; }
    /// Height of a sheet between the margins.
    double usable() const
    {
        const QMargins margins = printer.pageLayout().marginsPixels(printer.resolution());
        return area().height() - margins.top() - margins.bottom();
    }

    QPrinter printer;

private:
    QTemporaryDir m_folder;
};

double lineHeight(const Page &page)
{
    const QTextDocument *document = page.textDocument();
    return document->documentLayout()->blockBoundingRect(document->firstBlock()).height();
}

/// Smallest rectangle around the pixels of this colour.
QRect placeOf(const QImage &picture, QRgb color)
{
    QRect place;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == color)
                place |= QRect(x, y, 1, 1);
        }
    }
    return place;
}

/// Whether @p place is where a mark printed at this position would be, a pixel more or less.
bool isMarkAt(const QRect &place, const QPointF &pos)
{
    const QRectF expected(pos, QSizeF(TestMark::side, TestMark::side));
    const QRectF outer = expected.adjusted(-1.5, -1.5, 1.5, 1.5);
    const QRectF inner = expected.adjusted(1.5, 1.5, -1.5, -1.5);
    return outer.contains(QRectF(place)) && QRectF(place).contains(inner);
}

} // namespace

class TestPrinting : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }

    void sheetCount_data();
    void sheetCount();
    void everyLineIsPrintedOnce();
    void headerTexts_data();
    void headerTexts();
    void headerIsABand();
    void headerlessTextStartsAtTheTop();
    void dateAndTime();
    void oneUnitIsOnePixel_data();
    void oneUnitIsOnePixel();
    void whatLiesRightOfThePaperIsCut();
    void pictureStandsBelowItsMargin();
    void textIsVectors();
    void annotations_data();
    void annotations();
    void selectionAndCaretStay_data();
    void selectionAndCaretStay();
    void lineNumbers_data();
    void lineNumbers();
    void overlayIsOnPaper();
    void waitCursorIsOn();
    void unwritableTarget();
    void noRoomForALine_data();
    void noRoomForALine();
    void emptyPages();
    void noPrinter();
};

void TestPrinting::sheetCount_data()
{
    QTest::addColumn<bool>("image");
    QTest::addColumn<bool>("header");
    QTest::addColumn<bool>("fullPage");
    for (const bool image : {false, true}) {
        for (const bool header : {false, true}) {
            for (const bool fullPage : {false, true}) {
                QTest::addRow("%s%s%s", image ? "picture" : "text", header ? ", header" : "",
                              fullPage ? ", full page" : "")
                    << image << header << fullPage;
            }
        }
    }
}

void TestPrinting::sheetCount()
{
    QFETCH(bool, image);
    QFETCH(bool, header);
    QFETCH(bool, fullPage);
    setPrinting("PrintHeader", header);
    Page page(nullptr);
    if (image) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.png"));
        QVERIFY(QImage(20, 20, QImage::Format_RGB32).save(path));
        QVERIFY(page.setImageContents(path, QString()));
    } else {
        fill(&page, 3);
    }
    const PaperTrail measure(fullPage);
    const double usable = measure.usable() - (header ? measure.headerHeight() : 0.0);
    const double step = image ? usable - 5.0 : lineHeight(page) * int(usable / lineHeight(page));
    QVERIFY(step > 500.0);
    const std::pair<double, int> heights[]{{1.0, 1},        {step - 1.0, 1}, {step, 1},
                                           {step + 1.0, 2}, {2 * step, 2},   {2 * step + 1.0, 3}};
    for (const auto &[height, sheets] : heights) {
        page.setSceneRect(0, 0, 100, height);
        PaperTrail paper(fullPage);
        QVERIFY(page.printPage(&paper.printer));
        QCOMPARE(paper.pdf().pages(), sheets);
    }
}

void TestPrinting::everyLineIsPrintedOnce()
{
    constexpr int lines = 1000;
    Page page(nullptr);
    fill(&page, lines);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    const int sheets = paper.pdf().pages();
    QVERIFY(sheets > 10);
    // What lies below the last whole line of a sheet is cut off.
    const int header = int(paper.headerHeight());
    const double rows = int((paper.usable() - header) / lineHeight(page));
    const QRect area(0, header, int(paper.area().width()), int(rows * lineHeight(page)));
    static const QRegularExpression word(QStringLiteral("text(\\d+)x"));
    int next = 1;
    for (int sheet = 1; sheet <= sheets; ++sheet) {
        auto found = word.globalMatch(paper.pdf().textIn(area, sheet, paper.printer.resolution()));
        while (found.hasNext())
            QCOMPARE(found.next().captured(1).toInt(), next++);
    }
    QCOMPARE(next, lines + 1);
}

void TestPrinting::headerTexts_data()
{
    QTest::addColumn<QStringList>("off");
    QTest::addColumn<QString>("shown"); // f: file name, d: date, p: page number
    QTest::newRow("all") << QStringList() << "fdp";
    QTest::newRow("no file name") << QStringList{"PrintFileName"} << "dp";
    QTest::newRow("no date") << QStringList{"PrintDate"} << "fp";
    QTest::newRow("no page numbers") << QStringList{"PrintPageNumbers"} << "fd";
    QTest::newRow("empty band") << QStringList{"PrintFileName", "PrintDate", "PrintPageNumbers"} << "";
    QTest::newRow("no header") << QStringList{"PrintHeader"} << "";
}

void TestPrinting::headerTexts()
{
    QFETCH(QStringList, off);
    QFETCH(QString, shown);
    for (const QString &key : off)
        setPrinting(key.toLatin1().constData(), false);
    Page page(nullptr);
    fill(&page, 100);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    QCOMPARE(paper.pdf().pages(), 2);
    for (int sheet = 1; sheet <= 2; ++sheet) {
        const QString text = paper.pdf().text(sheet);
        QCOMPARE(text.contains(QStringLiteral("letter.txt")), shown.contains('f'));
        QCOMPARE(text.contains(QString::number(QDate::currentDate().year()) + ','), shown.contains('d'));
        QCOMPARE(text.contains(QStringLiteral("Page %1/2").arg(sheet)), shown.contains('p'));
        QVERIFY(!text.contains(QStringLiteral("/folder")));
    }
}

void TestPrinting::headerIsABand()
{
    Page page(nullptr);
    fill(&page, 3);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    const QImage sheet = paper.sheet(1);
    const int bottom = int(paper.headerHeight());
    // Free of text: the edges, and a place between the texts.
    for (const int x : {1, sheet.width() * 3 / 8, sheet.width() - 3}) {
        QCOMPARE(sheet.pixel(x, 1), bandBlue);
        QCOMPARE(sheet.pixel(x, bottom - 2), bandBlue);
        QVERIFY(sheet.pixel(x, bottom + 2) != bandBlue);
    }
    QVERIFY(countPixels(sheet, qRgb(245, 245, 245)) > 20);
    // The date starts at the left, the page number ends at the right, the name stands in the middle.
    const QRect texts = placeOf(sheet.copy(0, 0, sheet.width(), bottom), qRgb(245, 245, 245));
    QVERIFY(texts.left() >= 4 && texts.left() < 10);
    QVERIFY(texts.right() <= sheet.width() - 4 && texts.right() > sheet.width() - 12);
    const QRect name = placeOf(sheet.copy(sheet.width() * 3 / 8, 0, sheet.width() / 4, bottom), qRgb(245, 245, 245));
    QVERIFY(qAbs(name.center().x() - sheet.width() / 8) < 4);
}

void TestPrinting::headerlessTextStartsAtTheTop()
{
    setPrintingOff();
    Page page(nullptr);
    fill(&page, 3);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    const QImage sheet = paper.sheet(1);
    QCOMPARE(countPixels(sheet, bandBlue), 0);
    QVERIFY(placeOf(sheet, qRgb(0, 0, 0)).top() < lineHeight(page));
}

void TestPrinting::dateAndTime()
{
    const QString before = QDate::currentDate().toString(Qt::TextDate);
    Page page(nullptr);
    fill(&page, 3);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    const QString after = QDate::currentDate().toString(Qt::TextDate);
    static const QRegularExpression header(QStringLiteral("^\\s*(.+), (\\d\\d:\\d\\d:\\d\\d)\\s"));
    const auto match = header.match(paper.pdf().text());
    QVERIFY(match.hasMatch());
    QVERIFY(match.captured(1) == before || match.captured(1) == after);
}

void TestPrinting::oneUnitIsOnePixel_data()
{
    QTest::addColumn<bool>("header");
    QTest::addColumn<bool>("fullPage");
    QTest::newRow("plain") << false << true;
    QTest::newRow("header") << true << true;
    QTest::newRow("margins") << false << false;
    QTest::newRow("header and margins") << true << false;
}

void TestPrinting::oneUnitIsOnePixel()
{
    QFETCH(bool, header);
    QFETCH(bool, fullPage);
    setPrinting("PrintHeader", header);
    Page page(nullptr);
    fill(&page, 3);
    PaperTrail paper(fullPage);
    const double headerHeight = header ? paper.headerHeight() : 0.0;
    const double step = lineHeight(page) * int((paper.usable() - headerHeight) / lineHeight(page));
    page.setSceneRect(0, 0, 2000, 2 * step);
    page.putOnScene(new TestMark({100.0, 305.0}));
    page.putOnScene(new TestMark({200.0, step + 405.0}));
    QVERIFY(page.printPage(&paper.printer));
    QCOMPARE(paper.pdf().pages(), 2);
    const QPointF corner = paper.area().topLeft() + QPointF(0.0, headerHeight);
    // Every sheet starts five units below where the last one ended, counted from the scene's top.
    QVERIFY(isMarkAt(placeOf(paper.sheet(1), markRed), corner + QPointF(100.0, 300.0)));
    QVERIFY(isMarkAt(placeOf(paper.sheet(2), markRed), corner + QPointF(200.0, 400.0)));
}

void TestPrinting::whatLiesRightOfThePaperIsCut()
{
    Page page(nullptr);
    fill(&page, 3);
    PaperTrail paper(false);
    page.putOnScene(new TestMark({paper.area().width() + 1.0, 100.0}));
    QVERIFY(page.printPage(&paper.printer));
    QCOMPARE(countPixels(paper.sheet(1), markRed), 0);
}

void TestPrinting::pictureStandsBelowItsMargin()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.png"));
    QImage picture(60, 40, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    QVERIFY(picture.save(path));
    Page page(nullptr);
    QVERIFY(page.setImageContents(path, QString()));
    page.putOnScene(new TestMark({20.0, 15.0}));
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    QCOMPARE(paper.pdf().pages(), 1);
    QVERIFY(isMarkAt(placeOf(paper.sheet(1), markRed), QPointF(20.0, paper.headerHeight() + 5.0 + 10.0)));
    QVERIFY(paper.pdf().text().contains(QStringLiteral("a.png")));
}

void TestPrinting::textIsVectors()
{
    Page page(nullptr);
    fill(&page, 30);
    page.putOnScene(new TestMark({100.0, 100.0}));
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    QCOMPARE(paper.pdf().images(), 0);
    QVERIFY(paper.pdf().text().contains(QStringLiteral("text30x")));
}

void TestPrinting::annotations_data()
{
    QTest::addColumn<bool>("shown");
    QTest::addColumn<bool>("printed");
    QTest::newRow("shown and printed") << true << true;
    QTest::newRow("shown, not printed") << true << false;
    QTest::newRow("hidden, but printed") << false << true;
    QTest::newRow("hidden and not printed") << false << false;
}

void TestPrinting::annotations()
{
    QFETCH(bool, shown);
    QFETCH(bool, printed);
    setPrinting("PrintAnnotations", printed);
    Page page(nullptr);
    fill(&page, 3);
    auto *mark = new TestMark({100.0, 100.0});
    page.putOnScene(mark);
    page.setAnnotationsHidden(!shown);
    page.setModified(false);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    QCOMPARE(countPixels(paper.sheet(1), markRed) > 0, printed);
    QCOMPARE(page.annotationsVisible(), shown);
    QCOMPARE(mark->isVisible(), shown);
    QVERIFY(!page.isModified());
}

void TestPrinting::selectionAndCaretStay_data()
{
    QTest::addColumn<bool>("shown");
    QTest::addColumn<bool>("printed");
    for (const bool shown : {false, true}) {
        for (const bool printed : {false, true})
            QTest::addRow("%s, %s", shown ? "shown" : "hidden", printed ? "printed" : "not printed")
                << shown << printed;
    }
}

/// Marks that paper does not want are hidden meanwhile, and hidden items are neither selected nor have the keyboard.
void TestPrinting::selectionAndCaretStay()
{
    QFETCH(const bool, shown);
    QFETCH(const bool, printed);
    setPrinting("PrintAnnotations", printed);
    Page page(nullptr);
    fill(&page, 3);
    auto *selected = new TestMark({100, 20});
    auto *other = new TestMark({200, 20});
    selected->setFlag(QGraphicsItem::ItemIsFocusable);
    page.putOnScene(selected);
    page.putOnScene(other);
    page.setAnnotationsHidden(!shown);
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&page, &activation);
    page.setFocus();
    selected->setSelected(shown);
    selected->setFocus();
    const QGraphicsItem *focus = page.focusItem();
    QCOMPARE(focus == selected, shown);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    QCOMPARE(selected->isSelected(), shown);
    QVERIFY(!other->isSelected());
    QCOMPARE(page.focusItem(), focus);
    QCOMPARE(selected->isVisible(), shown);
}

void TestPrinting::lineNumbers_data()
{
    annotations_data();
}

void TestPrinting::lineNumbers()
{
    QFETCH(bool, shown);
    QFETCH(bool, printed);
    setPrinting("PrintLineNumbers", printed);
    setPrinting("PrintHeader", false);
    Page page(nullptr);
    fill(&page, 30);
    page.showLineNumbers(shown);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    static const QRegularExpression numbered(QStringLiteral("^\\s*17\\s+text17x"), QRegularExpression::MultilineOption);
    QCOMPARE(paper.pdf().text().contains(numbered), printed);
    QVERIFY(paper.pdf().text().contains(QStringLiteral("text17x")));
    QCOMPARE(page.documentItem()->lineNumbersVisible(), shown);
}

void TestPrinting::overlayIsOnPaper()
{
    FakeHost host;
    FakeTool tool;
    host.tool = &tool;
    setPrinting("PrintHeader", false);
    Page page(&host);
    fill(&page, 3);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    QVERIFY(countPixels(paper.sheet(1), overlayGreen) > 0);
}

void TestPrinting::waitCursorIsOn()
{
    Page page(nullptr);
    fill(&page, 3);
    auto *mark = new WatchingMark({100.0, 100.0});
    page.putOnScene(mark);
    PaperTrail paper;
    QVERIFY(page.printPage(&paper.printer));
    QCOMPARE(mark->shapes, QList<int>{Qt::WaitCursor});
    QVERIFY(!QApplication::overrideCursor());
}

void TestPrinting::unwritableTarget()
{
    setPrinting("PrintAnnotations", false);
    Page page(nullptr);
    fill(&page, 3);
    page.showLineNumbers(false);
    auto *mark = new TestMark({100.0, 100.0});
    page.putOnScene(mark);
    PaperTrail paper;
    paper.printer.setOutputFileName(paper.path() + QStringLiteral("/no/such/folder.pdf"));
    QVERIFY(page.printPage(&paper.printer));
    QVERIFY(!QFile::exists(paper.path()));
    QVERIFY(page.annotationsVisible());
    QVERIFY(mark->isVisible());
    QVERIFY(!page.documentItem()->lineNumbersVisible());
    QVERIFY(!QApplication::overrideCursor());
}

void TestPrinting::noRoomForALine_data()
{
    QTest::addColumn<QSizeF>("paperSize"); // millimetres
    QTest::addColumn<int>("fontSize");
    QTest::newRow("small paper") << QSizeF(60, 9) << 10;
    QTest::newRow("large font") << QSizeF(210, 297) << 1500;
}

void TestPrinting::noRoomForALine()
{
    QFETCH(QSizeF, paperSize);
    QFETCH(int, fontSize);
    Page page(nullptr);
    page.setDocumentFont(QFont(QStringLiteral("Courier"), fontSize));
    fill(&page, 3);
    PaperTrail paper;
    paper.printer.setPageSize(QPageSize(paperSize, QPageSize::Millimeter));
    QVERIFY(paper.usable() - paper.headerHeight() < lineHeight(page));
    QVERIFY(page.printPage(&paper.printer));
    QVERIFY(!QFile::exists(paper.path()));
    QVERIFY(!QApplication::overrideCursor());
}

void TestPrinting::emptyPages()
{
    Page empty(nullptr);
    PaperTrail nothing;
    QVERIFY(empty.printPage(&nothing.printer));
    QVERIFY(!QFile::exists(nothing.path()));

    Page text(nullptr);
    text.setTextContents(QStringLiteral("a.txt"), QString(), QStringLiteral("1\n"));
    PaperTrail sheet;
    QVERIFY(text.printPage(&sheet.printer));
    QCOMPARE(sheet.pdf().pages(), 1);

    Page marks(nullptr);
    marks.setSceneRect(0, 0, 300, 300);
    marks.putOnScene(new TestMark({100.0, 100.0}));
    PaperTrail onlyMarks;
    QVERIFY(marks.printPage(&onlyMarks.printer));
    QVERIFY(countPixels(onlyMarks.sheet(1), markRed) > 0);
}

void TestPrinting::noPrinter()
{
    Page page(nullptr);
    fill(&page, 3);
    QVERIFY(page.printPage(nullptr));
}

REGISTER_TEST(TestPrinting)
#include "tst_printing.moc"
