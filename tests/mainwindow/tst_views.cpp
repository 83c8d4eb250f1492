// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/rectangleann.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/testmain.h"
#include "widgets/aboutdialog.h"
#include "widgets/dontdialog.h"
#include "widgets/fullscreendialog.h"
#include "widgets/viewmodedialog.h"

#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>
#include <QUndoGroup>

namespace {

/// What is on show, by the letters of the tool bars; "m" and "s" are menu bar and status bar.
QString shownParts(const WindowProbe &window)
{
    static constexpr std::pair<const char *, char> bars[]{
        {"ScvFileToolBar", 'F'},     {"ScvEditToolBar", 'E'},      {"ScvViewToolBar", 'V'},   {"ScvHelpToolBar", 'H'},
        {"ScvModeToolBar", 'M'},     {"ScvNormToolsToolBar", 'N'}, {"ScvShapesToolBar", 'S'}, {"ScvLinesToolBar", 'L'},
        {"ScvBracketsToolBar", 'B'}, {"ScvStdToolsToolBar", 'T'},  {"ScvSearchToolBar", 'Q'},
    };
    QString shown;
    if (!window->menuBar()->isHidden())
        shown += 'm';
    if (!window->statusBar()->isHidden())
        shown += 's';
    for (const auto &[name, letter] : bars) {
        if (!window.bar(name)->isHidden())
            shown += QLatin1Char(letter);
    }
    return shown;
}

const QString everything = QStringLiteral("msFEVHMNSLBTQ");
const QString compact = QStringLiteral("mMNT");

bool viewDialogShown(const WindowProbe &window)
{
    return !window->findChild<ViewModeDialog *>()->isHidden();
}

bool fullScreenDialogShown(const WindowProbe &window)
{
    return !window->findChild<FullscreenDialog *>()->isHidden();
}

const QStringList plainPopup{"actionCut", "actionCopy", "actionPaste", "|", "actionFullScreen"};
const QStringList toolPopup = plainPopup + QStringList{"|", "menuTool"};

} // namespace

class TestViews : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void layouts_data();
    void layouts();
    void layoutsByAction_data();
    void layoutsByAction();
    void unknownLayout();
    void minimalTwice();
    void backFromMinimalByItsBar();
    void compactByCode();
    void standardShowsTheSearchBar();
    void maximizedStaysMaximized();
    void fullScreen();
    void fullScreenByKey();
    void fullScreenHasNoShortcutToSave();
    void fullScreenFromCompact();
    void fullScreenEndsWithTheLastTab();
    void fullScreenBarLeaves();
    void zoomByActions();
    void zoomBoxSetsTheView();
    void zoomIsTheViewsOwn();
    void smallestZoomLeavesTheBox();
    void zoomWithoutDocument();
    void hideAnnotations();
    void removeAllAnnotations();
    void removeAllAnnotationsRefused();
    void removeAllAnnotationsUnasked();
    void removedMarksLeaveNoTraces();
    void aboutBox();
    void searchBar();
    void searchBarWithoutDocument();
};

void TestViews::init()
{
    QSettings().clear();
}

void TestViews::layouts_data()
{
    QTest::addColumn<int>("view");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("bar");
    QTest::addColumn<QStringList>("popup");
    QTest::newRow("standard") << 0 << everything << false << plainPopup;
    QTest::newRow("compact") << 1 << compact << false << plainPopup;
    QTest::newRow("minimal") << 2 << QString() << true << toolPopup;
}

void TestViews::layouts()
{
    QFETCH(const int, view);
    QFETCH(const QString, shown);
    QFETCH(const bool, bar);
    QFETCH(const QStringList, popup);
    const WindowProbe window;
    QCOMPARE(shownParts(window), everything);
    window->switchView(view);
    QCOMPARE(shownParts(window), shown);
    QCOMPARE(viewDialogShown(window), bar);
    QCOMPARE(actionNames(window->popupMenu()), popup);
    QCOMPARE(window.menu("menuTool")->isTearOffEnabled(), !bar);
    // switchView() sets no action.
    QVERIFY(window.action("actionFullView")->isChecked());
}

void TestViews::layoutsByAction_data()
{
    QTest::addColumn<QByteArrayList>("actions");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QStringList>("popup");
    const QByteArray full("actionFullView");
    const QByteArray comp("actionCompactView");
    const QByteArray mini("actionMinimalView");
    QTest::newRow("compact") << QByteArrayList{comp} << compact << plainPopup;
    QTest::newRow("compact and back") << QByteArrayList{comp, full} << everything << plainPopup;
    QTest::newRow("minimal") << QByteArrayList{mini} << QString() << toolPopup;
    QTest::newRow("minimal and back") << QByteArrayList{mini, full} << everything << plainPopup;
    QTest::newRow("minimal, compact") << QByteArrayList{mini, comp} << compact << plainPopup;
    QTest::newRow("all round") << QByteArrayList{mini, comp, full, mini} << QString() << toolPopup;
}

void TestViews::layoutsByAction()
{
    QFETCH(const QByteArrayList, actions);
    QFETCH(const QString, shown);
    QFETCH(const QStringList, popup);
    const WindowProbe window;
    for (const QByteArray &name : actions)
        window.action(name.constData())->trigger();
    QCOMPARE(shownParts(window), shown);
    QCOMPARE(actionNames(window->popupMenu()), popup);
    QCOMPARE(viewDialogShown(window), actions.last() == "actionMinimalView");
    QVERIFY(window.action(actions.last().constData())->isChecked());
}

void TestViews::unknownLayout()
{
    const WindowProbe window;
    window->switchView(1);
    LogProbe log;
    window->switchView(3);
    window->switchView(-1);
    QCOMPARE(log.traceSinceMark(), QStringList());
    QCOMPARE(shownParts(window), compact);
}

void TestViews::minimalTwice()
{
    const WindowProbe window;
    window->switchView(2);
    window->switchView(2);
    // The menu is added a second time, with a separator of its own; a QMenu keeps one entry of it, the last.
    QCOMPARE(actionNames(window->popupMenu()), (plainPopup + QStringList{"|", "|", "menuTool"}));
    window->switchView(0);
    QCOMPARE(actionNames(window->popupMenu()), plainPopup);
}

void TestViews::backFromMinimalByItsBar()
{
    const WindowProbe window;
    window.action("actionMinimalView")->trigger();
    const auto buttons = window->findChild<ViewModeDialog *>()->findChildren<QToolButton *>();
    QStringList names;
    for (const QToolButton *button : buttons)
        names.append(button->defaultAction() != nullptr ? button->defaultAction()->objectName() : QString());
    QCOMPARE(names, (QStringList{"actionToolTextMode", "actionThinBluePen", "actionRedMarker", QString()}));
    buttons.last()->click();
    QCOMPARE(shownParts(window), everything);
    QVERIFY(!viewDialogShown(window));
    QVERIFY(window.action("actionFullView")->isChecked());
    QVERIFY(!window.action("actionMinimalView")->isChecked());
    // The view mode is Standard again: the layout is stored.
    window->saveSettings();
    QVERIFY(QSettings().contains(QStringLiteral("General/WindowState")));
}

void TestViews::compactByCode()
{
    const WindowProbe window;
    window->showCompactView(true);
    QVERIFY(window.action("actionCompactView")->isChecked());
    QCOMPARE(shownParts(window), compact);
    window->showMinimalView(true);
    QVERIFY(window.action("actionMinimalView")->isChecked());
    QCOMPARE(shownParts(window), QString());
}

void TestViews::standardShowsTheSearchBar()
{
    const WindowProbe window;
    window.bar("ScvSearchToolBar")->hide();
    window->switchView(0);
    QVERIFY(!window.bar("ScvSearchToolBar")->isHidden());
}

void TestViews::maximizedStaysMaximized()
{
    WindowProbe window;
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    window.action("actionCompactView")->trigger();
    QVERIFY(window->isMaximized());
    window->showNormal();
    window.action("actionFullView")->trigger();
    QVERIFY(!window->isMaximized());
}

void TestViews::fullScreen()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    window.action("actionFullScreen")->trigger();
    QVERIFY(window->isFullScreen());
    QVERIFY(window->windowState() & Qt::WindowFullScreen);
    QCOMPARE(shownParts(window), QString());
    QVERIFY(fullScreenDialogShown(window));
    QCOMPARE(actionNames(window->popupMenu()), toolPopup);
    QVERIFY(!window.menu("menuTool")->isTearOffEnabled());

    window.action("actionFullScreen")->trigger();
    QVERIFY(!window->isFullScreen());
    QVERIFY(!(window->windowState() & Qt::WindowFullScreen));
    QCOMPARE(shownParts(window), everything);
    QVERIFY(!fullScreenDialogShown(window));
    QCOMPARE(actionNames(window->popupMenu()), plainPopup);
    QVERIFY(window.menu("menuTool")->isTearOffEnabled());
}

void TestViews::fullScreenByKey()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window->showWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    window->toggleFullScreen();
    QVERIFY(window->isFullScreen());
    // Entered this way the action is not checked.
    QVERIFY(!window.action("actionFullScreen")->isChecked());
    // The bars are hidden and so are their shortcuts; the view hands the key on.
    QVERIFY(window.view()->hasFocus());
    QTest::keyClick(window->focusWidget(), Qt::Key_F10);
    QVERIFY(!window->isFullScreen());
    QCOMPARE(shownParts(window), everything);
}

/// Shortcuts go with the bars that are hidden; the one key that leads back is told above.
void TestViews::fullScreenHasNoShortcutToSave()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.txt"), "as it was\n");
    const WindowProbe window({path});
    window->showWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    window.page()->setModified(true);
    window->updateMenus();
    window->toggleFullScreen();
    QTest::keyClick(&*window, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(window.page()->isModified());
    QCOMPARE(bytesIn(path), QByteArray("as it was\n"));
    // The same key in the full window saves.
    window->toggleFullScreen();
    QTest::keyClick(&*window, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!window.page()->isModified());
    QCOMPARE(bytesIn(path), QByteArray("as it was"));
}

void TestViews::fullScreenFromCompact()
{
    const WindowProbe window;
    window.action("actionCompactView")->trigger();
    window->fullScreenMode(true);
    window->fullScreenMode(false);
    QCOMPARE(shownParts(window), everything);
    QVERIFY(window.action("actionCompactView")->isChecked());
    // The view mode says Compact still: its layout is not stored.
    window->saveSettings();
    QVERIFY(!QSettings().contains(QStringLiteral("General/WindowState")));
}

void TestViews::fullScreenEndsWithTheLastTab()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window->fullScreenMode(true);
    window->closeFile();
    QVERIFY(!window->isFullScreen());
    QCOMPARE(shownParts(window), everything);
}

void TestViews::fullScreenBarLeaves()
{
    const WindowProbe window;
    window->showWindow();
    window->fullScreenMode(true);
    const auto buttons = window->findChild<FullscreenDialog *>()->findChildren<QToolButton *>();
    buttons.first()->click();
    QVERIFY(!window->isFullScreen());
    window->fullScreenMode(true);
    buttons.last()->click();
    QVERIFY(!window->isVisible());
}

void TestViews::zoomByActions()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QList<int> seen;
    for (int step = 0; step < 6; ++step) {
        window.action("actionZoomIn")->trigger();
        seen.append(window.view()->zoom());
        QCOMPARE(window.zoomBox()->currentText(), QStringLiteral("%1%").arg(window.view()->zoom()));
        QCOMPARE(window.view()->transform().m11(), window.view()->zoom() / 100.0);
    }
    QCOMPARE(seen, (QList<int>{125, 150, 175, 200, 200, 200}));
    seen.clear();
    for (int step = 0; step < 9; ++step) {
        window.action("actionZoomOut")->trigger();
        seen.append(window.view()->zoom());
    }
    QCOMPARE(seen, (QList<int>{175, 150, 125, 100, 75, 50, 25, 25, 25}));
    QCOMPARE(window.zoomBox()->currentText(), QStringLiteral("25%"));
}

void TestViews::zoomBoxSetsTheView()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    for (int index = 0; index < window.zoomBox()->count(); ++index) {
        window.zoomBox()->setCurrentIndex(index);
        QCOMPARE(window.view()->zoom(), (index + 1) * 25);
    }
}

void TestViews::zoomIsTheViewsOwn()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt")), files.write(QStringLiteral("b.txt"))});
    window->zoomIn();
    window.stack()->setCurrentIndex(0);
    QCOMPARE(window.view()->zoom(), 100);
    QCOMPARE(window.zoomBox()->currentText(), QStringLiteral("100%"));
    window.stack()->setCurrentIndex(1);
    QCOMPARE(window.view()->zoom(), 125);
    QCOMPARE(window.zoomBox()->currentText(), QStringLiteral("125%"));
}

void TestViews::smallestZoomLeavesTheBox()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt")), files.write(QStringLiteral("b.txt"))});
    window.zoomBox()->setCurrentIndex(0);
    QCOMPARE(window.view()->zoom(), 25);
    window.stack()->setCurrentIndex(0);
    QCOMPARE(window.zoomBox()->currentText(), QStringLiteral("100%"));
    window.stack()->setCurrentIndex(1);
    QCOMPARE(window.view()->zoom(), 25);
    QCOMPARE(window.zoomBox()->currentText(), QStringLiteral("100%"));
    // The next step counts from the box.
    window->zoomIn();
    QCOMPARE(window.view()->zoom(), 125);
}

void TestViews::zoomWithoutDocument()
{
    const WindowProbe window;
    LogProbe log;
    window->zoomIn();
    window->zoomOut();
    window->changeSize();
    QCOMPARE(window.zoomBox()->currentIndex(), 3);
    QCOMPARE(log.traceSinceMark(), QStringList());
}

void TestViews::hideAnnotations()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt")), files.write(QStringLiteral("b.txt"))});
    auto *mark = new RectangleAnn;
    window.page()->addAnnotation(mark);
    window.action("actionHideAnnotations")->trigger();
    QVERIFY(!mark->isVisible());
    QVERIFY(!window.page()->annotationsVisible());
    window.stack()->setCurrentIndex(0);
    QVERIFY(!window.action("actionHideAnnotations")->isChecked());
    QVERIFY(window.page()->annotationsVisible());
    window.stack()->setCurrentIndex(1);
    QVERIFY(window.action("actionHideAnnotations")->isChecked());
    window.action("actionHideAnnotations")->trigger();
    QVERIFY(mark->isVisible());
    window.forgetChanges();
}

void TestViews::removeAllAnnotations()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.page()->addAnnotation(new RectangleAnn);
    window.page()->addAnnotation(new RectangleAnn);
    window.page()->setModified(false);
    window->updateMenus();
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Warning"));
        QVERIFY(qobject_cast<DontDialog *>(dialog));
        QCOMPARE(dialog->parentWidget(), &*window);
        dialog->findChild<QAbstractButton *>(QStringLiteral("yesButton"))->click();
    });
    window.action("actionRemoveAllAnnotations")->trigger();
    QCOMPARE(answers.seen().size(), 1);
    QVERIFY(!window.page()->hasAnnotations());
    QVERIFY(window.page()->isModified());
    QVERIFY(!window->undoGroup()->canUndo());
    window.forgetChanges();
}

void TestViews::removeAllAnnotationsRefused()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.page()->addAnnotation(new RectangleAnn);
    window.page()->setModified(false);
    DialogAnswers answers;
    answers.handle([](QDialog *dialog) { dialog->findChild<QAbstractButton *>(QStringLiteral("noButton"))->click(); });
    window->removeAllAnnotations();
    QVERIFY(window.page()->hasAnnotations());
    QVERIFY(!window.page()->isModified());
    QVERIFY(window->undoGroup()->canUndo());
}

void TestViews::removeAllAnnotationsUnasked()
{
    QSettings().setValue(QStringLiteral("General/WarnRemoveAllAnnotations"), false);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.page()->addAnnotation(new RectangleAnn);
    DialogAnswers answers;
    window->removeAllAnnotations();
    QVERIFY(answers.seen().isEmpty());
    QVERIFY(!window.page()->hasAnnotations());
    window.forgetChanges();
}

void TestViews::removedMarksLeaveNoTraces()
{
    QSettings().setValue(QStringLiteral("General/WarnRemoveAllAnnotations"), false);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt")), files.write(QStringLiteral("b.txt"))});
    Page *second = window.page();
    auto *mark = new RectangleAnn;
    mark->setFlag(QGraphicsItem::ItemIsSelectable);
    second->addAnnotation(mark);
    mark->setSelected(true);
    // The mark itself is on the clipboard, on its page again, and in the undo stack of another page.
    window->cut();
    window.stack()->setCurrentIndex(0);
    window->paste();
    window->undoGroup()->undo();
    window.stack()->setCurrentIndex(1);
    window->undoGroup()->undo();
    QVERIFY(second->hasAnnotations());
    window->removeAllAnnotations();
    QVERIFY(!second->hasAnnotations());
    // It lives on where others hold it.
    QCOMPARE(window->annotationClipboard()->size(), 1);
    window->paste();
    QVERIFY(second->hasAnnotations());
    window.stack()->setCurrentIndex(0);
    window->undoGroup()->redo();
    QVERIFY(window.page()->hasAnnotations());
    QVERIFY(!second->hasAnnotations());
    window->undoGroup()->undo();
    QVERIFY(!window.page()->hasAnnotations());
    window.forgetChanges();
}

void TestViews::aboutBox()
{
    const WindowProbe window;
    QList<QDialog *> seen;
    for (int time = 0; time < 2; ++time) {
        DialogAnswers answers;
        answers.handle([&](QDialog *dialog) {
            seen.append(dialog);
            QVERIFY(qobject_cast<AboutDialog *>(dialog));
            QCOMPARE(dialog->parentWidget(), &*window);
            QCOMPARE(dialog->windowType(), Qt::Drawer);
            dialog->accept();
        });
        window.action("actionAbout")->trigger();
    }
    QCOMPARE(seen.size(), 2);
    // The one box is kept.
    QCOMPARE(seen.first(), seen.last());
}

void TestViews::searchBar()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window->showWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    QToolBar *bar = window.bar("ScvSearchToolBar");
    bar->hide();
    window.action("actionSearch")->trigger();
    QVERIFY(bar->isVisible());
    QTRY_VERIFY(bar->findChild<QComboBox *>()->hasFocus() ||
                bar->findChild<QComboBox *>()->isAncestorOf(QApplication::focusWidget()));
}

void TestViews::searchBarWithoutDocument()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window->closeFile();
    window.bar("ScvSearchToolBar")->hide();
    window->showSearchToolBar();
    QVERIFY(window.bar("ScvSearchToolBar")->isHidden());
}

REGISTER_TEST(TestViews)
#include "tst_views.moc"
