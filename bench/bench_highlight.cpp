// SPDX-License-Identifier: GPL-3.0-or-later
// What syntax highlighting adds to loading and typing, on C++ text of this program's own kind.
#include "measure.h"
#include "openpage.h"

#include <QApplication>
#include <QFile>
#include <QGraphicsTextItem>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

namespace {

const QString milliseconds = QStringLiteral("ms");

QString source(int lines)
{
    const QStringList kinds{
        QStringLiteral("/// Moves the mark by @p offset, in scene units; a line of a comment of usual length."),
        QStringLiteral("void Page::moveMark(const QPointF &offset, int count)"),
        QStringLiteral("{"),
        QStringLiteral("    const QString name = QStringLiteral(\"no mark here: \\\"%1\\\"\").arg(count);"),
        QStringLiteral("    for (int i = 0; i < count && offset.x() > 0.5; ++i)"),
        QStringLiteral("        static_cast<Annotation *>(m_marks.at(i))->moveBy(offset.x() * 2, 'x');"),
        QStringLiteral("    return; // nothing else is to be done"),
        QStringLiteral("}"),
        QString(),
    };
    QString text;
    for (int i = 0; i < lines; ++i)
        text += kinds.at(i % kinds.size()) + QLatin1Char('\n');
    return text;
}

void insert(OpenPage &open, int position, const QString &text)
{
    QTextCursor cursor(open.page().textDocument());
    cursor.setPosition(position);
    cursor.insertText(text);
    open.paint();
}

void setHighlighting(bool on)
{
    QSettings().setValue(QStringLiteral("Syntax/HighlightByDefault"), on);
}

void measure(const QTemporaryDir &folder, int lines)
{
    printTitle(QStringLiteral("%1 lines of C++").arg(lines));
    QFile file(folder.filePath(QStringLiteral("source%1.cpp").arg(lines)));
    if (!file.open(QIODevice::WriteOnly) || file.write(source(lines).toUtf8()) < 0)
        qFatal("cannot write the sample file");
    file.close();

    std::unique_ptr<OpenPage> open;
    const auto close = [&open] { open.reset(); };
    const auto load = [&] { open = std::make_unique<OpenPage>(file.fileName()); };
    setHighlighting(false);
    const double plain = leastCpu(3, load, close);
    setHighlighting(true);
    printRow(QStringLiteral("load highlighted, against plain"), leastCpu(3, load, close), plain, milliseconds);

    const int middle = open->page().textDocument()->characterCount() / 2;
    printRow(QStringLiteral("key in the middle, painted"), leastCpu(20, [&] { insert(*open, middle, "x"); }),
             milliseconds);
    printRow(QStringLiteral("settings applied again"), leastCpu(5, [&] { open->page().highlightSyntax(true); }),
             milliseconds);
    printRow(QStringLiteral("comment opened at the top, per 10,000 lines"),
             leastCpu(
                 3, [&] { insert(*open, 0, "/* "); },
                 [&] {
                     QTextCursor cursor(open->page().textDocument());
                     cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, 3);
                     cursor.removeSelectedText();
                     open->paint();
                 }) *
                 10000 / lines,
             milliseconds);
    printRow(QStringLiteral("switched off and on"),
             leastCpu(3,
                      [&] {
                          open->page().highlightSyntax(false);
                          open->page().highlightSyntax(true);
                      }),
             milliseconds);
}

} // namespace

int main(int argc, char *argv[])
{
    prepareBenchmark();
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    for (const int lines : {1000, 10000, 100000})
        measure(folder, lines);
    return 0;
}
