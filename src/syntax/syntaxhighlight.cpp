// SPDX-License-Identifier: GPL-3.0-or-later
#include "syntax/syntaxhighlight.h"

#include <QFileInfo>
#include <QSet>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr qint8 unpainted = -1;

/// Pieces in which the end of a comment is looked for where lines are not coloured any more, in characters. They
/// overlap by more than an end mark has.
constexpr qsizetype pieceLength = 256;
constexpr qsizetype pieceOverlap = 64;

} // namespace

SyntaxHighlight::SyntaxHighlight(QObject *parent) : QSyntaxHighlighter(parent), m_syntaxFile(QString()) {}

SyntaxHighlight::~SyntaxHighlight() = default;

void SyntaxHighlight::loadSyntaxFile(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    if (name != m_syntaxFile.fileName())
        m_syntaxFile.reset();
    else if (m_syntaxFile.isUpToDate())
        return;
    clearRules();
    m_rulesChanged = true;
    if (!m_syntaxFile.load(name))
        return;
    for (int group = 0; group < SyntaxFile::groupCount; ++group)
        makeRules(SyntaxFile::Group(group));
    m_hasMultiLineComments = m_multiStart.canDelimit() && m_multiEnd.canDelimit();
}

void SyntaxHighlight::setDocument(QTextDocument *document)
{
    if (document == this->document())
        return;
    // A document announces changes of its text only while it has a layout; it makes its own on the first request.
    if (document)
        document->documentLayout();
    QSyntaxHighlighter::setDocument(document);
    m_rulesChanged = true;
    rehighlight();
}

void SyntaxHighlight::rehighlight()
{
    if (!m_rulesChanged)
        return;
    m_rulesChanged = false;
    QSyntaxHighlighter::rehighlight();
}

void SyntaxHighlight::highlightBlock(const QString &text)
{
    const QString seen = text.left(PatternShape::longestSearched);
    m_painted.fill(unpainted, seen.size());
    const CharacterSet characters = CharacterSet::occurringIn(seen);
    applyRules(seen, characters);
    if (m_hasMultiLineComments) {
        const int open = applyMultiLineComments(seen, characters);
        const bool inside = open >= 0 && !endsComment(text, seen.size(), open);
        setCurrentBlockState(inside ? Inside : Outside);
    }
    setFormats();
}

void SyntaxHighlight::clearRules()
{
    m_rules = {};
    m_words.clear();
    m_multiStart = {};
    m_multiEnd = {};
    m_hasMultiLineComments = false;
}

/// Patterns that stand in the list more than once, as after repeated loads, make one rule.
void SyntaxHighlight::makeRules(SyntaxFile::Group group)
{
    QSet<QString> known;
    for (const QString &pattern : std::as_const(m_syntaxFile.patterns(group))) {
        if (group == SyntaxFile::Comments && takeMultiLineExpression(pattern))
            continue;
        if (known.contains(pattern))
            continue;
        known.insert(pattern);
        const QString word = WordTable::plainWord(pattern);
        if (word.isEmpty())
            m_rules.at(group).append(HighlightingRule(pattern));
        else
            m_words.insert(word, group);
    }
}

bool SyntaxHighlight::takeMultiLineExpression(const QString &pattern)
{
    const QLatin1String start("MULTI_START=");
    const QLatin1String end("MULTI_END=");
    if (pattern.startsWith(start))
        m_multiStart = HighlightingRule(pattern.mid(start.size()));
    else if (pattern.startsWith(end))
        m_multiEnd = HighlightingRule(pattern.mid(end.size()));
    else
        return false;
    return true;
}

/// An expression that matches nothing but the empty string at a place goes on one character further.
void SyntaxHighlight::applyRules(const QString &text, const CharacterSet &characters)
{
    const QVector<WordTable::Hit> hits = m_words.find(text);
    for (int i = 0; i < SyntaxFile::groupCount; ++i) {
        const auto group = SyntaxFile::Group(i);
        for (const WordTable::Hit &hit : hits) {
            if (hit.group == group)
                paint(hit.start, hit.length, group);
        }
        for (const HighlightingRule &rule : m_rules.at(group)) {
            int index = rule.find(text, characters, 0);
            while (index >= 0) {
                const int length = rule.matchedLength();
                paint(index, length, group);
                index = rule.find(text, characters, index + std::max(length, 1));
            }
        }
    }
}

/// Position of the comment that is open at the end of the text, or -1.
int SyntaxHighlight::applyMultiLineComments(const QString &text, const CharacterSet &characters)
{
    int open = -1;
    int start = previousBlockState() == Inside ? 0 : m_multiStart.find(text, characters, 0);
    while (start >= 0) {
        const int end = m_multiEnd.find(text, characters, start);
        const int length = (end < 0 ? int(text.size()) : end + m_multiEnd.matchedLength()) - start;
        open = end < 0 ? start : -1;
        paint(start, length, SyntaxFile::Comments);
        start = m_multiStart.find(text, characters, start + std::max(length, 1));
    }
    return open;
}

/// Whether the comment at @p open, which does not end within the first @p seen characters of the line, ends behind
/// them. Short pieces bound the work.
bool SyntaxHighlight::endsComment(const QString &line, qsizetype seen, qsizetype open) const
{
    if (seen == line.size())
        return false;
    for (qsizetype at = std::max(open, seen - pieceOverlap); at < line.size(); at += pieceLength - pieceOverlap) {
        const QString piece = line.mid(at, pieceLength);
        if (m_multiEnd.find(piece, CharacterSet::occurringIn(piece), 0) >= 0)
            return true;
    }
    return false;
}

void SyntaxHighlight::paint(int start, int length, SyntaxFile::Group group)
{
    std::fill_n(m_painted.begin() + start, length, qint8(group));
}

/// Only what has come out on top becomes a format: laying one over a character is dear.
void SyntaxHighlight::setFormats()
{
    for (auto start = m_painted.cbegin(); start != m_painted.cend();) {
        const auto end = std::find_if(start, m_painted.cend(), [start](qint8 group) { return group != *start; });
        if (*start != unpainted)
            setFormat(int(start - m_painted.cbegin()), int(end - start),
                      m_syntaxFile.format(SyntaxFile::Group(*start)));
        start = end;
    }
}
