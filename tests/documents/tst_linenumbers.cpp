// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/linenumbers.h"

#include "documents/textlayout.h"
#include "support/testmain.h"

#include <QAbstractTextDocumentLayout>
#include <QGraphicsTextItem>
#include <QPainter>
#include <QSignalSpy>
#include <QStyleOptionGraphicsItem>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include <cmath>
#include <memory>

namespace {

QString numbersUpTo(int count)
{
    QString text;
    for (int i = 1; i <= count; ++i)
        text += QStringLiteral("%1\n").arg(i);
    return text;
}

/// A text with a layout that can tell where its lines are.
class Text
{
public:
    explicit Text(const QString &lines) : document(new QTextDocument), layout(new TextLayout(document.get()))
    {
        document->setDocumentLayout(layout);
        layout->setHighlighted(true);
        document->setPlainText(lines);
    }

    /// As a highlighter does it.
    void enlargeLine(int number)
    {
        const QTextBlock block = document->findBlockByNumber(number);
        QTextCharFormat format;
        format.setFontPointSize(40);
        block.layout()->setFormats({{0, block.length() - 1, format}});
        document->markContentsDirty(block.position(), block.length());
    }

    std::unique_ptr<QTextDocument> document;
    TextLayout *layout; ///< Owned by the document.
};

/// What the item shows of @p area of its own coordinates.
QImage itemPicture(QGraphicsTextItem *item, const QRectF &area)
{
    QImage image(area.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(-area.topLeft());
    QStyleOptionGraphicsItem option;
    option.exposedRect = area;
    item->paint(&painter, &option, nullptr);
    return image;
}

} // namespace

class TestLineNumbers : public QObject
{
    Q_OBJECT

private slots:
    void looksLikeTheText_data();
    void looksLikeTheText();
    void writesTheText();
    void followsTheLines_data();
    void followsTheLines();
    void anyChangeIsOneEdit();
    void showsForeignTextAsItIs();
    void followsTheFont();
    void tellsItsItemOfChanges();
    void standsBesideTallLines();
    void linesThatTheTextLacksGoOnBelow();
    void theTextMayDieFirst();
};

void TestLineNumbers::looksLikeTheText_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("count");
    for (const char *family : {"Courier", "Arial", "DejaVu Sans", "Liberation Serif"}) {
        for (const int count : {0, 1, 9, 10, 99, 100, 111, 1234, 20'000})
            QTest::addRow("%s, %d", family, count) << QString::fromLatin1(family) << count;
    }
}

void TestLineNumbers::looksLikeTheText()
{
    QFETCH(QString, family);
    QFETCH(int, count);
    const QFont font(family, 10);
    QTextDocument text;
    text.setPlainText(numbersUpTo(count));
    QGraphicsTextItem textItem;
    LineNumbers numbers;
    QGraphicsTextItem numbersItem;
    textItem.setDocument(&text);
    numbersItem.setDocument(&numbers);
    for (QGraphicsTextItem *item : {&textItem, &numbersItem}) {
        item->setFont(font);
        item->setDefaultTextColor(Qt::gray);
    }
    numbers.setNumbers(numbersUpTo(count));
    QCOMPARE(numbers.blockCount(), 1);
    QCOMPARE(numbers.size(), text.size());
    QCOMPARE(numbers.shownBlockCount(), text.blockCount());
    QCOMPARE(numbersItem.boundingRect().size(), text.size());
    const double height = text.size().height();
    for (const QRectF &area : {QRectF(0, 0, 80, 300), QRectF(0, height - 150, 80, 200), QRectF(3, height / 2, 9, 1),
                               QRectF(0, height + 10, 50, 50)}) {
        const QImage expected = itemPicture(&textItem, area);
        QCOMPARE(itemPicture(&numbersItem, area), expected);
    }
    // And once more with the text written.
    numbers.write();
    QCOMPARE(numbers.size(), text.size());
    QCOMPARE(numbersItem.boundingRect().size(), text.size());
    QCOMPARE(itemPicture(&numbersItem, QRectF(0, 0, 80, 300)), itemPicture(&textItem, QRectF(0, 0, 80, 300)));
}

void TestLineNumbers::writesTheText()
{
    LineNumbers numbers;
    QCOMPARE(numbers.toPlainText(), QString());
    QVERIFY(!numbers.isUndoRedoEnabled());
    numbers.setNumbers(numbersUpTo(12));
    numbers.write();
    QCOMPARE(numbers.toPlainText(), numbersUpTo(12));
    QCOMPARE(numbers.blockCount(), 13);
    numbers.setNumbers(numbersUpTo(5));
    numbers.write();
    QCOMPARE(numbers.toPlainText(), numbersUpTo(5));
    QVERIFY(!numbers.isUndoRedoEnabled());
}

void TestLineNumbers::followsTheLines_data()
{
    QTest::addColumn<bool>("written");
    QTest::newRow("from the count alone") << false;
    QTest::newRow("with the text written") << true;
}

void TestLineNumbers::followsTheLines()
{
    QFETCH(bool, written);
    LineNumbers numbers;
    int count = 0;
    for (const int next : {1, 60, 59, 9, 10, 300, 2, 0, 7}) {
        if (written)
            numbers.write();
        numbers.follow(count, next);
        count = next;
        QTextDocument text;
        text.setDefaultFont(numbers.defaultFont());
        text.setPlainText(numbersUpTo(count));
        QCOMPARE(numbers.shownBlockCount(), count + 1);
        QCOMPARE(numbers.size(), text.size());
        if (written)
            QCOMPARE(numbers.toPlainText(), numbersUpTo(count));
    }
    numbers.write();
    QCOMPARE(numbers.toPlainText(), numbersUpTo(7));
}

void TestLineNumbers::anyChangeIsOneEdit()
{
    LineNumbers numbers;
    numbers.setNumbers(numbersUpTo(3));
    numbers.write();
    QSignalSpy edits(&numbers, &QTextDocument::contentsChange);
    numbers.follow(3, 5000);
    QCOMPARE(edits.size(), 1);
    numbers.follow(5000, 2);
    QCOMPARE(edits.size(), 2);
    QCOMPARE(numbers.toPlainText(), numbersUpTo(2));
}

void TestLineNumbers::showsForeignTextAsItIs()
{
    LineNumbers numbers;
    for (const QString &text : {QStringLiteral("a\nb"), QString(), QStringLiteral("1\n2"), QStringLiteral("1\n3\n"),
                                QStringLiteral("01\n2\n"), QStringLiteral("1\n2\n")}) {
        numbers.setNumbers(text);
        numbers.write();
        QCOMPARE(numbers.toPlainText(), text);
    }
    numbers.setNumbers(QStringLiteral("x\n"));
    numbers.follow(1, 3);
    QCOMPARE(numbers.toPlainText(), QStringLiteral("x\n2\n3\n"));
    numbers.follow(3, 2);
    QCOMPARE(numbers.toPlainText(), QStringLiteral("x\n2\n"));
    numbers.follow(200, 1);
    QCOMPARE(numbers.toPlainText(), QString());
}

void TestLineNumbers::followsTheFont()
{
    LineNumbers numbers;
    QTextDocument text;
    numbers.setNumbers(numbersUpTo(500));
    text.setPlainText(numbersUpTo(500));
    for (const char *family : {"Courier", "Arial", "DejaVu Serif"}) {
        numbers.setDefaultFont(QFont(QString::fromLatin1(family), 19));
        text.setDefaultFont(numbers.defaultFont());
        QCOMPARE(numbers.size(), text.size());
    }
    numbers.setDocumentMargin(9);
    text.setDocumentMargin(9);
    QCOMPARE(numbers.size(), text.size());
}

void TestLineNumbers::tellsItsItemOfChanges()
{
    LineNumbers numbers;
    QSignalSpy sizes(numbers.documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged);
    QSignalSpy updates(numbers.documentLayout(), &QAbstractTextDocumentLayout::update);
    numbers.follow(0, 5);
    QCOMPARE(sizes.size(), 1);
    QCOMPARE(sizes.first().first().toSizeF(), numbers.size());
    updates.clear();
    const double heightBefore = numbers.size().height();
    numbers.follow(5, 6);
    QCOMPARE(updates.size(), 1);
    // The numbers above stay; the new one comes where the empty line was.
    const QRectF updated = updates.first().first().toRectF();
    QVERIFY(updated.top() > 0);
    QVERIFY(updated.top() < heightBefore);
    QVERIFY(updated.bottom() > numbers.size().height());
    numbers.follow(6, 6);
    QCOMPARE(updates.size(), 1);
}

void TestLineNumbers::standsBesideTallLines()
{
    Text text("a\nb\nc");
    LineNumbers alone;
    LineNumbers beside;
    beside.standBeside(text.layout);
    QGraphicsTextItem aloneItem;
    QGraphicsTextItem besideItem;
    aloneItem.setDocument(&alone);
    besideItem.setDocument(&beside);
    alone.setNumbers(numbersUpTo(3));
    beside.setNumbers(numbersUpTo(3));
    const double height = text.layout->lineHeight(0);
    const double margin = beside.documentMargin();
    const auto shown = [](QGraphicsTextItem &item, double top, double h) {
        return itemPicture(&item, QRectF(0, top, 40, h));
    };
    QCOMPARE(shown(besideItem, 0, 5 * height), shown(aloneItem, 0, 5 * height));

    QSignalSpy updates(beside.documentLayout(), &QAbstractTextDocumentLayout::update);
    QSignalSpy sizes(beside.documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged);
    text.enlargeLine(1);
    const double tall = text.layout->lineHeight(1);
    QVERIFY(tall > 2 * height);
    QCOMPARE(sizes.size(), 1);
    QCOMPARE(updates.size(), 1);
    QCOMPARE(updates.first().first().toRectF().top(), text.layout->lineTop(1));
    QCOMPARE(beside.size().height(), 3 * height + tall + 2 * margin);
    QCOMPARE(shown(besideItem, margin, height), shown(aloneItem, margin, height));
    QCOMPARE(shown(besideItem, text.layout->lineTop(1) + std::floor((tall - height) / 2), height),
             shown(aloneItem, margin + height, height));
    QCOMPARE(shown(besideItem, text.layout->lineTop(2), height), shown(aloneItem, margin + 2 * height, height));
}

void TestLineNumbers::linesThatTheTextLacksGoOnBelow()
{
    Text text("a");
    text.enlargeLine(0);
    LineNumbers numbers;
    numbers.standBeside(text.layout);
    numbers.setNumbers(numbersUpTo(3));
    LineNumbers alone;
    const double height = alone.size().height() - 2 * alone.documentMargin();
    QCOMPARE(numbers.size().height(), text.layout->lineHeight(0) + 3 * height + 2 * numbers.documentMargin());
}

void TestLineNumbers::theTextMayDieFirst()
{
    Text text("a\nb");
    LineNumbers numbers;
    numbers.standBeside(text.layout);
    text.document.reset();
    numbers.setNumbers(numbersUpTo(2));
    QGraphicsTextItem item;
    item.setDocument(&numbers);
    LineNumbers alone;
    QGraphicsTextItem aloneItem;
    aloneItem.setDocument(&alone);
    alone.setNumbers(numbersUpTo(2));
    QCOMPARE(itemPicture(&item, QRectF(0, 0, 40, 60)), itemPicture(&aloneItem, QRectF(0, 0, 40, 60)));
}

REGISTER_TEST(TestLineNumbers)
#include "tst_linenumbers.moc"
