// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/setting.h"
#include "support/testmain.h"

#include <QFile>
#include <QPoint>
#include <QSize>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// The values that rows are about, as they stand in a settings file.
struct StoredText
{
    const char *name;
    const char *text; ///< Null for a file without the key.
};

const QList<StoredText> &storedTexts()
{
    static const QList<StoredText> texts{
        {"absent", nullptr},
        {"word", "abc"},
        {"empty", ""},
        {"true", "true"},
        {"FALSE", "FALSE"},
        {"zero", "0"},
        {"one", "1"},
        {"negative", "-7"},
        {"fraction", "2.5"},
        {"huge", "99999999999999999999"},
        {"list", "a, b"},
        {"invalid", "@Invalid()"},
        {"bytes", "@ByteArray(ab)"},
        {"size", "@Size(3 4)"},
        {"point", "@Point(5 6)"},
        {"rectangle", "@Rect(1 2 3 4)"},
        {"half a size", "@Size(3"},
        {"unknown kind", "@Nothing(3 4)"},
        {"damaged variant", "@Variant(\\0\\0)"},
    };
    return texts;
}

const QString settingName = QStringLiteral("Group/Key");

/// Reads what a settings file with this text under the key holds.
template<typename Read> auto readFrom(const QByteArray &text, const Read &read)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("store.conf")));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write a settings file");
    file.write("[Group]\nOther=1\n" + (text.isNull() ? QByteArray() : "Key=" + text + '\n'));
    file.close();
    return read(QSettings(file.fileName(), QSettings::IniFormat));
}

/// Rows of one type: what comes out for each stored text, those not named giving the fallback.
template<typename T> void addRows(const T &fallback, const QHash<QString, T> &readable)
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<T>("expected");
    for (const StoredText &stored : storedTexts())
        QTest::newRow(stored.name) << QByteArray(stored.text)
                                   << readable.value(QString::fromLatin1(stored.name), fallback);
}

} // namespace

#define VERIFY_SETTING(Type, fallback)                                                                                 \
    QFETCH(const QByteArray, text);                                                                                    \
    QFETCH(const Type, expected);                                                                                      \
    QCOMPARE(readFrom(text, [](const QSettings &store) { return settingOr(store, settingName, fallback); }), expected)

class TestSetting : public QObject
{
    Q_OBJECT

private slots:
    void truthOrTrue_data() { addRows<bool>(true, {{"FALSE", false}, {"zero", false}}); }
    void truthOrTrue() { VERIFY_SETTING(bool, true); }
    void truthOrFalse_data() { addRows<bool>(false, {{"true", true}, {"one", true}, {"negative", true}}); }
    void truthOrFalse() { VERIFY_SETTING(bool, false); }
    void number_data() { addRows<int>(42, {{"zero", 0}, {"one", 1}, {"negative", -7}}); }
    void number() { VERIFY_SETTING(int, 42); }
    void text_data();
    void text() { VERIFY_SETTING(QString, QStringLiteral("usual")); }
    void size_data() { addRows<QSize>({8, 9}, {{"size", {3, 4}}}); }
    void size() { VERIFY_SETTING(QSize, QSize(8, 9)); }
    void point_data() { addRows<QPoint>({8, 9}, {{"point", {5, 6}}}); }
    void point() { VERIFY_SETTING(QPoint, QPoint(8, 9)); }
    void valuesOfThisRun();
    void fontSize_data();
    void fontSize();
};

void TestSetting::text_data()
{
    addRows<QString>(QStringLiteral("usual"), {{"word", "abc"},
                                               {"empty", ""},
                                               {"true", "true"},
                                               {"FALSE", "FALSE"},
                                               {"zero", "0"},
                                               {"one", "1"},
                                               {"negative", "-7"},
                                               {"fraction", "2.5"},
                                               {"huge", "99999999999999999999"},
                                               {"bytes", "ab"},
                                               {"half a size", "@Size(3"},
                                               {"unknown kind", "@Nothing(3 4)"}});
}

/// Not written and read again, a value still has the type that it was set with.
void TestSetting::valuesOfThisRun()
{
    const QTemporaryDir folder;
    QSettings store(folder.filePath(QStringLiteral("store.conf")), QSettings::IniFormat);
    store.setValue(settingName, 2);
    QCOMPARE(settingOr(store, settingName, false), true);
    QCOMPARE(settingOr(store, settingName, QStringLiteral("usual")), QStringLiteral("2"));
    store.setValue(settingName, false);
    QCOMPARE(settingOr(store, settingName, true), false);
    QCOMPARE(settingOr(store, settingName, QSize(1, 2)), QSize(1, 2));
    store.setValue(settingName, QStringList{"one", "two"});
    QCOMPARE(settingOr(store, settingName, QStringList()), (QStringList{"one", "two"}));
    QCOMPARE(settingOr(store, settingName, true), true);
    QCOMPARE(settingOr(store, settingName, QByteArray("bytes")), QByteArray("bytes"));
}

void TestSetting::fontSize_data()
{
    addRows<int>(12, {{"zero", 0}, {"one", 1}, {"negative", 0}});
    QTest::newRow("usual") << QByteArray("14") << 14;
    QTest::newRow("largest") << QByteArray("500") << 500;
    QTest::newRow("too large") << QByteArray("501") << 500;
    QTest::newRow("far too large") << QByteArray("2000000000") << 500;
}

void TestSetting::fontSize()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, expected);
    QCOMPARE(readFrom(text, [](const QSettings &store) { return fontSizeSetting(store, settingName, 12); }), expected);
}

REGISTER_TEST(TestSetting)
#include "tst_setting.moc"
