// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/settingskeys.h"
#include "support/testmain.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace {

struct Source
{
    QString name; ///< "mainwindow/scrivara.cpp"
    QString text; ///< Without comments and include lines.
};

/// A call that takes a key of the store.
struct KeyCall
{
    QString file;
    QString function;     ///< Or the class whose constructor takes the key.
    QString key;          ///< The argument as it stands in the code, a literal without its QStringLiteral.
    QString defaultValue; ///< The argument behind the key, in the same form; empty if there is none.

    bool namesTheKey() const { return key.startsWith('"'); }
    QString described() const { return QStringLiteral("src/%1: %2(%3, %4)").arg(file, function, key, defaultValue); }
};

/// The functions that take keys, and the place of the key among their arguments.
const QHash<QString, int> &keyArguments()
{
    static const QHash<QString, int> functions{
        {"settingOr", 1}, {"fontSizeSetting", 1}, {"lineWidth", 1},  {"alpha", 1},
        {"setValue", 0},  {"drawSelection", 3},   {"DontDialog", 3}, {"bind", 1},
    };
    return functions;
}

QList<Source> sources()
{
    static const QRegularExpression ignored(QStringLiteral("^\\s*//.*$|^\\s*#\\s*include.*$"),
                                            QRegularExpression::MultilineOption);
    QList<Source> found;
    const QDir root(QStringLiteral(KESTRIN_SOURCE_DIR "/src"));
    QDirIterator it(root.path(), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (!file.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", qPrintable(file.fileName()));
        found.append({root.relativeFilePath(file.fileName()), QString::fromUtf8(file.readAll()).remove(ignored)});
    }
    return found;
}

QString folderOf(const QString &file)
{
    return file.section('/', 0, 0);
}

bool hasWord(const char *list, const QString &word)
{
    return QString::fromLatin1(list).split(' ').contains(word);
}

/// The arguments of a call, from behind its opening bracket to the closing one. Brackets and commas in texts do not
/// count; a text stands without its QStringLiteral.
QStringList argumentsAt(const QString &text, qsizetype from)
{
    static const QRegularExpression wrapper(QStringLiteral("^(?:QStringLiteral|QLatin1String)\\((\".*\")\\)$"));
    QStringList arguments{QString()};
    int depth = 0;
    bool quoted = false;
    for (qsizetype i = from; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == '"' && text.at(i - 1) != '\\')
            quoted = !quoted;
        if (!quoted && c == ')' && depth-- == 0)
            break;
        if (!quoted && c == '(')
            ++depth;
        if (!quoted && c == ',' && depth == 0)
            arguments.append(QString());
        else
            arguments.last() += c;
    }
    for (QString &argument : arguments)
        argument = argument.simplified().replace(wrapper, QStringLiteral("\\1"));
    return arguments;
}

bool isParameter(const QString &text)
{
    return text.startsWith(QLatin1String("const ")) || text.startsWith(QLatin1String("QString "));
}

QList<KeyCall> callsIn(const Source &source)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\b(?:(DontDialog) \\w+|(%1))\\(").arg(keyArguments().keys().join('|')));
    QList<KeyCall> calls;
    auto matches = pattern.globalMatch(source.text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString function = match.captured(1) + match.captured(2);
        const QStringList arguments = argumentsAt(source.text, match.capturedEnd());
        const int place = keyArguments().value(function);
        // A parameter list is no call, and other classes have functions of these names with fewer arguments.
        const bool isCall = arguments.size() > std::max(place, 1) && !isParameter(arguments.at(place));
        if (isCall)
            calls.append({source.name, function, arguments.at(place), arguments.value(place + 1)});
    }
    return calls;
}

QList<KeyCall> allCalls()
{
    QList<KeyCall> calls;
    for (const Source &source : sources())
        calls += callsIn(source);
    return calls;
}

/// Texts that look like a key or a part of one, each behind the name of its file.
QList<std::pair<QString, QString>> keyLikeTexts(const QList<Source> &all)
{
    static const QRegularExpression literal(QStringLiteral("\"([\\w.-]+/[\\w.-]*|[\\w.-]*/[\\w.-]+)\""));
    QList<std::pair<QString, QString>> texts;
    for (const Source &source : all) {
        auto matches = literal.globalMatch(source.text);
        while (matches.hasNext())
            texts.append({source.name, matches.next().captured(1)});
    }
    return texts;
}

bool isKeyFor(const QString &text, const QString &file)
{
    const auto fits = [&](const SettingsKey &key) {
        return text == QLatin1String(key.name) &&
               (hasWord(key.readers, folderOf(file)) || hasWord(key.writers, folderOf(file)));
    };
    return std::any_of(settingsKeys().begin(), settingsKeys().end(), fits);
}

/// What a row of the table has to say against a call that names a key; empty if nothing.
QString objection(const KeyCall &call, const SettingsKey &key)
{
    if (call.function == QLatin1String("setValue"))
        return hasWord(key.writers, folderOf(call.file)) ? QString() : QStringLiteral("not written there");
    if (!hasWord(key.readers, folderOf(call.file)))
        return QStringLiteral("not read there");
    // A control of the settings window reads and writes its key, whoever else reads it.
    const bool isControl = call.function == QLatin1String("bind");
    if (isControl && !hasWord(key.writers, folderOf(call.file)))
        return QStringLiteral("not written there");
    if (!isControl && call.function != QLatin1String(key.call))
        return QStringLiteral("to be read by %1").arg(QLatin1String(key.call));
    // Who hands a key on leaves the default to the receiver.
    const bool handedOn =
        call.function == QLatin1String("drawSelection") || call.function == QLatin1String("DontDialog");
    if (!handedOn && call.defaultValue != QLatin1String(key.defaultValue))
        return QStringLiteral("the default is %1").arg(QLatin1String(key.defaultValue));
    return {};
}

QString objection(const KeyCall &call)
{
    QString found = QStringLiteral("no key of the store");
    for (const SettingsKey &key : settingsKeys()) {
        if (call.key != '"' + QLatin1String(key.name) + '"')
            continue;
        found = objection(call, key);
        if (found.isEmpty())
            break;
    }
    return found;
}

} // namespace

/// Holds what the code says of the settings store against the table of its keys.
class TestSettingsKeys : public QObject
{
    Q_OBJECT

private slots:
    void everyTextLikeAKeyIsOne();
    void everyCallIsRight();
    void everyKeyIsUsed();
    void everyKeyIsWritten();
    void keysHandedOnMeetTheRightDefault();
    void theStoreIsReadThroughOneFunction();
    void scannerSeesMistakes_data();
    void scannerSeesMistakes();
    void scannerSeesOddTexts_data();
    void scannerSeesOddTexts();
};

void TestSettingsKeys::everyTextLikeAKeyIsOne()
{
    QStringList wrong;
    for (const auto &[file, text] : keyLikeTexts(sources())) {
        const bool isMediaType = text == QLatin1String("x-scheme-handler/mailto");
        if (!isMediaType && !isKeyFor(text, file))
            wrong.append(QStringLiteral("src/%1: \"%2\"").arg(file, text));
    }
    QVERIFY2(wrong.isEmpty(),
             qPrintable("Neither a whole key of the store nor one for this folder:\n" + wrong.join('\n')));
}

void TestSettingsKeys::everyCallIsRight()
{
    QStringList wrong;
    for (const KeyCall &call : allCalls()) {
        const QString what = call.namesTheKey() ? objection(call) : QString();
        if (!what.isEmpty())
            wrong.append(call.described() + QStringLiteral(": ") + what);
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join('\n')));
}

void TestSettingsKeys::everyKeyIsUsed()
{
    QSet<QString> read;
    QSet<QString> named;
    for (const KeyCall &call : allCalls()) {
        if (call.namesTheKey() && call.function != QLatin1String("setValue"))
            read.insert(call.key.mid(1, call.key.size() - 2));
    }
    for (const auto &[file, text] : keyLikeTexts(sources()))
        named.insert(text);
    QSet<QString> missing;
    for (const SettingsKey &key : settingsKeys()) {
        if (!(*key.call == '\0' ? named : read).contains(QLatin1String(key.name)))
            missing.insert(QString::fromLatin1(key.name));
    }
    QCOMPARE(missing, QSet<QString>());
}

void TestSettingsKeys::everyKeyIsWritten()
{
    QSet<QString> written;
    for (const KeyCall &call : allCalls()) {
        if (call.function == QLatin1String("setValue") || call.function == QLatin1String("bind"))
            written.insert(folderOf(call.file) + ' ' + call.key);
    }
    QStringList missing;
    for (const SettingsKey &key : settingsKeys()) {
        for (const QString &writer : QString::fromLatin1(key.writers).split(' ', Qt::SkipEmptyParts)) {
            const QString wanted = QStringLiteral("%1 \"%2\"").arg(writer, QLatin1String(key.name));
            if (!written.contains(wanted))
                missing.append(wanted);
        }
    }
    QCOMPARE(missing, QStringList());
}

void TestSettingsKeys::keysHandedOnMeetTheRightDefault()
{
    QStringList found;
    for (const KeyCall &call : allCalls()) {
        if (!call.namesTheKey())
            found.append(call.described());
    }
    found.sort();
    const QStringList expected{
        "src/annotations/markitem.cpp: settingOr(key, false)",
        "src/annotations/stroke.cpp: drawSelection(selectionKey(), )",
        "src/app/setting.cpp: settingOr(key, fallback)",
        "src/settings/settingbindings.cpp: fontSizeSetting(key(), m_size)",
        "src/settings/settingbindings.cpp: setValue(m_key, m_box->value())",
        "src/settings/settingbindings.cpp: setValue(m_key, m_button->isChecked())",
        "src/settings/settingbindings.cpp: setValue(m_key, value())",
        "src/settings/settingbindings.cpp: settingOr(m_key, QString())",
        "src/settings/settingbindings.cpp: settingOr(m_key, m_fallback)",
        "src/settings/settingbindings.cpp: settingOr(m_key, m_fallback)",
        "src/settings/settingbindings.cpp: settingOr(m_key, m_fallback)",
        "src/tools/toolsettings.cpp: settingOr(key, defaultTransparency)",
        "src/tools/toolsettings.cpp: settingOr(key, defaultWidth)",
        "src/widgets/dontdialog.cpp: setValue(answerKey(m_key), \"false\")",
        "src/widgets/dontdialog.cpp: setValue(answerKey(m_key), \"true\")",
        "src/widgets/dontdialog.cpp: setValue(m_key, !m_ui->dontCheckBox->isChecked())",
        "src/widgets/dontdialog.cpp: settingOr(answerKey(m_key), true)",
        "src/widgets/dontdialog.cpp: settingOr(m_key, true)",
    };
    QVERIFY2(found == expected, qPrintable(found.join('\n')));
    for (const SettingsKey &key : settingsKeys()) {
        const QByteArray call = key.call;
        if (call.isEmpty() || call == "drawSelection")
            QCOMPARE(key.defaultValue, "false");
        if (call == "DontDialog")
            QCOMPARE(key.defaultValue, "true");
    }
}

void TestSettingsKeys::theStoreIsReadThroughOneFunction()
{
    static const QRegularExpression direct(
        QStringLiteral("\\b(QSettings\\([^;]*\\)|settings)\\.(value|beginGroup|beginReadArray|allKeys|childKeys)\\("));
    // The function itself, and what reads the registry of Windows, where the system keeps its own.
    const QStringList exceptions{"app/setting.h", "app/setting.cpp", "app/mailclient_win.cpp"};
    QStringList wrong;
    for (const Source &source : sources()) {
        const auto match = direct.match(source.text);
        if (match.hasMatch() && !exceptions.contains(source.name))
            wrong.append(QStringLiteral("src/%1: %2").arg(source.name, match.captured()));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable("Read through settingOr(), which knows damaged values:\n" + wrong.join('\n')));
}

void TestSettingsKeys::scannerSeesMistakes_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("objections");
    const auto add = [](const char *name, const char *file, const char *code, const char *objections) {
        QTest::newRow(name) << QString::fromLatin1(file) << QString::fromLatin1(code)
                            << QString::fromLatin1(objections);
    };
    add("right", "mainwindow/a.cpp", R"(x = settingOr(QSettings(), QStringLiteral("Other/MaxRecentFiles"), 5);)", "");
    add("over lines", "mainwindow/a.cpp", "x = settingOr(s,\n    QStringLiteral(\"Other/MaxRecentFiles\"),\n  5);", "");
    add("other default", "mainwindow/a.cpp", R"(x = settingOr(s, QStringLiteral("Other/MaxRecentFiles"), 6);)",
        "the default is 5");
    add("other folder", "tools/a.cpp", R"(x = settingOr(s, QStringLiteral("Other/MaxRecentFiles"), 5);)",
        "not read there");
    add("misspelled", "mainwindow/a.cpp", R"(x = settingOr(s, QStringLiteral("Other/MaxRecentfiles"), 5);)",
        "no key of the store");
    add("without group", "mainwindow/a.cpp", R"(x = settingOr(s, QStringLiteral("MaxRecentFiles"), 5);)",
        "no key of the store");
    add("plain literal", "mainwindow/a.cpp", R"(x = settingOr(s, "Other/Nothing", 5);)", "no key of the store");
    add("second default", "tools/a.cpp",
        R"(x = settingOr(s, QStringLiteral("General/AttachmentFormat"), QStringLiteral("PNG"));)", "");
    add("default of the other reader", "tools/a.cpp",
        R"(x = settingOr(s, QStringLiteral("General/AttachmentFormat"), QStringLiteral("OXN"));)",
        "the default is \"PNG\"");
    add("without clamp", "tools/a.cpp", R"(x = settingOr(s, QStringLiteral("PenTool/LineWidth"), 0);)",
        "to be read by lineWidth");
    add("wrong writer", "documents/a.cpp", R"(s.setValue(QStringLiteral("Other/AppLanguage"), x);)",
        "not written there");
    add("written misspelled", "mainwindow/a.cpp", R"(s.setValue("Other/Applanguage", x);)", "no key of the store");
    add("handed on misspelled", "mainwindow/a.cpp",
        R"(DontDialog box(tr("a, (b"), tr("c"), 1, QStringLiteral("General/WarnRemove"), this);)",
        "no key of the store");
    add("control", "settings/a.cpp", R"(b.bind(m_ui.box, QStringLiteral("PenTool/LineWidth"), 0);)", "");
    add("control with other default", "settings/a.cpp", R"(b.bind(m_ui.box, QStringLiteral("PenTool/LineWidth"), 1);)",
        "the default is 0");
    add("control misspelled", "settings/a.cpp", R"(b.bind(m_ui.box, QStringLiteral("PenTool/Linewidth"), 0);)",
        "no key of the store");
    add("control elsewhere", "mainwindow/a.cpp", R"(b.bind(m_ui.box, QStringLiteral("Other/ExportToPdfFile"), true);)",
        "not written there");
    add("progress bar", "documents/a.cpp", "bar->setValue(100);", "");
}

void TestSettingsKeys::scannerSeesMistakes()
{
    QFETCH(const QString, file);
    QFETCH(const QString, code);
    QFETCH(const QString, objections);
    QStringList found;
    for (const KeyCall &call : callsIn({file, code}))
        found.append(objection(call));
    QCOMPARE(found.join('|'), objections);
}

void TestSettingsKeys::scannerSeesOddTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("right");
    QTest::newRow("key") << "Other/AppLanguage" << true;
    QTest::newRow("lower case group") << "other/AppLanguage" << false;
    QTest::newRow("with a digit") << "Other/AppLanguage2" << false;
    QTest::newRow("underscore") << "Other/App_Language" << false;
    QTest::newRow("group alone") << "Other/" << false;
    QTest::newRow("key alone") << "/AppLanguage" << false;
    QTest::newRow("key of another folder") << "PenTool/LineWidth" << false;
}

void TestSettingsKeys::scannerSeesOddTexts()
{
    QFETCH(const QString, text);
    QFETCH(const bool, right);
    const auto texts = keyLikeTexts({{QStringLiteral("mainwindow/a.cpp"), "x(\"" + text + "\");"}});
    QCOMPARE(texts.size(), 1);
    QCOMPARE(isKeyFor(texts.first().second, texts.first().first), right);
}

REGISTER_TEST(TestSettingsKeys)
#include "tst_settingskeys.moc"
