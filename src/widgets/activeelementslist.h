// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/activeelement.h"
#include "documents/page.h"

#include <QDialog>
#include <QList>
#include <QPointer>

#include <memory>

class TagHost;

namespace Ui {
class ActiveElementsList;
}

/// A tag in the list, and the page on which it was put. Both belong to others; they become null when they die.
struct ActiveElementEntry
{
    QPointer<ActiveElement> element;
    QPointer<Page> page;
};

/// The small tool window that lists the tags of all documents, filters them, and jumps to the one that is chosen.
///
/// A tag that is undone or cut, or whose document is closed, stays in the list; one that dies leaves it. Rows show
/// the texts as they were when the list was built last: when a tag was added or died, or a filter was changed.
class ActiveElementsList : public QDialog
{
    Q_OBJECT

public:
    /// A @p parent that is a TagHost is asked for the current page and to jump.
    explicit ActiveElementsList(QWidget *parent);
    ~ActiveElementsList() override;

    /// Appends a tag. The other rows are brought up to date when the event loop is back, however many tags come
    /// until then.
    void addElement(ActiveElement *element, Page *page);

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void updateListWidget();
    /// Jumps to the tag in this row; -1, no row, is ignored.
    void gotoElement(int idx);

private:
    void updateLater();
    bool isListed(const ActiveElementEntry &entry) const;
    void addRow(qsizetype index);

    std::unique_ptr<Ui::ActiveElementsList> m_ui;
    TagHost *m_host;
    QList<ActiveElementEntry> m_entries; ///< In the order of adding.
    QList<qsizetype> m_rows;             ///< For each row its index among the entries.
    bool m_updatePending = false;
};
