// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of more than 64 k characters, which are laid out in pieces.
#include "documents/longline.h"

#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "documents/twins.h"
#include "support/testmain.h"

#include <QGuiApplication>
#include <QRandomGenerator>
#include <QStyleHints>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>

namespace {

const QString words = QStringLiteral("if (a[i] != 0 && b->c == 0x1F) return foo(a, b); ");
const QString tabbed = QStringLiteral("name\tvalue\t12\t\tlong entry of several words\tx");
const QString unbroken = QStringLiteral("QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVphYmNkZWZnaGlqa2xtbm9w/+");
const QString foreign = QStringLiteral(
    "\u4e2d\u6587 text \u6587\u5b57 \U0001F600 \u2764 \u0645\u0631\u062d\u0628\u0627 e\u0301a\u0308 caf\u00e9 ");

QString longText(const QString &part, int length)
{
    return part.repeated(length / part.size() + 1).left(length);
}

QTextBlock longBlock(const QTextDocument &document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (LongLine::isLong(block))
            return block;
    }
    return {};
}

/// A text item shown in a page, with the caret in it, as in the window.
class ShownText
{
public:
    explicit ShownText(const QString &text) : m_page(nullptr), m_view(&m_page, nullptr)
    {
        m_page.setTextContents(QStringLiteral("a.txt"), text, QStringLiteral("1\n2\n3\n"));
        m_page.setPageView(&m_view);
        m_view.resize(500, 300);
        m_view.show();
    }

    bool isReady()
    {
        if (!QTest::qWaitForWindowActive(&m_view))
            return false;
        m_view.setFocus();
        m_page.focusDocument();
        return item()->hasFocus();
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {}, const QString &text = {})
    {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(&m_view, &press);
    }
    void setCaret(int position)
    {
        QTextCursor cursor(item()->document());
        cursor.setPosition(position);
        item()->setTextCursor(cursor);
    }
    QGraphicsTextItem *item() { return m_page.documentItem()->textItem(); }
    TextLayout *layout() { return qobject_cast<TextLayout *>(item()->document()->documentLayout()); }
    PageView *view() { return &m_view; }
    /// Of the caret, in the viewport.
    QRectF caret()
    {
        const QRectF rect = layout()->caretRect(item()->textCursor().position());
        return m_view.mapFromScene(item()->mapRectToScene(rect)).boundingRect();
    }
    bool caretIsSeen() { return QRectF(m_view.viewport()->rect()).contains(caret()); }

private:
    Page m_page;
    PageView m_view;
};

} // namespace

class TestLongLine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void placesAreThoseOfQt();
    void selectionsLookTheSame_data();
    void selectionsLookTheSame();
    void inputMethodTextLooksTheSame();
    void editsMeasureLikeTheWholeText_data();
    void editsMeasureLikeTheWholeText();
    void boldWordsAreMeasured();
    void growsLongAndShort();
    void isNeverShapedAsAWhole();
    void tallPiecesShareTheBaseline();
    void separatorsAreBlanks();
    void keysMoveLikeQt();
    void typedTextStaysInSight_data();
    void typedTextStaysInSight();
    void caretIsPaintedWhereItMoved();
    void doubleClickSelectsAWord();
    void widerThanTheTextEngineCounts();
    void questionsDuringAChange();
};

void TestLongLine::initTestCase()
{
    QGuiApplication::styleHints()->setCursorFlashTime(0);
}

void TestLongLine::placesAreThoseOfQt()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(QStringLiteral("short\n") + longText(words, 90'000) + QStringLiteral("\nshort"));
    QCOMPARE(twins.ours.size(), twins.qt.size());
    const QTextBlock expected = longBlock(twins.qt);
    const QTextBlock actual = longBlock(twins.ours);
    QCOMPARE(twins.ours.documentLayout()->blockBoundingRect(actual),
             twins.qt.documentLayout()->blockBoundingRect(expected));
    const QTextLine line = expected.layout()->lineAt(0);
    for (int position = 0; position <= 90'000; position += 611) {
        const QRectF caret = twins.layout()->caretRect(actual.position() + position);
        QCOMPARE(caret.left(), expected.layout()->position().x() + line.cursorToX(position));
        QCOMPARE(caret.top(), expected.layout()->position().y());
        QCOMPARE(caret.height(), line.height());
    }
    QRandomGenerator random(5);
    for (int i = 0; i < 500; ++i) {
        const QPointF point(random.bounded(twins.qt.size().width() + 40) - 20,
                            random.bounded(twins.qt.size().height()));
        for (const Qt::HitTestAccuracy accuracy : {Qt::ExactHit, Qt::FuzzyHit})
            QCOMPARE(twins.ours.documentLayout()->hitTest(point, accuracy),
                     twins.qt.documentLayout()->hitTest(point, accuracy));
    }
    QCOMPARE(twins.layout()->caretRect(-1), QRectF());
    QCOMPARE(twins.layout()->caretRect(3).left(), twins.layout()->caretRect(actual.position() + 3).left());
}

void TestLongLine::selectionsLookTheSame_data()
{
    QTest::addColumn<int>("anchor");
    QTest::addColumn<int>("position");
    QTest::newRow("caret at the start") << 2 << 2;
    QTest::newRow("caret in the middle") << 35'010 << 35'010;
    QTest::newRow("over the cut between pieces") << 35'000 << 35'900;
    QTest::newRow("backwards over many pieces") << 36'000 << 20'000;
    QTest::newRow("to the end") << 35'000 << 70'002;
    QTest::newRow("over the line end") << 69'990 << 70'004;
    QTest::newRow("everything") << 0 << 70'005;
}

void TestLongLine::selectionsLookTheSame()
{
    QFETCH(int, anchor);
    QFETCH(int, position);
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(QStringLiteral("a\n") + longText(words, 70'000) + QStringLiteral("\nb"));
    const double width = twins.qt.size().width();
    for (const double x : {0.0, width / 2 - 300, width - 400}) {
        const QRectF area(x, 0, 600, 70);
        const ContextMaker context = [&](QTextDocument *document) {
            QTextCursor cursor(document);
            cursor.setPosition(anchor);
            cursor.setPosition(std::min(position, document->characterCount() - 1), QTextCursor::KeepAnchor);
            QTextCharFormat format;
            format.setBackground(Qt::darkBlue);
            format.setForeground(Qt::white);
            QAbstractTextDocumentLayout::PaintContext result;
            result.selections.append({cursor, format});
            result.cursorPosition = cursor.position();
            result.clip = area;
            return result;
        };
        QCOMPARE(pictureDifference(twins, area, context), QString());
    }
}

void TestLongLine::inputMethodTextLooksTheSame()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(longText(words, 70'000));
    Editor qt(&twins.qt);
    Editor ours(&twins.ours);
    QTextCharFormat format;
    format.setFontUnderline(true);
    format.setBackground(Qt::green);
    const auto input = [&](const QString &preedit, const QString &commit) {
        for (Editor *editor : {&qt, &ours}) {
            QInputMethodEvent event(preedit, {{QInputMethodEvent::TextFormat, 0, 3, format},
                                              {QInputMethodEvent::Cursor, 2, 1, QVariant()}});
            event.setCommitString(commit);
            editor->input(&event);
        }
    };
    for (Editor *editor : {&qt, &ours}) {
        QTextCursor cursor = editor->item->textCursor();
        cursor.setPosition(20);
        editor->item->setTextCursor(cursor);
    }
    input(QStringLiteral("preedit"), QString());
    QCOMPARE(twins.ours.size(), twins.qt.size());
    QCOMPARE(ours.picture(), qt.picture());
    input(QString(), QStringLiteral("commit"));
    QCOMPARE(twins.ours.toPlainText(), twins.qt.toPlainText());
    QCOMPARE(twins.ours.size(), twins.qt.size());
    QCOMPARE(ours.picture(), qt.picture());
}

void TestLongLine::editsMeasureLikeTheWholeText_data()
{
    QTest::addColumn<QString>("part");
    QTest::newRow("words") << words;
    QTest::newRow("tabs") << tabbed;
    QTest::newRow("no blanks") << unbroken;
    QTest::newRow("other scripts") << foreign;
}

void TestLongLine::editsMeasureLikeTheWholeText()
{
    QFETCH(QString, part);
    Twins twins(QFont(QStringLiteral("DejaVu Sans"), 10));
    // The other document gets the result of all edits at once.
    twins.qt.setDocumentLayout(new TextLayout(&twins.qt));
    twins.setText(QStringLiteral("first\n") + longText(part, 80'000) + QStringLiteral("\nlast"));
    QRandomGenerator random(11);
    const QStringList pieces{QStringLiteral("x"), QStringLiteral("\t"),     part,
                             part.repeated(60),   QStringLiteral("\u0301"), QStringLiteral("\U0001F600")};
    for (int step = 0; step < 60; ++step) {
        const QTextBlock block = longBlock(twins.ours);
        QTextCursor cursor(block);
        // Also at both ends of the line.
        const int place = step % 10 == 0 ? 0 : step % 10 == 1 ? block.length() - 1 : random.bounded(block.length());
        cursor.setPosition(block.position() + place);
        if (step % 3 == 2) {
            const int count = random.bounded(step % 2 == 0 ? 5 : 3000);
            cursor.setPosition(std::min(block.position() + block.length() - 1, cursor.position() + count),
                               QTextCursor::KeepAnchor);
        }
        cursor.insertText(step % 3 == 2 ? QString() : pieces.at(step % pieces.size()));
    }
    QVERIFY(longBlock(twins.ours).isValid());
    twins.qt.setPlainText(twins.ours.toPlainText());
    // Cut elsewhere, pieces lose other kerning, of a few pixels at most.
    QVERIFY(qAbs(twins.ours.size().width() - twins.qt.size().width()) < 40.0);
    QCOMPARE(twins.ours.size().height(), twins.qt.size().height());
    const QTextBlock block = longBlock(twins.ours);
    for (int place = 0; place < block.length(); place += 401) {
        const QRectF caret = twins.layout()->caretRect(block.position() + place);
        const QRectF expected =
            qobject_cast<TextLayout *>(twins.qt.documentLayout())->caretRect(block.position() + place);
        QVERIFY2(qAbs(caret.left() - expected.left()) < 40.0, qPrintable(QString::number(place)));
        QCOMPARE(caret.top(), expected.top());
        // A click on the caret's place finds it again.
        if (part != foreign)
            QCOMPARE(twins.layout()->hitTest(caret.center() - QPointF(caret.width() / 2, 0), Qt::FuzzyHit),
                     block.position() + place);
    }
    // Undone, it is as it was.
    while (twins.ours.isUndoAvailable())
        twins.ours.undo();
    twins.qt.setPlainText(QStringLiteral("first\n") + longText(part, 80'000) + QStringLiteral("\nlast"));
    QCOMPARE(twins.ours.toPlainText(), twins.qt.toPlainText());
    QVERIFY(qAbs(twins.ours.size().width() - twins.qt.size().width()) < 40.0);
}

void TestLongLine::boldWordsAreMeasured()
{
    Twins twins(QFont(QStringLiteral("DejaVu Sans"), 10));
    twins.setText(longText(words, 70'000));
    for (QTextDocument *document : twins.both()) {
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        QList<QTextLayout::FormatRange> formats;
        for (int start = 100; start < 69'000; start += 500)
            formats.append({start, 120, bold});
        document->begin().layout()->setFormats(formats);
        document->markContentsDirty(0, 70'000);
    }
    QVERIFY(qAbs(twins.ours.size().width() - twins.qt.size().width()) < 100.0);
    const QTextLine line = twins.qt.begin().layout()->lineAt(0);
    for (int position = 0; position < 70'000; position += 997)
        QVERIFY(qAbs(twins.layout()->caretRect(position).left() - 4 - line.cursorToX(position)) < 100.0);
    QCOMPARE(pictureDifference(twins, QRectF(0, 0, 2000, 40),
                               [](QTextDocument *) {
                                   QAbstractTextDocumentLayout::PaintContext context;
                                   context.clip = QRectF(0, 0, 2000, 40);
                                   return context;
                               }),
             QString());
}

void TestLongLine::growsLongAndShort()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(longText(words, 65'530));
    QVERIFY(!longBlock(twins.ours).isValid());
    for (int i = 0; i < 12; ++i) {
        for (QTextDocument *document : twins.both()) {
            QTextCursor cursor(document);
            cursor.setPosition(30'000);
            cursor.insertText(QStringLiteral("w"));
        }
        QCOMPARE(twins.ours.size(), twins.qt.size());
    }
    QVERIFY(longBlock(twins.ours).isValid());
    for (const QString &text : {QStringLiteral("\n"), QString()}) {
        for (QTextDocument *document : twins.both()) {
            QTextCursor cursor(document);
            cursor.setPosition(40'000);
            if (text.isEmpty())
                cursor.deleteChar();
            else
                cursor.insertText(text);
        }
        QVERIFY(longBlock(twins.ours).isValid() == text.isEmpty() || !text.isEmpty());
        QCOMPARE(twins.ours.size(), twins.qt.size());
    }
    for (QTextDocument *document : twins.both())
        document->undo();
    QCOMPARE(twins.ours.size(), twins.qt.size());
}

void TestLongLine::isNeverShapedAsAWhole()
{
    ShownText text(QStringLiteral("a\n") + longText(words, 300'000));
    QVERIFY(text.isReady());
    for (const int position : {0, 2, 150'000, 300'002}) {
        text.setCaret(position);
        for (const int key :
             {Qt::Key_X, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_Down})
            text.key(key, {}, key == Qt::Key_X ? QStringLiteral("x") : QString());
        text.view()->viewport()->grab();
    }
    const QTextBlock block = longBlock(*text.item()->document());
    QVERIFY(block.isValid());
    QCOMPARE(block.layout()->lineCount(), 0);
}

void TestLongLine::tallPiecesShareTheBaseline()
{
    QTextDocument document;
    document.setDefaultFont(QFont(QStringLiteral("Courier"), 10));
    auto *layout = new TextLayout(&document);
    document.setDocumentLayout(layout);
    document.setPlainText(longText(words, 70'000));
    const double ordinary = document.size().height();
    QTextCursor cursor(&document);
    cursor.setPosition(35'000);
    cursor.insertText(foreign);
    const double tall = document.size().height();
    QVERIFY(tall > ordinary);
    // The whole line is as high as its highest piece.
    QCOMPARE(layout->caretRect(10).height(), tall - 2 * document.documentMargin());
    cursor.setPosition(35'000, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    QCOMPARE(document.size().height(), ordinary);
}

void TestLongLine::separatorsAreBlanks()
{
    QTextDocument document;
    document.setDefaultFont(QFont(QStringLiteral("Courier"), 10));
    auto *layout = new TextLayout(&document);
    document.setDocumentLayout(layout);
    document.setPlainText(longText(words, 70'000));
    const QSizeF before = document.size();
    QTextCursor cursor(&document);
    cursor.setPosition(100);
    cursor.insertText(QString(QChar::LineSeparator));
    QCOMPARE(document.size().height(), before.height());
    QVERIFY(document.size().width() > before.width());
    QVERIFY(layout->caretRect(101).left() > layout->caretRect(100).left());
}

void TestLongLine::keysMoveLikeQt()
{
    const QString content = QStringLiteral("first line\n") + longText(words, 70'000) + QStringLiteral("\nlast");
    QTextDocument document;
    document.setDefaultFont(QFont(QStringLiteral("Courier"), 10));
    document.setPlainText(content);
    Editor qt(&document);
    ShownText ours(content);
    QVERIFY(ours.isReady());
    const QList<int> keys{Qt::Key_Left, Qt::Key_Right, Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Down, Qt::Key_Up,
                          Qt::Key_Home, Qt::Key_End,   Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_A};
    QRandomGenerator random(3);
    for (int step = 0; step < 250; ++step) {
        if (step % 25 == 0) {
            const int places[] = {0, 9, 11, 12, 5'000, 35'000, 70'008, 70'010};
            ours.setCaret(places[step / 25 % 8]);
            qt.item->setTextCursor([&] {
                QTextCursor cursor(&document);
                cursor.setPosition(ours.item()->textCursor().position());
                return cursor;
            }());
        }
        const int key = keys.at(random.bounded(static_cast<int>(keys.size())));
        Qt::KeyboardModifiers modifiers;
        const bool moves = key != Qt::Key_A && key != Qt::Key_Delete && key != Qt::Key_Backspace;
        if (moves && random.bounded(3) == 0)
            modifiers |= Qt::ShiftModifier;
        if (key != Qt::Key_A && key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_Home && key != Qt::Key_End &&
            random.bounded(3) == 0)
            modifiers |= Qt::ControlModifier;
        const QString text = key == Qt::Key_A ? QStringLiteral("a") : QString();
        qt.key(key, modifiers, text);
        ours.key(key, modifiers, text);
        const QByteArray what = QStringLiteral("step %1, key %2 with %3: %4 instead of %5")
                                    .arg(step)
                                    .arg(key, 0, 16)
                                    .arg(int(modifiers), 0, 16)
                                    .arg(ours.item()->textCursor().position())
                                    .arg(qt.item->textCursor().position())
                                    .toUtf8();
        QVERIFY2(ours.item()->textCursor().position() == qt.item->textCursor().position(), what);
        QVERIFY2(ours.item()->textCursor().anchor() == qt.item->textCursor().anchor(), what);
        QVERIFY2(ours.item()->document()->characterCount() == document.characterCount(), what);
    }
    QCOMPARE(ours.item()->toPlainText(), document.toPlainText());
    QVERIFY(document.toPlainText() != content);
}

void TestLongLine::typedTextStaysInSight_data()
{
    QTest::addColumn<int>("position");
    QTest::newRow("at the start") << 0;
    QTest::newRow("in the middle") << 100'000;
    QTest::newRow("at the end") << 200'000;
}

void TestLongLine::typedTextStaysInSight()
{
    QFETCH(int, position);
    const QString content = longText(words, 200'000);
    ShownText text(content);
    QVERIFY(text.isReady());
    text.setCaret(position);
    QVERIFY(text.caretIsSeen());
    const QRectF before = text.caret();
    text.key(Qt::Key_X, {}, QStringLiteral("x"));
    QCOMPARE(text.item()->document()->characterAt(position), QLatin1Char('x'));
    QCOMPARE(text.item()->textCursor().position(), position + 1);
    QVERIFY(text.caretIsSeen());
    // The view only moves as far as it must.
    QVERIFY(qAbs(text.caret().left() - before.left()) < 30.0);
    text.key(Qt::Key_Backspace, {}, QStringLiteral("\b"));
    QCOMPARE(text.item()->toPlainText(), content);
    QVERIFY(text.caretIsSeen());
    text.key(Qt::Key_End);
    QVERIFY(text.caretIsSeen());
    QCOMPARE(text.item()->textCursor().position(), 200'000);
    text.key(Qt::Key_Home);
    QVERIFY(text.caretIsSeen());
    text.setCaret(position);
    text.key(Qt::Key_Return, {}, QStringLiteral("\r"));
    QCOMPARE(text.item()->document()->blockCount(), 2);
    QVERIFY(text.caretIsSeen());
}

void TestLongLine::caretIsPaintedWhereItMoved()
{
    ShownText text(longText(QStringLiteral(" "), 100'000));
    QVERIFY(text.isReady());
    const auto isDark = [&text](const QRectF &caret) {
        const QImage picture = text.view()->viewport()->grab().toImage();
        return picture.pixelColor(caret.toRect().center()).lightness() < 128;
    };
    text.setCaret(50'000);
    QCoreApplication::processEvents();
    const QRectF before = text.caret();
    QTRY_VERIFY(isDark(before));
    text.key(Qt::Key_Left);
    const QRectF after = text.caret();
    QVERIFY(after.right() < before.left());
    QTRY_VERIFY(isDark(after) && !isDark(before));
    QCOMPARE(text.item()->textCursor().position(), 49'999);
}

void TestLongLine::doubleClickSelectsAWord()
{
    ShownText text(longText(QStringLiteral("hello brave world "), 100'008));
    QVERIFY(text.isReady());
    text.setCaret(50'012);
    const QString expected = [&] {
        QTextDocument document(longText(QStringLiteral("hello brave world "), 90));
        QTextCursor cursor(&document);
        cursor.setPosition(50'012 % 18);
        cursor.select(QTextCursor::WordUnderCursor);
        return cursor.selectedText();
    }();
    QVERIFY(!expected.isEmpty());
    const QPoint place = text.caret().toRect().center();
    QTest::mouseClick(text.view()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(text.item()->textCursor().position(), 50'012);
    QTest::mouseDClick(text.view()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(text.item()->textCursor().selectedText(), expected);
}

void TestLongLine::widerThanTheTextEngineCounts()
{
    QTextDocument document;
    document.setDefaultFont(QFont(QStringLiteral("Courier"), 10));
    auto *layout = new TextLayout(&document);
    document.setDocumentLayout(layout);
    constexpr int length = 5'000'000;
    document.setPlainText(QString(length, QLatin1Char('m')));
    const double one = (layout->caretRect(1000).left() - layout->caretRect(0).left()) / 1000;
    QVERIFY(document.size().width() > std::numeric_limits<int>::max() / 64);
    QCOMPARE(document.size().width(), one * length + 2 * document.documentMargin());
    for (const int position : {0, 4'999'999, 4'500'000, 2'500'001, length}) {
        const QRectF caret = layout->caretRect(position);
        QCOMPARE(caret.left(), document.documentMargin() + position * one);
        QCOMPARE(layout->hitTest(caret.center(), Qt::FuzzyHit), position);
    }
    // The far end shows the same letters as the start.
    QAbstractTextDocumentLayout::PaintContext context;
    const auto pictureAt = [&](int position) {
        context.clip = QRectF(layout->caretRect(position).left(), 0, 200, 30);
        return painted(&document, context, context.clip);
    };
    QCOMPARE(pictureAt(4'500'000), pictureAt(100));
}

void TestLongLine::questionsDuringAChange()
{
    QTextDocument document;
    auto *layout = new TextLayout(&document);
    document.setDocumentLayout(layout);
    document.setPlainText(longText(words, 90'000));
    int asked = 0;
    connect(&document, &QTextDocument::contentsChange, this, [&](int position) {
        layout->blockBoundingRect(document.findBlock(position));
        layout->caretRect(position);
        layout->hitTest(QPointF(5000, 10), Qt::FuzzyHit);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = QRectF(0, 0, 200, 100);
        painted(&document, context, context.clip);
        ++asked;
    });
    QTextCursor cursor(&document);
    cursor.setPosition(40'000);
    cursor.insertText(QStringLiteral("\n"));
    cursor.deletePreviousChar();
    cursor.insertText(QStringLiteral("x"));
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    document.undo();
    QVERIFY(asked >= 5);
    QTextDocument fresh;
    fresh.setDocumentLayout(new TextLayout(&fresh));
    fresh.setPlainText(document.toPlainText());
    QCOMPARE(document.size().height(), fresh.size().height());
    QCOMPARE(longBlock(document).layout()->lineCount(), 0);
}

REGISTER_TEST(TestLongLine)
#include "tst_longline.moc"
