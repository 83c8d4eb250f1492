// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/hostlink.h"

#include <QList>
#include <QPointer>
#include <QTabWidget>

class Page;
class QAction;
class QMenu;

/// The open documents, one tab each. Decides how a tab may be closed and how a document gets its name on saving.
///
/// Closing a tab only takes the view out of the tabs: page and view live on, unseen, with their undo stack. The stack
/// owns every page whose view was ever in one of its tabs, and deletes them with itself.
class PageStack : public QTabWidget
{
    Q_OBJECT

public:
    /// The host's window becomes the parent. @p host may be null.
    explicit PageStack(DocumentHost *host);
    ~PageStack() override;

    /// Null when there is no such tab or it shows no page.
    Page *currentPage() const;
    Page *pageAt(int index) const;
    /// First tab whose page has exactly this file name; -1 if there is none.
    int indexOfFile(const QString &path) const;
    /// Saves under the document's name, or asks for one if it has none; -1 means the current tab. False when the
    /// user gave no name; a save that failed was told to the user and counts as true, as does a missing tab.
    bool saveCurrent(int index = -1);
    bool saveAs(int index = -1);
    /// Brings look and window title in step with whether there are tabs.
    void updateStackLook();
    void retranslate();

public slots:
    /// True if the tab may go: its document is not modified, or the user said what to do about it.
    bool maybeCloseTab(int tabIdx);
    bool closeCurrentTab();
    bool closeAllTabs();
    bool closeOtherTabs();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void changeEvent(QEvent *event) override;
    void tabInserted(int index) override;

private:
    bool closeTab(int index);
    void tellSaved(const QString &path);

    HostLink m_host;
    QMenu *m_contextMenu;
    QAction *m_closeFileAction;
    QAction *m_closeAllAction;
    QAction *m_closeOthersAction;
    QString m_normalStyleSheet;
    QList<QPointer<Page>> m_pages;
};
