// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "syntax/characterset.h"
#include "syntax/syntaxfile.h"
#include "syntax/wordtable.h"

#include <QRegExp>
#include <QSyntaxHighlighter>
#include <QVector>

#include <array>

/// Colours the text of one document by a syntax definition: rules that look at one line at a time, and one pair of
/// expressions for comments that span lines. The formats lie in the layout of the text: the text itself, its undo
/// history and its modified flag never change, and the colours go when the highlighter does.
///
/// Later groups paint over earlier ones: types over keywords, comments over types, quotation over comments, and the
/// comments that span lines over all.
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
    struct HighlightingRule
    {
        QRegExp expression;
        CharacterSet required; ///< A line without all of them is not searched.

        /// Position of the first match from @p from on in a line of these characters, or -1.
        int find(const QString &text, const CharacterSet &characters, int from) const;
    };

    /// States of a block: whether it ends inside a comment that spans lines.
    enum BlockState { Outside, Inside };

    static HighlightingRule makeRule(const QString &pattern);
    void clearRules();
    void makeRules(SyntaxFile::Group group);
    bool takeMultiLineExpression(const QString &pattern);
    void applyRules(const QString &text, const CharacterSet &characters);
    void applyMultiLineComments(const QString &text, const CharacterSet &characters);
    void paint(int start, int length, SyntaxFile::Group group);
    void setFormats();

    /// In order of application. All rules of a group paint the same, so their order among themselves does not matter.
    std::array<QVector<HighlightingRule>, SyntaxFile::groupCount> m_rules;
    WordTable m_words; ///< The rules that look for a plain word, with the group of each.
    SyntaxFile m_syntaxFile;
    HighlightingRule m_multiStart;
    QRegExp m_multiEnd;
    bool m_hasMultiLineComments = false; ///< Both expressions are there and of use.
    QVector<qint8> m_painted;            ///< Of the block being coloured: the group of each character, or none.
    bool m_rulesChanged = false;         ///< Since the document was last coloured as a whole.
};
