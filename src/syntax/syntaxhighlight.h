// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "syntax/highlightingrule.h"
#include "syntax/syntaxfile.h"
#include "syntax/wordtable.h"

#include <QSyntaxHighlighter>
#include <QVector>

#include <array>

/// Colours the text of one document by a syntax definition: rules that look at one line at a time, and one pair of
/// expressions for comments that span lines. The formats lie in the layout of the text: the text itself, its undo
/// history and its modified flag never change, and the colours go when the highlighter does.
///
/// Later groups paint over earlier ones: types over keywords, comments over types, quotation over comments, and the
/// comments that span lines over all.
///
/// Lines of more than PatternShape::longestSearched characters are coloured up to there and plain behind it, so that no
/// line takes the program's time away. A comment that is open there goes on in the next line unless its end follows.
class SyntaxHighlight : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// Colours nothing until it has a definition and a document.
    explicit SyntaxHighlight(QObject *parent);
    ~SyntaxHighlight() override;

    /// Takes the definition of this name from the syntax folder; the folder part of @p path is not looked at. Loading
    /// the same name again reads the file only if it has changed, and adds its patterns to those loaded before.
    /// Another name replaces the definition. If loading fails the user is told, once until the file changes, and
    /// nothing is coloured.
    /// A document that is set already keeps its colours until rehighlight().
    void loadSyntaxFile(const QString &path);

    /// Colours @p document, not owned, from now on, and at once what it holds; null ends that. The document it has
    /// already stays as it is. Cheapest is a document that gets its text afterwards.
    void setDocument(QTextDocument *document);

    /// Colours the whole document again if the definition has changed since it was last coloured.
    void rehighlight();

protected:
    void highlightBlock(const QString &text) override;

private:
    /// States of a block: whether it ends inside a comment that spans lines.
    enum BlockState { Outside, Inside };

    void clearRules();
    void makeRules(SyntaxFile::Group group);
    bool takeMultiLineExpression(const QString &pattern);
    void applyRules(const QString &text, const CharacterSet &characters);
    int applyMultiLineComments(const QString &text, const CharacterSet &characters);
    bool endsComment(const QString &line, qsizetype seen, qsizetype open) const;
    void paint(int start, int length, SyntaxFile::Group group);
    void setFormats();

    /// In order of application. All rules of a group paint the same, so their order among themselves does not matter.
    std::array<QVector<HighlightingRule>, SyntaxFile::groupCount> m_rules;
    WordTable m_words; ///< The rules that look for a plain word, with the group of each.
    SyntaxFile m_syntaxFile;
    HighlightingRule m_multiStart;
    HighlightingRule m_multiEnd;
    bool m_hasMultiLineComments = false; ///< Both expressions are there and of use.
    QVector<qint8> m_painted;            ///< Of the block being coloured: the group of each character, or none.
    bool m_rulesChanged = false;         ///< Since the document was last coloured as a whole.
};
