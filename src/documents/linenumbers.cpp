// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/linenumbers.h"

#include "documents/numberslayout.h"
#include "documents/textlayout.h"

#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <array>
#include <charconv>

namespace {

/// How many numbers @p text holds if it is "1\n2\n" and so on; -1 if it is anything else.
int countOfNumbers(QStringView text)
{
    int number = 0;
    while (!text.isEmpty()) {
        std::array<char, 12> digits;
        const auto written = std::to_chars(digits.data(), digits.data() + digits.size() - 1, ++number);
        *written.ptr = '\n';
        const QLatin1String line(digits.data(), written.ptr + 1 - digits.data());
        if (!text.startsWith(line))
            return -1;
        text = text.sliced(line.size());
    }
    return number;
}

} // namespace

QString LineNumbers::numbers(int first, int last)
{
    QString text;
    for (int number = first; number <= last; ++number)
        text += QString::number(number) + QLatin1Char('\n');
    return text;
}

LineNumbers::LineNumbers(QObject *parent) : QTextDocument(parent)
{
    setUndoRedoEnabled(false);
    postpone(0);
}

void LineNumbers::postpone(int count)
{
    if (!m_unwritten) {
        clear();
        m_unwritten = new NumbersLayout(this);
        setDocumentLayout(m_unwritten);
        m_unwritten->standBeside(m_text);
    }
    m_unwritten->setCount(count);
}

void LineNumbers::standBeside(TextLayout *text)
{
    m_text = text;
    if (m_unwritten)
        m_unwritten->standBeside(text);
}

void LineNumbers::setNumbers(const QString &text)
{
    const int count = countOfNumbers(text);
    if (count >= 0) {
        postpone(count);
    } else {
        write();
        setPlainText(text);
    }
}

void LineNumbers::write()
{
    if (!m_unwritten)
        return;
    const int count = m_unwritten->count();
    m_unwritten = nullptr;
    setDocumentLayout(new TextLayout(this));
    setPlainText(numbers(1, count));
}

int LineNumbers::shownBlockCount() const
{
    return m_unwritten ? m_unwritten->count() + 1 : blockCount();
}

void LineNumbers::follow(int oldCount, int newCount)
{
    if (m_unwritten && m_unwritten->count() == oldCount) {
        m_unwritten->setCount(newCount);
        return;
    }
    write();
    QTextCursor cursor(this);
    cursor.movePosition(QTextCursor::End);
    if (newCount > oldCount) {
        cursor.insertText(numbers(oldCount + 1, newCount));
        return;
    }
    // The last block is empty, so each number goes together with the line end behind it.
    const int firstRemoved = std::max(0, cursor.blockNumber() - (oldCount - newCount));
    cursor.setPosition(findBlockByNumber(firstRemoved).position(), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}
