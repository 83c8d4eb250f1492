// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/textcodec.h"

#include "support/testmain.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

using Encoding = TextFormat::Encoding;

} // namespace

Q_DECLARE_METATYPE(TextFormat::Encoding)

class TestTextCodec : public QObject
{
    Q_OBJECT

private slots:
    void recognisesEncodings_data();
    void recognisesEncodings();
    void sameBytesAfterDecoding_data();
    void sameBytesAfterDecoding();
    void anyBytesSurvive();
    void encodesWhatWasTyped_data();
    void encodesWhatWasTyped();
};

void TestTextCodec::recognisesEncodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Encoding>("encoding");
    QTest::addColumn<bool>("mark");
    const QString umlaut = QStringLiteral("\u00e4b");
    QTest::newRow("empty") << QByteArray() << QString() << Encoding::Utf8 << false;
    QTest::newRow("ASCII") << QByteArray("ab\n") << QStringLiteral("ab\n") << Encoding::Utf8 << false;
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA4\x62") << umlaut << Encoding::Utf8 << false;
    QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBF\xC3\xA4\x62") << umlaut << Encoding::Utf8 << true;
    QTest::newRow("only a mark") << QByteArray("\xEF\xBB\xBF") << QString() << Encoding::Utf8 << true;
    QTest::newRow("two marks") << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF") << QString(QChar(0xfeff)) << Encoding::Utf8
                               << true;
    QTest::newRow("Latin-1") << QByteArray("\xE4\x62") << umlaut << Encoding::Latin1 << false;
    QTest::newRow("UTF-8 cut off") << QByteArray("b\xC3") << QStringLiteral("b\u00c3") << Encoding::Latin1 << false;
    QTest::newRow("overlong") << QByteArray("\xC0\x80") << QStringLiteral("\u00c0\u0080") << Encoding::Latin1 << false;
    QTest::newRow("surrogate in UTF-8") << QByteArray("\xED\xA0\x80") << QStringLiteral("\u00ed\u00a0\u0080")
                                        << Encoding::Latin1 << false;
    QTest::newRow("UTF-16 LE") << QByteArray("\xFF\xFE\xE4\0b\0", 6) << umlaut << Encoding::Utf16LE << true;
    QTest::newRow("UTF-16 BE") << QByteArray("\xFE\xFF\0\xE4\0b", 6) << umlaut << Encoding::Utf16BE << true;
    QTest::newRow("UTF-16 of odd length")
        << QByteArray("\xFF\xFE\xE4\0b", 5) << QString::fromLatin1("\xFF\xFE\xE4\0b", 5) << Encoding::Latin1 << false;
    QTest::newRow("UTF-32 LE") << QByteArray("\xFF\xFE\0\0\xE4\0\0\0b\0\0\0", 12) << umlaut << Encoding::Utf32LE
                               << true;
    QTest::newRow("UTF-32 BE") << QByteArray("\0\0\xFE\xFF\0\0\0\xE4\0\0\0b", 12) << umlaut << Encoding::Utf32BE
                               << true;
    QTest::newRow("UTF-16 that begins with a null")
        << QByteArray("\xFF\xFE\0\0\x62\0", 6) << (QString(QChar(0)) + QLatin1Char('b')) << Encoding::Utf16LE << true;
    QTest::newRow("null characters") << QByteArray("a\0b", 3) << QString::fromLatin1("a\0b", 3) << Encoding::Utf8
                                     << false;
    QTest::newRow("beyond the basic plane")
        << QByteArray("\xF0\x9F\x98\x80") << QString::fromUtf8("\xF0\x9F\x98\x80") << Encoding::Utf8 << false;
}

void TestTextCodec::recognisesEncodings()
{
    QFETCH(const QByteArray, bytes);
    TextFormat format;
    QTEST(decodeText(bytes, &format), "text");
    QTEST(format.encoding, "encoding");
    QTEST(format.byteOrderMark, "mark");
}

void TestTextCodec::sameBytesAfterDecoding_data()
{
    recognisesEncodings_data();
}

void TestTextCodec::sameBytesAfterDecoding()
{
    QFETCH(const QByteArray, bytes);
    TextFormat format;
    const QString text = decodeText(bytes, &format);
    QCOMPARE(encodeText(text, format), bytes);
}

void TestTextCodec::anyBytesSurvive()
{
    QRandomGenerator random(5);
    const QList<QByteArray> beginnings{
        "", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF", QByteArray("\xFF\xFE\0\0", 4), QByteArray("\0\0\xFE\xFF", 4)};
    for (int step = 0; step < 3000; ++step) {
        QByteArray bytes = beginnings.at(random.bounded(int(beginnings.size())));
        const int length = random.bounded(12);
        for (int i = 0; i < length; ++i)
            bytes.append(char(random.bounded(4) == 0 ? random.bounded(256) : random.bounded(128)));
        TextFormat format;
        const QString text = decodeText(bytes, &format);
        QCOMPARE(encodeText(text, format), bytes);
    }
}

void TestTextCodec::encodesWhatWasTyped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Encoding>("encoding");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("fits Latin-1") << QStringLiteral("\u00e4\u00f6") << Encoding::Latin1 << QByteArray("\xE4\xF6");
    QTest::newRow("does not fit Latin-1")
        << QStringLiteral("\u00e4\u20ac") << Encoding::Latin1 << QByteArray("\xC3\xA4\xE2\x82\xAC");
    QTest::newRow("Latin-1 that would be read as UTF-8")
        << QStringLiteral("\u00c3\u00a4") << Encoding::Latin1 << QByteArray("\xC3\x83\xC2\xA4");
    QTest::newRow("looks like a byte order mark")
        << QStringLiteral("\ufeffa") << Encoding::Utf8 << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF\x61");
    QTest::newRow("half a character") << QString(QChar(0xd800)) << Encoding::Utf8 << QByteArray("\xFF\xFE\x00\xD8", 4);
    QTest::newRow("emptied Latin-1") << QString() << Encoding::Latin1 << QByteArray();
}

void TestTextCodec::encodesWhatWasTyped()
{
    QFETCH(const QString, text);
    QFETCH(const Encoding, encoding);
    TextFormat format;
    format.encoding = encoding;
    const QByteArray bytes = encodeText(text, format);
    QTEST(bytes, "bytes");
    TextFormat found;
    QCOMPARE(decodeText(bytes, &found), text);
}

REGISTER_TEST(TestTextCodec)
#include "tst_textcodec.moc"
