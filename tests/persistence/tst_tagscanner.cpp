// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/tagscanner.h"

#include "persistence/xmlguard.h"
#include "support/testmain.h"

#include <QBuffer>
#include <QTest>

namespace {

QByteArray tagWith(int attributes, char quote = '"')
{
    QByteArray tag = "<a";
    for (int i = 0; i < attributes; ++i)
        tag += " a" + QByteArray::number(i) + '=' + quote + quote;
    return tag + "/>";
}

} // namespace

class TestTagScanner : public QObject
{
    Q_OBJECT

private slots:
    void objects_data();
    void objects();
    void staysWithItsObjection();
    void guardHandsOnTheBytes();
    void guardEndsBeforeTheTag_data();
    void guardEndsBeforeTheTag();
    void guardIsReadOnly();
};

void TestTagScanner::objects_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("objects");
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("as many as allowed") << tagWith(100) << false;
    QTest::newRow("one too many") << tagWith(101) << true;
    QTest::newRow("one too many, single quotes") << tagWith(101, '\'') << true;
    QTest::newRow("many tags") << tagWith(100).repeated(20) << false;
    QTest::newRow("unended tag") << tagWith(101).chopped(2) << true;
    QTest::newRow("quotes between tags") << "<a>" + QByteArray("\"").repeated(300) + "</a>" << false;
    QTest::newRow("quotes inside a value") << "<a b='" + QByteArray("\"").repeated(300) + "'/>" << false;
    QTest::newRow("brackets inside a value") << "<a b='" + QByteArray("<>").repeated(300) + "'/>" << false;
    QTest::newRow("value of angles, then too many") << "<a b='>'" + tagWith(101).mid(2) << true;
    QTest::newRow("comment") << "<!--" + tagWith(101) + "-->" << false;
    QTest::newRow("section") << "<![CDATA[" + tagWith(101) + "]]>" << false;
    QTest::newRow("instruction") << "<?a " + tagWith(101) + "?>" << false;
    QTest::newRow("after a comment") << "<!-- \" ' -->" + tagWith(101) << true;
    QTest::newRow("after a comment of hyphens") << "<!----->" + tagWith(101) << true;
    QTest::newRow("after a section of brackets") << "<![CDATA[]]]]]>" + tagWith(101) << true;
    QTest::newRow("after half an end") << "<![CDATA[]]a]>]]>" + tagWith(101) << true;
    QTest::newRow("after an instruction of question marks") << "<?a " + QByteArray(4, '?') + ">" + tagWith(101) << true;
    QTest::newRow("closing tags") << QByteArray("</a>").repeated(300) << false;
    QTest::newRow("document type") << QByteArray("<!DOCTYPE a>") << false;
    QTest::newRow("document type elsewhere") << QByteArray("<!DOCTYPE a SYSTEM \"[x].dtd\"><a>[</a>") << false;
    QTest::newRow("entities") << QByteArray("<!DOCTYPE a [<!ENTITY b 'c'>]>") << true;
    QTest::newRow("no entities, but room for them") << QByteArray("<!DOCTYPE a\n[ ]>") << true;
    QTest::newRow("bracket in a tag") << QByteArray("<a [>") << false;
}

void TestTagScanner::objects()
{
    QFETCH(const QByteArray, text);
    QFETCH(const bool, objects);
    TagScanner whole;
    QCOMPARE(whole.feed(text), !objects);
    TagScanner byByte;
    bool fine = true;
    for (const char &c : text)
        fine = byByte.feed(QByteArrayView(&c, 1));
    QCOMPARE(fine, !objects);
}

void TestTagScanner::staysWithItsObjection()
{
    TagScanner scanner;
    QVERIFY(!scanner.feed(tagWith(101)));
    QVERIFY(!scanner.feed("<a/>"));
}

void TestTagScanner::guardHandsOnTheBytes()
{
    QByteArray text = "<a>" + QByteArray("\0\xFF\r\n\xC5", 5) + "</a>";
    text = text.repeated(10'000);
    QBuffer source(&text);
    source.open(QIODevice::ReadOnly);
    XmlGuard guard(source);
    QVERIFY(!guard.atEnd());
    QCOMPARE(guard.readAll(), text);
    QVERIFY(guard.atEnd());
    QVERIFY(!guard.hasRefused());
}

void TestTagScanner::guardEndsBeforeTheTag_data()
{
    QTest::addColumn<QByteArray>("mark");
    QTest::addColumn<QStringConverter::Encoding>("encoding");
    QTest::newRow("UTF-8") << QByteArray() << QStringConverter::Utf8;
    QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBF") << QStringConverter::Utf8;
    QTest::newRow("UTF-16 LE") << QByteArray("\xFF\xFE") << QStringConverter::Utf16LE;
    QTest::newRow("UTF-16 BE") << QByteArray("\xFE\xFF") << QStringConverter::Utf16BE;
    QTest::newRow("UTF-16 LE without mark") << QByteArray() << QStringConverter::Utf16LE;
    QTest::newRow("UTF-16 BE without mark") << QByteArray() << QStringConverter::Utf16BE;
    QTest::newRow("UTF-32 LE") << QByteArray("\xFF\xFE\0\0", 4) << QStringConverter::Utf32LE;
}

void TestTagScanner::guardEndsBeforeTheTag()
{
    QFETCH(const QByteArray, mark);
    QFETCH(const QStringConverter::Encoding, encoding);
    const QString text = "<a>\u017c</a>" + QString(20'000, u' ') + QString::fromLatin1(tagWith(101));
    QStringEncoder encode(encoding, QStringConverter::Flag::Stateless);
    QByteArray bytes = mark + QByteArray(encode(text));
    QBuffer source(&bytes);
    source.open(QIODevice::ReadOnly);
    XmlGuard guard(source);
    const QByteArray read = guard.readAll();
    QVERIFY(guard.hasRefused());
    QVERIFY(guard.atEnd());
    QVERIFY(bytes.startsWith(read));
    QVERIFY(read.size() < bytes.size());
    QCOMPARE(guard.read(1), QByteArray());
}

void TestTagScanner::guardIsReadOnly()
{
    QBuffer source;
    source.open(QIODevice::ReadOnly);
    XmlGuard guard(source);
    QVERIFY(!guard.isWritable());
    QVERIFY(guard.isSequential());
    QCOMPARE(guard.readAll(), QByteArray());
    QVERIFY(!guard.hasRefused());
}

REGISTER_TEST(TestTagScanner)
#include "tst_tagscanner.moc"
