// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/longlinekeys.h"

#include "documents/longline.h"
#include "documents/textlayout.h"

#include <QGraphicsTextItem>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <functional>

namespace {

/// So many characters on either side of the caret are looked at.
constexpr int reach = 512;

struct KeyMove
{
    QKeySequence::StandardKey key;
    QTextCursor::MoveOperation operation;
    QTextCursor::MoveMode mode;
};

constexpr KeyMove movesAlong[] = {
    {QKeySequence::MoveToNextChar, QTextCursor::Right, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToPreviousChar, QTextCursor::Left, QTextCursor::MoveAnchor},
    {QKeySequence::SelectNextChar, QTextCursor::Right, QTextCursor::KeepAnchor},
    {QKeySequence::SelectPreviousChar, QTextCursor::Left, QTextCursor::KeepAnchor},
    {QKeySequence::MoveToNextWord, QTextCursor::WordRight, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToPreviousWord, QTextCursor::WordLeft, QTextCursor::MoveAnchor},
    {QKeySequence::SelectNextWord, QTextCursor::WordRight, QTextCursor::KeepAnchor},
    {QKeySequence::SelectPreviousWord, QTextCursor::WordLeft, QTextCursor::KeepAnchor},
};

constexpr KeyMove movesAcross[] = {
    {QKeySequence::MoveToNextLine, QTextCursor::Down, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToPreviousLine, QTextCursor::Up, QTextCursor::MoveAnchor},
    {QKeySequence::SelectNextLine, QTextCursor::Down, QTextCursor::KeepAnchor},
    {QKeySequence::SelectPreviousLine, QTextCursor::Up, QTextCursor::KeepAnchor},
};

constexpr KeyMove removals[] = {
    {QKeySequence::Delete, QTextCursor::NextCharacter, QTextCursor::KeepAnchor},
    {QKeySequence::DeleteEndOfWord, QTextCursor::NextWord, QTextCursor::KeepAnchor},
    {QKeySequence::DeleteStartOfWord, QTextCursor::PreviousWord, QTextCursor::KeepAnchor},
};

template<size_t count> const KeyMove *moveOf(const QKeyEvent &event, const KeyMove (&moves)[count])
{
    const auto found = std::ranges::find_if(moves, [&event](const KeyMove &move) { return event.matches(move.key); });
    return found == std::end(moves) ? nullptr : found;
}

/// Does to @p cursor what @p action does to a cursor at its place in the text around it within its block. False if
/// that does nothing, as at the ends of the block.
bool actNearby(QTextCursor *cursor, QTextCursor::MoveMode mode, const std::function<void(QTextCursor *)> &action)
{
    const QTextBlock block = cursor->block();
    const int place = cursor->position();
    const int from = std::max(block.position(), place - reach);
    const int to = std::min(block.position() + block.length() - 1, place + reach);
    QTextCursor around(block);
    around.setPosition(from);
    around.setPosition(to, QTextCursor::KeepAnchor);
    QTextDocument nearby;
    nearby.setPlainText(around.selectedText());
    QTextCursor inside(&nearby);
    inside.setPosition(place - from);
    action(&inside);
    if (inside.position() == place - from && !inside.hasSelection())
        return false;
    if (inside.hasSelection()) {
        cursor->setPosition(from + inside.anchor());
        mode = QTextCursor::KeepAnchor;
    }
    cursor->setPosition(from + inside.position(), mode);
    return true;
}

} // namespace

bool LongLineKeys::press(const QKeyEvent &event) const
{
    return moveAcross(event) ||
           (LongLine::isLong(m_item->textCursor().block()) && (moveAlong(event) || removeText(event)));
}

bool LongLineKeys::selectWord() const
{
    QTextCursor cursor = m_item->textCursor();
    if (!LongLine::isLong(cursor.block()))
        return false;
    actNearby(&cursor, QTextCursor::MoveAnchor, [](QTextCursor *each) { each->select(QTextCursor::WordUnderCursor); });
    m_item->setTextCursor(cursor);
    return true;
}

bool LongLineKeys::moveAlong(const QKeyEvent &event) const
{
    const KeyMove *move = moveOf(event, movesAlong);
    QTextCursor cursor = m_item->textCursor();
    // An unshifted arrow first goes to the end of the selection.
    if (!move || (cursor.hasSelection() && move->mode == QTextCursor::MoveAnchor))
        return false;
    if (!actNearby(&cursor, move->mode, [move](QTextCursor *each) { each->movePosition(move->operation); }))
        return false;
    m_item->setTextCursor(cursor);
    return true;
}

bool LongLineKeys::moveAcross(const QKeyEvent &event) const
{
    QTextCursor cursor = m_item->textCursor();
    const QTextBlock block = cursor.block();
    if (!LongLine::isLong(block) && !LongLine::isLong(block.next()) && !LongLine::isLong(block.previous()))
        return false;
    const auto *layout = qobject_cast<TextLayout *>(m_item->document()->documentLayout());
    const KeyMove *move = moveOf(event, movesAcross);
    if (!move || !layout)
        return false;
    const bool down = move->operation == QTextCursor::Down;
    const QTextBlock target = down ? block.next() : block.previous();
    if (!LongLine::isLong(block) && !LongLine::isLong(target))
        return false;
    if (!target.isValid()) {
        // With no line to go to, only a selection reaches to the end of this one.
        if (move->mode == QTextCursor::KeepAnchor)
            cursor.movePosition(down ? QTextCursor::EndOfBlock : QTextCursor::StartOfBlock, move->mode);
        m_item->setTextCursor(cursor);
        return true;
    }
    const QRectF rect = layout->blockBoundingRect(target);
    const int wish = cursor.verticalMovementX();
    const double x = wish >= 0 ? wish : layout->caretRect(cursor.position()).left() - rect.left();
    const QPointF place(rect.left() + x, down ? rect.top() + 1 : rect.bottom() - 1);
    cursor.setPosition(layout->hitTest(place, Qt::FuzzyHit), move->mode);
    cursor.setVerticalMovementX(static_cast<int>(x));
    m_item->setTextCursor(cursor);
    return true;
}

bool LongLineKeys::removeText(const QKeyEvent &event) const
{
    const KeyMove *move = moveOf(event, removals);
    QTextCursor cursor = m_item->textCursor();
    if (!move || cursor.hasSelection())
        return false;
    if (!actNearby(&cursor, move->mode, [move](QTextCursor *each) { each->movePosition(move->operation); }))
        return false;
    cursor.removeSelectedText();
    m_item->setTextCursor(cursor);
    return true;
}
