// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/activeelement.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/markpicture.h"
#include "support/testmain.h"
#include "widgets/activeelementdialog.h"
#include "widgets/activeelementslist.h"
#include "widgets/qtcolorpicker.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSettings>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>
#include <QUndoGroup>

namespace {

const QByteArray taggedText =
    "<!DOCTYPE Zettelwerk_2008>\n<Zettelwerk-xml zettel_werk_type=\"v12042008\" font_family=\"Courier\" "
    "font_size=\"10\" file_type=\"txt\">\n<text_contents><![CDATA[one\ntwo]]></text_contents>\n"
    "<active_tag category=\"Bug\" pos_x=\"40\" pos_y=\"50\" b_red=\"255\" author=\"Anna\" date=\"24.12.2008\" "
    "time=\"01:02:03\"><desc><![CDATA[first tag]]></desc></active_tag>\n"
    "<active_tag category=\"Note\" pos_x=\"300\" pos_y=\"2000\"><desc><![CDATA[second tag]]></desc></active_tag>\n"
    "</Zettelwerk-xml>\n";

QList<ActiveElement *> tagsOn(const Page *page)
{
    QList<ActiveElement *> tags;
    for (QGraphicsItem *item : page->items(Qt::AscendingOrder)) {
        if (auto *tag = dynamic_cast<ActiveElement *>(item))
            tags.append(tag);
    }
    return tags;
}

ActiveElementsList *tagList(const WindowProbe &window)
{
    return window->findChild<ActiveElementsList *>();
}

QListWidget *rowsOf(const WindowProbe &window)
{
    return tagList(window)->findChild<QListWidget *>();
}

QStringList rows(const WindowProbe &window)
{
    QCoreApplication::processEvents();
    QStringList texts;
    for (int i = 0; i < rowsOf(window)->count(); ++i)
        texts.append(rowsOf(window)->item(i)->text());
    return texts;
}

/// Fills in the dialog of a tag and accepts it.
void fillIn(QDialog *dialog, const QString &text)
{
    dialog->findChild<QTextEdit *>("descriptionText")->setPlainText(text);
    dialog->findChild<QLineEdit *>("authorEdit")->setText("Bert");
    for (QtColorPicker *picker : dialog->findChildren<QtColorPicker *>()) {
        if (picker->toolTip() == "Background color")
            picker->setCurrentColor(Qt::green);
    }
    dialog->findChild<QAbstractButton *>("okButton")->click();
}

void addTag(const WindowProbe &window, int id, const QString &text)
{
    DialogAnswers answers;
    answers.handle([text](QDialog *dialog) { fillIn(dialog, text); });
    window->addActiveElement(id);
    QCOMPARE(answers.left(), 0);
    QCOMPARE(answers.seen().size(), 1);
}

QPoint edgeOf(const PageView *view, const ActiveElement *tag)
{
    return view->mapFromScene(tag->sceneBoundingRect().topLeft()) + QPoint(2, 10);
}

} // namespace

/// Active tags as the user meets them: from files, through the two slots, in their dialogs and in their list.
class TestActiveTags : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void dialogsOfTheWindow();
    void openedFile();
    void openedAndSavedAgain();
    void addedTag_data();
    void addedTag();
    void addedWithAnUnknownNumber_data();
    void addedWithAnUnknownNumber();
    void addedAtTheMouse();
    void additionCancelled();
    void addedTagsBackgroundIsTheCategorys();
    void documentGoesWhileATagIsAdded();
    void undoAndRedo();
    void cutAndPaste();
    void copiedTagIsEmpty();
    void editedInItsDialog_data();
    void editedInItsDialog();
    void editingIsNoGesture_data();
    void editingIsNoGesture();
    void editingCancelled();
    void tagDiesInItsDialog();
    void listIsShownAndHidden();
    void listClosedByTheUser();
    void listOfAllDocuments();
    void jump();
    void jumpToAnotherDocument();
    void staleEntriesCannotBeReached_data();
    void staleEntriesCannotBeReached();
    void focusOfNothing();
    void fileThatFailsLeavesNoEntry();
    void windowGoesWithTheListOpen();
};

void TestActiveTags::dialogsOfTheWindow()
{
    const WindowProbe window;
    QVERIFY(tagList(window));
    QCOMPARE(tagList(window)->parent(), &*window);
    QCOMPARE(tagList(window)->windowType(), Qt::Tool);
    QVERIFY(!tagList(window)->isVisible());
    const auto *dialog = window->findChild<ActiveElementDialog *>();
    QVERIFY(dialog);
    QCOMPARE(dialog->parent(), &*window);
    const Qt::WindowFlags asked = Qt::Drawer | Qt::WindowTitleHint | Qt::CustomizeWindowHint;
    QCOMPARE(dialog->windowFlags() & asked, asked);
    QVERIFY(!dialog->windowFlags().testFlag(Qt::WindowCloseButtonHint));
}

void TestActiveTags::openedFile()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.oxn", taggedText)});
    const QList<ActiveElement *> tags = tagsOn(window.page());
    QCOMPARE(tags.size(), 2);
    QCOMPARE(tags.at(0)->pos(), QPointF(40, 50));
    QCOMPARE(tags.at(0)->category(), 4);
    QCOMPARE(tags.at(0)->author(), "Anna");
    // It can be undone away, but is no change.
    QVERIFY(!window.page()->isModified());
    QVERIFY(!window->windowTitle().contains('*'));
    QVERIFY(!window.action("actionSave")->isEnabled());
    QVERIFY(window.action("actionUndo")->isEnabled());
    QCOMPARE(rows(window), (QStringList{"first tag", "second tag"}));
    window->undoGroup()->undo();
    window->undoGroup()->undo();
    QVERIFY(tagsOn(window.page()).isEmpty());
    QVERIFY(!window->undoGroup()->canUndo());
}

void TestActiveTags::openedAndSavedAgain()
{
    const TestFiles files;
    const QString path = files.write("a.oxn", taggedText);
    QByteArray once;
    {
        const WindowProbe window({path});
        window.page()->setModified(true);
        window->saveFile();
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        once = file.readAll();
        QCOMPARE(once.count("<active_tag "), 2);
    }
    const WindowProbe window({path});
    window->saveFile();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), once);
}

void TestActiveTags::addedTag_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QColor>("frame");
    QTest::addColumn<QString>("icon");
    const QColor amber(255, 214, 102, 120);
    const QColor amberFrame(177, 140, 69);
    QTest::newRow("Idea") << 0 << amber << amberFrame << ":/active_tags/idea.png";
    QTest::newRow("Note") << 1 << amber << amberFrame << ":/active_tags/note.png";
    QTest::newRow("Question") << 2 << amber << amberFrame << ":/active_tags/question.png";
    QTest::newRow("Important") << 3 << amber << amberFrame << ":/active_tags/important.png";
    QTest::newRow("Bug") << 4 << QColor(255, 150, 150, 120) << QColor(180, 4, 2) << ":/active_tags/bug.png";
}

void TestActiveTags::addedTag()
{
    QFETCH(const int, id);
    QFETCH(const QColor, background);
    QFETCH(const QString, icon);
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    addTag(window, id, "typed");
    const QList<ActiveElement *> tags = tagsOn(window.page());
    QCOMPARE(tags.size(), 1);
    const ActiveElement *tag = tags.first();
    QCOMPARE(tag->category(), id);
    QCOMPARE(tag->description(), "typed");
    QCOMPARE(tag->author(), "Bert");
    QCOMPARE(tag->background(), background);
    QCOMPARE(tag->icon().toImage(), QPixmap(icon).toImage());
    for (const auto flag :
         {QGraphicsItem::ItemIsMovable, QGraphicsItem::ItemIsSelectable, QGraphicsItem::ItemIsFocusable})
        QVERIFY(tag->flags().testFlag(flag));
    QVERIFY(window.page()->isModified());
    QVERIFY(window->undoGroup()->canUndo());
    QCOMPARE(rows(window), QStringList{"typed"});
    QVERIFY(!rowsOf(window)->item(0)->icon().isNull());
    window.forgetChanges();
}

void TestActiveTags::addedWithAnUnknownNumber_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("behind the last") << 5;
    QTest::newRow("negative") << -1;
    QTest::newRow("largest") << INT_MAX;
}

void TestActiveTags::addedWithAnUnknownNumber()
{
    QFETCH(const int, id);
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    LogProbe log;
    addTag(window, id, "typed");
    QVERIFY(log.traceSinceMark().contains(" Unknown type of active element!"));
    const QList<ActiveElement *> tags = tagsOn(window.page());
    QCOMPARE(tags.size(), 1);
    QCOMPARE(tags.first()->category(), 0);
    QVERIFY(tags.first()->icon().isNull());
    // Nothing has replaced what was chosen in the dialog.
    QCOMPARE(tags.first()->background(), QColor(0, 255, 0, 120));
    window.forgetChanges();
}

void TestActiveTags::addedAtTheMouse()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    window.action("actionTransformationMode")->trigger();
    QTest::mouseClick(window.view()->viewport(), Qt::LeftButton, {}, window.view()->mapFromScene(30, 20));
    QCOMPARE(QPointF(window.page()->lastMouseX(), window.page()->lastMouseY()), QPointF(30, 20));
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        QVERIFY(!window.page()->focusItem());
        QCOMPARE(dialog->findChild<QTextEdit *>()->toPlainText(), "");
        dialog->accept();
    });
    window->addActiveElement(1);
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().title, "Active Tag");
    QCOMPARE(tagsOn(window.page()).first()->pos(), QPointF(30 + 24, 20 + 24 + 12));
    QCOMPARE(tagsOn(window.page()).first()->font(), QFont("Arial", 12));
    window.forgetChanges();
}

void TestActiveTags::additionCancelled()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    {
        DialogAnswers answers;
        answers.handle([](QDialog *dialog) {
            dialog->findChild<QLineEdit *>("authorEdit")->setText("Bert");
            dialog->reject();
        });
        window->addActiveElement(0);
        QCOMPARE(answers.seen().size(), 1);
    }
    QVERIFY(tagsOn(window.page()).isEmpty());
    QVERIFY(!window.page()->isModified());
    QVERIFY(!window->undoGroup()->canUndo());
    QVERIFY(rows(window).isEmpty());
    // The next one, in the same dialog, starts afresh.
    DialogAnswers laterAnswers;
    laterAnswers.handle([](QDialog *dialog) {
        QCOMPARE(dialog->findChild<QLineEdit *>("authorEdit")->text(), "");
        dialog->reject();
    });
    window->addActiveElement(0);
    QCOMPARE(laterAnswers.seen().size(), 1);
}

void TestActiveTags::addedTagsBackgroundIsTheCategorys()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    addTag(window, 4, "typed"); // with a green background chosen
    ActiveElement *tag = tagsOn(window.page()).first();
    tag->setSelected(false);
    ActiveElement plain;
    plain.setCategory(4);
    plain.setIcon(tag->icon());
    plain.setPlainText("typed");
    plain.setAuthor("Bert");
    plain.setFont(tag->font());
    plain.setDefaultTextColor(tag->defaultTextColor());
    const QRectF canvas(-60, -80, 300, 220);
    const QImage picture = MarkPicture::ofItem(&plain, canvas);
    window.page()->removeItem(tag);
    tag->setPos(0, 0);
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(tag, canvas), picture), QString());
    window.page()->addItem(tag);
    window.forgetChanges();
}

void TestActiveTags::documentGoesWhileATagIsAdded()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    Page *page = window.page();
    {
        DialogAnswers answers;
        answers.handle([&](QDialog *dialog) {
            window.stack()->closeAllTabs();
            fillIn(dialog, "late");
        });
        window->addActiveElement(0);
    }
    // The page lives on without its tab, and the tag with it.
    QCOMPARE(tagsOn(page).size(), 1);
    QCOMPARE(rows(window), QStringList{"late"});
    // Nor does the death of the page do harm.
    window->newProject();
    Page *doomed = window.page();
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        delete doomed;
        fillIn(dialog, "too late");
    });
    window->addActiveElement(0);
    QCOMPARE(rows(window), QStringList{"late"});
    QCOMPARE(answers.left(), 0);
}

void TestActiveTags::undoAndRedo()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    addTag(window, 2, "typed");
    const ActiveElement *tag = tagsOn(window.page()).first();
    window.action("actionUndo")->trigger();
    QVERIFY(tagsOn(window.page()).isEmpty());
    QCOMPARE(rows(window), QStringList{"typed"});
    window.action("actionRedo")->trigger();
    QCOMPARE(tagsOn(window.page()).first(), tag);
    QCOMPARE(rows(window), QStringList{"typed"});
    window.forgetChanges();
}

void TestActiveTags::cutAndPaste()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.oxn", taggedText), files.write("b.txt")});
    window.stack()->setCurrentIndex(0);
    window.action("actionTransformationMode")->trigger();
    ActiveElement *tag = tagsOn(window.page()).first();
    tag->setSelected(true);
    window->cut();
    QCOMPARE(tagsOn(window.page()).size(), 1);
    QCOMPARE(rows(window).size(), 2);
    window.stack()->setCurrentIndex(1);
    window->paste();
    // The very same, on another page.
    QCOMPARE(tagsOn(window.page()), QList<ActiveElement *>{tag});
    QCOMPARE(tag->description(), "first tag");
    QCOMPARE(rows(window), (QStringList{"first tag", "second tag"}));
    // Its entry names the page that it has left.
    rowsOf(window)->setCurrentRow(0);
    QCOMPARE(window.stack()->currentIndex(), 1);
    window.forgetChanges();
}

void TestActiveTags::copiedTagIsEmpty()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.oxn", taggedText)});
    window.action("actionTransformationMode")->trigger();
    ActiveElement *tag = tagsOn(window.page()).first();
    tag->setSelected(true);
    window->copy();
    window->paste();
    const QList<ActiveElement *> tags = tagsOn(window.page());
    QCOMPARE(tags.size(), 3);
    const ActiveElement *pasted = tags.last();
    QCOMPARE(pasted->description(), QString());
    QCOMPARE(pasted->author(), QString());
    QVERIFY(pasted->icon().isNull());
    QCOMPARE(pasted->pos(), QPointF(0, 0));
    QVERIFY(pasted->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    QCOMPARE(rows(window).size(), 2);
    window.forgetChanges();
}

void TestActiveTags::editedInItsDialog_data()
{
    QTest::addColumn<bool>("doubleClick");
    QTest::newRow("Ctrl and click") << false;
    QTest::newRow("double click") << true;
}

void TestActiveTags::editedInItsDialog()
{
    QFETCH(const bool, doubleClick);
    const TestFiles files;
    const WindowProbe window({files.write("a.oxn", taggedText)});
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    window.action("actionTransformationMode")->trigger();
    ActiveElement *tag = tagsOn(window.page()).first();
    const QPoint place = edgeOf(window.view(), tag);
    QVERIFY(!window.page()->isModified());
    QPointer<QDialog> seen;
    Qt::WindowFlags flags;
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        seen = dialog;
        flags = dialog->windowFlags();
        QCOMPARE(dialog->findChild<QTextEdit *>("descriptionText")->toPlainText(), "first tag");
        QCOMPARE(dialog->findChild<QLineEdit *>("authorEdit")->text(), "Anna");
        QVERIFY(dialog->findChild<QToolButton *>("addDateToolButton")->isChecked());
        fillIn(dialog, "edited");
    });
    if (doubleClick)
        QTest::mouseDClick(window.view()->viewport(), Qt::LeftButton, {}, place);
    else
        QTest::mouseClick(window.view()->viewport(), Qt::LeftButton, Qt::ControlModifier, place);
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().parent, nullptr);
    QVERIFY(seen.isNull());
    QCOMPARE(flags.testFlag(Qt::WindowCloseButtonHint), !doubleClick);
    QCOMPARE(tag->description(), "edited");
    QCOMPARE(tag->author(), "Bert");
    // This time the background counts, and the frame with it.
    QCOMPARE(tag->background(), QColor(0, 255, 0, 120));
    QCOMPARE(tag->category(), 4);
    QVERIFY(window.page()->isModified());
    QVERIFY(window.action("actionSave")->isEnabled());
    // The list does not hear of it.
    QCOMPARE(rows(window).first(), "first tag");
    window.forgetChanges();
}

void TestActiveTags::editingIsNoGesture_data()
{
    QTest::addColumn<QString>("tool");
    for (const char *tool : {"actionThinRedPen", "actionToolEraser", "actionTextBox"})
        QTest::newRow(tool) << QString::fromLatin1(tool);
}

/// The dialog takes the release of the press that opens it.
void TestActiveTags::editingIsNoGesture()
{
    QFETCH(const QString, tool);
    const TestFiles files;
    const WindowProbe window({files.write("a.oxn", taggedText)});
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    window.action(tool.toLatin1())->trigger();
    const qsizetype items = window.page()->items().size();
    DialogAnswers answers;
    answers.reject();
    QTest::mousePress(window.view()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      edgeOf(window.view(), tagsOn(window.page()).first()));
    QCOMPARE(answers.seen().size(), 1);
    QTest::mouseMove(window.view()->viewport(), QPoint(300, 300));
    QTest::mouseMove(window.view()->viewport(), QPoint(340, 330));
    QTest::mouseClick(window.view()->viewport(), Qt::MiddleButton, {}, QPoint(360, 340));
    QCOMPARE(window.page()->items().size(), items);
    QVERIFY(!window.page()->isModified());
}

void TestActiveTags::editingCancelled()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.oxn", taggedText)});
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    const ActiveElement *tag = tagsOn(window.page()).first();
    DialogAnswers answers;
    answers.reject();
    QTest::mouseClick(window.view()->viewport(), Qt::LeftButton, Qt::ControlModifier, edgeOf(window.view(), tag));
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(tag->description(), "first tag");
    QVERIFY(!window.page()->isModified());
}

void TestActiveTags::tagDiesInItsDialog()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.oxn", taggedText)});
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    window.action("actionTransformationMode")->trigger();
    const QPointer<ActiveElement> tag = tagsOn(window.page()).first();
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        window.page()->clearUndoStack();
        window.page()->removeAnnotations();
        QVERIFY(tag.isNull());
        fillIn(dialog, "for nobody");
    });
    QTest::mouseClick(window.view()->viewport(), Qt::LeftButton, Qt::ControlModifier, edgeOf(window.view(), tag));
    QCOMPARE(answers.left(), 0);
    QVERIFY(rows(window).isEmpty());
    QTest::mouseClick(window.view()->viewport(), Qt::LeftButton, {}, QPoint(50, 50));
    window.forgetChanges();
}

void TestActiveTags::listIsShownAndHidden()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    QAction *action = window.action("actionShowActiveElementsList");
    action->setChecked(true);
    QVERIFY(tagList(window)->isVisible());
    window->updateMenus();
    QVERIFY(action->isChecked());
    action->setChecked(false);
    QVERIFY(!tagList(window)->isVisible());
    window->showActiveElementsList(true);
    QVERIFY(tagList(window)->isVisible());
    QVERIFY(!action->isChecked());
    window->updateMenus();
    QVERIFY(action->isChecked());
    window->showActiveElementsList(false);
}

void TestActiveTags::listClosedByTheUser()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    QAction *action = window.action("actionShowActiveElementsList");
    action->setChecked(true);
    tagList(window)->close();
    window->updateMenus();
    QVERIFY(!action->isChecked());
    action->setChecked(true);
    QVERIFY(tagList(window)->isVisible());
    QTest::keyClick(tagList(window), Qt::Key_Escape);
    QVERIFY(!tagList(window)->isVisible());
}

void TestActiveTags::listOfAllDocuments()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.oxn", taggedText), files.write("b.txt")});
    addTag(window, 1, "in b");
    QCOMPARE(rows(window), (QStringList{"first tag", "second tag", "in b"}));
    tagList(window)->findChild<QCheckBox *>()->click();
    QCOMPARE(rows(window), QStringList{"in b"});
    window.stack()->setCurrentIndex(0);
    QCOMPARE(rows(window), QStringList{"in b"});
    tagList(window)->findChild<QCheckBox *>()->click();
    tagList(window)->findChild<QCheckBox *>()->click();
    QCOMPARE(rows(window), (QStringList{"first tag", "second tag"}));
    window.forgetChanges();
    window.stack()->closeAllTabs();
    tagList(window)->findChild<QComboBox *>()->setCurrentIndex(1);
    tagList(window)->findChild<QComboBox *>()->setCurrentIndex(0);
    QCOMPARE(rows(window), QStringList());
    tagList(window)->findChild<QCheckBox *>()->click();
    QCOMPARE(rows(window).size(), 3);
}

void TestActiveTags::jump()
{
    const TestFiles files;
    QByteArray longText = taggedText;
    longText.replace("one\ntwo", QByteArray("line\n").repeated(300));
    const WindowProbe window({files.write("a.oxn", longText)});
    window->showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&*window));
    QCOMPARE(rows(window).size(), 2);
    const ActiveElement *tag = tagsOn(window.page()).last();
    const auto seen = [&] {
        return window.view()->mapToScene(window.view()->viewport()->rect()).boundingRect().toRect();
    };
    QVERIFY(!seen().intersects(tag->sceneBoundingRect().toRect()));
    rowsOf(window)->setCurrentRow(1);
    QVERIFY(seen().contains(tag->sceneBoundingRect().toRect()));
    QVERIFY(seen().bottom() >= tag->sceneBoundingRect().bottom() + 190);
    QVERIFY(window.page()->focusItem());
    QVERIFY(!dynamic_cast<ActiveElement *>(window.page()->focusItem()));
}

void TestActiveTags::jumpToAnotherDocument()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.oxn", taggedText), files.write("b.txt")});
    QCOMPARE(window.stack()->currentIndex(), 1);
    QCOMPARE(rows(window).size(), 2);
    rowsOf(window)->setCurrentRow(0);
    QCOMPARE(window.stack()->currentIndex(), 0);
}

void TestActiveTags::staleEntriesCannotBeReached_data()
{
    using Spoil = void (*)(const WindowProbe &window);
    QTest::addColumn<Spoil>("spoil");
    QTest::addColumn<int>("rowsLeft");
    QTest::newRow("undone") << Spoil([](const WindowProbe &window) { window->undoGroup()->undo(); }) << 2;
    QTest::newRow("cut") << Spoil([](const WindowProbe &window) {
        window.action("actionTransformationMode")->trigger();
        tagsOn(window.page()).last()->setSelected(true);
        window->cut();
    }) << 2;
    QTest::newRow("document closed") << Spoil([](const WindowProbe &window) { window->closeFile(); }) << 2;
    QTest::newRow("all removed") << Spoil([](const WindowProbe &window) {
        QSettings().setValue("General/WarnRemoveAllAnnotations", false);
        window->removeAllAnnotations();
    }) << 0;
    QTest::newRow("removed and on the clipboard") << Spoil([](const WindowProbe &window) {
        window.action("actionTransformationMode")->trigger();
        tagsOn(window.page()).last()->setSelected(true);
        window->cut();
        QSettings().setValue("General/WarnRemoveAllAnnotations", false);
        window->removeAllAnnotations();
    }) << 1;
    QTest::newRow("deleted") << Spoil([](const WindowProbe &window) {
        window.page()->clearUndoStack();
        delete tagsOn(window.page()).last();
    }) << 1;
}

void TestActiveTags::staleEntriesCannotBeReached()
{
    using Spoil = void (*)(const WindowProbe &window);
    QFETCH(const Spoil, spoil);
    QFETCH(const int, rowsLeft);
    const TestFiles files;
    const WindowProbe window({files.write("b.txt"), files.write("a.oxn", taggedText)});
    QCOMPARE(rows(window).size(), 2);
    spoil(window);
    window.stack()->setCurrentIndex(0);
    for (int row = rowsOf(window)->count() - 1; row >= 0; --row) {
        const bool isLive = rowsOf(window)->item(row)->text() == "first tag" && window.stack()->count() == 2 &&
                            rowsLeft > 0 && !tagsOn(window.stack()->pageAt(1)).isEmpty();
        if (isLive)
            continue;
        rowsOf(window)->setCurrentRow(row);
        QCOMPARE(window.stack()->currentIndex(), 0);
    }
    QCOMPARE(rows(window).size(), rowsLeft);
    window.forgetChanges();
}

void TestActiveTags::focusOfNothing()
{
    const TestFiles files;
    ActiveElement tag;
    {
        const WindowProbe window;
        window->focusActiveElement(&tag, nullptr);
        window->focusActiveElement(nullptr, nullptr);
    }
    const WindowProbe window({files.write("a.oxn", taggedText)});
    window->focusActiveElement(nullptr, window.page());
    window->focusActiveElement(&tag, window.page());
    window->focusActiveElement(tagsOn(window.page()).first(), nullptr);
    Page unseen(&*window);
    auto *other = new ActiveElement;
    unseen.addActiveElement(other);
    window->focusActiveElement(other, &unseen);
    QCOMPARE(window.stack()->currentIndex(), 0);
}

void TestActiveTags::fileThatFailsLeavesNoEntry()
{
    const TestFiles files;
    const QString path = files.write("a.oxn", "<a zettel_werk_type='x'><active_tag><desc>a</desc></active_tag>"
                                              "<img_contents/></a>");
    QSettings().setValue("General/RecentFileList", QStringList{path});
    const WindowProbe window;
    DialogAnswers answers;
    answers.accept();
    window.recentActions().first()->trigger();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(window.page(), nullptr);
    QVERIFY(rows(window).isEmpty());
    QVERIFY(!window->undoGroup()->canUndo());
}

void TestActiveTags::windowGoesWithTheListOpen()
{
    const TestFiles files;
    WindowProbe window({files.write("a.oxn", taggedText)});
    window->showWindow();
    window->showActiveElementsList(true);
    tagList(window)->findChild<QCheckBox *>()->click();
    window.action("actionTransformationMode")->trigger();
    tagsOn(window.page()).last()->setSelected(true);
    window->cut();
    window.forgetChanges();
    window.destroy();
    QCoreApplication::processEvents();
    QVERIFY(QApplication::topLevelWidgets().isEmpty() || !QApplication::activeModalWidget());
}

REGISTER_TEST(TestActiveTags)
#include "tst_activetags.moc"
