// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "app/eventlog.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/actiontables.h"
#include "mainwindow/zoomsteps.h"
#include "widgets/dontdialog.h"
#include "widgets/fullscreendialog.h"
#include "widgets/viewmodedialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QToolBar>

/// Which bars are on show.
struct WindowLayout
{
    bool menuBar;
    bool statusBar;
    bool fileEditViewHelp;
    bool modeNormTools;
    bool shapesLinesBrackets;
    bool stdTools;
    bool search;
};

namespace {

constexpr WindowLayout standardLayout{true, true, true, true, true, true, true};
constexpr WindowLayout compactLayout{true, false, false, true, false, true, false};
constexpr WindowLayout bareLayout{false, false, false, false, false, false, false};

} // namespace

void Scrivara::applyLayout(const WindowLayout &layout)
{
    const std::pair<QWidget *, bool> bars[]{
        {mainMenuBar, layout.menuBar},
        {statusbar, layout.statusBar},
        {m_fileToolBar, layout.fileEditViewHelp},
        {m_editToolBar, layout.fileEditViewHelp},
        {m_viewToolBar, layout.fileEditViewHelp},
        {m_helpToolBar, layout.fileEditViewHelp},
        {m_modeToolBar, layout.modeNormTools},
        {m_normToolsToolBar, layout.modeNormTools},
        {m_shapesToolBar, layout.shapesLinesBrackets},
        {m_linesToolBar, layout.shapesLinesBrackets},
        {m_bracketsToolBar, layout.shapesLinesBrackets},
        {m_stdToolsToolBar, layout.stdTools},
        {m_searchToolBar, layout.search},
    };
    for (const auto &[bar, shown] : bars)
        bar->setVisible(shown);
}

void Scrivara::switchView(int toWhat)
{
    if (toWhat < StandardView || toWhat > MinimalView)
        return;
    TRACE_ENTER;
    if (toWhat == StandardView)
        showStandardView(false);
    else if (toWhat == CompactView)
        showCompactView(false);
    else
        showMinimalView(false);
    m_viewMode = toWhat;
    TRACE_LEAVE;
}

void Scrivara::showStandardView(bool updateActions)
{
    if (updateActions)
        checkViewAction(StandardView);
    resetPopupMenu();
    menuTool->setTearOffEnabled(true);
    applyLayout(standardLayout);
    m_viewModeDialog->hide();
    showRestored();
}

void Scrivara::showCompactView(bool updateActions)
{
    if (updateActions)
        checkViewAction(CompactView);
    resetPopupMenu();
    menuTool->setTearOffEnabled(true);
    applyLayout(compactLayout);
    m_viewModeDialog->hide();
    showRestored();
}

void Scrivara::showMinimalView(bool updateActions)
{
    if (updateActions)
        checkViewAction(MinimalView);
    m_viewModeDialog->show();
    applyLayout(bareLayout);
    menuTool->setTearOffEnabled(false);
    addToolMenuToPopup();
    showRestored();
}

void Scrivara::checkViewAction(ViewMode mode)
{
    // The group unchecks the other two; the mapper then runs switchView() for the old and the new layout.
    (this->*ActionTables::views[mode])->setChecked(true);
}

void Scrivara::showRestored()
{
    if (windowState() == Qt::WindowMaximized)
        showMaximized();
    else
        showNormal();
}

void Scrivara::resetPopupMenu()
{
    m_popupMenu->clear();
    m_popupMenu->addAction(actionCut);
    m_popupMenu->addAction(actionCopy);
    m_popupMenu->addAction(actionPaste);
    m_popupMenu->addSeparator();
    m_popupMenu->addAction(actionFullScreen);
}

void Scrivara::addToolMenuToPopup()
{
    m_popupMenu->addSeparator();
    m_popupMenu->addMenu(menuTool);
}

void Scrivara::fullScreenMode(bool fullScreen)
{
    if (fullScreen) {
        TRACE_ENTER;
        applyLayout(bareLayout);
        showFullScreen();
        m_fullScreen = true;
        menuTool->setTearOffEnabled(false);
        addToolMenuToPopup();
        m_fullscreenDialog->show();
        TRACE_LEAVE;
        return;
    }
    TRACE_ENTER;
    resetPopupMenu();
    menuTool->setTearOffEnabled(true);
    applyLayout(standardLayout);
    showNormal();
    actionFullScreen->setChecked(false);
    m_fullScreen = false;
    m_fullscreenDialog->hide();
    TRACE_LEAVE;
}

void Scrivara::toggleFullScreen()
{
    fullScreenMode(!isFullScreen());
}

bool Scrivara::isFullScreen() const
{
    return m_fullScreen;
}

/// Moves the zoom box, which sets the size of the view, unless it is at its end.
void Scrivara::stepZoom(int steps)
{
    const int index = m_zoomBox->currentIndex() + steps;
    if (ZoomSteps::contains(index))
        m_zoomBox->setCurrentIndex(index);
}

void Scrivara::zoomIn()
{
    if (currentView() == nullptr)
        return;
    TRACE_ENTER;
    (logTrace << "Zoom-in").eol(0);
    stepZoom(1);
    TRACE_LEAVE;
}

void Scrivara::zoomOut()
{
    if (currentView() == nullptr)
        return;
    TRACE_ENTER;
    stepZoom(-1);
    TRACE_LEAVE;
}

void Scrivara::changeSize()
{
    PageView *view = currentView();
    if (view == nullptr)
        return;
    TRACE_ENTER;
    const int index = m_zoomBox->currentIndex();
    if (ZoomSteps::contains(index))
        view->setZoom(ZoomSteps::percentOf(index));
    TRACE_LEAVE;
}

void Scrivara::hideAnnotations(bool hide)
{
    Page *page = currentPage();
    if (page == nullptr)
        return;
    TRACE_ENTER;
    page->setAnnotationsHidden(hide);
    currentView()->invalidateScene(QRectF(), QGraphicsScene::AllLayers);
    TRACE_LEAVE;
}

void Scrivara::removeAllAnnotations()
{
    Page *page = currentPage();
    if (page == nullptr)
        return;
    TRACE_ENTER;
    DontDialog question(tr("Warning"),
                        tr("All annotations will be removed! There is no way to revert the operation. \n"
                           "Do you want to continue?"),
                        1, QStringLiteral("General/WarnRemoveAllAnnotations"), this);
    if (question.exec() != 1) {
        TRACE_LEAVE;
        return;
    }
    page->removeAnnotations();
    page->setModified(true);
    page->clearUndoStack();
    updateMenus();
    TRACE_LEAVE;
}

void Scrivara::showSearchToolBar()
{
    if (m_pageStack == nullptr || m_pageStack->currentIndex() < 0)
        return;
    TRACE_ENTER;
    if (m_searchToolBar->isHidden())
        m_searchToolBar->show();
    m_searchBox->setFocus();
    TRACE_LEAVE;
}

void Scrivara::search(QString toFind)
{
    Page *page = currentPage();
    if (page == nullptr || page->documentKind() != Page::TextDocument)
        return;
    TRACE_ENTER;
    page->searchText(toFind, m_searchCaseBox->isChecked(), m_searchWordsBox->isChecked(), true);
    TRACE_LEAVE;
}

void Scrivara::searchPrev()
{
    const Page *page = currentPage();
    if (page == nullptr || page->documentKind() != Page::TextDocument)
        return;
    TRACE_ENTER;
    searchStep(false);
    TRACE_LEAVE;
}

void Scrivara::searchNext()
{
    if (currentPage() == nullptr)
        return;
    TRACE_ENTER;
    searchStep(true);
    TRACE_LEAVE;
}

/// Looks for the text in the search bar; a new one is looked for from the start of the document.
void Scrivara::searchStep(bool forward)
{
    Page *page = currentPage();
    const QString text = m_searchBox->currentText();
    if (text != m_lastSearchText) {
        m_lastSearchText = text;
        page->resetSearch();
    }
    page->searchText(text, m_searchCaseBox->isChecked(), m_searchWordsBox->isChecked(), forward);
}
