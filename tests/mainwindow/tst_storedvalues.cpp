// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/bracketann.h"
#include "annotations/lineann.h"
#include "annotations/markerline.h"
#include "annotations/penline.h"
#include "annotations/rectangleann.h"
#include "annotations/textboxann.h"
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/settingskeys.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/markpicture.h"
#include "support/testmain.h"
#include "tools/drawingtool.h"
#include "widgets/qtcolorpicker.h"

#include <QActionGroup>
#include <QGraphicsTextItem>
#include <QLayout>
#include <QSettings>
#include <QTest>
#include <QToolButton>

namespace {

/// What a user sees of a setting. The window has one text document of three lines and is not shown yet.
using Observer = std::function<QVariant(const WindowProbe &)>;

enum Kind { Truth, Number, Text, Bytes, Size, Point };

/// One key, and what comes of the values that may stand under it.
struct Row
{
    const char *key;
    Kind kind;
    Observer observe;
    QVariant usual;     ///< Seen when nothing is stored, and when what is stored cannot be read.
    QVariant other;     ///< A good value that is not the default ...
    QVariant otherSeen; ///< ... and what is seen then.
    QVariant negative;  ///< Seen when the value is below any that makes sense.
    QVariant huge;      ///< Seen when it is far above.
};

QVariant unreadable(Kind kind)
{
    const bool wordsAreWelcome = kind == Text || kind == Bytes;
    return wordsAreWelcome ? QVariant(QStringList{"two", "words"}) : QVariant(QStringLiteral("abc"));
}

QVariant negativeValue(Kind kind)
{
    switch (kind) {
    case Size:
        return QSize(-5, -5);
    case Point:
        return QPoint(-5, -6);
    case Bytes:
        return QByteArray("-5");
    default:
        return -5;
    }
}

QVariant hugeValue(Kind kind)
{
    constexpr int huge = 2'000'000'000;
    switch (kind) {
    case Size:
        return QSize(huge, huge);
    case Point:
        return QPoint(huge, huge);
    case Bytes:
        return QByteArray(100'000, '\xff');
    case Text:
        return QString(100'000, 'x');
    default:
        return huge;
    }
}

DrawingTool *chosenTool(const WindowProbe &window, const char *action)
{
    // Another first: choosing the tool in force again changes nothing.
    window.action("actionToolEraser")->trigger();
    window.action(action)->trigger();
    return dynamic_cast<DrawingTool *>(window->currentTool());
}

Observer penWidth(const char *action)
{
    return [action](const WindowProbe &window) { return chosenTool(window, action)->pen().width(); };
}

Observer penAlpha(const char *action)
{
    return [action](const WindowProbe &window) { return chosenTool(window, action)->pen().color().alpha(); };
}

Observer antialiasing(const char *action)
{
    return [action](const WindowProbe &window) { return chosenTool(window, action)->antialiasing(); };
}

Observer smoothing(const char *action)
{
    return [action](const WindowProbe &window) { return chosenTool(window, action)->smoothing(); };
}

Observer penStyle(const char *action)
{
    return [action](const WindowProbe &window) { return int(chosenTool(window, action)->pen().style()); };
}

template<typename Mark> bool isFramed(Mark *mark)
{
    constexpr QRectF area(-20, -20, 120, 120);
    const QImage plain = MarkPicture::ofItem(mark, area, false);
    return plain != MarkPicture::ofItem(mark, area, true);
}

template<typename Line> Observer strokeFrame()
{
    return [](const WindowProbe &) {
        Line stroke;
        for (const QPointF point : {QPointF(0, 0), QPointF(20, 40), QPointF(80, 5)})
            stroke.addPoint(point);
        stroke.finishCapture(true);
        stroke.setFlag(QGraphicsItem::ItemIsSelectable);
        return isFramed(&stroke);
    };
}

QVariant lineFrame(const WindowProbe &)
{
    LineAnn line;
    BracketAnn bracket;
    for (StraightAnn *mark : {static_cast<StraightAnn *>(&line), static_cast<StraightAnn *>(&bracket)}) {
        mark->setLine(0, 0, 60, 40);
        mark->setFlag(QGraphicsItem::ItemIsSelectable);
    }
    const bool both = isFramed(&line);
    return both == isFramed(&bracket) ? QVariant(both) : QVariant(QStringLiteral("line and bracket differ"));
}

void clickIntoDocument(const WindowProbe &window, int x)
{
    QTest::mouseClick(window.view()->viewport(), Qt::LeftButton, {}, QPoint(x, 100));
}

QFont fontOfNewBox(const WindowProbe &window)
{
    window->showWindow();
    window.action("actionTextBox")->trigger();
    clickIntoDocument(window, 200);
    for (const QGraphicsItem *item : window.page()->items()) {
        if (const auto *box = dynamic_cast<const TextBoxAnn *>(item))
            return box->font();
    }
    return {};
}

QVariant toolAfterTwoClicks(const WindowProbe &window)
{
    window->showWindow();
    window.action("actionTextBox")->trigger();
    clickIntoDocument(window, 200);
    clickIntoDocument(window, 400);
    return window.action("actionTextBox")->actionGroup()->checkedAction()->objectName();
}

/// How far a mark below the first line goes when a line is put in before it.
QVariant markFollows(const WindowProbe &window)
{
    auto *mark = new RectangleAnn;
    mark->setRect(0, 0, 10, 10);
    mark->setPos(100, 60);
    window.page()->addAnnotation(mark);
    window->showWindow();
    window->activateWindow();
    window->setTextMode(true);
    window.page()->focusDocument();
    window.view()->setFocus();
    QTest::keyClick(window.view()->viewport(), Qt::Key_Return);
    return mark->pos().y() > 60;
}

QVariant asksBeforeRemoving(const WindowProbe &window)
{
    DialogAnswers answers;
    answers.reject();
    window->removeAllAnnotations();
    return answers.seen().size() == 1;
}

QVariant shownSize(const WindowProbe &window)
{
    QSettings().setValue(QStringLiteral("General/WindowMaximized"), false);
    window->showWindow();
    const bool smallest = window->size() == window->layout()->totalMinimumSize();
    return smallest ? QVariant(QStringLiteral("smallest")) : QVariant(window->size());
}

QVariant shownPosition(const WindowProbe &window)
{
    QSettings().setValue(QStringLiteral("General/WindowMaximized"), false);
    window->showWindow();
    return window->pos();
}

QVariant shownMaximized(const WindowProbe &window)
{
    window->showWindow();
    return window->isMaximized();
}

QVariant barAreas(const WindowProbe &window)
{
    return int(window->toolBarArea(window.bar("ScvShapesToolBar")));
}

QVariant shapeActions(const WindowProbe &window)
{
    return actionNames(window.bar("ScvShapesToolBar")).size();
}

QVariant checkedLanguage(const WindowProbe &window)
{
    return window.action("actionEnglish")->actionGroup()->checkedAction()->objectName();
}

const QList<Row> &windowRows()
{
    static const QList<Row> rows{
        {"General/WindowMaximized", Truth, shownMaximized, true, false, false, true, true},
        {"General/WindowPosition", Point, shownPosition, QPoint(50, 50), QPoint(7, 8), QPoint(7, 8), QPoint(-5, -6),
         QPoint(16384, 16384)},
        {"General/WindowSize", Size, shownSize, QSize(1000, 800), QSize(900, 700), QSize(900, 700),
         QStringLiteral("smallest"), QSize(16384, 16384)},
        {"General/WindowState",
         Bytes,
         barAreas,
         int(Qt::TopToolBarArea),
         {},
         {},
         int(Qt::TopToolBarArea),
         int(Qt::TopToolBarArea)},
        {"General/ToolBarsState", Bytes, shapeActions, 3, {}, {}, 3, 3},
        {"General/PenColor", Text, [](const WindowProbe &window) { return window.linePicker()->currentColor(); },
         QColor("#0a0aa2"), "#ff0000", QColor(Qt::red), QColor(Qt::black), QColor(Qt::black)},
        {"General/BrushColor", Text, [](const WindowProbe &window) { return window.fillPicker()->currentColor(); },
         QColor(Qt::black), "#ff0000", QColor(Qt::red), QColor(Qt::black), QColor(Qt::black)},
        {"Other/AppLanguage", Text, checkedLanguage, "actionDefaultLanguage", "pl", "actionPolski",
         "actionDefaultLanguage", "actionDefaultLanguage"},
        {"Other/FullscreenAtStart", Truth, [](const WindowProbe &window) { return window->isFullScreen(); }, false,
         true, true, true, true},
        {"Other/MaxRecentFiles", Number,
         [](const WindowProbe &window) { return window.menu("recentFilesMenu")->actions().size(); }, 5, 7, 7, 0, 99},
        {"Other/TabsPosition", Text, [](const WindowProbe &window) { return int(window.stack()->tabPosition()); },
         int(QTabWidget::East), "Left", int(QTabWidget::West), int(QTabWidget::North), int(QTabWidget::North)},
        {"General/WarnRemoveAllAnnotations", Truth, asksBeforeRemoving, true, false, false, true, true},
    };
    return rows;
}

const QList<Row> &documentRows()
{
    static const QList<Row> rows{
        {"Other/SynchAnnotations", Truth, markFollows, true, false, false, true, true},
        {"PageView/DefaultTextColor", Text,
         [](const WindowProbe &window) { return window.page()->documentItem()->textItem()->defaultTextColor(); },
         QColor(Qt::black), "#ff0000", QColor(Qt::red), QColor(), QColor()},
        {"PageView/DefaultBgColor", Text,
         [](const WindowProbe &window) { return window.page()->backgroundBrush().color(); }, QColor(Qt::white),
         "#ff0000", QColor(Qt::red), QColor(), QColor()},
        {"PageView/ShowLineNumbers", Truth,
         [](const WindowProbe &window) { return window.page()->documentItem()->lineNumbersVisible(); }, true, false,
         false, true, true},
        {"PageView/DefaultFontFamily", Text,
         [](const WindowProbe &window) { return window.page()->documentFont().family(); }, "Courier", "Arial", "Arial",
         "-5", QString(100'000, 'x')},
        {"PageView/DefaultFontSize", Number,
         [](const WindowProbe &window) { return window.page()->documentFont().pointSize(); }, 10, 14, 14, 12, 500},
        {"Syntax/HighlightByDefault", Truth,
         [](const WindowProbe &window) { return window.syntaxButton()->isChecked(); }, true, false, false, true, true},
    };
    return rows;
}

const QList<Row> &toolRows()
{
    const int solid = Qt::SolidLine;
    const int dot = Qt::DotLine;
    static const QList<Row> rows{
        {"PenTool/LineWidth", Number, penWidth("actionToolPen"), 0, 3, 3, 0, 1000},
        {"PenTool/Transparency", Number, penAlpha("actionToolPen"), 102, 20, 204, 255, 0},
        {"PenTool/Antialiasing", Truth, antialiasing("actionToolPen"), true, false, false, true, true},
        {"PenTool/Smoothing", Truth, smoothing("actionToolPen"), false, true, true, true, true},
        {"PenTool/DrawSelection", Truth, strokeFrame<PenLine>(), false, true, true, true, true},
        {"MarkerTool/LineWidth", Number, penWidth("actionToolMarker"), 14, 3, 3, 0, 1000},
        {"MarkerTool/Transparency", Number, penAlpha("actionToolMarker"), 102, 20, 204, 255, 0},
        {"MarkerTool/Antialiasing", Truth, antialiasing("actionToolMarker"), true, false, false, true, true},
        {"MarkerTool/Smoothing", Truth, smoothing("actionToolMarker"), false, true, true, true, true},
        {"MarkerTool/ShowSelection", Truth, strokeFrame<MarkerLine>(), false, true, true, true, true},
        {"TextBoxTool/UseOnce", Truth, toolAfterTwoClicks, "actionTextBox", true, "actionToolPen", "actionToolPen",
         "actionToolPen"},
        {"TextBoxTool/DefaultFontFamily", Text, [](const WindowProbe &window) { return fontOfNewBox(window).family(); },
         "Courier", "Arial", "Arial", "-5", QString(100'000, 'x')},
        {"TextBoxTool/DefaultFontSize", Number,
         [](const WindowProbe &window) { return fontOfNewBox(window).pointSize(); }, 10, 14, 14, 12, 500},
        {"LineTool/LineWidth", Number, penWidth("actionSimpleLine"), 0, 3, 3, 0, 1000},
        {"LineTool/LineWidth", Number, penWidth("actionCurlyBracket"), 0, 3, 3, 0, 1000},
        {"LineTool/LineStyle", Text, penStyle("actionSimpleLine"), solid, "Dot", dot, solid, solid},
        {"LineTool/LineStyle", Text, penStyle("actionCurlyBracket"), solid, "Dot", dot, solid, solid},
        {"LineTool/Antialiasing", Truth, antialiasing("actionSimpleLine"), true, false, false, true, true},
        {"LineTool/ShowSelection", Truth, lineFrame, false, true, true, true, true},
        {"ShapeTool/LineWidth", Number, penWidth("actionToolRectangle"), 1, 3, 3, 0, 1000},
        {"ShapeTool/LineStyle", Text, penStyle("actionToolRectangle"), solid, "Dot", dot, solid, solid},
        {"ShapeTool/Transparency", Number,
         [](const WindowProbe &window) { return chosenTool(window, "actionToolRectangle")->brush().color().alpha(); },
         102, 20, 204, 255, 0},
        {"ShapeTool/Antialiasing", Truth, antialiasing("actionToolRectangle"), true, false, false, true, true},
    };
    return rows;
}

QList<Row> allRows()
{
    return windowRows() + documentRows() + toolRows();
}

/// A window with one document, in a folder of its own.
class Situation
{
public:
    const WindowProbe &window() const { return m_window; }
    ~Situation() { m_window.forgetChanges(); }

private:
    TestFiles m_files;
    WindowProbe m_window{{m_files.write(QStringLiteral("a.txt"))}};
};

void storeOnly(const char *key, const QVariant &value)
{
    QSettings settings;
    settings.clear();
    if (value.isValid())
        settings.setValue(QLatin1String(key), value);
}

/// What is seen with @p value in the store; of tools, in @p open, as they read their settings whenever they are chosen.
QVariant seenWith(const Row &row, const QVariant &value, const Situation *open)
{
    storeOnly(row.key, value);
    if (open != nullptr)
        return row.observe(open->window());
    const Situation fresh;
    return row.observe(fresh.window());
}

} // namespace

/// Every setting with every kind of damage that its stored value may have.
class TestStoredValues : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QSettings().clear(); }
    void everyKeyHasARow();
    void values_data();
    void values();
    void recentFiles_data();
    void recentFiles();
    void rememberedAnswer_data();
    void rememberedAnswer();
};

void TestStoredValues::everyKeyHasARow()
{
    // Printing, export, mail and snapshots show what they read only by what they do: tested with them.
    QSet<QString> without{"ScreenshotTool/SaveViewToClipboard",
                          "ScreenshotTool/SaveViewToFile",
                          "ScreenshotTool/SendViewViaEmail",
                          "ScreenshotTool/UseOnce",
                          "ScreenshotTool/InfoViewInClipboard",
                          "General/EmailClient",
                          "General/AttachFileByDefault",
                          "General/AttachmentFormat",
                          "Other/ExportToPdfFile",
                          "Printing/PrintHeader",
                          "Printing/PrintFileName",
                          "Printing/PrintDate",
                          "Printing/PrintPageNumbers",
                          "Printing/PrintLineNumbers",
                          "Printing/PrintAnnotations"};
    without.insert(QStringLiteral("General/RecentFileList")); // a list: a table of its own
    QSet<QString> missing;
    for (const SettingsKey &key : settingsKeys())
        missing.insert(QString::fromLatin1(key.name));
    for (const Row &row : allRows())
        missing.remove(QString::fromLatin1(row.key));
    QCOMPARE(missing, without);
}

void TestStoredValues::values_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < allRows().size(); ++row)
        QTest::addRow("%s %d", allRows().at(row).key, row) << row;
}

void TestStoredValues::values()
{
    QFETCH(const int, row);
    const Row expected = allRows().at(row);
    storeOnly(expected.key, {});
    // Text boxes would pile up in one document.
    const bool inOneWindow =
        row >= windowRows().size() + documentRows().size() && !QByteArray(expected.key).startsWith("TextBoxTool");
    const auto shared = inOneWindow ? std::make_unique<Situation>() : nullptr;
    const auto seen = [&](const QVariant &value) { return seenWith(expected, value, shared.get()); };
    if (expected.other.isValid())
        QCOMPARE(seen(expected.other), expected.otherSeen);
    QCOMPARE(seen(QVariant()), expected.usual);
    QCOMPARE(seen(negativeValue(expected.kind)), expected.negative);
    QCOMPARE(seen(unreadable(expected.kind)), expected.usual);
    QCOMPARE(seen(hugeValue(expected.kind)), expected.huge);
    QCOMPARE(seen(QRect(1, 2, 3, 4)), expected.usual);
}

void TestStoredValues::recentFiles_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("absent") << QVariant() << QStringList();
    QTest::newRow("empty text") << QVariant(QString()) << QStringList();
    QTest::newRow("one text") << QVariant(QStringLiteral("/a/b.txt")) << QStringList{"/a/b.txt"};
    QTest::newRow("a size") << QVariant(QSize(1, 2)) << QStringList();
    QTest::newRow("bytes") << QVariant(QByteArray("\xff\x00", 2)) << QStringList();
    QTest::newRow("empty entries") << QVariant(QStringList{"", "/a", ""}) << QStringList{"/a"};
    QTest::newRow("many") << QVariant(QStringList(2'000, QStringLiteral("/x"))) << QStringList(5, QStringLiteral("/x"));
}

void TestStoredValues::recentFiles()
{
    QFETCH(const QVariant, stored);
    QFETCH(const QStringList, shown);
    QSettings().clear();
    if (stored.isValid())
        QSettings().setValue(QStringLiteral("General/RecentFileList"), stored);
    const WindowProbe window;
    QStringList paths;
    for (const QAction *action : window.recentActions())
        paths.append(action->data().toString());
    QCOMPARE(paths, shown);
}

void TestStoredValues::rememberedAnswer_data()
{
    QTest::addColumn<QVariant>("answer");
    QTest::addColumn<bool>("removed");
    QTest::newRow("absent") << QVariant() << true;
    QTest::newRow("unreadable") << QVariant(QStringLiteral("perhaps")) << true;
    QTest::newRow("no") << QVariant(QStringLiteral("false")) << false;
    QTest::newRow("no as a truth value") << QVariant(false) << false;
}

/// The answer that the question about removing all marks gives when it is not to be asked.
void TestStoredValues::rememberedAnswer()
{
    QFETCH(const QVariant, answer);
    QFETCH(const bool, removed);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.page()->addAnnotation(new RectangleAnn);
    QSettings settings;
    settings.setValue(QStringLiteral("General/WarnRemoveAllAnnotations"), false);
    if (answer.isValid())
        settings.setValue(QStringLiteral("General/WarnRemoveAllAnnotationsAnswerIsYes"), answer);
    window->removeAllAnnotations();
    QCOMPARE(window.page()->hasAnnotations(), !removed);
}

REGISTER_TEST(TestStoredValues)
#include "tst_storedvalues.moc"
