// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/setting.h"
#include "support/testmain.h"

#include <QPoint>
#include <QSize>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// The values that rows are about, as a settings file holds them.
struct Stored
{
    const char *name;
    QVariant value;
};

const QList<Stored> &storedValues()
{
    static const QList<Stored> values{
        {"absent", QVariant()},
        {"word", QStringLiteral("abc")},
        {"empty", QString()},
        {"true", QStringLiteral("true")},
        {"FALSE", QStringLiteral("FALSE")},
        {"truth", true},
        {"zero", 0},
        {"one", QStringLiteral("1")},
        {"negative", -7},
        {"fraction", QStringLiteral("2.5")},
        {"huge", QStringLiteral("99999999999999999999")},
        {"list", QStringList{"a", "b"}},
        {"empty list", QStringList()},
        {"bytes", QByteArray("\0\xff", 2)},
        {"size", QSize(3, 4)},
        {"point", QPoint(5, 6)},
    };
    return values;
}

const QString settingName = QStringLiteral("Group/Key");

/// Writes the value to a file and gives back what reads it anew, as the next run of the program would.
template<typename Read> auto readAgain(const QVariant &value, const Read &read)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("store.conf"));
    {
        QSettings store(path, QSettings::IniFormat);
        if (value.isValid())
            store.setValue(settingName, value);
    }
    return read(QSettings(path, QSettings::IniFormat));
}

/// Rows of one type: what comes out for each stored value, those not named giving the fallback.
template<typename T> void addRows(const T &fallback, const QHash<QString, T> &readable)
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<T>("expected");
    for (const Stored &stored : storedValues())
        QTest::newRow(stored.name) << stored.value << readable.value(QString::fromLatin1(stored.name), fallback);
}

} // namespace

#define VERIFY_SETTING(Type, fallback)                                                                                 \
    QFETCH(const QVariant, value);                                                                                     \
    QFETCH(const Type, expected);                                                                                      \
    QCOMPARE(readAgain(value, [](const QSettings &store) { return settingOr(store, settingName, fallback); }), expected)

class TestSetting : public QObject
{
    Q_OBJECT

private slots:
    void truthOrTrue_data() { addRows<bool>(true, {{"FALSE", false}, {"zero", false}}); }
    void truthOrTrue() { VERIFY_SETTING(bool, true); }
    void truthOrFalse_data()
    {
        addRows<bool>(false, {{"true", true}, {"truth", true}, {"one", true}, {"negative", true}});
    }
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
                                               {"truth", "true"},
                                               {"zero", "0"},
                                               {"one", "1"},
                                               {"negative", "-7"},
                                               {"fraction", "2.5"},
                                               {"huge", "99999999999999999999"},
                                               {"bytes", QString::fromUtf8(QByteArray("\0\xff", 2))}});
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
    addRows<int>(12, {{"zero", 1}, {"one", 1}, {"negative", 1}});
    QTest::newRow("usual") << QVariant(14) << 14;
    QTest::newRow("largest") << QVariant(500) << 500;
    QTest::newRow("too large") << QVariant(501) << 500;
    QTest::newRow("far too large") << QVariant(2000000000) << 500;
}

void TestSetting::fontSize()
{
    QFETCH(const QVariant, value);
    QFETCH(const int, expected);
    QCOMPARE(readAgain(value, [](const QSettings &store) { return fontSizeSetting(store, settingName, 12); }),
             expected);
}

REGISTER_TEST(TestSetting)
#include "tst_setting.moc"
