// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"
#include "widgets/dotnetcolors.h"
#include "widgets/qtdotnetstyle.h"
#include "widgets/runningtheme.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const QRect paintedArea(0, 0, 40, 30);

RunningTheme themeWith(const QString &file, const QString &scheme)
{
    return {true, file, scheme};
}

/// Tells the theme of that number to a style with a mode other than 0.
QtDotNetStyle::ThemeSource sourceOf(int number)
{
    const QString luna = QStringLiteral("C:\\Themes\\Luna.msstyles");
    switch (number) {
    case 0:
        return [luna] { return themeWith(luna, "NormalColor"); };
    case 1:
        return [luna] { return themeWith(luna, "Metallic"); };
    case 2:
        return [luna] { return themeWith(luna, "HomeStead"); };
    default:
        return [] { return RunningTheme(); };
    }
}

QPalette lightPalette()
{
    QPalette palette(QColor(240, 240, 240));
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    return palette;
}

QPalette darkPalette()
{
    QPalette palette(QColor(45, 45, 48));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    return palette;
}

template<typename Option> Option optionFor(const QPalette &palette, QStyle::State state = QStyle::State_Enabled)
{
    Option option;
    option.rect = paintedArea;
    option.palette = palette;
    option.state = state;
    return option;
}

QImage drawn(const std::function<void(QPainter *)> &draw)
{
    QImage image(paintedArea.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(&painter);
    painter.end();
    return image;
}

/// Gradients are rounded differently from place to place.
bool isNear(const QColor &a, const QColor &b, int tolerance = 6)
{
    return qAbs(a.red() - b.red()) <= tolerance && qAbs(a.green() - b.green()) <= tolerance &&
           qAbs(a.blue() - b.blue()) <= tolerance;
}

/// Contrast of two colours as the accessibility guidelines reckon it, from 1 to 21.
double contrast(const QColor &a, const QColor &b)
{
    const auto luminance = [](const QColor &color) {
        const auto linear = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

/// A main window with everything that the style paints.
class StyledWindow : public QMainWindow
{
public:
    StyledWindow()
    {
        menu = menuBar()->addMenu("File");
        action = menu->addAction("Open");
        toolBar = addToolBar("Bar");
        toolBar->addAction(action);
        toolBar->addSeparator();
        toolBar->addWidget(new QComboBox);
        button = qobject_cast<QToolButton *>(toolBar->widgetForAction(action));
        auto *dock = new QDockWidget("Dock");
        dock->setWidget(new QToolButton);
        addDockWidget(Qt::RightDockWidgetArea, dock);
        setCentralWidget(new QLineEdit);
        statusBar()->showMessage("Ready");
    }

    QMenu *menu;
    QAction *action;
    QToolBar *toolBar;
    QToolButton *button;
};

} // namespace

class TestQtDotNetStyle : public QObject
{
    Q_OBJECT

private slots:
    void themeNumbers_data();
    void themeNumbers();
    void noThemeHere();
    void colorTables_data();
    void colorTables();
    void paletteColors();

    void toolBarGradient_data();
    void toolBarGradient();
    void menuGradient_data();
    void menuGradient();
    void dockTitleGradient();
    void statusBarOfTheMainWindowOnly();
    void toolButtonStates();
    void otherButtonsAreThePlatforms();
    void handleAndSeparatorAreSeen();
    void openMenuTitleIsReadable();
    void selectedMenuItemIsReadable_data();
    void selectedMenuItemIsReadable();
    void themeIsAskedAtEachPainting();
    void paletteIsTheCurrentOne();

    void dockButtonsSitLower();
    void otherRectsAreThePlatforms();
    void hoverIsSetAndTakenBack();
    void wholeWindow_data();
    void wholeWindow();
};

void TestQtDotNetStyle::themeNumbers_data()
{
    QTest::addColumn<RunningTheme>("theme");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("number");
    const QString luna = QStringLiteral("C:\\Windows\\Resources\\Themes\\Luna\\Luna.msstyles");
    const QString aero = QStringLiteral("C:\\Windows\\Resources\\Themes\\Aero\\Aero.msstyles");
    QTest::newRow("no theme") << RunningTheme{false, luna, "Metallic"} << 0 << 4;
    QTest::newRow("luna") << themeWith(luna, "NormalColor") << 0 << 0;
    QTest::newRow("luna without scheme") << themeWith(luna, "") << 0 << 0;
    QTest::newRow("metallic") << themeWith(luna, "Metallic") << 0 << 1;
    QTest::newRow("homestead in mode 0") << themeWith(luna, "HomeStead") << 0 << 0;
    QTest::newRow("homestead") << themeWith(luna, "HomeStead") << 1 << 2;
    QTest::newRow("metallic in mode 1") << themeWith(luna, "Metallic") << 1 << 1;
    QTest::newRow("luna in mode 1") << themeWith(luna, "NormalColor") << 1 << 0;
    QTest::newRow("aero in mode 0") << themeWith(aero, "NormalColor") << 0 << 4;
    QTest::newRow("aero") << themeWith(aero, "NormalColor") << 1 << 0;
    QTest::newRow("another theme") << themeWith("Royale.msstyles", "Metallic") << 1 << 4;
    QTest::newRow("empty names") << themeWith("", "") << 1 << 4;
}

void TestQtDotNetStyle::themeNumbers()
{
    QFETCH(RunningTheme, theme);
    QFETCH(int, mode);
    QTEST(DotNetColors::themeNumber(theme, mode), "number");
}

void TestQtDotNetStyle::noThemeHere()
{
#ifndef Q_OS_WIN
    QVERIFY(!runningTheme().themed);
    QCOMPARE(DotNetColors::themeNumber(runningTheme(), 0), 4);
#endif
}

void TestQtDotNetStyle::colorTables_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QList<QColor>>("expected"); // in the order of the fields
    const QColor hot(255, 192, 111);
    const QColor pressed(254, 128, 62);
    QTest::newRow("0") << 0 << QList<QColor>{{246, 246, 246}, {106, 140, 203}, {0, 45, 150}, {158, 190, 245},
                                             {196, 217, 249}, {59, 97, 156},   {0, 0, 128},  hot,
                                             pressed};
    QTest::newRow("1") << 1 << QList<QColor>{{254, 250, 255}, {110, 109, 143}, {124, 124, 148}, {216, 216, 229},
                                             {242, 242, 247}, {124, 124, 148}, {75, 75, 111},   hot,
                                             pressed};
    QTest::newRow("2") << 2 << QList<QColor>{{244, 244, 238}, {96, 128, 88}, {117, 141, 94}, {217, 217, 167},
                                             {241, 240, 227}, {96, 128, 88}, {63, 93, 56},   hot,
                                             pressed};
}

void TestQtDotNetStyle::colorTables()
{
    QFETCH(int, number);
    QFETCH(QList<QColor>, expected);
    const DotNetColors colors = DotNetColors::ofTheme(number, darkPalette());
    const QList<QColor> actual{colors.lightEnd, colors.darkEnd,        colors.border, colors.darkTint, colors.lightTint,
                               colors.frame,    colors.highlightFrame, colors.hot,    colors.pressed};
    QCOMPARE(actual, expected);
}

void TestQtDotNetStyle::paletteColors()
{
    for (const QPalette &palette : {lightPalette(), darkPalette()}) {
        for (const int number : {4, 3, 99, -1}) {
            const DotNetColors colors = DotNetColors::ofTheme(number, palette);
            const QColor window = palette.color(QPalette::Window);
            const QColor highlight = palette.color(QPalette::Highlight);
            QCOMPARE(colors.lightEnd, window.lighter(108));
            QCOMPARE(colors.darkEnd, window.darker(110));
            QCOMPARE(colors.border, palette.color(QPalette::Dark));
            QCOMPARE(colors.darkTint, window);
            QCOMPARE(colors.lightTint, window.lighter(106));
            QCOMPARE(colors.frame, palette.color(QPalette::Dark));
            QCOMPARE(colors.highlightFrame, highlight.darker(110));
            QCOMPARE(colors.hot, highlight.lighter(120));
            QCOMPARE(colors.pressed, highlight.lighter(180));
        }
    }
}

void TestQtDotNetStyle::toolBarGradient_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QPalette>("palette");
    for (const int number : {0, 1, 2, 4}) {
        QTest::addRow("%d, light", number) << number << lightPalette();
        QTest::addRow("%d, dark", number) << number << darkPalette();
        QPalette blue = lightPalette();
        blue.setColor(QPalette::Highlight, QColor(0, 120, 215));
        QTest::addRow("%d, strong blue", number) << number << blue;
    }
}

void TestQtDotNetStyle::toolBarGradient()
{
    QFETCH(int, number);
    QFETCH(QPalette, palette);
    const QtDotNetStyle style(1, sourceOf(number));
    const DotNetColors colors = DotNetColors::ofTheme(number, palette);
    auto option = optionFor<QStyleOptionToolBar>(palette, QStyle::State_Enabled | QStyle::State_Horizontal);
    const QImage lying = drawn([&](QPainter *p) { style.drawControl(QStyle::CE_ToolBar, &option, p); });
    QVERIFY(isNear(lying.pixelColor(20, 0), colors.lightEnd));
    QVERIFY(isNear(lying.pixelColor(20, 28), colors.darkEnd));
    QCOMPARE(lying.pixel(20, 29), colors.border.rgb());
    QCOMPARE(lying.pixelColor(0, 10), lying.pixelColor(39, 10));

    option.state = QStyle::State_Enabled;
    const QImage upright = drawn([&](QPainter *p) { style.drawControl(QStyle::CE_ToolBar, &option, p); });
    QVERIFY(isNear(upright.pixelColor(0, 15), colors.lightEnd));
    QVERIFY(isNear(upright.pixelColor(38, 15), colors.darkEnd));
    QCOMPARE(upright.pixel(39, 15), colors.border.rgb());
}

void TestQtDotNetStyle::menuGradient_data()
{
    toolBarGradient_data();
}

void TestQtDotNetStyle::menuGradient()
{
    QFETCH(int, number);
    QFETCH(QPalette, palette);
    const QtDotNetStyle style(1, sourceOf(number));
    const DotNetColors colors = DotNetColors::ofTheme(number, palette);
    auto option = optionFor<QStyleOptionMenuItem>(palette);
    const QImage panel = drawn([&](QPainter *p) { style.drawPrimitive(QStyle::PE_PanelMenu, &option, p); });
    QVERIFY(isNear(panel.pixelColor(1, 15), colors.darkTint));
    QVERIFY(isNear(panel.pixelColor(38, 15), colors.lightTint));
    for (const QPoint corner : {paintedArea.topLeft(), paintedArea.bottomRight(), paintedArea.bottomLeft()})
        QCOMPARE(panel.pixel(corner), colors.frame.rgb());
    const QImage frame = drawn([&](QPainter *p) { style.drawPrimitive(QStyle::PE_FrameMenu, &option, p); });
    QCOMPARE(frame.pixel(0, 15), colors.frame.rgb());
    QCOMPARE(frame.pixelColor(20, 15).alpha(), 0);

    const QImage bar = drawn([&](QPainter *p) { style.drawControl(QStyle::CE_MenuBarEmptyArea, &option, p); });
    QVERIFY(isNear(bar.pixelColor(0, 10), colors.darkTint));
    QVERIFY(isNear(bar.pixelColor(39, 10), colors.lightTint));
}

void TestQtDotNetStyle::dockTitleGradient()
{
    const QtDotNetStyle style(1, sourceOf(0));
    const DotNetColors colors = DotNetColors::ofTheme(0, lightPalette());
    const auto option = optionFor<QStyleOptionDockWidget>(lightPalette());
    const QImage title = drawn([&](QPainter *p) { style.drawControl(QStyle::CE_DockWidgetTitle, &option, p); });
    QVERIFY(isNear(title.pixelColor(20, 0), colors.lightEnd));
    QVERIFY(isNear(title.pixelColor(20, 28), colors.darkEnd, 12));
    const QImage frame = drawn([&](QPainter *p) { style.drawPrimitive(QStyle::PE_FrameDockWidget, &option, p); });
    QCOMPARE(frame.pixel(0, 15), colors.border.rgb());
}

void TestQtDotNetStyle::statusBarOfTheMainWindowOnly()
{
    const QtDotNetStyle style(1, sourceOf(2));
    const DotNetColors colors = DotNetColors::ofTheme(2, lightPalette());
    const auto option = optionFor<QStyleOption>(lightPalette());
    const StyledWindow window;
    const QImage main = drawn([&](QPainter *p) {
        style.drawPrimitive(QStyle::PE_PanelStatusBar, &option, p, window.findChild<QStatusBar *>());
    });
    QVERIFY(isNear(main.pixelColor(0, 20), colors.darkTint));
    QVERIFY(isNear(main.pixelColor(39, 20), colors.lightTint));

    QDialog dialog;
    QStatusBar other(&dialog);
    const std::unique_ptr<QStyle> platform(QStyleFactory::create(style.baseStyle()->name()));
    const QImage ours = drawn([&](QPainter *p) { style.drawPrimitive(QStyle::PE_PanelStatusBar, &option, p, &other); });
    const QImage theirs =
        drawn([&](QPainter *p) { platform->drawPrimitive(QStyle::PE_PanelStatusBar, &option, p, &other); });
    QCOMPARE(ours, theirs);
}

void TestQtDotNetStyle::toolButtonStates()
{
    const QtDotNetStyle style(1, sourceOf(1));
    const DotNetColors colors = DotNetColors::ofTheme(1, lightPalette());
    const StyledWindow window;
    const auto panel = [&](QStyle::State state) {
        auto option = optionFor<QStyleOptionToolButton>(lightPalette(), state);
        return drawn([&](QPainter *p) { style.drawPrimitive(QStyle::PE_PanelButtonTool, &option, p, window.button); });
    };
    using S = QStyle;
    const QImage hot = panel(S::State_Enabled | S::State_Raised | S::State_MouseOver);
    QCOMPARE(hot.pixel(0, 0), colors.highlightFrame.rgb());
    QVERIFY(isNear(hot.pixelColor(20, 1), colors.lightEnd, 10));
    QVERIFY(isNear(hot.pixelColor(20, 28), colors.hot, 10));
    const QImage pressed = panel(S::State_Enabled | S::State_Sunken | S::State_MouseOver);
    QVERIFY(isNear(pressed.pixelColor(20, 28), colors.pressed, 10));
    QVERIFY(isNear(panel(S::State_Enabled | S::State_On).pixelColor(20, 28), colors.pressed, 10));
    QVERIFY(isNear(panel(S::State_Enabled | S::State_On | S::State_MouseOver).pixelColor(20, 28), colors.hot, 10));
    // A switched-on button that is disabled has no colour of ours.
    QVERIFY(panel(S::State_On).pixelColor(0, 0) != colors.highlightFrame);

    // In a dock widget the same.
    const auto option =
        optionFor<QStyleOptionToolButton>(lightPalette(), S::State_Enabled | S::State_MouseOver | S::State_Raised);
    const QWidget *docked = window.findChild<QDockWidget *>()->widget();
    const QImage inDock = drawn([&](QPainter *p) { style.drawPrimitive(S::PE_PanelButtonTool, &option, p, docked); });
    QCOMPARE(inDock, hot);
    const QImage dropDown =
        drawn([&](QPainter *p) { style.drawPrimitive(S::PE_IndicatorButtonDropDown, &option, p, window.button); });
    QCOMPARE(dropDown, hot);
}

void TestQtDotNetStyle::otherButtonsAreThePlatforms()
{
    const QtDotNetStyle style(1, sourceOf(1));
    const std::unique_ptr<QStyle> platform(QStyleFactory::create(style.baseStyle()->name()));
    QDialog dialog;
    QToolButton outside(&dialog);
    const auto option = optionFor<QStyleOptionToolButton>(
        lightPalette(), QStyle::State_Enabled | QStyle::State_MouseOver | QStyle::State_Raised);
    for (const QStyle::PrimitiveElement element :
         {QStyle::PE_PanelButtonTool, QStyle::PE_PanelButtonCommand, QStyle::PE_FrameLineEdit}) {
        const QImage ours = drawn([&](QPainter *p) { style.drawPrimitive(element, &option, p, &outside); });
        const QImage theirs = drawn([&](QPainter *p) { platform->drawPrimitive(element, &option, p, &outside); });
        QCOMPARE(ours, theirs);
    }
    QPushButton push(&dialog);
    auto pushOption = optionFor<QStyleOptionButton>(lightPalette());
    pushOption.text = "Push";
    const QImage ours = drawn([&](QPainter *p) { style.drawControl(QStyle::CE_PushButton, &pushOption, p, &push); });
    const QImage theirs =
        drawn([&](QPainter *p) { platform->drawControl(QStyle::CE_PushButton, &pushOption, p, &push); });
    QCOMPARE(ours, theirs);
}

void TestQtDotNetStyle::handleAndSeparatorAreSeen()
{
    const QtDotNetStyle style(1, sourceOf(0));
    const DotNetColors colors = DotNetColors::ofTheme(0, lightPalette());
    for (const QStyle::State direction : {QStyle::State_Horizontal, QStyle::State_None}) {
        const auto option = optionFor<QStyleOption>(lightPalette(), QStyle::State_Enabled | direction);
        for (const auto element : {QStyle::PE_IndicatorToolBarHandle, QStyle::PE_IndicatorToolBarSeparator}) {
            const QImage image = drawn([&](QPainter *p) { style.drawPrimitive(element, &option, p); });
            int painted = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    painted += image.pixelColor(x, y) == colors.frame;
            }
            QVERIFY(painted >= 10);
            QVERIFY(painted < 60);
        }
    }
}

void TestQtDotNetStyle::openMenuTitleIsReadable()
{
    for (const int number : {0, 1, 2, 4}) {
        for (const QPalette &palette : {lightPalette(), darkPalette()}) {
            const QtDotNetStyle style(1, sourceOf(number));
            const DotNetColors colors = DotNetColors::ofTheme(number, palette);
            auto option = optionFor<QStyleOptionMenuItem>(palette, QStyle::State_Enabled | QStyle::State_Selected |
                                                                       QStyle::State_Sunken);
            option.text = QString(2, QChar(0x2588));
            const QImage image = drawn([&](QPainter *p) { style.drawControl(QStyle::CE_MenuBarItem, &option, p); });
            QCOMPARE(image.pixel(0, 0), colors.highlightFrame.rgb());
            QCOMPARE(image.pixel(3, 3), colors.pressed.rgb());
            QVERIFY(contrast(image.pixelColor(20, 15), colors.pressed) >= 4.5);
        }
    }
}

void TestQtDotNetStyle::selectedMenuItemIsReadable_data()
{
    toolBarGradient_data();
}

void TestQtDotNetStyle::selectedMenuItemIsReadable()
{
    QFETCH(int, number);
    QFETCH(QPalette, palette);
    const QtDotNetStyle style(1, sourceOf(number));
    auto option = optionFor<QStyleOptionMenuItem>(palette, QStyle::State_Enabled | QStyle::State_Selected);
    option.menuItemType = QStyleOptionMenuItem::Normal;
    option.text = QString(8, QChar(0x2588)); // full blocks, so that text pixels are found
    option.rect = QRect(0, 0, 120, 30);
    QImage image(option.rect.size(), QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QPainter painter(&image);
    style.drawControl(QStyle::CE_MenuItem, &option, &painter);
    painter.end();
    const QColor background = DotNetColors::ofTheme(number, palette).hot;
    QVERIFY(isNear(image.pixelColor(110, 4), background));
    double best = 0;
    for (int x = 10; x < 110; ++x)
        best = std::max(best, contrast(image.pixelColor(x, 15), background));
    QVERIFY2(best >= 4.5, qPrintable(QString::number(best)));
}

void TestQtDotNetStyle::themeIsAskedAtEachPainting()
{
    int number = 0;
    const QtDotNetStyle style(1, [&number] { return sourceOf(number)(); });
    const auto option = optionFor<QStyleOptionToolBar>(lightPalette(), QStyle::State_Horizontal);
    for (const int next : {0, 2, 4, 1}) {
        number = next;
        const QImage image = drawn([&](QPainter *p) { style.drawControl(QStyle::CE_ToolBar, &option, p); });
        QCOMPARE(image.pixel(20, 29), DotNetColors::ofTheme(next, lightPalette()).border.rgb());
    }
}

void TestQtDotNetStyle::paletteIsTheCurrentOne()
{
    const QPalette before = QApplication::palette();
    QApplication::setStyle(new QtDotNetStyle);
    {
        StyledWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (const QPalette &palette : {darkPalette(), lightPalette()}) {
            QApplication::setPalette(palette);
            const QColor expected = palette.color(QPalette::Window).lighter(108);
            QTRY_VERIFY(isNear(window.toolBar->grab().toImage().pixelColor(1, 0), expected));
        }
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(before);
}

void TestQtDotNetStyle::dockButtonsSitLower()
{
    const QtDotNetStyle style;
    const std::unique_ptr<QStyle> platform(QStyleFactory::create(style.baseStyle()->name()));
    auto option = optionFor<QStyleOptionDockWidget>(lightPalette());
    option.rect = QRect(0, 0, 200, 24);
    option.closable = true;
    option.floatable = true;
    option.title = "Dock";
    for (const auto element : {QStyle::SE_DockWidgetCloseButton, QStyle::SE_DockWidgetFloatButton})
        QCOMPARE(style.subElementRect(element, &option), platform->subElementRect(element, &option).translated(0, 1));
}

void TestQtDotNetStyle::otherRectsAreThePlatforms()
{
    const QtDotNetStyle style;
    const std::unique_ptr<QStyle> platform(QStyleFactory::create(style.baseStyle()->name()));
    const auto button = optionFor<QStyleOptionButton>(lightPalette());
    for (const auto element : {QStyle::SE_PushButtonContents, QStyle::SE_CheckBoxIndicator})
        QCOMPARE(style.subElementRect(element, &button), platform->subElementRect(element, &button));
    for (const auto metric : {QStyle::PM_ToolBarIconSize, QStyle::PM_ButtonMargin, QStyle::PM_MenuBarItemSpacing})
        QCOMPARE(style.pixelMetric(metric), platform->pixelMetric(metric));
    QCOMPARE(style.standardPalette().color(QPalette::Window), platform->standardPalette().color(QPalette::Window));
}

void TestQtDotNetStyle::hoverIsSetAndTakenBack()
{
    QtDotNetStyle style;
    QMainWindow window;
    QLineEdit edit;
    QComboBox combo;
    QWidget plain;
    for (QWidget *widget :
         {static_cast<QWidget *>(&window), static_cast<QWidget *>(&edit), static_cast<QWidget *>(&combo)}) {
        widget->setAttribute(Qt::WA_Hover, false);
        style.polish(widget);
        QVERIFY(widget->testAttribute(Qt::WA_Hover));
        style.unpolish(widget);
        QVERIFY(!widget->testAttribute(Qt::WA_Hover));
    }
    style.polish(&plain);
    QVERIFY(!plain.testAttribute(Qt::WA_Hover));
}

void TestQtDotNetStyle::wholeWindow_data()
{
    toolBarGradient_data();
}

void TestQtDotNetStyle::wholeWindow()
{
    QFETCH(int, number);
    QFETCH(QPalette, palette);
    const QPalette before = QApplication::palette();
    QApplication::setStyle(new QtDotNetStyle(1, sourceOf(number)));
    QApplication::setPalette(palette);
    {
        const DotNetColors colors = DotNetColors::ofTheme(number, palette);
        StyledWindow window;
        window.resize(300, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QImage bar = window.menuBar()->grab().toImage();
        QVERIFY(isNear(bar.pixelColor(0, 3), colors.darkTint));
        QVERIFY(isNear(bar.pixelColor(bar.width() - 1, 3), colors.lightTint));
        window.menu->popup(window.pos());
        window.menu->setActiveAction(window.action);
        QVERIFY(QTest::qWaitForWindowExposed(window.menu));
        const QImage menu = window.menu->grab().toImage();
        QVERIFY(isNear(menu.pixelColor(menu.width() - 5, menu.height() / 2), colors.hot));
        window.menu->hide();
        window.button->setDown(true);
        const QImage button = window.button->grab().toImage();
        QCOMPARE(button.pixel(0, 0), colors.highlightFrame.rgb());
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(before);
}

REGISTER_TEST(TestQtDotNetStyle)
#include "tst_qtdotnetstyle.moc"
