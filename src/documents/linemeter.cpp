// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/linemeter.h"

#include "documents/textmeter.h"

#include <QTextDocument>

#include <algorithm>

namespace {

/// Pixels between two tab stops where the document says nothing, as in Qt.
constexpr double defaultTabStop = 80.0;

/// Highlighters have a format or two for each kind of word; input methods make new ones all the time.
constexpr size_t keptFormats = 50;

enum class FormatKind { Colours, Font, Else };

/// What @p format means for the width of text.
FormatKind kindOf(const QTextFormat &format)
{
    const QMap<int, QVariant> properties = format.properties();
    FormatKind kind = FormatKind::Colours;
    for (auto property = properties.keyBegin(); property != properties.keyEnd(); ++property) {
        if (*property == QTextFormat::TextVerticalAlignment || *property == QTextFormat::ObjectType)
            return FormatKind::Else;
        if ((*property >= QTextFormat::FirstFontProperty && *property <= QTextFormat::LastFontProperty) ||
            *property == QTextFormat::FontLetterSpacingType || *property == QTextFormat::FontStretch)
            kind = FormatKind::Font;
    }
    return kind;
}

} // namespace

LineMeter::LineMeter() = default;

LineMeter::~LineMeter() = default;

void LineMeter::fit(const QTextDocument &document)
{
    const QTextOption option = document.defaultTextOption();
    const double tabStop = option.tabStopDistance() > 0 ? option.tabStopDistance() : defaultTabStop;
    m_tabStop = std::max(1, static_cast<int>(tabStop * 64));
    // Right-to-left lines, and visible blanks and line ends, have other widths.
    m_applies = option.textDirection() != Qt::RightToLeft && option.flags() == 0;
    if (document.defaultFont() == m_font)
        return;
    m_font = document.defaultFont();
    m_plain = nullptr;
    m_effects.clear();
    m_meters.clear();
}

std::optional<LineTable::Line> LineMeter::measure(QStringView text, const QList<QTextLayout::FormatRange> &formats)
{
    const std::optional<Extent> extent = measureFrom(0, text, formats);
    if (!extent)
        return {};
    LineTable::Line line;
    line.width = extent->advance + extent->overhang;
    // Some fonts have a negative leading; it does not draw the next line nearer.
    line.height = qCeil(extent->ascent + extent->descent + std::max(extent->leading, 0.0));
    return line;
}

std::optional<LineMeter::Extent> LineMeter::measureFrom(qint64 x, QStringView text,
                                                        const QList<QTextLayout::FormatRange> &formats)
{
    if (!m_applies)
        return {};
    if (!m_plain)
        m_plain = meterOf(m_font);
    Pen pen;
    pen.x = x;
    qsizetype done = 0;
    for (const QTextLayout::FormatRange &range : formats) {
        // Where ranges overlap their formats mix.
        if (range.start < done || range.start > text.size())
            return {};
        const qsizetype end = std::min<qsizetype>(range.start + range.length, text.size());
        // Text is shaped anew at each end of a range, so no pair spans it.
        if (!advance(m_plain, text.mid(done, range.start - done), &pen) ||
            !advance(meterFor(range.format), text.mid(range.start, end - range.start), &pen))
            return {};
        done = end;
    }
    if (!advance(m_plain, text.mid(done), &pen))
        return {};
    if (!pen.last)
        pen.include(*m_plain);
    const int overhang = pen.last && !text.back().isSpace() ? pen.last->overhang(text.back()) : 0;
    return Extent{pen.x - x, overhang, pen.ascent, pen.descent, pen.leading};
}

/// As Qt's text engine joins the heights of the parts of a line.
void LineMeter::Pen::include(const TextMeter &meter)
{
    leading = std::max(leading + ascent, meter.leading() + meter.ascent()) - std::max(ascent, meter.ascent());
    ascent = std::max(ascent, meter.ascent());
    descent = std::max(descent, meter.descent());
}

TextMeter *LineMeter::meterFor(const QTextCharFormat &format)
{
    for (const Effect &known : m_effects) {
        if (known.format == format)
            return known.meter;
    }
    if (m_effects.size() == keptFormats)
        m_effects.clear();
    TextMeter *meter = nullptr;
    switch (kindOf(format)) {
    case FormatKind::Colours:
        meter = m_plain;
        break;
    case FormatKind::Font:
        meter = meterOf(format.font().resolve(m_font));
        break;
    case FormatKind::Else:
        break;
    }
    m_effects.push_back({format, meter});
    return meter;
}

TextMeter *LineMeter::meterOf(const QFont &font)
{
    for (const auto &[known, meter] : m_meters) {
        if (known == font)
            return meter.get();
    }
    return m_meters.emplace_back(font, std::make_unique<TextMeter>(font)).second.get();
}

bool LineMeter::advance(TextMeter *meter, QStringView text, Pen *pen) const
{
    if (!meter || !meter->isUsable())
        return false;
    if (text.isEmpty())
        return true;
    if (pen->last != meter)
        pen->include(*meter);
    pen->last = meter;
    for (qsizetype tab = text.indexOf(QLatin1Char('\t')); tab >= 0; tab = text.indexOf(QLatin1Char('\t'))) {
        if (!meter->advance(text.first(tab), &pen->x))
            return false;
        pen->x = (pen->x / m_tabStop + 1) * m_tabStop;
        text = text.sliced(tab + 1);
    }
    return meter->advance(text, &pen->x);
}
