// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/markref.h"

#include <QList>
#include <QUndoCommand>

class Page;
class QGraphicsItem;

/// Takes marks off a page; undoing puts the same objects back.
class CutCommand : public QUndoCommand
{
public:
    /// @p page must outlive the command, which lives on the page's own undo stack. The command shares in the marks.
    CutCommand(Page *page, const QList<QGraphicsItem *> &items, QUndoCommand *parent);
    ~CutCommand() override;

    void undo() override;
    void redo() override;

private:
    Page *m_page;
    QList<MarkRef> m_items;
};
