// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/linecache.h"
#include "documents/linemeter.h"
#include "documents/linetable.h"
#include "documents/longline.h"

#include <QAbstractTextDocumentLayout>
#include <QSizeF>

#include <vector>

class QTextBlock;
class QTextLayout;

/// Layout of a document of plain, unwrapped text, for texts of any length.
///
/// Stands in for Qt's own layout (`document->setDocumentLayout(new TextLayout(document))`, the document takes
/// ownership) and gives the same pixels, positions and sizes for what it is made for: text in the document's default
/// font, lines as long as their text, no frames, tables, lists, pictures or pages. Formats that a highlighter or an
/// input method sets on the blocks are shown, and counted where they change the font. Coordinates are the document's:
/// pixels from its upper left corner, the document margin included.
///
/// A change of the text costs what the changed lines cost, wherever they are; in a long line (see LongLine), what some
/// thousand characters cost. Size and places of lines are always
/// exact, of every line. Only lines that a caret, a search or formats ask for get a QTextLayout of their own; of the
/// others, those around what was painted last are kept.
class TextLayout : public QAbstractTextDocumentLayout
{
    Q_OBJECT
    Q_PROPERTY(int cursorWidth READ cursorWidth WRITE setCursorWidth)

public:
    explicit TextLayout(QTextDocument *document);
    ~TextLayout() override;

    /// Tells that a highlighter works on the document. To be set before text is put into the document: after a change
    /// of many lines, formats are then looked for on each of them. Otherwise only changes of a few lines are looked
    /// at (which sets it as soon as there is a format), because the look alone costs 300 bytes for a line.
    void setHighlighted(bool highlighted);

    /// Width of the caret in pixels, 1 at first. The text control sets and reads it by the property's name.
    int cursorWidth() const { return m_cursorWidth; }
    void setCursorWidth(int width) { m_cursorWidth = width; }

    int lineCount() const { return m_lines.count(); }
    /// Upper edge and height of line @p number, which is bounded to the lines there are and their end.
    double lineTop(int number) const;
    double lineHeight(int number) const;

    void draw(QPainter *painter, const PaintContext &context) override;
    int hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const override;
    /// 1, unless the document has a page height.
    int pageCount() const override;
    QSizeF documentSize() const override;
    /// That of the whole document, for there is no other frame.
    QRectF frameBoundingRect(QTextFrame *frame) const override;
    /// Also lays out the block's own QTextLayout, unless it is a long line; null for a block that is not in the
    /// document.
    QRectF blockBoundingRect(const QTextBlock &block) const override;
    /// The caret before character @p position of the document, as high as its line; null if there is none. Right also
    /// in long lines, whose QTextLayout stays empty.
    QRectF caretRect(int position) const;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    struct BlockRange
    {
        int first;
        int last;
    };

    double margin() const;
    LongLine *longLine(const QTextBlock &block) const;
    int hitTestLong(const QTextBlock &block, const QPointF &point, Qt::HitTestAccuracy accuracy) const;
    void drawLong(QPainter *painter, const PaintContext &context, const QRectF &clip, const QTextBlock &block,
                  double y) const;
    QTextLayout *layoutToPaint(const QTextBlock &block, int number, const LineTable::Line &line);
    void drawBlock(QPainter *painter, const PaintContext &context, const QRectF &clip, const QTextBlock &block,
                   QTextLayout *layout) const;

    bool changeLong(int number, int from, int removed, int added);
    LineTable::Line measureLong(int number, const QTextBlock &block);
    std::vector<LineTable::Line> measureFew(BlockRange blocks);
    std::vector<LineTable::Line> measureMany(BlockRange blocks);
    LineTable::Line measureByShaping(const QTextBlock &block, bool formatted) const;

    LineTable::Line layOut(QTextLayout *layout, const QTextBlock &block) const;
    QTextLayout *laidOut(const QTextBlock &block) const;
    void moveLaidOut(int first, int before, int now);
    void releaseOldest();

    LineTable m_lines;
    LineMeter m_meter;
    LineCache m_painted; ///< Lines whose block has no layout of its own.
    mutable LineMap<LongLine> m_longLines;
    QSizeF m_size;
    int m_cursorWidth = 1;
    bool m_highlighted = false;
    /// Numbers of the blocks whose own QTextLayout is laid out, latest last.
    mutable std::vector<int> m_laidOut;
};
