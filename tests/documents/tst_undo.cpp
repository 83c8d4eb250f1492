// SPDX-License-Identifier: GPL-3.0-or-later
// Undo commands and the clipboard of marks, and who owns a mark that is on no scene.
#include "documents/addannotationcommand.h"
#include "documents/cutcommand.h"
#include "documents/markref.h"
#include "documents/page.h"
#include "documents/pastecommand.h"
#include "documents/testmark.h"
#include "support/fakehost.h"
#include "support/testmain.h"

#include <QApplication>
#include <QClipboard>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>

#include <memory>

namespace {

TestMark *addMark(Page *page, const QPointF &pos = QPointF(10, 10))
{
    auto *mark = new TestMark(pos);
    page->addAnnotation(mark);
    return mark;
}

void select(Page *page, const QList<TestMark *> &marks)
{
    page->clearSelection();
    for (TestMark *mark : marks)
        mark->setSelected(true);
}

} // namespace

class TestUndo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void commandsWorkOnTheirOwn();
    void commandsNeverMerge();
    void drawnMarkIsUndoable();
    void cutAndUndoPutTheSameObjectsBack();
    void cutOfNoMarkPushesNothing();
    void copyClonesAtTheTimeOfTheCopy();
    void copyWithoutSelectionKeepsTheClipboard();
    void copyOfOtherItemsEmptiesTheClipboard();
    void secondPasteAddsNothing();
    void pasteAfterUndoBringsTheObjectsBack();
    void pasteIntoAnotherPageMovesTheObjects();
    void pasteOfNothingPushesNothing();
    void stacksOfPagesAreApart();
    void modifiedFlagsIgnoreUndo();
    void removeIsACut();
    void textModeUsesTheSystemClipboard();
    void textEditsOfAPictureChangeNothing();

    void droppedMarksDie();
    void clearedStackKeepsWhatIsOnThePageOrClipboard();
    void pageDiesWithItsMarksOnTheClipboard();
    void pageDiesWithAnotherPagesMarks();
    void windowDiesBeforeThePages();
    void removedAnnotationsStayOnTheClipboard();
    void deletedMarkLeavesClipboardAndStackHarmless();
    void withoutAWindowMarksAreStillUndoable();
    void nothingIsLostOrLeaked();

private:
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<Page> m_page;
    std::unique_ptr<Page> m_other;
};

void TestUndo::init()
{
    QCOMPARE(TestMark::living, 0);
    m_host = std::make_unique<FakeHost>();
    m_host->currentMode = TransformMode;
    m_page = std::make_unique<Page>(m_host.get());
    m_page->newDocument();
    m_page->activateUndoStack();
    m_other = std::make_unique<Page>(m_host.get());
    m_other->newDocument();
}

void TestUndo::cleanup()
{
    m_page.reset();
    m_other.reset();
    m_host.reset();
    QCOMPARE(TestMark::living, 0);
}

void TestUndo::commandsWorkOnTheirOwn()
{
    QUndoStack stack;
    auto *mark = new TestMark;
    stack.push(new AddAnnotationCommand(m_page.get(), mark, nullptr));
    QCOMPARE(mark->scene(), m_page.get());
    stack.undo();
    QCOMPARE(mark->scene(), nullptr);
    stack.redo();
    stack.push(new CutCommand(m_page.get(), {mark}, nullptr));
    QCOMPARE(mark->scene(), nullptr);
    stack.undo();
    QCOMPARE(mark->scene(), m_page.get());
    stack.redo();
    stack.push(new PasteCommand(m_page.get(), {mark}, nullptr));
    QCOMPARE(mark->scene(), m_page.get());
    stack.undo();
    QCOMPARE(mark->scene(), nullptr);
}

void TestUndo::commandsNeverMerge()
{
    const AddAnnotationCommand add(m_page.get(), new TestMark, nullptr);
    const CutCommand cut(m_page.get(), {}, nullptr);
    const PasteCommand paste(m_page.get(), {}, nullptr);
    QCOMPARE(add.id(), -1);
    QCOMPARE(cut.id(), -1);
    QCOMPARE(paste.id(), -1);
    QVERIFY(add.text().isEmpty() && cut.text().isEmpty() && paste.text().isEmpty());
}

void TestUndo::drawnMarkIsUndoable()
{
    TestMark *mark = addMark(m_page.get());
    QVERIFY(m_page->isModified());
    QVERIFY(m_page->hasAnnotations());
    QCOMPARE(mark->scene(), m_page.get());
    m_host->group->undo();
    QCOMPARE(mark->scene(), nullptr);
    QVERIFY(!m_page->hasAnnotations());
    m_host->group->redo();
    QCOMPARE(mark->scene(), m_page.get());
    QVERIFY(m_page->hasAnnotations());
}

void TestUndo::cutAndUndoPutTheSameObjectsBack()
{
    TestMark *first = addMark(m_page.get(), {10, 10});
    TestMark *second = addMark(m_page.get(), {50, 50});
    TestMark *third = addMark(m_page.get(), {90, 90});
    select(m_page.get(), {first, third});
    m_page->cutCommand();
    QCOMPARE(marksOn(*m_page), QList<TestMark *>{second});
    QCOMPARE(m_host->annotationClipboard()->size(), 2);
    QVERIFY(m_host->annotationClipboard()->contains(first));
    QVERIFY(m_host->annotationClipboard()->contains(third));

    m_host->group->undo();
    QCOMPARE(marksOn(*m_page).size(), 3);
    QCOMPARE(third->pos(), QPointF(90, 90));
    QCOMPARE(m_host->annotationClipboard()->size(), 2);
    m_page->pasteCommand();
    QCOMPARE(marksOn(*m_page).size(), 3);
    QCOMPARE(TestMark::living, 3);
}

void TestUndo::cutOfNoMarkPushesNothing()
{
    m_host->addToAnnotationClipboard(new TestMark);
    auto *item = m_page->addRect(0, 0, 10, 10);
    item->setFlag(QGraphicsItem::ItemIsSelectable);
    item->setSelected(true);
    m_page->cutCommand();
    QVERIFY(!m_host->group->canUndo());
    QVERIFY(!m_page->isModified());
    QCOMPARE(item->scene(), m_page.get());
    QCOMPARE(m_host->annotationClipboard()->size(), 1);
}

void TestUndo::copyClonesAtTheTimeOfTheCopy()
{
    TestMark *mark = addMark(m_page.get(), {100, 100});
    m_page->setModified(true);
    select(m_page.get(), {mark});
    m_page->copyCommand();
    QVERIFY(!m_page->isModified());
    QCOMPARE(TestMark::living, 2);
    mark->setPos(500, 500);
    m_page->pasteCommand();
    QVERIFY(m_page->isModified());
    QCOMPARE(marksOn(*m_page).size(), 2);
    QCOMPARE(marksOn(*m_page).constLast()->pos(), QPointF(120, 120));
}

void TestUndo::copyWithoutSelectionKeepsTheClipboard()
{
    m_host->addToAnnotationClipboard(new TestMark);
    m_page->setModified(true);
    m_page->copyCommand();
    QCOMPARE(m_host->annotationClipboard()->size(), 1);
    QVERIFY(m_page->isModified());
}

void TestUndo::copyOfOtherItemsEmptiesTheClipboard()
{
    m_host->addToAnnotationClipboard(new TestMark);
    auto *item = m_page->addRect(0, 0, 10, 10);
    item->setFlag(QGraphicsItem::ItemIsSelectable);
    item->setSelected(true);
    m_page->setModified(true);
    m_page->copyCommand();
    QVERIFY(m_host->annotationClipboard()->isEmpty());
    QVERIFY(!m_page->isModified());
}

void TestUndo::secondPasteAddsNothing()
{
    select(m_page.get(), {addMark(m_page.get())});
    m_page->copyCommand();
    m_page->pasteCommand();
    QCOMPARE(marksOn(*m_page).size(), 2);
    m_page->pasteCommand();
    QCOMPARE(marksOn(*m_page).size(), 2);
    QCOMPARE(TestMark::living, 2);
    // The second command takes them away all the same.
    m_host->group->undo();
    QCOMPARE(marksOn(*m_page).size(), 1);
    m_host->group->undo();
    QCOMPARE(marksOn(*m_page).size(), 1);
    m_host->group->undo();
    QCOMPARE(marksOn(*m_page).size(), 0);
}

void TestUndo::pasteAfterUndoBringsTheObjectsBack()
{
    select(m_page.get(), {addMark(m_page.get())});
    m_page->copyCommand();
    m_page->pasteCommand();
    TestMark *pasted = marksOn(*m_page).constLast();
    m_host->group->undo();
    QCOMPARE(marksOn(*m_page).size(), 1);
    m_page->pasteCommand();
    QCOMPARE(marksOn(*m_page).constLast(), pasted);
}

void TestUndo::pasteIntoAnotherPageMovesTheObjects()
{
    TestMark *mark = addMark(m_page.get());
    select(m_page.get(), {mark});
    m_page->copyCommand();
    m_page->pasteCommand();
    m_other->pasteCommand();
    QCOMPARE(marksOn(*m_page), QList<TestMark *>{mark});
    QCOMPARE(marksOn(*m_other).size(), 1);
    QCOMPARE(TestMark::living, 2);
    // The first page's paste has nothing of its own to take back.
    m_host->group->undo();
    QCOMPARE(marksOn(*m_page).size(), 1);
    QCOMPARE(marksOn(*m_other).size(), 1);
    m_host->group->redo();
    QCOMPARE(marksOn(*m_page).size(), 2);
    QCOMPARE(marksOn(*m_other).size(), 0);
}

void TestUndo::pasteOfNothingPushesNothing()
{
    m_page->pasteCommand();
    QVERIFY(!m_host->group->canUndo());
    QVERIFY(!m_page->isModified());
}

void TestUndo::stacksOfPagesAreApart()
{
    addMark(m_page.get());
    addMark(m_other.get());
    m_other->activateUndoStack();
    m_host->group->undo();
    QCOMPARE(marksOn(*m_other).size(), 0);
    QCOMPARE(marksOn(*m_page).size(), 1);
    QVERIFY(!m_host->group->canUndo());
    m_page->activateUndoStack();
    QVERIFY(m_host->group->canUndo());
    m_page->clearUndoStack();
    QVERIFY(!m_host->group->canUndo());
    QCOMPARE(marksOn(*m_page).size(), 1);
}

void TestUndo::modifiedFlagsIgnoreUndo()
{
    addMark(m_page.get());
    m_host->group->undo();
    QVERIFY(m_page->isModified());
    m_page->setModified(false);
    m_host->group->redo();
    QVERIFY(!m_page->isModified());
}

void TestUndo::removeIsACut()
{
    TestMark *mark = addMark(m_page.get());
    select(m_page.get(), {mark});
    m_page->removeCommand();
    QCOMPARE(marksOn(*m_page).size(), 0);
    QCOMPARE(*m_host->annotationClipboard(), QList<Annotation *>{mark});
    m_host->group->undo();
    QCOMPARE(marksOn(*m_page), QList<TestMark *>{mark});
}

void TestUndo::textModeUsesTheSystemClipboard()
{
    m_host->currentMode = TextMode;
    m_host->addToAnnotationClipboard(new TestMark);
    m_page->setTextContents(QStringLiteral("a.txt"), QStringLiteral("one\ntwo"), QStringLiteral("1\n2\n"));
    QTextCursor cursor(m_page->textDocument());
    cursor.select(QTextCursor::Document);
    m_page->focusDocument();
    m_page->setModified(true);

    QApplication::clipboard()->setText(QStringLiteral("<"));
    m_page->pasteCommand();
    QCOMPARE(m_page->plainText(), QStringLiteral("<one\ntwo"));
    QVERIFY(m_page->isModified());
    m_page->copyCommand();
    QCOMPARE(QApplication::clipboard()->text(), QString());
    QVERIFY(!m_page->isModified());
    QCOMPARE(m_host->annotationClipboard()->size(), 1);
    m_page->cutCommand();
    QVERIFY(m_page->isModified());
    QVERIFY(!m_host->group->canUndo());
}

void TestUndo::textEditsOfAPictureChangeNothing()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("p.png"));
    QPixmap(30, 20).save(path);
    m_host->currentMode = TextMode;
    QVERIFY(m_page->setImageContents(path, QString()));
    const QString hidden = m_page->plainText();
    QApplication::clipboard()->setText(QStringLiteral("x\ny"));
    m_page->setModified(false);
    m_page->pasteCommand();
    QVERIFY(m_page->isModified());
    m_page->setModified(false);
    m_page->cutCommand();
    QVERIFY(m_page->isModified());
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("x\ny"));
    m_page->insertTab();
    QCOMPARE(m_page->plainText(), hidden);
    QCOMPARE(m_page->sceneRect(), QRectF(0, 0, 30, 20));
}

void TestUndo::droppedMarksDie()
{
    addMark(m_page.get());
    m_host->group->undo();
    QCOMPARE(TestMark::living, 1);
    // A new step drops the undone one, and with it the last that knew the mark.
    addMark(m_page.get());
    QCOMPARE(TestMark::living, 1);

    select(m_page.get(), marksOn(*m_page));
    m_page->copyCommand();
    QCOMPARE(TestMark::living, 2);
    m_host->clearAnnotationClipboard();
    QCOMPARE(TestMark::living, 1);
}

void TestUndo::clearedStackKeepsWhatIsOnThePageOrClipboard()
{
    TestMark *kept = addMark(m_page.get());
    TestMark *cut = addMark(m_page.get());
    select(m_page.get(), {cut});
    m_page->cutCommand();
    addMark(m_page.get());
    m_host->group->undo();
    QCOMPARE(TestMark::living, 3);
    m_page->clearUndoStack();
    QCOMPARE(TestMark::living, 2);
    QCOMPARE(marksOn(*m_page), QList<TestMark *>{kept});
    m_page->pasteCommand();
    QCOMPARE(marksOn(*m_page).size(), 2);
    m_page->clearUndoStack();
    m_host->clearAnnotationClipboard();
    QCOMPARE(TestMark::living, 2);
}

void TestUndo::pageDiesWithItsMarksOnTheClipboard()
{
    TestMark *cut = addMark(m_page.get());
    TestMark *undone = addMark(m_page.get());
    select(m_page.get(), {cut, undone});
    m_page->cutCommand();
    m_host->group->undo();
    m_page.reset();
    QCOMPARE(TestMark::living, 2);
    m_other->pasteCommand();
    QCOMPARE(marksOn(*m_other).size(), 2);
    QVERIFY(marksOn(*m_other).contains(cut));
}

void TestUndo::pageDiesWithAnotherPagesMarks()
{
    addMark(m_page.get());
    TestMark *wanderer = addMark(m_page.get());
    select(m_page.get(), {wanderer});
    m_page->cutCommand();
    m_other->pasteCommand();
    QCOMPARE(marksOn(*m_other), QList<TestMark *>{wanderer});
    m_host->clearAnnotationClipboard();
    m_other.reset();
    QCOMPARE(TestMark::living, 2);
    QCOMPARE(wanderer->scene(), nullptr);
    m_host->group->undo();
    QCOMPARE(marksOn(*m_page).size(), 2);
}

void TestUndo::windowDiesBeforeThePages()
{
    select(m_page.get(), {addMark(m_page.get())});
    m_page->cutCommand();
    addMark(m_other.get());
    m_host.reset();
    QCOMPARE(TestMark::living, 2);
    QVERIFY(!m_page->host());
    QVERIFY(!m_page->window());
    m_page->pasteCommand();
    m_page->copyCommand();
    m_page->cutCommand();
    m_page->refreshUi();
    m_page->activateUndoStack();
    m_page->focusDocument();
}

void TestUndo::removedAnnotationsStayOnTheClipboard()
{
    TestMark *cut = addMark(m_page.get());
    select(m_page.get(), {cut});
    m_page->cutCommand();
    m_host->group->undo();
    addMark(m_page.get());
    m_page->addItem(new TestMark(QPointF(200, 200)));
    auto *other = m_page->addRect(0, 0, 10, 10);

    m_page->removeAnnotations();
    QVERIFY(!m_page->hasAnnotations());
    QCOMPARE(other->scene(), m_page.get());
    m_page->clearUndoStack();
    QCOMPARE(TestMark::living, 1);
    m_page->pasteCommand();
    QCOMPARE(marksOn(*m_page), QList<TestMark *>{cut});
}

void TestUndo::deletedMarkLeavesClipboardAndStackHarmless()
{
    TestMark *mark = addMark(m_page.get());
    TestMark *other = addMark(m_page.get());
    select(m_page.get(), {mark, other});
    m_page->cutCommand();
    m_host->group->undo();
    QVERIFY(m_page->hasAnnotations());
    delete mark;
    QCOMPARE(*m_host->annotationClipboard(), QList<Annotation *>{other});
    m_host->group->redo();
    m_host->group->undo();
    m_host->group->undo();
    m_host->group->undo();
    QVERIFY(!m_page->hasAnnotations());
    m_page->pasteCommand();
    QCOMPARE(marksOn(*m_page), QList<TestMark *>{other});
    delete other;
    QVERIFY(!m_page->hasAnnotations());
    QVERIFY(m_host->annotationClipboard()->isEmpty());
}

void TestUndo::withoutAWindowMarksAreStillUndoable()
{
    {
        Page page(nullptr);
        page.newDocument();
        page.addAnnotation(new TestMark);
        QCOMPARE(marksOn(page).size(), 1);
        page.activateUndoStack();
        page.clearUndoStack();
        page.pasteCommand();
    }
    QCOMPARE(TestMark::living, 0);
}

void TestUndo::nothingIsLostOrLeaked()
{
    QRandomGenerator random(11);
    QList<Page *> pages{m_page.get(), m_other.get()};
    for (int step = 0; step < 3000; ++step) {
        Page *page = pages.at(random.bounded(2));
        page->activateUndoStack();
        const QList<TestMark *> marks = marksOn(*page);
        switch (random.bounded(8)) {
        case 0:
        case 1:
            addMark(page, QPointF(random.bounded(500), random.bounded(500)));
            QCOMPARE(marksOn(*page).size(), marks.size() + 1);
            break;
        case 2:
            page->clearSelection();
            for (TestMark *mark : marks)
                mark->setSelected(random.bounded(3) == 0);
            break;
        case 3:
            page->copyCommand();
            QCOMPARE(marksOn(*page), marks);
            break;
        case 4: {
            page->cutCommand();
            const QList<TestMark *> left = marksOn(*page);
            if (left.size() == marks.size())
                break;
            m_host->group->undo();
            QCOMPARE(marksOn(*page).size(), marks.size());
            m_host->group->redo();
            QCOMPARE(marksOn(*page).size(), left.size());
            break;
        }
        case 5:
            page->pasteCommand();
            break;
        case 6:
            m_host->group->undo();
            break;
        default:
            m_host->group->redo();
            break;
        }
        if (step % 500 == 499) {
            page->clearUndoStack();
            const auto onPages = marksOn(*m_page).size() + marksOn(*m_other).size();
            QVERIFY(TestMark::living >= onPages);
            QCOMPARE(page->hasAnnotations(), !marksOn(*page).isEmpty());
        }
    }
    m_page->clearUndoStack();
    m_other->clearUndoStack();
    m_host->clearAnnotationClipboard();
    QCOMPARE(qsizetype(TestMark::living), marksOn(*m_page).size() + marksOn(*m_other).size());
}

REGISTER_TEST(TestUndo)
#include "tst_undo.moc"
