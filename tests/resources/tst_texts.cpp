// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"

#include <QFile>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

namespace {

QByteArray embeddedText(const QString &name)
{
    QFile file(QStringLiteral(":/txt/text/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The text as the about box puts it together: its lines with nothing in between.
QString joinedText(const QString &name)
{
    return QString::fromUtf8(embeddedText(name)).remove(QLatin1Char('\n'));
}

/// The words that a reader sees, one string a paragraph.
QStringList paragraphs(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    QStringList texts;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        texts.append(block.text().simplified());
    return texts;
}

} // namespace

class TestTexts : public QObject
{
    Q_OBJECT

private slots:
    void aboutNamesProgramVersionAndMaker();
    void licenceTellsTheTerms();
    void joinedLinesReadTheSame_data();
    void joinedLinesReadTheSame();
    void textIsDarkWhateverThePalette_data();
    void textIsDarkWhateverThePalette();
};

void TestTexts::aboutNamesProgramVersionAndMaker()
{
    const QByteArray html = embeddedText("About.html");
    QVERIFY2(html.size() > 350 && html.size() < 550, qPrintable(QString::number(html.size())));
    const QString text = paragraphs(QString::fromUtf8(html)).join(QLatin1Char(' '));
    for (const char *part : {"Kestrin 7", "Version 7", "Moorfield"})
        QVERIFY2(text.contains(QLatin1String(part)), part);
}

void TestTexts::licenceTellsTheTerms()
{
    const QByteArray html = embeddedText("License.html");
    QVERIFY2(html.size() > 5000 && html.size() < 7000, qPrintable(QString::number(html.size())));
    const QString text = paragraphs(QString::fromUtf8(html)).join(QLatin1Char(' '));
    for (const char *part : {"GNU General Public License", "version 3", "any later version", "no warranty"})
        QVERIFY2(text.contains(QLatin1String(part), Qt::CaseInsensitive), part);
}

void TestTexts::joinedLinesReadTheSame_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("about") << "About.html";
    QTest::newRow("licence") << "License.html";
}

/// The about box puts the lines together with nothing in between; no two words may grow into one by that.
void TestTexts::joinedLinesReadTheSame()
{
    QFETCH(QString, name);
    const QString html = QString::fromUtf8(embeddedText(name));
    QVERIFY(html.count('\n') > 5);
    QCOMPARE(paragraphs(joinedText(name)), paragraphs(html));
}

void TestTexts::textIsDarkWhateverThePalette_data()
{
    joinedLinesReadTheSame_data();
}

/// The browser that shows the texts is light grey in every palette, so the texts bring their colour along.
void TestTexts::textIsDarkWhateverThePalette()
{
    QFETCH(QString, name);
    QTextDocument document;
    document.setHtml(joinedText(name));
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            if (format.isAnchor())
                continue;
            QVERIFY2(format.hasProperty(QTextFormat::ForegroundBrush), qPrintable(it.fragment().text()));
            QVERIFY(format.foreground().color().lightness() < 100);
        }
    }
}

REGISTER_TEST(TestTexts)

#include "tst_texts.moc"
