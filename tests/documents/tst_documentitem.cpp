// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documentitem.h"

#include "documents/page.h"
#include "support/fakehost.h"
#include "support/testmain.h"

#include <QGraphicsPixmapItem>
#include <QGraphicsTextItem>
#include <QTest>
#include <QTextDocument>

class TestDocumentItem : public QObject
{
    Q_OBJECT

private slots:
    void newDocumentIsALineOfBlanks();
};

void TestDocumentItem::newDocumentIsALineOfBlanks()
{
    FakeHost host;
    Page page(&host);
    page.newDocument();
    QCOMPARE(page.plainText(), QString(60, QLatin1Char(' ')));
    QCOMPARE(page.documentItem()->lineCount(), 1);
    QCOMPARE(page.documentItem()->lineNumbersItem()->toPlainText(), QStringLiteral("1\n"));
    QVERIFY(!page.isModified());
    QCOMPARE(page.documentKind(), Page::TextDocument);
}

REGISTER_TEST(TestDocumentItem)
#include "tst_documentitem.moc"
