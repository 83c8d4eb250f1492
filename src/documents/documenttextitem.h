// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/clippedtextitem.h"

class Page;

/// The item of a document's text. Whatever comes in by key, input method or drop is taken as plain text in lines, as
/// the file will hold it, and marks the page as modified.
class DocumentTextItem : public ClippedTextItem
{
public:
    /// @p page must outlive the item.
    explicit DocumentTextItem(Page *page);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void dropEvent(QGraphicsSceneDragDropEvent *event) override;

private:
    bool isEditable() const;

    Page *m_page;
};
