// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "annotations/annotation.h"
#include "app/clipboardtext.h"
#include "app/eventlog.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "mainwindow/actiontables.h"
#include "mainwindow/zoomsteps.h"
#include "widgets/activeelementslist.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QSignalMapper>
#include <QUndoGroup>

namespace {

using Form = Ui_MainWindow;

constexpr ActionTables::Member alwaysEnabled[]{
    &Form::actionNewProject,   &Form::actionOpen,          &Form::actionSaveAs,         &Form::actionSendEmail,
    &Form::actionExit,         &Form::actionPrintSettings, &Form::actionSyntaxSettings, &Form::actionPageViewSettings,
    &Form::actionMainSettings, &Form::actionEmailSettings, &Form::actionUserGuide,      &Form::actionGotoHomePage,
    &Form::actionAbout,
};

constexpr ActionTables::Member enabledWithPage[]{
    &Form::actionCloseFile,
    &Form::actionExportToPdf,
    &Form::actionPrintPreview,
    &Form::actionPrint,
    &Form::actionSearch,
    &Form::actionTakeScreenShot,
    &Form::actionZoomIn,
    &Form::actionZoomOut,
    &Form::actionFullScreen,
    &Form::actionHideAnnotations,
    &Form::actionShowActiveElementsList,
};

constexpr QMenu *Form::*menusEnabledWithPage[]{
    &Form::menuLines, &Form::menuShape, &Form::menuBrackets, &Form::menuPredefinedPens, &Form::menuPredefinedMarkers,
};

constexpr QMenu *Form::*menusThatUpdate[]{
    &Form::menuFile,     &Form::menuEdit,  &Form::menuTool, &Form::menuView,
    &Form::menuSettings, &Form::menuBonus, &Form::menuHelp,
};

struct StandardShortcut
{
    ActionTables::Member action;
    QKeySequence::StandardKey key;
};

constexpr StandardShortcut standardShortcuts[]{
    {&Form::actionNewProject, QKeySequence::New},
    {&Form::actionOpen, QKeySequence::Open},
    {&Form::actionSave, QKeySequence::Save},
    {&Form::actionPrint, QKeySequence::Print},
    {&Form::actionCloseFile, QKeySequence::Close},
    {&Form::actionUndo, QKeySequence::Undo},
    {&Form::actionRedo, QKeySequence::Redo},
    {&Form::actionCopy, QKeySequence::Copy},
    {&Form::actionCut, QKeySequence::Cut},
    {&Form::actionPaste, QKeySequence::Paste},
    {&Form::actionRemove, QKeySequence::Delete},
    {&Form::actionSearch, QKeySequence::Find},
    {&Form::actionUserGuide, QKeySequence::HelpContents},
    {&Form::actionZoomIn, QKeySequence::ZoomIn},
    {&Form::actionZoomOut, QKeySequence::ZoomOut},
};

struct KeyShortcut
{
    ActionTables::Member action;
    QKeyCombination keys;
};

constexpr KeyShortcut keyShortcuts[]{
    {&Form::actionToolPen, Qt::ALT | Qt::Key_P},
    {&Form::actionToolMarker, Qt::ALT | Qt::Key_M},
    {&Form::actionToolRectangle, Qt::ALT | Qt::Key_R},
    {&Form::actionToolEllipse, Qt::ALT | Qt::Key_L},
    {&Form::actionToolEraser, Qt::ALT | Qt::Key_E},
    {&Form::actionToolTextMode, Qt::ALT | Qt::Key_T},
    {&Form::actionTransformationMode, Qt::ALT | Qt::Key_S},
    {&Form::actionFullScreen, QKeyCombination(Qt::Key_F10)},
};

struct Language
{
    ActionTables::Member action;
    const char *code;
};

constexpr Language languages[]{
    {&Form::actionDefaultLanguage, "default"},
    {&Form::actionEnglish, "en"},
    {&Form::actionPolski, "pl"},
    {&Form::actionFrancais, "fr"},
};

} // namespace

void Scrivara::createActions()
{
    TRACE_ENTER_ON(logInfo);
    connectTriggeredActions();
    connectToggledActions();
    createMappers();
    createActionGroups();
    for (QMenu *Form::*menu : menusThatUpdate)
        connect(this->*menu, &QMenu::aboutToShow, this, &Scrivara::updateMenus);
    connect(menuShowToolBars, &QMenu::aboutToShow, this, &Scrivara::updateMenuToolBars);
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, [this] { m_clipboardHasText.reset(); });
    setupShortcuts();
    TRACE_LEAVE_ON(logInfo);
}

void Scrivara::connectTriggeredActions()
{
    static constexpr struct
    {
        ActionMember action;
        void (Scrivara::*slot)();
    } table[]{
        {&Form::actionNewProject, &Scrivara::newProject},
        {&Form::actionOpen, &Scrivara::openFile},
        {&Form::actionPrint, &Scrivara::printFile},
        {&Form::actionSendEmail, &Scrivara::sendEmail},
        {&Form::actionExit, &Scrivara::exitProgram},
        {&Form::actionCloseFile, &Scrivara::closeFile},
        {&Form::actionCopy, &Scrivara::copy},
        {&Form::actionCut, &Scrivara::cut},
        {&Form::actionPaste, &Scrivara::paste},
        {&Form::actionRemove, &Scrivara::remove},
        {&Form::actionRemoveAllAnnotations, &Scrivara::removeAllAnnotations},
        {&Form::actionSearch, &Scrivara::showSearchToolBar},
        {&Form::actionUserGuide, &Scrivara::showUserGuide},
        {&Form::actionGotoHomePage, &Scrivara::gotoHomePage},
        {&Form::actionAbout, &Scrivara::showAboutBox},
        {&Form::actionZoomIn, &Scrivara::zoomIn},
        {&Form::actionZoomOut, &Scrivara::zoomOut},
        {&Form::actionExportToPdf, &Scrivara::exportToPdf},
        {&Form::actionCustomizeToolBars, &Scrivara::customizeToolBars},
        {&Form::actionShowStatistics, &Scrivara::showStatistics},
        {&Form::actionPrintPreview, &Scrivara::printPreview},
    };
    for (const auto &entry : table)
        connect(this->*entry.action, &QAction::triggered, this, entry.slot);
    connect(actionSave, &QAction::triggered, this, &Scrivara::saveFile);
    connect(actionSaveAs, &QAction::triggered, this, &Scrivara::saveAsFile);
    connect(actionUndo, &QAction::triggered, m_undoGroup, &QUndoGroup::undo);
    connect(actionRedo, &QAction::triggered, m_undoGroup, &QUndoGroup::redo);
}

void Scrivara::connectToggledActions()
{
    static constexpr struct
    {
        ActionMember action;
        void (Scrivara::*slot)(bool);
    } table[]{
        {&Form::actionToolPen, &Scrivara::usePen},
        {&Form::actionToolMarker, &Scrivara::useMarker},
        {&Form::actionFullScreen, &Scrivara::fullScreenMode},
        {&Form::actionHideAnnotations, &Scrivara::hideAnnotations},
        {&Form::actionToolTextMode, &Scrivara::setTextMode},
        {&Form::actionToolEraser, &Scrivara::useEraser},
        {&Form::actionTakeScreenShot, &Scrivara::useScreenShot},
        {&Form::actionShowActiveElementsList, &Scrivara::showActiveElementsList},
        {&Form::actionTransformationMode, &Scrivara::setTransformMode},
        {&Form::actionTextBox, &Scrivara::useTextBox},
    };
    for (const auto &entry : table)
        connect(this->*entry.action, &QAction::toggled, this, entry.slot);
}

void Scrivara::createMappers()
{
    createMapper(ActionTables::predefinedTools, &QAction::triggered, &Scrivara::usePredefinedTool);
    createMapper(ActionTables::settingsTabs, &QAction::triggered, &Scrivara::showConfigDialog);
    // These listen to toggled(): they fire when an action of theirs is unchecked as well.
    createMapper(ActionTables::lines, &QAction::toggled, &Scrivara::useLine);
    createMapper(ActionTables::brackets, &QAction::toggled, &Scrivara::useBracket);
    createMapper(ActionTables::shapes, &QAction::toggled, &Scrivara::useShape);
    createMapper(ActionTables::views, &QAction::toggled, &Scrivara::switchView);
}

void Scrivara::createMapper(std::span<const ActionMember> actions, void (QAction::*signal)(bool),
                            void (Scrivara::*slot)(int))
{
    auto *mapper = new QSignalMapper(this);
    for (std::size_t id = 0; id < actions.size(); ++id) {
        QAction *action = this->*actions[id];
        mapper->setMapping(action, static_cast<int>(id));
        connect(action, signal, mapper, qOverload<>(&QSignalMapper::map));
    }
    connect(mapper, &QSignalMapper::mappedInt, this, slot);
}

void Scrivara::createActionGroups()
{
    auto *tools = new QActionGroup(this);
    addToGroup(tools, ActionTables::plainTools);
    addToGroup(tools, ActionTables::shapes);
    addToGroup(tools, ActionTables::brackets);
    addToGroup(tools, ActionTables::lines);
    addToGroup(tools, ActionTables::predefinedTools);
    tools->addAction(actionTakeScreenShot);

    addToGroup(new QActionGroup(this), ActionTables::views);

    m_languageGroup = new QActionGroup(this);
    for (const Language &language : languages) {
        QAction *action = m_languageGroup->addAction(this->*language.action);
        action->setData(QString::fromLatin1(language.code));
    }
    connect(m_languageGroup, &QActionGroup::triggered, this, &Scrivara::switchLanguage);
}

void Scrivara::addToGroup(QActionGroup *group, std::span<const ActionMember> actions)
{
    for (ActionMember action : actions)
        group->addAction(this->*action);
}

void Scrivara::setupShortcuts()
{
    for (const StandardShortcut &shortcut : standardShortcuts)
        (this->*shortcut.action)->setShortcut(QKeySequence(shortcut.key));
    for (const KeyShortcut &shortcut : keyShortcuts)
        (this->*shortcut.action)->setShortcut(QKeySequence(shortcut.keys));
}

void Scrivara::updateMenus()
{
    TRACE_ENTER;
    (logTrace << "Updating menus").eol(0);
    updatePageActions();
    updateEditActions();
    checkLanguageAction();
    syncZoomBox();
    TRACE_LEAVE;
}

void Scrivara::setEnabled(std::span<const ActionMember> actions, bool enabled)
{
    for (ActionMember action : actions)
        (this->*action)->setEnabled(enabled);
}

void Scrivara::updatePageActions()
{
    const Page *page = currentPage();
    const bool hasPage = page != nullptr;
    setEnabled(alwaysEnabled, true);
    menuShowToolBars->setEnabled(true);
    setEnabled(enabledWithPage, hasPage);
    setEnabled(ActionTables::plainTools, hasPage);
    setEnabled(ActionTables::shapes, hasPage);
    setEnabled(ActionTables::brackets, hasPage);
    setEnabled(ActionTables::lines, hasPage);
    setEnabled(ActionTables::predefinedTools, hasPage);
    for (QMenu *Form::*menu : menusEnabledWithPage)
        (this->*menu)->setEnabled(hasPage);
    actionSave->setEnabled(hasPage && page->isModified());
    actionRemoveAllAnnotations->setEnabled(hasPage && page->hasAnnotations());
    actionShowActiveElementsList->setChecked(m_activeElementsList->isVisible());
}

void Scrivara::updateEditActions()
{
    const bool copyable = canCopy();
    actionUndo->setEnabled(m_undoGroup->canUndo());
    actionRedo->setEnabled(m_undoGroup->canRedo());
    actionCut->setEnabled(copyable);
    actionCopy->setEnabled(copyable);
    actionRemove->setEnabled(copyable);
    actionPaste->setEnabled(canPaste());
}

bool Scrivara::canCopy() const
{
    const Page *page = currentPage();
    if (page == nullptr)
        return false;
    return m_mode == TextMode ? page->hasSelectedText() : !page->selectedItems().isEmpty();
}

bool Scrivara::canPaste()
{
    if (m_mode != TextMode)
        return !m_annotationClipboard.list()->isEmpty();
    // Another program may take its time to hand its text over, and this is asked at every key.
    if (!m_clipboardHasText)
        m_clipboardHasText = !clipboardText().isEmpty();
    return *m_clipboardHasText;
}

void Scrivara::checkLanguageAction()
{
    const QList<QAction *> actions = m_languageGroup->actions();
    for (QAction *action : actions) {
        if (action->data().toString() == m_appLanguage)
            action->setChecked(true);
    }
}

void Scrivara::syncZoomBox()
{
    const PageView *view = currentView();
    if (view == nullptr)
        return;
    // The smallest size is left out: a view at 25% leaves the box as it was.
    const int index = ZoomSteps::indexOf(view->zoom());
    if (index > 0)
        m_zoomBox->setCurrentIndex(index);
}

void Scrivara::updateMenuToolBars() {}

void Scrivara::updateToolBars() {}
