// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/activeelement.h"
#include "documents/page.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/testmain.h"
#include "widgets/activeelementslist.h"
#include "widgets/taghost.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QTest>

#include <memory>

namespace {

/// A window that notes to which tags it was to jump.
class TagWindow : public QWidget, public TagHost
{
public:
    Page *currentPage() const override { return current; }
    void focusActiveElement(Annotation *element, Page *page) override { jumps.append({element, page}); }

    Page *current = nullptr;
    QList<std::pair<Annotation *, Page *>> jumps;
};

/// A list on a window, and two pages with tags.
struct Listing
{
    ActiveElement *add(Page &page, const QString &text, int number = 0)
    {
        auto *tag = new ActiveElement;
        tag->setPlainText(text);
        tag->setCategory(number);
        page.addActiveElement(tag);
        list.addElement(tag, &page);
        return tag;
    }
    /// What the list shows once it has come to rest.
    QStringList rows() const
    {
        QCoreApplication::processEvents();
        QStringList texts;
        for (int i = 0; i < widget->count(); ++i)
            texts.append(widget->item(i)->text());
        return texts;
    }

    TagWindow window;
    ActiveElementsList &list = *new ActiveElementsList(&window);
    QListWidget *widget = list.findChild<QListWidget *>();
    QComboBox *category = list.findChild<QComboBox *>();
    QCheckBox *onlyPage = list.findChild<QCheckBox *>();
    FakeHost host;
    Page first{&host};
    Page second{&host};
};

} // namespace

class TestActiveElementsList : public QObject
{
    Q_OBJECT

private slots:
    void partsAndTexts();
    void rowTexts_data();
    void rowTexts();
    void rowIcons();
    void newRowIsThereAtOnce();
    void categories_data();
    void categories();
    void unknownCategoryIsInNoFilter();
    void onlyCurrentPage();
    void switchingTabsRefreshesNothing();
    void editingRefreshesNothing();
    void anotherTagRefreshes();
    void rowsLeadToTheirTags();
    void filteredRowsLeadToTheirTags();
    void noRowIsIgnored();
    void clearingWithACurrentRow();
    void focusDoesNotJump();
    void withoutAHost();
    void undoneAndCutTagsStay();
    void deadTagsGo();
    void deadTagBeforeTheRefresh();
    void deadPage();
    void nullArguments_data();
    void nullArguments();
    void languageChange();
    void manyTags();
};

void TestActiveElementsList::partsAndTexts()
{
    const Listing listing;
    QCOMPARE(listing.list.windowTitle(), "Active Elements List");
    QCOMPARE(listing.widget->minimumWidth(), 180);
    QStringList categories;
    for (int i = 0; i < listing.category->count(); ++i)
        categories.append(listing.category->itemText(i));
    QCOMPARE(categories, (QStringList{"All", "Ideas", "Notes", "Questions", "Important", "Bugs"}));
    QCOMPARE(listing.category->currentIndex(), 0);
    QCOMPARE(listing.onlyPage->text(), "only current page");
    QVERIFY(!listing.onlyPage->isChecked());
    const auto *label = listing.list.findChild<QLabel *>();
    QCOMPARE(label->text(), "Show: ");
    QCOMPARE(label->buddy(), listing.category);
    QVERIFY(!listing.widget->accessibleName().isEmpty());
    listing.list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&listing.list));
    QVERIFY(label->geometry().right() < listing.category->geometry().left());
    for (const QWidget *part : {static_cast<const QWidget *>(label), static_cast<const QWidget *>(listing.category),
                                static_cast<const QWidget *>(listing.onlyPage)})
        QVERIFY(part->width() >= part->minimumSizeHint().width());
}

void TestActiveElementsList::rowTexts_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("row");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("short") << "words"
                           << "words";
    QTest::newRow("40 characters") << QString(40, 'x') << QString(40, 'x');
    QTest::newRow("41 characters") << QString(41, 'x') << QString(40, 'x') + "...";
    QTest::newRow("40 after simplifying") << QString(20, 'x') + "   \n\t " + QString(19, 'y') + "\n\n"
                                          << QString(20, 'x') + ' ' + QString(19, 'y');
    QTest::newRow("lines and runs of blanks") << "  one\ntwo \t  three\n\nfour\u2028five "
                                              << "one two three four five";
    QTest::newRow("no-break spaces") << "a\u00a0\u00a0b"
                                     << "a b";
    QTest::newRow("blanks only") << " \n \t"
                                 << "";
    QTest::newRow("cut at a blank") << QString(39, 'x') + " y and more" << QString(39, 'x') + " ...";
}

void TestActiveElementsList::rowTexts()
{
    QFETCH(const QString, description);
    QFETCH(const QString, row);
    Listing listing;
    listing.add(listing.first, description);
    QCOMPARE(listing.rows(), QStringList{row});
}

void TestActiveElementsList::rowIcons()
{
    Listing listing;
    listing.add(listing.first, "idea", 0);
    listing.add(listing.first, "bug without an icon", 4);
    QCOMPARE(listing.rows().size(), 2);
    const QPixmap idea(":/active_tags/idea.png");
    QCOMPARE(listing.widget->item(0)->icon().pixmap(24, 24).toImage(), idea.toImage());
    QVERIFY(listing.widget->item(1)->icon().isNull());
}

void TestActiveElementsList::newRowIsThereAtOnce()
{
    Listing listing;
    listing.add(listing.first, "a");
    QCOMPARE(listing.widget->count(), 1);
    listing.category->setCurrentIndex(5);
    listing.add(listing.first, "b");
    QCOMPARE(listing.widget->count(), 0);
    listing.add(listing.first, "c", 4);
    QCOMPARE(listing.widget->count(), 1);
    QCOMPARE(listing.rows(), QStringList{"c"});
}

void TestActiveElementsList::categories_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("All") << 0 << QStringList{"idea", "bug", "note", "question", "important", "second bug"};
    QTest::newRow("Ideas") << 1 << QStringList{"idea"};
    QTest::newRow("Notes") << 2 << QStringList{"note"};
    QTest::newRow("Questions") << 3 << QStringList{"question"};
    QTest::newRow("Important") << 4 << QStringList{"important"};
    QTest::newRow("Bugs") << 5 << QStringList{"bug", "second bug"};
    QTest::newRow("none") << -1 << QStringList();
}

void TestActiveElementsList::categories()
{
    QFETCH(const int, filter);
    QFETCH(const QStringList, rows);
    Listing listing;
    listing.add(listing.first, "idea", 0);
    listing.add(listing.second, "bug", 4);
    listing.add(listing.first, "note", 1);
    listing.add(listing.second, "question", 2);
    listing.add(listing.first, "important", 3);
    listing.add(listing.first, "second bug", 4);
    listing.category->setCurrentIndex(filter);
    QCOMPARE(listing.rows(), rows);
}

void TestActiveElementsList::unknownCategoryIsInNoFilter()
{
    Listing listing;
    listing.add(listing.first, "odd", 77);
    listing.add(listing.first, "negative", -2);
    for (int filter = 1; filter < listing.category->count(); ++filter) {
        listing.category->setCurrentIndex(filter);
        QCOMPARE(listing.rows(), QStringList());
    }
    listing.category->setCurrentIndex(-1);
    QCOMPARE(listing.rows(), QStringList{"negative"});
    listing.category->setCurrentIndex(0);
    QCOMPARE(listing.rows(), (QStringList{"odd", "negative"}));
}

void TestActiveElementsList::onlyCurrentPage()
{
    Listing listing;
    listing.add(listing.first, "a");
    listing.add(listing.second, "b");
    listing.add(listing.first, "c", 4);
    listing.window.current = &listing.first;
    listing.onlyPage->click();
    QCOMPARE(listing.rows(), (QStringList{"a", "c"}));
    listing.category->setCurrentIndex(5);
    QCOMPARE(listing.rows(), QStringList{"c"});
    listing.window.current = &listing.second;
    listing.category->setCurrentIndex(0);
    QCOMPARE(listing.rows(), QStringList{"b"});
    listing.window.current = nullptr;
    listing.category->setCurrentIndex(1);
    QCOMPARE(listing.rows(), QStringList());
    listing.onlyPage->click();
    QCOMPARE(listing.rows(), (QStringList{"a", "b"}));
}

void TestActiveElementsList::switchingTabsRefreshesNothing()
{
    Listing listing;
    listing.add(listing.first, "a");
    listing.add(listing.second, "b");
    listing.window.current = &listing.first;
    listing.onlyPage->click();
    QCOMPARE(listing.rows(), QStringList{"a"});
    listing.window.current = &listing.second;
    QCOMPARE(listing.rows(), QStringList{"a"});
}

void TestActiveElementsList::editingRefreshesNothing()
{
    Listing listing;
    ActiveElement *tag = listing.add(listing.first, "old");
    QCOMPARE(listing.rows(), QStringList{"old"});
    tag->setPlainText("new");
    tag->setCategory(4);
    QCOMPARE(listing.rows(), QStringList{"old"});
    listing.category->setCurrentIndex(5);
    QCOMPARE(listing.rows(), QStringList{"new"});
}

void TestActiveElementsList::anotherTagRefreshes()
{
    Listing listing;
    listing.add(listing.first, "old")->setPlainText("new");
    listing.add(listing.first, "other");
    QCOMPARE(listing.rows(), (QStringList{"new", "other"}));
}

void TestActiveElementsList::rowsLeadToTheirTags()
{
    Listing listing;
    const ActiveElement *a = listing.add(listing.first, "a");
    const ActiveElement *b = listing.add(listing.second, "b");
    QCOMPARE(listing.rows().size(), 2);
    listing.list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&listing.list));
    for (const int row : {1, 0}) {
        const QPoint place = listing.widget->visualItemRect(listing.widget->item(row)).center();
        QTest::mouseClick(listing.widget->viewport(), Qt::LeftButton, {}, place);
    }
    QCOMPARE(listing.window.jumps.size(), 2);
    QCOMPARE(listing.window.jumps.at(0).first, b);
    QCOMPARE(listing.window.jumps.at(0).second, &listing.second);
    QCOMPARE(listing.window.jumps.at(1).first, a);
    QCOMPARE(listing.window.jumps.at(1).second, &listing.first);
}

void TestActiveElementsList::filteredRowsLeadToTheirTags()
{
    Listing listing;
    listing.add(listing.first, "a", 1);
    listing.add(listing.first, "b", 2);
    const ActiveElement *c = listing.add(listing.first, "c", 4);
    listing.add(listing.first, "d", 2);
    const ActiveElement *e = listing.add(listing.first, "e", 4);
    listing.category->setCurrentIndex(5);
    QCOMPARE(listing.rows(), (QStringList{"c", "e"}));
    listing.widget->setCurrentRow(1);
    listing.widget->setCurrentRow(0);
    QCOMPARE(listing.window.jumps.size(), 2);
    QCOMPARE(listing.window.jumps.at(0).first, e);
    QCOMPARE(listing.window.jumps.at(1).first, c);
}

void TestActiveElementsList::noRowIsIgnored()
{
    Listing listing;
    listing.add(listing.first, "a");
    QCOMPARE(listing.rows().size(), 1);
    for (const int row : {-1, 1, 1000, INT_MIN, INT_MAX})
        QVERIFY(QMetaObject::invokeMethod(&listing.list, "gotoElement", Q_ARG(int, row)));
    QVERIFY(listing.window.jumps.isEmpty());
    QVERIFY(QMetaObject::invokeMethod(&listing.list, "gotoElement", Q_ARG(int, 0)));
    QCOMPARE(listing.window.jumps.size(), 1);
}

void TestActiveElementsList::clearingWithACurrentRow()
{
    Listing listing;
    listing.add(listing.first, "a");
    listing.add(listing.first, "b", 4);
    QCOMPARE(listing.rows().size(), 2);
    listing.widget->setCurrentRow(1);
    QCOMPARE(listing.window.jumps.size(), 1);
    listing.category->setCurrentIndex(5);
    QCOMPARE(listing.rows(), QStringList{"b"});
    QCOMPARE(listing.widget->currentRow(), -1);
    QCOMPARE(listing.window.jumps.size(), 1);
}

void TestActiveElementsList::focusDoesNotJump()
{
    Listing listing;
    const ActiveElement *a = listing.add(listing.first, "a");
    listing.add(listing.first, "b");
    QCOMPARE(listing.rows().size(), 2);
    listing.list.show();
    QVERIFY(QTest::qWaitForWindowActive(&listing.list));
    listing.widget->setFocus();
    QVERIFY(listing.widget->hasFocus());
    QCOMPARE(listing.widget->currentRow(), -1);
    QVERIFY(listing.window.jumps.isEmpty());
    QTest::keyClick(listing.widget, Qt::Key_Down);
    QCOMPARE(listing.window.jumps.size(), 1);
    QCOMPARE(listing.window.jumps.at(0).first, a);
}

void TestActiveElementsList::withoutAHost()
{
    FakeHost host;
    Page page(&host);
    auto *tag = new ActiveElement;
    page.addActiveElement(tag);
    ActiveElementsList list(nullptr);
    list.addElement(tag, &page);
    auto *widget = list.findChild<QListWidget *>();
    widget->setCurrentRow(0);
    QCOMPARE(widget->count(), 1);
    list.findChild<QCheckBox *>()->click();
    QCOMPARE(widget->count(), 0);
}

void TestActiveElementsList::undoneAndCutTagsStay()
{
    Listing listing;
    listing.host.currentMode = TransformMode;
    listing.add(listing.first, "a");
    ActiveElement *b = listing.add(listing.first, "b");
    listing.first.activateUndoStack();
    listing.host.group->undo();
    QVERIFY(!b->scene());
    QCOMPARE(listing.rows(), (QStringList{"a", "b"}));
    listing.host.group->redo();
    b->setFlag(QGraphicsItem::ItemIsSelectable);
    b->setSelected(true);
    listing.first.cutCommand();
    QVERIFY(!b->scene());
    listing.category->setCurrentIndex(1);
    QCOMPARE(listing.rows(), (QStringList{"a", "b"}));
    // A pasted one is the same; it is not listed twice.
    listing.first.pasteCommand();
    QVERIFY(b->scene());
    QCOMPARE(listing.rows(), (QStringList{"a", "b"}));
    // A pasted copy comes without being listed.
    b->setSelected(true);
    listing.first.copyCommand();
    listing.first.pasteCommand();
    QCOMPARE(listing.rows(), (QStringList{"a", "b"}));
}

void TestActiveElementsList::deadTagsGo()
{
    Listing listing;
    listing.add(listing.first, "a");
    ActiveElement *b = listing.add(listing.second, "b");
    const ActiveElement *c = listing.add(listing.first, "c");
    listing.second.clearUndoStack();
    QCOMPARE(listing.rows().size(), 3);
    delete b;
    QCOMPARE(listing.rows(), (QStringList{"a", "c"}));
    listing.widget->setCurrentRow(1);
    QCOMPARE(listing.window.jumps.size(), 1);
    QCOMPARE(listing.window.jumps.at(0).first, c);
    listing.first.removeAnnotations();
    listing.first.clearUndoStack();
    QCOMPARE(listing.rows(), QStringList());
}

void TestActiveElementsList::deadTagBeforeTheRefresh()
{
    Listing listing;
    ActiveElement *tag = listing.add(listing.first, "a");
    listing.add(listing.first, "b");
    QCOMPARE(listing.rows().size(), 2);
    delete tag;
    QVERIFY(QMetaObject::invokeMethod(&listing.list, "gotoElement", Q_ARG(int, 0)));
    QVERIFY(listing.window.jumps.isEmpty());
    // A filter that changes first finds it gone as well.
    listing.category->setCurrentIndex(1);
    QCOMPARE(listing.widget->count(), 1);
    QCOMPARE(listing.rows(), QStringList{"b"});
}

void TestActiveElementsList::deadPage()
{
    Listing listing;
    auto page = std::make_unique<Page>(&listing.host);
    listing.add(*page, "a");
    // This one outlives its page.
    ActiveElement *kept = listing.add(*page, "kept");
    listing.host.addToAnnotationClipboard(kept);
    QCOMPARE(listing.rows().size(), 2);
    page.reset();
    QCOMPARE(listing.rows(), QStringList{"kept"});
    listing.widget->setCurrentRow(0);
    QVERIFY(listing.window.jumps.isEmpty());
    listing.window.current = nullptr;
    listing.onlyPage->click();
    QCOMPARE(listing.rows(), QStringList());
}

void TestActiveElementsList::nullArguments_data()
{
    QTest::addColumn<bool>("withTag");
    QTest::addColumn<bool>("withPage");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("no tag") << false << true << QStringList{"a", "z"};
    QTest::newRow("no page") << true << false << QStringList{"a", "m", "z"};
    QTest::newRow("neither") << false << false << QStringList{"a", "z"};
}

void TestActiveElementsList::nullArguments()
{
    QFETCH(const bool, withTag);
    QFETCH(const bool, withPage);
    QFETCH(const QStringList, rows);
    Listing listing;
    listing.add(listing.first, "a");
    ActiveElement tag;
    tag.setPlainText("m");
    QString title;
    QString text;
    bool isInformation = false;
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        const auto *box = qobject_cast<QMessageBox *>(dialog);
        title = dialog->windowTitle();
        text = box ? box->text() : QString();
        isInformation = box && box->icon() == QMessageBox::Information;
        dialog->close();
    });
    listing.list.addElement(withTag ? &tag : nullptr, withPage ? &listing.first : nullptr);
    QVERIFY(answers.allGiven());
    QCOMPARE(title, "zero ");
    QCOMPARE(text, "zero");
    QVERIFY(isInformation);
    const ActiveElement *last = listing.add(listing.first, "z");
    QCOMPARE(listing.rows(), rows);
    // Nothing to jump to; the rows behind still lead to their tags.
    listing.widget->setCurrentRow(1);
    QCOMPARE(listing.window.jumps.size(), withTag ? 0 : 1);
    listing.widget->setCurrentRow(int(rows.size()) - 1);
    QCOMPARE(listing.window.jumps.size(), 1);
    QCOMPARE(listing.window.jumps.at(0).first, last);
}

void TestActiveElementsList::languageChange()
{
    Listing listing;
    listing.add(listing.first, "a", 4);
    listing.category->setCurrentIndex(5);
    QEvent event(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&listing.list, &event);
    QCOMPARE(listing.category->currentIndex(), 5);
    QCOMPARE(listing.category->currentText(), "Bugs");
    QCOMPARE(listing.rows(), QStringList{"a"});
}

void TestActiveElementsList::manyTags()
{
    constexpr int count = 3000;
    Listing listing;
    listing.list.show();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < count; ++i)
        listing.add(listing.first, QString::number(i));
    QCOMPARE(listing.rows().size(), count);
    QCOMPARE(listing.widget->item(count - 1)->text(), QString::number(count - 1));
    listing.first.removeAnnotations();
    listing.first.clearUndoStack();
    QCOMPARE(listing.rows().size(), 0);
    QVERIFY2(timer.elapsed() < 60'000, "the list must not be built anew for each tag");
}

REGISTER_TEST(TestActiveElementsList)
#include "tst_activeelementslist.moc"
