// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>

namespace {

/// Folders of src/ that each folder may include, besides itself and the ground headers.
const QHash<QString, QStringList> &allowedIncludes()
{
    static const QHash<QString, QStringList> table{
        {"annotations", {}},
        {"syntax", {}},
        {"tools", {"annotations", "documents", "persistence", "widgets"}},
        {"documents", {"annotations", "syntax", "tools", "persistence"}},
        {"persistence", {"annotations", "documents"}},
        {"widgets", {"annotations", "documents"}},
        {"settings", {"persistence", "syntax", "widgets"}},
        {"statistics", {"documents", "widgets"}},
        {"mainwindow",
         {"annotations", "syntax", "tools", "documents", "persistence", "settings", "statistics", "widgets"}},
        {"app", {"mainwindow", "widgets"}},
    };
    return table;
}

/// The only headers of tools/ that documents/ may include: the interfaces, no concrete tool.
const QStringList lowToolHeaders{"tools/tool.h", "tools/drawingtool.h"};
const QStringList groundHeaders{"app/clipboardtext.h", "app/eventlog.h", "app/folders.h", "app/mailclient.h", "app/setting.h"};

struct Include
{
    QString target;
    int line;
};

QStringList sourceFiles()
{
    QStringList files;
    const QDir root(QStringLiteral(KESTRIN_SOURCE_DIR "/src"));
    QDirIterator it(root.path(), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(root.relativeFilePath(it.next()));
    files.sort();
    return files;
}

/// All files of the project, seen from its top, without what the build and the version control keep there.
QStringList projectFiles()
{
    QStringList files;
    const QDir root(QStringLiteral(KESTRIN_SOURCE_DIR));
    QDirIterator it(root.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = root.relativeFilePath(it.next());
        if (!file.startsWith(QLatin1String("build/")) && !file.startsWith(QLatin1String(".git/")))
            files.append(file);
    }
    files.removeOne(QStringLiteral(".git")); // the file that stands for the folder in a second working tree
    files.sort();
    return files;
}

QString readProjectFile(const QString &relative)
{
    QFile file(QStringLiteral(KESTRIN_SOURCE_DIR "/") + relative);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString readFile(const QString &relative)
{
    return readProjectFile("src/" + relative);
}

/// What REUSE.toml says for, as patterns of paths: one star for names of one folder, two for all below.
QList<QRegularExpression> licencedElsewhere()
{
    static const QRegularExpression quotedPath(QStringLiteral("^ +\"([^\"]+)\",$"),
                                               QRegularExpression::MultilineOption);
    QList<QRegularExpression> patterns;
    for (auto it = quotedPath.globalMatch(readProjectFile(QStringLiteral("REUSE.toml"))); it.hasNext();) {
        QString pattern = QRegularExpression::escape(it.next().captured(1));
        pattern.replace(QLatin1String("\\*\\*"), QLatin1String(".+"))
            .replace(QLatin1String("\\*"), QLatin1String("[^/]+"));
        patterns.append(QRegularExpression(QRegularExpression::anchoredPattern(pattern)));
    }
    return patterns;
}

QList<Include> includesOf(const QString &relative)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*#\\s*include\\s+\"([^\"]+)\""));
    QList<Include> includes;
    const QStringList lines = readFile(relative).split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QRegularExpressionMatch match = pattern.match(lines.at(i));
        if (match.hasMatch())
            includes.append({match.captured(1), i + 1});
    }
    return includes;
}

bool isGenerated(const QString &target)
{
    return target.startsWith(QLatin1String("ui_")) || target.endsWith(QLatin1String(".moc"));
}

bool mayInclude(const QString &file, const QString &target)
{
    const QString from = file.section('/', 0, 0);
    const QString to = target.section('/', 0, 0);
    if (from == to || groundHeaders.contains(target))
        return true;
    if (from == QLatin1String("documents") && to == QLatin1String("tools"))
        return lowToolHeaders.contains(target);
    // A page loads itself through the I/O system, which fills the page: only the two sources know each other.
    if (from == QLatin1String("documents") && to == QLatin1String("persistence"))
        return file == QLatin1String("documents/page.cpp") && target == QLatin1String("persistence/iosystem.h");
    return allowedIncludes().value(from).contains(to);
}

/// Depth-first walk over the headers; returns the first cycle found as a readable chain.
QString findCycle(const QString &file, const QHash<QString, QStringList> &graph, QStringList &path, QSet<QString> &done)
{
    if (path.contains(file))
        return (path.mid(path.indexOf(file)) << file).join(QStringLiteral(" -> "));
    if (done.contains(file))
        return {};
    path.append(file);
    for (const QString &next : graph.value(file)) {
        const QString cycle = findCycle(next, graph, path, done);
        if (!cycle.isEmpty())
            return cycle;
    }
    path.removeLast();
    done.insert(file);
    return {};
}

} // namespace

class TestSources : public QObject
{
    Q_OBJECT

private slots:
    void includesPointDown();
    void includesNameTheirFolder();
    void noIncludeCycles();
    void everyFileHasALicenceLine();
    void noFileIsTooLong();
};

void TestSources::includesPointDown()
{
    QVERIFY(sourceFiles().size() > 5);
    QStringList wrong;
    for (const QString &file : sourceFiles()) {
        for (const Include &include : includesOf(file)) {
            if (!isGenerated(include.target) && include.target.contains('/') && !mayInclude(file, include.target))
                wrong.append(
                    QStringLiteral("src/%1:%2 includes \"%3\"").arg(file).arg(include.line).arg(include.target));
        }
    }
    QVERIFY2(wrong.isEmpty(), qPrintable("Includes must point down the floors (docs/architecture.md): ask through an "
                                         "interface in the asker's folder, or announce with a signal.\n" +
                                         wrong.join('\n')));
}

void TestSources::includesNameTheirFolder()
{
    QStringList wrong;
    for (const QString &file : sourceFiles()) {
        for (const Include &include : includesOf(file)) {
            if (!isGenerated(include.target) && !include.target.contains('/'))
                wrong.append(
                    QStringLiteral("src/%1:%2 includes \"%3\"").arg(file).arg(include.line).arg(include.target));
        }
    }
    QVERIFY2(wrong.isEmpty(), qPrintable("Write \"folder/file.h\", seen from src/.\n" + wrong.join('\n')));
}

void TestSources::noIncludeCycles()
{
    QHash<QString, QStringList> graph;
    for (const QString &file : sourceFiles()) {
        for (const Include &include : includesOf(file)) {
            if (file.endsWith(QLatin1String(".h")))
                graph[file].append(include.target);
        }
    }
    QSet<QString> done;
    for (const QString &file : graph.keys()) {
        QStringList path;
        const QString cycle = findCycle(file, graph, path, done);
        QVERIFY2(cycle.isEmpty(), qPrintable("Break this cycle with a forward declaration: " + cycle));
    }
}

void TestSources::everyFileHasALicenceLine()
{
    const QList<QRegularExpression> elsewhere = licencedElsewhere();
    QVERIFY(projectFiles().size() > 400);
    QVERIFY(!elsewhere.isEmpty());
    QStringList wrong;
    for (const QString &file : projectFiles()) {
        const bool isCovered = std::any_of(elsewhere.begin(), elsewhere.end(),
                                           [&](const QRegularExpression &path) { return path.match(file).hasMatch(); });
        // Behind what a format wants to have first: "#!", "<?xml".
        const QString start = readProjectFile(file).section('\n', 0, 1);
        if (!isCovered && file != QLatin1String("LICENSE") &&
            !start.contains(QLatin1String("SPDX-License-Identifier: GPL-3.0-or-later")))
            wrong.append(file);
    }
    QVERIFY2(wrong.isEmpty(),
             qPrintable("Start the file with its SPDX line, or name it in REUSE.toml if it cannot have "
                        "one:\n" +
                        wrong.join('\n')));
}

void TestSources::noFileIsTooLong()
{
    QStringList wrong;
    for (const QString &file : sourceFiles()) {
        const auto lines = readFile(file).count('\n');
        if (lines > 600)
            wrong.append(QStringLiteral("src/%1 (%2 lines)").arg(file).arg(lines));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable("Split by topic, at most 600 lines:\n" + wrong.join('\n')));
}

REGISTER_TEST(TestSources)
#include "tst_sources.moc"
