// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/pagestack.h"

#include "documents/documentname.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "documents/warningbox.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QUndoGroup>

namespace {

const QLatin1String emptyLook("background-color: rgb(231, 231, 231);");

} // namespace

PageStack::PageStack(DocumentHost *host)
    : QTabWidget(host ? host->hostWindow() : nullptr),
      m_host(host),
      m_contextMenu(new QMenu(this)),
      m_closeFileAction(new QAction(this)),
      m_closeAllAction(new QAction(this)),
      m_closeOthersAction(new QAction(this)),
      m_normalStyleSheet(styleSheet())
{
    connect(m_closeFileAction, &QAction::triggered, this, &PageStack::closeCurrentTab);
    connect(m_closeAllAction, &QAction::triggered, this, &PageStack::closeAllTabs);
    connect(m_closeOthersAction, &QAction::triggered, this, &PageStack::closeOtherTabs);
    m_contextMenu->addActions({m_closeFileAction, m_closeAllAction, m_closeOthersAction});
    setStyleSheet(emptyLook);
    retranslate();
}

PageStack::~PageStack()
{
    for (const QPointer<Page> &page : std::as_const(m_pages))
        delete page;
}

void PageStack::tabInserted(int index)
{
    Page *page = pageAt(index);
    if (page && !m_pages.contains(page))
        m_pages.append(page);
}

Page *PageStack::currentPage() const
{
    return pageAt(currentIndex());
}

Page *PageStack::pageAt(int index) const
{
    const auto *view = dynamic_cast<PageView *>(widget(index));
    return view ? dynamic_cast<Page *>(view->scene()) : nullptr;
}

int PageStack::indexOfFile(const QString &path) const
{
    for (int i = 0; i < count(); ++i) {
        if (const Page *page = pageAt(i); page && page->fileName() == path)
            return i;
    }
    return -1;
}

void PageStack::retranslate()
{
    m_closeFileAction->setText(tr("Close File"));
    m_closeAllAction->setText(tr("Close All Files"));
    m_closeOthersAction->setText(tr("Close Other Files"));
}

void PageStack::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void PageStack::keyPressEvent(QKeyEvent *event)
{
    if (DocumentHost *host = m_host.get(); host && event->key() == Qt::Key_F10)
        host->toggleFullScreen();
}

void PageStack::contextMenuEvent(QContextMenuEvent *event)
{
    if (count() > 0)
        m_contextMenu->popup(mapToGlobal(event->pos()));
}

void PageStack::updateStackLook()
{
    if (count() > 0) {
        setStyleSheet(m_normalStyleSheet);
        return;
    }
    setStyleSheet(emptyLook);
    if (DocumentHost *host = m_host.get()) {
        if (m_host.window())
            m_host.window()->setWindowTitle(host->title());
        if (host->isFullScreen())
            host->toggleFullScreen();
        // Nothing is left to work on: not even the closed page's undo stack.
        if (host->undoGroup())
            host->undoGroup()->setActiveStack(nullptr);
        host->updateMenus();
    }
}

bool PageStack::maybeCloseTab(int tabIdx)
{
    const Page *page = pageAt(tabIdx);
    if (!page || !page->isModified())
        return true;
    const auto answer =
        showWarning(m_host.window(), tr("Kestrin 7"),
                    tr("Document [%1] has been modified.\nDo you want to save changes?").arg(page->fileName()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Save)
        return saveCurrent(-1);
    return answer == QMessageBox::Discard;
}

bool PageStack::closeTab(int index)
{
    if (!maybeCloseTab(index))
        return false;
    removeTab(index);
    return true;
}

bool PageStack::closeCurrentTab()
{
    if (!closeTab(currentIndex()))
        return false;
    updateStackLook();
    return true;
}

bool PageStack::closeAllTabs()
{
    for (int left = count(); left > 0; --left) {
        if (!closeTab(0))
            return false;
    }
    updateStackLook();
    return true;
}

bool PageStack::closeOtherTabs()
{
    const int before = currentIndex();
    const int behind = count() - before - 1;
    for (int i = 0; i < before; ++i) {
        if (!closeTab(0))
            return false;
    }
    for (int i = 0; i < behind; ++i) {
        if (!closeTab(1))
            return false;
    }
    updateStackLook();
    return true;
}

bool PageStack::saveCurrent(int index)
{
    Page *page = pageAt(index < 0 ? currentIndex() : index);
    if (!page)
        return true;
    if (page->fileName().isEmpty() || page->fileName() == DocumentName::unnamed)
        return saveAs(index);
    const bool saved = page->saveDocument(QString(), false);
    if (!saved && page->wantsOtherName())
        return saveAs(index);
    tellSaved(page->fileName());
    return true;
}

bool PageStack::saveAs(int index)
{
    Page *page = pageAt(index < 0 ? currentIndex() : index);
    if (!page)
        return true;
    const QString filter = tr("Kestrin7 Files (*.oxn);;") +
                           tr("Image Files (%1);;").arg(DocumentName::picturePatterns()) + tr("All Files (*.*);;");
    const DocumentHost *host = m_host.get();
    QString name = QFileDialog::getSaveFileName(m_host.window(), tr("Save As File"),
                                                host ? host->lastOpenDir() : QString(), filter);
    if (name.isEmpty())
        return false;
    if (QFileInfo(name).suffix().isEmpty()) {
        name += QStringLiteral(".oxn");
        if (!page->mayReplace(name))
            return false;
    }
    page->saveDocument(name, false);
    tellSaved(name);
    return true;
}

void PageStack::tellSaved(const QString &path)
{
    if (DocumentHost *host = m_host.get()) {
        host->updateMenus();
        host->setCurrentFile(path);
    }
}
