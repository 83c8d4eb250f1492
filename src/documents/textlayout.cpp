// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/textlayout.h"

#include <QPainter>
#include <QStyle>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// After changes of up to so many lines, formats are looked for on each of them, and shaped lines stay.
constexpr int fewLines = 64;
/// So many QTextLayouts stay laid out; more than a screenful, so that none is laid out twice for one painting.
constexpr size_t keptLayouts = 256;
/// Painted lines to keep on either side of what was painted last, which may be no more than the line of the caret.
constexpr int linesAround = 100;
constexpr double endless = std::numeric_limits<int>::max();

/// Has formats or text besides that of its block.
bool isFormatted(const QTextLayout *layout)
{
    return !layout->formats().isEmpty() || !layout->preeditAreaText().isEmpty();
}

/// The text itself decides whether it runs from left to right.
bool hasDirectionOfText(const QTextBlock &block)
{
    return block.blockFormat().layoutDirection() == Qt::LayoutDirectionAuto;
}

/// The text of all blocks from @p first to @p last with one character between each two; for all blocks at once it is
/// several times as fast as block by block.
QString textOf(const QTextBlock &first, const QTextBlock &last)
{
    if (first.blockNumber() == 0 && !last.next().isValid())
        return first.document()->toRawText();
    QTextCursor cursor(first);
    cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

/// Where the caret at @p cursor of the document stands in @p block, whose layout is @p layout; -1 if elsewhere.
int caretIn(const QTextBlock &block, const QTextLayout &layout, int cursor)
{
    // Positions in the input method's text are counted down from -2.
    if (cursor < -1 && !layout.preeditAreaText().isEmpty())
        return layout.preeditAreaPosition() - (cursor + 2);
    return block.contains(cursor) ? cursor - block.position() : -1;
}

/// The selections of @p context that meet @p block, in positions of the block. Without @p layout it is all one line.
QList<QTextLayout::FormatRange> selectionsIn(const QTextBlock &block,
                                             const QAbstractTextDocumentLayout::PaintContext &context,
                                             const QTextLayout *layout)
{
    QList<QTextLayout::FormatRange> ranges;
    for (const QAbstractTextDocumentLayout::Selection &selection : context.selections) {
        const int start = selection.cursor.selectionStart() - block.position();
        const int end = selection.cursor.selectionEnd() - block.position();
        if (start < block.length() && end > 0 && end > start) {
            ranges.append({start, end - start, selection.format});
        } else if (!selection.cursor.hasSelection() && selection.format.hasProperty(QTextFormat::FullWidthSelection) &&
                   block.contains(selection.cursor.position())) {
            if (!layout) {
                ranges.append({0, block.length(), selection.format});
                continue;
            }
            const QTextLine line = layout->lineForTextPosition(selection.cursor.position() - block.position());
            // The line end belongs to the line.
            const int lineEnd = line.textStart() + line.textLength() == block.length() - 1 ? 1 : 0;
            ranges.append({line.textStart(), line.textLength() + lineEnd, selection.format});
        }
    }
    return ranges;
}

} // namespace

TextLayout::TextLayout(QTextDocument *document) : QAbstractTextDocumentLayout(document) {}

TextLayout::~TextLayout() = default;

void TextLayout::setHighlighted(bool highlighted)
{
    m_highlighted = highlighted;
}

double TextLayout::margin() const
{
    return std::round(document()->documentMargin());
}

double TextLayout::lineTop(int number) const
{
    return margin() + static_cast<double>(m_lines.top(number));
}

double TextLayout::lineHeight(int number) const
{
    return lineTop(number + 1) - lineTop(number);
}

QSizeF TextLayout::documentSize() const
{
    return {static_cast<double>(m_lines.width()) / 64 + 2 * margin(),
            static_cast<double>(m_lines.height()) + 2 * margin()};
}

int TextLayout::pageCount() const
{
    const double pageHeight = document()->pageSize().height();
    return pageHeight > 0 ? static_cast<int>(std::ceil(documentSize().height() / pageHeight)) : 1;
}

QRectF TextLayout::frameBoundingRect(QTextFrame *frame) const
{
    return frame == document()->rootFrame() ? QRectF(QPointF(), documentSize()) : QRectF();
}

QRectF TextLayout::blockBoundingRect(const QTextBlock &block) const
{
    if (!block.isValid() || block.document() != document())
        return {};
    if (LongLine::isLong(block)) {
        const int number = std::min(block.blockNumber(), m_lines.count() - 1);
        const LineTable::Line line = number < 0 ? LineTable::Line() : m_lines.at(number);
        return {margin(), lineTop(number), static_cast<double>(line.width) / 64, static_cast<double>(line.height)};
    }
    const QTextLayout *layout = laidOut(block);
    QRectF rect = layout->boundingRect();
    rect.moveTopLeft(layout->position());
    return rect;
}

QRectF TextLayout::caretRect(int position) const
{
    const QTextBlock block = document()->findBlock(position);
    if (!block.isValid())
        return {};
    const int inBlock = position - block.position();
    if (LongLine *line = longLine(block))
        return {margin() + line->caretX(block, inBlock), lineTop(block.blockNumber()),
                static_cast<double>(m_cursorWidth), static_cast<double>(line->height())};
    if (LongLine::isLong(block))
        return {};
    const QTextLayout *layout = laidOut(block);
    const QTextLine line = layout->lineForTextPosition(inBlock);
    return {layout->position() + QPointF(line.cursorToX(inBlock), line.y()), QSizeF(m_cursorWidth, line.height())};
}

LongLine *TextLayout::longLine(const QTextBlock &block) const
{
    LongLine *line = LongLine::isLong(block) ? m_longLines.find(block.blockNumber()) : nullptr;
    // Until the layout hears of a change there may be another line.
    return line && line->length() == block.length() - 1 ? line : nullptr;
}

int TextLayout::hitTestLong(const QTextBlock &block, const QPointF &point, Qt::HitTestAccuracy accuracy) const
{
    LongLine *line = longLine(block);
    const bool isBelow = line && point.y() >= line->textHeight();
    if (!line || isBelow)
        return accuracy == Qt::ExactHit ? -1 : block.position() + (isBelow ? block.length() - 1 : 0);
    bool exact = false;
    const int position = line->positionAt(
        block, point.x(), accuracy == Qt::ExactHit ? QTextLine::CursorOnCharacter : QTextLine::CursorBetweenCharacters,
        &exact);
    return exact || accuracy == Qt::FuzzyHit ? block.position() + position : -1;
}

int TextLayout::hitTest(const QPointF &exactPoint, Qt::HitTestAccuracy accuracy) const
{
    // Qt's text engine counts in 64ths of a pixel.
    const QPointF point(std::trunc(exactPoint.x() * 64) / 64, std::trunc(exactPoint.y() * 64) / 64);
    const int last = document()->characterCount() - 1;
    const int notHit = accuracy == Qt::ExactHit ? -1 : 0;
    if (m_lines.count() == 0 || point.y() < margin())
        return notHit;
    // A point on the border of two lines belongs to the upper one.
    int number = m_lines.indexAt(point.y() - margin());
    if (number > 0 && point.y() == lineTop(number))
        --number;
    const QTextBlock block = document()->findBlockByNumber(number);
    // Within a change the document may have fewer lines already.
    if (!block.isValid())
        return notHit;
    const QRectF rect = blockBoundingRect(block);
    const QPointF inBlock = point - rect.topLeft();
    if (inBlock.y() > rect.height())
        return accuracy == Qt::ExactHit ? -1 : std::min(last, block.position() + block.length());
    if (LongLine::isLong(block))
        return hitTestLong(block, inBlock, accuracy);
    const QTextLayout *layout = laidOut(block);

    int offset = 0;
    bool exact = false;
    for (int i = 0; i < layout->lineCount(); ++i) {
        const QTextLine line = layout->lineAt(i);
        const QRectF text = line.naturalTextRect();
        if (text.top() > inBlock.y()) {
            offset = std::min(offset, line.textStart());
        } else if (text.bottom() <= inBlock.y()) {
            offset = std::max(offset, line.textStart() + line.textLength());
        } else {
            exact = text.left() <= inBlock.x() && text.right() >= inBlock.x();
            offset = line.xToCursor(inBlock.x(), accuracy == Qt::ExactHit ? QTextLine::CursorOnCharacter
                                                                          : QTextLine::CursorBetweenCharacters);
            break;
        }
    }
    if (accuracy == Qt::ExactHit && !exact)
        return -1;
    return std::min(last + static_cast<int>(layout->preeditAreaText().size()), block.position() + offset);
}

void TextLayout::draw(QPainter *painter, const PaintContext &context)
{
    releaseOldest();
    const QRectF &clip = context.clip;
    const QSizeF size = documentSize();
    if (m_lines.count() == 0 || (clip.isValid() && (clip.bottom() < 0 || clip.top() > size.height() ||
                                                    clip.right() < 0 || clip.left() > size.width())))
        return;

    int first = 0;
    int last = m_lines.count() - 1;
    QRectF inside = QRectF(QPointF(), size).adjusted(margin(), 0, -margin(), 0);
    if (clip.isValid()) {
        // A line that only touches the clip may still reach into it.
        first = std::max(0, m_lines.indexAt(clip.top() - margin()) - 1);
        last = m_lines.indexAt(clip.bottom() - margin());
        inside &= clip;
    }
    // Until the layout hears of a change, the document's blocks may have other numbers than its lines.
    const bool amidChange = m_lines.count() != document()->blockCount();
    if (amidChange)
        m_painted.clear();
    QTextBlock block = document()->findBlockByNumber(first);
    double y = lineTop(first);
    for (int number = first; number <= last && block.isValid(); ++number, block = block.next()) {
        const LineTable::Line line = m_lines.at(number);
        if (LongLine::isLong(block)) {
            drawLong(painter, context, inside.translated(-margin(), -y), block, y);
        } else {
            QTextLayout *layout = layoutToPaint(block, number, line);
            layout->setPosition(QPointF(margin(), y));
            drawBlock(painter, context, inside, block, layout);
        }
        y += line.height;
    }
    if (amidChange)
        m_painted.clear();
    else
        m_painted.keepAround(first, last, linesAround);
}

QTextLayout *TextLayout::layoutToPaint(const QTextBlock &block, int number, const LineTable::Line &line)
{
    if (line.formatted || std::ranges::find(m_laidOut, number) != m_laidOut.end())
        return laidOut(block);
    return m_painted.line(number, [this, &block] {
        auto layout = std::make_unique<QTextLayout>(block);
        layout->setCacheEnabled(true);
        layOut(layout.get(), block);
        return layout;
    });
}

void TextLayout::drawLong(QPainter *painter, const PaintContext &context, const QRectF &clip, const QTextBlock &block,
                          double y) const
{
    LongLine *line = longLine(block);
    if (!line)
        return;
    LongLine::Overlay overlay;
    overlay.selections = selectionsIn(block, context, nullptr);
    overlay.caretWidth = m_cursorWidth;
    overlay.caret = caretIn(block, *block.layout(), context.cursorPosition);
    const QPen oldPen = painter->pen();
    const QTransform oldTransform = painter->transform();
    painter->setPen(context.palette.color(QPalette::Text));
    painter->translate(margin(), y);
    line->draw(painter, block, clip, overlay);
    painter->setTransform(oldTransform);
    painter->setPen(oldPen);
}

void TextLayout::drawBlock(QPainter *painter, const PaintContext &context, const QRectF &clip, const QTextBlock &block,
                           QTextLayout *layout) const
{
    const QRectF rect = layout->boundingRect().translated(layout->position());
    if (context.clip.isValid() && (rect.bottom() < context.clip.top() || rect.top() > context.clip.bottom()))
        return;
    const QPen oldPen = painter->pen();
    painter->setPen(context.palette.color(QPalette::Text));
    layout->draw(painter, QPointF(), selectionsIn(block, context, layout), clip);
    if (const int caret = caretIn(block, *layout, context.cursorPosition); caret >= 0)
        layout->drawCursor(painter, QPointF(), caret, m_cursorWidth);
    painter->setPen(oldPen);
}

void TextLayout::documentChanged(int from, int removed, int added)
{
    m_meter.fit(*document());
    const int last = document()->blockCount() - 1;
    const int delta = last + 1 - m_lines.count();
    // The block behind the last changed character takes what was left of a block.
    const QTextBlock lastBlock = document()->findBlock(from + added);
    BlockRange now{std::max(0, document()->findBlock(from).blockNumber()),
                   lastBlock.isValid() ? lastBlock.blockNumber() : last};
    int lastBefore = now.last - delta;
    if (lastBefore < now.first - 1 || lastBefore >= m_lines.count()) {
        now = {0, last};
        lastBefore = m_lines.count() - 1;
    }

    const qint64 heightBefore = m_lines.height();
    const int countBefore = lastBefore - now.first + 1;
    const int countNow = now.last - now.first + 1;
    m_painted.replace(now.first, countBefore, countNow);
    moveLaidOut(now.first, countBefore, countNow);
    if (countBefore != 1 || countNow != 1 || !changeLong(now.first, from, removed, added)) {
        m_longLines.replace(now.first, countBefore, countNow);
        m_lines.replace(now.first, countBefore, countNow <= fewLines ? measureFew(now) : measureMany(now));
    }

    const QSizeF size = documentSize();
    if (size != m_size) {
        m_size = size;
        emit documentSizeChanged(size);
    }
    // What follows only moves when the height changed.
    const double changedTop = lineTop(now.first);
    const bool sameBelow = delta == 0 && heightBefore == m_lines.height();
    emit update(QRectF(0, changedTop, endless, sameBelow ? lineTop(now.last + 1) - changedTop : endless));
}

bool TextLayout::changeLong(int number, int from, int removed, int added)
{
    const QTextBlock block = document()->findBlockByNumber(number);
    LongLine *line = m_longLines.find(number);
    if (!line || !LongLine::isLong(block))
        return false;
    line->change(block, from - block.position(), removed, added);
    const LineTable::Line measured{line->width(), line->height(), false};
    m_lines.replace(number, 1, {&measured, 1});
    return true;
}

LineTable::Line TextLayout::measureLong(int number, const QTextBlock &block)
{
    LongLine &line = m_longLines[number];
    line = LongLine(&m_meter);
    line.measure(block);
    return {line.width(), line.height(), false};
}

std::vector<LineTable::Line> TextLayout::measureFew(BlockRange blocks)
{
    std::vector<LineTable::Line> lines;
    QTextBlock block = document()->findBlockByNumber(blocks.first);
    for (int number = blocks.first; number <= blocks.last; ++number, block = block.next()) {
        block.clearLayout();
        QTextLayout *layout = block.layout();
        const bool formatted = isFormatted(layout);
        m_highlighted = m_highlighted || (formatted && layout->preeditAreaText().isEmpty());
        if (LongLine::isLong(block)) {
            lines.push_back(measureLong(number, block));
            continue;
        }
        std::optional<LineTable::Line> line;
        if (hasDirectionOfText(block) && layout->preeditAreaText().isEmpty())
            line = m_meter.measure(block.text(), layout->formats());
        if (!line) {
            layout->setCacheEnabled(true);
            line = layOut(layout, block);
            m_laidOut.push_back(number);
        }
        line->formatted = formatted;
        lines.push_back(*line);
    }
    return lines;
}

std::vector<LineTable::Line> TextLayout::measureMany(BlockRange blocks)
{
    const QTextBlock first = document()->findBlockByNumber(blocks.first);
    const QString content = textOf(first, document()->findBlockByNumber(blocks.last));
    std::vector<LineTable::Line> lines;
    lines.reserve(static_cast<size_t>(blocks.last - blocks.first + 1));
    // Nearly all blocks have the same format, known by its index.
    int knownFormat = -1;
    qsizetype start = 0;
    QTextBlock block = first;
    for (int number = blocks.first; number <= blocks.last; ++number, block = block.next()) {
        block.clearLayout();
        if (block.blockFormatIndex() != knownFormat && hasDirectionOfText(block))
            knownFormat = block.blockFormatIndex();
        const bool formatted = m_highlighted && isFormatted(block.layout());
        const qsizetype length = block.length();
        const QStringView text = QStringView(content).mid(start, length - 1);
        start += length;
        if (LongLine::isLong(block)) {
            lines.push_back(measureLong(number, block));
            continue;
        }
        std::optional<LineTable::Line> line;
        if (block.blockFormatIndex() == knownFormat && (!formatted || block.layout()->preeditAreaText().isEmpty()))
            line = m_meter.measure(text, formatted ? block.layout()->formats() : QList<QTextLayout::FormatRange>());
        if (!line)
            line = measureByShaping(block, formatted);
        line->formatted = formatted;
        lines.push_back(*line);
    }
    return lines;
}

LineTable::Line TextLayout::measureByShaping(const QTextBlock &block, bool formatted) const
{
    if (!formatted) {
        QTextLayout layout(block);
        return layOut(&layout, block);
    }
    block.layout()->setCacheEnabled(false);
    const LineTable::Line line = layOut(block.layout(), block);
    block.layout()->clearLayout();
    return line;
}

LineTable::Line TextLayout::layOut(QTextLayout *layout, const QTextBlock &block) const
{
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(block.textDirection());
    option.setAlignment(QStyle::visualAlignment(block.textDirection(), option.alignment()));
    option.setWrapMode(QTextOption::ManualWrap);
    layout->setTextOption(option);
    double width = 0;
    double y = 0;
    double bottom = 0;
    layout->beginLayout();
    // A block has several lines where its text holds line separators.
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        // Too narrow for anything, so that the text alone gives the width.
        line.setLineWidth(-1.0);
        line.setLineWidth(line.naturalTextWidth());
        line.setPosition(QPointF(0, y));
        width = std::max(width, line.naturalTextWidth());
        bottom = y + line.height();
        y += std::ceil(line.ascent() + line.descent() + line.leading());
    }
    layout->endLayout();
    LineTable::Line line;
    line.width = qRound(width * 64);
    line.height = static_cast<int>(std::max(y, bottom));
    return line;
}

QTextLayout *TextLayout::laidOut(const QTextBlock &block) const
{
    QTextLayout *layout = block.layout();
    if (layout->lineCount() == 0) {
        layout->setCacheEnabled(true);
        layOut(layout, block);
        m_laidOut.push_back(block.blockNumber());
    }
    layout->setPosition(QPointF(margin(), lineTop(block.blockNumber())));
    return layout;
}

void TextLayout::moveLaidOut(int first, int before, int now)
{
    std::erase_if(m_laidOut, [=](int number) { return number >= first && number < first + before; });
    for (int &number : m_laidOut) {
        if (number >= first)
            number += now - before;
    }
}

void TextLayout::releaseOldest()
{
    if (m_laidOut.size() <= keptLayouts)
        return;
    const auto kept = m_laidOut.end() - static_cast<std::ptrdiff_t>(keptLayouts);
    for (auto number = m_laidOut.begin(); number != kept; ++number) {
        QTextBlock block = document()->findBlockByNumber(*number);
        if (!block.isValid())
            continue;
        block.clearLayout();
        // An empty round lets go of the shaped text too.
        block.layout()->setCacheEnabled(false);
        block.layout()->beginLayout();
        block.layout()->endLayout();
    }
    m_laidOut.erase(m_laidOut.begin(), kept);
}
