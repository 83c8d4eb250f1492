// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/folders.h"
#include "support/testmain.h"
#include "syntax/definitionxml.h"
#include "syntax/patternshape.h"
#include "syntax/wordtable.h"

#include <QColor>
#include <QDir>
#include <QDomElement>
#include <QFile>
#include <QRegExp>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <cmath>

namespace {

const QStringList groupOrder{"Keywords", "Types", "Comments", "Quotation"};

/// Texts that give an expression a chance to match the empty string: at word limits, at ends, before any character.
const QStringList probes{"",       " ",       "a",      "ab cd",  "a1 _b2",      "(x) [y] {z}", "\"q\" 'r' `s`",
                         "// c",   "/* d */", "# e",    "-- f",   "<g h=\"i\">", "%j $k @l &m", "1 0x2 3.4e5",
                         "a\\b\\", "-",       "=begin", "  x: y", "~!^*+|;,.?",  "ż é 中"};

QDir sourceFolder()
{
    return QDir(QStringLiteral(KESTRIN_SOURCE_DIR "/data/sys/sysr/sn"));
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QDomElement rootOf(const QString &name)
{
    const auto document = parseDefinition(contentOf(sourceFolder().filePath(name)));
    return document ? document->documentElement() : QDomElement();
}

QStringList patternsOf(const QDomElement &group)
{
    QStringList patterns;
    QDomElement child = group.firstChildElement();
    for (; !child.isNull(); child = child.nextSiblingElement())
        patterns.append(child.text());
    return patterns;
}

/// The expression of a pattern, without the prefix that tells what it is for.
QRegExp expressionOf(QString pattern, bool comment)
{
    if (comment)
        pattern.remove(QRegularExpression("^MULTI_(START|END)="));
    return QRegExp(pattern);
}

/// The first probe in which the expression matches the empty string.
QString emptyMatch(const QRegExp &expression)
{
    for (const QString &probe : probes) {
        for (int i = 0; i <= probe.size(); ++i) {
            if (expression.indexIn(probe, i) >= 0 && expression.matchedLength() == 0)
                return QStringLiteral("in \"%1\"").arg(probe);
        }
    }
    return {};
}

double luminance(const QColor &color)
{
    const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Contrast with white, from 1 (none) to 21 (black).
double contrast(const QColor &color)
{
    return 1.05 / (luminance(color) + 0.05);
}

} // namespace

/// Conventions of the definition files that come with the program.
class TestDefinitions : public QObject
{
    Q_OBJECT

private slots:
    void everyExtensionIsThere_data();
    void everyExtensionIsThere();
    void copiesAreTheSame();
    void structure_data();
    void structure();
    void colours_data();
    void colours();
    void patterns_data();
    void patterns();
    void noPatternTwice_data();
    void noPatternTwice();
    void multiLineExpressionsComeInPairs_data();
    void multiLineExpressionsComeInPairs();

private:
    void definitionRows();
};

void TestDefinitions::definitionRows()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : sourceFolder().entryList({"*.xml"}, QDir::Files))
        QTest::newRow(qPrintable(name)) << name;
}

void TestDefinitions::everyExtensionIsThere_data()
{
    QTest::addColumn<QString>("extension");
    const QStringList extensions{"c",    "h",  "cpp", "cc",  "hpp", "cs",   "f",   "f90",  "java",  "pl",   "php",
                                 "phps", "py", "rb",  "js",  "ts",  "html", "css", "xml",  "json",  "yaml", "sh",
                                 "sql",  "go", "rs",  "lua", "tex", "md",   "ini", "diff", "cmake", "oxn"};
    for (const QString &extension : extensions)
        QTest::newRow(qPrintable(extension)) << extension;
}

void TestDefinitions::everyExtensionIsThere()
{
    QFETCH(const QString, extension);
    QVERIFY2(
        QFile::exists(dataFolder("syntax") + extension + ".xml"),
        "Write data/sys/sysr/sn/<extension>.xml, or name the extension in data/CMakeLists.txt beside the one whose "
        "definition serves it too.");
}

void TestDefinitions::copiesAreTheSame()
{
    QVERIFY(!sourceFolder().isEmpty());
    for (const QString &name : sourceFolder().entryList(QDir::Files))
        QCOMPARE(contentOf(dataFolder("syntax") + name), contentOf(sourceFolder().filePath(name)));
    for (const char *name : {"cc", "hpp"})
        QCOMPARE(contentOf(dataFolder("syntax") + name + ".xml"), contentOf(sourceFolder().filePath("cpp.xml")));
    QCOMPARE(contentOf(dataFolder("syntax") + "phps.xml"), contentOf(sourceFolder().filePath("php.xml")));
}

void TestDefinitions::structure_data()
{
    definitionRows();
}

void TestDefinitions::structure()
{
    QFETCH(const QString, name);
    const QDomElement root = rootOf(name);
    QVERIFY2(!root.isNull(), "not a well-formed, harmless XML file");
    QCOMPARE(root.tagName(), QStringLiteral("syntaxfile"));
    QVERIFY(contentOf(sourceFolder().filePath(name)).contains("\n<!DOCTYPE syntaxfile>\n<syntaxfile "));
    QCOMPARE(root.attribute("type") + ".xml", name);
    QVERIFY(root.hasAttribute("version"));
    QStringList groups;
    for (QDomElement group = root.firstChildElement(); !group.isNull(); group = group.nextSiblingElement()) {
        QCOMPARE(group.tagName(), QStringLiteral("element"));
        QCOMPARE(group.attributes().size(), 5);
        QVERIFY(QStringList({"true", "false"}).contains(group.attribute("italic")));
        QVERIFY(QStringList({"Bold", "Normal"}).contains(group.attribute("weight")));
        groups.append(group.attribute("name"));
        for (QDomElement child = group.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            QCOMPARE(child.tagName(), QStringLiteral("pattern"));
            QVERIFY(!child.hasAttributes() && child.firstChildElement().isNull());
            QCOMPARE(child.text().trimmed(), child.text());
        }
        QVERIFY2(!patternsOf(group).isEmpty(), qPrintable(group.attribute("name")));
    }
    QCOMPARE(groups, groupOrder);
}

void TestDefinitions::colours_data()
{
    definitionRows();
}

/// Readable on the white of a page: as much contrast as guidelines ask of text of usual size.
void TestDefinitions::colours()
{
    QFETCH(const QString, name);
    const QDomElement root = rootOf(name);
    QSet<QRgb> different;
    for (QDomElement group = root.firstChildElement(); !group.isNull(); group = group.nextSiblingElement()) {
        const QColor color = QColor::fromString(group.attribute("color"));
        QVERIFY2(color.isValid() && color.alpha() == 255, qPrintable(group.attribute("color")));
        QVERIFY2(contrast(color) >= 4.5, qPrintable(group.attribute("color")));
        QCOMPARE(group.attribute("bg_color"), QStringLiteral("transparent"));
        different.insert(color.rgb());
    }
    QCOMPARE(different.size(), groupOrder.size());
}

void TestDefinitions::patterns_data()
{
    definitionRows();
}

void TestDefinitions::patterns()
{
    QFETCH(const QString, name);
    const QDomElement root = rootOf(name);
    for (QDomElement group = root.firstChildElement(); !group.isNull(); group = group.nextSiblingElement()) {
        for (const QString &pattern : patternsOf(group)) {
            const QRegExp expression = expressionOf(pattern, group.attribute("name") == "Comments");
            QVERIFY2(expression.isValid(), qPrintable(pattern + ": " + expression.errorString()));
            const PatternShape shape(expression.pattern());
            QVERIFY2(!shape.isTooLarge() && shape.reach() == PatternShape::longestSearched, qPrintable(pattern));
            const QString empty = emptyMatch(expression);
            QVERIFY2(empty.isEmpty(), qPrintable(pattern + " matches the empty string " + empty));
        }
    }
}

void TestDefinitions::noPatternTwice_data()
{
    definitionRows();
}

/// Neither in a group, nor a word in two groups: only one of its colours would ever be seen.
void TestDefinitions::noPatternTwice()
{
    QFETCH(const QString, name);
    const QDomElement root = rootOf(name);
    QSet<QString> words;
    for (QDomElement group = root.firstChildElement(); !group.isNull(); group = group.nextSiblingElement()) {
        const QStringList patterns = patternsOf(group);
        QCOMPARE(QSet<QString>(patterns.begin(), patterns.end()).size(), patterns.size());
        for (const QString &pattern : patterns) {
            const QString word = WordTable::plainWord(pattern);
            QVERIFY2(word.isEmpty() || !words.contains(word), qPrintable(word));
            words.insert(word);
        }
    }
}

void TestDefinitions::multiLineExpressionsComeInPairs_data()
{
    definitionRows();
}

void TestDefinitions::multiLineExpressionsComeInPairs()
{
    QFETCH(const QString, name);
    const QDomElement root = rootOf(name);
    for (QDomElement group = root.firstChildElement(); !group.isNull(); group = group.nextSiblingElement()) {
        const QStringList patterns = patternsOf(group);
        const auto starts = patterns.filter(QRegularExpression("^MULTI_START=.")).size();
        QCOMPARE(patterns.filter(QRegularExpression("^MULTI_END=.")).size(), starts);
        QCOMPARE(patterns.filter("MULTI_").size(), 2 * starts);
        QVERIFY(starts == 0 || (starts == 1 && group.attribute("name") == "Comments"));
    }
}

REGISTER_TEST(TestDefinitions)
#include "tst_definitions.moc"
