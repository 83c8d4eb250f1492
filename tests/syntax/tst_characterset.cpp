// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"
#include "syntax/characterset.h"

#include <QRandomGenerator>
#include <QRegExp>
#include <QTest>

namespace {

/// The ASCII characters of which a line without them cannot match; a "0" for digits that are required as a class.
QString required(const QString &pattern)
{
    const CharacterSet needed = CharacterSet::requiredBy(pattern);
    QString all;
    for (char c = 1; c < 127; ++c)
        all += QLatin1Char(c);
    QString text;
    for (const QChar c : all) {
        if (!CharacterSet::occurringIn(QString(all).remove(c)).containsAll(needed))
            text += c;
    }
    return text;
}

QString randomPick(QRandomGenerator &random, const QStringList &pieces, int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += pieces.at(random.bounded(int(pieces.size())));
    return text;
}

} // namespace

class TestCharacterSet : public QObject
{
    Q_OBJECT

private slots:
    void requiredCharacters_data();
    void requiredCharacters();
    void digitsAreRequiredAsAClass();
    void charactersBeyondAscii();
    void noMatchIsLost();
};

void TestCharacterSet::requiredCharacters_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("characters");
    QTest::newRow("literals") << "ab"
                              << "ab";
    QTest::newRow("escaped") << R"(\*\/\\)"
                             << R"(*/\)";
    QTest::newRow("classes of characters are none") << R"(a\d\w\s\b\B.b)"
                                                    << "ab";
    QTest::newRow("anchors are none") << "^a$"
                                      << "a";
    QTest::newRow("optional") << "a?b*c{0,2}d"
                              << "d";
    QTest::newRow("number of times") << "a{2,9}b"
                                     << "b";
    QTest::newRow("once or more") << "a+b"
                                  << "b";
    QTest::newRow("groups are passed over") << R"(a(b|c(d)\)e)[f)]g(?=h)(?!i)(?:j)k)"
                                            << "agk";
    QTest::newRow("sets are passed over") << R"(a[b\]c]d[^e(]f)"
                                          << "adf";
    QTest::newRow("range of digits, repeated") << "a[0-9]*b"
                                               << "ab";
    QTest::newRow("alternatives") << "a|b"
                                  << "";
    QTest::newRow("alternatives behind others") << "abc(d)|e"
                                                << "";
    QTest::newRow("bracket in a set") << "a[]b]c"
                                      << "ac";
    QTest::newRow("bracket in an inverse set") << "a[^]b]c"
                                               << "ac";
    QTest::newRow("escaped bracket first in a set") << R"(a[\],;]b)"
                                                    << "ab";
    QTest::newRow("escaped bracket first in an inverse set") << R"([^\],]b)"
                                                             << "b";
    QTest::newRow("backslash alone in a set") << R"(a[\\]b])"
                                              << "]ab";
    QTest::newRow("code of a character") << R"(a\x0041b)"
                                         << "";
    QTest::newRow("octal code") << R"(a\0101b)"
                                << "";
    QTest::newRow("reference") << R"((a)\1b)"
                               << "";
    QTest::newRow("line end") << R"(a\nb)"
                              << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("group that is not closed") << "a(b"
                                              << "a";
    QTest::newRow("set that is not closed") << "a[b"
                                            << "a";
    QTest::newRow("backslash at the end") << "a\\"
                                          << "a";
    QTest::newRow("line comment") << R"(//[^"]*("[^"]*"[^"]*)*$)"
                                  << "/";
    QTest::newRow("quotation") << R"("[^"\\]*(\\.[^"\\]*)*")"
                               << "\"";
}

void TestCharacterSet::requiredCharacters()
{
    QFETCH(const QString, pattern);
    QTEST(required(pattern), "characters");
}

void TestCharacterSet::digitsAreRequiredAsAClass()
{
    const CharacterSet needed = CharacterSet::requiredBy("x[0-9]");
    QVERIFY(!CharacterSet::occurringIn("xy").containsAll(needed));
    QVERIFY(CharacterSet::occurringIn("xy0").containsAll(needed));
    QVERIFY(CharacterSet::occurringIn("9x").containsAll(needed));
    QVERIFY(!CharacterSet::occurringIn("9").containsAll(needed));
    QVERIFY(CharacterSet::occurringIn("xy").containsAll(CharacterSet::requiredBy("x[0-9]?")));
}

void TestCharacterSet::charactersBeyondAscii()
{
    const QString line = QStringLiteral("żółw %1").arg(QChar(0xFFFF));
    QVERIFY(CharacterSet::occurringIn(line).containsAll(CharacterSet::requiredBy("ż")));
    QVERIFY(CharacterSet::occurringIn(line).containsAll(CharacterSet::requiredBy("w")));
    QVERIFY(!CharacterSet::occurringIn(line).containsAll(CharacterSet::requiredBy("z")));
}

/// Random patterns on random lines: whatever an expression matches has all that its pattern requires.
void TestCharacterSet::noMatchIsLost()
{
    const QStringList patternPieces{"a",       "b",      "/",       "\"",   "1",     "\\*",  "\\/",   "\\\\",  "\\b",
                                    "\\w",     "\\d",    ".",       "[",    "]",     "[ab]", "[^a]",  "[0-9]", "[a\\]",
                                    "[\\],;]", "[\\\\]", "[^\\],]", "[]a]", "[^]a]", "(",    ")",     "(a|b)", "(?=a)",
                                    "(?!b)",   "|",      "*",       "+",    "?",     "{2}",  "{0,1}", "^",     "$"};
    const QStringList linePieces{"a", "b", "/", "*", "\"", "\\", "1", "0", "]", "[", "(", " ", "ab", "{", "2", "ż"};
    QRandomGenerator random(20);
    int matches = 0;
    for (int i = 0; i < 40'000; ++i) {
        const QString pattern = randomPick(random, patternPieces, 1 + random.bounded(6));
        const QString line = randomPick(random, linePieces, random.bounded(9));
        if (QRegExp(pattern).indexIn(line) < 0)
            continue;
        ++matches;
        if (!CharacterSet::occurringIn(line).containsAll(CharacterSet::requiredBy(pattern)))
            QFAIL(qPrintable(QStringLiteral("%1 matches %2").arg(pattern, line)));
    }
    QVERIFY2(matches > 2'000, qPrintable(QString::number(matches)));
}

REGISTER_TEST(TestCharacterSet)
#include "tst_characterset.moc"
