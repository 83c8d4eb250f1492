// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QApplication>
#include <QCheckBox>
#include <QGraphicsTextItem>
#include <QLineEdit>
#include <QSettings>
#include <QTest>
#include <QTextCursor>
#include <QToolButton>

namespace {

/// The parts of the search bar, in the order in which they stand on it.
struct SearchBar
{
    explicit SearchBar(const WindowProbe &window)
        : box(window.bar("ScvSearchToolBar")->findChild<QComboBox *>()),
          buttons(window.bar("ScvSearchToolBar")->findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly)),
          checks(window.bar("ScvSearchToolBar")->findChildren<QCheckBox *>())
    {
        buttons.removeIf([](const QToolButton *button) {
            return button->text() != QLatin1String("Previous") && button->text() != QLatin1String("Next");
        });
    }
    void look(const QString &text) const { box->setEditText(text); }
    QToolButton *previous() const { return buttons.at(0); }
    QToolButton *next() const { return buttons.at(1); }

    QComboBox *box;
    QList<QToolButton *> buttons;
    QList<QCheckBox *> checks;
};

int foundAt(const WindowProbe &window)
{
    const QTextCursor cursor = window.page()->documentItem()->textItem()->textCursor();
    return cursor.hasSelection() ? cursor.selectionStart() : -1;
}

} // namespace

class TestSearchBar : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }

    void nextAndPrevious();
    void newTextStartsFromTheTop();
    void checkBoxesCount();
    void returnLooksForTheNext();
    void typedTextStaysAsTyped();
    void eachDocumentHasItsOwnPlace();
    void searchByCode();
    void pictures();
    void withoutDocument();
};

void TestSearchBar::nextAndPrevious()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"), "one two one two one")});
    const SearchBar bar(window);
    bar.look(QStringLiteral("one"));
    QList<int> places;
    for (QToolButton *button : {bar.next(), bar.next(), bar.next(), bar.previous(), bar.previous(), bar.next()}) {
        button->click();
        places.append(foundAt(window));
    }
    QCOMPARE(places, (QList<int>{0, 8, 16, 8, 0, 8}));
}

void TestSearchBar::newTextStartsFromTheTop()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"), "one two one two one")});
    const SearchBar bar(window);
    bar.look(QStringLiteral("two"));
    window->searchNext();
    window->searchNext();
    QCOMPARE(foundAt(window), 12);
    bar.look(QStringLiteral("one"));
    window->searchNext();
    QCOMPARE(foundAt(window), 0);
    // Backward from the top there is nothing.
    bar.look(QStringLiteral("two"));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    window->searchPrev();
    QCOMPARE(answers.texts(), QStringList{"Document searching finished."});
}

void TestSearchBar::checkBoxesCount()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"), "stone One one")});
    const SearchBar bar(window);
    const std::tuple<bool, bool, int> cases[]{{false, false, 2}, {true, false, 2}, {false, true, 6}, {true, true, 10}};
    for (const auto &[matchCase, words, place] : cases) {
        window.page()->resetSearch();
        bar.checks.at(0)->setChecked(matchCase);
        bar.checks.at(1)->setChecked(words);
        bar.look(QStringLiteral("one"));
        window->searchNext();
        QCOMPARE(foundAt(window), place);
    }
}

void TestSearchBar::returnLooksForTheNext()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"), "one two one")});
    window->showWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    window->showSearchToolBar();
    const SearchBar bar(window);
    QTRY_VERIFY(bar.box->hasFocus() || bar.box->isAncestorOf(QApplication::focusWidget()));
    QTest::keyClicks(bar.box, QStringLiteral("two"));
    QTest::keyClick(bar.box, Qt::Key_Return);
    QTRY_COMPARE(foundAt(window), 4);
}

void TestSearchBar::typedTextStaysAsTyped()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"), "there the There")});
    window->showWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window));
    window->showSearchToolBar();
    const SearchBar bar(window);
    QTRY_VERIFY(bar.box->hasFocus() || bar.box->isAncestorOf(QApplication::focusWidget()));
    for (const QString &text : {QStringLiteral("there"), QStringLiteral("the"), QStringLiteral("There")}) {
        bar.box->lineEdit()->selectAll();
        QTest::keyClicks(bar.box, text);
        QCOMPARE(bar.box->currentText(), text);
        QTest::keyClick(bar.box, Qt::Key_Return);
        QCOMPARE(bar.box->currentText(), text);
    }
}

void TestSearchBar::eachDocumentHasItsOwnPlace()
{
    const TestFiles files;
    const WindowProbe window(
        {files.write(QStringLiteral("a.txt"), "one one"), files.write(QStringLiteral("b.txt"), "one one one")});
    const SearchBar bar(window);
    bar.look(QStringLiteral("one"));
    window->searchNext();
    window->searchNext();
    QCOMPARE(foundAt(window), 4);
    window.stack()->setCurrentIndex(0);
    window->searchNext();
    QCOMPARE(foundAt(window), 0);
    window.stack()->setCurrentIndex(1);
    window->searchNext();
    QCOMPARE(foundAt(window), 8);
}

void TestSearchBar::searchByCode()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"), "one two one")});
    window->search(QStringLiteral("two"));
    QCOMPARE(foundAt(window), 4);
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    window->search(QStringLiteral("two"));
    QCOMPARE(answers.seen().size(), 1);
}

void TestSearchBar::pictures()
{
    const TestFiles files;
    const WindowProbe window({files.writePicture(QStringLiteral("a.png"))});
    const SearchBar bar(window);
    bar.look(QStringLiteral("one"));
    DialogAnswers answers;
    window->search(QStringLiteral("one"));
    window->searchPrev();
    QVERIFY(answers.seen().isEmpty());
    answers.click(QMessageBox::Ok);
    window->searchNext();
    QCOMPARE(answers.texts(), QStringList{"Document searching finished."});
}

void TestSearchBar::withoutDocument()
{
    const WindowProbe window;
    const SearchBar bar(window);
    bar.look(QStringLiteral("one"));
    DialogAnswers answers;
    window->search(QStringLiteral("one"));
    window->searchPrev();
    window->searchNext();
    QVERIFY(answers.seen().isEmpty());
}

REGISTER_TEST(TestSearchBar)
#include "tst_searchbar.moc"
