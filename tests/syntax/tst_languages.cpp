// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/definitions.h"
#include "support/golden.h"
#include "support/testmain.h"
#include "syntax/syntaxfile.h"
#include "syntax/syntaxhighlight.h"

#include <QDir>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

namespace {

constexpr char groupLetters[] = "KTCQ";

QString colorText(const QBrush &brush)
{
    const QColor color = brush.color();
    return color.alpha() == 255 ? color.name() : color.name(QColor::HexArgb);
}

QString formatText(const QTextCharFormat &format)
{
    return QStringLiteral("%1 on %2%3")
        .arg(colorText(format.foreground()), colorText(format.background()),
             format.fontWeight() == QFont::Bold ? QStringLiteral(", bold") : QString());
}

QString letterOf(const QTextCharFormat &format, const SyntaxFile &definition)
{
    for (int group = 0; group < SyntaxFile::groupCount; ++group) {
        if (format == definition.format(SyntaxFile::Group(group)))
            return QString(QLatin1Char(groupLetters[group]));
    }
    return format == QTextCharFormat() ? QStringLiteral(" ") : QStringLiteral("?");
}

/// Every line of the document with a line of letters below: the group whose format each character has.
QString colouredText(const QTextDocument &document, const SyntaxFile &definition)
{
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QString letters;
        for (const QTextCharFormat &format : formatsOf(block))
            letters += letterOf(format, definition);
        while (letters.endsWith(' '))
            letters.chop(1);
        const QString line = block.text().replace('\t', QChar(0x2192));
        text += "| " + line + '\n' + (letters.isEmpty() ? QString() : "  " + letters + '\n');
    }
    return text;
}

} // namespace

/// The definitions that come with the program, each on a sample of its language.
class TestLanguages : public QObject
{
    Q_OBJECT

private slots:
    void sampleIsColoured_data();
    void sampleIsColoured();
};

void TestLanguages::sampleIsColoured_data()
{
    QTest::addColumn<QString>("extension");
    const QDir definitions(QStringLiteral(KESTRIN_SOURCE_DIR "/data/sys/sysr/sn"));
    for (const QFileInfo &file : definitions.entryInfoList({"*.xml"}, QDir::Files))
        QTest::newRow(qPrintable(file.baseName())) << file.baseName();
}

void TestLanguages::sampleIsColoured()
{
    QFETCH(const QString, extension);
    QFile sample(QStringLiteral(KESTRIN_SOURCE_DIR "/tests/data/syntax/sample.") + extension);
    QVERIFY2(sample.open(QIODevice::ReadOnly), "every definition needs a sample: tests/data/syntax/sample.<extension>");

    QTextDocument document;
    SyntaxHighlight highlight(nullptr);
    highlight.loadSyntaxFile(extension + ".xml");
    highlight.setDocument(&document);
    document.setPlainText(QString::fromUtf8(sample.readAll()).chopped(1));

    SyntaxFile definition(extension + ".xml");
    QVERIFY(definition.load(QString()));
    QString text;
    for (int group = 0; group < SyntaxFile::groupCount; ++group)
        text += QStringLiteral("%1: %2\n")
                    .arg(QLatin1Char(groupLetters[group]))
                    .arg(formatText(definition.format(SyntaxFile::Group(group))));
    text += colouredText(document, definition);
    const QString difference = differenceFromGolden("syntax/sample." + extension + ".colours", text.toUtf8());
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

REGISTER_TEST(TestLanguages)
#include "tst_languages.moc"
