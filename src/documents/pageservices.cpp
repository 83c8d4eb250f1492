// SPDX-License-Identifier: GPL-3.0-or-later
// What a page does with its document as a whole: printing, searching, counting lines.
#include "app/eventlog.h"
#include "documents/documentitem.h"
#include "documents/linecounter.h"
#include "documents/page.h"
#include "documents/sheetprinter.h"

#include <QAbstractTextDocumentLayout>
#include <QGraphicsTextItem>
#include <QMessageBox>
#include <QTextBlock>
#include <QTextDocument>

bool Page::printPage(QPrinter *printer)
{
    (logTrace << "Print page").eol(0);
    if (printer)
        SheetPrinter(this, printer).print();
    return true;
}

bool Page::searchText(const QString &text, bool caseSensitive, bool wholeWords, bool forward)
{
    // Scene units of document that stay in sight around the line that was found.
    constexpr int seenAround = 50;
    QTextDocument::FindFlags flags;
    flags.setFlag(QTextDocument::FindCaseSensitively, caseSensitive);
    flags.setFlag(QTextDocument::FindWholeWords, wholeWords);
    flags.setFlag(QTextDocument::FindBackward, !forward);
    m_searchCursor = textDocument()->find(text, m_searchCursor, flags);
    if (m_searchCursor.isNull()) {
        QMessageBox::information(nullptr, tr("Search Text"), tr("Document searching finished."), QMessageBox::Ok);
        resetSearch();
        return false;
    }
    QGraphicsTextItem *item = m_documentItem->textItem();
    item->setTextCursor(m_searchCursor);
    item->ensureVisible(textDocument()->documentLayout()->blockBoundingRect(m_searchCursor.block()), seenAround,
                        seenAround);
    return true;
}

void Page::countLines(int &total, int &code, int &comments, int &empty)
{
    const LineCounts counts = countLinesOf(QStringLiteral("bla"));
    total = counts.total;
    code = counts.code;
    comments = counts.comments;
    empty = counts.empty;
}

bool Page::isCommentLine(const QString &line)
{
    return startsLineComment(line);
}
