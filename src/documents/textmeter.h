// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QHash>
#include <QRawFont>
#include <QStringView>

#include <array>

class QTextLine;

/// Widths of plain left-to-right text in one font, from tables instead of by shaping each line anew.
///
/// The tables are filled from Qt's text engine, one character and one pair of characters at a time as they first
/// come up, so that kerning is in them. They hold only what adds up: Latin, Greek and Cyrillic letters, digits, signs
/// and the blank, each drawn with one glyph of the font's own and as high as the font; pairs whose glyphs are those of
/// the two characters. Anything else (another script, a fallback font, a ligature, a combining mark) is not known.
/// Widths are in 64ths of a pixel.
class TextMeter
{
public:
    explicit TextMeter(const QFont &font);

    /// Of any line in this font, in pixels.
    qreal ascent() const { return m_ascent; }
    qreal descent() const { return m_descent; }
    qreal leading() const { return m_leading; }
    /// False if lines without letters are not as high as those with some; advance() then knows nothing.
    bool isUsable() const { return m_usable; }
    /// Advances @p x over @p text, which holds no tab; false if something in it is not known.
    bool advance(QStringView text, qint64 *x);
    /// How far the glyph of @p character, which advance() knew, reaches over its advance to the right.
    int overhang(QChar character);

private:
    struct Glyph
    {
        int advance = 0;
        int overhang = 0;
        quint32 index = 0;
    };

    // Basic Latin to Cyrillic; what lies beyond is rarely alike in all fonts of a family.
    static constexpr char16_t end = 0x530;
    static constexpr char16_t asciiEnd = 0x80;
    // In place of an advance.
    static constexpr int unmeasured = -(1 << 30);
    static constexpr int unknown = unmeasured + 1;

    static size_t asciiPair(char16_t first, char16_t second) { return size_t(first) * asciiEnd + second; }
    const Glyph &glyph(char16_t character);
    /// What @p second adds to the advance when it follows @p first; both are known characters.
    int pairAdvance(char16_t first, char16_t second);
    bool hasHeightOf(const QTextLine &line) const;
    Glyph measureGlyph(char16_t character) const;
    int measurePair(char16_t first, char16_t second);

    QFont m_font;
    QRawFont m_rawFont; ///< The one the font's Latin letters are drawn with.
    qreal m_ascent = 0;
    qreal m_descent = 0;
    qreal m_leading = 0;
    bool m_usable = false;
    std::array<Glyph, end> m_glyphs;
    std::array<int, asciiEnd * asciiEnd> m_asciiPairs;
    QHash<quint32, int> m_otherPairs;
};
