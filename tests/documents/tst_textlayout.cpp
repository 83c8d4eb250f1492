// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/textlayout.h"

#include "documents/twins.h"
#include "support/testmain.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsTextItem>
#include <QInputMethodEvent>
#include <QPainter>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyleHints>
#include <QSyntaxHighlighter>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <functional>
#include <memory>

namespace {

const QString arabic = QStringLiteral("\u0645\u0631\u062d\u0628\u0627 \u0628\u0627\u0644\u0639\u0627\u0644\u0645");
const QString hebrew = QStringLiteral("\u05e9\u05dc\u05d5\u05dd abc 123 (\u05e2\u05d5\u05dc\u05dd)");
const QString chinese = QStringLiteral("\u4e2d\u6587 text \u6587\u5b57");
const QString emoji = QStringLiteral("smile \U0001F600 end \u2764");
const QString cyrillic = QStringLiteral("\u041f\u0440\u0438\u0432\u0435\u0442, \u043c\u0438\u0440 42!");
const QString greek = QStringLiteral("\u039a\u03b1\u03bb\u03b7\u03bc\u03ad\u03c1\u03b1 x2");
const QString latin = QStringLiteral("na\u00efve caf\u00e9 \u00a7\u00b5 \u0141\u00f3d\u017a \u00a0x");
const QString combining = QStringLiteral("e\u0301a\u0308 z\u0335\u0336 soft\u00adhyphen \u200dq");
const QString thai = QStringLiteral("\u0e2a\u0e27\u0e31\u0e2a\u0e14\u0e35 \u0e01\u0e33");
const QString ligatures = QStringLiteral("office fi fl AVAToTeWA \"f\" -> != ___ W_");
const QString code = QStringLiteral("    if (a[i] != '\\0' && b->c == 0x1F) return foo(a, b); // note_");

QStringList sampleLines()
{
    return {code,
            QString(),
            arabic,
            hebrew,
            chinese,
            emoji,
            QStringLiteral("\t\tx\ty\t"),
            QStringLiteral("   "),
            cyrillic,
            greek,
            latin,
            combining,
            thai,
            ligatures,
            QStringLiteral("\t"),
            QStringLiteral("A__"),
            QStringLiteral("trailing   "),
            QStringLiteral("soft\u2028break\u2028")};
}

/// @p count lines, most of them source code with changing lengths, the samples in between.
QString manyLines(int count)
{
    const QStringList samples = sampleLines();
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines += i % 7 == 3 ? samples.at((i / 7) % samples.size()) + QString::number(i)
                            : code.left(1 + (i * 37) % code.size()) + QString::number(i);
    return lines.join(QLatin1Char('\n'));
}

/// Formats that show: a colour, a weight, a background, an underline, another size.
class WordHighlighter : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString &text) override
    {
        QTextCharFormat format;
        format.setForeground(Qt::red);
        mark(text, QStringLiteral("return|text"), format);
        format.setFontWeight(QFont::Bold);
        mark(text, QStringLiteral("\\bif\\b|foo|x"), format);
        format = {};
        format.setBackground(Qt::yellow);
        format.setFontUnderline(true);
        mark(text, QStringLiteral("//.*"), format);
        format = {};
        format.setFontPointSize(17);
        format.setFontItalic(true);
        mark(text, QStringLiteral("1F|big|99"), format);
    }

private:
    void mark(const QString &text, const QString &pattern, const QTextCharFormat &format)
    {
        const QRegularExpression expression(pattern);
        for (auto it = expression.globalMatch(text); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            setFormat(static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()), format);
        }
    }
};

/// The whole document, but no more than 3000 pixels to each side.
QRectF visibleArea(Twins &twins)
{
    const QSizeF size = twins.qt.size().boundedTo({3000, 3000});
    return QRectF(QPointF(), size).adjusted(0, 0, 20, 20);
}

QString geometryDifference(Twins &twins)
{
    const auto asText = [](const QRectF &rect) {
        return QStringLiteral("(%1, %2, %3, %4)").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
    };
    const QAbstractTextDocumentLayout *qt = twins.qt.documentLayout();
    const QAbstractTextDocumentLayout *ours = twins.ours.documentLayout();
    if (qt->documentSize() != ours->documentSize())
        return QStringLiteral("size: %1 instead of %2")
            .arg(asText({QPointF(), ours->documentSize()}), asText({QPointF(), qt->documentSize()}));
    if (qt->pageCount() != ours->pageCount() ||
        qt->frameBoundingRect(twins.qt.rootFrame()) != ours->frameBoundingRect(twins.ours.rootFrame()))
        return QStringLiteral("pages or root frame differ");
    for (QTextBlock a = twins.qt.begin(), b = twins.ours.begin(); a.isValid(); a = a.next(), b = b.next()) {
        const QRectF expected = qt->blockBoundingRect(a);
        const QRectF actual = ours->blockBoundingRect(b);
        if (expected != actual)
            return QStringLiteral("block %1: %2 instead of %3")
                .arg(a.blockNumber())
                .arg(asText(actual), asText(expected));
    }
    return {};
}

QString caretDifference(Twins &twins)
{
    twins.qt.size(); // Lays it out.
    for (QTextBlock a = twins.qt.begin(), b = twins.ours.begin(); a.isValid(); a = a.next(), b = b.next()) {
        twins.ours.documentLayout()->blockBoundingRect(b);
        if (a.layout()->lineCount() != b.layout()->lineCount())
            return QStringLiteral("block %1 has %2 lines").arg(a.blockNumber()).arg(b.layout()->lineCount());
        for (int i = 0; i < a.layout()->lineCount(); ++i) {
            const QTextLine expected = a.layout()->lineAt(i);
            const QTextLine actual = b.layout()->lineAt(i);
            for (int position = 0; position <= a.length(); ++position) {
                if (expected.cursorToX(position) != actual.cursorToX(position))
                    return QStringLiteral("caret %1 of block %2").arg(position).arg(a.blockNumber());
            }
            for (int x = -20; x < expected.naturalTextWidth() + 20; ++x) {
                if (expected.xToCursor(x) != actual.xToCursor(x))
                    return QStringLiteral("x %1 of block %2").arg(x).arg(a.blockNumber());
            }
        }
    }
    return {};
}

QString hitDifference(Twins &twins, double step)
{
    const QSizeF size = twins.qt.size();
    for (double y = -30; y < size.height() + 40; y += step) {
        for (double x = -40; x < size.width() + 60; x += 4.75) {
            for (const Qt::HitTestAccuracy accuracy : {Qt::ExactHit, Qt::FuzzyHit}) {
                const int expected = twins.qt.documentLayout()->hitTest({x, y}, accuracy);
                const int actual = twins.ours.documentLayout()->hitTest({x, y}, accuracy);
                if (expected != actual)
                    return QStringLiteral("%1 hit at %2, %3: %4 instead of %5")
                        .arg(accuracy == Qt::ExactHit ? QStringLiteral("exact") : QStringLiteral("fuzzy"))
                        .arg(x)
                        .arg(y)
                        .arg(actual)
                        .arg(expected);
            }
        }
    }
    return {};
}

/// How many blocks have a laid-out QTextLayout of their own.
int laidOutBlocks(const QTextDocument &document)
{
    int laidOut = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        laidOut += block.layout()->lineCount() > 0 ? 1 : 0;
    return laidOut;
}

} // namespace

class TestTextLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void looksLikeQtsLayout_data();
    void looksLikeQtsLayout();
    void longLineLooksTheSame();
    void manyLinesAreMeasuredExactly_data();
    void manyLinesAreMeasuredExactly();
    void selectionsAndCaretLookTheSame_data();
    void selectionsAndCaretLookTheSame();
    void clipsLikeQt();
    void caretAndHitsAreWhereQtPutsThem();
    void followsFontAndOptions();
    void followsRandomEdits_data();
    void followsRandomEdits();
    void highlightedTextLooksTheSame_data();
    void highlightedTextLooksTheSame();
    void inputMethodTextLooksTheSame();
    void keysMoveAlike();
    void mouseSelectsAlike();
    void reportsSizeAtOnce();
    void updatesOnlyWhatChanged();
    void paintingKeepsNoLayouts();
    void layoutsAreReleasedAlsoAfterLinesMoved();
    void paintsRightAfterPaintingDuringAChange();
    void survivesQuestionsDuringAChange();
    void survivesForeignBlocks();
};

void TestTextLayout::initTestCase()
{
    // A caret that blinks would be seen on one of two pictures only.
    QGuiApplication::styleHints()->setCursorFlashTime(0);
}

void TestTextLayout::looksLikeQtsLayout_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("text");
    const QStringList samples = sampleLines();
    for (const char *family : {"Courier", "Arial", "DejaVu Sans", "DejaVu Sans Mono", "Liberation Serif"}) {
        const QString name = QString::fromLatin1(family);
        QTest::addRow("%s, no text", family) << name << QString();
        QTest::addRow("%s, blanks", family) << name << QString(60, QLatin1Char(' '));
        QTest::addRow("%s, empty lines", family) << name << QStringLiteral("\n\n\n");
        QTest::addRow("%s, line end at the end", family) << name << QStringLiteral("one\ntwo\n");
        QTest::addRow("%s, all samples", family) << name << samples.join(QLatin1Char('\n'));
        QTest::addRow("%s, samples in one line", family) << name << samples.join(QLatin1Char(' '));
        for (qsizetype i = 0; i < samples.size(); ++i)
            QTest::addRow("%s, sample %d", family, int(i)) << name << samples.at(i);
    }
}

void TestTextLayout::looksLikeQtsLayout()
{
    QFETCH(QString, family);
    QFETCH(QString, text);
    Twins twins(QFont(family, 10));
    twins.setText(text);
    QCOMPARE(geometryDifference(twins), QString());
    QCOMPARE(pictureDifference(twins, visibleArea(twins)), QString());
}

void TestTextLayout::longLineLooksTheSame()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(QStringLiteral("short\n") + code.repeated(100'000 / code.size()) + QStringLiteral("\nshort"));
    QCOMPARE(geometryDifference(twins), QString());
    for (const double x : {0.0, 500'000.0, twins.qt.size().width() - 300.0}) {
        const QRectF area(x, 0, 400, 80);
        QCOMPARE(pictureDifference(twins, area,
                                   [&area](QTextDocument *) {
                                       QAbstractTextDocumentLayout::PaintContext context;
                                       context.clip = area;
                                       return context;
                                   }),
                 QString());
    }
}

void TestTextLayout::manyLinesAreMeasuredExactly_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("size");
    for (const char *family : {"Courier", "Arial", "DejaVu Sans", "DejaVu Sans Mono", "DejaVu Serif"}) {
        for (const int size : {7, 10, 23})
            QTest::addRow("%s %d", family, size) << QString::fromLatin1(family) << size;
    }
}

void TestTextLayout::manyLinesAreMeasuredExactly()
{
    QFETCH(QString, family);
    QFETCH(int, size);
    Twins twins(QFont(family, size));
    twins.setText(manyLines(400));
    QCOMPARE(geometryDifference(twins), QString());
    // The greatest width of a text that grows line by line is the width of each line once.
    for (const QString &line : sampleLines() + manyLines(60).split(QLatin1Char('\n'))) {
        twins.setText((line + QLatin1Char('\n')).repeated(80));
        QVERIFY2(twins.ours.size() == twins.qt.size(), qPrintable(line));
    }
}

void TestTextLayout::selectionsAndCaretLookTheSame_data()
{
    QTest::addColumn<int>("anchor");
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("fullWidth");
    QTest::newRow("caret at the start") << 0 << 0 << false;
    QTest::newRow("caret within a line") << 9 << 9 << false;
    QTest::newRow("caret in right-to-left text") << 70 << 70 << false;
    QTest::newRow("part of a line") << 3 << 20 << false;
    QTest::newRow("over many lines") << 10 << 180 << false;
    QTest::newRow("backwards") << 150 << 40 << false;
    QTest::newRow("everything") << 0 << 100'000 << false;
    QTest::newRow("full width") << 10 << 180 << true;
    QTest::newRow("line of the caret in full width") << 12 << 12 << true;
}

void TestTextLayout::selectionsAndCaretLookTheSame()
{
    QFETCH(int, anchor);
    QFETCH(int, position);
    QFETCH(bool, fullWidth);
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(sampleLines().join(QLatin1Char('\n')));
    const ContextMaker context = [=](QTextDocument *document) {
        QTextCursor cursor(document);
        cursor.setPosition(std::min(anchor, document->characterCount() - 1));
        cursor.setPosition(std::min(position, document->characterCount() - 1), QTextCursor::KeepAnchor);
        QTextCharFormat format;
        format.setBackground(Qt::darkBlue);
        format.setForeground(Qt::white);
        if (fullWidth)
            format.setProperty(QTextFormat::FullWidthSelection, true);
        QAbstractTextDocumentLayout::PaintContext result;
        result.selections.append({cursor, format});
        result.cursorPosition = cursor.position();
        result.palette.setColor(QPalette::Text, Qt::darkGreen);
        return result;
    };
    QCOMPARE(pictureDifference(twins, visibleArea(twins), context), QString());
    for (QTextDocument *document : twins.both())
        document->documentLayout()->setProperty("cursorWidth", 5);
    QCOMPARE(twins.layout()->cursorWidth(), 5);
    QCOMPARE(pictureDifference(twins, visibleArea(twins), context), QString());
}

void TestTextLayout::clipsLikeQt()
{
    Twins twins(QFont(QStringLiteral("Arial"), 10));
    twins.setText(manyLines(200));
    const QSizeF size = twins.qt.size();
    for (const QRectF &clip : {QRectF(0, 0, 100, 100), QRectF(50, 731.5, 80, 33.25), QRectF(-50, -50, 60, 60),
                               QRectF(0, size.height() - 20, 300, 200), QRectF(size.width() + 1, 0, 50, 50),
                               QRectF(0, size.height() + 1, 50, 50), QRectF(20, 100, 0.5, 0.5)}) {
        QCOMPARE(pictureDifference(twins, clip.adjusted(-10, -40, 10, 40),
                                   [&clip](QTextDocument *document) {
                                       QAbstractTextDocumentLayout::PaintContext context;
                                       context.clip = clip;
                                       QTextCursor cursor(document);
                                       cursor.select(QTextCursor::Document);
                                       QTextCharFormat format;
                                       format.setBackground(Qt::cyan);
                                       context.selections.append({cursor, format});
                                       return context;
                                   }),
                 QString());
    }
}

void TestTextLayout::caretAndHitsAreWhereQtPutsThem()
{
    for (const char *family : {"Courier", "Arial"}) {
        Twins twins(QFont(QString::fromLatin1(family), 10));
        twins.setText(sampleLines().join(QLatin1Char('\n')));
        QCOMPARE(caretDifference(twins), QString());
        // Whole pixels hit the borders between lines, the others what lies between.
        QCOMPARE(hitDifference(twins, 1.0), QString());
        QCOMPARE(hitDifference(twins, 3.7), QString());
    }
    Twins empty(QFont(QStringLiteral("Courier"), 10));
    QCOMPARE(hitDifference(empty, 1.0), QString());
}

void TestTextLayout::followsFontAndOptions()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(manyLines(150));
    const auto change = [&twins](const std::function<void(QTextDocument *)> &apply) {
        for (QTextDocument *document : twins.both())
            apply(document);
        const QString difference = geometryDifference(twins);
        return difference.isEmpty() ? pictureDifference(twins, visibleArea(twins)) : difference;
    };
    QCOMPARE(change([](QTextDocument *document) { document->setDefaultFont(QFont(QStringLiteral("Arial"), 17)); }),
             QString());
    QCOMPARE(change([](QTextDocument *document) { document->setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 8)); }),
             QString());
    QCOMPARE(change([](QTextDocument *document) {
                 QTextOption option = document->defaultTextOption();
                 option.setTabStopDistance(37.5);
                 document->setDefaultTextOption(option);
             }),
             QString());
    QCOMPARE(change([](QTextDocument *document) {
                 QTextOption option = document->defaultTextOption();
                 option.setTabStopDistance(0);
                 document->setDefaultTextOption(option);
             }),
             QString());
    QCOMPARE(change([](QTextDocument *document) { document->setDocumentMargin(11.3); }), QString());
    QCOMPARE(change([](QTextDocument *document) {
                 QTextOption option = document->defaultTextOption();
                 option.setTextDirection(Qt::RightToLeft);
                 document->setDefaultTextOption(option);
             }),
             QString());
    QCOMPARE(change([](QTextDocument *document) {
                 QTextOption option = document->defaultTextOption();
                 option.setFlags(QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators);
                 document->setDefaultTextOption(option);
             }),
             QString());
}

void TestTextLayout::followsRandomEdits_data()
{
    QTest::addColumn<int>("seed");
    for (const int seed : {1, 20, 300, 4000})
        QTest::addRow("seed %d", seed) << seed;
}

void TestTextLayout::followsRandomEdits()
{
    QFETCH(int, seed);
    QRandomGenerator random(static_cast<quint32>(seed));
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(manyLines(120));
    const QStringList samples = sampleLines();
    for (int step = 0; step < 80; ++step) {
        const int kind = random.bounded(9);
        const int length = twins.qt.characterCount() - 1;
        const int from = random.bounded(length + 1);
        const int to = std::min(length, from + random.bounded(kind == 4 ? 2000 : 30));
        const QString sample = samples.at(random.bounded(static_cast<int>(samples.size())));
        const int lines = random.bounded(150);
        for (QTextDocument *document : twins.both()) {
            QTextCursor cursor(document);
            cursor.setPosition(from);
            switch (kind) {
            case 0:
                cursor.insertText(sample);
                break;
            case 1:
                cursor.insertText(QStringLiteral("\n"));
                break;
            case 2:
                cursor.insertText(manyLines(lines));
                break;
            case 3:
            case 4:
                cursor.setPosition(to, QTextCursor::KeepAnchor);
                cursor.removeSelectedText();
                break;
            case 5:
                document->undo();
                break;
            case 6:
                document->redo();
                break;
            case 7:
                // Two far-apart changes at once.
                cursor.beginEditBlock();
                cursor.insertText(QStringLiteral("a\nb"));
                cursor.setPosition(length / 2);
                cursor.deleteChar();
                cursor.endEditBlock();
                break;
            default:
                cursor.setPosition(to, QTextCursor::KeepAnchor);
                cursor.insertText(sample + QLatin1Char('\n') + sample);
                break;
            }
        }
        QCOMPARE(twins.ours.toPlainText(), twins.qt.toPlainText());
        const QString difference = geometryDifference(twins);
        QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("step %1: %2").arg(step).arg(difference)));
    }
    QCOMPARE(pictureDifference(twins, visibleArea(twins)), QString());
}

void TestTextLayout::highlightedTextLooksTheSame_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<bool>("attachedFirst");
    QTest::addColumn<int>("lines");
    for (const char *family : {"Courier", "Arial"}) {
        for (const int lines : {12, 300}) {
            QTest::addRow("%s, %d lines, before the text", family, lines)
                << QString::fromLatin1(family) << true << lines;
            QTest::addRow("%s, %d lines, after the text", family, lines)
                << QString::fromLatin1(family) << false << lines;
        }
    }
}

void TestTextLayout::highlightedTextLooksTheSame()
{
    QFETCH(QString, family);
    QFETCH(bool, attachedFirst);
    QFETCH(int, lines);
    Twins twins(QFont(family, 10));
    if (!attachedFirst)
        twins.setText(manyLines(lines));
    else
        twins.layout()->setHighlighted(true);
    std::vector<std::unique_ptr<WordHighlighter>> highlighters;
    for (QTextDocument *document : twins.both()) {
        highlighters.push_back(std::make_unique<WordHighlighter>(document));
        if (!attachedFirst)
            highlighters.back()->rehighlight();
    }
    if (attachedFirst)
        twins.setText(manyLines(lines));
    const auto difference = [&twins] {
        const QString geometry = geometryDifference(twins);
        return geometry.isEmpty() ? pictureDifference(twins, visibleArea(twins)) : geometry;
    };
    QCOMPARE(difference(), QString());
    for (QTextDocument *document : twins.both()) {
        QTextCursor cursor(document);
        cursor.setPosition(100);
        cursor.insertText(QStringLiteral("big if foo\n") + manyLines(90));
    }
    QCOMPARE(difference(), QString());
    highlighters.clear();
    QCOMPARE(difference(), QString());
}

void TestTextLayout::inputMethodTextLooksTheSame()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(sampleLines().join(QLatin1Char('\n')));
    Editor qt(&twins.qt);
    Editor ours(&twins.ours);
    const auto input = [&](const QString &preedit, const QList<QInputMethodEvent::Attribute> &attributes,
                           const QString &commit) {
        for (Editor *editor : {&qt, &ours}) {
            QInputMethodEvent event(preedit, attributes);
            event.setCommitString(commit);
            editor->input(&event);
        }
        const QString difference = geometryDifference(twins);
        if (!difference.isEmpty())
            return difference;
        return qt.picture() == ours.picture() ? QString() : QStringLiteral("pictures differ");
    };
    QTextCharFormat format;
    format.setFontUnderline(true);
    format.setBackground(Qt::green);
    const QList<QInputMethodEvent::Attribute> attributes{{QInputMethodEvent::TextFormat, 0, 3, format},
                                                         {QInputMethodEvent::Cursor, 2, 1, QVariant()}};
    QCOMPARE(input(QStringLiteral("preedit"), attributes, {}), QString());
    QCOMPARE(input(chinese.repeated(20), attributes, {}), QString());
    QCOMPARE(input({}, {}, chinese), QString());
    QCOMPARE(input({}, {}, {}), QString());
    QVERIFY(twins.ours.toPlainText().startsWith(chinese));
}

void TestTextLayout::keysMoveAlike()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(sampleLines().join(QLatin1Char('\n')));
    Editor qt(&twins.qt);
    Editor ours(&twins.ours);
    const QList<int> keys{Qt::Key_Down,   Qt::Key_End,   Qt::Key_Up,  Qt::Key_Left,   Qt::Key_PageDown,
                          Qt::Key_Home,   Qt::Key_Right, Qt::Key_A,   Qt::Key_Return, Qt::Key_Delete,
                          Qt::Key_Down,   Qt::Key_Down,  Qt::Key_End, Qt::Key_Down,   Qt::Key_Backspace,
                          Qt::Key_PageUp, Qt::Key_Z};
    QRandomGenerator random(77);
    for (int step = 0; step < 400; ++step) {
        const int key = keys.at(random.bounded(static_cast<int>(keys.size())));
        Qt::KeyboardModifiers modifiers;
        if (key != Qt::Key_A && random.bounded(3) == 0)
            modifiers |= Qt::ShiftModifier;
        if (key == Qt::Key_Z || random.bounded(5) == 0)
            modifiers |= Qt::ControlModifier;
        const QString text = key == Qt::Key_A && !modifiers ? QStringLiteral("a") : QString();
        qt.key(key, modifiers, text);
        ours.key(key, modifiers, text);
        QCOMPARE(ours.item->textCursor().position(), qt.item->textCursor().position());
        QCOMPARE(ours.item->textCursor().anchor(), qt.item->textCursor().anchor());
        QCOMPARE(ours.item->toPlainText(), qt.item->toPlainText());
        if (step % 20 == 0)
            QCOMPARE(ours.picture(), qt.picture());
    }
    QVERIFY(qt.item->toPlainText() != sampleLines().join(QLatin1Char('\n')));
    QCOMPARE(ours.item->boundingRect().size(), twins.qt.size());
}

void TestTextLayout::mouseSelectsAlike()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(sampleLines().join(QLatin1Char('\n')));
    Editor qt(&twins.qt);
    Editor ours(&twins.ours);
    int selections = 0;
    for (int y = -5; y < twins.qt.size().height() + 20; y += 23) {
        for (Editor *editor : {&qt, &ours}) {
            editor->mouse(QEvent::GraphicsSceneMousePress, QPointF(30, std::max(5, y)), Qt::LeftButton);
            editor->mouse(QEvent::GraphicsSceneMouseMove, QPointF(150, y + 40), Qt::LeftButton);
            editor->mouse(QEvent::GraphicsSceneMouseRelease, QPointF(150, y + 40), Qt::NoButton);
        }
        QCOMPARE(ours.item->textCursor().position(), qt.item->textCursor().position());
        QCOMPARE(ours.item->textCursor().selectedText(), qt.item->textCursor().selectedText());
        QCOMPARE(ours.picture(), qt.picture());
        selections += ours.item->textCursor().hasSelection() ? 1 : 0;
    }
    QVERIFY(selections > 5);
}

void TestTextLayout::reportsSizeAtOnce()
{
    QTextDocument document;
    auto *layout = new TextLayout(&document);
    document.setDocumentLayout(layout);
    QSignalSpy sizes(layout, &QAbstractTextDocumentLayout::documentSizeChanged);
    document.setPlainText(QStringLiteral("one\ntwo"));
    QVERIFY(!sizes.isEmpty());
    QCOMPARE(sizes.last().first().toSizeF(), document.size());
    sizes.clear();

    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("wider than before "));
    QCOMPARE(sizes.size(), 1);
    QCOMPARE(sizes.last().first().toSizeF(), document.size());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("x"));
    QCOMPARE(sizes.size(), 1);
    cursor.insertText(QStringLiteral("\n"));
    QCOMPARE(sizes.size(), 2);
    document.clear();
    QCOMPARE(sizes.last().first().toSizeF(), document.size());
}

void TestTextLayout::updatesOnlyWhatChanged()
{
    QTextDocument document;
    document.setDefaultFont(QFont(QStringLiteral("Courier"), 10));
    auto *layout = new TextLayout(&document);
    document.setDocumentLayout(layout);
    document.setPlainText(QStringLiteral("one\ntwo\nthree\nfour"));
    QSignalSpy updates(layout, &QAbstractTextDocumentLayout::update);
    const auto updated = [&updates] {
        const QRectF rect = updates.isEmpty() ? QRectF() : updates.last().first().toRectF();
        updates.clear();
        return rect;
    };
    QTextCursor cursor(document.findBlockByNumber(1));
    const QRectF second = layout->blockBoundingRect(cursor.block());
    cursor.insertText(QStringLiteral("x"));
    const QRectF line = updated();
    QCOMPARE(line.top(), second.top());
    QCOMPARE(line.bottom(), second.bottom());
    QVERIFY(line.right() > document.size().width());

    cursor.insertText(QStringLiteral("\n"));
    const QRectF below = updated();
    QCOMPARE(below.top(), second.top());
    QVERIFY(below.bottom() > document.size().height());

    // A taller line moves what is below it.
    cursor.insertText(arabic);
    QVERIFY(updated().bottom() > document.size().height());
}

void TestTextLayout::paintingKeepsNoLayouts()
{
    const auto laidOutAfterPainting = [](bool highlighted) {
        QTextDocument document;
        auto *layout = new TextLayout(&document);
        document.setDocumentLayout(layout);
        std::unique_ptr<WordHighlighter> highlighter;
        if (highlighted) {
            layout->setHighlighted(true);
            highlighter = std::make_unique<WordHighlighter>(&document);
        }
        document.setPlainText(manyLines(2000));
        for (double y = 0; y < document.size().height(); y += 400) {
            QAbstractTextDocumentLayout::PaintContext context;
            context.clip = QRectF(0, y, 300, 400);
            painted(&document, context, context.clip);
        }
        return laidOutBlocks(document);
    };
    QCOMPARE(laidOutAfterPainting(false), 0);
    const int kept = laidOutAfterPainting(true);
    QVERIFY(kept > 0);
    QVERIFY2(kept <= 320, qPrintable(QString::number(kept)));
}

void TestTextLayout::layoutsAreReleasedAlsoAfterLinesMoved()
{
    QTextDocument document;
    document.setDocumentLayout(new TextLayout(&document));
    document.setPlainText(manyLines(2000));
    // A caret that walks on while lines come and go above it.
    for (int step = 0; step < 600; ++step) {
        document.documentLayout()->blockBoundingRect(document.findBlockByNumber(1000 + 2 * step));
        QTextCursor cursor(&document);
        if (step % 3 == 0)
            cursor.insertText(QStringLiteral("one\ntwo\nthree\n"));
        else if (step % 3 == 1)
            cursor.insertText(QStringLiteral("\n"));
        else
            cursor.deleteChar();
    }
    QVERIFY(laidOutBlocks(document) > 320);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF(0, 0, 100, 100);
    painted(&document, context, context.clip);
    const int kept = laidOutBlocks(document);
    QVERIFY2(kept <= 320, qPrintable(QString::number(kept)));
}

void TestTextLayout::paintsRightAfterPaintingDuringAChange()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(manyLines(150));
    QTextDocument *document = &twins.ours;
    const QRectF area(0, 0, 300, 3000);
    connect(document, &QTextDocument::contentsChange, this, [document, &area] {
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = area;
        painted(document, context, area);
    });
    // Lines further down are painted under the numbers they have after the change, before the layout hears of it.
    for (const auto &[from, lines] : {std::pair(3, 2), std::pair(30, 7), std::pair(0, 1)}) {
        for (QTextDocument *each : twins.both()) {
            QTextCursor cursor(each->findBlockByNumber(from));
            cursor.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor, lines);
            cursor.removeSelectedText();
        }
        QCOMPARE(pictureDifference(twins, visibleArea(twins)), QString());
        for (QTextDocument *each : twins.both())
            QTextCursor(each->findBlockByNumber(from)).insertText(QStringLiteral("new\nlines\n"));
        QCOMPARE(pictureDifference(twins, visibleArea(twins)), QString());
    }
}

void TestTextLayout::survivesQuestionsDuringAChange()
{
    Twins twins(QFont(QStringLiteral("Courier"), 10));
    twins.setText(manyLines(100));
    QTextDocument *document = &twins.ours;
    // The document tells of a change before its layout hears of it.
    connect(document, &QTextDocument::contentsChange, this, [document](int position, int, int) {
        QAbstractTextDocumentLayout *layout = document->documentLayout();
        layout->blockBoundingRect(document->findBlock(position));
        layout->blockBoundingRect(document->lastBlock());
        layout->hitTest(QPointF(10, 1e6), Qt::FuzzyHit);
        layout->documentSize();
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = QRectF(0, 0, 200, 3000);
        painted(document, context, context.clip);
    });
    for (const QString &text : {QStringLiteral("a\nb\nc"), manyLines(300), QString(), manyLines(90)}) {
        twins.setText(text);
        QCOMPARE(geometryDifference(twins), QString());
        QCOMPARE(pictureDifference(twins, visibleArea(twins)), QString());
    }
    for (QTextDocument *each : twins.both()) {
        QTextCursor cursor(each);
        cursor.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor, 40);
        cursor.removeSelectedText();
        cursor.insertText(QStringLiteral("\n\nend"));
    }
    QCOMPARE(geometryDifference(twins), QString());
    QCOMPARE(pictureDifference(twins, visibleArea(twins)), QString());
}

void TestTextLayout::survivesForeignBlocks()
{
    QTextDocument other;
    other.setPlainText(QStringLiteral("elsewhere"));
    QTextDocument document;
    auto *layout = new TextLayout(&document);
    QCOMPARE(layout->hitTest(QPointF(5, 5), Qt::FuzzyHit), 0);
    document.setDocumentLayout(layout);
    QCOMPARE(layout->blockBoundingRect(QTextBlock()), QRectF());
    QCOMPARE(layout->blockBoundingRect(other.begin()), QRectF());
    QCOMPARE(layout->frameBoundingRect(other.rootFrame()), QRectF());
    QCOMPARE(layout->pageCount(), 1);
}

REGISTER_TEST(TestTextLayout)
#include "tst_textlayout.moc"
