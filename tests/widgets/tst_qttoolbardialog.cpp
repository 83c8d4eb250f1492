// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/dialogs.h"
#include "support/testmain.h"
#include "widgets/qtfulltoolbarmanager.h"
#include "widgets/qttoolbardialog.h"
#include "widgets/qttoolbarmanager.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

namespace {

const QString separatorText = QStringLiteral("< S E P A R A T O R >");

/// A window with two managed tool bars: Lines (A, separator, B) and Shapes (C), and an action D in no tool bar.
class CustomizedWindow : public QMainWindow
{
public:
    CustomizedWindow()
    {
        lines = addToolBar("Lines");
        lines->setObjectName("LinesBar");
        lines->addAction(makeAction("A"));
        lines->addSeparator();
        lines->addAction(makeAction("B"));
        shapes = addToolBar("Shapes");
        shapes->setObjectName("ShapesBar");
        shapes->addAction(makeAction("C"));
        manager.setMainWindow(this);
        manager.addToolBar(lines, "Lines");
        manager.addToolBar(shapes, "Shapes");
        manager.addAction(makeAction("D"), "Shapes");
    }

    static QStringList shown(const QToolBar *toolBar)
    {
        QStringList texts;
        for (const QAction *action : toolBar->actions())
            texts.append(action->isSeparator() ? separatorText : action->iconText());
        return texts;
    }

    QToolBar *lines;
    QToolBar *shapes;
    QtToolBarManager manager;

private:
    QAction *makeAction(const QString &text)
    {
        auto *action = new QAction("&" + text + "...", this);
        action->setObjectName("action" + text);
        QPixmap picture(16, 16);
        picture.fill(Qt::red);
        action->setIcon(picture);
        return action;
    }
};

/// The dialog over such a window, worked by its buttons and lists.
class Session
{
public:
    Session()
    {
        dialog.setToolBarManager(&window.manager);
        dialog.show();
    }

    template<typename Widget> Widget *part(const char *name) const { return dialog.findChild<Widget *>(name); }
    QTreeWidget *tree() const { return part<QTreeWidget>("actionTree"); }
    QListWidget *bars() const { return part<QListWidget>("toolBarList"); }
    QListWidget *current() const { return part<QListWidget>("currentToolBarList"); }

    static QStringList texts(const QListWidget *list)
    {
        QStringList result;
        for (int i = 0; i < list->count(); ++i)
            result.append(list->item(i)->text());
        return result;
    }
    QStringList barTexts() const { return texts(bars()); }
    QStringList actionTexts() const { return texts(current()); }

    bool enabled(const char *button) const { return part<QAbstractButton>(button)->isEnabled(); }
    void click(const char *button) const { QTest::mouseClick(part<QAbstractButton>(button), Qt::LeftButton); }

    QTreeWidgetItem *treeItem(const QString &text) const
    {
        return tree()->findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    void pick(const QString &text) const { tree()->setCurrentItem(treeItem(text)); }

    /// Makes a new tool bar and types its name; empty text leaves the proposed one.
    void makeBar(const QString &name) const
    {
        click("newButton");
        typeName(name);
    }
    /// Types into the editor that is open and waits until the name is taken.
    void typeName(const QString &name) const
    {
        auto *editor = bars()->findChild<QLineEdit *>();
        if (!name.isEmpty()) {
            editor->selectAll();
            QTest::keyClicks(editor, name);
        }
        QTest::keyClick(editor, Qt::Key_Return);
        QVERIFY(QTest::qWaitFor([this] { return !bars()->findChild<QLineEdit *>(); }));
    }

    CustomizedWindow window;
    QtToolBarDialog dialog;
};

} // namespace

class TestQtToolBarDialog : public QObject
{
    Q_OBJECT

private slots:
    void showsTheArrangement();
    void actionsMove();
    void addsBehindTheCurrentAction();
    void addingAgainMoves();
    void separatorsMayStandOften();
    void takesOut();
    void doubleClicks();
    void buttonsFollowTheSelection();
    void makesNamedBars();
    void renames();
    void nameBeingTypedIsApplied();
    void emptyNameIsNotTaken();
    void builtInBarsStay();
    void removes();
    void restoresAll();
    void applyKeepsTheDialogOpen();
    void cancelChangesNothing();
    void escapeWhileNamingStays();
    void nothingReachesTheWindowBefore();
    void survivesLostObjects();
    void emptyManager();
    void runsModally();
    void languageChangeKeepsTheLists();
};

void TestQtToolBarDialog::showsTheArrangement()
{
    const Session session;
    QCOMPARE(session.dialog.windowTitle(), "Customize Toolbars");
    QCOMPARE(session.tree()->columnCount(), 1);
    QCOMPARE(session.tree()->topLevelItemCount(), 3);
    QCOMPARE(session.tree()->topLevelItem(0)->text(0), separatorText);
    QCOMPARE(session.tree()->topLevelItem(1)->text(0), "Lines");
    QCOMPARE(session.tree()->topLevelItem(1)->child(1)->text(0), "B");
    QVERIFY(!session.tree()->topLevelItem(1)->child(1)->icon(0).isNull());
    QCOMPARE(session.tree()->topLevelItem(2)->childCount(), 2);
    QCOMPARE(session.barTexts(), QStringList({"Lines", "Shapes"}));
    QCOMPARE(session.bars()->currentRow(), 0);
    QCOMPARE(session.actionTexts(), QStringList({"A", separatorText, "B"}));
    QVERIFY(!session.current()->item(0)->icon().isNull());
    session.bars()->setCurrentRow(1);
    QCOMPARE(session.actionTexts(), QStringList("C"));

    const QList<QPair<const char *, const char *>> texts{{"newButton", "New"},       {"removeButton", "Remove"},
                                                         {"renameButton", "Rename"}, {"upButton", "Up"},
                                                         {"downButton", "Down"},     {"defaultButton", "Restore All"},
                                                         {"applyButton", "Apply"},   {"cancelButton", "Cancel"}};
    for (const auto &[name, text] : texts)
        QCOMPARE(session.part<QAbstractButton>(name)->text(), text);
    for (const char *name : {"newButton", "removeButton", "upButton", "downButton", "leftButton", "rightButton"})
        QVERIFY2(!session.part<QAbstractButton>(name)->icon().availableSizes().isEmpty(), name);
}

void TestQtToolBarDialog::actionsMove()
{
    const Session session;
    session.click("downButton");
    QCOMPARE(session.actionTexts(), QStringList({separatorText, "A", "B"}));
    QCOMPARE(session.current()->currentRow(), 1);
    session.click("downButton");
    QCOMPARE(session.actionTexts(), QStringList({separatorText, "B", "A"}));
    session.click("upButton");
    session.click("upButton");
    QCOMPARE(session.actionTexts(), QStringList({"A", separatorText, "B"}));
    session.click("okButton");
    QCOMPARE(CustomizedWindow::shown(session.window.lines), QStringList({"A", separatorText, "B"}));
}

void TestQtToolBarDialog::addsBehindTheCurrentAction()
{
    const Session session;
    session.pick("D");
    session.click("rightButton");
    QCOMPARE(session.actionTexts(), QStringList({"A", "D", separatorText, "B"}));
    QCOMPARE(session.current()->currentRow(), 1);
    session.current()->setCurrentRow(3);
    session.pick("C");
    session.click("rightButton");
    QCOMPARE(session.actionTexts(), QStringList({"A", "D", separatorText, "B", "C"}));
    session.click("okButton");
    QCOMPARE(CustomizedWindow::shown(session.window.lines), QStringList({"A", "D", separatorText, "B", "C"}));
    QCOMPARE(CustomizedWindow::shown(session.window.shapes), QStringList("C"));
    QVERIFY(!session.dialog.isVisible());
    QCOMPARE(session.dialog.result(), static_cast<int>(QDialog::Accepted));
}

void TestQtToolBarDialog::addingAgainMoves()
{
    const Session session;
    session.current()->setCurrentRow(2);
    session.pick("A");
    session.click("rightButton");
    QCOMPARE(session.actionTexts(), QStringList({separatorText, "B", "A"}));
    QCOMPARE(session.current()->currentRow(), 2);
    session.current()->setCurrentRow(0);
    session.pick("A");
    session.click("rightButton");
    QCOMPARE(session.actionTexts(), QStringList({separatorText, "A", "B"}));
    session.click("rightButton"); // behind itself: stays
    QCOMPARE(session.actionTexts(), QStringList({separatorText, "A", "B"}));
    session.click("okButton");
    QCOMPARE(CustomizedWindow::shown(session.window.lines), QStringList({separatorText, "A", "B"}));
}

void TestQtToolBarDialog::separatorsMayStandOften()
{
    const Session session;
    session.pick(separatorText);
    session.click("rightButton");
    session.click("rightButton");
    QCOMPARE(session.actionTexts(), QStringList({"A", separatorText, separatorText, separatorText, "B"}));
    session.click("okButton");
    QCOMPARE(CustomizedWindow::shown(session.window.lines).count(separatorText), 3);
}

void TestQtToolBarDialog::takesOut()
{
    const Session session;
    session.current()->setCurrentRow(2);
    session.click("leftButton");
    QCOMPARE(session.actionTexts(), QStringList({"A", separatorText}));
    QCOMPARE(session.current()->currentRow(), 1);
    session.click("leftButton");
    session.click("leftButton");
    QVERIFY(session.actionTexts().isEmpty());
    QVERIFY(!session.enabled("leftButton"));
    session.pick("B");
    session.click("rightButton");
    QCOMPARE(session.actionTexts(), QStringList("B"));
}

void TestQtToolBarDialog::doubleClicks()
{
    const Session session;
    const auto doubleClick = [](QAbstractItemView *view, const QRect &place) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place.center());
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place.center());
    };
    doubleClick(session.tree(), session.tree()->visualItemRect(session.treeItem("D")));
    QCOMPARE(session.actionTexts(), QStringList({"A", "D", separatorText, "B"}));
    doubleClick(session.tree(), session.tree()->visualItemRect(session.treeItem("Shapes")));
    QCOMPARE(session.actionTexts(), QStringList({"A", "D", separatorText, "B"}));
    doubleClick(session.current(), session.current()->visualItemRect(session.current()->item(2)));
    QCOMPARE(session.actionTexts(), QStringList({"A", "D", "B"}));
}

void TestQtToolBarDialog::buttonsFollowTheSelection()
{
    const Session session;
    QVERIFY(session.enabled("newButton"));
    QVERIFY(!session.enabled("removeButton"));
    QVERIFY(!session.enabled("renameButton"));
    QVERIFY(!session.enabled("upButton"));
    QVERIFY(session.enabled("downButton"));
    QVERIFY(session.enabled("leftButton"));
    QVERIFY(session.enabled("rightButton"));
    session.pick("Lines"); // a category
    QVERIFY(!session.enabled("rightButton"));
    session.pick("A");
    QVERIFY(session.enabled("rightButton"));
    session.current()->setCurrentRow(2);
    QVERIFY(session.enabled("upButton"));
    QVERIFY(!session.enabled("downButton"));
    session.makeBar("Mine");
    QVERIFY(session.enabled("removeButton"));
    QVERIFY(session.enabled("renameButton"));
    QVERIFY(!session.enabled("upButton"));
    QVERIFY(!session.enabled("downButton"));
    QVERIFY(!session.enabled("leftButton"));
    session.bars()->setCurrentRow(1);
    QVERIFY(!session.enabled("removeButton"));
}

void TestQtToolBarDialog::makesNamedBars()
{
    const Session session;
    session.makeBar("");
    session.pick("D");
    session.click("rightButton");
    session.makeBar("Custom Toolbar");
    QCOMPARE(session.barTexts(), QStringList({"Lines", "Shapes", "Custom Toolbar", "Custom Toolbar"}));
    QCOMPARE(session.bars()->currentRow(), 3);
    QVERIFY(session.actionTexts().isEmpty());
    session.click("okButton");
    const auto *first = session.window.findChild<QToolBar *>("_Custom_Toolbar_1");
    const auto *second = session.window.findChild<QToolBar *>("_Custom_Toolbar_2");
    QVERIFY(first && second);
    QCOMPARE(first->windowTitle(), "Custom Toolbar");
    QCOMPARE(second->windowTitle(), "Custom Toolbar");
    QCOMPARE(CustomizedWindow::shown(first), QStringList("D"));
    QVERIFY(second->actions().isEmpty());
}

void TestQtToolBarDialog::renames()
{
    const Session session;
    session.makeBar("Mine");
    session.click("applyButton");
    const auto *custom = session.window.findChild<QToolBar *>("_Custom_Toolbar_1");
    QCOMPARE(custom->windowTitle(), "Mine");
    session.click("renameButton");
    session.typeName("Yours");
    QCOMPARE(session.barTexts().last(), "Yours");
    QCOMPARE(custom->windowTitle(), "Mine");
    session.click("okButton");
    QCOMPARE(custom->windowTitle(), "Yours");
    QCOMPARE(custom->objectName(), "_Custom_Toolbar_1");
}

void TestQtToolBarDialog::nameBeingTypedIsApplied()
{
    Session session;
    session.dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&session.dialog));
    session.click("newButton");
    auto *editor = session.bars()->findChild<QLineEdit *>();
    editor->selectAll();
    QTest::keyClicks(editor, "Mine");
    session.click("applyButton");
    QCOMPARE(session.window.findChild<QToolBar *>("_Custom_Toolbar_1")->windowTitle(), "Mine");
}

void TestQtToolBarDialog::emptyNameIsNotTaken()
{
    const Session session;
    session.makeBar("   ");
    QCOMPARE(session.barTexts().last(), "Custom Toolbar");
}

void TestQtToolBarDialog::builtInBarsStay()
{
    const Session session;
    QVERIFY(!session.bars()->item(0)->flags().testFlag(Qt::ItemIsEditable));
    QTest::keyClick(session.bars(), Qt::Key_F2);
    QVERIFY(!session.bars()->findChild<QLineEdit *>());
    QMetaObject::invokeMethod(&const_cast<QtToolBarDialog &>(session.dialog), "removeClicked");
    QMetaObject::invokeMethod(&const_cast<QtToolBarDialog &>(session.dialog), "renameClicked");
    QCOMPARE(session.barTexts(), QStringList({"Lines", "Shapes"}));
}

void TestQtToolBarDialog::removes()
{
    const Session session;
    session.makeBar("First");
    session.makeBar("Second");
    session.click("applyButton");
    QVERIFY(session.window.findChild<QToolBar *>("_Custom_Toolbar_2"));
    session.bars()->setCurrentRow(2);
    session.click("removeButton");
    QCOMPARE(session.barTexts(), QStringList({"Lines", "Shapes", "Second"}));
    QVERIFY(session.window.findChild<QToolBar *>("_Custom_Toolbar_1"));
    session.click("okButton");
    QVERIFY(!session.window.findChild<QToolBar *>("_Custom_Toolbar_1"));
    QCOMPARE(session.window.findChild<QToolBar *>("_Custom_Toolbar_2")->windowTitle(), "Second");
}

void TestQtToolBarDialog::restoresAll()
{
    const Session session;
    session.click("leftButton");
    session.makeBar("Mine");
    session.click("applyButton");
    QCOMPARE(CustomizedWindow::shown(session.window.lines), QStringList({separatorText, "B"}));
    session.click("defaultButton");
    QCOMPARE(session.barTexts(), QStringList({"Lines", "Shapes"}));
    QCOMPARE(session.actionTexts(), QStringList({"A", separatorText, "B"}));
    QCOMPARE(CustomizedWindow::shown(session.window.lines), QStringList({separatorText, "B"}));
    session.click("okButton");
    QCOMPARE(CustomizedWindow::shown(session.window.lines), QStringList({"A", separatorText, "B"}));
    QVERIFY(!session.window.findChild<QToolBar *>("_Custom_Toolbar_1"));
}

void TestQtToolBarDialog::applyKeepsTheDialogOpen()
{
    const Session session;
    session.makeBar("Mine");
    session.click("applyButton");
    session.click("applyButton");
    QVERIFY(session.dialog.isVisible());
    QCOMPARE(session.window.findChildren<QToolBar *>().size(), 3);
    session.click("okButton");
    QCOMPARE(session.window.findChildren<QToolBar *>().size(), 3);
}

void TestQtToolBarDialog::cancelChangesNothing()
{
    const Session session;
    const QByteArray before = session.window.manager.saveState();
    session.click("leftButton");
    session.makeBar("Mine");
    session.pick("D");
    session.click("rightButton");
    session.click("cancelButton");
    QVERIFY(!session.dialog.isVisible());
    QCOMPARE(session.dialog.result(), static_cast<int>(QDialog::Rejected));
    QCOMPARE(session.window.manager.saveState(), before);
    QCOMPARE(session.window.findChildren<QToolBar *>().size(), 2);
}

void TestQtToolBarDialog::escapeWhileNamingStays()
{
    const Session session;
    session.click("newButton");
    auto *editor = session.bars()->findChild<QLineEdit *>();
    QTest::keyClicks(editor, "Unwanted");
    QTest::keyClick(editor, Qt::Key_Escape);
    QVERIFY(session.dialog.isVisible());
    QCOMPARE(session.barTexts().last(), "Custom Toolbar");
}

void TestQtToolBarDialog::nothingReachesTheWindowBefore()
{
    const Session session;
    session.click("downButton");
    session.makeBar("Mine");
    session.click("defaultButton");
    QCOMPARE(CustomizedWindow::shown(session.window.lines), QStringList({"A", separatorText, "B"}));
    QCOMPARE(session.window.findChildren<QToolBar *>().size(), 2);
}

void TestQtToolBarDialog::survivesLostObjects()
{
    Session session;
    delete session.window.shapes;
    delete session.window.findChild<QAction *>("actionB");
    session.click("applyButton");
    QCOMPARE(CustomizedWindow::shown(session.window.lines), QStringList({"A", separatorText}));
    QCOMPARE(session.window.findChildren<QToolBar *>().size(), 1);
}

void TestQtToolBarDialog::emptyManager()
{
    QtToolBarManager manager;
    QtToolBarDialog dialog;
    dialog.setToolBarManager(&manager);
    dialog.show();
    for (const char *name :
         {"newButton", "removeButton", "renameButton", "upButton", "downButton", "leftButton", "rightButton"})
        QVERIFY2(!dialog.findChild<QToolButton *>(name)->isEnabled(), name);
    QTest::mouseClick(dialog.findChild<QPushButton *>("applyButton"), Qt::LeftButton);
    dialog.setToolBarManager(nullptr);
    QVERIFY(!dialog.findChild<QPushButton *>("applyButton")->isEnabled());
    QTest::mouseClick(dialog.findChild<QPushButton *>("okButton"), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
}

void TestQtToolBarDialog::runsModally()
{
    CustomizedWindow window;
    QtToolBarDialog dialog;
    dialog.setToolBarManager(&window.manager);
    const DialogAnswers answer([](QDialog *shown) {
        auto *list = shown->findChild<QListWidget *>("currentToolBarList");
        list->setCurrentRow(1);
        clickButton("leftButton")(shown);
        QTest::keyClick(shown->findChild<QTreeWidget *>("actionTree"), Qt::Key_Return); // OK is the default button
    });
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Accepted));
    QVERIFY(answer.allGiven());
    QCOMPARE(CustomizedWindow::shown(window.lines), QStringList({"A", "B"}));
}

void TestQtToolBarDialog::languageChangeKeepsTheLists()
{
    Session session;
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(&session.dialog, &change);
    QCOMPARE(session.barTexts(), QStringList({"Lines", "Shapes"}));
    QCOMPARE(session.actionTexts(), QStringList({"A", separatorText, "B"}));
    QCOMPARE(session.tree()->topLevelItemCount(), 3);
}

REGISTER_TEST(TestQtToolBarDialog)
#include "tst_qttoolbardialog.moc"
