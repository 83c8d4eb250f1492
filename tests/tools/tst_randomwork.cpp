// SPDX-License-Identifier: GPL-3.0-or-later
// Long random sequences of what a user can do with marks, by real mouse and key events, on several open documents.
// After each step everything must be where the rules of the commands say. The seeds are fixed: a failure repeats.
#include "annotations/annotation.h"
#include "annotations/textboxann.h"
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "support/fakehost.h"
#include "support/files.h"
#include "support/testmain.h"
#include "tools/brackettool.h"
#include "tools/erasertool.h"
#include "tools/linetool.h"
#include "tools/markertool.h"
#include "tools/markledger.h"
#include "tools/markplaces.h"
#include "tools/pentool.h"
#include "tools/savedcopy.h"
#include "tools/shapetool.h"
#include "tools/textboxtool.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QClipboard>
#include <QGraphicsTextItem>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QUndoStack>
#include <QWindow>

#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int stepsOfARun = 1500;

QString randomSource(QRandomGenerator *random)
{
    QString text;
    for (int line = random->bounded(3, 40); line > 0; --line)
        text += QString(random->bounded(60), QLatin1Char('x')) + QLatin1Char('\n');
    return text + QStringLiteral("end");
}

} // namespace

class TestRandomWork : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everythingStaysWhereItBelongs_data();
    void everythingStaysWhereItBelongs();

private:
    using Action = void (TestRandomWork::*)();
    struct Chance
    {
        const char *name;
        int weight;
        Action action;
    };
    static const QList<Chance> &chances();

    void openDocuments();
    Page *addTab();
    int pick(int bound) { return int(m_random->bounded(bound)); }
    Page *page() const { return m_stack->currentPage(); }
    PageView *view() const { return page()->pageView(); }
    QPoint randomPoint();
    /// A point of the view where a mark is hit, if one is found soon.
    QPoint pointOnAMark();
    void press(const QPoint &point);
    void moveTo(const QPoint &point);
    void release(const QPoint &point);
    Tool *randomTool(int count);
    void fail(const QString &what);

    // What can happen. Each tells the ledger what it should have done.
    void draw();
    void changeToolWhileDrawing();
    void selectByClick();
    void selectAtRandom();
    void dragMarks();
    void copy();
    void cut();
    void erase();
    void paste();
    void undo();
    void redo();
    void undoAllAndRedo();
    void typeText();
    void editLines();
    void pasteText();
    void undoText();
    void typeIntoTextBox();
    void switchTab();
    void hideOrShow();
    void clearSteps();
    void removeMarks();
    void save();
    void reopen();

    /// Enters the marks on the page that are new, as one step if there are any.
    void enterDrawn();
    void cutSelected(Page *page, const QList<Annotation *> &marks);
    QList<Annotation *> selectedMarks() const;
    void expectPlaces(const MarkPlaces &before);
    void change(const std::function<void()> &edit);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QRandomGenerator> m_random;
    std::unique_ptr<FakeHost> m_host;
    PageStack *m_stack = nullptr; ///< Owned by the host's window.
    std::vector<std::unique_ptr<Tool>> m_tools;
    std::unique_ptr<MarkLedger> m_ledger;
    QString m_problem;
};

const QList<TestRandomWork::Chance> &TestRandomWork::chances()
{
    static const QList<Chance> all{
        {"draw", 20, &TestRandomWork::draw},
        {"change the tool while drawing", 1, &TestRandomWork::changeToolWhileDrawing},
        {"select by click", 10, &TestRandomWork::selectByClick},
        {"select at random", 6, &TestRandomWork::selectAtRandom},
        {"drag marks", 10, &TestRandomWork::dragMarks},
        {"copy", 5, &TestRandomWork::copy},
        {"cut", 5, &TestRandomWork::cut},
        {"erase", 3, &TestRandomWork::erase},
        {"paste", 8, &TestRandomWork::paste},
        {"undo", 12, &TestRandomWork::undo},
        {"redo", 8, &TestRandomWork::redo},
        {"undo all and redo", 1, &TestRandomWork::undoAllAndRedo},
        {"type text", 5, &TestRandomWork::typeText},
        {"edit lines", 8, &TestRandomWork::editLines},
        {"paste text", 3, &TestRandomWork::pasteText},
        {"undo text", 3, &TestRandomWork::undoText},
        {"type into a text box", 3, &TestRandomWork::typeIntoTextBox},
        {"switch tab", 6, &TestRandomWork::switchTab},
        {"hide or show marks", 2, &TestRandomWork::hideOrShow},
        {"clear the undo steps", 1, &TestRandomWork::clearSteps},
        {"remove all marks", 1, &TestRandomWork::removeMarks},
        {"save", 3, &TestRandomWork::save},
        {"save, close and open", 1, &TestRandomWork::reopen},
    };
    return all;
}

void TestRandomWork::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<FakeHost>();
    m_host->currentMode = TransformMode;
    m_ledger = std::make_unique<MarkLedger>();
    m_stack = new PageStack(m_host.get());
    m_stack->resize(420, 320);
    m_host->window.resize(420, 320);
    m_tools.emplace_back(std::make_unique<PenTool>(Qt::red, 2, false));
    m_tools.emplace_back(std::make_unique<MarkerTool>(Qt::yellow, false));
    m_tools.emplace_back(std::make_unique<LineTool>(5));
    m_tools.emplace_back(std::make_unique<BracketTool>(0));
    m_tools.emplace_back(std::make_unique<ShapeTool>(1, false));
    m_tools.emplace_back(std::make_unique<ShapeTool>(2, false));
    m_tools.emplace_back(std::make_unique<TextBoxTool>(nullptr, false));
    m_tools.emplace_back(std::make_unique<EraserTool>());
    m_problem.clear();
}

void TestRandomWork::cleanup()
{
    m_host->tool = nullptr;
    m_tools.clear();
    m_ledger.reset();
    m_host.reset();
}

Page *TestRandomWork::addTab()
{
    auto *page = new Page(m_host.get());
    auto *view = new PageView(page, nullptr);
    page->setPageView(view);
    view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_stack->addTab(view, QString::number(m_stack->count()));
    m_ledger->addPage(page);
    return page;
}

void TestRandomWork::openDocuments()
{
    for (const char *name : {"a.txt", "b.txt"}) {
        store(m_folder->filePath(name), randomSource(m_random.get()).toUtf8());
        QVERIFY(addTab()->loadFile(m_folder->filePath(name)));
    }
    QVERIFY(QPixmap(600, 500).save(m_folder->filePath("p.png")));
    QVERIFY(addTab()->loadFile(m_folder->filePath("p.png")));
    m_stack->setCurrentIndex(0);
    page()->activateUndoStack();
    m_host->window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_host->window));
}

void TestRandomWork::everythingStaysWhereItBelongs_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestRandomWork::everythingStaysWhereItBelongs()
{
    QFETCH(const quint32, seed);
    m_random = std::make_unique<QRandomGenerator>(seed);
    openDocuments();
    int sum = 0;
    for (const Chance &chance : chances())
        sum += chance.weight;
    QStringList done;
    for (int step = 0; step < stepsOfARun && m_problem.isEmpty(); ++step) {
        int dice = pick(sum);
        const Chance *chance = chances().constData();
        while (dice >= chance->weight)
            dice -= (chance++)->weight;
        done.append(QString::fromLatin1(chance->name));
        (this->*chance->action)();
        const QUndoStack *steps = m_host->group->activeStack();
        if (steps->index() != m_ledger->doneSteps(page()) || steps->count() != m_ledger->allSteps(page()))
            fail(QStringLiteral("%1 of %2 undo steps").arg(steps->index()).arg(steps->count()));
        fail(m_ledger->firstDifference(*m_host->annotationClipboard()));
    }
    QVERIFY2(m_problem.isEmpty(),
             qPrintable(QStringLiteral("after %1 steps: %2; the last were: %3")
                            .arg(done.size())
                            .arg(m_problem, done.mid(done.size() - 12).join(QStringLiteral(", ")))));
}

void TestRandomWork::fail(const QString &what)
{
    if (m_problem.isEmpty())
        m_problem = what;
}

QPoint TestRandomWork::randomPoint()
{
    const QSize size = view()->viewport()->size();
    return {pick(size.width()), pick(size.height())};
}

QPoint TestRandomWork::pointOnAMark()
{
    QPoint point = randomPoint();
    for (int tries = 0; tries < 30 && !dynamic_cast<Annotation *>(view()->itemAt(point)); ++tries)
        point = randomPoint();
    return point;
}

void TestRandomWork::press(const QPoint &point)
{
    QTest::mousePress(m_host->window.windowHandle(), Qt::LeftButton, {},
                      view()->viewport()->mapTo(&m_host->window, point));
}

void TestRandomWork::moveTo(const QPoint &point)
{
    QTest::mouseMove(m_host->window.windowHandle(), view()->viewport()->mapTo(&m_host->window, point));
}

void TestRandomWork::release(const QPoint &point)
{
    QTest::mouseRelease(m_host->window.windowHandle(), Qt::LeftButton, {},
                        view()->viewport()->mapTo(&m_host->window, point));
}

QList<Annotation *> TestRandomWork::selectedMarks() const
{
    QList<Annotation *> selected;
    for (Annotation *mark : marksOf(page())) {
        if (dynamic_cast<QGraphicsItem *>(mark)->isSelected())
            selected.append(mark);
    }
    return selected;
}

void TestRandomWork::expectPlaces(const MarkPlaces &before)
{
    for (const int mark : before.moved())
        fail(QStringLiteral("mark %1 has moved").arg(mark));
}

void TestRandomWork::enterDrawn()
{
    QList<int> fresh;
    for (Annotation *mark : marksOf(page())) {
        if (MarkLedger::numberOf(mark) < 0)
            fresh.append(m_ledger->enter(mark));
    }
    if (fresh.size() > 1)
        fail(QStringLiteral("one gesture, %1 marks").arg(fresh.size()));
    if (!fresh.isEmpty())
        m_ledger->push(page(), MarkLedger::Put, fresh);
}

Tool *TestRandomWork::randomTool(int count)
{
    return m_tools.at(size_t(pick(count))).get();
}

void TestRandomWork::draw()
{
    const MarkPlaces before(page());
    m_host->currentMode = ToolMode;
    m_host->tool = randomTool(int(m_tools.size()) - 1); // all but the eraser
    press(randomPoint());
    QPoint end = randomPoint();
    for (int moves = pick(5); moves > 0; --moves)
        moveTo(end = randomPoint());
    release(end);
    enterDrawn();
    expectPlaces(before);
}

void TestRandomWork::changeToolWhileDrawing()
{
    m_host->currentMode = ToolMode;
    m_host->tool = randomTool(6);
    press(randomPoint());
    moveTo(randomPoint());
    if (pick(3) == 0)
        m_host->currentMode = TransformMode;
    else
        m_host->tool = randomTool(6);
    release(randomPoint());
    enterDrawn();
}

void TestRandomWork::selectByClick()
{
    m_host->currentMode = TransformMode;
    const MarkPlaces before(page());
    const QPoint point = pointOnAMark();
    press(point);
    release(point);
    expectPlaces(before);
}

void TestRandomWork::selectAtRandom()
{
    m_host->currentMode = TransformMode;
    for (Annotation *mark : marksOf(page()))
        dynamic_cast<QGraphicsItem *>(mark)->setSelected(pick(4) == 0);
}

void TestRandomWork::dragMarks()
{
    m_host->currentMode = TransformMode;
    const MarkPlaces before(page());
    press(pointOnAMark());
    moveTo(randomPoint());
    const QPoint end = randomPoint();
    moveTo(end);
    release(end);
    const QList<int> selected = MarkLedger::numbersOf(selectedMarks());
    for (const int mark : before.moved()) {
        if (!selected.contains(mark))
            fail(QStringLiteral("mark %1 was dragged unselected").arg(mark));
    }
}

void TestRandomWork::copy()
{
    m_host->currentMode = pick(2) == 0 ? TransformMode : ToolMode;
    const bool anything = !page()->selectedItems().isEmpty();
    const MarkPlaces before(page());
    const QList<Annotation *> selected = selectedMarks();
    page()->copyCommand();
    expectPlaces(before);
    if (!anything)
        return;
    QList<int> clones;
    for (Annotation *mark : *m_host->annotationClipboard())
        clones.append(m_ledger->enter(mark));
    m_ledger->setClipboard(clones);
    if (clones.size() != selected.size())
        fail(QStringLiteral("%1 copies of %2 marks").arg(clones.size()).arg(selected.size()));
}

void TestRandomWork::cutSelected(Page *page, const QList<Annotation *> &marks)
{
    if (marks.isEmpty())
        return;
    m_ledger->setClipboard(MarkLedger::numbersOf(marks));
    m_ledger->push(page, MarkLedger::Cut, m_ledger->clipboard());
}

void TestRandomWork::cut()
{
    m_host->currentMode = pick(2) == 0 ? TransformMode : ToolMode;
    const MarkPlaces before(page());
    const QList<Annotation *> selected = selectedMarks();
    cutSelected(page(), selected);
    if (pick(2) == 0)
        page()->cutCommand();
    else
        page()->removeCommand();
    expectPlaces(before);
}

void TestRandomWork::erase()
{
    m_host->currentMode = ToolMode;
    m_host->tool = m_tools.back().get();
    const QPoint point = pointOnAMark();
    press(point);
    cutSelected(page(), selectedMarks());
    release(point);
}

void TestRandomWork::paste()
{
    m_host->currentMode = pick(2) == 0 ? TransformMode : ToolMode;
    const MarkPlaces before(page());
    if (!m_ledger->clipboard().isEmpty())
        m_ledger->push(page(), MarkLedger::Put, m_ledger->clipboard());
    page()->pasteCommand();
    expectPlaces(before);
}

void TestRandomWork::undo()
{
    const MarkPlaces before(page());
    m_ledger->undo(page());
    m_host->group->undo();
    expectPlaces(before);
}

void TestRandomWork::redo()
{
    const MarkPlaces before(page());
    m_ledger->redo(page());
    m_host->group->redo();
    expectPlaces(before);
}

void TestRandomWork::undoAllAndRedo()
{
    const qsizetype steps = m_ledger->doneSteps(page());
    for (qsizetype i = 0; i < steps; ++i)
        undo();
    fail(m_ledger->firstDifference(*m_host->annotationClipboard()));
    for (qsizetype i = 0; i < steps; ++i)
        redo();
}

/// Does @p edit to the text, and expects the marks to follow the lines that come or go.
void TestRandomWork::change(const std::function<void()> &edit)
{
    m_host->currentMode = TextMode;
    const QTextDocument *document = page()->textDocument();
    const MarkPlaces before(page());
    const int lines = document->blockCount();
    const double lineHeight = page()->contentsHeight() / lines;
    edit();
    fail(before.differenceFromShift((document->blockCount() - lines) * lineHeight));
    if (page()->documentKind() == Page::TextDocument && page()->documentItem()->lineCount() != document->blockCount())
        fail(QStringLiteral("the lines are miscounted"));
}

void TestRandomWork::typeText()
{
    change([this] {
        page()->focusDocument();
        QTextCursor cursor(page()->textDocument());
        cursor.setPosition(pick(page()->textDocument()->characterCount()));
        page()->documentItem()->textItem()->setTextCursor(cursor);
        QTest::keyClicks(view(), QStringLiteral("ab "));
    });
}

void TestRandomWork::editLines()
{
    if (page()->documentKind() != Page::TextDocument)
        return;
    QTextCursor cursor(page()->textDocument());
    cursor.setPosition(pick(page()->textDocument()->characterCount()));
    change([&] {
        if (pick(2) == 0) {
            cursor.insertText(QStringLiteral("x\n").repeated(1 + pick(3)));
        } else {
            cursor.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor, 1 + pick(5));
            cursor.removeSelectedText();
        }
    });
}

void TestRandomWork::pasteText()
{
    QApplication::clipboard()->setText(randomSource(m_random.get()).left(200));
    change([this] { page()->pasteCommand(); });
}

void TestRandomWork::undoText()
{
    // Several changes may come back at once, each with a shift of its own.
    m_host->currentMode = TextMode;
    page()->textDocument()->undo();
}

void TestRandomWork::typeIntoTextBox()
{
    const MarkPlaces before(page());
    for (Annotation *mark : marksOf(page())) {
        auto *box = dynamic_cast<TextBoxAnn *>(mark);
        if (!box || box->textInteractionFlags() == Qt::NoTextInteraction || !box->isVisible())
            continue;
        box->setFocus();
        QTest::keyClick(view(), Qt::Key_A);
        break;
    }
    expectPlaces(before);
}

void TestRandomWork::switchTab()
{
    m_stack->setCurrentIndex(pick(m_stack->count()));
    page()->activateUndoStack();
}

void TestRandomWork::hideOrShow()
{
    const MarkPlaces before(page());
    page()->setAnnotationsHidden(pick(3) == 0);
    expectPlaces(before);
}

void TestRandomWork::clearSteps()
{
    page()->clearUndoStack();
    m_ledger->clearSteps(page());
}

void TestRandomWork::removeMarks()
{
    if (marksOf(page()).size() < 20)
        return;
    page()->removeAnnotations();
    m_ledger->removeAll(page());
}

void TestRandomWork::save()
{
    const MarkPlaces before(page());
    fail(differenceAfterSaving(page(), m_folder->filePath(QStringLiteral("copy.oxn"))));
    expectPlaces(before);
}

void TestRandomWork::reopen()
{
    constexpr int mostPages = 12; // closed ones live on
    if (m_ledger->pageCount() >= mostPages)
        return;
    const QString path = m_folder->filePath(QStringLiteral("page%1.oxn").arg(m_ledger->pageCount()));
    const qsizetype saved = marksOf(page()).size();
    if (!page()->saveDocument(path, false) || page()->isModified())
        fail(QStringLiteral("it was not saved"));
    m_stack->closeCurrentTab();
    Page *opened = addTab();
    if (!opened->loadFile(path) || opened->isModified())
        fail(QStringLiteral("it was not opened"));
    const QList<Annotation *> marks = marksOf(opened);
    for (Annotation *mark : marks)
        m_ledger->found(opened, m_ledger->enter(mark));
    if (marks.size() != saved)
        fail(QStringLiteral("%1 marks were saved, %2 came back").arg(saved).arg(marks.size()));
    m_stack->setCurrentIndex(m_stack->count() - 1);
    opened->activateUndoStack();
}

REGISTER_TEST(TestRandomWork)
#include "tst_randomwork.moc"
