// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/clippedtextitem.h"
#include "documents/longlinekeys.h"

class Page;
class TextLayout;

/// The item of a document's text. Whatever comes in by key, input method or drop is taken as plain text in lines, as
/// the file will hold it, and marks the page as modified. In long lines, of which Qt's text control knows no places,
/// the item sees to the caret itself.
class DocumentTextItem : public ClippedTextItem
{
    Q_OBJECT

public:
    /// @p page must outlive the item.
    explicit DocumentTextItem(Page *page);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void dropEvent(QGraphicsSceneDragDropEvent *event) override;

private slots:
    void updateLongLine();
    void showCaret(const QRectF &rect);

private:
    bool isEditable() const;
    void takeOverCaret();
    const TextLayout *layoutOfLongLine() const;

    Page *m_page;
    LongLineKeys m_longLineKeys{this};
    QRectF m_caretLine; ///< The long line in which the caret was last; null if it was in another.
};
