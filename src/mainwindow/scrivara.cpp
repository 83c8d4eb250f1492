// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "annotations/annotation.h"
#include "app/eventlog.h"
#include "app/folders.h"
#include "app/setting.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "tools/drawingtool.h"
#include "widgets/fullscreendialog.h"
#include "widgets/qtcolorpicker.h"
#include "widgets/viewmodedialog.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>
#include <QUndoGroup>

#include <utility>

Scrivara::Scrivara(QStringList &files, QWidget *parent) : QMainWindow(parent), m_title(QStringLiteral("Kestrin 7"))
{
    QCoreApplication::installTranslator(&m_appTranslator);
    QCoreApplication::installTranslator(&m_qtTranslator);
    setupUi(this);
    setWindowTitle(m_title);
    QCoreApplication::setOrganizationName(QStringLiteral("Moorfield"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("moorfield.example"));
    QCoreApplication::setApplicationName(m_title);
    buildGui();
    holdMapping();
    (logInfo << "GUI built").eol(0);
    createActions();
    (logInfo << "All actions initialized").eol(0);
    createActiveElementsUi();
    (logInfo << "Active elements initialized").eol(0);
    createStatusBar();
    (logInfo << "StatusBar initialized").eol(0);
    createPopupMenus();
    (logInfo << "Popup menus created").eol(0);
    createTools();
    (logInfo << "Tools created").eol(0);
    setupDefaults();
    (logInfo << "Default state setup").eol(0);
    loadSettings();
    (logInfo << "Settings loaded").eol(0);
    updateMenus();
    (logInfo << "Menus updated").eol(0);
    openListedFiles(files);
    (logInfo << "Time stamp 1: " << __DATE__ << " " << __TIME__).eol(0);
    (logInfo << "Time stamp 2: " << QDateTime::currentDateTime().toString().toLatin1().constData()).eol(0);
    retranslateTexts();
}

Scrivara::~Scrivara()
{
    // The documents still ask the window while they go, but none of their signals is worth an answer now.
    disconnect(centralWidget(), nullptr, this, nullptr);
    delete takeCentralWidget();
    delete std::exchange(m_predefinedTools[thinRedPen], nullptr);
}

void Scrivara::buildGui()
{
    TRACE_ENTER_ON(logInfo);
    createMainArea();
    createRecentFileActions();
    (logInfo << "Main area created, recent files initialized").eol(0);
    m_lineColorPicker = createColorPicker(tr("Line Color"), &Scrivara::lineColor);
    m_fillColorPicker = createColorPicker(tr("Fill Color"), &Scrivara::fillColor);
    m_undoGroup = new QUndoGroup(this);
    connect(m_undoGroup, &QUndoGroup::canRedoChanged, actionRedo, &QAction::setEnabled);
    connect(m_undoGroup, &QUndoGroup::canUndoChanged, actionUndo, &QAction::setEnabled);
    createToolBars();
    createToolBarManager();
    (logInfo << "Toolbars created").eol(0);
    menuEdit->setTearOffEnabled(true);
    menuTool->setTearOffEnabled(true);
    menuView->setTearOffEnabled(true);
    m_fullscreenDialog = new FullscreenDialog(this);
    m_fullscreenDialog->setWindowFlags(Qt::Drawer | Qt::WindowTitleHint);
    m_viewModeDialog = new ViewModeDialog({actionToolTextMode, actionThinBluePen, actionRedMarker}, this);
    m_viewModeDialog->setWindowFlags(Qt::Drawer | Qt::WindowTitleHint);
    TRACE_LEAVE_ON(logInfo);
}

void Scrivara::createMainArea()
{
    TRACE_ENTER_ON(logInfo);
    m_pageStack = new PageStack(this);
    setCentralWidget(m_pageStack);
    // The layout would show it later, from the event loop: too late for the view that gets the focus before.
    m_pageStack->show();
    connect(m_pageStack, &PageStack::currentChanged, this, &Scrivara::tabChanged);
    TRACE_LEAVE_ON(logInfo);
}

void Scrivara::setupDefaults()
{
    TRACE_ENTER_ON(logInfo);
    // The empty stack stays on show; the first document brings a new one.
    m_pageStack = nullptr;
    actionToolPen->setChecked(true);
    m_fullScreen = false;
    m_mode = ToolMode;
    m_lastOpenDir = QCoreApplication::applicationDirPath();
    m_viewMode = StandardView;
    centreOnScreen();
    TRACE_LEAVE_ON(logInfo);
}

void Scrivara::centreOnScreen()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return;
    const QSize available = screen->availableGeometry().size();
    const int x = (available.width() - width()) / 2;
    const int y = (available.height() - height()) / 2;
    if (x > 0 && y > 0)
        move(x, y);
}

/// Names may be relative. As they would be shown and stored, they must not be: the next run starts elsewhere, and a
/// file opened by its full name must be found to be open.
void Scrivara::openListedFiles(const QStringList &files)
{
    for (qsizetype i = 0; i < files.size(); ++i) {
        (logInfo << "Input file [" << static_cast<double>(i) << "]: " << files.at(i).toLatin1().constData()).eol(0);
        const QString path = QDir::cleanPath(QFileInfo(files.at(i)).absoluteFilePath());
        if (!activateDocument(path))
            openDocument(path);
    }
    if (!files.isEmpty())
        updateCurrentState();
}

QString Scrivara::folderPath(const QString &name)
{
    return dataFolder(name);
}

Tool *Scrivara::currentTool() const
{
    return m_currentTool;
}

int Scrivara::mode() const
{
    return m_mode;
}

PageStack *Scrivara::pageStack() const
{
    return m_pageStack;
}

Page *Scrivara::currentPage() const
{
    return m_pageStack == nullptr ? nullptr : m_pageStack->currentPage();
}

PageView *Scrivara::currentView() const
{
    return m_pageStack == nullptr ? nullptr : qobject_cast<PageView *>(m_pageStack->currentWidget());
}

QString Scrivara::title() const
{
    return m_title;
}

QString Scrivara::lastOpenDir() const
{
    return m_lastOpenDir;
}

QLabel *Scrivara::statusLabel() const
{
    return m_statusLabel;
}

QProgressBar *Scrivara::progressBar() const
{
    return m_progressBar;
}

QMenu *Scrivara::popupMenu() const
{
    return m_popupMenu;
}

QUndoGroup *Scrivara::undoGroup() const
{
    return m_undoGroup;
}

QWidget *Scrivara::hostWindow()
{
    return this;
}

QList<Annotation *> *Scrivara::annotationClipboard()
{
    return m_annotationClipboard.list();
}

void Scrivara::clearAnnotationClipboard()
{
    TRACE_ENTER;
    m_annotationClipboard.clear();
    TRACE_LEAVE;
}

void Scrivara::addToAnnotationClipboard(Annotation *annotation)
{
    TRACE_ENTER;
    m_annotationClipboard.append(annotation);
    TRACE_LEAVE;
}

void Scrivara::applyViewCursor()
{
    PageView *view = currentView();
    if (view == nullptr)
        return;
    if (m_mode == TextMode)
        view->setCursor(Qt::IBeamCursor);
    else if (m_mode == TransformMode)
        view->setCursor(Qt::ArrowCursor);
    else
        view->setCursor(m_currentTool->makeCursor());
}

void Scrivara::updateCurrentState()
{
    TRACE_ENTER;
    m_currentTool->updateSettings();
    applyViewCursor();
    if (m_pageStack == nullptr) {
        TRACE_LEAVE;
        return;
    }
    const QSettings settings;
    Page *page = currentPage();
    if (page != nullptr)
        applyDocumentColors(page);
    const bool lineNumbers = settingOr(settings, QStringLiteral("PageView/ShowLineNumbers"), true);
    (logTrace << " Current page view updated").eol(0);
    applyTabsPosition();
    m_syntaxButton->setChecked(settingOr(settings, QStringLiteral("Syntax/HighlightByDefault"), true));
    if (page != nullptr) {
        page->showLineNumbers(lineNumbers);
        page->highlightSyntax(m_syntaxButton->isChecked());
    }
    TRACE_LEAVE;
}

void Scrivara::applyDocumentColors(Page *page)
{
    const QSettings settings;
    // A name of no colour is handed on as it is; the invalid colour shows as black.
    page->setTextColor(
        QColor(settingOr(settings, QStringLiteral("PageView/DefaultTextColor"), QStringLiteral("black"))));
    (logTrace << "Updating text color").eol(0);
    page->setBackgroundBrush(
        QColor(settingOr(settings, QStringLiteral("PageView/DefaultBgColor"), QStringLiteral("white"))));
    (logTrace << "Updating background color").eol(0);
}

void Scrivara::applyTabsPosition()
{
    static const QHash<QString, QTabWidget::TabPosition> positions{
        {QStringLiteral("Right"), QTabWidget::East},
        {QStringLiteral("Top"), QTabWidget::North},
        {QStringLiteral("Bottom"), QTabWidget::South},
        {QStringLiteral("Left"), QTabWidget::West},
    };
    const QString stored = settingOr(QSettings(), QStringLiteral("Other/TabsPosition"), QStringLiteral("Right"));
    m_pageStack->setTabPosition(positions.value(stored, m_pageStack->tabPosition()));
}

void Scrivara::tabChanged()
{
    Page *page = currentPage();
    if (page == nullptr)
        return;
    TRACE_ENTER;
    (logTrace << "Tab changed").eol(0);
    // A gesture belongs to the page on which it began.
    m_currentTool->abandonGesture();
    page->activateUndoStack();
    showTitle(page->fileName(), page->isModified());
    applyViewCursor();
    actionHideAnnotations->setChecked(!page->annotationsVisible());
    updateMenus();
    TRACE_LEAVE;
}

void Scrivara::currHighlightSyntax(bool on)
{
    if (m_pageStack == nullptr)
        return;
    TRACE_ENTER;
    (logTrace << "Highlighting syntax").eol(0);
    QSettings().setValue(QStringLiteral("Syntax/HighlightByDefault"), m_syntaxButton->isChecked());
    for (int tab = 0; tab < m_pageStack->count(); ++tab) {
        if (Page *page = m_pageStack->pageAt(tab))
            page->highlightSyntax(on);
    }
    TRACE_LEAVE;
}

void Scrivara::closeEvent(QCloseEvent *event)
{
    TRACE_ENTER;
    if (m_pageStack != nullptr && !m_pageStack->closeAllTabs()) {
        event->ignore();
        TRACE_LEAVE;
        return;
    }
    saveSettings();
    dumpRingBuffer(false);
    emptyTemporaryFolder();
    event->accept();
    TRACE_LEAVE;
}

void Scrivara::emptyTemporaryFolder()
{
    const QString path = folderPath(QStringLiteral("temporary"));
    QDir folder(path);
    // An empty path would mean the working directory, a link somebody else's folder.
    if (path.isEmpty() || QFileInfo(folder.absolutePath()).isSymLink())
        return;
    const QStringList entries = folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &entry : entries)
        folder.remove(entry);
}

void Scrivara::exitProgram()
{
    TRACE_ENTER;
    (logTrace << "Exiting program").eol(0);
    close();
    TRACE_LEAVE;
}

void Scrivara::cut()
{
    Page *page = currentPage();
    if (page == nullptr)
        return;
    TRACE_ENTER;
    page->cutCommand();
    actionPaste->setEnabled(canPaste());
    TRACE_LEAVE;
}

void Scrivara::copy()
{
    Page *page = currentPage();
    if (page == nullptr)
        return;
    TRACE_ENTER;
    page->copyCommand();
    actionPaste->setEnabled(canPaste());
    TRACE_LEAVE;
}

void Scrivara::paste()
{
    Page *page = currentPage();
    if (page == nullptr)
        return;
    TRACE_ENTER;
    page->pasteCommand();
    TRACE_LEAVE;
}

void Scrivara::remove()
{
    Page *page = currentPage();
    if (page == nullptr)
        return;
    TRACE_ENTER;
    page->removeCommand();
    TRACE_LEAVE;
}

void Scrivara::updateDocFont(QString fontFamily, int fontSize)
{
    if (currentPage() == nullptr)
        return;
    TRACE_ENTER;
    (logTrace << "Updating current document font").eol(0);
    // Fonts change through the settings alone; this command is kept for its place among the slots.
    Q_UNUSED(fontFamily)
    Q_UNUSED(fontSize)
    TRACE_LEAVE;
}
