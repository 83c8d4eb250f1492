// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/longline.h"

#include "documents/linemeter.h"

#include <QPainter>
#include <QStyle>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace {

/// Characters in the longest line that is shaped as a whole, which then takes some ten milliseconds.
constexpr int longestOrdinary = 64 * 1024;
constexpr int pieceLength = 1024;
/// So far back from there a blank is looked for.
constexpr int blankDistance = 128;
/// Shaped pieces to keep on either side of what was asked for last; a view shows fewer.
constexpr int piecesAround = 32;

/// Line ends and separators are one character each in either text.
QString textBetween(const QTextBlock &block, int from, int to)
{
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + from);
    cursor.setPosition(block.position() + to, QTextCursor::KeepAnchor);
    return cursor.selectedText().replace(QChar::LineSeparator, QLatin1Char(' '));
}

/// How much of @p text makes a piece.
qsizetype pieceIn(QStringView text)
{
    if (text.size() <= pieceLength)
        return text.size();
    const qsizetype from = pieceLength - blankDistance;
    const qsizetype blank = text.sliced(from, blankDistance).lastIndexOf(QLatin1Char(' '));
    if (blank >= 0)
        return from + blank + 1;
    const QStringView around = text.sliced(from, std::min<qsizetype>(2 * blankDistance, text.size() - from));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, around.data(), around.size());
    finder.setPosition(blankDistance);
    const qsizetype boundary = finder.isAtBoundary() ? blankDistance : finder.toPreviousBoundary();
    return boundary > 0 ? from + boundary : pieceLength;
}

/// Text that an input method has not committed yet, shown within the block.
struct Preedit
{
    explicit Preedit(const QTextBlock &block)
        : position(block.layout()->preeditAreaPosition()), text(block.layout()->preeditAreaText())
    {
    }

    int position;
    QString text;
};

} // namespace

bool LongLine::isLong(const QTextBlock &block)
{
    return block.length() > longestOrdinary;
}

void LongLine::measure(const QTextBlock &block)
{
    m_length = block.length() - 1;
    m_pieces = cut(block, 0, m_length);
    m_shaped.clear();
    place(block, 0);
}

void LongLine::change(const QTextBlock &block, int from, int removed, int added)
{
    const int length = block.length() - 1;
    if (m_pieces.empty() || length != m_length - removed + added || from + removed > m_length) {
        measure(block);
        return;
    }
    // A new character may belong to the one before it. Small remains are joined with what follows.
    const int first = pieceOf(std::max(0, from - 1));
    const int lastTouched = pieceOf(from + removed);
    const int last = std::min(lastTouched + 1, static_cast<int>(m_pieces.size()) - 1);
    const int start = m_pieces[static_cast<size_t>(first)].start;
    const Piece &end = m_pieces[static_cast<size_t>(last)];
    const std::vector<Piece> fresh = cut(block, start, end.start + end.length - removed + added);
    m_length = length;
    m_shaped.replace(first, last - first + 1, static_cast<int>(fresh.size()));
    const auto behind = m_pieces.erase(m_pieces.begin() + first, m_pieces.begin() + last + 1);
    m_pieces.insert(behind, fresh.begin(), fresh.end());
    place(block, first);
}

int LongLine::pieceOf(int position) const
{
    const auto behind = std::ranges::upper_bound(m_pieces, position, {}, &Piece::start);
    return std::max(0, static_cast<int>(behind - m_pieces.begin()) - 1);
}

int LongLine::pieceAt(double x) const
{
    const auto behind = std::ranges::upper_bound(m_pieces, std::floor(x * 64), {},
                                                 [](const Piece &piece) { return static_cast<double>(piece.x); });
    return std::max(0, static_cast<int>(behind - m_pieces.begin()) - 1);
}

int LongLine::tabPhase(qint64 x) const
{
    return static_cast<int>(x % m_meter->tabStop());
}

double LongLine::originOf(const Piece &piece) const
{
    return static_cast<double>(piece.x - tabPhase(piece.x)) / 64;
}

bool LongLine::holds(const Piece &piece, int position) const
{
    const int end = piece.start + piece.length;
    return position >= piece.start && (position < end || (position == end && end == m_length));
}

std::vector<LongLine::Piece> LongLine::cut(const QTextBlock &block, int from, int to) const
{
    const QString text = textBetween(block, from, to);
    std::vector<Piece> pieces;
    QStringView rest = text;
    do {
        Piece piece;
        piece.start = to - static_cast<int>(rest.size());
        piece.length = static_cast<int>(pieceIn(rest));
        piece.hasTab = rest.first(piece.length).contains(QLatin1Char('\t'));
        // Tabs are as wide as their place tells, so these wait for it.
        if (!piece.hasTab)
            sizeUp(block, rest.first(piece.length), &piece);
        pieces.push_back(piece);
        rest = rest.sliced(piece.length);
    } while (!rest.isEmpty());
    return pieces;
}

void LongLine::sizeUp(const QTextBlock &block, QStringView text, Piece *piece) const
{
    const Preedit preedit(block);
    std::optional<LineMeter::Extent> extent;
    if (preedit.text.isEmpty() && block.blockFormat().layoutDirection() == Qt::LayoutDirectionAuto)
        extent = m_meter->measureFrom(tabPhase(piece->x), text, formatsOf(block, *piece));
    if (!extent) {
        const auto layout = shape(block, text, *piece);
        const QTextLine line = layout->lineAt(0);
        extent.emplace();
        extent->advance = qRound(line.horizontalAdvance() * 64);
        extent->overhang = qRound((line.naturalTextWidth() - line.horizontalAdvance()) * 64);
        extent->ascent = line.ascent();
        extent->descent = line.descent();
        extent->leading = line.leading();
    }
    piece->advance = static_cast<int>(extent->advance);
    piece->overhang = extent->overhang;
    piece->ascent = extent->ascent;
    piece->descent = extent->descent;
    piece->leading = extent->leading;
}

/// Places the pieces from @p first on, and the lines of tabs that moved to other stops.
void LongLine::place(const QTextBlock &block, int first)
{
    int start = 0;
    qint64 x = 0;
    if (first > 0) {
        const Piece &before = m_pieces[static_cast<size_t>(first) - 1];
        start = before.start + before.length;
        x = before.x + before.advance;
    }
    for (size_t i = static_cast<size_t>(first); i < m_pieces.size(); ++i) {
        Piece &piece = m_pieces[i];
        const bool samePhase = piece.advance > 0 && tabPhase(x) == tabPhase(piece.x);
        piece.start = start;
        piece.x = x;
        if (piece.hasTab && !samePhase) {
            sizeUp(block, textBetween(block, start, start + piece.length), &piece);
            m_shaped.replace(static_cast<int>(i), 1, 1);
        }
        start += piece.length;
        x += piece.advance;
    }
    sumUp();
}

void LongLine::sumUp()
{
    double descent = 0;
    double leading = m_pieces.front().leading;
    m_ascent = 0;
    for (const Piece &piece : m_pieces) {
        m_ascent = std::max(m_ascent, piece.ascent);
        descent = std::max(descent, piece.descent);
        leading = std::max(leading, piece.leading);
    }
    // A negative leading does not draw the next line nearer.
    m_textHeight = m_ascent + descent + std::max(leading, 0.0);
    m_height = qCeil(m_textHeight);
    const Piece &last = m_pieces.back();
    m_width = last.x + last.advance + last.overhang;
}

QList<QTextLayout::FormatRange> LongLine::formatsOf(const QTextBlock &block, const Piece &piece) const
{
    const QList<QTextLayout::FormatRange> formats = block.layout()->formats();
    if (formats.isEmpty())
        return {};
    // Ranges count the input method's text, pieces do not.
    const Preedit preedit(block);
    const int inserted = static_cast<int>(preedit.text.size());
    const bool isOwn = inserted > 0 && holds(piece, preedit.position);
    const int start = piece.start + (inserted > 0 && !isOwn && preedit.position < piece.start ? inserted : 0);
    const int end = start + piece.length + (isOwn ? inserted : 0);
    QList<QTextLayout::FormatRange> ranges;
    // Highlighters give them in order.
    auto range = std::ranges::partition_point(
        formats, [start](const QTextLayout::FormatRange &each) { return each.start + each.length <= start; });
    for (; range != formats.end() && range->start < end; ++range) {
        const int from = std::max(range->start, start);
        ranges.append({from - start, std::min(range->start + range->length, end) - from, range->format});
    }
    return ranges;
}

std::unique_ptr<QTextLayout> LongLine::shape(const QTextBlock &block, QStringView text, const Piece &piece) const
{
    const QTextDocument *document = block.document();
    auto layout = std::make_unique<QTextLayout>(text.toString(), document->defaultFont());
    QTextOption option = document->defaultTextOption();
    option.setTextDirection(block.textDirection());
    option.setAlignment(QStyle::visualAlignment(block.textDirection(), option.alignment()));
    option.setWrapMode(QTextOption::ManualWrap);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    const Preedit preedit(block);
    if (!preedit.text.isEmpty() && holds(piece, preedit.position))
        layout->setPreeditArea(preedit.position - piece.start, preedit.text);
    layout->setFormats(formatsOf(block, piece));
    layout->beginLayout();
    QTextLine line = layout->createLine();
    line.setLeadingIncluded(true);
    // Tab stops count from the line's origin.
    line.setPosition(QPointF(tabPhase(piece.x) / 64.0, 0));
    line.setLineWidth(-1.0);
    line.setLineWidth(line.naturalTextWidth());
    layout->endLayout();
    return layout;
}

QTextLayout *LongLine::shaped(const QTextBlock &block, int index)
{
    m_shaped.keepAround(index, index, piecesAround);
    return m_shaped.line(index, [&] {
        const Piece &piece = m_pieces[static_cast<size_t>(index)];
        return shape(block, textBetween(block, piece.start, piece.start + piece.length), piece);
    });
}

double LongLine::caretX(const QTextBlock &block, int position)
{
    const int index = pieceOf(position);
    const Piece &piece = m_pieces[static_cast<size_t>(index)];
    return originOf(piece) + shaped(block, index)->lineAt(0).cursorToX(position - piece.start);
}

int LongLine::positionAt(const QTextBlock &block, double x, QTextLine::CursorPosition accuracy, bool *exact)
{
    const int index = pieceAt(x);
    const Piece &piece = m_pieces[static_cast<size_t>(index)];
    *exact = x >= 0 && x <= static_cast<double>(m_width) / 64;
    const int inPiece = shaped(block, index)->lineAt(0).xToCursor(x - originOf(piece), accuracy);
    return std::min(m_length, piece.start + std::min(inPiece, piece.length));
}

void LongLine::draw(QPainter *painter, const QTextBlock &block, const QRectF &clip, const Overlay &overlay)
{
    // A glyph may reach over the edge of its piece.
    const int first = std::max(0, pieceAt(clip.left()) - 1);
    const int last = std::min(static_cast<int>(m_pieces.size()) - 1, pieceAt(clip.right()) + 1);
    for (int index = first; index <= last; ++index)
        drawPiece(painter, block, index, clip, overlay);
}

void LongLine::drawPiece(QPainter *painter, const QTextBlock &block, int index, const QRectF &clip,
                         const Overlay &overlay)
{
    const Piece &piece = m_pieces[static_cast<size_t>(index)];
    QTextLayout *layout = shaped(block, index);
    const bool isLast = piece.start + piece.length == m_length;
    // The line end belongs to the last piece.
    const int end = piece.length + (isLast ? 1 : 0);
    QList<QTextLayout::FormatRange> selections;
    for (QTextLayout::FormatRange range : overlay.selections) {
        const int from = std::max(range.start - piece.start, 0);
        const int to = std::min(range.start + range.length - piece.start, end);
        // The full width of a piece would cover the pieces before it.
        range.format.clearProperty(QTextFormat::FullWidthSelection);
        if (from < to)
            selections.append({from, to - from, range.format});
    }
    // The line may reach further than the text engine counts, so the painter takes the way.
    const QPointF origin(originOf(piece), std::round(m_ascent - piece.ascent));
    const QTransform lineTransform = painter->transform();
    painter->translate(origin);
    layout->draw(painter, QPointF(), selections, clip.translated(-origin));
    const Preedit preedit(block);
    const int caretPlace = preedit.text.isEmpty() ? overlay.caret : std::min(overlay.caret, preedit.position);
    if (holds(piece, caretPlace))
        layout->drawCursor(painter, QPointF(), overlay.caret - piece.start, overlay.caretWidth);
    painter->setTransform(lineTransform);
}
