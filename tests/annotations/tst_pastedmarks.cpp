// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/markitem.h"
#include "annotations/rectangleann.h"
#include "annotations/textboxann.h"
#include "documents/page.h"
#include "support/fakehost.h"
#include "support/testmain.h"

#include <QTest>

namespace {

/// The only mark on @p page that is a @p Mark and not @p other; null if there is not exactly one.
template<class Mark> Mark *onlyMark(const Page &page, const Mark *other = nullptr)
{
    Mark *found = nullptr;
    int count = 0;
    for (QGraphicsItem *item : page.items()) {
        auto *mark = dynamic_cast<Mark *>(item);
        if (!mark || mark == other)
            continue;
        found = mark;
        ++count;
    }
    return count == 1 ? found : nullptr;
}

/// A rounded rectangle on the page, selected; the page owns it.
RectangleAnn *addRounded(Page &page)
{
    auto *rectangle = new RectangleAnn;
    rectangle->setRect(0, 0, 80, 40);
    rectangle->setRounded(true);
    MarkItem::makeHandy(*rectangle);
    page.addAnnotation(rectangle);
    rectangle->setSelected(true);
    return rectangle;
}

/// A text box as its tool makes it, selected; the page owns it.
TextBoxAnn *addEditable(Page &page)
{
    auto *box = new TextBoxAnn;
    box->setPlainText("Text");
    box->setTextInteractionFlags(Qt::TextEditorInteraction);
    MarkItem::makeHandy(*box);
    page.addAnnotation(box);
    box->setSelected(true);
    return box;
}

} // namespace

/// What the clipboard of a page does to marks of which a copy does not take everything along.
class TestPastedMarks : public QObject
{
    Q_OBJECT

private slots:
    void copiedRectangleHasSquareCorners();
    void cutRectangleStaysRounded();
    void copiedTextBoxCanBeMovedButNotEdited();
    void cutTextBoxCanBeEdited();
};

void TestPastedMarks::copiedRectangleHasSquareCorners()
{
    FakeHost host;
    host.currentMode = TransformMode;
    Page page(&host);
    const RectangleAnn *original = addRounded(page);
    page.copyCommand();
    page.pasteCommand();
    const auto *pasted = onlyMark<RectangleAnn>(page, original);
    QVERIFY(pasted);
    QVERIFY(!pasted->rounded());
    QVERIFY(original->rounded());
    QCOMPARE(pasted->rect(), original->rect());
    QCOMPARE(pasted->pos(), original->pos() + QPointF(20, 20));
}

void TestPastedMarks::cutRectangleStaysRounded()
{
    FakeHost host;
    host.currentMode = TransformMode;
    Page page(&host);
    const RectangleAnn *original = addRounded(page);
    page.cutCommand();
    QVERIFY(!page.hasAnnotations());
    page.pasteCommand();
    QCOMPARE(onlyMark<RectangleAnn>(page), original);
    QVERIFY(original->rounded());
    QCOMPARE(original->pos(), QPointF(0, 0));
}

void TestPastedMarks::copiedTextBoxCanBeMovedButNotEdited()
{
    FakeHost host;
    host.currentMode = TransformMode;
    Page page(&host);
    const TextBoxAnn *original = addEditable(page);
    page.copyCommand();
    page.pasteCommand();
    const auto *pasted = onlyMark<TextBoxAnn>(page, original);
    QVERIFY(pasted);
    QCOMPARE(pasted->toPlainText(), "Text");
    QCOMPARE(pasted->textInteractionFlags(), Qt::NoTextInteraction);
    QVERIFY(!pasted->flags().testFlag(QGraphicsItem::ItemIsFocusable));
    QVERIFY(pasted->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(pasted->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    QCOMPARE(original->textInteractionFlags(), Qt::TextEditorInteraction);
}

void TestPastedMarks::cutTextBoxCanBeEdited()
{
    FakeHost host;
    host.currentMode = TransformMode;
    Page page(&host);
    const TextBoxAnn *original = addEditable(page);
    page.cutCommand();
    QVERIFY(!page.hasAnnotations());
    page.pasteCommand();
    QCOMPARE(onlyMark<TextBoxAnn>(page), original);
    QCOMPARE(original->textInteractionFlags(), Qt::TextEditorInteraction);
    QVERIFY(original->flags().testFlag(QGraphicsItem::ItemIsFocusable));
}

REGISTER_TEST(TestPastedMarks)
#include "tst_pastedmarks.moc"
