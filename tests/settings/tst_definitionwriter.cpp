// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/folders.h"
#include "settings/definitionwriter.h"
#include "support/definitions.h"
#include "support/files.h"
#include "support/testmain.h"

#include <QDir>
#include <QFont>
#include <QTest>

namespace {

DefinitionGroups groupsIn(const QByteArray &xml)
{
    SyntaxFile file{QString()};
    if (!file.parse(xml))
        qFatal("not a definition: %s", xml.constData());
    return groupsOf(file);
}

QByteArray rewritten(const QByteArray &xml, const DefinitionGroups &groups)
{
    return rewrittenDefinition(xml, groups).value_or(QByteArray("<nothing>"));
}

QTextCharFormat formatWith(const QColor &color, const QColor &background, int weight)
{
    QTextCharFormat format;
    format.setForeground(QBrush(color, Qt::SolidPattern));
    format.setBackground(QBrush(background, Qt::SolidPattern));
    format.setFontWeight(weight);
    return format;
}

const QByteArray full("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<!-- mine -->\n"
                      "<!DOCTYPE syntaxfile>\n"
                      "<syntaxfile type=\"x\" version=\"2.5\">\n"
                      "  <element name=\"Keywords\" color=\"#00007f\" bg_color=\"transparent\" weight=\"Bold\" "
                      "italic=\"false\">\n"
                      "    <pattern>\\bint\\b</pattern>\n"
                      "  </element>\n"
                      "  <element name=\"Types\" color=\"red\" bg_color=\"transparent\" weight=\"Normal\" "
                      "italic=\"true\">\n"
                      "    <pattern>a&lt;b</pattern>\n"
                      "  </element>\n"
                      "  <element name=\"Comments\" color=\"#5c6370\" bg_color=\"transparent\" weight=\"Normal\" "
                      "italic=\"false\"/>\n"
                      "  <element name=\"Quotation\" color=\"#0b6b1f\" bg_color=\"transparent\" weight=\"Normal\" "
                      "italic=\"false\"/>\n"
                      "</syntaxfile>\n");

} // namespace

class TestDefinitionWriter : public QObject
{
    Q_OBJECT

private slots:
    void shippedDefinitionsStay();
    void unchangedWordingStays();
    void onePattern();
    void oneColor();
    void weights_data();
    void weights();
    void colors_data();
    void colors();
    void noBackground();
    void missingAttributesStayMissing();
    void newDefinition();
    void groupsComeIntoOrder();
    void doubledGroupsBecomeOne();
    void unknownPartsStay();
    void oddRoots_data();
    void oddRoots();
    void oddPatterns_data();
    void oddPatterns();
    void unwritablePatterns_data();
    void unwritablePatterns();
    void damagedFiles_data();
    void damagedFiles();
    void sameBytesEachTime();
};

void TestDefinitionWriter::shippedDefinitionsStay()
{
    const QDir folder(QStringLiteral(KESTRIN_SOURCE_DIR "/data/sys/sysr/sn"));
    const QStringList files = folder.entryList({"*.xml"}, QDir::Files);
    QVERIFY(files.size() > 20);
    for (const QString &file : files) {
        const QByteArray xml = bytesIn(folder.filePath(file));
        // Quotes in texts are written as entities, as they must be in attributes.
        QByteArray result = rewritten(xml, groupsIn(xml));
        QVERIFY2(result.replace("&quot;", "\"") == xml, qPrintable(file));
    }
}

void TestDefinitionWriter::unchangedWordingStays()
{
    QCOMPARE(rewritten(full, groupsIn(full)), full);
}

void TestDefinitionWriter::onePattern()
{
    DefinitionGroups groups = groupsIn(full);
    groups[SyntaxFile::Keywords].patterns = {"\\bint\\b", "a & <b> \"c\" 'd'", QString::fromUtf8("zażółć")};
    QByteArray expected = full;
    expected.replace("    <pattern>\\bint\\b</pattern>\n",
                     "    <pattern>\\bint\\b</pattern>\n"
                     "    <pattern>a &amp; &lt;b&gt; &quot;c&quot; 'd'</pattern>\n"
                     "    <pattern>zażółć</pattern>\n");
    QCOMPARE(rewritten(full, groups), expected);
    groups[SyntaxFile::Keywords].patterns.clear();
    expected = full;
    expected.replace(">\n    <pattern>\\bint\\b</pattern>\n  </element>", "/>");
    QCOMPARE(rewritten(full, groups), expected);
}

void TestDefinitionWriter::oneColor()
{
    DefinitionGroups groups = groupsIn(full);
    groups[SyntaxFile::Types].format.setForeground(QBrush(QColor(1, 2, 3)));
    groups[SyntaxFile::Comments].format.setBackground(QBrush(QColor(255, 255, 0)));
    QByteArray expected = full;
    expected.replace("color=\"red\"", "color=\"#010203\"");
    expected.replace("\"#5c6370\" bg_color=\"transparent\"", "\"#5c6370\" bg_color=\"#ffff00\"");
    QCOMPARE(rewritten(full, groups), expected);
}

void TestDefinitionWriter::weights_data()
{
    QTest::addColumn<int>("weight");
    QTest::addColumn<bool>("bold");
    QTest::newRow("thin") << int(QFont::Thin) << false;
    QTest::newRow("normal") << int(QFont::Normal) << false;
    QTest::newRow("medium") << int(QFont::Medium) << false;
    QTest::newRow("half bold") << int(QFont::DemiBold) << true;
    QTest::newRow("bold") << int(QFont::Bold) << true;
    QTest::newRow("black") << int(QFont::Black) << true;
}

void TestDefinitionWriter::weights()
{
    QFETCH(const int, weight);
    QFETCH(const bool, bold);
    DefinitionGroups groups = groupsIn(full);
    QFont font(QStringLiteral("DejaVu Sans"), 33);
    font.setWeight(QFont::Weight(weight));
    font.setItalic(true);
    groups[SyntaxFile::Keywords].format.setFont(font);
    QByteArray expected = full;
    if (!bold)
        expected.replace("weight=\"Bold\"", "weight=\"Normal\"");
    QCOMPARE(rewritten(full, groups), expected);
}

void TestDefinitionWriter::colors_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("plain") << QColor(16, 32, 48) << QByteArray("#102030");
    QTest::newRow("transparent") << QColor(Qt::transparent) << QByteArray("transparent");
    QTest::newRow("translucent") << QColor(16, 32, 48, 128) << QByteArray("#80102030");
    QTest::newRow("invisible white") << QColor(255, 255, 255, 0) << QByteArray("#00ffffff");
    QTest::newRow("by hue") << QColor::fromHsv(200, 100, 100) << QColor::fromHsv(200, 100, 100).name().toLatin1();
    QTest::newRow("of 16 bits") << QColor::fromRgba64(0x1234, 0x2345, 0x3456) << QByteArray("#122334");
}

void TestDefinitionWriter::colors()
{
    QFETCH(const QColor, color);
    QFETCH(const QByteArray, text);
    DefinitionGroups groups = groupsIn(full);
    groups[SyntaxFile::Types].format.setForeground(QBrush(color));
    QByteArray expected = full;
    expected.replace("color=\"red\"", "color=\"" + text + '"');
    QCOMPARE(rewritten(full, groups), expected);
}

/// A format that nobody gave a background must not be read back with a black one.
void TestDefinitionWriter::noBackground()
{
    const DefinitionGroups groups = groupsOf(SyntaxFile{QString()});
    const QByteArray xml = rewritten(emptyDefinition(QStringLiteral("x")), groups);
    QCOMPARE(xml.count("bg_color=\"transparent\""), 4);
}

void TestDefinitionWriter::missingAttributesStayMissing()
{
    const QByteArray bare(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<s>\n"
        "  <element name=\"Keywords\" weight=\"Normal\"/>\n  <element name=\"Types\" weight=\"bold\"/>\n"
        "  <element name=\"Comments\" weight=\"Normal\"/>\n"
        "  <element name=\"Quotation\" color=\"nonsense\" weight=\"Normal\"/>\n</s>\n");
    QCOMPARE(rewritten(bare, groupsIn(bare)), bare);
    DefinitionGroups groups = groupsIn(bare);
    groups[SyntaxFile::Keywords].patterns = {"a"};
    QVERIFY(!rewritten(bare, groups).contains(" color=\"#"));
    QVERIFY(!groupsIn(rewritten(bare, groups))[SyntaxFile::Keywords].color().isValid());
    // A colour that became none goes.
    groups = groupsIn(full);
    groups[SyntaxFile::Types].format.setForeground(QBrush(QColor(), Qt::SolidPattern));
    QByteArray expected = full;
    expected.replace(" color=\"red\"", "");
    QCOMPARE(rewritten(full, groups), expected);
}

void TestDefinitionWriter::newDefinition()
{
    DefinitionGroups groups = groupsOf(SyntaxFile{QString()});
    groups[SyntaxFile::Comments].patterns = {"#.*"};
    groups[SyntaxFile::Comments].format = formatWith(QColor(1, 1, 1), QColor(2, 2, 2), QFont::Bold);
    QCOMPARE(rewritten(emptyDefinition(QStringLiteral("a&b")), groups),
             QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<!DOCTYPE syntaxfile>\n"
                        "<syntaxfile type=\"a&amp;b\" version=\"1.0\">\n"
                        "  <element name=\"Keywords\" color=\"#ff0000\" bg_color=\"transparent\" weight=\"Normal\" "
                        "italic=\"false\"/>\n"
                        "  <element name=\"Types\" color=\"#0000ff\" bg_color=\"transparent\" weight=\"Normal\" "
                        "italic=\"false\"/>\n"
                        "  <element name=\"Comments\" color=\"#010101\" bg_color=\"#020202\" weight=\"Bold\" "
                        "italic=\"false\">\n"
                        "    <pattern>#.*</pattern>\n"
                        "  </element>\n"
                        "  <element name=\"Quotation\" color=\"#008000\" bg_color=\"transparent\" weight=\"Normal\" "
                        "italic=\"false\"/>\n"
                        "</syntaxfile>\n"));
}

void TestDefinitionWriter::groupsComeIntoOrder()
{
    const QByteArray mixed("<s><!--q--><element name=\"Quotation\" weight=\"Normal\"><pattern>q</pattern></element>"
                           "<other/><element name=\"Types\" weight=\"Normal\"><pattern>t</pattern></element></s>");
    const QByteArray result = rewritten(mixed, groupsIn(mixed));
    QList<qsizetype> places;
    for (const char *name : {"\"Keywords\"", "\"Types\"", "\"Comments\"", "\"Quotation\""}) {
        QCOMPARE(result.count(name), 1);
        places.append(result.indexOf(name));
    }
    QVERIFY(std::is_sorted(places.begin(), places.end()));
    QVERIFY(result.contains("<!--q-->"));
    QVERIFY(result.contains("<other/>"));
    QVERIFY(areWrittenAlike(groupsIn(result), groupsIn(mixed)));
}

/// A reader takes the patterns of all of them and the format of the last.
void TestDefinitionWriter::doubledGroupsBecomeOne()
{
    const QByteArray doubled("<s><element name=\"Types\" color=\"red\"><pattern>a</pattern></element>"
                             "<element name=\"Types\" color=\"blue\"><pattern>b</pattern></element></s>");
    const QByteArray result = rewritten(doubled, groupsIn(doubled));
    QCOMPARE(result.count("\"Types\""), 1);
    QCOMPARE(groupsIn(result)[SyntaxFile::Types].patterns, QVector<QString>({"a", "b"}));
    QCOMPARE(groupsIn(result)[SyntaxFile::Types].color(), QColor(Qt::blue));
}

void TestDefinitionWriter::unknownPartsStay()
{
    QByteArray strange = full;
    strange.replace("<syntaxfile type=\"x\" version=\"2.5\">", "<syntaxfile type=\"x\" version=\"2.5\" author=\"me\">");
    strange.replace("italic=\"true\">", "italic=\"true\" zeta=\"1\" alpha=\"2\">\n    <note>keep <b>me</b></note>");
    strange.replace("</syntaxfile>", "  <element name=\"Numbers\" color=\"red\"/>\n  <?tool do?>\n</syntaxfile>");
    DefinitionGroups groups = groupsIn(strange);
    groups[SyntaxFile::Keywords].patterns = {"k"};
    const QByteArray result = rewritten(strange, groups);
    for (const char *part : {"author=\"me\"", "<note>keep ", "<b>me</b>", "<element name=\"Numbers\" color=\"red\"/>",
                             "<?tool do?>", "<!-- mine -->", "italic=\"true\" alpha=\"2\" zeta=\"1\""})
        QVERIFY2(result.contains(part), part);
}

void TestDefinitionWriter::oddRoots_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("other tag") << QByteArray("<anything/>");
    QTest::newRow("no declaration") << QByteArray("<!DOCTYPE other SYSTEM 'x.dtd'><s type=\"q\"/>");
    QTest::newRow("Latin-1") << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><s type=\"\xe9\"/>");
    QTest::newRow("CDATA") << QByteArray("<s><element name=\"Types\"><pattern><![CDATA[a<b]]></pattern></element></s>");
}

void TestDefinitionWriter::oddRoots()
{
    QFETCH(const QByteArray, xml);
    const QByteArray result = rewritten(xml, groupsIn(xml));
    QVERIFY(areWrittenAlike(groupsIn(result), groupsIn(xml)));
    QCOMPARE(rewritten(result, groupsIn(result)), result);
    if (xml.contains("type=\"\xe9\""))
        QVERIFY(result.contains("type=\"\xc3\xa9\""));
    QCOMPARE(result.contains("<!DOCTYPE other SYSTEM 'x.dtd'>"), xml.contains("DOCTYPE"));
}

void TestDefinitionWriter::oddPatterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("readBack");
    QTest::newRow("blanks around") << QStringLiteral("  a b ") << QStringLiteral("a b");
    QTest::newRow("only blanks") << QStringLiteral("  ") << QString();
    QTest::newRow("end of a section") << QStringLiteral("]]>") << QStringLiteral("]]>");
    QTest::newRow("markup") << QStringLiteral("<!--&amp;-->") << QStringLiteral("<!--&amp;-->");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("\xf0\x9f\x98\x80") << QString::fromUtf8("\xf0\x9f\x98\x80");
    QTest::newRow("tabulator") << QStringLiteral("a\tb") << QStringLiteral("a\tb");
}

void TestDefinitionWriter::oddPatterns()
{
    QFETCH(const QString, pattern);
    QFETCH(const QString, readBack);
    DefinitionGroups groups = groupsIn(full);
    groups[SyntaxFile::Quotation].patterns = {pattern};
    QCOMPARE(groupsIn(rewritten(full, groups))[SyntaxFile::Quotation].patterns, QVector<QString>({readBack}));
}

void TestDefinitionWriter::unwritablePatterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::newRow("control character") << QStringLiteral("a\x01") + QLatin1Char('b');
    QTest::newRow("null") << QString(QChar(QChar::Null)) + QLatin1Char('b');
    QTest::newRow("half a pair") << QString(QChar(0xd800));
    QTest::newRow("longer than a reader takes") << QString(100'000, QLatin1Char('x'));
}

void TestDefinitionWriter::unwritablePatterns()
{
    QFETCH(const QString, pattern);
    DefinitionGroups groups = groupsIn(full);
    groups[SyntaxFile::Quotation].patterns = {pattern};
    QVERIFY(!rewrittenDefinition(full, groups).has_value());
}

void TestDefinitionWriter::damagedFiles_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("hello");
    QTest::newRow("open end") << QByteArray("<s><element>");
    QTest::newRow("entities") << QByteArray("<!DOCTYPE s [<!ENTITY a \"b\">]><s/>");
    QTest::newRow("deep") << QByteArray("<s>").repeated(100) + QByteArray("</s>").repeated(100);
}

void TestDefinitionWriter::damagedFiles()
{
    QFETCH(const QByteArray, xml);
    QVERIFY(!rewrittenDefinition(xml, groupsOf(SyntaxFile{QString()})).has_value());
}

void TestDefinitionWriter::sameBytesEachTime()
{
    const QByteArray many("<s e=\"1\" d=\"2\" c=\"3\" b=\"4\" a=\"5\" version=\"6\" type=\"7\"/>");
    const QByteArray result = rewritten(many, groupsIn(many));
    QVERIFY(result.contains("<s type=\"7\" version=\"6\" a=\"5\" b=\"4\" c=\"3\" d=\"2\" e=\"1\">"));
}

REGISTER_TEST(TestDefinitionWriter)
#include "tst_definitionwriter.moc"
