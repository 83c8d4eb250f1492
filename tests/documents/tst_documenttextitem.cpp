// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documenttextitem.h"

#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "documents/testmark.h"
#include "support/fakehost.h"
#include "support/testmain.h"

#include <QApplication>
#include <QClipboard>
#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsTextItem>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>
#include <QUndoGroup>

/// What comes into a document's text, by every way there is, is plain and marks the page.
class TestDocumentTextItem : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pastedTextIsPlain();
    void shiftReturnEndsALine();
    void inputMethodMarksThePage();
    void droppedTextIsPlain();
    void readOnlyTextTakesNothing();
    void cutMarksComeBackInTheirOrder();

private:
    static QMimeData *richText();

    FakeHost *m_host = nullptr;
    Page *m_page = nullptr;
    PageView *m_view = nullptr;
};

void TestDocumentTextItem::init()
{
    m_host = new FakeHost;
    m_page = new Page(m_host);
    m_page->setTextContents(QStringLiteral("a.txt"), QStringLiteral("end"), QStringLiteral("1\n"));
    m_view = new PageView(m_page, nullptr);
    m_page->setPageView(m_view);
    m_view->resize(400, 300);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view));
    m_view->setFocus();
    m_page->focusDocument();
    m_page->setModified(false);
}

void TestDocumentTextItem::cleanup()
{
    delete m_view;
    delete m_page;
    delete m_host;
}

QMimeData *TestDocumentTextItem::richText()
{
    auto *data = new QMimeData;
    data->setHtml(QStringLiteral("<table><tr><td><b>cell</b></td></tr></table><img src=\"x.png\">"));
    data->setText(QStringLiteral("cell\n"));
    return data;
}

void TestDocumentTextItem::pastedTextIsPlain()
{
    QApplication::clipboard()->setMimeData(richText());
    QTest::keyClick(m_view->viewport(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_page->plainText(), QStringLiteral("cell\nend"));
    QVERIFY(m_page->isModified());
    m_page->setModified(false);
    QTest::keyClick(m_view->viewport(), Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(m_page->plainText(), QStringLiteral("cell\ncell\nend"));
    QVERIFY(m_page->isModified());
}

void TestDocumentTextItem::shiftReturnEndsALine()
{
    QTest::keyClick(m_view->viewport(), Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(m_page->plainText(), QStringLiteral("\nend"));
}

void TestDocumentTextItem::inputMethodMarksThePage()
{
    QInputMethodEvent composing(QStringLiteral("~"), {});
    QApplication::sendEvent(m_view, &composing);
    QVERIFY(!m_page->isModified());
    QInputMethodEvent committing;
    committing.setCommitString(QStringLiteral("\u00f1"));
    QApplication::sendEvent(m_view, &committing);
    QCOMPARE(m_page->plainText(), QStringLiteral("\u00f1end"));
    QVERIFY(m_page->isModified());
}

void TestDocumentTextItem::droppedTextIsPlain()
{
    const std::unique_ptr<QMimeData> data(richText());
    QGraphicsSceneDragDropEvent drop(QEvent::GraphicsSceneDrop);
    drop.setMimeData(data.get());
    drop.setPossibleActions(Qt::CopyAction);
    drop.setProposedAction(Qt::CopyAction);
    drop.setDropAction(Qt::CopyAction);
    drop.setPos(QPointF(0.0, 5.0));
    m_page->sendEvent(m_page->documentItem()->textItem(), &drop);
    QCOMPARE(m_page->plainText(), QStringLiteral("cell\nend"));
    QCOMPARE(drop.mimeData(), data.get());
}

void TestDocumentTextItem::readOnlyTextTakesNothing()
{
    m_page->documentItem()->setTextEditable(false);
    const std::unique_ptr<QMimeData> data(richText());
    QGraphicsSceneDragDropEvent drop(QEvent::GraphicsSceneDrop);
    drop.setMimeData(data.get());
    m_page->sendEvent(m_page->documentItem()->textItem(), &drop);
    QCOMPARE(m_page->plainText(), QStringLiteral("end"));
    QVERIFY(!m_page->isModified());
}

void TestDocumentTextItem::cutMarksComeBackInTheirOrder()
{
    m_host->currentMode = TransformMode;
    QList<QGraphicsItem *> marks;
    for (int i = 0; i < 12; ++i) {
        marks.append(new TestMark(QPointF(i, i)));
        m_page->addItem(marks.last());
        marks.last()->setSelected(true);
    }
    const auto order = [this, &marks] {
        QList<QGraphicsItem *> found;
        for (QGraphicsItem *item : m_page->items(Qt::AscendingOrder)) {
            if (marks.contains(item))
                found.append(item);
        }
        return found;
    };
    m_page->cutCommand();
    QCOMPARE(order().size(), 0);
    m_page->pasteCommand();
    QCOMPARE(order(), marks);
}

REGISTER_TEST(TestDocumentTextItem)
#include "tst_documenttextitem.moc"
