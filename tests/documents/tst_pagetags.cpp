// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/activeelement.h"
#include "documents/page.h"
#include "support/fakehost.h"
#include "support/testmain.h"

#include <QTest>
#include <QUndoStack>

#include <memory>

/// Active tags on a page: how they come there and how they are edited.
class TestPageTags : public QObject
{
    Q_OBJECT

private slots:
    void addedTagIsUndoableAndRegistered();
    void addedWithoutAHost();
    void acceptedEditModifies_data();
    void acceptedEditModifies();
    void editedWithoutAHost();
    void editedAfterTheWindowWent();
    void pageDiesWhileEditing();
};

void TestPageTags::addedTagIsUndoableAndRegistered()
{
    FakeHost host;
    Page page(&host);
    auto *tag = new ActiveElement;
    page.addActiveElement(tag);
    QCOMPARE(tag->scene(), &page);
    QVERIFY(page.isModified());
    QVERIFY(page.hasAnnotations());
    QCOMPARE(host.registeredTags, (QList<std::pair<ActiveElement *, Page *>>{{tag, &page}}));
    page.activateUndoStack();
    host.group->undo();
    QVERIFY(!tag->scene());
    host.group->redo();
    QCOMPARE(tag->scene(), &page);
    // It is registered once, not each time it comes back.
    QCOMPARE(host.registeredTags.size(), 1);
}

void TestPageTags::addedWithoutAHost()
{
    Page page(nullptr);
    auto *tag = new ActiveElement;
    page.addActiveElement(tag);
    QCOMPARE(tag->scene(), &page);
    QVERIFY(page.isModified());
}

void TestPageTags::acceptedEditModifies_data()
{
    QTest::addColumn<bool>("accepted");
    QTest::newRow("accepted") << true;
    QTest::newRow("cancelled") << false;
}

void TestPageTags::acceptedEditModifies()
{
    QFETCH(const bool, accepted);
    FakeHost host;
    host.editTag = [accepted](ActiveElement *) { return accepted; };
    Page page(&host);
    auto *tag = new ActiveElement;
    page.addActiveElement(tag);
    page.setModified(false);
    host.menuUpdates = 0;
    page.editActiveElement(tag, Qt::Drawer);
    QCOMPARE(host.editedTags, (QList<std::pair<ActiveElement *, Qt::WindowFlags>>{{tag, Qt::Drawer}}));
    QCOMPARE(page.isModified(), accepted);
    QCOMPARE(host.menuUpdates, accepted ? 1 : 0);
}

void TestPageTags::editedWithoutAHost()
{
    Page page(nullptr);
    auto *tag = new ActiveElement;
    page.addActiveElement(tag);
    page.setModified(false);
    page.editActiveElement(tag, {});
    QVERIFY(!page.isModified());
}

void TestPageTags::editedAfterTheWindowWent()
{
    auto host = std::make_unique<FakeHost>();
    Page page(host.get());
    auto *tag = new ActiveElement;
    page.addActiveElement(tag);
    page.setModified(false);
    host.reset();
    page.editActiveElement(tag, {});
    page.addActiveElement(new ActiveElement);
    QVERIFY(page.isModified());
}

void TestPageTags::pageDiesWhileEditing()
{
    FakeHost host;
    auto *page = new Page(&host);
    auto *tag = new ActiveElement;
    page->addActiveElement(tag);
    host.editTag = [page](ActiveElement *) {
        delete page;
        return true;
    };
    host.menuUpdates = 0;
    page->editActiveElement(tag, {});
    QCOMPARE(host.editedTags.size(), 1);
    QCOMPARE(host.menuUpdates, 0);
}

REGISTER_TEST(TestPageTags)
#include "tst_pagetags.moc"
