// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/linetable.h"

#include <QFont>
#include <QTextLayout>

#include <memory>
#include <optional>
#include <vector>

class QTextDocument;
class TextMeter;

/// Measures lines of a document without laying them out, where that gives the same: tabs, and formats that change the
/// font, included.
class LineMeter
{
public:
    LineMeter();
    ~LineMeter();

    /// Takes over default font, tab stops and other options of @p document.
    void fit(const QTextDocument &document);
    /// Width and height of a line of @p text with @p formats, which lie in order; nothing if it has to be laid out.
    std::optional<LineTable::Line> measure(QStringView text, const QList<QTextLayout::FormatRange> &formats);

    /// What a part of a line measures: lengths along the line in 64ths of a pixel, the others in pixels.
    struct Extent
    {
        qint64 advance = 0;
        int overhang = 0; ///< How far the last glyph reaches over it.
        double ascent = 0;
        double descent = 0;
        double leading = 0;
    };
    /// The same for a part of a line that starts at @p x.
    std::optional<Extent> measureFrom(qint64 x, QStringView text, const QList<QTextLayout::FormatRange> &formats);
    /// Between two tab stops, in 64ths of a pixel.
    int tabStop() const { return m_tabStop; }

private:
    /// Goes along a line and takes the height of what it passes.
    struct Pen
    {
        void include(const TextMeter &meter);

        qint64 x = 0;              ///< In 64ths of a pixel.
        TextMeter *last = nullptr; ///< Of the last character.
        double ascent = 0;
        double descent = 0;
        double leading = 0;
    };

    /// What a format means for the width of text.
    struct Effect
    {
        QTextCharFormat format;
        TextMeter *meter; ///< Null where tables do not do.
    };

    TextMeter *meterFor(const QTextCharFormat &format);
    TextMeter *meterOf(const QFont &font);
    bool advance(TextMeter *meter, QStringView text, Pen *pen) const;

    QFont m_font;
    int m_tabStop = 0; ///< In 64ths of a pixel.
    bool m_applies = true;
    TextMeter *m_plain = nullptr; ///< That of m_font, when there was use for it.
    std::vector<std::pair<QFont, std::unique_ptr<TextMeter>>> m_meters;
    std::vector<Effect> m_effects; ///< Of the formats met lately.
};
