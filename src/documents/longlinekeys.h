// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QGraphicsTextItem;
class QKeyEvent;

/// Keys that move the caret within a long line of a text item, or onto one, or delete there, all as Qt would.
///
/// Qt looks at the whole line for the next character or word, half a second for ten megabytes; here it is some hundred
/// characters. Words longer than these count as several.
class LongLineKeys
{
public:
    /// @p item must outlive this; it is to show a document with a TextLayout.
    explicit LongLineKeys(QGraphicsTextItem *item) : m_item(item) {}

    /// Does what @p event asks for; false if Qt can do it as well.
    bool press(const QKeyEvent &event) const;
    /// Selects the word at the caret; false if the caret is in no long line.
    bool selectWord() const;

private:
    bool moveAlong(const QKeyEvent &event) const;
    bool moveAcross(const QKeyEvent &event) const;
    bool removeText(const QKeyEvent &event) const;

    QGraphicsTextItem *m_item;
};
