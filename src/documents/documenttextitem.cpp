// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documenttextitem.h"

#include "annotations/plaintextdrop.h"
#include "app/clipboardtext.h"
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/textlayout.h"

#include <QGraphicsSceneDragDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

DocumentTextItem::DocumentTextItem(Page *page) : m_page(page)
{
    takeOverCaret();
}

/// The item's text control, a child of the item that is no public class, asks with signals for what it wants painted
/// and seen.
void DocumentTextItem::takeOverCaret()
{
    document(); // Makes the control.
    for (QObject *control : children()) {
        if (!control->inherits("QWidgetTextControl"))
            continue;
        connect(control, SIGNAL(updateRequest(QRectF)), this, SLOT(updateLongLine()));
        disconnect(control, SIGNAL(visibilityRequest(QRectF)), this, nullptr);
        connect(control, SIGNAL(visibilityRequest(QRectF)), this, SLOT(showCaret(QRectF)));
    }
}

const TextLayout *DocumentTextItem::layoutOfLongLine() const
{
    return LongLine::isLong(textCursor().block()) ? qobject_cast<TextLayout *>(document()->documentLayout()) : nullptr;
}

void DocumentTextItem::updateLongLine()
{
    if (!m_caretLine.isNull())
        update(m_caretLine);
    const TextLayout *layout = layoutOfLongLine();
    m_caretLine = layout ? layout->blockBoundingRect(textCursor().block()) : QRectF();
    if (layout)
        update(m_caretLine);
}

void DocumentTextItem::showCaret(const QRectF &rect)
{
    // So much of the text beside the caret is to be seen with it, as of ordinary lines.
    constexpr double beside = 5.0;
    if (!hasFocus())
        return;
    const TextLayout *layout = layoutOfLongLine();
    const QRectF caret = layout ? layout->caretRect(textCursor().position()) : QRectF();
    ensureVisible(caret.isNull() ? rect : caret.adjusted(-beside, 0, beside, 0), 0, 0);
}

QVariant DocumentTextItem::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const TextLayout *layout = query == Qt::ImCursorRectangle ? layoutOfLongLine() : nullptr;
    return layout ? layout->caretRect(textCursor().position()) : ClippedTextItem::inputMethodQuery(query);
}

void DocumentTextItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    // Every double click starts with a click, which has put the caret there.
    if (!isEditable() || !m_longLineKeys.selectWord())
        ClippedTextItem::mouseDoubleClickEvent(event);
}

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
    } else if (isEditable() && m_longLineKeys.press(*event)) {
        event->accept();
    } else {
        ClippedTextItem::keyPressEvent(event);
    }
}

void DocumentTextItem::dropEvent(QGraphicsSceneDragDropEvent *event)
{
    if (!isEditable() || !PlainTextDrop::isOffered(event)) {
        event->ignore();
        return;
    }
    const PlainTextDrop plain(event);
    ClippedTextItem::dropEvent(event);
}
