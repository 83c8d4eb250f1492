// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documenttextitem.h"

#include "documents/clipboardtext.h"
#include "documents/documentitem.h"
#include "documents/page.h"

#include <QGraphicsSceneDragDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

DocumentTextItem::DocumentTextItem(Page *page) : m_page(page) {}

bool DocumentTextItem::isEditable() const
{
    return textInteractionFlags().testFlag(Qt::TextEditable);
}

void DocumentTextItem::keyPressEvent(QKeyEvent *event)
{
    if (isEditable() && event->matches(QKeySequence::Paste)) {
        // Qt would insert the formatted text that other programs offer beside the plain one.
        m_page->setModified(true);
        m_page->documentItem()->pasteText(clipboardText());
        event->accept();
    } else if (isEditable() && event->matches(QKeySequence::InsertLineSeparator)) {
        // A line separator would be no line end in the file.
        QKeyEvent lineEnd(event->type(), Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        ClippedTextItem::keyPressEvent(&lineEnd);
        event->accept();
    } else {
        ClippedTextItem::keyPressEvent(event);
    }
}

void DocumentTextItem::inputMethodEvent(QInputMethodEvent *event)
{
    if (isEditable() && !event->commitString().isEmpty())
        m_page->setModified(true);
    ClippedTextItem::inputMethodEvent(event);
}

void DocumentTextItem::dropEvent(QGraphicsSceneDragDropEvent *event)
{
    const QMimeData *offered = event->mimeData();
    if (!isEditable() || !offered || !offered->hasText()) {
        event->ignore();
        return;
    }
    QMimeData plain;
    plain.setText(offered->text());
    m_page->setModified(true);
    event->setMimeData(&plain);
    ClippedTextItem::dropEvent(event);
    event->setMimeData(offered);
}
