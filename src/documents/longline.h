// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/linecache.h"

#include <QRectF>
#include <QStringView>
#include <QTextLayout>

#include <vector>

class LineMeter;
class QPainter;
class QTextBlock;

/// A line too long to be shaped as a whole at every key, cut into pieces of about a thousand characters.
///
/// A piece is shaped only when it is painted or asked for a position in it, and starts where the one before ends. It
/// ends behind a blank where one is near, and never within a character; what two fonts or letters on either side of a
/// cut would do to each other (kerning, joining) is lost there. Where text runs from right to left each piece does,
/// but the pieces follow each other from left to right. Line separators are shown as blanks.
///
/// x is in pixels from the line's left edge, widths are in 64ths of a pixel; positions are the block's.
class LongLine
{
public:
    /// Whether @p block is to be shown as one.
    static bool isLong(const QTextBlock &block);

    /// @p meter is not owned; it fits the document.
    explicit LongLine(LineMeter *meter = nullptr) : m_meter(meter) {}

    /// Measures all of @p block.
    void measure(const QTextBlock &block);
    /// Measures what is new after @p removed characters at @p from of @p block gave way to @p added ones.
    void change(const QTextBlock &block, int from, int removed, int added);

    /// Count of characters.
    int length() const { return m_length; }
    qint64 width() const { return m_width; }
    /// Whole pixels, the space to the next line included.
    int height() const { return m_height; }
    /// In pixels, of the letters alone.
    double textHeight() const { return m_textHeight; }

    /// Where the caret stands before character @p position.
    double caretX(const QTextBlock &block, int position);
    /// The position at @p x. @p exact tells whether a character is there.
    int positionAt(const QTextBlock &block, double x, QTextLine::CursorPosition accuracy, bool *exact);

    /// What lies above the text in a painting; positions of the block.
    struct Overlay
    {
        QList<QTextLayout::FormatRange> selections;
        int caret = -1; ///< -1 for none. Within the text of an input method it counts on from where that stands.
        int caretWidth = 1;
    };
    /// Paints what lies within @p clip, with the line's upper left corner at the painter's origin.
    void draw(QPainter *painter, const QTextBlock &block, const QRectF &clip, const Overlay &overlay);

private:
    struct Piece
    {
        int start = 0;
        int length = 0;
        qint64 x = 0;
        int advance = 0;
        int overhang = 0;
        double ascent = 0;
        double descent = 0;
        double leading = 0;
        bool hasTab = false;
    };

    int pieceOf(int position) const;
    int pieceAt(double x) const;
    int tabPhase(qint64 x) const;
    double originOf(const Piece &piece) const;
    bool holds(const Piece &piece, int position) const;

    std::vector<Piece> cut(const QTextBlock &block, int from, int to) const;
    void sizeUp(const QTextBlock &block, QStringView text, Piece *piece) const;
    void place(const QTextBlock &block, int first);
    void sumUp();
    QList<QTextLayout::FormatRange> formatsOf(const QTextBlock &block, const Piece &piece) const;
    std::unique_ptr<QTextLayout> shape(const QTextBlock &block, QStringView text, const Piece &piece) const;
    QTextLayout *shaped(const QTextBlock &block, int index);
    void drawPiece(QPainter *painter, const QTextBlock &block, int index, const QRectF &clip, const Overlay &overlay);

    LineMeter *m_meter;
    std::vector<Piece> m_pieces; ///< Never empty once measured.
    LineCache m_shaped;
    int m_length = 0;
    qint64 m_width = 0;
    int m_height = 0;
    double m_textHeight = 0;
    double m_ascent = 0;
};
