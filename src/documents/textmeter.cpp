// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/textmeter.h"

#include <QGlyphRun>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace {

/// One line of text of at most a few characters, laid out by Qt.
class Sample
{
public:
    Sample(const QString &text, const QFont &font) : m_layout(text, font)
    {
        QTextOption option;
        option.setWrapMode(QTextOption::NoWrap);
        option.setTextDirection(Qt::LeftToRight);
        m_layout.setTextOption(option);
        m_layout.setCacheEnabled(true);
        m_layout.beginLayout();
        m_line = m_layout.createLine();
        m_line.setLeadingIncluded(true);
        m_line.setLineWidth(-1.0);
        m_layout.endLayout();
    }

    const QTextLine &line() const { return m_line; }
    int advance() const { return qRound(m_line.horizontalAdvance() * 64); }
    int width() const { return qRound(m_line.naturalTextWidth() * 64); }

    /// Its glyphs, if all of them are of the same font; a null font otherwise.
    QGlyphRun glyphs() const
    {
        const QList<QGlyphRun> runs = m_layout.glyphRuns();
        return runs.size() == 1 ? runs.constFirst() : QGlyphRun();
    }

private:
    QTextLayout m_layout;
    QTextLine m_line;
};

/// Letters that stand alone, digits, signs and the blank: no marks, no joiners, no direction of their own.
bool addsUp(QChar character)
{
    if (character == QLatin1Char(' '))
        return true;
    if (character.isMark() || character.direction() == QChar::DirR || character.direction() == QChar::DirAL)
        return false;
    return character.isLetterOrNumber() || character.isPunct() || character.isSymbol();
}

} // namespace

TextMeter::TextMeter(const QFont &font) : m_font(font)
{
    m_glyphs.fill({unmeasured, 0, 0});
    m_asciiPairs.fill(unmeasured);
    const Sample sample(QStringLiteral("x"), font);
    m_rawFont = sample.glyphs().rawFont();
    m_ascent = sample.line().ascent();
    m_descent = sample.line().descent();
    m_leading = sample.line().leading();
    m_usable = hasHeightOf(Sample(QString(), font).line()) && hasHeightOf(Sample(QStringLiteral("\t"), font).line());
}

bool TextMeter::hasHeightOf(const QTextLine &line) const
{
    return line.ascent() == m_ascent && line.descent() == m_descent && line.leading() == m_leading;
}

bool TextMeter::advance(QStringView text, qint64 *x)
{
    if (!m_usable)
        return false;
    char16_t previous = 0;
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if (code >= end)
            return false;
        int step = 0;
        if (previous != 0 && previous < asciiEnd && code < asciiEnd &&
            m_asciiPairs[asciiPair(previous, code)] > unknown) {
            step = m_asciiPairs[asciiPair(previous, code)];
        } else {
            step = glyph(code).advance;
            if (step != unknown && previous != 0)
                step = pairAdvance(previous, code);
        }
        if (step == unknown)
            return false;
        *x += step;
        previous = code;
    }
    return true;
}

int TextMeter::overhang(QChar character)
{
    return glyph(character.unicode()).overhang;
}

const TextMeter::Glyph &TextMeter::glyph(char16_t character)
{
    Glyph &known = m_glyphs[character];
    if (known.advance == unmeasured)
        known = measureGlyph(character);
    return known;
}

int TextMeter::pairAdvance(char16_t first, char16_t second)
{
    if (first < asciiEnd && second < asciiEnd) {
        int &known = m_asciiPairs[asciiPair(first, second)];
        if (known == unmeasured)
            known = measurePair(first, second);
        return known;
    }
    const quint32 key = (quint32(first) << 16) | second;
    const auto known = m_otherPairs.constFind(key);
    if (known != m_otherPairs.constEnd())
        return *known;
    return *m_otherPairs.insert(key, measurePair(first, second));
}

TextMeter::Glyph TextMeter::measureGlyph(char16_t character) const
{
    const Glyph none{unknown, 0, 0};
    if (!addsUp(QChar(character)))
        return none;
    const Sample sample(QString(QChar(character)), m_font);
    const QGlyphRun run = sample.glyphs();
    if (run.glyphIndexes().size() != 1 || run.rawFont() != m_rawFont || !hasHeightOf(sample.line()))
        return none;
    return {sample.advance(), sample.width() - sample.advance(), run.glyphIndexes().constFirst()};
}

int TextMeter::measurePair(char16_t first, char16_t second)
{
    const Glyph left = glyph(first);
    const Glyph right = glyph(second);
    const QChar text[] = {QChar(first), QChar(second)};
    const Sample sample(QString(text, 2), m_font);
    const QGlyphRun run = sample.glyphs();
    if (run.rawFont() != m_rawFont || run.glyphIndexes() != QList<quint32>{left.index, right.index})
        return unknown;
    return sample.advance() - left.advance;
}
