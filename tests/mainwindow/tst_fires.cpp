// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"
#include "widgets/qtcolorpicker.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QSettings>
#include <QSignalMapper>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QUndoGroup>

#include <functional>

namespace {

// Taking a connection apart tells whether it was there. The window is of no use afterwards.

template<typename Sender, typename Signal, typename Slot>
bool goesTo(Sender *sender, Signal signal, QObject *receiver, Slot slot)
{
    using Receiver = typename QtPrivate::FunctionPointer<Slot>::Object;
    return QObject::disconnect(sender, signal, dynamic_cast<Receiver *>(receiver), slot);
}

/// Reaches the count that QObject keeps for its own kind.
struct Receivers : QObject
{
    static int of(const QObject *object, const char *signal) { return (object->*(&Receivers::receivers))(signal); }
};

using Connected = std::function<bool(const WindowProbe &window, QAction *action)>;

template<typename Result> Connected triggered(Result (Scrivara::*slot)())
{
    return [slot](const WindowProbe &window, QAction *action) {
        return goesTo(action, &QAction::triggered, &*window, slot);
    };
}

Connected toggled(void (Scrivara::*slot)(bool))
{
    return [slot](const WindowProbe &window, QAction *action) {
        return goesTo(action, &QAction::toggled, &*window, slot);
    };
}

Connected undoGroup(void (QUndoGroup::*slot)())
{
    return [slot](const WindowProbe &window, QAction *action) {
        return goesTo(action, &QAction::triggered, window->undoGroup(), slot);
    };
}

struct DirectRow
{
    const char *action;
    Connected isConnected;
};

const QList<DirectRow> &directRows()
{
    static const QList<DirectRow> rows{
        {"actionNewProject", triggered(&Scrivara::newProject)},
        {"actionOpen", triggered(&Scrivara::openFile)},
        {"actionSaveAs", triggered(&Scrivara::saveAsFile)},
        {"actionSave", triggered(&Scrivara::saveFile)},
        {"actionPrint", triggered(&Scrivara::printFile)},
        {"actionSendEmail", triggered(&Scrivara::sendEmail)},
        {"actionExit", triggered(&Scrivara::exitProgram)},
        {"actionCloseFile", triggered(&Scrivara::closeFile)},
        {"actionUndo", undoGroup(&QUndoGroup::undo)},
        {"actionRedo", undoGroup(&QUndoGroup::redo)},
        {"actionCopy", triggered(&Scrivara::copy)},
        {"actionCut", triggered(&Scrivara::cut)},
        {"actionPaste", triggered(&Scrivara::paste)},
        {"actionRemove", triggered(&Scrivara::remove)},
        {"actionRemoveAllAnnotations", triggered(&Scrivara::removeAllAnnotations)},
        {"actionSearch", triggered(&Scrivara::showSearchToolBar)},
        {"actionUserGuide", triggered(&Scrivara::showUserGuide)},
        {"actionGotoHomePage", triggered(&Scrivara::gotoHomePage)},
        {"actionAbout", triggered(&Scrivara::showAboutBox)},
        {"actionToolPen", toggled(&Scrivara::usePen)},
        {"actionToolMarker", toggled(&Scrivara::useMarker)},
        {"actionZoomIn", triggered(&Scrivara::zoomIn)},
        {"actionZoomOut", triggered(&Scrivara::zoomOut)},
        {"actionFullScreen", toggled(&Scrivara::fullScreenMode)},
        {"actionHideAnnotations", toggled(&Scrivara::hideAnnotations)},
        {"actionExportToPdf", triggered(&Scrivara::exportToPdf)},
        {"actionToolTextMode", toggled(&Scrivara::setTextMode)},
        {"actionToolEraser", toggled(&Scrivara::useEraser)},
        {"actionTakeScreenShot", toggled(&Scrivara::useScreenShot)},
        {"actionShowActiveElementsList", toggled(&Scrivara::showActiveElementsList)},
        {"actionCustomizeToolBars", triggered(&Scrivara::customizeToolBars)},
        {"actionTransformationMode", toggled(&Scrivara::setTransformMode)},
        {"actionTextBox", toggled(&Scrivara::useTextBox)},
        {"actionShowStatistics", triggered(&Scrivara::showStatistics)},
        {"actionPrintPreview", triggered(&Scrivara::printPreview)},
    };
    return rows;
}

/// An action that goes through a mapper to a slot with a number.
struct MappedRow
{
    const char *action;
    void (Scrivara::*slot)(int);
    int id;
    bool byToggling; ///< Fires when it is unchecked as well.
};

const QList<MappedRow> &mappedRows()
{
    static const QList<MappedRow> rows{
        {"actionToolRectangle", &Scrivara::useShape, 0, true},
        {"actionToolRoundedRectangle", &Scrivara::useShape, 1, true},
        {"actionToolEllipse", &Scrivara::useShape, 2, true},
        {"actionSimpleLine", &Scrivara::useLine, 0, true},
        {"actionEmptyCirclesLine", &Scrivara::useLine, 1, true},
        {"actionFilledCirclesLine", &Scrivara::useLine, 2, true},
        {"actionFilledEmptyCirclesLine", &Scrivara::useLine, 3, true},
        {"actionArrow", &Scrivara::useLine, 4, true},
        {"actionTwoArrows", &Scrivara::useLine, 5, true},
        {"actionEmptyCircleArrow", &Scrivara::useLine, 6, true},
        {"actionFilledCircleArrow", &Scrivara::useLine, 7, true},
        {"actionCurlyBracket", &Scrivara::useBracket, 0, true},
        {"actionRectBracket", &Scrivara::useBracket, 1, true},
        {"actionCompactView", &Scrivara::switchView, 1, true},
        {"actionMinimalView", &Scrivara::switchView, 2, true},
        {"actionFullView", &Scrivara::switchView, 0, true},
        {"actionThinBlackPen", &Scrivara::usePredefinedTool, 0, false},
        {"actionThinRedPen", &Scrivara::usePredefinedTool, 1, false},
        {"actionThinGreenPen", &Scrivara::usePredefinedTool, 2, false},
        {"actionThinBluePen", &Scrivara::usePredefinedTool, 3, false},
        {"actionMediumBlackPen", &Scrivara::usePredefinedTool, 4, false},
        {"actionMediumRedPen", &Scrivara::usePredefinedTool, 5, false},
        {"actionMediumGreenPen", &Scrivara::usePredefinedTool, 6, false},
        {"actionMediumBluePen", &Scrivara::usePredefinedTool, 7, false},
        {"actionRedMarker", &Scrivara::usePredefinedTool, 8, false},
        {"actionGreenMarker", &Scrivara::usePredefinedTool, 9, false},
        {"actionBlueMarker", &Scrivara::usePredefinedTool, 10, false},
        {"actionYellowMarker", &Scrivara::usePredefinedTool, 11, false},
        {"actionPenSettings", &Scrivara::showConfigDialog, 0, false},
        {"actionMarkerSettings", &Scrivara::showConfigDialog, 1, false},
        {"actionTextBoxSettings", &Scrivara::showConfigDialog, 2, false},
        {"actionLineAndBracketSettings", &Scrivara::showConfigDialog, 3, false},
        {"actionShapeSettings", &Scrivara::showConfigDialog, 4, false},
        {"actionScreenshotSettings", &Scrivara::showConfigDialog, 5, false},
        {"actionPageViewSettings", &Scrivara::showConfigDialog, 6, false},
        {"actionSyntaxSettings", &Scrivara::showConfigDialog, 7, false},
        {"actionPrintSettings", &Scrivara::showConfigDialog, 8, false},
        {"actionMainSettings", &Scrivara::showConfigDialog, 9, false},
        {"actionEmailSettings", &Scrivara::showConfigDialog, 10, false},
        {"Idea", &Scrivara::addActiveElement, 0, false},
        {"Note", &Scrivara::addActiveElement, 1, false},
        {"Question", &Scrivara::addActiveElement, 2, false},
        {"Important", &Scrivara::addActiveElement, 3, false},
        {"Bug", &Scrivara::addActiveElement, 4, false},
    };
    return rows;
}

/// The actions of the form have names, those of the menu of tags have their texts only.
QAction *actionOf(const WindowProbe &window, const MappedRow &row)
{
    if (QByteArray(row.action).startsWith("action"))
        return window.action(row.action);
    const QList<QAction *> all = window->findChildren<QAction *>();
    const auto isMeant = [&](const QAction *action) {
        return action->text() == QLatin1String(row.action) && action->objectName().isEmpty();
    };
    const auto found = std::find_if(all.begin(), all.end(), isMeant);
    return found == all.end() ? nullptr : *found;
}

QSignalMapper *mapperOf(const WindowProbe &window, QAction *action, int id)
{
    for (QSignalMapper *mapper : window->findChildren<QSignalMapper *>()) {
        if (mapper->mapping(id) == action)
            return mapper;
    }
    return nullptr;
}

} // namespace

/// What every action and every control of the window's bars is connected to, and that it gets there.
class TestFires : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void directActions();
    void mappedActionsFire();
    void mappedActions();
    void languageActions();
    void menusUpdate();
    void controls();
};

void TestFires::init()
{
    QSettings().clear();
}

void TestFires::directActions()
{
    const WindowProbe window;
    for (const DirectRow &row : directRows()) {
        QAction *action = window.action(row.action);
        QVERIFY2(row.isConnected(window, action), row.action);
    }
}

void TestFires::mappedActionsFire()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    for (const MappedRow &row : mappedRows()) {
        QAction *action = actionOf(window, row);
        QVERIFY2(action, row.action);
        QSignalMapper *mapper = mapperOf(window, action, row.id);
        QVERIFY2(mapper, row.action);
        const QSignalSpy spy(mapper, &QSignalMapper::mappedInt);
        // Two of the slots open a window that waits for the user.
        DialogAnswers answers;
        if (row.slot == &Scrivara::addActiveElement || row.slot == &Scrivara::showConfigDialog)
            answers.reject();
        action->trigger();
        QCOMPARE(answers.left(), 0);
        QVERIFY2(!spy.isEmpty(), row.action);
        QCOMPARE(spy.last().first().toInt(), row.id);
    }
}

void TestFires::mappedActions()
{
    const WindowProbe window;
    QHash<QSignalMapper *, void (Scrivara::*)(int)> slotOfMapper;
    for (const MappedRow &row : mappedRows()) {
        QAction *action = actionOf(window, row);
        QSignalMapper *mapper = mapperOf(window, action, row.id);
        QVERIFY2(mapper, row.action);
        const auto map = qOverload<>(&QSignalMapper::map);
        QCOMPARE(goesTo(action, &QAction::toggled, mapper, map), row.byToggling);
        QCOMPARE(goesTo(action, &QAction::triggered, mapper, map), !row.byToggling);
        if (!slotOfMapper.contains(mapper)) {
            QVERIFY2(goesTo(mapper, &QSignalMapper::mappedInt, &*window, row.slot), row.action);
            QCOMPARE(Receivers::of(mapper, SIGNAL(mappedInt(int))), 0);
            slotOfMapper.insert(mapper, row.slot);
        }
        QVERIFY2(slotOfMapper.value(mapper) == row.slot, row.action);
    }
    QCOMPARE(slotOfMapper.size(), window->findChildren<QSignalMapper *>().size());
}

void TestFires::languageActions()
{
    const WindowProbe window;
    QActionGroup *group = window.action("actionEnglish")->actionGroup();
    const QSignalSpy spy(group, &QActionGroup::triggered);
    for (const char *name : {"actionPolski", "actionEnglish", "actionFrancais", "actionDefaultLanguage"}) {
        window.action(name)->trigger();
        QCOMPARE(spy.last().first().value<QAction *>(), window.action(name));
    }
    QVERIFY(goesTo(group, &QActionGroup::triggered, &*window, &Scrivara::switchLanguage));
    QVERIFY(!goesTo(group, &QActionGroup::triggered, &*window, &Scrivara::switchLanguage));
}

void TestFires::menusUpdate()
{
    const WindowProbe window;
    for (const char *name : {"menuFile", "menuEdit", "menuTool", "menuView", "menuSettings", "menuBonus", "menuHelp"})
        QVERIFY2(goesTo(window.menu(name), &QMenu::aboutToShow, &*window, &Scrivara::updateMenus), name);
    QMenu *bars = window.menu("menuShowToolBars");
    QVERIFY(goesTo(bars, &QMenu::aboutToShow, &*window, &Scrivara::updateMenuToolBars));
    QVERIFY(!goesTo(bars, &QMenu::aboutToShow, &*window, &Scrivara::updateMenus));
}

void TestFires::controls()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    Scrivara *frame = &*window;
    QVERIFY(goesTo(window.linePicker(), &QtColorPicker::colorChanged, frame, &Scrivara::lineColor));
    QVERIFY(goesTo(window.fillPicker(), &QtColorPicker::colorChanged, frame, &Scrivara::fillColor));
    QVERIFY(goesTo(window.zoomBox(), &QComboBox::currentIndexChanged, frame, &Scrivara::changeSize));
    QVERIFY(goesTo(window.syntaxButton(), &QToolButton::toggled, frame, &Scrivara::currHighlightSyntax));
    QCOMPARE(Receivers::of(window.lockButton(), SIGNAL(toggled(bool))), 0);
    QCOMPARE(Receivers::of(window.lockButton(), SIGNAL(clicked(bool))), 0);
    QVERIFY(
        goesTo(static_cast<QTabWidget *>(window.stack()), &QTabWidget::currentChanged, frame, &Scrivara::tabChanged));
    QUndoGroup *group = window->undoGroup();
    QVERIFY(goesTo(group, &QUndoGroup::canUndoChanged, window.action("actionUndo"), &QAction::setEnabled));
    QVERIFY(goesTo(group, &QUndoGroup::canRedoChanged, window.action("actionRedo"), &QAction::setEnabled));

    QToolBar *bar = window.bar("ScvSearchToolBar");
    QVERIFY(goesTo(bar->findChild<QComboBox *>(), &QComboBox::activated, frame, &Scrivara::searchNext));
    const auto button = [bar](int place) {
        return qobject_cast<QToolButton *>(bar->widgetForAction(bar->actions().at(place)));
    };
    QVERIFY(goesTo(button(0), &QToolButton::clicked, bar, &QToolBar::hide));
    QVERIFY(goesTo(button(2), &QToolButton::clicked, frame, &Scrivara::searchPrev));
    QVERIFY(goesTo(button(3), &QToolButton::clicked, frame, &Scrivara::searchNext));
}

REGISTER_TEST(TestFires)
#include "tst_fires.moc"
