// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/pastecommand.h"

#include "annotations/annotation.h"
#include "documents/page.h"

#include <QGraphicsItem>

PasteCommand::PasteCommand(Page *page, const QList<Annotation *> &annotations, QUndoCommand *parent)
    : QUndoCommand(parent), m_page(page)
{
    for (Annotation *annotation : annotations)
        m_items.append(MarkRef(dynamic_cast<QGraphicsItem *>(annotation)));
}

PasteCommand::~PasteCommand() = default;

void PasteCommand::undo()
{
    for (const MarkRef &mark : std::as_const(m_items))
        m_page->takeOffScene(mark.item());
}

void PasteCommand::redo()
{
    for (const MarkRef &mark : std::as_const(m_items))
        m_page->putOnScene(mark.item());
    m_page->update();
}
