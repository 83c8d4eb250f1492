// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lineends.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <array>

namespace {

/// Stands on a block that does not end as most of its file does.
class OddLineEnd : public QTextBlockUserData
{
public:
    explicit OddLineEnd(const QString &text) : end(text) {}

    QString end;
};

bool endsLine(QChar c)
{
    constexpr char16_t frameStart = 0xfdd0;
    constexpr char16_t frameEnd = 0xfdd1;
    return c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QChar::ParagraphSeparator || c == frameStart ||
           c == frameEnd;
}

QString mostFrequent(const QList<QStringView> &ends)
{
    constexpr std::array<QStringView, 3> kinds{u"\n", u"\r\n", u"\r"};
    return std::max_element(kinds.begin(), kinds.end(),
                            [&ends](QStringView a, QStringView b) { return ends.count(a) < ends.count(b); })
        ->toString();
}

} // namespace

SplitText splitLines(const QString &raw)
{
    SplitText split;
    QList<QStringView> ends;
    split.text.reserve(raw.size());
    qsizetype lineStart = 0;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (!endsLine(raw.at(i)))
            continue;
        const bool two = raw.at(i) == QLatin1Char('\r') && i + 1 < raw.size() && raw.at(i + 1) == QLatin1Char('\n');
        if (!ends.isEmpty())
            split.text += QLatin1Char('\n');
        split.text += QStringView(raw).sliced(lineStart, i - lineStart);
        ends.append(QStringView(raw).sliced(i, two ? 2 : 1));
        i += two ? 1 : 0;
        lineStart = i + 1;
    }
    split.lineEnd = mostFrequent(ends);
    split.lines = int(ends.size());
    if (lineStart < raw.size()) {
        if (!ends.isEmpty())
            split.text += QLatin1Char('\n');
        split.text += QStringView(raw).sliced(lineStart);
        ++split.lines;
    } else if (!ends.isEmpty()) {
        ends.removeLast(); // not a line of its own
    }
    for (int line = 0; line < ends.size(); ++line) {
        if (ends.at(line) != split.lineEnd)
            split.oddEnds.append({line, ends.at(line).toString()});
    }
    return split;
}

void rememberOddEnds(QTextDocument *document, const SplitText &split)
{
    for (const SplitText::OddEnd &odd : split.oddEnds)
        document->findBlockByNumber(odd.line).setUserData(new OddLineEnd(odd.end));
}

QString joinLines(const QTextDocument *document, const TextFormat &format)
{
    QString text;
    text.reserve(document->characterCount() + document->blockCount());
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        text += block.text();
        const auto *odd = dynamic_cast<const OddLineEnd *>(block.userData());
        if (block.next().isValid())
            text += odd ? odd->end : format.lineEnd;
    }
    return text;
}
