// SPDX-License-Identifier: GPL-3.0-or-later
// How fast long texts load, scroll and take changes, and what memory they need, against bare Qt classes.
#include "documents/documentitem.h"
#include "measure.h"
#include "openpage.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QFile>
#include <QGraphicsTextItem>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <functional>
#include <memory>

namespace {

const QString milliseconds = QStringLiteral("ms");
const QString megabytes = QStringLiteral("MB");

/// Lines as a source file has them: tabs, empty lines, lengths from 0 to 80.
QString source(int lines)
{
    const QString code = QStringLiteral("\tfor (int i = first; i < last && !found; ++i) // looks through all of them");
    QString text;
    for (int i = 0; i < lines; ++i)
        text += code.left((i * 31) % 75) + (i % 6 == 0 ? QString() : QString::number(i)) + QLatin1Char('\n');
    return text;
}

QString writtenFile(const QTemporaryDir &folder, int lines)
{
    QFile file(folder.filePath(QStringLiteral("source%1.txt").arg(lines)));
    if (!file.open(QIODevice::WriteOnly) || file.write(source(lines).toUtf8()) < 0)
        qFatal("cannot write the sample file");
    return file.fileName();
}

/// Where the changes are made.
class EditedPage : public OpenPage
{
public:
    using OpenPage::OpenPage;

    void moveCaretToMiddle()
    {
        QGraphicsTextItem *item = page().documentItem()->textItem();
        QTextCursor cursor(item->document());
        cursor.setPosition(item->document()->characterCount() / 2);
        item->setTextCursor(cursor);
        view()->ensureVisible(
            item->mapRectToScene(item->document()->documentLayout()->blockBoundingRect(cursor.block())));
        paint();
    }

    void key(int key, const QString &text)
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(view(), &press);
    }

    void paste(const QString &text) { page().documentItem()->pasteText(text); }
};

/// Scrolls one page on and paints; false at the end.
bool pageDown(QGraphicsView *view)
{
    QScrollBar *bar = view->verticalScrollBar();
    bar->setValue(bar->value() + bar->pageStep());
    QCoreApplication::processEvents();
    return bar->value() < bar->maximum();
}

/// Mean CPU time of scrolling @p view by one page, down to the end.
double scrollingTime(QGraphicsView *view)
{
    int pages = 1;
    const double whole = leastCpu(1, [&] {
        while (pageDown(view))
            ++pages;
    });
    return whole / pages;
}

void setUnwrapped(QTextDocument *document)
{
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    document->setDefaultTextOption(option);
    document->setDefaultFont(QFont(QStringLiteral("Courier"), 10));
}

void benchLoading(const QTemporaryDir &folder)
{
    printTitle(QStringLiteral("From file to first painting; reference: QTextDocument::setPlainText alone"));
    for (const int lines : {1'000, 10'000, 100'000}) {
        const QString fileName = writtenFile(folder, lines);
        const QString text = source(lines);
        std::unique_ptr<QTextDocument> document;
        std::unique_ptr<EditedPage> page;
        const double bare = leastCpu(
            5, [&] { document->setPlainText(text); }, [&] { document = std::make_unique<QTextDocument>(); });
        const double ours = leastCpu(
            5, [&] { page = std::make_unique<EditedPage>(fileName); }, [&] { page.reset(); });
        printRow(QStringLiteral("%1 lines").arg(lines), ours, bare, milliseconds);
    }
}

/// The change alone, and the painting that follows.
void printChange(const QString &what, EditedPage *page, const std::function<void()> &change, double reference)
{
    constexpr int runs = 20;
    printRow(what, leastCpu(runs, change, [page] { page->paint(); }), reference, milliseconds);
    printRow(QStringLiteral("    painting that follows"),
             leastCpu(
                 runs, [page] { page->paint(); }, change),
             milliseconds);
}

void benchEditing(const QTemporaryDir &folder, int lines)
{
    printTitle(
        QStringLiteral("Changes in the middle of %1 lines; reference: QTextDocument with Qt's layout").arg(lines));
    const QString pasted = source(1'000);
    EditedPage page(writtenFile(folder, lines));
    page.moveCaretToMiddle();

    QTextDocument document;
    setUnwrapped(&document);
    document.setPlainText(source(lines));
    document.size();
    QTextCursor cursor(&document);
    cursor.setPosition(document.characterCount() / 2);
    const auto reference = [&](const QString &text) {
        return leastCpu(3, [&] {
            cursor.insertText(text);
            document.size();
        });
    };
    printChange(
        QStringLiteral("a key inside a line"), &page, [&] { page.key(Qt::Key_X, QStringLiteral("x")); },
        reference(QStringLiteral("x")));
    printChange(
        QStringLiteral("Return"), &page, [&] { page.key(Qt::Key_Return, QStringLiteral("\r")); },
        reference(QStringLiteral("\n")));
    printChange(
        QStringLiteral("paste of 1000 lines"), &page, [&] { page.paste(pasted); }, reference(pasted));
}

void benchLongLine(const QTemporaryDir &folder)
{
    printTitle(QStringLiteral("A single line of 10 MB; reference: QTextDocument::setPlainText alone"));
    QString text = source(250'000).left(10'000'000);
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    QFile file(folder.filePath(QStringLiteral("line.txt")));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("cannot write the sample file");
    file.close();
    std::unique_ptr<QTextDocument> document;
    std::unique_ptr<EditedPage> page;
    const double bare = leastCpu(
        3, [&] { document->setPlainText(text); }, [&] { document = std::make_unique<QTextDocument>(); });
    const double ours = leastCpu(
        3, [&] { page = std::make_unique<EditedPage>(file.fileName()); }, [&] { page.reset(); });
    printRow(QStringLiteral("from file to first painting"), ours, bare, milliseconds);
    page->moveCaretToMiddle();
    const auto printBoth = [&page](const QString &what, int key, const QString &typed) {
        const double alone = leastCpu(
            10, [&] { page->key(key, typed); }, [&] { page->paint(); });
        printRow(what, alone, milliseconds);
        printRow(QStringLiteral("    painting that follows"),
                 leastCpu(
                     10, [&] { page->paint(); }, [&] { page->key(key, typed); }),
                 milliseconds);
    };
    printBoth(QStringLiteral("a key in the middle"), Qt::Key_X, QStringLiteral("x"));
    printBoth(QStringLiteral("an arrow key after it"), Qt::Key_Left, QString());
    printBoth(QStringLiteral("Return, which halves the line"), Qt::Key_Return, QStringLiteral("\r"));
}

void benchScrolling(const QTemporaryDir &folder)
{
    printTitle(QStringLiteral("Scrolling through 100000 lines in a view of 1000 x 800; reference: an empty scene"));
    EditedPage page(writtenFile(folder, 100'000));
    QGraphicsScene scene;
    scene.setSceneRect(page.view()->sceneRect());
    QGraphicsView view(&scene);
    view.resize(page.view()->size());
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    view.show();
    view.verticalScrollBar()->setValue(0);
    QCoreApplication::processEvents();
    printRow(QStringLiteral("one page, painted; mean"), scrollingTime(page.view()), scrollingTime(&view), milliseconds);
}

void benchMemory(const QTemporaryDir &folder)
{
    printTitle(QStringLiteral("Memory of 100000 lines; reference: the bare QTextDocument"));
    const QString fileName = writtenFile(folder, 100'000);
    double before = heapInUse();
    {
        QTextDocument document;
        document.setPlainText(source(100'000));
        const double bare = heapInUse() - before;
        before = heapInUse();
        EditedPage page(fileName);
        printRow(QStringLiteral("loaded and painted"), heapInUse() - before, bare, megabytes);
        scrollingTime(page.view());
        printRow(QStringLiteral("scrolled through"), heapInUse() - before, bare, megabytes);
    }
}

} // namespace

int main(int argc, char **argv)
{
    prepareBenchmark();
    const QApplication application(argc, argv);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    const QTemporaryDir folder;
    benchLoading(folder);
    benchEditing(folder, 100'000);
    benchEditing(folder, 1'000'000);
    benchLongLine(folder);
    benchScrolling(folder);
    benchMemory(folder);
    return 0;
}
