// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/numberslayout.h"

#include "documents/textlayout.h"
#include "documents/textmeter.h"

#include <QPainter>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <ranges>

namespace {

constexpr double unbounded = std::numeric_limits<int>::max();
/// From so many numbers on, tables of advances are worth filling.
constexpr int manyNumbers = 100;
/// Shaped numbers to keep on either side of what was painted last, which may be no more than one line.
constexpr int linesAround = 100;

/// One number in one line, as wide as it is.
std::unique_ptr<QTextLayout> numberLine(const QString &number, const QFont &font)
{
    auto layout = std::make_unique<QTextLayout>(number, font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    QTextLine line = layout->createLine();
    line.setLeadingIncluded(true);
    line.setLineWidth(-1.0);
    line.setLineWidth(line.naturalTextWidth());
    layout->endLayout();
    return layout;
}

/// From line to line; a negative leading does not draw them together.
double heightOf(const QTextLine &line)
{
    return std::max(std::ceil(line.ascent() + line.descent() + line.leading()), line.height());
}

} // namespace

NumbersLayout::NumbersLayout(QTextDocument *document) : QAbstractTextDocumentLayout(document) {}

void NumbersLayout::setCount(int count)
{
    if (count == m_count)
        return;
    const int firstChanged = std::min(count, m_count);
    m_count = count;
    measure();
    reportSize();
    emit update(QRectF(0, lineTop(firstChanged), unbounded, unbounded));
}

void NumbersLayout::standBeside(TextLayout *text)
{
    if (m_text)
        disconnect(m_text, nullptr, this, nullptr);
    m_text = text;
    if (!text)
        return;
    // Where the text is painted anew its lines may have got other heights.
    connect(text, &QAbstractTextDocumentLayout::update, this, [this](const QRectF &rect) {
        reportSize();
        emit update(QRectF(0, rect.top(), unbounded, rect.height()));
    });
}

/// Lines that the text does not have (yet) go on below it, each as tall as a number.
double NumbersLayout::lineTop(int index) const
{
    const TextLayout *text = m_text;
    if (!text)
        return margin() + index * m_lineHeight;
    const int further = std::max(0, index - text->lineCount());
    return text->lineTop(index) + further * m_lineHeight;
}

/// How far below its line's top a number stands: in the middle of what the line is taller, so that it is beside the
/// text whether that has grown upwards or downwards.
double NumbersLayout::extraHeight(int index) const
{
    const TextLayout *text = m_text;
    if (!text || index >= text->lineCount())
        return 0.0;
    return std::max(0.0, std::floor((text->lineHeight(index) - m_lineHeight) / 2));
}

/// The last line that begins at or above @p y, bounded to the numbers.
int NumbersLayout::lineAt(double y) const
{
    const auto lines = std::views::iota(0, m_count);
    const auto after = std::ranges::upper_bound(lines, y, {}, [this](int index) { return lineTop(index); });
    return std::max(0, static_cast<int>(after - lines.begin()) - 1);
}

void NumbersLayout::documentChanged(int from, int removed, int added)
{
    Q_UNUSED(from);
    Q_UNUSED(removed);
    Q_UNUSED(added);
    measure();
    reportSize();
    emit update(QRectF(0, 0, unbounded, unbounded));
}

void NumbersLayout::measure()
{
    if (m_lineHeight <= 0 || document()->defaultFont() != m_font) {
        m_font = document()->defaultFont();
        m_lineHeight = heightOf(numberLine(QStringLiteral("1"), m_font)->lineAt(0));
        m_measured = 0;
        m_records.clear();
        m_painted.clear();
    }
    std::unique_ptr<TextMeter> meter;
    if (m_count - m_measured >= manyNumbers)
        meter = std::make_unique<TextMeter>(m_font);
    for (; m_measured < m_count; ++m_measured) {
        const QString number = QString::number(m_measured + 1);
        qint64 advance = 0;
        const double width = meter && meter->advance(number, &advance)
                                 ? static_cast<double>(advance + meter->overhang(number.back())) / 64
                                 : numberLine(number, m_font)->lineAt(0).naturalTextWidth();
        if (m_records.empty() || width > m_records.back().width)
            m_records.push_back({m_measured + 1, width});
    }
}

void NumbersLayout::reportSize()
{
    const QSizeF size = documentSize();
    if (size == m_size)
        return;
    m_size = size;
    emit documentSizeChanged(size);
}

double NumbersLayout::margin() const
{
    return std::round(document()->documentMargin());
}

QSizeF NumbersLayout::documentSize() const
{
    const auto next = std::ranges::upper_bound(m_records, m_count, {}, &Record::number);
    const double width = next == m_records.begin() ? 0.0 : std::prev(next)->width;
    return {width + 2 * margin(), lineTop(m_count) + m_lineHeight + margin()};
}

QRectF NumbersLayout::frameBoundingRect(QTextFrame *frame) const
{
    return frame == document()->rootFrame() ? QRectF(QPointF(), documentSize()) : QRectF();
}

QRectF NumbersLayout::blockBoundingRect(const QTextBlock &block) const
{
    Q_UNUSED(block);
    return {margin(), lineTop(0), documentSize().width() - 2 * margin(), m_lineHeight};
}

int NumbersLayout::hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const
{
    Q_UNUSED(point);
    return accuracy == Qt::ExactHit ? -1 : 0;
}

void NumbersLayout::draw(QPainter *painter, const PaintContext &context)
{
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    const int first = std::max(0, lineAt(clip.top()) - 1);
    const int last = lineAt(clip.bottom());
    const QPen oldPen = painter->pen();
    painter->setPen(context.palette.color(QPalette::Text));
    for (int i = first; i < m_count && i <= last; ++i) {
        const QTextLayout *line = m_painted.line(i, [this, i] { return numberLine(QString::number(i + 1), m_font); });
        line->draw(painter, QPointF(margin(), lineTop(i) + extraHeight(i)));
    }
    painter->setPen(oldPen);
    m_painted.keepAround(first, last, linesAround);
}
