// SPDX-License-Identifier: GPL-3.0-or-later
#include "syntax/syntaxhighlight.h"

#include <QFileInfo>
#include <QSet>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr qint8 unpainted = -1;

QRegExp makeExpression(const QString &pattern)
{
    return QRegExp(pattern, Qt::CaseSensitive, QRegExp::RegExp);
}

/// Whether the expression can start or end a comment. One that matches the empty string would do so everywhere, and is
/// refused.
bool isUsable(const QRegExp &expression)
{
    return !expression.isEmpty() && expression.isValid() && expression.indexIn(QString()) < 0;
}

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
    m_hasMultiLineComments = isUsable(m_multiStart.expression) && isUsable(m_multiEnd);
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
    m_painted.fill(unpainted, text.size());
    const CharacterSet characters = CharacterSet::occurringIn(text);
    applyRules(text, characters);
    if (m_hasMultiLineComments)
        applyMultiLineComments(text, characters);
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
            m_rules.at(group).append(makeRule(pattern));
        else
            m_words.insert(word, group);
    }
}

bool SyntaxHighlight::takeMultiLineExpression(const QString &pattern)
{
    const QLatin1String start("MULTI_START=");
    const QLatin1String end("MULTI_END=");
    if (pattern.startsWith(start))
        m_multiStart = makeRule(pattern.mid(start.size()));
    else if (pattern.startsWith(end))
        m_multiEnd = makeExpression(pattern.mid(end.size()));
    else
        return false;
    return true;
}

SyntaxHighlight::HighlightingRule SyntaxHighlight::makeRule(const QString &pattern)
{
    return {makeExpression(pattern), CharacterSet::requiredBy(pattern)};
}

int SyntaxHighlight::HighlightingRule::find(const QString &text, const CharacterSet &characters, int from) const
{
    return characters.containsAll(required) ? expression.indexIn(text, from) : -1;
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
                const int length = rule.expression.matchedLength();
                paint(index, length, group);
                index = rule.find(text, characters, index + std::max(length, 1));
            }
        }
    }
}

void SyntaxHighlight::applyMultiLineComments(const QString &text, const CharacterSet &characters)
{
    setCurrentBlockState(Outside);
    int start = previousBlockState() == Inside ? 0 : m_multiStart.find(text, characters, 0);
    while (start >= 0) {
        const int end = m_multiEnd.indexIn(text, start);
        int length = int(text.size()) - start;
        if (end >= 0)
            length = end - start + m_multiEnd.matchedLength();
        else
            setCurrentBlockState(Inside);
        paint(start, length, SyntaxFile::Comments);
        start = m_multiStart.find(text, characters, start + std::max(length, 1));
    }
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
