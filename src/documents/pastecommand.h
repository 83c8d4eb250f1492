// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/markref.h"

#include <QList>
#include <QUndoCommand>

class Annotation;
class Page;
class QGraphicsItem;

/// Puts the marks of the clipboard, the objects themselves, on a page. Those already there stay as they are; those
/// on another page move here.
class PasteCommand : public QUndoCommand
{
public:
    /// @p page must outlive the command, which lives on the page's own undo stack. The command shares in the marks.
    PasteCommand(Page *page, const QList<Annotation *> &annotations, QUndoCommand *parent);
    ~PasteCommand() override;

    void undo() override;
    void redo() override;

private:
    Page *m_page;
    QList<MarkRef> m_items;
};
