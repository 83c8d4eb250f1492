// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "app/eventlog.h"
#include "app/setting.h"
#include "documents/documentname.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "tools/tool.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QToolButton>

#include <algorithm>

namespace {

/// As many entries as the settings dialog lets the user ask for; the stored number may be anything.
constexpr int maxRecentLimit = 99;

QStringList storedRecentFiles()
{
    QStringList files = settingOr(QSettings(), QStringLiteral("General/RecentFileList"), QStringList());
    files.removeAll(QString()); // a damaged entry names nothing
    return files;
}

/// Undoes the override cursor on every way out of a scope.
class BusyCursor
{
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::BusyCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor &) = delete;
    BusyCursor &operator=(const BusyCursor &) = delete;
};

} // namespace

void Scrivara::newProject()
{
    TRACE_ENTER;
    (logTrace << "Create new project").eol(0);
    if (m_pageStack == nullptr)
        createMainArea();
    auto *page = new Page(this);
    page->newDocument();
    addNewPage(page);
    actionToolTextMode->activate(QAction::Trigger);
    updateCurrentState();
    setTextMode(true);
    page->focusDocument();
    TRACE_LEAVE;
}

/// Makes a view for @p page, in a new tab that comes to the front.
PageView *Scrivara::showInNewTab(Page *page)
{
    auto *view = new PageView(page, m_pageStack);
    view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_pageStack->addTab(view, DocumentName::label(page->fileName()));
    m_pageStack->setCurrentIndex(m_pageStack->count() - 1);
    m_pageStack->updateStackLook();
    return view;
}

void Scrivara::addNewPage(Page *page)
{
    if (page == nullptr)
        return;
    TRACE_ENTER;
    PageView *view = showInNewTab(page);
    view->setCursor(m_currentTool->makeCursor());
    view->show();
    view->centerOn(1.0, 1.0);
    page->setPageView(view);
    view->setFocus();
    updateMenus();
    TRACE_LEAVE;
}

void Scrivara::openFile()
{
    TRACE_ENTER;
    static QString selectedFilter = tr("Text Files (*.txt)");
    QFileDialog dialog(this, tr("Open File"), m_lastOpenDir, buildOpenFilter(selectedFilter));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    if (dialog.exec() == QDialog::Accepted) {
        const QStringList files = dialog.selectedFiles();
        selectedFilter = dialog.selectedNameFilter();
        if (!files.isEmpty()) {
            (logTrace << "Total # of files to open: " << static_cast<double>(files.size())).eol(0);
            m_lastOpenDir = dialog.directory().canonicalPath();
        }
        for (const QString &file : files) {
            if (!activateDocument(file)) {
                openDocument(file);
                setCurrentFile(file);
            }
        }
    }
    updateCurrentState();
    TRACE_LEAVE;
}

QString Scrivara::buildOpenFilter(const QString &selected) const
{
    const QString imageFilter = tr("Image Files (") + DocumentName::picturePatterns() + QStringLiteral(");;");
    const QStringList filters{
        tr("Kestrin 7 Files (*.oxn);;"),  imageFilter,
        tr("Text Files (*.txt);;"),       tr("C/C++ Files (*.c *.c++ *.cc *.cpp *.h);;"),
        tr("C# Files (*.cs);;"),          tr("Fortran Files (*.f);;"),
        tr("Java Files (*.java);;"),      tr("Perl Files (*.pl);;"),
        tr("PHP Files (*.php *.phps);;"), tr("Python Files (*.py);;"),
        tr("Ruby Files (*.rb);;"),        tr("All Files (*.*);;"),
    };
    const QString first = selected + QStringLiteral(";;");
    QString result = first;
    for (const QString &filter : filters) {
        if (filter != first)
            result += filter;
    }
    result.chop(2);
    return result;
}

void Scrivara::openRecentFile()
{
    const auto *action = qobject_cast<QAction *>(sender());
    if (action == nullptr)
        return;
    TRACE_ENTER;
    const QCursor windowCursor = cursor();
    setCursor(Qt::WaitCursor);
    const QString path = action->data().toString();
    if (!activateDocument(path)) {
        openDocument(path);
        updateCurrentState();
    }
    setCursor(windowCursor);
    TRACE_LEAVE;
}

bool Scrivara::activateDocument(const QString &path)
{
    if (m_pageStack == nullptr)
        return false;
    const int index = m_pageStack->indexOfFile(path);
    if (index == -1)
        return false;
    m_pageStack->setCurrentIndex(index);
    return true;
}

bool Scrivara::openDocument(const QString &path)
{
    TRACE_ENTER;
    if (m_pageStack == nullptr)
        createMainArea();
    const BusyCursor busy;
    auto *page = new Page(this);
    if (!page->loadFile(path)) {
        delete page;
        TRACE_LEAVE;
        return false;
    }
    PageView *view = showInNewTab(page);
    setCurrentFile(path);
    updateMenus();
    view->setCursor(m_currentTool->makeCursor());
    page->highlightSyntax(m_syntaxButton->isChecked());
    page->setPageView(view);
    page->setModified(false);
    // Tags from the file have marked the page meanwhile.
    showTitle(path, false);
    updateMenus();
    view->setFocus(); // else the keyboard would stay with a button of a tool bar
    view->centerOn(1.0, 1.0);
    TRACE_LEAVE;
    return true;
}

bool Scrivara::saveFile()
{
    if (currentPage() == nullptr)
        return true;
    TRACE_ENTER;
    const bool saved = m_pageStack->saveCurrent(-1);
    TRACE_LEAVE;
    return saved;
}

bool Scrivara::saveAsFile()
{
    if (currentPage() == nullptr)
        return true;
    TRACE_ENTER;
    const bool saved = m_pageStack->saveAs(-1);
    TRACE_LEAVE;
    return saved;
}

void Scrivara::closeFile()
{
    if (currentPage() == nullptr)
        return;
    TRACE_ENTER;
    m_pageStack->closeCurrentTab();
    TRACE_LEAVE;
}

void Scrivara::createRecentFileActions()
{
    TRACE_ENTER_ON(logInfo);
    const int stored = settingOr(QSettings(), QStringLiteral("Other/MaxRecentFiles"), 5);
    m_recentLimit = std::clamp(stored, 0, maxRecentLimit);
    for (int slot = 0; slot < m_recentLimit; ++slot) {
        auto *action = new QAction(this);
        action->setVisible(false);
        recentFilesMenu->addAction(action);
        connect(action, &QAction::triggered, this, &Scrivara::openRecentFile);
        m_recentFileActions.append(action);
    }
    updateRecentFileActions();
    TRACE_LEAVE_ON(logInfo);
}

void Scrivara::updateRecentFileActions()
{
    const QStringList files = storedRecentFiles();
    for (qsizetype i = 0; i < m_recentFileActions.size(); ++i) {
        QAction *action = m_recentFileActions.at(i);
        const bool used = i < files.size();
        if (used) {
            action->setText(tr("&%1 %2").arg(i + 1).arg(DocumentName::label(files.at(i))));
            action->setData(files.at(i));
        }
        action->setVisible(used);
    }
}

void Scrivara::setCurrentFile(const QString &path)
{
    if (path.isEmpty())
        return;
    TRACE_ENTER;
    (logTrace << "Set current file").eol(0);
    QStringList files = storedRecentFiles();
    files.removeAll(path);
    files.prepend(path);
    while (files.size() > m_recentLimit)
        files.removeLast();
    QSettings().setValue(QStringLiteral("General/RecentFileList"), files);
    updateRecentFileActions();
    if (m_pageStack != nullptr) {
        const Page *page = currentPage();
        showTitle(path, page != nullptr && page->isModified());
        m_pageStack->setTabText(m_pageStack->currentIndex(), DocumentName::label(path));
    }
    TRACE_LEAVE;
}

void Scrivara::showTitle(const QString &name, bool modified)
{
    setWindowTitle(DocumentName::windowTitle(m_title, name, modified));
}
