// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/textlayout.h"

#include "documents/textmeter.h"

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

/// Changes of up to so many lines are measured by shaping, which is exact whatever the text is.
constexpr int fewLines = 64;
/// So many QTextLayouts stay laid out; more than a screenful, so that none is laid out twice for one painting.
constexpr size_t keptLayouts = 256;
/// Widest line in pixels that Qt's text engine lays out; longer ones it cuts in its own way.
constexpr qint64 widestLine = std::numeric_limits<int>::max() / 256;
constexpr double endless = std::numeric_limits<int>::max();
/// Pixels between two tab stops where the document says nothing, as in Qt.
constexpr double defaultTabStop = 80.0;

bool changesFont(const QTextCharFormat &format)
{
    const QMap<int, QVariant> properties = format.properties();
    return std::any_of(properties.keyBegin(), properties.keyEnd(), [](int property) {
        return (property >= QTextFormat::FirstFontProperty && property <= QTextFormat::LastFontProperty) ||
               property == QTextFormat::FontLetterSpacingType || property == QTextFormat::FontStretch ||
               property == QTextFormat::TextVerticalAlignment || property == QTextFormat::ObjectType;
    });
}

/// Has formats or text besides that of its block.
bool isFormatted(const QTextLayout *layout)
{
    return !layout->formats().isEmpty() || !layout->preeditAreaText().isEmpty();
}

/// The text of all blocks from @p first to @p last with one character between each two; for all blocks at once it is
/// several times as fast as block by block.
QString textOf(const QTextBlock &first, const QTextBlock &last)
{
    QTextCursor cursor(first);
    cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

/// The selections of @p context that meet @p block, in positions of the block.
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

double TextLayout::top(int blockNumber) const
{
    return margin() + static_cast<double>(m_lines.top(blockNumber));
}

QSizeF TextLayout::documentSize() const
{
    return {m_lines.width() / 64.0 + 2 * margin(), static_cast<double>(m_lines.height()) + 2 * margin()};
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
    const QTextLayout *layout = laidOut(block);
    QRectF rect = layout->boundingRect();
    rect.moveTopLeft(layout->position());
    return rect;
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
    if (number > 0 && point.y() == top(number))
        --number;
    const QTextBlock block = document()->findBlockByNumber(number);
    // Within a change the document may have fewer lines already.
    if (!block.isValid())
        return notHit;
    const QTextLayout *layout = laidOut(block);
    const QPointF inBlock = point - layout->position();
    if (inBlock.y() > layout->boundingRect().bottom())
        return accuracy == Qt::ExactHit ? -1 : std::min(last, block.position() + block.length());

    int offset = 0;
    bool exact = false;
    for (int i = 0; i < layout->lineCount(); ++i) {
        const QTextLine line = layout->lineAt(i);
        const QRectF rect = line.naturalTextRect();
        if (rect.top() > inBlock.y()) {
            offset = std::min(offset, line.textStart());
        } else if (rect.bottom() <= inBlock.y()) {
            offset = std::max(offset, line.textStart() + line.textLength());
        } else {
            exact = rect.left() <= inBlock.x() && rect.right() >= inBlock.x();
            offset = line.xToCursor(inBlock.x(), accuracy == Qt::ExactHit ? QTextLine::CursorOnCharacter
                                                                          : QTextLine::CursorBetweenCharacters);
            break;
        }
    }
    if (accuracy == Qt::ExactHit && !exact)
        return -1;
    return std::min(last + static_cast<int>(layout->preeditAreaText().size()), block.position() + offset);
}

QRectF TextLayout::clipRect(const PaintContext &context) const
{
    const QRectF inside = QRectF(QPointF(), documentSize()).adjusted(margin(), 0, -margin(), 0);
    return context.clip.isValid() ? context.clip & inside : inside;
}

void TextLayout::draw(QPainter *painter, const PaintContext &context)
{
    clearOldest();
    const QRectF &clip = context.clip;
    const QSizeF size = documentSize();
    if (m_lines.count() == 0 || (clip.isValid() && (clip.bottom() < 0 || clip.top() > size.height() ||
                                                    clip.right() < 0 || clip.left() > size.width())))
        return;

    int number = 0;
    int last = m_lines.count() - 1;
    if (clip.isValid()) {
        // A line that only touches the clip may still reach into it.
        number = std::max(0, m_lines.indexAt(clip.top() - margin()) - 1);
        last = m_lines.indexAt(clip.bottom() - margin());
    }
    QTextBlock block = document()->findBlockByNumber(number);
    double y = top(number);
    for (; number <= last && block.isValid(); ++number, block = block.next()) {
        const LineTable::Line line = m_lines.at(number);
        if (line.formatted) {
            drawBlock(painter, context, block, laidOut(block));
        } else {
            QTextLayout layout(block);
            layout.setCacheEnabled(true);
            layOut(&layout, block);
            layout.setPosition(QPointF(margin(), y));
            drawBlock(painter, context, block, &layout);
        }
        y += line.height;
    }
}

void TextLayout::drawBlock(QPainter *painter, const PaintContext &context, const QTextBlock &block,
                           QTextLayout *layout) const
{
    const QRectF rect = layout->boundingRect().translated(layout->position());
    if (context.clip.isValid() && (rect.bottom() < context.clip.top() || rect.top() > context.clip.bottom()))
        return;
    const QPen oldPen = painter->pen();
    painter->setPen(context.palette.color(QPalette::Text));
    layout->draw(painter, QPointF(), selectionsIn(block, context, layout), clipRect(context));
    int cursor = context.cursorPosition;
    const bool inPreedit = cursor < -1 && !layout->preeditAreaText().isEmpty();
    if (inPreedit || block.contains(cursor)) {
        // Positions in the input method's text are counted down from -2.
        cursor = inPreedit ? layout->preeditAreaPosition() - (cursor + 2) : cursor - block.position();
        layout->drawCursor(painter, QPointF(), cursor, m_cursorWidth);
    }
    painter->setPen(oldPen);
}

void TextLayout::documentChanged(int from, int removed, int added)
{
    Q_UNUSED(removed);
    fitMeters();
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
    m_lines.replace(now.first, lastBefore - now.first + 1,
                    now.last - now.first < fewLines ? measureFew(now) : measureMany(now));

    const QSizeF size = documentSize();
    if (size != m_size) {
        m_size = size;
        emit documentSizeChanged(size);
    }
    // What follows only moves when the height changed.
    const double changedTop = top(now.first);
    const bool sameBelow = delta == 0 && heightBefore == m_lines.height();
    emit update(QRectF(0, changedTop, endless, sameBelow ? top(now.last + 1) - changedTop : endless));
}

void TextLayout::fitMeters()
{
    const QTextOption option = document()->defaultTextOption();
    m_tabStop = static_cast<int>((option.tabStopDistance() > 0 ? option.tabStopDistance() : defaultTabStop) * 64);
    // Right-to-left lines and visible blanks and line ends have other widths.
    m_metersApply = option.textDirection() != Qt::RightToLeft && option.flags() == 0;
    if (document()->defaultFont() == m_font)
        return;
    m_font = document()->defaultFont();
    m_meters.clear();
}

TextMeter &TextLayout::meter(const QFont &font)
{
    for (const auto &[known, meter] : m_meters) {
        if (known == font)
            return *meter;
    }
    return *m_meters.emplace_back(font, std::make_unique<TextMeter>(font)).second;
}

std::vector<LineTable::Line> TextLayout::measureFew(BlockRange blocks)
{
    std::vector<LineTable::Line> lines;
    QTextBlock block = document()->findBlockByNumber(blocks.first);
    for (int number = blocks.first; number <= blocks.last; ++number, block = block.next()) {
        block.clearLayout();
        // The caret is likely to be there and to ask for it next.
        LineTable::Line line = layOut(block.layout(), block);
        m_laidOut.push_back(number);
        line.formatted = isFormatted(block.layout());
        m_highlighted = m_highlighted || (line.formatted && block.layout()->preeditAreaText().isEmpty());
        lines.push_back(line);
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
    int plainFormat = -1;
    const auto isPlain = [&plainFormat](const QTextBlock &block) {
        if (block.blockFormatIndex() != plainFormat && block.blockFormat().layoutDirection() == Qt::LayoutDirectionAuto)
            plainFormat = block.blockFormatIndex();
        return block.blockFormatIndex() == plainFormat;
    };
    qsizetype start = 0;
    QTextBlock block = first;
    for (int number = blocks.first; number <= blocks.last; ++number, block = block.next()) {
        block.clearLayout();
        const qsizetype length = block.length();
        const bool formatted = m_highlighted && isFormatted(block.layout());
        LineTable::Line line;
        if (!m_metersApply || !isPlain(block) ||
            !measureByTable(block, QStringView(content).mid(start, length - 1), formatted, &line))
            line = measureByShaping(block, formatted);
        line.formatted = formatted;
        lines.push_back(line);
        start += length;
    }
    return lines;
}

LineTable::Line TextLayout::measureByShaping(const QTextBlock &block, bool formatted) const
{
    if (!formatted) {
        QTextLayout layout(block);
        return layOut(&layout, block);
    }
    const LineTable::Line line = layOut(block.layout(), block);
    block.layout()->clearLayout();
    return line;
}

bool TextLayout::measureByTable(const QTextBlock &block, QStringView text, bool formatted, LineTable::Line *line)
{
    TextMeter &plain = meter(m_font);
    TextMeter *last = &plain;
    qint64 x = 0;
    qsizetype done = 0;
    if (formatted) {
        if (!block.layout()->preeditAreaText().isEmpty())
            return false;
        for (const QTextLayout::FormatRange &range : block.layout()->formats()) {
            // Highlighters give ranges in order; where they overlap, formats mix.
            if (range.start < done)
                return false;
            if (range.format.properties().contains(QTextFormat::TextVerticalAlignment))
                return false;
            const qsizetype end = std::min<qsizetype>(range.start + range.length, text.size());
            TextMeter &own = changesFont(range.format) ? meter(range.format.font().resolve(m_font)) : plain;
            if (!own.sameHeight(plain) || !advance(plain, text.mid(done, range.start - done), &x) ||
                !advance(own, text.mid(range.start, end - range.start), &x))
                return false;
            last = &own;
            done = end;
        }
        if (done < text.size())
            last = &plain;
    }
    if (!advance(plain, text.mid(done), &x))
        return false;
    if (!text.isEmpty() && !text.back().isSpace())
        x += last->overhang(text.back());
    if (x > widestLine * 64)
        return false;
    line->width = static_cast<int>(x);
    line->height = plain.lineHeight();
    return true;
}

bool TextLayout::advance(TextMeter &meter, QStringView text, qint64 *x) const
{
    for (;;) {
        const qsizetype tab = text.indexOf(QLatin1Char('\t'));
        if (!meter.advance(tab < 0 ? text : text.first(tab), x))
            return false;
        if (tab < 0)
            return true;
        *x = (*x / m_tabStop + 1) * m_tabStop;
        text = text.sliced(tab + 1);
    }
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
        layOut(layout, block);
        m_laidOut.push_back(block.blockNumber());
    }
    layout->setPosition(QPointF(margin(), top(block.blockNumber())));
    return layout;
}

void TextLayout::clearOldest() const
{
    if (m_laidOut.size() <= keptLayouts)
        return;
    const auto kept = m_laidOut.end() - static_cast<std::ptrdiff_t>(keptLayouts);
    std::for_each(m_laidOut.begin(), kept, [this](int number) { document()->findBlockByNumber(number).clearLayout(); });
    m_laidOut.erase(m_laidOut.begin(), kept);
}
