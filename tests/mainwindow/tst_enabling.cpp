// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/rectangleann.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/windowprobe.h"
#include "support/testmain.h"

#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QSettings>
#include <QTest>
#include <QTextCursor>
#include <QUndoStack>

namespace {

const QStringList &alwaysEnabled()
{
    static const QStringList names =
        QStringLiteral("actionNewProject actionOpen actionSaveAs actionSendEmail actionExit actionPrintSettings "
                       "actionSyntaxSettings actionPageViewSettings actionMainSettings actionEmailSettings "
                       "actionUserGuide actionGotoHomePage actionAbout")
            .split(' ');
    return names;
}

const QStringList &enabledWithPage()
{
    static const QStringList names =
        QStringLiteral(
            "actionCloseFile actionExportToPdf actionPrintPreview actionPrint actionSearch actionToolPen "
            "actionToolMarker actionTextBox actionSimpleLine actionEmptyCirclesLine actionFilledCirclesLine "
            "actionFilledEmptyCirclesLine actionArrow actionTwoArrows actionEmptyCircleArrow "
            "actionFilledCircleArrow actionToolRectangle actionToolRoundedRectangle actionToolEllipse "
            "actionCurlyBracket actionRectBracket actionToolEraser actionThinBlackPen actionThinRedPen "
            "actionThinGreenPen actionThinBluePen actionMediumBlackPen actionMediumRedPen actionMediumGreenPen "
            "actionMediumBluePen actionRedMarker actionGreenMarker actionBlueMarker actionYellowMarker "
            "actionToolTextMode actionTransformationMode actionTakeScreenShot actionZoomIn actionZoomOut "
            "actionFullScreen actionHideAnnotations actionShowActiveElementsList")
            .split(' ');
    return names;
}

/// Everything that updateMenus() enables or disables by more than the presence of a page.
QSet<QString> enabledSpecials(const WindowProbe &window)
{
    QSet<QString> enabled;
    for (const char *name : {"actionSave", "actionUndo", "actionRedo", "actionCut", "actionCopy", "actionRemove",
                             "actionPaste", "actionRemoveAllAnnotations"}) {
        if (window.action(name)->isEnabled())
            enabled.insert(QString::fromLatin1(name));
    }
    return enabled;
}

QString wrongOnes(const WindowProbe &window, const QStringList &names, bool enabled)
{
    QStringList wrong;
    for (const QString &name : names) {
        if (window.action(name.toLatin1().constData())->isEnabled() != enabled)
            wrong.append(name);
    }
    return wrong.join(' ');
}

void addMark(Page *page, bool selected)
{
    auto *mark = new RectangleAnn;
    mark->setRect(0, 0, 30, 20);
    mark->setFlag(QGraphicsItem::ItemIsSelectable);
    page->addAnnotation(mark);
    mark->setSelected(selected);
}

void selectAllText(const WindowProbe &window)
{
    window->setTextMode(true);
    window.page()->focusDocument();
    window->showWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    window.view()->setFocus();
    QTest::keyClick(window.view()->viewport(), Qt::Key_A, Qt::ControlModifier);
    QVERIFY(!window.page()->selectedText().isEmpty());
}

} // namespace

class TestEnabling : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void noPage();
    void noPageWithTextOnTheClipboard();
    void textPage();
    void imagePage();
    void lastTabClosed();
    void modifiedPage();
    void undoAndRedoFollowTheGroup();
    void undoBelongsToTheTabInFront();
    void textSelection();
    void markSelection_data();
    void markSelection();
    void pasteFollowsCopyAtOnce();
    void removeIsACut();
    void pasteByMode();
    void hiddenMarksCount();
    void menusUpdateBeforeTheyOpen_data();
    void menusUpdateBeforeTheyOpen();
    void languageActionFollowsTheSetting_data();
    void languageActionFollowsTheSetting();
    void trace();
};

void TestEnabling::init()
{
    QSettings().clear();
    QApplication::clipboard()->clear();
}

void TestEnabling::noPage()
{
    const WindowProbe window;
    QCOMPARE(wrongOnes(window, alwaysEnabled(), true), QString());
    QCOMPARE(wrongOnes(window, enabledWithPage(), false), QString());
    QCOMPARE(enabledSpecials(window), QSet<QString>());
    for (const char *name : {"menuLines", "menuShape", "menuBrackets", "menuPredefinedPens", "menuPredefinedMarkers"})
        QVERIFY2(!window.menu(name)->isEnabled(), name);
    QVERIFY(window.menu("menuShowToolBars")->isEnabled());
    QVERIFY(window.action("actionToolPen")->isChecked());
}

void TestEnabling::noPageWithTextOnTheClipboard()
{
    QApplication::clipboard()->setText(QStringLiteral("from elsewhere"));
    const WindowProbe window;
    QVERIFY(!window.action("actionPaste")->isEnabled());
    window->setTextMode(true);
    window->updateMenus();
    QVERIFY(window.action("actionPaste")->isEnabled());
}

void TestEnabling::textPage()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QCOMPARE(wrongOnes(window, alwaysEnabled() + enabledWithPage(), true), QString());
    QCOMPARE(enabledSpecials(window), QSet<QString>());
    for (const char *name : {"menuLines", "menuShape", "menuBrackets", "menuPredefinedPens", "menuPredefinedMarkers"})
        QVERIFY2(window.menu(name)->isEnabled(), name);
}

void TestEnabling::imagePage()
{
    const TestFiles files;
    const WindowProbe window({files.writePicture(QStringLiteral("a.png"))});
    QCOMPARE(wrongOnes(window, alwaysEnabled() + enabledWithPage(), true), QString());
    QCOMPARE(enabledSpecials(window), QSet<QString>());
}

void TestEnabling::lastTabClosed()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.page()->addAnnotation(new RectangleAnn(nullptr));
    window.page()->setModified(false);
    window->closeFile();
    QCOMPARE(window.stack()->count(), 0);
    QCOMPARE(wrongOnes(window, enabledWithPage(), false), QString());
    QCOMPARE(enabledSpecials(window), QSet<QString>());
    // What a shortcut may still fire before the menus are brought up to date.
    QVERIFY(window->saveFile());
    QVERIFY(window->saveAsFile());
    window->closeFile();
    window->cut();
    window->copy();
    window->paste();
    window->remove();
    window->zoomIn();
    window->zoomOut();
    window->changeSize();
    window->hideAnnotations(true);
    window->removeAllAnnotations();
    window->showSearchToolBar();
    window->restorePreviousTool();
    window->currHighlightSyntax(false);
    QCOMPARE(window.stack()->count(), 0);
}

void TestEnabling::modifiedPage()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.page()->setModified(true);
    window->updateMenus();
    QCOMPARE(enabledSpecials(window), QSet<QString>{"actionSave"});
    window.page()->setModified(false);
    window->updateMenus();
    QCOMPARE(enabledSpecials(window), QSet<QString>());
}

void TestEnabling::undoAndRedoFollowTheGroup()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    addMark(window.page(), false);
    // No update in between: the group drives the two actions.
    QVERIFY(window.action("actionUndo")->isEnabled());
    QVERIFY(!window.action("actionRedo")->isEnabled());
    window.action("actionUndo")->trigger();
    QVERIFY(!window.page()->hasAnnotations());
    QVERIFY(!window.action("actionUndo")->isEnabled());
    QVERIFY(window.action("actionRedo")->isEnabled());
    window.action("actionRedo")->trigger();
    QVERIFY(window.page()->hasAnnotations());
    window->updateMenus();
    QCOMPARE(enabledSpecials(window), (QSet<QString>{"actionSave", "actionUndo", "actionRemoveAllAnnotations"}));
}

void TestEnabling::undoBelongsToTheTabInFront()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt")), files.write(QStringLiteral("b.txt"))});
    Page *second = window.page();
    addMark(second, false);
    QVERIFY(window.action("actionUndo")->isEnabled());
    window.stack()->setCurrentIndex(0);
    QVERIFY(!window.action("actionUndo")->isEnabled());
    window.stack()->setCurrentIndex(1);
    QVERIFY(window.action("actionUndo")->isEnabled());
    window.action("actionUndo")->trigger();
    QVERIFY(!second->hasAnnotations());
}

void TestEnabling::textSelection()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    selectAllText(window);
    window.page()->setModified(false);
    window->updateMenus();
    QCOMPARE(enabledSpecials(window), (QSet<QString>{"actionCut", "actionCopy", "actionRemove"}));
    window->setTransformMode(true);
    window.page()->clearSelection();
    window->updateMenus();
    QCOMPARE(enabledSpecials(window), QSet<QString>());
}

void TestEnabling::markSelection_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("text") << int(TextMode) << false;
    QTest::newRow("transform") << int(TransformMode) << true;
    QTest::newRow("tool") << int(ToolMode) << true;
}

void TestEnabling::markSelection()
{
    QFETCH(const int, mode);
    QFETCH(const bool, enabled);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    addMark(window.page(), true);
    if (mode == TextMode)
        window->setTextMode(true);
    if (mode == TransformMode)
        window->setTransformMode(true);
    QCOMPARE(window->mode(), mode);
    window->updateMenus();
    for (const char *name : {"actionCut", "actionCopy", "actionRemove"})
        QCOMPARE(window.action(name)->isEnabled(), enabled);
}

void TestEnabling::pasteFollowsCopyAtOnce()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    addMark(window.page(), true);
    window->updateMenus();
    QVERIFY(!window.action("actionPaste")->isEnabled());
    window.action("actionCopy")->trigger();
    QVERIFY(window.action("actionPaste")->isEnabled());
    QCOMPARE(window->annotationClipboard()->size(), 1);
    window->clearAnnotationClipboard();
    window->updateMenus();
    QVERIFY(!window.action("actionPaste")->isEnabled());
    window.action("actionCut")->trigger();
    QVERIFY(window.action("actionPaste")->isEnabled());
    QVERIFY(!window.page()->hasAnnotations());
    window.action("actionPaste")->trigger();
    QVERIFY(window.page()->hasAnnotations());
}

void TestEnabling::removeIsACut()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    addMark(window.page(), true);
    window->updateMenus();
    window.action("actionRemove")->trigger();
    QVERIFY(!window.page()->hasAnnotations());
    QCOMPARE(window->annotationClipboard()->size(), 1);
    window.action("actionUndo")->trigger();
    QVERIFY(window.page()->hasAnnotations());
}

void TestEnabling::pasteByMode()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QApplication::clipboard()->setText(QStringLiteral("text"));
    window->updateMenus();
    QVERIFY(!window.action("actionPaste")->isEnabled());
    window->setTextMode(true);
    window->updateMenus();
    QVERIFY(window.action("actionPaste")->isEnabled());
    window->setTransformMode(true);
    window->updateMenus();
    QVERIFY(!window.action("actionPaste")->isEnabled());
}

void TestEnabling::hiddenMarksCount()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    addMark(window.page(), false);
    window.action("actionHideAnnotations")->trigger();
    window->updateMenus();
    QVERIFY(window.action("actionRemoveAllAnnotations")->isEnabled());
}

void TestEnabling::menusUpdateBeforeTheyOpen_data()
{
    QTest::addColumn<QString>("menu");
    for (const char *name : {"menuFile", "menuEdit", "menuTool", "menuView", "menuSettings", "menuBonus", "menuHelp"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestEnabling::menusUpdateBeforeTheyOpen()
{
    QFETCH(const QString, menu);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.page()->setModified(true);
    QVERIFY(!window.action("actionSave")->isEnabled());
    QMetaObject::invokeMethod(window.menu(menu.toLatin1().constData()), "aboutToShow");
    QVERIFY(window.action("actionSave")->isEnabled());
}

void TestEnabling::languageActionFollowsTheSetting_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("checked");
    QTest::newRow("default") << "default"
                             << "actionDefaultLanguage";
    QTest::newRow("en") << "en"
                        << "actionEnglish";
    QTest::newRow("pl") << "pl"
                        << "actionPolski";
    QTest::newRow("fr") << "fr"
                        << "actionFrancais";
    QTest::newRow("full locale name") << "pl_PL"
                                      << "actionDefaultLanguage";
    QTest::newRow("nonsense") << "../x"
                              << "actionDefaultLanguage";
}

void TestEnabling::languageActionFollowsTheSetting()
{
    QFETCH(const QString, stored);
    QFETCH(const QString, checked);
    QSettings().setValue(QStringLiteral("Other/AppLanguage"), stored);
    const WindowProbe window;
    for (const char *name : {"actionDefaultLanguage", "actionEnglish", "actionPolski", "actionFrancais"})
        QCOMPARE(window.action(name)->isChecked(), checked == QLatin1String(name));
}

void TestEnabling::trace()
{
    const WindowProbe window;
    LogProbe log;
    window->updateMenus();
    const QStringList lines = log.traceSinceMark();
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).startsWith(QLatin1String("Scv ")));
    QCOMPARE(lines.at(1), QStringLiteral("Updating menus"));
    QVERIFY(lines.at(2).startsWith(QLatin1String(" <=> ")));
}

REGISTER_TEST(TestEnabling)
#include "tst_enabling.moc"
