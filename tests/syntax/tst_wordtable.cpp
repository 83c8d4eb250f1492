// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"
#include "syntax/wordtable.h"

#include <QRegExp>
#include <QTest>

class TestWordTable : public QObject
{
    Q_OBJECT

private slots:
    void plainWords_data();
    void plainWords();
    void wordsAreThoseOfTheExpressions();
    void findsWholeWords();
    void laterGroupTakesAWord();
};

void TestWordTable::plainWords_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("word");
    QTest::newRow("word") << R"(\bint\b)"
                          << "int";
    QTest::newRow("one letter") << R"(\bC\b)"
                                << "C";
    QTest::newRow("digits and underscores") << R"(\b_x2\b)"
                                            << "_x2";
    QTest::newRow("other alphabets") << R"(\bsłowo\b)"
                                     << "słowo";
    QTest::newRow("no boundaries") << "int"
                                   << "";
    QTest::newRow("one boundary") << R"(\bint)"
                                  << "";
    QTest::newRow("the other boundary") << R"(int\b)"
                                        << "";
    QTest::newRow("no word") << R"(\b\b)"
                             << "";
    QTest::newRow("boundaries that overlap") << R"(\b)"
                                             << "";
    QTest::newRow("no boundary, but its end") << R"(\b\\b)"
                                              << "";
    QTest::newRow("class") << R"(\b[ab]\b)"
                           << "";
    QTest::newRow("escape") << R"(\b\w\b)"
                            << "";
    QTest::newRow("blank") << R"(\ba b\b)"
                           << "";
    QTest::newRow("alternatives") << R"(\ba|b\b)"
                                  << "";
    QTest::newRow("quantifier") << R"(\bab+\b)"
                                << "";
    QTest::newRow("inverse boundary") << R"(\Bint\b)"
                                      << "";
    QTest::newRow("empty") << ""
                           << "";
}

void TestWordTable::plainWords()
{
    QFETCH(const QString, pattern);
    QTEST(WordTable::plainWord(pattern), "word");
}

/// Each of the 65536 characters alone, before a word and behind one.
void TestWordTable::wordsAreThoseOfTheExpressions()
{
    const QRegExp expression("\\bab\\b");
    const QRegExp wordCharacter("\\w");
    WordTable table;
    table.insert("ab", 0);
    QStringList wrong;
    for (uint code = 0; code <= 0xFFFF; ++code) {
        const QChar c{ushort(code)};
        WordTable single;
        single.insert(c, 0);
        bool same = single.find(c).size() == (wordCharacter.exactMatch(c) ? 1 : 0);
        for (const QString &line : {c + QStringLiteral("ab"), QStringLiteral("ab") + c, c + QStringLiteral("ab") + c}) {
            const QVector<WordTable::Hit> hits = table.find(line);
            same = same && (hits.isEmpty() ? -1 : hits.first().start) == expression.indexIn(line);
        }
        if (!same)
            wrong.append(QString::number(code, 16));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(' ')));
}

void TestWordTable::findsWholeWords()
{
    WordTable table;
    table.insert("if", 1);
    table.insert("int", 2);
    const QVector<WordTable::Hit> hits = table.find("if(int_ int,print+int2-if");
    QStringList found;
    for (const WordTable::Hit &hit : hits)
        found.append(QStringLiteral("%1+%2:%3").arg(hit.start).arg(hit.length).arg(hit.group));
    QCOMPARE(found, QStringList({"0+2:1", "8+3:2", "23+2:1"}));
    QVERIFY(table.find(QString()).isEmpty());
    table.clear();
    QVERIFY(table.find("if").isEmpty());
}

void TestWordTable::laterGroupTakesAWord()
{
    WordTable table;
    table.insert("if", 0);
    table.insert("if", 1);
    QCOMPARE(table.find("if").size(), 1);
    QCOMPARE(table.find("if").first().group, 1);
}

REGISTER_TEST(TestWordTable)
#include "tst_wordtable.moc"
