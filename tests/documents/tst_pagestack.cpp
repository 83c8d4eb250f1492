// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/pagestack.h"

#include "annotations/penline.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "documents/testmark.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/files.h"
#include "support/testmain.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QKeyEvent>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const QString emptySheet = QStringLiteral("background-color: rgb(231, 231, 231);");

} // namespace

class TestPageStack : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void anEmptyStack();
    void pagesOfTabs();
    void indexOfFileIsExact();
    void unmodifiedTabsCloseUnasked();
    void modifiedTabIsAskedAbout_data();
    void modifiedTabIsAskedAbout();
    void askingAboutANamelessDocument();
    void closingAllStopsAtCancel();
    void closingOthers_data();
    void closingOthers();
    void closingOthersStopsAtCancel();
    void saveInAnotherTabsQuestionSavesTheFrontOne();
    void failedSaveStillCloses();
    void closedPagesLiveOn();
    void pagesDieWithTheStack();
    void lookFollowsTheTabs();
    void lastTabLeavesFullScreen();
    void f10TogglesFullScreen();
    void contextMenuOnlyWithTabs();
    void menuActions();
    void retranslates();

    void saveCurrentUsesTheName();
    void saveCurrentOfAnotherTab();
    void saveAsDialog();
    void saveAsCancelled();
    void saveAsAddsTheSuffix();
    void saveAsAsksBeforeReplacingUnasked();
    void saveAsPictureAndText();
    void saveWithoutATabIsQuiet();
    void worksWithoutAWindow();
    void outlivesItsHost();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    Page *addTab(const QString &name, const QByteArray &contents = QByteArray());
    Page *addNewDocument();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeHost> m_host;
    PageStack *m_stack = nullptr;
};

void TestPageStack::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<FakeHost>();
    m_host->openDir = m_folder->path();
    m_stack = new PageStack(m_host.get());
}

void TestPageStack::cleanup()
{
    m_host.reset();
    QCOMPARE(TestMark::living, 0);
}

Page *TestPageStack::addTab(const QString &name, const QByteArray &contents)
{
    store(path(name), contents);
    auto *page = new Page(m_host.get());
    page->loadFile(path(name));
    m_stack->addTab(new PageView(page, nullptr), name);
    return page;
}

Page *TestPageStack::addNewDocument()
{
    auto *page = new Page(m_host.get());
    page->newDocument();
    m_stack->addTab(new PageView(page, m_stack), page->fileName());
    return page;
}

void TestPageStack::anEmptyStack()
{
    QCOMPARE(m_stack->parentWidget(), &m_host->window);
    QCOMPARE(m_stack->currentPage(), nullptr);
    QCOMPARE(m_stack->pageAt(0), nullptr);
    QCOMPARE(m_stack->pageAt(-1), nullptr);
    QCOMPARE(m_stack->indexOfFile(QString()), -1);
    QCOMPARE(m_stack->styleSheet(), emptySheet);
    QVERIFY(m_stack->maybeCloseTab(0));
    QVERIFY(m_stack->closeAllTabs());
    QVERIFY(m_stack->closeOtherTabs());
}

void TestPageStack::pagesOfTabs()
{
    Page *first = addTab("a.txt");
    Page *second = addTab("b.txt");
    m_stack->addTab(new QWidget, QStringLiteral("something else"));
    QCOMPARE(m_stack->pageAt(0), first);
    QCOMPARE(m_stack->pageAt(1), second);
    QCOMPARE(m_stack->pageAt(2), nullptr);
    m_stack->setCurrentIndex(1);
    QCOMPARE(m_stack->currentPage(), second);
    QVERIFY(m_stack->maybeCloseTab(2));
}

void TestPageStack::indexOfFileIsExact()
{
    addTab("a.txt");
    addTab("b.txt");
    addNewDocument();
    QCOMPARE(m_stack->indexOfFile(path("b.txt")), 1);
    QCOMPARE(m_stack->indexOfFile(path("./b.txt")), -1);
    QCOMPARE(m_stack->indexOfFile(path("B.txt")), -1);
    QCOMPARE(m_stack->indexOfFile(QStringLiteral("b.txt")), -1);
    QCOMPARE(m_stack->indexOfFile(QStringLiteral("noname")), 2);
    addTab("b.txt");
    QCOMPARE(m_stack->indexOfFile(path("b.txt")), 1);
}

void TestPageStack::unmodifiedTabsCloseUnasked()
{
    addTab("a.txt");
    addTab("b.txt");
    const DialogAnswers answers;
    QVERIFY(m_stack->closeCurrentTab());
    QCOMPARE(m_stack->count(), 1);
    QVERIFY(m_stack->closeAllTabs());
    QCOMPARE(m_stack->count(), 0);
    QCOMPARE(answers.seen().size(), 0);
}

void TestPageStack::modifiedTabIsAskedAbout_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QByteArray>("onDisk");
    QTest::newRow("save") << QMessageBox::Save << true << QByteArray("new old");
    QTest::newRow("discard") << QMessageBox::Discard << true << QByteArray("old\n");
    QTest::newRow("cancel") << QMessageBox::Cancel << false << QByteArray("old\n");
}

void TestPageStack::modifiedTabIsAskedAbout()
{
    QFETCH(const QMessageBox::StandardButton, answer);
    QFETCH(const bool, closes);
    QFETCH(const QByteArray, onDisk);
    Page *page = addTab("a.txt", "old\n");
    QTextCursor(page->textDocument()).insertText(QStringLiteral("new "));
    page->setModified(true);
    DialogAnswers answers;
    answers.click(answer);
    QCOMPARE(m_stack->closeCurrentTab(), closes);
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &box = answers.seen().first();
    QCOMPARE(box.title, QStringLiteral("Kestrin 7"));
    QCOMPARE(box.text,
             QStringLiteral("Document [%1] has been modified.\nDo you want to save changes?").arg(path("a.txt")));
    QCOMPARE(box.buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.parent, &m_host->window);
    QCOMPARE(m_stack->count(), closes ? 0 : 1);
    QCOMPARE(bytesIn(path("a.txt")), onDisk);
}

void TestPageStack::askingAboutANamelessDocument()
{
    Page *page = addNewDocument();
    page->setModified(true);
    DialogAnswers answers;
    answers.click(QMessageBox::Save);
    answers.reject();
    QVERIFY(!m_stack->closeCurrentTab());
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(answers.seen().at(1).title, QStringLiteral("Save As File"));
    QVERIFY(page->isModified());

    answers.click(QMessageBox::Save);
    answers.chooseFile(path("now.txt"));
    QVERIFY(m_stack->closeCurrentTab());
    QCOMPARE(m_stack->count(), 0);
    QCOMPARE(bytesIn(path("now.txt")), QByteArray(60, ' '));
}

void TestPageStack::closingAllStopsAtCancel()
{
    addTab("a.txt");
    Page *second = addTab("b.txt");
    addTab("c.txt");
    second->setModified(true);
    DialogAnswers answers;
    answers.click(QMessageBox::Cancel);
    QVERIFY(!m_stack->closeAllTabs());
    QCOMPARE(m_stack->count(), 2);
    QCOMPARE(m_stack->pageAt(0), second);
    // Nobody has updated the look since the tabs came.
    QCOMPARE(m_stack->styleSheet(), emptySheet);
    answers.click(QMessageBox::Discard);
    QVERIFY(m_stack->closeAllTabs());
    QCOMPARE(m_stack->count(), 0);
    QCOMPARE(m_stack->styleSheet(), emptySheet);
}

void TestPageStack::closingOthers_data()
{
    QTest::addColumn<int>("current");
    QTest::newRow("first") << 0;
    QTest::newRow("middle") << 2;
    QTest::newRow("last") << 4;
}

void TestPageStack::closingOthers()
{
    QFETCH(const int, current);
    for (int i = 0; i < 5; ++i)
        addTab(QStringLiteral("%1.txt").arg(i));
    m_stack->setCurrentIndex(current);
    Page *kept = m_stack->currentPage();
    kept->setModified(true);
    const DialogAnswers answers;
    QVERIFY(m_stack->closeOtherTabs());
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(m_stack->currentPage(), kept);
    QCOMPARE(answers.seen().size(), 0);
}

void TestPageStack::closingOthersStopsAtCancel()
{
    for (int i = 0; i < 4; ++i)
        addTab(QStringLiteral("%1.txt").arg(i));
    m_stack->setCurrentIndex(1);
    m_stack->pageAt(3)->setModified(true);
    DialogAnswers answers;
    answers.click(QMessageBox::Cancel);
    QVERIFY(!m_stack->closeOtherTabs());
    QCOMPARE(m_stack->count(), 2);
    QCOMPARE(m_stack->currentPage()->fileName(), path("1.txt"));
    QCOMPARE(m_stack->pageAt(1)->fileName(), path("3.txt"));
}

void TestPageStack::saveInAnotherTabsQuestionSavesTheFrontOne()
{
    Page *behind = addTab("behind.txt", "behind\n");
    Page *front = addTab("front.txt", "front\n");
    m_stack->setCurrentIndex(1);
    QTextCursor(behind->textDocument()).insertText(QStringLiteral("new "));
    QTextCursor(front->textDocument()).insertText(QStringLiteral("new "));
    behind->setModified(true);
    front->setModified(true);
    DialogAnswers answers;
    answers.click(QMessageBox::Save);
    QVERIFY(m_stack->maybeCloseTab(0));
    QVERIFY(answers.texts().first().contains(path("behind.txt")));
    QCOMPARE(bytesIn(path("behind.txt")), QByteArray("behind\n"));
    QCOMPARE(bytesIn(path("front.txt")), QByteArray("new front"));
    QVERIFY(behind->isModified());
    QVERIFY(!front->isModified());
}

void TestPageStack::failedSaveStillCloses()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("sub")));
    Page *page = addTab("sub/a.txt", "old\n");
    page->setModified(true);
    QVERIFY(QDir(path("sub")).removeRecursively());
    DialogAnswers answers;
    answers.click(QMessageBox::Save);
    answers.click(QMessageBox::Ok);
    answers.click(QMessageBox::Ok);
    QVERIFY(m_stack->closeCurrentTab());
    QCOMPARE(m_stack->count(), 0);
    QCOMPARE(answers.left(), 0);
    QVERIFY(page->isModified());
}

void TestPageStack::closedPagesLiveOn()
{
    QPointer<Page> page = addTab("a.txt", "text\n");
    QPointer<QWidget> view = m_stack->widget(0);
    page->addAnnotation(new TestMark);
    page->setModified(false);
    QVERIFY(m_stack->closeCurrentTab());
    QVERIFY(page);
    QVERIFY(view);
    QVERIFY(!view->isVisible());
    QCOMPARE(page->plainText(), QStringLiteral("text"));
    QCOMPARE(m_host->group->stacks().size(), 1);
    page->activateUndoStack();
    m_host->group->undo();
    QVERIFY(!page->hasAnnotations());
}

void TestPageStack::pagesDieWithTheStack()
{
    const QPointer<Page> closed = addTab("a.txt");
    const QPointer<QWidget> closedView = m_stack->widget(0);
    const QPointer<Page> open = addTab("b.txt");
    m_stack->removeTab(0);
    delete m_stack;
    QVERIFY(!closed);
    QVERIFY(!closedView);
    QVERIFY(!open);
    QVERIFY(m_host->group->stacks().isEmpty());
}

void TestPageStack::lookFollowsTheTabs()
{
    PageStack styled(nullptr);
    styled.updateStackLook();
    QCOMPARE(styled.styleSheet(), emptySheet);
    addTab("a.txt");
    m_stack->updateStackLook();
    QCOMPARE(m_stack->styleSheet(), QString());
    m_host->window.setWindowTitle(QStringLiteral("Kestrin 7 [a.txt]"));
    m_stack->closeCurrentTab();
    QCOMPARE(m_stack->styleSheet(), emptySheet);
    QCOMPARE(m_host->window.windowTitle(), QStringLiteral("Kestrin 7"));
    QVERIFY(!m_host->fullScreen);
}

void TestPageStack::lastTabLeavesFullScreen()
{
    addTab("a.txt");
    addTab("b.txt");
    m_host->fullScreen = true;
    m_stack->closeCurrentTab();
    QVERIFY(m_host->fullScreen);
    m_stack->closeCurrentTab();
    QVERIFY(!m_host->fullScreen);
}

void TestPageStack::f10TogglesFullScreen()
{
    Page *page = addTab("a.txt", "text\n");
    m_host->window.show();
    QVERIFY(QTest::qWaitForWindowActive(&m_host->window));
    QWidget *view = m_stack->currentWidget();
    view->setFocus();
    QTest::keyClick(view, Qt::Key_F10);
    QVERIFY(m_host->fullScreen);
    QTest::keyClick(view, Qt::Key_F10);
    QVERIFY(!m_host->fullScreen);
    QVERIFY(!page->isModified());
    // Other keys end here.
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Tab, Qt::ControlModifier);
    addTab("b.txt");
    m_stack->setCurrentIndex(0);
    QApplication::sendEvent(m_stack, &event);
    QCOMPARE(m_stack->currentIndex(), 0);
}

void TestPageStack::contextMenuOnlyWithTabs()
{
    auto *menu = m_stack->findChild<QMenu *>();
    QVERIFY(menu);
    m_host->window.resize(400, 300);
    m_stack->resize(400, 300);
    m_host->window.show();
    QVERIFY(QTest::qWaitForWindowActive(&m_host->window));
    const auto send = [this] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(7, 9), m_stack->mapToGlobal(QPoint(7, 9)));
        QApplication::sendEvent(m_stack, &event);
    };
    send();
    QVERIFY(!menu->isVisible());
    addTab("a.txt");
    send();
    QVERIFY(menu->isVisible());
    QCOMPARE(menu->pos(), m_stack->mapToGlobal(QPoint(7, 9)));
    menu->close();
}

void TestPageStack::menuActions()
{
    const QList<QAction *> actions = m_stack->findChild<QMenu *>()->actions();
    QCOMPARE(actions.size(), 3);
    QCOMPARE(actions.at(0)->text(), QStringLiteral("Close File"));
    QCOMPARE(actions.at(1)->text(), QStringLiteral("Close All Files"));
    QCOMPARE(actions.at(2)->text(), QStringLiteral("Close Other Files"));
    for (int i = 0; i < 4; ++i)
        addTab(QStringLiteral("%1.txt").arg(i));
    m_stack->setCurrentIndex(1);
    actions.at(0)->trigger();
    QCOMPARE(m_stack->count(), 3);
    QCOMPARE(m_stack->indexOfFile(path("1.txt")), -1);
    m_stack->setCurrentIndex(1);
    actions.at(2)->trigger();
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(m_stack->indexOfFile(path("2.txt")), 0);
    actions.at(1)->trigger();
    QCOMPARE(m_stack->count(), 0);
}

void TestPageStack::retranslates()
{
    const QList<QAction *> actions = m_stack->findChild<QMenu *>()->actions();
    actions.at(0)->setText(QStringLiteral("?"));
    QEvent event(QEvent::LanguageChange);
    QApplication::sendEvent(m_stack, &event);
    QCOMPARE(actions.at(0)->text(), QStringLiteral("Close File"));
}

void TestPageStack::saveCurrentUsesTheName()
{
    Page *page = addTab("a.txt", "old");
    QTextCursor(page->textDocument()).insertText(QStringLiteral("new "));
    page->setModified(true);
    m_host->menuUpdates = 0;
    const DialogAnswers answers;
    QVERIFY(m_stack->saveCurrent());
    QCOMPARE(answers.seen().size(), 0);
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("new old"));
    QVERIFY(!page->isModified());
    QCOMPARE(m_host->currentFiles, QStringList{path("a.txt")});
    QVERIFY(m_host->menuUpdates > 0);
}

void TestPageStack::saveCurrentOfAnotherTab()
{
    Page *first = addTab("a.txt", "a");
    addTab("b.txt", "b");
    m_stack->setCurrentIndex(1);
    QTextCursor(first->textDocument()).insertText(QStringLiteral("new "));
    QVERIFY(m_stack->saveCurrent(0));
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("new a"));
    QCOMPARE(m_host->currentFiles, QStringList{path("a.txt")});
}

void TestPageStack::saveAsDialog()
{
    addTab("a.txt", "text\n");
    DialogAnswers answers;
    answers.chooseFile(path("b.cpp"));
    QVERIFY(m_stack->saveAs());
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &dialog = answers.seen().first();
    QCOMPARE(dialog.title, QStringLiteral("Save As File"));
    QCOMPARE(dialog.directory, m_folder->path());
    QCOMPARE(dialog.parent, &m_host->window);
    QStringList patterns;
    for (const QByteArray &format : QImageWriter::supportedImageFormats())
        patterns.append("*." + QString::fromLatin1(format));
    QCOMPARE(dialog.nameFilters.mid(0, 3),
             (QStringList{"Kestrin7 Files (*.oxn)", "Image Files (" + patterns.join(' ') + ")", "All Files (*.*)"}));
    QCOMPARE(bytesIn(path("b.cpp")), QByteArray("text"));
    QCOMPARE(m_stack->currentPage()->fileName(), path("b.cpp"));
    QCOMPARE(m_host->currentFiles, QStringList{path("b.cpp")});
}

void TestPageStack::saveAsCancelled()
{
    Page *page = addTab("a.txt", "text\n");
    page->setModified(true);
    DialogAnswers answers;
    answers.reject();
    QVERIFY(!m_stack->saveAs());
    QVERIFY(page->isModified());
    QCOMPARE(page->fileName(), path("a.txt"));
    QVERIFY(m_host->currentFiles.isEmpty());
}

void TestPageStack::saveAsAddsTheSuffix()
{
    Page *page = addTab("a.txt", "text\n");
    page->addAnnotation(new PenLine);
    DialogAnswers answers;
    answers.chooseFile(path("plain"));
    QVERIFY(m_stack->saveAs());
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(m_host->currentFiles, QStringList{path("plain.oxn")});
    QCOMPARE(page->fileName(), path("plain.oxn"));
    QCOMPARE(page->shortName(), QStringLiteral("a.txt"));
    QVERIFY(!page->isModified());
    const QByteArray saved = bytesIn(path("plain.oxn"));
    QVERIFY2(saved.contains("<text_contents><![CDATA[text]]></text_contents>"), saved);
    QVERIFY2(saved.contains("<pen_line "), saved);
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("text\n"));
    QVERIFY(!QFile::exists(path("plain")));
}

void TestPageStack::saveAsAsksBeforeReplacingUnasked()
{
    store(path("plain.oxn"), "precious");
    addTab("a.txt", "text\n");
    DialogAnswers answers;
    answers.chooseFile(path("plain"));
    answers.click(QMessageBox::No);
    QVERIFY(!m_stack->saveAs());
    QCOMPARE(answers.seen().size(), 2);
    QCOMPARE(answers.texts().last(),
             QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(path("plain.oxn")));
    QCOMPARE(bytesIn(path("plain.oxn")), QByteArray("precious"));
    QVERIFY(m_host->currentFiles.isEmpty());
}

void TestPageStack::saveAsPictureAndText()
{
    addTab("a.txt", "text\n");
    DialogAnswers answers;
    answers.chooseFile(path("picture.png"));
    QVERIFY(m_stack->saveAs());
    QVERIFY(!QImage(path("picture.png")).isNull());
    // The dialog asks by itself about a name that was typed in full.
    answers.chooseFile(path("a.txt"));
    answers.click(QMessageBox::Yes);
    QVERIFY(m_stack->saveAs());
    QCOMPARE(answers.left(), 0);
    QCOMPARE(answers.seen().size(), 3);
    QCOMPARE(bytesIn(path("a.txt")), QByteArray("text"));
}

void TestPageStack::saveWithoutATabIsQuiet()
{
    const DialogAnswers answers;
    QVERIFY(m_stack->saveCurrent());
    QVERIFY(m_stack->saveAs());
    QVERIFY(m_stack->saveAs(3));
    QCOMPARE(answers.seen().size(), 0);
    QVERIFY(m_host->currentFiles.isEmpty());
}

void TestPageStack::worksWithoutAWindow()
{
    PageStack stack(nullptr);
    auto *page = new Page(nullptr);
    page->newDocument();
    stack.addTab(new PageView(page, nullptr), page->fileName());
    QTest::keyClick(&stack, Qt::Key_F10);
    DialogAnswers answers;
    answers.chooseFile(path("n.txt"));
    QVERIFY(stack.saveCurrent());
    QCOMPARE(bytesIn(path("n.txt")).size(), 60);
    QVERIFY(stack.closeAllTabs());
}

void TestPageStack::outlivesItsHost()
{
    auto host = std::make_unique<FakeHost>();
    auto *stack = new PageStack(host.get());
    stack->setParent(nullptr);
    auto *page = new Page(host.get());
    page->newDocument();
    stack->addTab(new PageView(page, nullptr), page->fileName());
    host.reset();
    QTest::keyClick(stack, Qt::Key_F10);
    page->setFileName(path("o.txt"));
    QVERIFY(stack->saveCurrent());
    QVERIFY(stack->closeAllTabs());
    delete stack;
}

REGISTER_TEST(TestPageStack)
#include "tst_pagestack.moc"
