// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"
#include "syntax/definitionxml.h"

#include <QTest>

#include <ctime>

namespace {

QByteArray nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

QByteArray withAttributes(int count)
{
    QByteArray xml = "<a";
    for (int i = 0; i < count; ++i)
        xml += " a" + QByteArray::number(i) + "=\"\"";
    return xml + "/>";
}

} // namespace

class TestDefinitionXml : public QObject
{
    Q_OBJECT

private slots:
    void acceptsHarmlessFiles_data();
    void acceptsHarmlessFiles();
    void refusesOthers_data();
    void refusesOthers();
    void refusesLongTagsAtOnce();
    void keepsTheTree();
};

void TestDefinitionXml::acceptsHarmlessFiles_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("empty root") << QByteArray("<a/>");
    QTest::newRow("document type") << QByteArray("<!DOCTYPE syntaxfile><a/>");
    QTest::newRow("elements declared") << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY>]><a/>");
    QTest::newRow("comments and instructions") << QByteArray("<?xml version=\"1.0\"?><!-- c --><?pi x?><a><!----></a>");
    QTest::newRow("entities of the language") << QByteArray("<a b=\"&lt;&#65;\">&amp;&gt;</a>");
    QTest::newRow("Latin-1") << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>");
    QTest::newRow("UTF-8 with its mark") << QByteArray("\xEF\xBB\xBF<a>\xC3\xA9</a>");
    QTest::newRow("as deep as allowed") << nested(32);
    QTest::newRow("as many attributes as allowed") << withAttributes(64);
    QTest::newRow("long text") << "<a>" + QByteArray(60'000, 'x') + "</a>";
    QTest::newRow("characters across feeds") << "<a>" + QByteArray("\xC3\xA9").repeated(5000) + "</a>";
}

void TestDefinitionXml::acceptsHarmlessFiles()
{
    QFETCH(const QByteArray, xml);
    const auto document = parseDefinition(xml);
    QVERIFY(document);
    QCOMPARE(document->documentElement().tagName(), QStringLiteral("a"));
}

void TestDefinitionXml::refusesOthers_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("blanks") << QByteArray("  \n");
    QTest::newRow("plain text") << QByteArray("int main() {}");
    QTest::newRow("no root") << QByteArray("<?xml version=\"1.0\"?>");
    QTest::newRow("not closed") << QByteArray("<a><b></a>");
    QTest::newRow("cut off") << QByteArray("<a><b attr=\"x");
    QTest::newRow("two roots") << QByteArray("<a/><b/>");
    QTest::newRow("text behind the root") << QByteArray("<a/>x");
    QTest::newRow("attribute twice") << QByteArray("<a b=\"1\" b=\"2\"/>");
    QTest::newRow("unknown entity") << QByteArray("<a>&nothing;</a>");
    QTest::newRow("entity") << QByteArray("<!DOCTYPE a [<!ENTITY e \"x\">]><a>&e;</a>");
    QTest::newRow("entity, not used") << QByteArray("<!DOCTYPE a [<!ENTITY e \"x\">]><a/>");
    QTest::newRow("external entity") << QByteArray(
        "<!DOCTYPE a [<!ENTITY e SYSTEM \"file:///etc/passwd\">]><a>&e;</a>");
    QTest::newRow("parameter entity") << QByteArray("<!DOCTYPE a [<!ENTITY % e \"x\">]><a/>");
    QTest::newRow("entities of entities")
        << QByteArray("<!DOCTYPE a [<!ENTITY e \"xxxxxxxxxx\"><!ENTITY f \"&e;&e;&e;\">"
                      "<!ENTITY g \"&f;&f;&f;\">]><a>&g;</a>");
    QTest::newRow("attributes declared") << QByteArray("<!DOCTYPE a [<!ATTLIST a b CDATA \"x\">]><a/>");
    QTest::newRow("too deep") << nested(33);
    QTest::newRow("far too deep") << nested(5000);
    QTest::newRow("too many attributes") << withAttributes(65);
    QTest::newRow("too long") << "<a>" + QByteArray(largestDefinition, ' ') + "</a>";
    QTest::newRow("text too long") << "<a>" + QByteArray(100'000, 'x') + "</a>";
    QTest::newRow("zero bytes") << QByteArray("<a>\0</a>", 8);
    QTest::newRow("half a character") << QByteArray("<a>\xC3</a>");
}

void TestDefinitionXml::refusesOthers()
{
    QFETCH(const QByteArray, xml);
    QVERIFY(!parseDefinition(xml));
}

/// The reader compares each attribute of a tag with all before it: half a minute for this file, were it let.
void TestDefinitionXml::refusesLongTagsAtOnce()
{
    const QByteArray xml = withAttributes(90'000);
    QVERIFY(xml.size() < largestDefinition);
    const std::clock_t start = std::clock();
    QVERIFY(!parseDefinition(xml));
    const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
    QVERIFY2(seconds < 2.0, qPrintable(QString::number(seconds)));
}

void TestDefinitionXml::keepsTheTree()
{
    const auto document = parseDefinition("<r x=\"1\"><!-- c --><e><![CDATA[<&]]></e></r>");
    QVERIFY(document);
    QCOMPARE(document->documentElement().attribute("x"), QStringLiteral("1"));
    QCOMPARE(document->documentElement().firstChildElement("e").text(), QStringLiteral("<&"));
}

REGISTER_TEST(TestDefinitionXml)
#include "tst_definitionxml.moc"
