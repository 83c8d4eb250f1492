// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/markref.h"

#include <QUndoCommand>

class Page;
class QGraphicsItem;

/// Puts one new mark on a page.
class AddAnnotationCommand : public QUndoCommand
{
public:
    /// @p page must outlive the command, which lives on the page's own undo stack. The command shares in the marks.
    AddAnnotationCommand(Page *page, QGraphicsItem *item, QUndoCommand *parent);
    ~AddAnnotationCommand() override;

    void undo() override;
    void redo() override;

private:
    Page *m_page;
    MarkRef m_item;
};
