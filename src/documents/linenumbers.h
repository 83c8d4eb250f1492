// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QTextDocument>

class NumbersLayout;
class TextLayout;

/// The document of the numbers beside a text: "1\n2\n" up to the count of lines, ending in an empty block.
///
/// The text is written only when somebody is to see it as text: until then the document is empty, and its layout shows
/// and measures the numbers from their count alone. Who hands the document out calls write() before. There is no undo.
class LineNumbers : public QTextDocument
{
    Q_OBJECT

public:
    explicit LineNumbers(QObject *parent = nullptr);

    /// "first\n" up to "last\n"; empty if @p last is less than @p first.
    static QString numbers(int first, int last);

    /// Puts each number, unless the text is written, at the height of its line of @p text, which is not owned.
    void standBeside(TextLayout *text);
    /// Shows @p text, which is usually the numbers from 1 on, each with a line feed; anything else is shown as it is.
    void setNumbers(const QString &text);
    /// Adds the numbers behind @p oldCount up to @p newCount, or takes the last ones away, in a single edit.
    void follow(int oldCount, int newCount);
    /// How many blocks the text has, or would have.
    int shownBlockCount() const;
    /// Writes the text. From then on it is always up to date, until setNumbers().
    void write();

private:
    void postpone(int count);

    QPointer<TextLayout> m_text;
    NumbersLayout *m_unwritten = nullptr; ///< The layout, while the text is not written; null otherwise.
};
