// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTest>

namespace {

/// One key of the settings store. The dialog in settings/ may use every key and is not named here.
struct Key
{
    const char *name;
    const char *type;         ///< As the reader converts it: "bool" is toBool().
    const char *defaultValue; ///< As it stands in the code; empty for a key without one.
    const char *users;        ///< Folders of src/ whose code may name the key.
};

/// A key that its caller hands on to a reader elsewhere, which has the default.
constexpr char handedOn[] = "handed on";

constexpr Key keys[]{
    {"General/WindowMaximized", "Bool", "true", "mainwindow"},
    {"General/WindowPosition", "Point", "QPoint(50, 50)", "mainwindow"},
    {"General/WindowSize", "Size", "QSize(1000, 800)", "mainwindow"},
    {"General/WindowState", "ByteArray", "", "mainwindow"},
    {"General/ToolBarsState", "ByteArray", "", "mainwindow"},
    {"General/PenColor", "String", "\"#0a0aa2\"", "mainwindow"},
    {"General/BrushColor", "String", "", "mainwindow"},
    {"General/RecentFileList", "StringList", "", "mainwindow"},
    {"General/EmailClient", "String", "\"(empty)\"", "mainwindow"},
    {"General/AttachFileByDefault", "Bool", "false", "mainwindow"},
    {"General/AttachmentFormat", "String", "\"OXN\"", "mainwindow"},
    {"General/AttachmentFormat", "String", "\"PNG\"", "tools"},
    {"Other/AppLanguage", "String", "\"default\"", "mainwindow"},
    {"Other/FullscreenAtStart", "Bool", "false", "mainwindow"},
    {"Other/ExportToPdfFile", "Bool", "true", "mainwindow"},
    {"Other/MaxRecentFiles", "Int", "5", "mainwindow"},
    {"Other/SynchAnnotations", "Bool", "true", "documents"},
    {"Other/TabsPosition", "String", "\"Right\"", "mainwindow"},
    {"PageView/DefaultTextColor", "String", "\"black\"", "mainwindow"},
    {"PageView/DefaultBgColor", "String", "\"white\"", "mainwindow"},
    {"PageView/ShowLineNumbers", "Bool", "true", "mainwindow"},
    {"PageView/DefaultFontFamily", "String", "\"Courier\"", "documents"},
    {"PageView/DefaultFontSize", "Int", "10", "documents"},
    {"Syntax/HighlightByDefault", "Bool", "true", "mainwindow documents"},
    {"Printing/PrintHeader", "Bool", "true", "documents"},
    {"Printing/PrintFileName", "Bool", "true", "documents"},
    {"Printing/PrintDate", "Bool", "true", "documents"},
    {"Printing/PrintPageNumbers", "Bool", "true", "documents"},
    {"Printing/PrintLineNumbers", "Bool", "true", "documents"},
    {"Printing/PrintAnnotations", "Bool", "true", "documents"},
    {"PenTool/LineWidth", "Int", "0", "tools"},
    {"PenTool/Transparency", "Int", "60", "tools"},
    {"PenTool/Antialiasing", "Bool", "true", "tools"},
    {"PenTool/Smoothing", "Bool", "false", "tools"},
    {"PenTool/DrawSelection", "Bool", handedOn, "annotations"},
    {"MarkerTool/LineWidth", "Int", "14", "tools"},
    {"MarkerTool/Transparency", "Int", "60", "tools"},
    {"MarkerTool/Antialiasing", "Bool", "true", "tools"},
    {"MarkerTool/Smoothing", "Bool", "false", "tools"},
    {"MarkerTool/ShowSelection", "Bool", handedOn, "annotations"},
    {"TextBoxTool/UseOnce", "Bool", "false", "tools"},
    {"TextBoxTool/DefaultFontFamily", "String", "\"Courier\"", "tools"},
    {"TextBoxTool/DefaultFontSize", "Int", "10", "tools"},
    {"LineTool/LineWidth", "Int", "0", "tools"},
    {"LineTool/LineStyle", "String", "\"Solid\"", "tools"},
    {"LineTool/Antialiasing", "Bool", "true", "tools"},
    {"LineTool/ShowSelection", "Bool", handedOn, "annotations"},
    {"ShapeTool/LineWidth", "Int", "1", "tools"},
    {"ShapeTool/LineStyle", "String", "\"Solid\"", "tools"},
    {"ShapeTool/Transparency", "Int", "60", "tools"},
    {"ShapeTool/Antialiasing", "Bool", "true", "tools"},
    {"ScreenshotTool/SaveViewToClipboard", "Bool", "true", "tools"},
    {"ScreenshotTool/SaveViewToFile", "Bool", "false", "tools"},
    {"ScreenshotTool/SendViewViaEmail", "Bool", "false", "tools"},
    {"ScreenshotTool/UseOnce", "Bool", "true", "tools"},
    {"General/WarnRemoveAllAnnotations", "Bool", handedOn, "mainwindow"},
    {"ScreenshotTool/InfoViewInClipboard", "Bool", handedOn, "tools"},
};

/// Where the code names a key, and how.
struct Use
{
    QString place; ///< "mainwindow/scrivara.cpp:12"
    QString folder;
    QString key;
    QString function;     ///< What the key is the argument of: "value", "setValue", a reader of ours, ...
    QString defaultValue; ///< The argument behind the key, without its QStringLiteral; empty if there is none.
    QString conversion;   ///< "Bool" of "toBool()" behind the call; empty if there is none.
};

/// End of the argument that starts at @p from: the place of its comma or closing bracket.
qsizetype argumentEnd(const QString &text, qsizetype from)
{
    int depth = 0;
    for (qsizetype i = from; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == '(')
            ++depth;
        else if (depth == 0 && (c == ',' || c == ')' || c == ';'))
            return i;
        else if (c == ')')
            --depth;
    }
    return text.size();
}

QString bare(QString argument)
{
    static const QRegularExpression wrapper(QStringLiteral("^QStringLiteral\\((\".*\")\\)$"));
    return argument.simplified().replace(wrapper, QStringLiteral("\\1"));
}

Use useAt(const QString &text, const QRegularExpressionMatch &match)
{
    static const QRegularExpression call(QStringLiteral("(\\w+)\\((?:\\w+, )?(?:QStringLiteral\\()?$"));
    static const QRegularExpression conversion(QStringLiteral("^\\)\\s*\\.to(\\w+)\\("));
    Use use;
    use.key = match.captured(1);
    const QString before = text.left(match.capturedStart()).right(120).simplified();
    use.function = call.match(before).captured(1);
    qsizetype end = match.capturedEnd();
    if (before.endsWith(QLatin1String("QStringLiteral(")))
        ++end;
    if (text.mid(end, 1) == QLatin1String(",")) {
        const qsizetype close = argumentEnd(text, end + 1);
        use.defaultValue = bare(text.mid(end + 1, close - end - 1));
        end = close;
    }
    use.conversion = conversion.match(text.mid(end, 40)).captured(1);
    return use;
}

QList<Use> usesInTheCode()
{
    static const QRegularExpression literal(QStringLiteral("\"([A-Z][A-Za-z]+/[A-Z][A-Za-z]+)\""));
    QList<Use> uses;
    const QDir root(QStringLiteral(KESTRIN_SOURCE_DIR "/src"));
    QDirIterator it(root.path(), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromUtf8(file.readAll());
        const QString relative = root.relativeFilePath(file.fileName());
        auto matches = literal.globalMatch(text);
        while (matches.hasNext()) {
            const auto match = matches.next();
            Use use = useAt(text, match);
            use.place = QStringLiteral("src/%1:%2").arg(relative).arg(text.left(match.capturedStart()).count('\n') + 1);
            use.folder = relative.section('/', 0, 0);
            uses.append(use);
        }
    }
    return uses;
}

const Key *keyFor(const Use &use)
{
    for (const Key &key : keys) {
        const bool here =
            use.folder == QLatin1String("settings") || QString::fromLatin1(key.users).split(' ').contains(use.folder);
        if (use.key == QLatin1String(key.name) && here)
            return &key;
    }
    return nullptr;
}

/// What is wrong with a use of @p key; empty if nothing is.
QString complaint(const Use &use, const Key &key)
{
    if (use.function == QLatin1String("setValue"))
        return {};
    if (qstrcmp(key.defaultValue, handedOn) == 0)
        return use.function == QLatin1String("value") ? QStringLiteral("is read directly") : QString();
    if (use.defaultValue != QLatin1String(key.defaultValue))
        return QStringLiteral("has the default %1 instead of %2")
            .arg(use.defaultValue, QLatin1String(key.defaultValue));
    // Readers of our own in tools/toolsettings.h give integers.
    const bool ownReader = use.function == QLatin1String("lineWidth") || use.function == QLatin1String("alpha");
    const QString type = ownReader ? QStringLiteral("Int") : use.conversion;
    if (type != QLatin1String(key.type))
        return QStringLiteral("is read as %1 instead of %2").arg(type, QLatin1String(key.type));
    return {};
}

} // namespace

class TestSettingsKeys : public QObject
{
    Q_OBJECT

private slots:
    void everyUseIsInTheTable();
    void everyReaderHasTheDefault();
    void noKeyIsPutTogether();
    void theScannerSees();
};

void TestSettingsKeys::everyUseIsInTheTable()
{
    QStringList wrong;
    for (const Use &use : usesInTheCode()) {
        if (keyFor(use) == nullptr)
            wrong.append(use.place + QStringLiteral(": ") + use.key);
    }
    QVERIFY2(wrong.isEmpty(),
             qPrintable("Not a key of the settings store, or not one for this folder:\n" + wrong.join('\n')));
}

void TestSettingsKeys::everyReaderHasTheDefault()
{
    QStringList wrong;
    int readers = 0;
    for (const Use &use : usesInTheCode()) {
        const Key *key = keyFor(use);
        if (key == nullptr)
            continue;
        ++readers;
        const QString what = complaint(use, *key);
        // The dialog binds keys to controls through tables of its own; its defaults are tested there.
        if (!what.isEmpty() && use.folder != QLatin1String("settings"))
            wrong.append(QStringLiteral("%1: %2 %3").arg(use.place, use.key, what));
    }
    QVERIFY(readers > 40);
    QVERIFY2(wrong.isEmpty(), qPrintable("Each reader has the one default of the key:\n" + wrong.join('\n')));
}

void TestSettingsKeys::noKeyIsPutTogether()
{
    static const QRegularExpression group(
        QStringLiteral("\"(General|Other|PageView|Syntax|Printing|\\w+Tool)/\"|beginGroup\\("));
    const QDir root(QStringLiteral(KESTRIN_SOURCE_DIR "/src"));
    QDirIterator it(root.path(), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    QStringList wrong;
    while (it.hasNext()) {
        QFile file(it.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        if (group.match(QString::fromUtf8(file.readAll())).hasMatch())
            wrong.append(root.relativeFilePath(file.fileName()));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable("Name the whole key at its reader:\n" + wrong.join('\n')));
}

void TestSettingsKeys::theScannerSees()
{
    QHash<QString, Use> reads;
    for (const Use &use : usesInTheCode()) {
        if (use.folder != QLatin1String("settings") && use.function != QLatin1String("setValue"))
            reads.insert(use.key, use);
    }
    QCOMPARE(reads.value(QStringLiteral("General/WindowSize")).defaultValue, QStringLiteral("QSize(1000, 800)"));
    QCOMPARE(reads.value(QStringLiteral("General/WindowSize")).conversion, QStringLiteral("Size"));
    QCOMPARE(reads.value(QStringLiteral("Other/MaxRecentFiles")).defaultValue, QStringLiteral("5"));
    QCOMPARE(reads.value(QStringLiteral("MarkerTool/LineWidth")).function, QStringLiteral("lineWidth"));
    QCOMPARE(reads.value(QStringLiteral("TextBoxTool/DefaultFontFamily")).defaultValue, QStringLiteral("\"Courier\""));

    // A reader with another default, type or spelling is seen.
    const Key &key = keys[0];
    Use use{{}, QStringLiteral("mainwindow"), QLatin1String(key.name), QStringLiteral("value"), {}, {}};
    use.defaultValue = QStringLiteral("true");
    use.conversion = QStringLiteral("Bool");
    QCOMPARE(complaint(use, key), QString());
    use.defaultValue = QStringLiteral("false");
    QVERIFY(!complaint(use, key).isEmpty());
    use.defaultValue = QStringLiteral("true");
    use.conversion = QStringLiteral("Int");
    QVERIFY(!complaint(use, key).isEmpty());
    use.key = QStringLiteral("General/Windowmaximized");
    QCOMPARE(keyFor(use), nullptr);
    use.key = QLatin1String(key.name);
    use.folder = QStringLiteral("syntax");
    QCOMPARE(keyFor(use), nullptr);
}

REGISTER_TEST(TestSettingsKeys)
#include "tst_settingskeys.moc"
