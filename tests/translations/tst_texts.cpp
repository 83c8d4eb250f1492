// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"
#include "support/tsfile.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

namespace {

void addLanguages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("Polish") << QStringLiteral("pl");
    QTest::newRow("French") << QStringLiteral("fr");
}

QStringList matches(const char *pattern, const QString &text)
{
    QStringList found;
    auto it = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
    while (it.hasNext())
        found.append(it.next().captured());
    found.sort();
    return found;
}

/// What a translation must share with its source, in a form that a failed comparison can print.
QStringList form(const QString &text)
{
    QStringList shared = matches("%\\d", text);
    shared += matches("&(?=[^ ])", text).replaceInStrings(QRegularExpression("&."), "&");
    shared += matches("\\n", text);
    shared += matches("\\*\\.[*\\w+]+|;;|\\.\\.\\.$|^\\s+|[ \\t]+$", text);
    shared += matches("'?sys\\\\\\w+\\\\\\w+\\.dat", text).replaceInStrings("'", "");
    shared += matches("0x\\d+|Kestrin ?7|OXN|PDF", text);
    // The end of a sentence stays one: a question does not become a statement.
    shared += matches("[.!?:]\\s*$", text);
    return shared;
}

/// Runs lupdate over the sources into the translation at @p path.
bool update(const QString &path)
{
    QProcess lupdate;
    lupdate.start(QStringLiteral(KESTRIN_LUPDATE),
                  {"-silent", QStringLiteral(KESTRIN_SOURCE_DIR "/src"), "-locations", "none", "-ts", path});
    return lupdate.waitForFinished(120000) && lupdate.exitStatus() == QProcess::NormalExit && lupdate.exitCode() == 0;
}

} // namespace

class TestTexts : public QObject
{
    Q_OBJECT

private slots:
    void complete_data() { addLanguages(); }
    void complete();
    void sameFormAsSource_data() { addLanguages(); }
    void sameFormAsSource();
    void sameWordsInFilters_data() { addLanguages(); }
    void sameWordsInFilters();
    void sameTextSameTranslation_data() { addLanguages(); }
    void sameTextSameTranslation();
    void frenchSpacing();
    void laid_data() { addLanguages(); }
    void laid();
};

void TestTexts::complete()
{
    QFETCH(QString, language);
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy.ts"));
    QVERIFY(QFile::copy(ownTsFile(language), copy));
    QVERIFY(update(copy));
    const QList<TsMessage> updated = readTsFile(copy);
    QStringList open;
    for (const TsMessage &message : updated) {
        if (!message.type.isEmpty() || message.translation.isEmpty())
            open.append(message.type + ' ' + message.name());
    }
    QCOMPARE(open.join(QLatin1String(" | ")), QString());
    QCOMPARE(updated.size(), readTsFile(ownTsFile(language)).size());
    QVERIFY(updated.size() > 300);
}

void TestTexts::sameFormAsSource()
{
    QFETCH(QString, language);
    for (const TsMessage &message : readTsFile(ownTsFile(language))) {
        if (form(message.translation) != form(message.source))
            qWarning("%s -> %s", qPrintable(message.name()), qPrintable(message.translation));
        QCOMPARE(form(message.translation), form(message.source));
    }
}

void TestTexts::sameWordsInFilters()
{
    // The filter chosen last is looked up in the list of filters by its text.
    QFETCH(QString, language);
    QHash<QString, QString> translations;
    for (const TsMessage &message : readTsFile(ownTsFile(language))) {
        if (message.context == QLatin1String("Scrivara"))
            translations.insert(message.source, message.translation);
    }
    const QString chosen = translations.value(QStringLiteral("Text Files (*.txt)"));
    QVERIFY(!chosen.isEmpty());
    QCOMPARE(translations.value(QStringLiteral("Text Files (*.txt);;")), chosen + ";;");
}

void TestTexts::sameTextSameTranslation()
{
    // The form's texts are set again by the window, which must not change the wording.
    QFETCH(QString, language);
    QHash<QString, QString> form;
    for (const TsMessage &message : readTsFile(ownTsFile(language))) {
        if (message.context == QLatin1String("MainWindow"))
            form.insert(message.source, message.translation);
    }
    for (const TsMessage &message : readTsFile(ownTsFile(language))) {
        if (message.context == QLatin1String("Scrivara") && form.contains(message.source))
            QCOMPARE(message.translation, form.value(message.source));
    }
}

void TestTexts::frenchSpacing()
{
    for (const TsMessage &message : readTsFile(ownTsFile(QStringLiteral("fr")))) {
        if (message.source.contains(QLatin1String("->")))
            continue;
        // Two-part marks keep to their word by a blank that no line end may break; apostrophes are typographic.
        QVERIFY2(!message.translation.contains(QRegularExpression(QStringLiteral("[^.*)\\x{a0};:?!][?!]"))),
                 qPrintable(message.translation));
        QVERIFY2(!message.translation.contains(QRegularExpression(QStringLiteral(" [?!:]|« | »|\\w'\\w"))),
                 qPrintable(message.translation));
    }
}

void TestTexts::laid()
{
    QFETCH(QString, language);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral("scrivara_") + language, laidTranslations()));
    for (const TsMessage &message : readTsFile(ownTsFile(language))) {
        QCOMPARE(translator.translate(message.context.toUtf8().constData(), message.source.toUtf8().constData()),
                 message.translation);
    }
    QVERIFY(QFileInfo::exists(laidTranslations() + "/qt_" + language + ".qm"));
}

REGISTER_TEST(TestTexts)
#include "tst_texts.moc"
