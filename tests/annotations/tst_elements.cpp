// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/domelementreader.h"
#include "annotations/domelementwriter.h"
#include "annotations/streamelementreader.h"
#include "annotations/streamelementwriter.h"
#include "support/testmain.h"

#include <QBuffer>
#include <QDomDocument>
#include <QTest>
#include <QXmlStreamReader>

#include <functional>

namespace {

using WriteElement = std::function<void(ElementWriter &)>;
using ReadElement = std::function<void(ElementReader &)>;

constexpr QLatin1String outerTag("outer");
constexpr QLatin1String innerTag("inner");
constexpr QLatin1String nameA("a");

/// One of the two back ends, as the tests see it.
struct BackEnd
{
    QByteArray (*write)(const WriteElement &);
    void (*read)(const QByteArray &, const ReadElement &);
};

QByteArray writeToStream(const WriteElement &write)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    StreamElementWriter writer(buffer);
    write(writer);
    writer.flush();
    return buffer.data();
}

QByteArray writeToDocument(const WriteElement &write)
{
    QDomDocument document;
    const QDomElement holder = document.createElement(QStringLiteral("holder"));
    DomElementWriter writer(document, holder);
    write(writer);
    document.appendChild(holder.firstChild());
    return document.toByteArray(2);
}

void readFromStream(const QByteArray &bytes, const ReadElement &read)
{
    QXmlStreamReader xml(bytes);
    xml.setNamespaceProcessing(false);
    xml.readNextStartElement();
    StreamElementReader reader(xml);
    read(reader);
}

void readFromDocument(const QByteArray &bytes, const ReadElement &read)
{
    QDomDocument document;
    document.setContent(bytes);
    DomElementReader reader(document.documentElement());
    read(reader);
}

constexpr BackEnd streamBackEnd{writeToStream, readFromStream};
constexpr BackEnd documentBackEnd{writeToDocument, readFromDocument};

QString textWrittenAndRead(const BackEnd &backEnd, const QString &text, bool cdata)
{
    const QByteArray bytes = backEnd.write([&](ElementWriter &writer) {
        writer.startElement(outerTag);
        if (cdata)
            writer.writeCData(text);
        else
            writer.writeText(text);
        writer.endElement();
    });
    QString result = QStringLiteral("not read");
    backEnd.read(bytes, [&](ElementReader &reader) { result = reader.readText(); });
    return result;
}

void addBackEnds()
{
    QTest::addColumn<BackEnd>("backEnd");
    QTest::newRow("stream") << streamBackEnd;
    QTest::newRow("document") << documentBackEnd;
}

} // namespace

Q_DECLARE_METATYPE(BackEnd)

class TestElements : public QObject
{
    Q_OBJECT

private slots:
    void bothBackEndsWriteTheSame();
    void textComesBackExactly_data();
    void textComesBackExactly();
    void cdataNeverHoldsItsEndMark();
    void emptyCDataIsWritten();
    void forbiddenCharactersBecomeElements();
    void attributesComeBack_data();
    void attributesComeBack();
    void forbiddenCharactersInAttributesAreReplaced_data() { addBackEnds(); }
    void forbiddenCharactersInAttributesAreReplaced();
    void numbersAreExactAndIndependentOfTheLocale_data();
    void numbersAreExactAndIndependentOfTheLocale();
    void damagedNumbersAreZero_data();
    void damagedNumbersAreZero();
    void missingAttributesTakeTheDefault_data() { addBackEnds(); }
    void missingAttributesTakeTheDefault();
    void onlyYesIsYes_data() { addBackEnds(); }
    void onlyYesIsYes();
    void walkPassesOverWhatIsNotAsked_data() { addBackEnds(); }
    void walkPassesOverWhatIsNotAsked();
    void walkKeepsLevelsApart_data() { addBackEnds(); }
    void walkKeepsLevelsApart();
    void textOfNestedElementsIsJoined_data() { addBackEnds(); }
    void textOfNestedElementsIsJoined();
    void codedCharactersOutOfRangeAreDropped_data() { addBackEnds(); }
    void codedCharactersOutOfRangeAreDropped();
    void deepNestingEndsTheWalk();
    void brokenStreamEndsTheWalk();
};

void TestElements::bothBackEndsWriteTheSame()
{
    const WriteElement write = [](ElementWriter &writer) {
        writer.startElement(outerTag);
        writer.writeAttribute(nameA, QStringLiteral("<&\"'>"));
        writer.startElement(innerTag);
        writer.writeAttribute(nameA, 0.1);
        writer.endElement();
        writer.startElement(innerTag);
        writer.writeText(u"one\ntwo");
        writer.endElement();
        writer.startElement(innerTag);
        writer.writeCData(u"a<b");
        writer.endElement();
        writer.endElement();
    };
    const QByteArray expected = "<outer a=\"&lt;&amp;&quot;'>\">\n"
                                "  <inner a=\"0.10000000000000001\"/>\n"
                                "  <inner>one\ntwo</inner>\n"
                                "  <inner><![CDATA[a<b]]></inner>\n"
                                "</outer>\n";
    // The two differ in how they escape an angle that needs no escape.
    QCOMPARE(writeToStream(write).replace("&gt;", ">"), expected);
    QCOMPARE(writeToDocument(write).replace("&gt;", ">"), expected);
}

void TestElements::textComesBackExactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("plain") << QStringLiteral("some text");
    QTest::newRow("lines") << QStringLiteral("one\ntwo\n\nthree\n");
    QTest::newRow("blanks") << QString(60, u' ');
    QTest::newRow("white space") << QStringLiteral(" \t\n ");
    QTest::newRow("blanks around") << QStringLiteral("  a  ");
    QTest::newRow("markup") << QStringLiteral("<a href=\"x\">&amp;</a>");
    QTest::newRow("section end") << QStringLiteral("a]]>b");
    QTest::newRow("section ends") << QStringLiteral("]]>]]>]]]]>>]]>");
    QTest::newRow("section") << QStringLiteral("<![CDATA[x]]>");
    QTest::newRow("form feed") << QStringLiteral("a\fb");
    QTest::newRow("escape first and last") << QStringLiteral("\x1b[0m\x1b");
    QTest::newRow("nul") << QStringLiteral("a").append(QChar(u'\0')).append(u'b');
    QTest::newRow("all control characters") << [] {
        QString all;
        for (char16_t c = 0; c < 0x20; ++c)
            all += QChar(c);
        return all;
    }();
    QTest::newRow("blanks between control characters") << QStringLiteral("\f \f\n\f");
    QTest::newRow("carriage returns") << QStringLiteral("a\r\nb\rc");
    QTest::newRow("no-break space") << QStringLiteral("a\u00a0b");
    QTest::newRow("next line and separators") << QStringLiteral("a\u0085b\u2028c\u2029d");
    QTest::newRow("outside the first plane") << QString::fromUcs4(U"a\U0001F600b");
    QTest::newRow("lone halves of a pair") << QString(QChar(0xD83D)) + u'x' + QChar(0xDE00);
    QTest::newRow("non-characters") << QString(QChar(0xFFFE)) + QChar(0xFFFF);
}

void TestElements::textComesBackExactly()
{
    QFETCH(QString, text);
    for (const BackEnd &backEnd : {streamBackEnd, documentBackEnd}) {
        QCOMPARE(textWrittenAndRead(backEnd, text, true), text);
        QCOMPARE(textWrittenAndRead(backEnd, text, false), text);
    }
}

void TestElements::cdataNeverHoldsItsEndMark()
{
    const QByteArray bytes = writeToStream([](ElementWriter &writer) {
        writer.startElement(outerTag);
        writer.writeCData(u"a]]>b");
        writer.endElement();
    });
    QCOMPARE(bytes, QByteArray("<outer><![CDATA[a]]]]><![CDATA[>b]]></outer>\n"));
}

void TestElements::emptyCDataIsWritten()
{
    const QByteArray bytes = writeToStream([](ElementWriter &writer) {
        writer.startElement(outerTag);
        writer.writeCData(u"");
        writer.endElement();
    });
    QCOMPARE(bytes, QByteArray("<outer><![CDATA[]]></outer>\n"));
}

void TestElements::forbiddenCharactersBecomeElements()
{
    const WriteElement write = [](ElementWriter &writer) {
        writer.startElement(outerTag);
        writer.writeCData(u"a\fb\f");
        writer.endElement();
    };
    const QByteArray expected =
        "<outer><![CDATA[a]]><char code=\"12\"/><![CDATA[b]]><char code=\"12\"/><![CDATA[]]></outer>\n";
    QCOMPARE(writeToStream(write), expected);
    // A reader that knows nothing of these elements still gets the rest.
    QDomDocument document;
    QVERIFY(document.setContent(expected));
    QCOMPARE(document.documentElement().text(), QStringLiteral("ab"));
}

void TestElements::attributesComeBack_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("empty") << QString();
    QTest::newRow("markup") << QStringLiteral("<&>\"'");
    QTest::newRow("white space") << QStringLiteral(" a\tb\nc\rd ");
    QTest::newRow("beyond Latin-1") << QStringLiteral("zażółć \u65e5\u672c");
}

void TestElements::attributesComeBack()
{
    QFETCH(QString, value);
    for (const BackEnd &backEnd : {streamBackEnd, documentBackEnd}) {
        const QByteArray bytes = backEnd.write([&](ElementWriter &writer) {
            writer.startElement(outerTag);
            writer.writeAttribute(nameA, value);
            writer.endElement();
        });
        QString result = QStringLiteral("not read");
        backEnd.read(bytes, [&](ElementReader &reader) { result = reader.string(nameA, QLatin1String("none")); });
        QCOMPARE(result, value);
    }
}

void TestElements::forbiddenCharactersInAttributesAreReplaced()
{
    QFETCH(BackEnd, backEnd);
    const QByteArray bytes = backEnd.write([](ElementWriter &writer) {
        writer.startElement(outerTag);
        writer.writeAttribute(nameA, QStringLiteral("a\x01\fz"));
        writer.endElement();
    });
    QString result;
    backEnd.read(bytes, [&](ElementReader &reader) { result = reader.string(nameA, QLatin1String("none")); });
    QCOMPARE(result, QStringLiteral("a\uFFFD\uFFFDz"));
}

void TestElements::numbersAreExactAndIndependentOfTheLocale_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("C") << QLocale::c();
    QTest::newRow("comma decimals") << QLocale(QLocale::French, QLocale::France);
    QTest::newRow("other digits") << QLocale(QLocale::Arabic, QLocale::Egypt);
}

void TestElements::numbersAreExactAndIndependentOfTheLocale()
{
    QFETCH(QLocale, locale);
    const QLocale before;
    QLocale::setDefault(locale);
    const QList<std::pair<double, QByteArray>> cases{{0, "0"},
                                                     {-0.5, "-0.5"},
                                                     {0.1, "0.10000000000000001"},
                                                     {1234567.25, "1234567.25"},
                                                     {1e300, "1.0000000000000001e+300"},
                                                     {1.5e-7, "1.4999999999999999e-07"}};
    for (const auto &[number, text] : cases) {
        for (const BackEnd &backEnd : {streamBackEnd, documentBackEnd}) {
            const QByteArray bytes = backEnd.write([value = number](ElementWriter &writer) {
                writer.startElement(outerTag);
                writer.writeAttribute(nameA, value);
                writer.endElement();
            });
            QCOMPARE(bytes, "<outer a=\"" + text + "\"/>\n");
            double read = -1;
            backEnd.read(bytes, [&](ElementReader &reader) { read = reader.real(nameA); });
            // Real numbers are read in single precision; what does not fit there is 0.
            QCOMPARE(read, number > 1e38 ? 0.0 : double(float(number)));
        }
    }
    QLocale::setDefault(before);
}

void TestElements::damagedNumbersAreZero_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("integer");
    QTest::addColumn<double>("real");
    QTest::newRow("blanks around") << QByteArray("  12 ") << 12 << 12.0;
    QTest::newRow("tabs around") << QByteArray("\t-3\n") << -3 << -3.0;
    QTest::newRow("empty") << QByteArray() << 0 << 0.0;
    QTest::newRow("word") << QByteArray("red") << 0 << 0.0;
    QTest::newRow("fraction") << QByteArray("2.5") << 0 << 2.5;
    QTest::newRow("exponent") << QByteArray("1e2") << 0 << 100.0;
    QTest::newRow("decimal comma") << QByteArray("2,5") << 0 << 0.0;
    QTest::newRow("digits and word") << QByteArray("12px") << 0 << 0.0;
    QTest::newRow("infinite") << QByteArray("inf") << 0 << 0.0;
    QTest::newRow("minus infinite") << QByteArray("-inf") << 0 << 0.0;
    QTest::newRow("no number") << QByteArray("nan") << 0 << 0.0;
    QTest::newRow("too large") << QByteArray("99999999999999999999") << 0 << double(99999999999999999999.0F);
    QTest::newRow("far too large") << QByteArray("1e999") << 0 << 0.0;
    QTest::newRow("hexadecimal") << QByteArray("0x10") << 0 << 0.0;
}

void TestElements::damagedNumbersAreZero()
{
    QFETCH(QByteArray, text);
    QFETCH(int, integer);
    QFETCH(double, real);
    for (const BackEnd &backEnd : {streamBackEnd, documentBackEnd}) {
        int integerRead = -1;
        double realRead = -1;
        backEnd.read("<outer a=\"" + text + "\"/>", [&](ElementReader &reader) {
            integerRead = reader.integer(nameA, 77);
            realRead = reader.real(nameA);
        });
        QCOMPARE(integerRead, integer);
        QCOMPARE(realRead, real);
    }
}

void TestElements::missingAttributesTakeTheDefault()
{
    QFETCH(BackEnd, backEnd);
    backEnd.read("<outer b='1'/>", [](ElementReader &reader) {
        QCOMPARE(reader.tag(), outerTag);
        QCOMPARE(reader.integer(nameA, 77), 77);
        QCOMPARE(reader.real(nameA), 0.0);
        QCOMPARE(reader.string(nameA, QLatin1String("none")), QStringLiteral("none"));
        QVERIFY(!reader.isYes(nameA));
    });
}

void TestElements::onlyYesIsYes()
{
    QFETCH(BackEnd, backEnd);
    const QList<std::pair<QByteArray, bool>> cases{{"yes", true},   {"no", false}, {"YES", false}, {" yes", false},
                                                   {"yes ", false}, {"1", false},  {"", false}};
    for (const auto &[text, expected] : cases) {
        bool result = !expected;
        backEnd.read("<outer a='" + text + "'/>", [&](ElementReader &reader) { result = reader.isYes(nameA); });
        QCOMPARE(result, expected);
    }
}

void TestElements::walkPassesOverWhatIsNotAsked()
{
    QFETCH(BackEnd, backEnd);
    QStringList tags;
    backEnd.read("<outer>text<!-- comment --><one><deep><deeper/></deep></one><?target data?><two a='2'>x</two>"
                 "<![CDATA[section]]><three/></outer>",
                 [&](ElementReader &reader) {
                     while (reader.enterNextChild()) {
                         tags.append(reader.tag().toString() + u'=' + reader.string(nameA, QLatin1String("none")));
                         reader.leaveChild();
                     }
                     QVERIFY(!reader.enterNextChild());
                 });
    QCOMPARE(tags, (QStringList{"one=none", "two=2", "three=none"}));
}

void TestElements::walkKeepsLevelsApart()
{
    QFETCH(BackEnd, backEnd);
    QStringList tags;
    backEnd.read("<outer><one><a/><b><c/></b></one><two/><three><a/></three></outer>", [&](ElementReader &reader) {
        while (reader.enterNextChild()) {
            tags.append(reader.tag().toString());
            while (reader.enterNextChild()) {
                tags.append(u'.' + reader.tag().toString());
                reader.leaveChild();
            }
            reader.leaveChild();
        }
    });
    QCOMPARE(tags, (QStringList{"one", ".a", ".b", "two", "three", ".a"}));
}

void TestElements::textOfNestedElementsIsJoined()
{
    QFETCH(BackEnd, backEnd);
    QStringList texts;
    backEnd.read("<outer><one>a<b>c<d/>e</b><!-- x -->f<![CDATA[ g ]]> h</one><two/><three>z</three></outer>",
                 [&](ElementReader &reader) {
                     while (reader.enterNextChild()) {
                         texts.append(reader.readText());
                         reader.leaveChild();
                     }
                 });
    QCOMPARE(texts, (QStringList{"acef g  h", "", "z"}));
}

void TestElements::codedCharactersOutOfRangeAreDropped()
{
    QFETCH(BackEnd, backEnd);
    QString text;
    backEnd.read("<outer>a<char code='12'/><char/><char code=''/><char code='-1'/><char code='65536'/>"
                 "<char code='x'/><chars code='65'/><char code='66'/>z</outer>",
                 [&](ElementReader &reader) { text = reader.readText(); });
    QCOMPARE(text, QStringLiteral("a\fBz"));
}

void TestElements::deepNestingEndsTheWalk()
{
    for (const auto &[depth, expected] : {std::pair(900, QStringList{"a", "last"}), {1000000, QStringList{"a"}}}) {
        const QByteArray xml =
            "<outer>" + QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth) + "<last/></outer>";
        QStringList tags;
        readFromStream(xml, [&](ElementReader &reader) {
            while (reader.enterNextChild()) {
                tags.append(reader.tag().toString());
                reader.leaveChild();
            }
        });
        QCOMPARE(tags, expected);
    }
}

void TestElements::brokenStreamEndsTheWalk()
{
    for (const char *xml :
         {"<outer><one/><two", "<outer><one/></two>", "<outer><one/>", "<outer><one/>&nope;</outer>"}) {
        int children = 0;
        readFromStream(xml, [&](ElementReader &reader) {
            while (reader.enterNextChild()) {
                ++children;
                reader.leaveChild();
                reader.readText();
            }
        });
        QCOMPARE(children, 1);
    }
}

REGISTER_TEST(TestElements)
#include "tst_elements.moc"
