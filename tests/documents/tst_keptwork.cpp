// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/lineann.h"
#include "annotations/textboxann.h"
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "documents/testmark.h"
#include "persistence/iosystem.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/files.h"
#include "support/testmain.h"

#include <QApplication>
#include <QClipboard>
#include <QGraphicsSceneDragDropEvent>
#include <QImage>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>

namespace {

void compose(QWidget *view, const QString &preedit)
{
    QInputMethodEvent event(preedit, {});
    QApplication::sendEvent(view, &event);
}

void commit(QWidget *view, const QString &text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(view, &event);
}

void drop(Page *page, const QGraphicsItem *target, const QMimeData &data)
{
    QGraphicsSceneDragDropEvent event(QEvent::GraphicsSceneDrop);
    event.setMimeData(&data);
    event.setPossibleActions(Qt::CopyAction);
    event.setProposedAction(Qt::CopyAction);
    event.setDropAction(Qt::CopyAction);
    event.setPos(QPointF(1.0, 5.0));
    event.setScenePos(target->mapToScene(1.0, 5.0));
    // A scene gives a drop to the item that the drag has entered.
    QGraphicsSceneDragDropEvent enter(QEvent::GraphicsSceneDragMove);
    enter.setMimeData(&data);
    enter.setPossibleActions(Qt::CopyAction);
    enter.setProposedAction(Qt::CopyAction);
    enter.setScenePos(event.scenePos());
    QApplication::sendEvent(page, &enter);
    QApplication::sendEvent(page, &event);
}

} // namespace

/// Whatever changes what would be saved marks the page, so that it can be saved and closing asks; and a question
/// answered with No never loses what is on the page.
class TestKeptWork : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void typingIntoABoxEnablesSaving();
    void textFromAnInputMethod_data();
    void textFromAnInputMethod();
    void composingOverASelection();
    void composingAloneChangesNothing();
    void readOnlyTextTakesNoInput();
    void droppedText_data();
    void droppedText();
    void pastedBoxTextIsPlain();
    void thinLineDragged_data();
    void thinLineDragged();
    void clickedMarkIsNoChange();
    void declinedReplacementGoesToSaveAs_data();
    void declinedReplacementGoesToSaveAs();
    void markedPictureOutlivesItsFile();

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    TextBoxAnn *addBox();

    QTemporaryDir m_folder;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<Page> m_page;
    std::unique_ptr<PageView> m_view;
};

void TestKeptWork::init()
{
    m_host = std::make_unique<FakeHost>();
    m_page = std::make_unique<Page>(m_host.get());
    m_page->setTextContents(path("a.txt"), QStringLiteral("text"), QStringLiteral("1\n"));
    m_view = std::make_unique<PageView>(m_page.get(), nullptr);
    m_page->setPageView(m_view.get());
    m_view->resize(400, 300);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    m_view->setFocus();
    m_page->focusDocument();
    m_page->setModified(false);
}

void TestKeptWork::cleanup()
{
    m_view.reset();
    m_page.reset();
    m_host.reset();
}

/// A box with the caret in it, on a page without changes.
TextBoxAnn *TestKeptWork::addBox()
{
    auto *box = new TextBoxAnn;
    box->setPlainText(QStringLiteral("box"));
    box->setPos(60.0, 80.0);
    box->setTextInteractionFlags(Qt::TextEditorInteraction);
    m_page->addAnnotation(box);
    box->setFocus();
    m_page->setModified(false);
    m_host->menuUpdates = 0;
    return box;
}

void TestKeptWork::typingIntoABoxEnablesSaving()
{
    const TextBoxAnn *box = addBox();
    QTest::keyClick(m_view->viewport(), Qt::Key_A);
    QCOMPARE(box->toPlainText(), QStringLiteral("abox"));
    QVERIFY(m_page->isModified());
    QCOMPARE(m_host->menuUpdates, 1);
    QTest::keyClick(m_view->viewport(), Qt::Key_B);
    QCOMPARE(m_host->menuUpdates, 1);
}

void TestKeptWork::textFromAnInputMethod_data()
{
    QTest::addColumn<bool>("intoBox");
    QTest::newRow("document") << false;
    QTest::newRow("text box") << true;
}

void TestKeptWork::textFromAnInputMethod()
{
    QFETCH(const bool, intoBox);
    const TextBoxAnn *box = intoBox ? addBox() : nullptr;
    commit(m_view.get(), QStringLiteral("\u6f22"));
    QCOMPARE(intoBox ? box->toPlainText() : m_page->plainText(),
             QStringLiteral("\u6f22") + (intoBox ? QStringLiteral("box") : QStringLiteral("text")));
    QVERIFY(m_page->isModified());
    QVERIFY(m_host->menuUpdates > 0);
}

void TestKeptWork::composingOverASelection()
{
    TextBoxAnn *box = addBox();
    QTextCursor all(box->document());
    all.select(QTextCursor::Document);
    box->setTextCursor(all);
    compose(m_view.get(), QStringLiteral("k"));
    QCOMPARE(box->toPlainText(), QString());
    QVERIFY(m_page->isModified());
}

void TestKeptWork::composingAloneChangesNothing()
{
    const TextBoxAnn *box = addBox();
    compose(m_view.get(), QStringLiteral("k"));
    QCOMPARE(box->toPlainText(), QStringLiteral("box"));
    QVERIFY(!m_page->isModified());
}

void TestKeptWork::readOnlyTextTakesNoInput()
{
    m_page->documentItem()->setTextEditable(false);
    commit(m_view.get(), QStringLiteral("x"));
    QCOMPARE(m_page->plainText(), QStringLiteral("text"));
    QVERIFY(!m_page->isModified());
}

void TestKeptWork::droppedText_data()
{
    textFromAnInputMethod_data();
}

void TestKeptWork::droppedText()
{
    QFETCH(const bool, intoBox);
    const QGraphicsTextItem *target = intoBox ? addBox() : m_page->documentItem()->textItem();
    const QString before = target->toPlainText();
    QMimeData data;
    data.setText(QStringLiteral("plain "));
    data.setHtml(QStringLiteral("<b>bold</b>"));
    drop(m_page.get(), target, data);
    QCOMPARE(target->toPlainText(), QStringLiteral("plain ") + before);
    QVERIFY(m_page->isModified());
    QVERIFY(m_host->menuUpdates > 0);
}

void TestKeptWork::pastedBoxTextIsPlain()
{
    const TextBoxAnn *box = addBox();
    auto *data = new QMimeData; // The clipboard's from now on.
    data->setText(QStringLiteral("plain "));
    data->setHtml(QStringLiteral("<b>bold</b>"));
    QApplication::clipboard()->setMimeData(data);
    QTest::keyClick(m_view->viewport(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(box->toPlainText(), QStringLiteral("plain box"));
    QVERIFY(!box->document()->begin().begin().fragment().charFormat().hasProperty(QTextFormat::FontWeight));
    QVERIFY(m_page->isModified());
}

void TestKeptWork::thinLineDragged_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("transform") << int(TransformMode);
    QTest::newRow("text") << int(TextMode);
}

void TestKeptWork::thinLineDragged()
{
    QFETCH(const int, mode);
    m_host->currentMode = mode;
    auto *line = new LineAnn;
    line->setLine(QLineF(30.0, 60.0, 230.0, 150.0));
    m_page->addAnnotation(line);
    line->setFlags(QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsMovable);
    m_page->setModified(false);
    const QPoint start = m_view->mapFromScene(line->mapToScene(130.0, 105.0));
    QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, start);
    QVERIFY(!m_page->isModified());
    QMouseEvent move(QEvent::MouseMove, start + QPoint(40, -30),
                     m_view->viewport()->mapToGlobal(start + QPoint(40, -30)), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(m_view->viewport(), &move);
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, start + QPoint(40, -30));
    QCOMPARE(line->pos(), QPointF(40.0, -30.0));
    QVERIFY(m_page->isModified());
}

void TestKeptWork::clickedMarkIsNoChange()
{
    m_host->currentMode = TextMode;
    auto *mark = new TestMark;
    m_page->addAnnotation(mark);
    mark->setFlags(QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsMovable);
    m_page->setModified(false);
    const QPoint place = m_view->mapFromScene(mark->mapToScene(mark->boundingRect().center()));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, place);
    QVERIFY(mark->isSelected());
    QVERIFY(!m_page->isModified());
}

void TestKeptWork::declinedReplacementGoesToSaveAs_data()
{
    QTest::addColumn<QString>("otherName");
    QTest::newRow("another name") << QStringLiteral("mine.oxn");
    QTest::newRow("cancelled") << QString();
}

void TestKeptWork::declinedReplacementGoesToSaveAs()
{
    QFETCH(const QString, otherName);
    store(path("b.txt"), "text\n");
    store(path("b.oxn"), "somebody else's\n");
    auto *stack = new PageStack(m_host.get()); // The window's.
    auto *page = new Page(m_host.get());
    QVERIFY(page->loadFile(path("b.txt")));
    stack->addTab(new PageView(page, nullptr), QStringLiteral("b.txt"));
    page->addAnnotation(new TestMark);
    DialogAnswers answers;
    answers.click(QMessageBox::Save);
    answers.click(QMessageBox::Yes);
    answers.click(QMessageBox::No);
    if (otherName.isEmpty())
        answers.reject();
    else
        answers.chooseFile(path(otherName));
    const bool closed = stack->closeCurrentTab();
    QCOMPARE(answers.seen().size(), 4);
    QCOMPARE(answers.seen().last().title, QStringLiteral("Save As File"));
    QCOMPARE(bytesIn(path("b.oxn")), QByteArray("somebody else's\n"));
    QCOMPARE(closed, !otherName.isEmpty());
    QCOMPARE(stack->count(), otherName.isEmpty() ? 1 : 0);
    QCOMPARE(page->isModified(), otherName.isEmpty());
    if (!otherName.isEmpty())
        QVERIFY(bytesIn(path(otherName)).contains("<text_contents"));
    QFile::remove(path("mine.oxn"));
}

void TestKeptWork::markedPictureOutlivesItsFile()
{
    for (const QString &name : {QStringLiteral("photo.png"), QStringLiteral("photo.gif")}) {
        QImage picture(30, 20, QImage::Format_RGB32);
        picture.fill(Qt::green);
        QVERIFY(picture.save(path(name), "PNG"));
        Page page(m_host.get());
        QVERIFY(page.loadFile(path(name)));
        page.addAnnotation(new TestMark);
        QVERIFY(QFile::remove(path(name)));
        DialogAnswers answers;
        answers.click(QMessageBox::Yes);
        QVERIFY(page.saveDocument(QString(), false));
        QCOMPARE(answers.seen().size(), 1);
        const QByteArray saved = bytesIn(path("photo.oxn"));
        QVERIFY(saved.contains(name.toUtf8()));
        QVERIFY(QFile::remove(path("photo.oxn")));
    }
}

REGISTER_TEST(TestKeptWork)
#include "tst_keptwork.moc"
