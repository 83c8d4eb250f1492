// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/cutcommand.h"

#include "documents/page.h"

CutCommand::CutCommand(Page *page, const QList<QGraphicsItem *> &items, QUndoCommand *parent)
    : QUndoCommand(parent), m_page(page), m_items(items.cbegin(), items.cend())
{
}

CutCommand::~CutCommand() = default;

void CutCommand::undo()
{
    for (const MarkRef &mark : std::as_const(m_items))
        m_page->putOnScene(mark.item());
    m_page->update();
}

void CutCommand::redo()
{
    for (const MarkRef &mark : std::as_const(m_items))
        m_page->takeOffScene(mark.item());
}
