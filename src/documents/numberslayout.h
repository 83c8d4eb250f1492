// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/linecache.h"

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QPointer>
#include <QSizeF>

#include <vector>

class TextLayout;

/// Shows the numbers 1 to n in lines, then an empty line, whatever text its document holds. Beside a text, each number
/// stands at its line, which may be taller than the numbers are.
///
/// For a LineNumbers whose text is not written yet: size and pixels are those of the text, from the count alone.
class NumbersLayout : public QAbstractTextDocumentLayout
{
    Q_OBJECT

public:
    explicit NumbersLayout(QTextDocument *document);

    int count() const { return m_count; }
    void setCount(int count);
    /// @p text is not owned and may die first.
    void standBeside(TextLayout *text);

    void draw(QPainter *painter, const PaintContext &context) override;
    QSizeF documentSize() const override;
    int pageCount() const override { return 1; }
    QRectF frameBoundingRect(QTextFrame *frame) const override;
    /// There are no blocks for the lines: the rectangle of the first line, and position 0.
    QRectF blockBoundingRect(const QTextBlock &block) const override;
    int hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const override;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    /// The first number that is wider than all before it.
    struct Record
    {
        int number;
        double width;
    };

    void measure();
    void reportSize();
    double margin() const;
    double lineTop(int index) const;
    double extraHeight(int index) const;
    int lineAt(double y) const;

    int m_count = 0;
    QFont m_font;
    double m_lineHeight = 0;
    int m_measured = 0;            ///< Numbers up to this one are measured.
    std::vector<Record> m_records; ///< Ascending; few, as most numbers are as wide as others.
    QSizeF m_size;
    LineCache m_painted;
    QPointer<TextLayout> m_text; ///< Whose lines are numbered; null if the numbers stand alone.
};
