// SPDX-License-Identifier: GPL-3.0-or-later
// State, contents and saving of a page. Mouse and painting: tst_pageevents.cpp.
#include "documents/page.h"

#include "annotations/penline.h"
#include "documents/documentitem.h"
#include "documents/pageview.h"
#include "documents/testmark.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/files.h"
#include "support/testmain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGraphicsPixmapItem>
#include <QGraphicsTextItem>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

class TestPage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aNewPageIsEmpty();
    void stackJoinsTheWindowsGroup();
    void namesAndTypes();
    void modifiedIsEitherFlag();
    void loadedTextIsNotModified();
    void failedLoadIsTold();
    void kindFollowsTheLastContents();
    void pictureLinkAndWarning();
    void shownPictureStaysWhenTheNextIsMissing();
    void lineNumbersOfAPictureStayAway();
    void containsItem();
    void searchTreeGrowsWithTheMarks();
    void hiddenAnnotationsCount();
    void hiddenStateIsOfThePage();
    void focusDocumentPutsTheCaretAtTheStart();
    void insertTabAtTheCaret();
    void contentsSizeIsTheTextItems();
    void adjustDocumentRectFillsTheView_data();
    void adjustDocumentRectFillsTheView();
    void adjustDocumentRectAsksTheFirstView();
    void refreshUiAsksTheWindow();

    void saveWithoutQuestionKeepsFormatByName();
    void saveSetsNameAndTitle();
    void keepStateLeavesEverything();
    void saveUnderANameNeverAsks();
    void annotatedTextIsAskedAbout_data();
    void annotatedTextIsAskedAbout();
    void yesChoosesTheAnnotatedFile_data();
    void yesChoosesTheAnnotatedFile();
    void failureNamesTheAnnotatedFile();
    void oxnSuffixIsNotAskedAbout_data();
    void oxnSuffixIsNotAskedAbout();
    void undoneMarkIsNotAskedAbout();
    void yesAsksBeforeReplacingAnotherFile();
    void mayReplaceItsOwnFile();
    void failedSaveIsToldTwice();
    void namesAreShownAsTheyAre();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<Page> m_page;
};

void TestPage::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<FakeHost>();
    m_page = std::make_unique<Page>(m_host.get());
}

void TestPage::cleanup()
{
    m_page.reset();
    m_host.reset();
    QCOMPARE(TestMark::living, 0);
}

void TestPage::aNewPageIsEmpty()
{
    QCOMPARE(m_page->parent(), nullptr);
    QCOMPARE(m_page->fileName(), QStringLiteral("noname"));
    QCOMPARE(m_page->shortName(), QString());
    QCOMPARE(m_page->fileType(), QString());
    QCOMPARE(m_page->imageLink(), QString());
    QCOMPARE(m_page->documentKind(), Page::NoDocument);
    QCOMPARE(int(Page::ImageDocument), 0);
    QCOMPARE(int(Page::TextDocument), 1);
    QVERIFY(!m_page->isModified());
    QVERIFY(m_page->annotationsVisible());
    QVERIFY(!m_page->hasAnnotations());
    QVERIFY(!m_page->pageView());
    QCOMPARE(m_page->marginX(), 50.0);
    QCOMPARE(m_page->marginY(), 5.0);
    QCOMPARE(m_page->lastMouseX(), 0.0);
    QCOMPARE(m_page->lastMouseY(), 0.0);
    QVERIFY(m_page->items().isEmpty());
}

void TestPage::stackJoinsTheWindowsGroup()
{
    QCOMPARE(m_host->group->stacks().size(), 1);
    const Page second(m_host.get());
    QCOMPARE(m_host->group->stacks().size(), 2);
}

void TestPage::namesAndTypes()
{
    m_page->setFileName(QStringLiteral("/some/where/a.b.cpp"));
    QCOMPARE(m_page->fileName(), QStringLiteral("/some/where/a.b.cpp"));
    QCOMPARE(m_page->shortName(), QStringLiteral("a.b.cpp"));
    m_page->setFileType(QStringLiteral("cpp"));
    QCOMPARE(m_page->fileType(), QStringLiteral("cpp"));
    m_page->setSavedSize(QRectF(0, 0, 5, 6));
    PageView view(m_page.get(), nullptr);
    m_page->setPageView(&view);
    QCOMPARE(m_page->pageView(), &view);
}

void TestPage::modifiedIsEitherFlag()
{
    m_page->newDocument();
    m_page->documentItem()->setModified(true);
    QVERIFY(m_page->isModified());
    m_page->setModified(false);
    QVERIFY(!m_page->isModified());
    QVERIFY(!m_page->documentItem()->isModified());
    m_page->setModified(true);
    QVERIFY(m_page->documentItem()->isModified());
}

void TestPage::loadedTextIsNotModified()
{
    store(path("a.cpp"), "int a;\nint b;\n");
    m_page->setModified(true);
    QVERIFY(m_page->loadFile(path("a.cpp")));
    QVERIFY(!m_page->isModified());
    QCOMPARE(m_page->fileName(), path("a.cpp"));
    QCOMPARE(m_page->shortName(), QStringLiteral("a.cpp"));
    QCOMPARE(m_page->fileType(), QStringLiteral("cpp"));
    QCOMPARE(m_page->plainText(), QStringLiteral("int a;\nint b;"));
    QCOMPARE(m_page->documentItem()->lineNumbersItem()->toPlainText(), QStringLiteral("1\n2\n"));
}

void TestPage::failedLoadIsTold()
{
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!m_page->loadFile(path("missing.txt")));
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().title, QStringLiteral("I/O Error 0x00608004"));
    QCOMPARE(m_page->fileName(), path("missing.txt"));
    QCOMPARE(m_page->documentKind(), Page::NoDocument);
}

void TestPage::kindFollowsTheLastContents()
{
    QPixmap(3, 4).save(path("p.png"));
    m_page->newDocument();
    QCOMPARE(m_page->documentKind(), Page::TextDocument);
    QVERIFY(m_page->setImageContents(path("p.png"), QString()));
    QCOMPARE(m_page->documentKind(), Page::ImageDocument);
    m_page->setTextContents(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("1\n"));
    QCOMPARE(m_page->documentKind(), Page::TextDocument);
}

void TestPage::pictureLinkAndWarning()
{
    QPixmap(3, 4).save(path("p.png"));
    QVERIFY(m_page->setImageContents(path("p.png"), QString()));
    QCOMPARE(m_page->imageLink(), path("p.png"));
    QVERIFY(m_page->setImageContents(path("note.oxn"), path("p.png")));
    QCOMPARE(m_page->imageLink(), path("p.png"));
    QCOMPARE(m_page->fileName(), path("note.oxn"));

    Page page(m_host.get());
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!page.setImageContents(path("note.oxn"), path("gone.png")));
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &box = answers.seen().first();
    QCOMPARE(box.title, QStringLiteral("I/O Error"));
    QCOMPARE(box.text,
             QStringLiteral("File %1 not found or its format is currently unsupported!").arg(path("note.oxn")));
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.parent, &m_host->window);
    QCOMPARE(page.documentKind(), Page::NoDocument);
    QCOMPARE(page.imageLink(), path("gone.png"));
}

void TestPage::shownPictureStaysWhenTheNextIsMissing()
{
    QPixmap(30, 40).save(path("p.png"));
    QVERIFY(m_page->setImageContents(path("p.png"), QString()));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    QVERIFY(!m_page->setImageContents(path("gone.png"), QString()));
    QCOMPARE(m_page->documentKind(), Page::ImageDocument);
    QCOMPARE(m_page->documentItem()->pixmapItem()->pixmap().size(), QSize(30, 40));
    QCOMPARE(m_page->sceneRect(), QRectF(0, 0, 30, 40));
    QCOMPARE(m_page->imageLink(), path("gone.png"));
}

void TestPage::lineNumbersOfAPictureStayAway()
{
    QPixmap(3, 4).save(path("p.png"));
    QVERIFY(m_page->setImageContents(path("p.png"), QString()));
    m_page->showLineNumbers(false);
    QVERIFY(m_page->documentItem()->lineNumbersItem()->isVisible());
}

void TestPage::containsItem()
{
    QVERIFY(!m_page->containsItem(m_page->documentItem()->textItem()));
    m_page->newDocument();
    QVERIFY(m_page->containsItem(m_page->documentItem()->textItem()));
    QVERIFY(!m_page->containsItem(nullptr));
}

void TestPage::searchTreeGrowsWithTheMarks()
{
    m_page->newDocument();
    const int depth = m_page->bspTreeDepth();
    for (int i = 0; i < 2000; ++i)
        m_page->addAnnotation(new TestMark(QPointF(i % 50 * 30.0, i / 50 * 30.0)));
    QCOMPARE(m_page->bspTreeDepth(), depth + 3);
    // What was there before a change of depth is found as well.
    for (const QPointF &pos : {QPointF(5, 5), QPointF(49 * 30 + 5, 39 * 30 + 5)})
        QVERIFY(dynamic_cast<TestMark *>(m_page->itemAt(pos, QTransform())));
    // Marks that come and go do not deepen it further.
    m_page->activateUndoStack();
    for (int i = 0; i < 3000; ++i) {
        m_host->group->undo();
        m_host->group->redo();
    }
    QCOMPARE(m_page->bspTreeDepth(), depth + 3);
}

void TestPage::hiddenAnnotationsCount()
{
    m_page->newDocument();
    m_page->addItem(new TestMark);
    QVERIFY(m_page->hasAnnotations());
    m_page->setAnnotationsHidden(true);
    QVERIFY(!m_page->annotationsVisible());
    QVERIFY(m_page->hasAnnotations());
    QVERIFY(!marksOn(*m_page).first()->isVisible());
    QVERIFY(m_page->documentItem()->textItem()->isVisible());
    m_page->setAnnotationsHidden(false);
    QVERIFY(marksOn(*m_page).first()->isVisible());
}

void TestPage::hiddenStateIsOfThePage()
{
    m_page->newDocument();
    m_page->setAnnotationsHidden(true);
    m_page->addAnnotation(new TestMark);
    // A mark added meanwhile is visible until the next switch.
    QVERIFY(marksOn(*m_page).first()->isVisible());
    QVERIFY(!m_page->annotationsVisible());
}

void TestPage::focusDocumentPutsTheCaretAtTheStart()
{
    m_page->setTextContents(QStringLiteral("a"), QStringLiteral("abc"), QStringLiteral("1\n"));
    m_page->documentItem()->setCursorPosition(2);
    m_page->documentItem()->setTextEditable(false);
    m_page->focusDocument();
    const QGraphicsTextItem *item = m_page->documentItem()->textItem();
    QCOMPARE(item->textInteractionFlags(), Qt::TextInteractionFlags(Qt::TextEditorInteraction));
    QCOMPARE(item->textCursor().position(), 0);
    QCOMPARE(m_page->focusItem(), item);
}

void TestPage::insertTabAtTheCaret()
{
    m_page->setTextContents(QStringLiteral("a"), QStringLiteral("abc"), QStringLiteral("1\n"));
    m_page->documentItem()->setCursorPosition(1);
    m_page->insertTab();
    QCOMPARE(m_page->plainText(), QStringLiteral("a\tbc"));
}

void TestPage::contentsSizeIsTheTextItems()
{
    m_page->setTextContents(QStringLiteral("a"), QStringLiteral("abc"), QStringLiteral("1\n"));
    const QRectF rect = m_page->documentItem()->textItem()->boundingRect();
    QCOMPARE(m_page->contentsWidth(), rect.width());
    QCOMPARE(m_page->contentsHeight(), rect.height());
    m_page->setTextColor(Qt::magenta);
    QCOMPARE(m_page->documentItem()->textItem()->defaultTextColor(), QColor(Qt::magenta));
}

void TestPage::adjustDocumentRectFillsTheView_data()
{
    QTest::addColumn<QSize>("missing");
    QTest::addColumn<bool>("widened");
    QTest::addColumn<bool>("heightened");
    // What the view without its margins has more than the document.
    QTest::newRow("smaller than the document") << QSize(-30, -30) << false << false;
    QTest::newRow("as large") << QSize(0, 0) << false << false;
    QTest::newRow("just within the tolerance") << QSize(10, 10) << false << false;
    QTest::newRow("just wider") << QSize(11, 10) << true << false;
    QTest::newRow("just higher") << QSize(10, 11) << false << true;
    QTest::newRow("much larger") << QSize(900, 800) << true << true;
}

void TestPage::adjustDocumentRectFillsTheView()
{
    QFETCH(const QSize, missing);
    QFETCH(const bool, widened);
    QFETCH(const bool, heightened);
    // A document of exactly 400 x 300.
    m_page->documentItem()->setImageContents(QPixmap(400, 300));
    m_page->documentItem()->textItem()->document()->clear();
    QCOMPARE(m_page->documentItem()->boundingRect(), QRectF(0, 0, 400, 300));
    m_page->documentItem()->setBounds(QRectF(1, 2, 3, 4));
    m_page->adjustDocumentRect();
    // Without a view nothing is known.
    QCOMPARE(m_page->documentItem()->bounds(), QRectF(1, 2, 3, 4));

    PageView view(m_page.get(), nullptr);
    view.resize(400 + 2 * 50 + missing.width(), 300 + 2 * 5 + missing.height());
    const QRectF scene = m_page->sceneRect();
    m_page->adjustDocumentRect();
    QCOMPARE(m_page->documentItem()->bounds(),
             QRectF(0, 0, widened ? 400 + missing.width() : 400, heightened ? 300 + missing.height() : 300));
    QCOMPARE(m_page->sceneRect(), scene);
}

void TestPage::adjustDocumentRectAsksTheFirstView()
{
    m_page->documentItem()->setImageContents(QPixmap(10, 10));
    PageView first(m_page.get(), nullptr);
    first.resize(1000, 700);
    PageView second(m_page.get(), nullptr);
    second.resize(2000, 1700);
    m_page->adjustDocumentRect();
    QCOMPARE(m_page->documentItem()->bounds().size(), QSizeF(900, 690));
}

void TestPage::refreshUiAsksTheWindow()
{
    m_page->refreshUi();
    QCOMPARE(m_host->menuUpdates, 1);
    Page alone(nullptr);
    alone.refreshUi();
    QVERIFY(!alone.host());
}

void TestPage::saveWithoutQuestionKeepsFormatByName()
{
    m_page->newDocument();
    QVERIFY(m_page->saveDocument(path("new.txt"), false));
    QCOMPARE(bytesIn(path("new.txt")), QByteArray(60, ' '));
    QVERIFY(m_page->saveDocument(path("new"), false));
    QCOMPARE(bytesIn(path("new")), QByteArray(60, ' '));
    QVERIFY(m_page->saveDocument(path("new.PNG"), false));
    QCOMPARE(QImage(path("new.PNG")).size(),
             QSize(int(m_page->sceneRect().width()), int(m_page->sceneRect().height())));
}

void TestPage::saveSetsNameAndTitle()
{
    store(path("a.txt"), "x\n");
    QVERIFY(m_page->loadFile(path("a.txt")));
    m_page->setModified(true);
    QVERIFY(m_page->saveDocument(path("b.txt"), false));
    QVERIFY(!m_page->isModified());
    QCOMPARE(m_page->fileName(), path("b.txt"));
    QCOMPARE(m_page->shortName(), QStringLiteral("a.txt"));
    QCOMPARE(m_host->window.windowTitle(), QStringLiteral("Kestrin 7 [%1]").arg(path("b.txt")));
    // The title follows no later change by itself.
    m_page->setModified(true);
    QCOMPARE(m_host->window.windowTitle(), QStringLiteral("Kestrin 7 [%1]").arg(path("b.txt")));
}

void TestPage::keepStateLeavesEverything()
{
    m_page->newDocument();
    m_page->setModified(true);
    QVERIFY(m_page->saveDocument(path("copy.txt"), true));
    QCOMPARE(bytesIn(path("copy.txt")).size(), 60);
    QVERIFY(m_page->isModified());
    QCOMPARE(m_page->fileName(), QStringLiteral("noname"));
    QCOMPARE(m_host->window.windowTitle(), QString());
}

void TestPage::saveUnderANameNeverAsks()
{
    m_page->newDocument();
    m_page->addAnnotation(new TestMark);
    const DialogAnswers answers;
    QVERIFY(m_page->saveDocument(path("marked.txt"), false));
    QCOMPARE(answers.seen().size(), 0);
    QCOMPARE(bytesIn(path("marked.txt")).size(), 60);
}

void TestPage::annotatedTextIsAskedAbout_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::newRow("no") << QMessageBox::No;
    QTest::newRow("cancel") << QMessageBox::Cancel;
}

void TestPage::annotatedTextIsAskedAbout()
{
    QFETCH(const QMessageBox::StandardButton, answer);
    store(path("a.txt"), "old\n");
    QVERIFY(m_page->loadFile(path("a.txt")));
    m_page->addAnnotation(new TestMark);
    QTextCursor(m_page->textDocument()).insertText(QStringLiteral("new "));

    DialogAnswers answers;
    answers.click(answer);
    const bool saved = m_page->saveDocument(QString(), false);
    QCOMPARE(saved, answer == QMessageBox::No);
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &box = answers.seen().first();
    QCOMPARE(box.title, QStringLiteral("Kestrin 7"));
    QCOMPARE(box.text, QStringLiteral("Document [%1] contains annotations.\nDo you want to save it as an 'Annotated' "
                                      "OXN file?")
                           .arg(path("a.txt")));
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.parent, &m_host->window);
    QCOMPARE(m_page->isModified(), !saved);
    QCOMPARE(m_page->fileName(), path("a.txt"));
    QCOMPARE(bytesIn(path("a.txt")), saved ? QByteArray("new old") : QByteArray("old\n"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{"a.txt"});
}

void TestPage::yesChoosesTheAnnotatedFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("target");
    QTest::newRow("suffix replaced") << "deep/a.txt"
                                     << "deep/a.oxn";
    QTest::newRow("name up to the first dot") << "deep/a.b.c.txt"
                                              << "deep/a.oxn";
    QTest::newRow("no suffix") << "deep/plain"
                               << "deep/plain.oxn";
    QTest::newRow("roundabout path") << "deep/../deep/x.txt"
                                     << "deep/x.oxn";
}

void TestPage::yesChoosesTheAnnotatedFile()
{
    QFETCH(const QString, name);
    QFETCH(const QString, target);
    QVERIFY(QDir(m_folder->path()).mkdir("deep"));
    store(path(name), "as it was\n");
    QVERIFY(m_page->loadFile(path(name)));
    m_page->addAnnotation(new PenLine);
    DialogAnswers answers;
    answers.click(QMessageBox::Yes);
    QVERIFY(m_page->saveDocument(QString(), false));
    QCOMPARE(answers.seen().size(), 1);
    QVERIFY(bytesIn(path(target)).contains("<pen_line "));
    QVERIFY(bytesIn(path(target)).contains("<![CDATA[as it was]]>"));
    QCOMPARE(bytesIn(path(name)), QByteArray("as it was\n"));
    QVERIFY(!m_page->isModified());
    QCOMPARE(m_page->fileName(), path(target));
    QCOMPARE(m_page->shortName(), QFileInfo(name).fileName());
    QCOMPARE(m_host->window.windowTitle(), QStringLiteral("Kestrin 7 [%1]").arg(path(target)));
    // It is the document's own name now.
    m_page->addAnnotation(new PenLine);
    QVERIFY(m_page->saveDocument(QString(), false));
    QCOMPARE(bytesIn(path(target)).count("<pen_line "), 2);
}

void TestPage::failureNamesTheAnnotatedFile()
{
    m_page->newDocument();
    m_page->setFileName(path("gone/a.txt"));
    m_page->addAnnotation(new TestMark);
    DialogAnswers answers;
    answers.click(QMessageBox::Yes);
    answers.click(QMessageBox::Ok);
    answers.click(QMessageBox::Ok);
    QVERIFY(!m_page->saveDocument(QString(), false));
    QCOMPARE(answers.seen().size(), 3);
    QCOMPARE(answers.seen().at(1).title, QStringLiteral("I/O Error 0x00608005"));
    QCOMPARE(answers.texts().at(2), QStringLiteral("Can't save file %1").arg(path("gone/a.oxn")));
    QVERIFY(m_page->isModified());
    QCOMPARE(m_page->fileName(), path("gone/a.txt"));
}

void TestPage::oxnSuffixIsNotAskedAbout_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("small letters") << "a.oxn";
    QTest::newRow("capitals") << "a.OXN";
    QTest::newRow("mixed") << "a.Oxn";
}

void TestPage::oxnSuffixIsNotAskedAbout()
{
    QFETCH(const QString, name);
    m_page->newDocument();
    m_page->setFileName(path(name));
    m_page->addAnnotation(new PenLine);
    const DialogAnswers answers;
    QVERIFY(m_page->saveDocument(QString(), false));
    QCOMPARE(answers.seen().size(), 0);
    QVERIFY(bytesIn(path(name)).contains("<pen_line "));
    QVERIFY(!m_page->isModified());
}

void TestPage::undoneMarkIsNotAskedAbout()
{
    m_page->newDocument();
    m_page->setFileName(path("a.txt"));
    m_page->addAnnotation(new TestMark);
    m_page->activateUndoStack();
    m_host->group->undo();
    const DialogAnswers answers;
    QVERIFY(m_page->saveDocument(QString(), false));
    QCOMPARE(answers.seen().size(), 0);
}

void TestPage::yesAsksBeforeReplacingAnotherFile()
{
    store(path("a.b.txt"), "text\n");
    store(path("a.oxn"), "somebody else's\n");
    QVERIFY(m_page->loadFile(path("a.b.txt")));
    m_page->addAnnotation(new TestMark);
    DialogAnswers answers;
    answers.click(QMessageBox::Yes);
    answers.click(QMessageBox::No);
    QVERIFY(!m_page->saveDocument(QString(), false));
    QCOMPARE(answers.seen().size(), 2);
    QCOMPARE(answers.texts().last(),
             QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(path("a.oxn")));
    QCOMPARE(answers.seen().last().parent, &m_host->window);
    QCOMPARE(bytesIn(path("a.oxn")), QByteArray("somebody else's\n"));
    QCOMPARE(m_page->fileName(), path("a.b.txt"));
    QVERIFY(m_page->isModified());
}

void TestPage::mayReplaceItsOwnFile()
{
    store(path("a.txt"), "text\n");
    QVERIFY(m_page->loadFile(path("a.txt")));
    const DialogAnswers answers;
    QVERIFY(m_page->mayReplace(path("a.txt")));
    QVERIFY(m_page->mayReplace(path("./a.txt")));
    QVERIFY(m_page->mayReplace(path("new.txt")));
    QCOMPARE(answers.seen().size(), 0);
}

void TestPage::failedSaveIsToldTwice()
{
    store(path("a.txt"), "text\n");
    QVERIFY(m_page->loadFile(path("a.txt")));
    m_page->setModified(true);
    const QString target = path("no/such/folder/a.txt");
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    answers.click(QMessageBox::Ok);
    QVERIFY(!m_page->saveDocument(target, false));
    QCOMPARE(answers.seen().size(), 2);
    QCOMPARE(answers.seen().at(0).title, QStringLiteral("I/O Error"));
    QCOMPARE(answers.seen().at(0).text, QStringLiteral("Cannot save file %1.\nError code: ").arg(target));
    QCOMPARE(answers.seen().at(0).parent, nullptr);
    QCOMPARE(answers.seen().at(1).title, QStringLiteral("I/O Warning"));
    QCOMPARE(answers.seen().at(1).text, QStringLiteral("Can't save file %1").arg(target));
    QCOMPARE(answers.seen().at(1).parent, &m_host->window);
    QVERIFY(m_page->isModified());
    QCOMPARE(m_page->fileName(), path("a.txt"));
}

void TestPage::namesAreShownAsTheyAre()
{
    const QString name = path("<b>%1 %2 & \"x\"</b>.txt");
    DialogAnswers answers;
    answers.handle([](QDialog *dialog) {
        QCOMPARE(qobject_cast<QMessageBox *>(dialog)->textFormat(), Qt::PlainText);
        dialog->accept();
    });
    QVERIFY(!m_page->loadFile(name));
    QCOMPARE(answers.texts(),
             QStringList(QStringLiteral("Can't open file ") + name + QStringLiteral("\nError code: 5")));
}

REGISTER_TEST(TestPage)
#include "tst_page.moc"
