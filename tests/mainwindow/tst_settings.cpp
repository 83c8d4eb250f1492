// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/eventlog.h"
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"
#include "widgets/qtcolorpicker.h"
#include "widgets/qtfulltoolbarmanager.h"
#include "widgets/qttoolbarmanager.h"

#include <QFile>
#include <QGraphicsTextItem>
#include <QSettings>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

namespace {

QVariant stored(const char *key)
{
    return QSettings().value(QString::fromLatin1(key));
}

void store(const char *key, const QVariant &value)
{
    QSettings().setValue(QString::fromLatin1(key), value);
}

QColor colorAt(const WindowProbe &window, const QPoint &point)
{
    return window.view()->viewport()->grab().toImage().pixelColor(point);
}

} // namespace

class TestWindowSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void defaultsFromAnEmptyStore();
    void savedAtExit();
    void roundTrip();
    void oddColors_data();
    void oddColors();
    void oddGeometry();
    void brokenState();
    void compactKeepsTheOldState();
    void hiddenBarsComeBack();
    void movedBarStaysWhereItWas();
    void rearrangedToolBars();
    void customToolBar();
    void customizeDialog();
    void fourBarsAreRegistered();
    void tabsPosition_data();
    void tabsPosition();
    void documentColors();
    void documentColorsThatAreNone_data();
    void documentColorsThatAreNone();
    void lineNumbers();
    void highlightButton();
    void highlightButtonWithoutDocument();
    void pickersBelongToTheWindow();
    void updateStateTrace();
};

void TestWindowSettings::init()
{
    QSettings().clear();
}

void TestWindowSettings::defaultsFromAnEmptyStore()
{
    const WindowProbe window;
    QCOMPARE(window.linePicker()->currentColor(), QColor("#0a0aa2"));
    QCOMPARE(window.fillPicker()->currentColor(), QColor(Qt::black));
    QVERIFY(!window->isFullScreen());
    QVERIFY(window.syntaxButton()->isChecked());
    QVERIFY(window.action("actionDefaultLanguage")->isChecked());
}

void TestWindowSettings::savedAtExit()
{
    WindowProbe window;
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QVERIFY(window->close());
    QCOMPARE(stored("General/PenColor").toString(), QStringLiteral("#0a0aa2"));
    QCOMPARE(stored("General/BrushColor").toString(), QStringLiteral("#000000"));
    QCOMPARE(stored("General/WindowMaximized").toBool(), true);
    QCOMPARE(stored("General/WindowSize").toSize(), window->geometry().size());
    QCOMPARE(stored("General/WindowPosition").toPoint(), window->pos());
    QCOMPARE(stored("General/WindowState").toByteArray(), window->saveState(0));
    QCOMPARE(stored("Other/AppLanguage").toString(), QStringLiteral("default"));
    QSet<QString> keys;
    for (const QString &key : QSettings().allKeys())
        keys.insert(key);
    QCOMPARE(keys, (QSet<QString>{"General/PenColor", "General/BrushColor", "General/WindowMaximized",
                                  "General/WindowSize", "General/WindowPosition", "General/WindowState",
                                  "General/ToolBarsState", "Other/AppLanguage"}));
}

void TestWindowSettings::roundTrip()
{
    store("General/WindowMaximized", false);
    store("General/WindowSize", QSize(640, 480));
    store("General/WindowPosition", QPoint(11, 22));
    {
        WindowProbe window;
        window->showWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&*window));
        window.linePicker()->setCurrentColor(QColor(1, 2, 3));
        window.fillPicker()->setCurrentColor(QColor(4, 5, 6));
        window.action("actionPolski")->trigger();
        window->resize(700, 520);
        window->move(33, 44);
        QTRY_COMPARE(window->pos(), QPoint(33, 44));
        QVERIFY(window->close());
    }
    WindowProbe window;
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QCOMPARE(window.linePicker()->currentColor(), QColor(1, 2, 3));
    QCOMPARE(window.fillPicker()->currentColor(), QColor(4, 5, 6));
    QVERIFY(window.action("actionPolski")->isChecked());
    QVERIFY(!window->isMaximized());
    QCOMPARE(window->size(), QSize(700, 520));
    QTRY_COMPARE(window->pos(), QPoint(33, 44));
}

void TestWindowSettings::oddColors_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QColor>("shown");
    QTest::newRow("name") << QVariant("steelblue") << QColor("steelblue");
    QTest::newRow("short") << QVariant("#f00") << QColor(Qt::red);
    QTest::newRow("no colour") << QVariant("no colour at all") << QColor(Qt::black);
    QTest::newRow("empty") << QVariant("") << QColor(Qt::black);
    QTest::newRow("number") << QVariant(17) << QColor(Qt::black);
}

void TestWindowSettings::oddColors()
{
    QFETCH(const QVariant, value);
    QFETCH(const QColor, shown);
    store("General/PenColor", value);
    store("General/BrushColor", value);
    const WindowProbe window;
    QCOMPARE(window.linePicker()->currentColor(), shown);
    QCOMPARE(window.fillPicker()->currentColor(), shown);
}

void TestWindowSettings::oddGeometry()
{
    store("General/WindowMaximized", QStringLiteral("false"));
    store("General/WindowSize", QStringLiteral("large"));
    store("General/WindowPosition", 5);
    WindowProbe window;
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QVERIFY(!window->isMaximized());
    QVERIFY(window->width() > 0);
}

void TestWindowSettings::brokenState()
{
    for (const QByteArray &state : {QByteArray(), QByteArray("nonsense"), QByteArray(5000, '\xff')}) {
        store("General/WindowState", state);
        store("General/ToolBarsState", state);
        const WindowProbe window;
        QVERIFY(!window.bar("ScvFileToolBar")->isHidden());
        QCOMPARE(window->toolBarArea(window.bar("ScvModeToolBar")), Qt::LeftToolBarArea);
    }
}

void TestWindowSettings::compactKeepsTheOldState()
{
    for (const char *action : {"actionCompactView", "actionMinimalView"}) {
        store("General/WindowState", QByteArray("as it was"));
        store("General/ToolBarsState", QByteArray("this too"));
        WindowProbe window;
        window->showWindow();
        window.action(action)->trigger();
        QVERIFY(window->close());
        QCOMPARE(stored("General/WindowState").toByteArray(), QByteArray("as it was"));
        QCOMPARE(stored("General/ToolBarsState").toByteArray(), QByteArray("this too"));
        QVERIFY(QSettings().contains(QStringLiteral("General/WindowSize")));
        QSettings().clear();
    }
}

void TestWindowSettings::hiddenBarsComeBack()
{
    {
        WindowProbe window;
        window->showWindow();
        window.bar("ScvHelpToolBar")->hide();
        window.bar("ScvSearchToolBar")->hide();
        QVERIFY(window->close());
    }
    const WindowProbe window;
    QVERIFY(!window.bar("ScvHelpToolBar")->isHidden());
    QVERIFY(!window.bar("ScvSearchToolBar")->isHidden());
}

void TestWindowSettings::movedBarStaysWhereItWas()
{
    {
        WindowProbe window;
        window->showWindow();
        window->addToolBar(Qt::RightToolBarArea, window.bar("ScvShapesToolBar"));
        QVERIFY(window->close());
    }
    const WindowProbe window;
    QCOMPARE(window->toolBarArea(window.bar("ScvShapesToolBar")), Qt::RightToolBarArea);
}

void TestWindowSettings::rearrangedToolBars()
{
    {
        WindowProbe window;
        window->showWindow();
        auto *manager = window->findChild<QtToolBarManager *>();
        manager->fullManager()->setActions(window.bar("ScvBracketsToolBar"),
                                           {window.action("actionRectBracket"), nullptr, window.action("actionArrow")});
        QVERIFY(window->close());
    }
    const WindowProbe window;
    QCOMPARE(actionNames(window.bar("ScvBracketsToolBar")), (QStringList{"actionRectBracket", "|", "actionArrow"}));
}

void TestWindowSettings::customToolBar()
{
    {
        WindowProbe window;
        window->showWindow();
        auto *manager = window->findChild<QtToolBarManager *>();
        QToolBar *mine = manager->fullManager()->createToolBar(QStringLiteral("Mine"));
        manager->fullManager()->setActions(mine, {window.action("actionThinRedPen")});
        window->addToolBar(Qt::BottomToolBarArea, mine);
        QTRY_VERIFY(mine->isVisible());
        QVERIFY(window->close());
    }
    WindowProbe window;
    const auto bars = window->findChildren<QToolBar *>();
    QCOMPARE(bars.size(), 12);
    QCOMPARE(bars.last()->windowTitle(), QStringLiteral("Mine"));
    QCOMPARE(actionNames(bars.last()), QStringList{"actionThinRedPen"});
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QVERIFY(bars.last()->isVisible());
    QCOMPARE(window->toolBarArea(bars.last()), Qt::BottomToolBarArea);
}

void TestWindowSettings::customizeDialog()
{
    const WindowProbe window;
    LogProbe log;
    DialogAnswers answers;
    QStringList categories;
    answers.handle([&](QDialog *dialog) {
        const auto *tree = dialog->findChild<QTreeWidget *>(QStringLiteral("actionTree"));
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            categories.append(tree->topLevelItem(i)->text(0));
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Customize Toolbars"));
        QCOMPARE(dialog->parentWidget(), nullptr);
        dialog->reject();
    });
    window.action("actionCustomizeToolBars")->trigger();
    QCOMPARE(answers.seen().size(), 1);
    for (const char *name : {"Shapes", "Lines", "Brackets", "StdTools"})
        QVERIFY2(categories.contains(QString::fromLatin1(name)), name);
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Customize tool bars")));
}

void TestWindowSettings::fourBarsAreRegistered()
{
    const WindowProbe window;
    auto *manager = window->findChild<QtToolBarManager *>()->fullManager();
    QStringList bars;
    for (const QToolBar *bar : manager->toolBars())
        bars.append(bar->objectName());
    QCOMPARE(bars, (QStringList{"ScvShapesToolBar", "ScvLinesToolBar", "ScvBracketsToolBar", "ScvStdToolsToolBar"}));
    const QHash<QString, const char *> barOfCategory{{"Shapes", "ScvShapesToolBar"},
                                                     {"Lines", "ScvLinesToolBar"},
                                                     {"Brackets", "ScvBracketsToolBar"},
                                                     {"StdTools", "ScvStdToolsToolBar"}};
    QCOMPARE(manager->categories().size(), 4);
    for (const QString &category : manager->categories()) {
        QVERIFY2(barOfCategory.contains(category), qPrintable(category));
        QStringList names;
        for (const QAction *action : manager->categoryActions(category))
            names.append(action->objectName());
        QStringList expected = actionNames(window.bar(barOfCategory.value(category)));
        expected.removeAll(QStringLiteral("|"));
        QCOMPARE(names, expected);
    }
}

void TestWindowSettings::tabsPosition_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("position");
    QTest::newRow("absent") << QVariant() << int(QTabWidget::East);
    QTest::newRow("right") << QVariant("Right") << int(QTabWidget::East);
    QTest::newRow("top") << QVariant("Top") << int(QTabWidget::North);
    QTest::newRow("bottom") << QVariant("Bottom") << int(QTabWidget::South);
    QTest::newRow("left") << QVariant("Left") << int(QTabWidget::West);
    QTest::newRow("other case") << QVariant("left") << int(QTabWidget::North);
    QTest::newRow("unknown") << QVariant("Middle") << int(QTabWidget::North);
}

void TestWindowSettings::tabsPosition()
{
    QFETCH(const QVariant, value);
    QFETCH(const int, position);
    if (value.isValid())
        store("Other/TabsPosition", value);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QCOMPARE(int(window.stack()->tabPosition()), position);
}

void TestWindowSettings::documentColors()
{
    store("PageView/DefaultTextColor", QStringLiteral("#ff0000"));
    store("PageView/DefaultBgColor", QStringLiteral("#123456"));
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QCOMPARE(window.page()->backgroundBrush(), QBrush(QColor("#123456")));
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QCOMPARE(colorAt(window, window.view()->viewport()->rect().bottomRight() - QPoint(5, 5)), QColor("#123456"));
    QList<QColor> textColors;
    for (const QGraphicsItem *item : window.page()->items()) {
        if (const auto *text = dynamic_cast<const QGraphicsTextItem *>(item);
            text && text->toPlainText() != "1\n2\n3\n4")
            textColors.append(text->defaultTextColor());
    }
    QVERIFY(textColors.contains(QColor(Qt::red)));
}

void TestWindowSettings::documentColorsThatAreNone_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("empty") << "";
    QTest::newRow("no colour") << "not a colour";
    QTest::newRow("too short") << "#12";
    QTest::newRow("no digits") << "#zzzzzz";
}

void TestWindowSettings::documentColorsThatAreNone()
{
    QFETCH(const QString, value);
    store("PageView/DefaultTextColor", value);
    store("PageView/DefaultBgColor", value);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    // Handed on unchecked; the stored values stay for the user to mend.
    QCOMPARE(window.page()->backgroundBrush(), QBrush(QColor()));
    QCOMPARE(window.page()->documentItem()->textItem()->defaultTextColor(), QColor());
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QCOMPARE(colorAt(window, window.view()->viewport()->rect().bottomRight() - QPoint(5, 5)), QColor(Qt::black));
    QCOMPARE(stored("PageView/DefaultTextColor").toString(), value);
    QCOMPARE(stored("PageView/DefaultBgColor").toString(), value);
}

void TestWindowSettings::lineNumbers()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.txt"));
    const auto visibleTexts = [](const WindowProbe &window) {
        int count = 0;
        for (const QGraphicsItem *item : window.page()->items())
            count += dynamic_cast<const QGraphicsTextItem *>(item) != nullptr && item->isVisible() ? 1 : 0;
        return count;
    };
    const WindowProbe shown({path});
    store("PageView/ShowLineNumbers", false);
    const WindowProbe hidden({path});
    QCOMPARE(visibleTexts(shown), visibleTexts(hidden) + 1);
}

void TestWindowSettings::highlightButton()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    LogProbe log;
    window.syntaxButton()->click();
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Highlighting syntax")));
    QCOMPARE(stored("Syntax/HighlightByDefault"), QVariant(QStringLiteral("false")));
    window.syntaxButton()->click();
    QVERIFY(stored("Syntax/HighlightByDefault").toBool());
    // Applying the settings moves the button.
    store("Syntax/HighlightByDefault", false);
    window->restorePreviousTool();
    QVERIFY(!window.syntaxButton()->isChecked());
}

void TestWindowSettings::highlightButtonWithoutDocument()
{
    const WindowProbe window;
    LogProbe log;
    window.syntaxButton()->click();
    QCOMPARE(log.traceSinceMark(), QStringList());
    QVERIFY(!QSettings().contains(QStringLiteral("Syntax/HighlightByDefault")));
}

void TestWindowSettings::pickersBelongToTheWindow()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt")), files.write(QStringLiteral("b.txt"))});
    window.linePicker()->setCurrentColor(Qt::green);
    window.fillPicker()->setCurrentColor(Qt::cyan);
    window.syntaxButton()->setChecked(false);
    window.stack()->setCurrentIndex(0);
    QCOMPARE(window.linePicker()->currentColor(), QColor(Qt::green));
    QCOMPARE(window.fillPicker()->currentColor(), QColor(Qt::cyan));
    QVERIFY(!window.syntaxButton()->isChecked());
}

void TestWindowSettings::updateStateTrace()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    LogProbe log;
    window->restorePreviousTool();
    const QStringList lines = log.traceSinceMark();
    const auto text = lines.indexOf(QStringLiteral("Updating text color"));
    QVERIFY(text >= 0);
    const auto background = lines.indexOf(QStringLiteral("Updating background color"));
    QVERIFY(background > text);
    QVERIFY(lines.indexOf(QStringLiteral(" Current page view updated")) > background);
}

REGISTER_TEST(TestWindowSettings)
#include "tst_settings.moc"
