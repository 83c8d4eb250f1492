// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/vocabularytable.h"
#include "mainwindow/windowprobe.h"
#include "support/testmain.h"
#include "widgets/qtcolorpicker.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QFile>
#include <QHash>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QMetaMethod>
#include <QProgressBar>
#include <QSettings>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>
#include <QXmlStreamReader>

namespace {

/// Texts of the form itself, property by property: "actionOpen.text" and so on.
QHash<QString, QString> formStrings()
{
    QFile file(QStringLiteral(KESTRIN_SOURCE_DIR "/src/mainwindow/mainwindow.ui"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QHash<QString, QString> strings;
    QXmlStreamReader xml(&file);
    QStringList owners;
    QString property;
    while (!xml.atEnd()) {
        xml.readNext();
        const bool isOwner = xml.name() == QLatin1String("action") || xml.name() == QLatin1String("widget");
        if (xml.isStartElement() && isOwner)
            owners.append(xml.attributes().value(QLatin1String("name")).toString());
        else if (xml.isEndElement() && isOwner)
            owners.removeLast();
        else if (xml.isStartElement() && xml.name() == QLatin1String("property"))
            property = xml.attributes().value(QLatin1String("name")).toString();
        else if (xml.isStartElement() && xml.name() == QLatin1String("string"))
            strings.insert(owners.last() + QLatin1Char('.') + property, xml.readElementText());
    }
    return strings;
}

QImage picture(const QIcon &icon)
{
    return icon.pixmap(QSize(24, 24), 1.0).toImage();
}

bool isBlank(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0)
                return false;
        }
    }
    return true;
}

} // namespace

class TestVocabulary : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void actions_data();
    void actions();
    void thereAreNoOtherActions();
    void formTexts();
    void formTextsThatDiffer();
    void toolTips();
    void statusTips();
    void groups();
    void languageCodes();
    void menus_data();
    void menus();
    void menuBar();
    void tearOffMenus();
    void popupMenu();
    void toolBars_data();
    void toolBars();
    void toolBarOrder();
    void openButton();
    void zoomBox();
    void searchBar();
    void colorPickers();
    void statusBar();
    void statusBarOrder();
    void form();
    void tagMenu();
    void unconnectedActions();
    void slotOrder();

private:
    std::unique_ptr<WindowProbe> m_window;
};

void TestVocabulary::initTestCase()
{
    QSettings().clear();
    m_window = std::make_unique<WindowProbe>();
}

void TestVocabulary::cleanupTestCase()
{
    m_window.reset();
}

void TestVocabulary::actions_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < expectedActions().size(); ++row)
        QTest::newRow(expectedActions().at(row).name) << row;
}

void TestVocabulary::actions()
{
    QFETCH(const int, row);
    const ExpectedAction &expected = expectedActions().at(row);
    const WindowProbe &window = *m_window;
    const QAction *action = window.action(expected.name);
    QCOMPARE(action->text(), QString::fromLatin1(expected.text));
    QCOMPARE(action->shortcut(), expected.shortcut);
    QCOMPARE(action->shortcuts().size(), expected.shortcut.isEmpty() ? 0 : 1);
    QCOMPARE(action->isCheckable(), expected.check != Plain);
    QCOMPARE(action->isChecked(), expected.check == Checked);
    const QIcon icon(QString::fromLatin1(expected.icon));
    if (*expected.icon == '\0') {
        QVERIFY(action->icon().isNull());
    } else {
        QVERIFY2(!isBlank(picture(icon)), expected.icon);
        QCOMPARE(picture(action->icon()), picture(icon));
    }
    const QHash<QString, QActionGroup *> groups{
        {QString(), nullptr},
        {QStringLiteral("tools"), window.action("actionToolPen")->actionGroup()},
        {QStringLiteral("views"), window.action("actionFullView")->actionGroup()},
        {QStringLiteral("languages"), window.action("actionEnglish")->actionGroup()},
    };
    QCOMPARE(action->actionGroup(), groups.value(QString::fromLatin1(expected.group)));
}

void TestVocabulary::thereAreNoOtherActions()
{
    const WindowProbe &window = *m_window;
    QSet<QString> expected;
    for (const ExpectedAction &action : expectedActions())
        expected.insert(QString::fromLatin1(action.name));
    QSet<QString> found;
    for (const QAction *action : window->findChildren<QAction *>()) {
        if (action->objectName().startsWith(QLatin1String("action")))
            found.insert(action->objectName());
    }
    QCOMPARE(found, expected);
}

void TestVocabulary::formTexts()
{
    const QHash<QString, QString> texts = formStrings();
    const QSet<QString> different{QStringLiteral("actionUserGuide"), QStringLiteral("actionSimpleLine"),
                                  QStringLiteral("actionCustomizeToolBars")};
    for (const ExpectedAction &action : expectedActions()) {
        const QString name = QString::fromLatin1(action.name);
        if (!different.contains(name))
            QCOMPARE(texts.value(name + QStringLiteral(".text")), QString::fromLatin1(action.text));
    }
    for (const ExpectedMenu &menu : expectedMenus()) {
        const QString name = QString::fromLatin1(menu.name);
        if (name != QLatin1String("menuChangeLanguage"))
            QCOMPARE(texts.value(name + QStringLiteral(".title")), QString::fromLatin1(menu.title));
    }
}

void TestVocabulary::formTextsThatDiffer()
{
    const QHash<QString, QString> texts = formStrings();
    QCOMPARE(texts.value(QStringLiteral("actionUserGuide.text")), QStringLiteral("&Online Support..."));
    QCOMPARE(texts.value(QStringLiteral("actionSimpleLine.text")), QStringLiteral("Simple "));
    QCOMPARE(texts.value(QStringLiteral("actionCustomizeToolBars.text")), QStringLiteral("Customize..."));
    QCOMPARE(texts.value(QStringLiteral("menuChangeLanguage.title")), QStringLiteral("Change Language"));
}

void TestVocabulary::toolTips()
{
    const QHash<QString, QString> expected{
        {"actionSimpleLine", "Simple Line"},        {"actionCurlyBracket", "Curly Bracket"},
        {"actionRectBracket", "Square Bracket"},    {"actionThinBlackPen", "Thin Black Pen"},
        {"actionThinRedPen", "Thin Red Pen"},       {"actionThinGreenPen", "Thin Green Pen"},
        {"actionThinBluePen", "Thin Blue Pen"},     {"actionMediumBlackPen", "Medium Black Pen"},
        {"actionMediumRedPen", "Medium Red Pen"},   {"actionMediumGreenPen", "Medium Green Pen"},
        {"actionMediumBluePen", "Medium Blue Pen"}, {"actionRedMarker", "Red Marker"},
        {"actionGreenMarker", "Green Marker"},      {"actionBlueMarker", "Blue Marker"},
        {"actionYellowMarker", "Yellow Marker"},
    };
    const WindowProbe &window = *m_window;
    for (const ExpectedAction &row : expectedActions()) {
        const QString name = QString::fromLatin1(row.name);
        // Without a tip of its own an action shows its text, less the dots.
        const QString byText = QString::fromLatin1(row.text).remove(QStringLiteral("..."));
        QCOMPARE(window.action(row.name)->toolTip(), expected.value(name, byText));
    }
}

void TestVocabulary::statusTips()
{
    const QHash<QString, QString> expected{
        {"actionNewProject", "New Text File"}, {"actionSave", "Save..."}, {"actionUndo", "Undo"}};
    const WindowProbe &window = *m_window;
    for (const ExpectedAction &row : expectedActions())
        QCOMPARE(window.action(row.name)->statusTip(), expected.value(QString::fromLatin1(row.name)));
}

void TestVocabulary::groups()
{
    const QHash<QString, QStringList> expected{
        {"actionToolPen",
         QStringLiteral("actionToolTextMode actionTransformationMode actionToolPen actionToolMarker actionTextBox "
                        "actionToolEraser actionToolRectangle actionToolRoundedRectangle actionToolEllipse "
                        "actionCurlyBracket actionRectBracket actionSimpleLine actionEmptyCirclesLine "
                        "actionFilledCirclesLine actionFilledEmptyCirclesLine actionArrow actionTwoArrows "
                        "actionEmptyCircleArrow actionFilledCircleArrow actionThinBlackPen actionThinRedPen "
                        "actionThinGreenPen actionThinBluePen actionMediumBlackPen actionMediumRedPen "
                        "actionMediumGreenPen actionMediumBluePen actionRedMarker actionGreenMarker "
                        "actionBlueMarker actionYellowMarker actionTakeScreenShot")
             .split(' ')},
        {"actionFullView", {"actionFullView", "actionCompactView", "actionMinimalView"}},
        {"actionEnglish", {"actionDefaultLanguage", "actionEnglish", "actionPolski", "actionFrancais"}},
    };
    const WindowProbe &window = *m_window;
    for (auto it = expected.begin(); it != expected.end(); ++it) {
        const QActionGroup *group = window.action(it.key().toLatin1().constData())->actionGroup();
        QCOMPARE(group->parent(), &*window);
        QVERIFY(group->isExclusive());
        QStringList names;
        for (const QAction *action : group->actions())
            names.append(action->objectName());
        QCOMPARE(names, it.value());
    }
}

void TestVocabulary::languageCodes()
{
    const WindowProbe &window = *m_window;
    QCOMPARE(window.action("actionDefaultLanguage")->data().toString(), QStringLiteral("default"));
    QCOMPARE(window.action("actionEnglish")->data().toString(), QStringLiteral("en"));
    QCOMPARE(window.action("actionPolski")->data().toString(), QStringLiteral("pl"));
    QCOMPARE(window.action("actionFrancais")->data().toString(), QStringLiteral("fr"));
}

void TestVocabulary::menus_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < expectedMenus().size(); ++row)
        QTest::newRow(expectedMenus().at(row).name) << row;
}

void TestVocabulary::menus()
{
    QFETCH(const int, row);
    const ExpectedMenu &expected = expectedMenus().at(row);
    const WindowProbe &window = *m_window;
    const QMenu *menu = window.menu(expected.name);
    QCOMPARE(menu->title(), QString::fromLatin1(expected.title));
    QCOMPARE(actionNames(menu), QString::fromLatin1(expected.contents).split(' '));
}

void TestVocabulary::menuBar()
{
    const WindowProbe &window = *m_window;
    QCOMPARE(window->menuBar()->objectName(), QStringLiteral("mainMenuBar"));
    QCOMPARE(actionNames(window->menuBar()), QStringLiteral("menuFile menuEdit menuTool menuSettings menuView "
                                                            "menuBonus menuHelp")
                                                 .split(' '));
    QCOMPARE(window.menu("recentFilesMenu")->title(), QStringLiteral("Recent Files"));
    const QIcon icon(QStringLiteral(":/images/c/othersett_32x32.png"));
    QVERIFY(!isBlank(picture(icon)));
    QCOMPARE(picture(window.menu("menuToolsSettings")->icon()), picture(icon));
}

void TestVocabulary::tearOffMenus()
{
    const QSet<QString> expected{"menuEdit", "menuTool", "menuView"};
    const WindowProbe &window = *m_window;
    QSet<QString> found;
    for (const QMenu *menu : window->findChildren<QMenu *>()) {
        if (menu->isTearOffEnabled())
            found.insert(menu->objectName());
    }
    QCOMPARE(found, expected);
}

void TestVocabulary::popupMenu()
{
    const WindowProbe &window = *m_window;
    const QStringList expected{"actionCut", "actionCopy", "actionPaste", "|", "actionFullScreen"};
    QCOMPARE(actionNames(window->popupMenu()), expected);
}

void TestVocabulary::toolBars_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("area");
    QTest::addColumn<QString>("contents");
    const auto add = [](const char *name, const char *title, Qt::ToolBarArea area, const char *contents) {
        QTest::newRow(name) << QString::fromLatin1(title) << int(area) << QString::fromLatin1(contents);
    };
    add("ScvFileToolBar", "File", Qt::TopToolBarArea, "actionNewProject QToolButton actionSave | actionExportToPdf");
    add("ScvEditToolBar", "Edit", Qt::TopToolBarArea,
        "actionCut actionCopy actionPaste actionRemove | actionUndo actionRedo");
    add("ScvViewToolBar", "View", Qt::TopToolBarArea, "actionZoomOut actionZoomIn QComboBox | actionFullScreen");
    add("ScvModeToolBar", "Mode", Qt::LeftToolBarArea, "actionToolTextMode actionTransformationMode");
    add("ScvNormToolsToolBar", "Basic Tools", Qt::LeftToolBarArea,
        "actionToolPen actionToolMarker actionTextBox | actionToolEraser | QtColorPicker QtColorPicker");
    add("ScvShapesToolBar", "Shapes", Qt::TopToolBarArea,
        "actionToolRectangle actionToolRoundedRectangle actionToolEllipse");
    add("ScvLinesToolBar", "Lines", Qt::TopToolBarArea,
        "actionSimpleLine actionEmptyCirclesLine actionFilledCirclesLine actionFilledEmptyCirclesLine | actionArrow "
        "actionTwoArrows actionEmptyCircleArrow actionFilledCircleArrow");
    add("ScvBracketsToolBar", "Brackets", Qt::TopToolBarArea, "actionCurlyBracket actionRectBracket");
    add("ScvStdToolsToolBar", "Pens and Markers", Qt::LeftToolBarArea,
        "actionThinBlackPen actionThinRedPen actionThinGreenPen actionThinBluePen | actionMediumBlackPen "
        "actionMediumRedPen actionMediumGreenPen actionMediumBluePen | actionRedMarker actionGreenMarker "
        "actionBlueMarker actionYellowMarker");
    add("ScvHelpToolBar", "Help", Qt::TopToolBarArea, "actionUserGuide");
    add("ScvSearchToolBar", "Find", Qt::BottomToolBarArea,
        "QToolButton QComboBox QToolButton QToolButton QCheckBox QCheckBox");
}

void TestVocabulary::toolBars()
{
    QFETCH(const QString, title);
    QFETCH(const int, area);
    QFETCH(const QString, contents);
    const WindowProbe &window = *m_window;
    QToolBar *bar = window.bar(QTest::currentDataTag());
    QCOMPARE(bar->windowTitle(), title);
    QCOMPARE(int(window->toolBarArea(bar)), area);
    QCOMPARE(actionNames(bar), contents.split(' '));
}

void TestVocabulary::toolBarOrder()
{
    const WindowProbe &window = *m_window;
    QStringList names;
    for (const QToolBar *bar : window->findChildren<QToolBar *>())
        names.append(bar->objectName());
    const QStringList expected{"ScvFileToolBar",      "ScvEditToolBar",   "ScvViewToolBar",  "ScvModeToolBar",
                               "ScvNormToolsToolBar", "ScvShapesToolBar", "ScvLinesToolBar", "ScvBracketsToolBar",
                               "ScvStdToolsToolBar",  "ScvHelpToolBar",   "ScvSearchToolBar"};
    QCOMPARE(names, expected);
}

void TestVocabulary::openButton()
{
    const WindowProbe &window = *m_window;
    const QToolButton *button = window.openButton();
    QVERIFY(button);
    QCOMPARE(button->menu(), window.menu("recentFilesMenu"));
    QCOMPARE(button->defaultAction(), window.action("actionOpen"));
    QCOMPARE(button->popupMode(), QToolButton::MenuButtonPopup);
}

void TestVocabulary::zoomBox()
{
    const WindowProbe &window = *m_window;
    const QComboBox *box = window.zoomBox();
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items.append(box->itemText(i));
    const QStringList expected{"25%", "50%", "75%", "100%", "125%", "150%", "175%", "200%"};
    QCOMPARE(items, expected);
    QCOMPARE(box->currentIndex(), 3);
    QCOMPARE(box->toolTip(), QStringLiteral("Actual Page Size"));
}

void TestVocabulary::searchBar()
{
    const WindowProbe &window = *m_window;
    QToolBar *bar = window.bar("ScvSearchToolBar");
    QCOMPARE(bar->allowedAreas(), Qt::BottomToolBarArea);
    QVERIFY(!bar->isFloatable());
    QVERIFY(!bar->isMovable());

    const auto buttons = bar->findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly);
    const auto *box = bar->findChild<QComboBox *>();
    QVERIFY(box->isEditable());
    QCOMPARE(box->minimumWidth(), 200);
    const auto checks = bar->findChildren<QCheckBox *>();
    QCOMPARE(checks.size(), 2);
    QCOMPARE(checks.at(0)->text(), QStringLiteral("Case Sensitive"));
    QCOMPARE(checks.at(1)->text(), QStringLiteral("Whole Words"));

    QStringList texts;
    QStringList icons{":/search_icons/close.png", ":/search_icons/backward.png", ":/search_icons/forward.png"};
    for (QToolButton *button : buttons) {
        if (button->objectName() == QLatin1String("qt_toolbar_ext_button"))
            continue;
        texts.append(button->text());
        const QIcon icon(icons.takeFirst());
        QVERIFY(!isBlank(picture(icon)));
        QCOMPARE(picture(button->icon()), picture(icon));
    }
    QCOMPARE(texts, (QStringList{"", "Previous", "Next"}));

    auto *closeButton = qobject_cast<QToolButton *>(bar->widgetForAction(bar->actions().at(0)));
    QVERIFY(!bar->isHidden());
    closeButton->click();
    QVERIFY(bar->isHidden());
}

void TestVocabulary::colorPickers()
{
    const WindowProbe &window = *m_window;
    QCOMPARE(window.linePicker()->toolTip(), QStringLiteral("Line Color"));
    QCOMPARE(window.fillPicker()->toolTip(), QStringLiteral("Fill Color"));
    QVERIFY(window.linePicker()->colorDialogEnabled());
    QVERIFY(window.fillPicker()->colorDialogEnabled());
}

void TestVocabulary::statusBar()
{
    const WindowProbe &window = *m_window;
    const QStatusBar *bar = window->statusBar();
    QCOMPARE(bar->objectName(), QStringLiteral("statusbar"));
    QCOMPARE(window->statusLabel()->text(), QStringLiteral("        "));
    QCOMPARE(bar->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly).at(1)->text(), QStringLiteral("MOD"));

    const QProgressBar *progress = window->progressBar();
    QVERIFY(progress->isTextVisible());
    QCOMPARE(progress->maximumHeight(), 10);
    QCOMPARE(progress->minimum(), 0);
    QCOMPARE(progress->maximum(), 100);

    const std::pair<QToolButton *, const char *> buttons[]{{window.lockButton(), "Unlock Document"},
                                                           {window.syntaxButton(), "Highlight Syntax"}};
    for (const auto &[button, tip] : buttons) {
        QVERIFY(button->isCheckable());
        QVERIFY(button->isChecked());
        QVERIFY(button->autoRaise());
        QCOMPARE(button->toolTip(), QString::fromLatin1(tip));
        QVERIFY(!isBlank(picture(button->icon())));
    }
    QCOMPARE(picture(window.lockButton()->icon()), picture(QIcon(QStringLiteral(":/main_window/lock.png"))));
    QCOMPARE(picture(window.syntaxButton()->icon()), picture(QIcon(QStringLiteral(":/main_window/highsyntax.png"))));
}

/// From left to right; of more room, the message gets two parts, the progress one, the others none.
void TestVocabulary::statusBarOrder()
{
    WindowProbe window;
    const auto *mod = window->statusBar()->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly).at(1);
    const QList<const QWidget *> parts{window->statusLabel(), mod, window.lockButton(), window.syntaxButton(),
                                       window->progressBar()};
    const auto widths = [&](int windowWidth) {
        window->resize(windowWidth, 700);
        window->statusBar()->layout()->activate();
        QList<int> found;
        for (const QWidget *part : parts)
            found.append(part->width());
        return found;
    };
    QSettings().setValue(QStringLiteral("General/WindowMaximized"), false);
    window->showWindow();
    const QList<int> before = widths(1200);
    const QList<int> after = widths(1800);
    for (qsizetype i = 1; i < parts.size(); ++i)
        QVERIFY(parts.at(i)->x() >= parts.at(i - 1)->geometry().right());
    QCOMPARE(after.at(0) - before.at(0), 400);
    QCOMPARE(after.at(4) - before.at(4), 200);
    for (const int fixed : {1, 2, 3})
        QCOMPARE(after.at(fixed), before.at(fixed));
}

void TestVocabulary::form()
{
    const WindowProbe &window = *m_window;
    QCOMPARE(window->objectName(), QStringLiteral("MainWindow"));
    QCOMPARE(window->contextMenuPolicy(), Qt::DefaultContextMenu);
    QVERIFY(!window->autoFillBackground());
    QCOMPARE(window->toolButtonStyle(), Qt::ToolButtonIconOnly);
    QVERIFY(window->isDockNestingEnabled());
}

void TestVocabulary::tagMenu()
{
    const WindowProbe &window = *m_window;
    const QList<QMenu *> menus = window->findChildren<QMenu *>();
    const auto found =
        std::find_if(menus.begin(), menus.end(), [](const QMenu *menu) { return menu->title() == "Add Active Tag"; });
    QVERIFY(found != menus.end());
    QStringList texts;
    QStringList icons{":/active_tags/idea.png", ":/active_tags/note.png", ":/active_tags/question.png",
                      ":/active_tags/important.png", ":/active_tags/bug.png"};
    for (const QAction *action : (*found)->actions()) {
        texts.append(action->text());
        const QIcon icon(icons.takeFirst());
        QVERIFY(!isBlank(picture(icon)));
        QCOMPARE(picture(action->icon()), picture(icon));
    }
    QCOMPARE(texts, (QStringList{"Idea", "Note", "Question", "Important", "Bug"}));
    // It stands in no menu.
    QVERIFY(!(*found)->menuAction()->associatedObjects().contains(window->menuBar()));
    QVERIFY((*found)->menuAction()->associatedObjects().isEmpty());
}

void TestVocabulary::unconnectedActions()
{
    // Reaches the count that QObject keeps for its own kind.
    struct Receivers : QObject
    {
        static int of(const QObject *object, const char *signal) { return (object->*(&Receivers::receivers))(signal); }
    };
    const QByteArrayList expected{"actionImport",          "actionToolBrush",       "actionShowToolsToolBar",
                                  "actionShowEditToolBar", "actionShowViewToolBar", "actionShowHelpToolBar",
                                  "actionShowFileToolBar", "actionConfiguration",   "actionBla",
                                  "actionShowAnchorsList", "actionOneLineBox",      "actionMultiLineBox",
                                  "actionMultiLine",       "actionAdasd",           "actionSaveWithAnnotations"};
    QByteArrayList found;
    for (const ExpectedAction &row : expectedActions()) {
        const QAction *action = m_window->action(row.name);
        const int count = Receivers::of(action, SIGNAL(triggered(bool))) + Receivers::of(action, SIGNAL(toggled(bool)));
        if (count == 0)
            found.append(row.name);
    }
    QCOMPARE(found, expected);
}

void TestVocabulary::slotOrder()
{
    const QMetaObject &meta = Scrivara::staticMetaObject;
    QByteArrayList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        found.append(meta.method(i).methodSignature());
    QCOMPARE(found, expectedSlots());
    QCOMPARE(meta.method(meta.indexOfMethod("saveFile()")).returnType(), int(QMetaType::Bool));
    QCOMPARE(meta.method(meta.indexOfMethod("saveAsFile()")).returnType(), int(QMetaType::Bool));
}

REGISTER_TEST(TestVocabulary)
#include "tst_vocabulary.moc"
