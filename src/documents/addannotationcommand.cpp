// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/addannotationcommand.h"

#include "documents/page.h"

AddAnnotationCommand::AddAnnotationCommand(Page *page, QGraphicsItem *item, QUndoCommand *parent)
    : QUndoCommand(parent), m_page(page), m_item(item)
{
}

AddAnnotationCommand::~AddAnnotationCommand() = default;

void AddAnnotationCommand::undo()
{
    m_page->takeOffScene(m_item.item());
}

void AddAnnotationCommand::redo()
{
    m_page->putOnScene(m_item.item());
    m_page->update();
}
