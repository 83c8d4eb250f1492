// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/definitions.h"
#include "support/testmain.h"
#include "syntax/syntaxfile.h"
#include "syntax/syntaxhighlight.h"

#include <QDir>
#include <QRandomGenerator>
#include <QRegExp>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

namespace {

/// Colouring as plainly as it can be told: every rule searches every line, one after the other.
class PlainPainter
{
public:
    explicit PlainPainter(const SyntaxFile &definition)
    {
        for (int group = 0; group < SyntaxFile::groupCount; ++group) {
            for (const QString &pattern : definition.patterns(SyntaxFile::Group(group)))
                addRule(pattern, SyntaxFile::Group(group), definition);
        }
        m_commentFormat = definition.format(SyntaxFile::Comments);
    }

    QList<QTextCharFormat> paint(const QString &line)
    {
        m_formats = QList<QTextCharFormat>(line.size());
        for (const Rule &rule : m_rules) {
            int index = rule.expression.indexIn(line, 0);
            while (index >= 0) {
                const int length = rule.expression.matchedLength();
                setFormat(index, length, rule.format);
                index = rule.expression.indexIn(line, index + std::max(1, length));
            }
        }
        paintMultiLineComments(line);
        return m_formats;
    }

private:
    struct Rule
    {
        QRegExp expression;
        QTextCharFormat format;
    };

    void addRule(const QString &pattern, SyntaxFile::Group group, const SyntaxFile &definition)
    {
        if (group == SyntaxFile::Comments && pattern.startsWith("MULTI_START="))
            m_start = QRegExp(pattern.mid(12));
        else if (group == SyntaxFile::Comments && pattern.startsWith("MULTI_END="))
            m_end = QRegExp(pattern.mid(10));
        else
            m_rules.append({QRegExp(pattern), definition.format(group)});
    }

    void paintMultiLineComments(const QString &line)
    {
        if (m_start.isEmpty() || !m_start.isValid() || m_end.isEmpty() || !m_end.isValid() || m_start.exactMatch("") ||
            m_end.exactMatch(""))
            return;
        int start = m_inside ? 0 : m_start.indexIn(line, 0);
        m_inside = false;
        while (start >= 0) {
            const int end = m_end.indexIn(line, start);
            m_inside = end < 0;
            const int length = m_inside ? int(line.size()) - start : end - start + m_end.matchedLength();
            setFormat(start, length, m_commentFormat);
            start = m_start.indexIn(line, start + std::max(1, length));
        }
    }

    void setFormat(int start, int length, const QTextCharFormat &format)
    {
        for (int i = start; i < start + length; ++i)
            m_formats[i] = format;
    }

    QList<Rule> m_rules;
    QTextCharFormat m_commentFormat;
    QRegExp m_start;
    QRegExp m_end;
    QList<QTextCharFormat> m_formats;
    bool m_inside = false;
};

/// Where both colourings of the text differ first, or an empty text.
QString difference(const QString &definitionName, const QString &text)
{
    QTextDocument document;
    SyntaxHighlight highlight(nullptr);
    highlight.loadSyntaxFile(definitionName);
    highlight.setDocument(&document);
    document.setPlainText(text);

    SyntaxFile definition(definitionName);
    if (!definition.load(QString()))
        return QStringLiteral("cannot be loaded");
    PlainPainter painter(definition);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QList<QTextCharFormat> expected = painter.paint(block.text());
        const QList<QTextCharFormat> actual = formatsOf(block);
        for (qsizetype i = 0; i < expected.size(); ++i) {
            if (expected.at(i) != actual.at(i))
                return QStringLiteral("line %1, column %2: %3").arg(block.blockNumber()).arg(i).arg(block.text());
        }
    }
    return {};
}

/// What may stand in a line: the words of the definition and what is left of its patterns without their escapes.
QStringList piecesOf(const QString &definitionName)
{
    QStringList pieces{" ",    "  ",     "\t",     "(",          ")",  "{",  "}",      ";",   ",",  ".",  "/",
                       "*",    "\"",     "'",      "`",          "\\", "#",  "-",      "--",  "//", "/*", "*/",
                       "<!--", "-->",    "<",      ">",          "=",  ":",  "@",      "$",   "%",  "!",  "0",
                       "1",    "42",     "0x1F",   "1.5e3",      "x",  "_",  "a1",     "é",   "ż",  "ß",  "中",
                       "­",    "\u0301", "\u0660", "\U0001F600", "[[", "]]", "=begin", "=end"};
    SyntaxFile definition(definitionName);
    if (!definition.load(QString()))
        return {};
    for (int group = 0; group < SyntaxFile::groupCount; ++group) {
        for (const QString &pattern : std::as_const(definition.patterns(SyntaxFile::Group(group)))) {
            QString piece = pattern;
            pieces.append(piece.remove("\\b").remove('\\'));
        }
    }
    return pieces;
}

QString randomText(QRandomGenerator &random, const QStringList &pieces, int lines)
{
    QString text;
    for (int line = 0; line < lines; ++line) {
        for (int i = random.bounded(12); i > 0; --i) {
            text += pieces.at(random.bounded(int(pieces.size())));
            if (random.bounded(3) == 0)
                text += ' ';
        }
        text += '\n';
    }
    return text;
}

} // namespace

/// The highlighter looks words up, skips expressions that cannot match and lays only final formats. Whatever it saves,
/// the colours are those of one plain search after the other.
class TestSameResults : public QObject
{
    Q_OBJECT

private slots:
    void onRandomTexts_data();
    void onRandomTexts();
    void onSamples_data();
    void onSamples();
    void withRandomDefinitions();
};

void TestSameResults::onRandomTexts_data()
{
    QTest::addColumn<QString>("name");
    const QDir definitions(QStringLiteral(KESTRIN_SOURCE_DIR "/data/sys/sysr/sn"));
    for (const QString &name : definitions.entryList({"*.xml"}, QDir::Files))
        QTest::newRow(qPrintable(name)) << name;
}

void TestSameResults::onRandomTexts()
{
    QFETCH(const QString, name);
    const QStringList pieces = piecesOf(name);
    QVERIFY(!pieces.isEmpty());
    QRandomGenerator random(7);
    for (int i = 0; i < 5; ++i) {
        const QString different = difference(name, randomText(random, pieces, 20));
        QVERIFY2(different.isEmpty(), qPrintable(different));
    }
}

void TestSameResults::onSamples_data()
{
    onRandomTexts_data();
}

/// Every language's definition on its own sample and on some that it is not made for.
void TestSameResults::onSamples()
{
    QFETCH(const QString, name);
    const QDir samples(QStringLiteral(KESTRIN_SOURCE_DIR "/tests/data/syntax"));
    for (const QString &fileName : {"sample." + name.section('.', 0, 0), QStringLiteral("sample.cpp"),
                                    QStringLiteral("sample.html"), QStringLiteral("sample.py")}) {
        QFile file(samples.filePath(fileName));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString different = difference(name, QString::fromUtf8(file.readAll()));
        QVERIFY2(different.isEmpty(), qPrintable(fileName + ' ' + different));
    }
}

void TestSameResults::withRandomDefinitions()
{
    const QStringList patterns{"\\bif\\b", "\\bint\\b", "\\bx\\b", "if",    "int|integer", "[0-9]+", "x*",
                               "",         "(",         "\\w+",    "^if",   "i.",          "#.*",    "\"[^\"]*\"",
                               "\\b",      "if int",    "\\bé\\b", "[^ ]x", "x$",          "(?=x)"};
    const QStringList comments{"MULTI_START=/\\*", "MULTI_END=\\*/", "MULTI_START=x",     "MULTI_END=int",
                               "MULTI_START=a*",   "MULTI_END=(",    "MULTI_START=(?=i)", "MULTI_END=(?=x)"};
    const QStringList pieces{"if", "int", "integer", "x", "xx", "é", "#", "\"", "/*", "*/", " ", " ", "12", "_", "a"};
    QRandomGenerator random(11);
    const auto choose = [&random](const QStringList &from, int most) {
        QStringList chosen;
        for (int i = random.bounded(most + 1); i > 0; --i)
            chosen.append(from.at(random.bounded(int(from.size()))));
        return chosen;
    };
    for (int i = 0; i < 300; ++i) {
        const QStringList commentPatterns = choose(patterns, 3) + choose(comments, 4);
        const DefinitionFile file(
            definitionXml(choose(patterns, 4), choose(patterns, 4), commentPatterns, choose(patterns, 3)));
        const QString different = difference(file.name(), randomText(random, pieces, 10));
        QVERIFY2(different.isEmpty(), qPrintable(different));
    }
}

REGISTER_TEST(TestSameResults)
#include "tst_sameresults.moc"
