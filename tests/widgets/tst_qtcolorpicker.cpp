// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/dialogs.h"
#include "support/testmain.h"
#include "widgets/colorpickerbutton.h"
#include "widgets/colorpickeritem.h"
#include "widgets/colorpickerpopup.h"
#include "widgets/qtcolorpicker.h"

#include <QApplication>
#include <QColorDialog>
#include <QGridLayout>
#include <QScreen>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>
#include <QTranslator>
#include <QVBoxLayout>
#include <QWindow>

namespace {

ColorPickerPopup *popupOf(const QtColorPicker &picker)
{
    return picker.findChild<ColorPickerPopup *>();
}

QWidget *cellAt(const ColorPickerPopup *popup, int row, int column)
{
    const QLayoutItem *item = static_cast<QGridLayout *>(popup->layout())->itemAtPosition(row, column);
    return item ? item->widget() : nullptr;
}

ColorPickerItem *itemAt(const ColorPickerPopup *popup, int row, int column)
{
    return qobject_cast<ColorPickerItem *>(cellAt(popup, row, column));
}

QPair<int, int> cellOf(const ColorPickerPopup *popup, const QWidget *widget)
{
    for (int row = 0; row < 10; ++row) {
        for (int column = 0; column < 10; ++column) {
            if (widget && cellAt(popup, row, column) == widget)
                return {row, column};
        }
    }
    return {-1, -1};
}

/// The cells in grid order.
QList<ColorPickerItem *> itemsOf(const ColorPickerPopup *popup)
{
    QList<ColorPickerItem *> items = popup->findChildren<ColorPickerItem *>();
    std::sort(items.begin(), items.end(),
              [popup](const QWidget *a, const QWidget *b) { return cellOf(popup, a) < cellOf(popup, b); });
    return items;
}

QList<ColorPickerItem *> selectedItems(const ColorPickerPopup *popup)
{
    QList<ColorPickerItem *> items = itemsOf(popup);
    items.removeIf([](const ColorPickerItem *item) { return !item->isSelected(); });
    return items;
}

/// Presses the button and waits for its popup.
bool openPopup(QtColorPicker &picker)
{
    QTest::mouseClick(&picker, Qt::LeftButton);
    return QTest::qWaitForWindowExposed(popupOf(picker));
}

/// Where the popup was put. The offscreen platform draws a frame round every window, popups too, and places that.
QRect placeOf(const ColorPickerPopup *popup)
{
    const QMargins frame = popup->windowHandle()->frameMargins();
    return popup->geometry().translated(-frame.left(), -frame.top());
}

/// Sends the key where the window system would: to the popup's window.
void typeInto(ColorPickerPopup *popup, Qt::Key key)
{
    QTest::keyClick(popup->windowHandle(), key);
}

/// Answers every text with its upper case, so that what was translated anew is seen.
class UpperCaseTranslator : public QTranslator
{
public:
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        return QString::fromUtf8(sourceText).toUpper();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestQtColorPicker : public QObject
{
    Q_OBJECT

private slots:
    void startsBlackAndEmpty();
    void standardColorsFillTheGrid();
    void firstColorBecomesCurrent();
    void columnsMayBeGiven();
    void gridWithoutColorDialog();
    void insertsAtIndex();
    void existingColorAddsNoCell();
    void invalidColorsAreIgnored();
    void newColorIsAddedAsCustom();
    void sameColorEmitsNothing();
    void marksStayUntilAChoice();
    void choiceWithoutACellClearsTheMarks();

    void opensBelowThePicker();
    void staysOnTheDesktop_data();
    void staysOnTheDesktop();
    void sizeFollowsTheGrid();
    void clickChoosesAColor();
    void clickOnTheCurrentColorClosesQuietly();
    void escapeChangesNothing();
    void pressBesideThePopupClosesIt();
    void focusStartsOnTheCurrentColor();
    void focusStartsOnTheFirstMarkByColumns();
    void mouseMovesTheFocus();
    void arrowKeys_data();
    void arrowKeys();
    void chooseByKey_data();
    void chooseByKey();

    void oneKeyOneDialog_data();
    void oneKeyOneDialog();
    void clickOpensTheDialog();
    void dialogStartsFromTheLastChosenColor();
    void dialogColorIsTakenWithItsAlpha();
    void dialogColorOfTheGridAddsNoCell();
    void cancelledDialogChangesNothing();
    void deletedWhileTheDialogRuns();
    void deletedWhileThePopupIsOpen();
    void deletedByItsOwnSignal();

    void cellPainting();
    void moreButtonPainting();
    void moreButtonShadow();
    void iconShowsTheColor();
    void iconFollowsThePalette();
    void languageChange();
    void hasAccessibleNames();
};

void TestQtColorPicker::startsBlackAndEmpty()
{
    const QtColorPicker picker(nullptr, -1, true);
    QCOMPARE(picker.currentColor(), QColor(Qt::black));
    QVERIFY(picker.isCheckable());
    QVERIFY(!picker.isChecked());
    QCOMPARE(picker.focusPolicy(), Qt::StrongFocus);
    QVERIFY(picker.autoFillBackground());
    QCOMPARE(picker.property("colorDialog").toBool(), true);
    const ColorPickerPopup *popup = popupOf(picker);
    QVERIFY(popup->windowFlags().testFlag(Qt::Popup));
    QCOMPARE(popup->frameShape(), QFrame::StyledPanel);
    QVERIFY(itemsOf(popup).isEmpty());
}

void TestQtColorPicker::standardColorsFillTheGrid()
{
    QtColorPicker picker(nullptr, -1, true);
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    picker.setStandardColors();
    const QStringList names{"Black",  "White",       "Red",  "Dark red",  "Green",     "Dark green",
                            "Blue",   "Dark blue",   "Cyan", "Dark cyan", "Magenta",   "Dark magenta",
                            "Yellow", "Dark yellow", "Gray", "Dark gray", "Light gray"};
    const QList<Qt::GlobalColor> colors{Qt::black,     Qt::white,       Qt::red,      Qt::darkRed,    Qt::green,
                                        Qt::darkGreen, Qt::blue,        Qt::darkBlue, Qt::cyan,       Qt::darkCyan,
                                        Qt::magenta,   Qt::darkMagenta, Qt::yellow,   Qt::darkYellow, Qt::gray,
                                        Qt::darkGray,  Qt::lightGray};
    const ColorPickerPopup *popup = popupOf(picker);
    const QList<ColorPickerItem *> items = itemsOf(popup);
    QCOMPARE(items.size(), 17);
    for (int i = 0; i < items.size(); ++i) {
        QCOMPARE(items.at(i)->text(), names.at(i));
        QCOMPARE(items.at(i)->toolTip(), names.at(i));
        QCOMPARE(items.at(i)->color(), QColor(colors.at(i)));
        QCOMPARE(cellOf(popup, items.at(i)), qMakePair(i / 5, i % 5));
        QCOMPARE(items.at(i)->size(), QSize(22, 20));
    }
    const QWidget *more = cellAt(popup, 3, 2);
    QVERIFY(qobject_cast<const ColorPickerButton *>(more));
    QCOMPARE(more->size(), QSize(24, 21));
    QCOMPARE(popup->layout()->contentsMargins(), QMargins(1, 1, 1, 1));
    QCOMPARE(popup->layout()->spacing(), 0);
    QCOMPARE(picker.currentColor(), QColor(Qt::black));
    QCOMPARE(changed.count(), 0);
}

void TestQtColorPicker::firstColorBecomesCurrent()
{
    QtColorPicker picker(nullptr, -1, true);
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    picker.insertColor(Qt::red, "Red");
    QCOMPARE(picker.currentColor(), QColor(Qt::red));
    picker.insertColor(Qt::blue, "Blue");
    QCOMPARE(picker.currentColor(), QColor(Qt::red));
    QCOMPARE(changed.count(), 0);
}

void TestQtColorPicker::columnsMayBeGiven()
{
    QtColorPicker picker(nullptr, 3, true);
    picker.setStandardColors();
    const ColorPickerPopup *popup = popupOf(picker);
    QVERIFY(cellAt(popup, 0, 2));
    QVERIFY(!cellAt(popup, 0, 3));
    QCOMPARE(itemAt(popup, 5, 1)->text(), "Light gray");
    QVERIFY(qobject_cast<ColorPickerButton *>(cellAt(popup, 5, 2)));

    QtColorPicker zero(nullptr, 0, true);
    zero.setStandardColors();
    QVERIFY(qobject_cast<ColorPickerButton *>(cellAt(popupOf(zero), 3, 2)));
}

void TestQtColorPicker::gridWithoutColorDialog()
{
    QtColorPicker picker(nullptr, -1, false);
    picker.setStandardColors();
    QCOMPARE(picker.property("colorDialog").toBool(), false);
    QVERIFY(!picker.findChild<ColorPickerButton *>());
    QVERIFY(!cellAt(popupOf(picker), 3, 2));
}

void TestQtColorPicker::insertsAtIndex()
{
    QtColorPicker picker(nullptr, 10, false);
    picker.insertColor(Qt::red, "a");
    picker.insertColor(Qt::green, "b");
    picker.insertColor(Qt::blue, "first", 0);
    picker.insertColor(Qt::cyan, "last", -1);
    picker.insertColor(Qt::gray, "beyond", 99);
    picker.insertColor(Qt::white, "second", 1);
    QStringList texts;
    for (const ColorPickerItem *item : itemsOf(popupOf(picker)))
        texts.append(item->text());
    QCOMPARE(texts, QStringList({"first", "second", "a", "b", "last", "beyond"}));
}

void TestQtColorPicker::existingColorAddsNoCell()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.insertColor(Qt::cyan, "Something else");
    const ColorPickerPopup *popup = popupOf(picker);
    QCOMPARE(itemsOf(popup).size(), 17);
    QCOMPARE(selectedItems(popup), QList{popup->find(Qt::cyan)});
    QCOMPARE(popup->find(Qt::cyan)->text(), "Cyan");
    QCOMPARE(popup->focusWidget(), popup->find(Qt::cyan));
    QCOMPARE(picker.currentColor(), QColor(Qt::black));
}

void TestQtColorPicker::invalidColorsAreIgnored()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.insertColor(QColor(), "nothing");
    QVERIFY(itemsOf(popupOf(picker)).isEmpty());
    picker.setStandardColors();
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    picker.setCurrentColor(QColor());
    picker.setCurrentColor(QColor::fromString("no such colour"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(picker.currentColor(), QColor(Qt::black));
    QCOMPARE(itemsOf(popupOf(picker)).size(), 17);
}

void TestQtColorPicker::newColorIsAddedAsCustom()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    const QColor mixed(10, 10, 162);
    picker.setCurrentColor(mixed);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).value<QColor>(), mixed);
    QCOMPARE(picker.currentColor(), mixed);
    QCOMPARE(picker.text(), "Custom");
    const QList<ColorPickerItem *> items = itemsOf(popupOf(picker));
    QCOMPARE(items.size(), 18);
    QCOMPARE(items.last()->toolTip(), "Custom");
    QCOMPARE(items.last()->color(), mixed);
    QVERIFY(qobject_cast<ColorPickerButton *>(cellAt(popupOf(picker), 3, 3)));

    // The same red, green and blue with another alpha is another colour.
    picker.setCurrentColor(QColor(10, 10, 162, 100));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(itemsOf(popupOf(picker)).size(), 19);
}

void TestQtColorPicker::sameColorEmitsNothing()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    picker.setCurrentColor(Qt::black);
    QCOMPARE(changed.count(), 0);
    picker.setCurrentColor(Qt::red);
    picker.setCurrentColor(Qt::red);
    picker.setCurrentColor(QColor::fromHsv(0, 255, 255));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(itemsOf(popupOf(picker)).size(), 17);
    QCOMPARE(picker.text(), "Red");
}

void TestQtColorPicker::marksStayUntilAChoice()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    const ColorPickerPopup *popup = popupOf(picker);
    // The first colour was marked, and lost its mark to the next one that came.
    QVERIFY(selectedItems(popup).isEmpty());
    picker.setCurrentColor(Qt::red);
    picker.setCurrentColor(Qt::yellow);
    QCOMPARE(selectedItems(popup), QList({popup->find(Qt::red), popup->find(Qt::yellow)}));

    picker.show();
    QVERIFY(openPopup(picker));
    QTest::mouseClick(popup->find(Qt::gray), Qt::LeftButton);
    QCOMPARE(selectedItems(popup), QList{popup->find(Qt::gray)});

    // A colour that is new to the grid takes the mark from the one that was chosen there last.
    picker.setCurrentColor(Qt::blue);
    const QColor mixed(1, 2, 3);
    picker.setCurrentColor(mixed);
    QCOMPARE(selectedItems(popup), QList({popup->find(Qt::blue), popup->find(mixed)}));
}

void TestQtColorPicker::choiceWithoutACellClearsTheMarks()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.setCurrentColor(Qt::red);
    picker.show();
    QVERIFY(openPopup(picker));
    ColorPickerPopup *popup = popupOf(picker);
    QSignalSpy chosen(popup, &ColorPickerPopup::selected);
    popup->updateSelected();
    QVERIFY(selectedItems(popup).isEmpty());
    QVERIFY(!popup->isVisible());
    QCOMPARE(chosen.count(), 0);
    QCOMPARE(picker.currentColor(), QColor(Qt::red));

    // Opening the grid marks the current colour again.
    QVERIFY(openPopup(picker));
    QCOMPARE(selectedItems(popup), QList{popup->find(Qt::red)});
}

void TestQtColorPicker::opensBelowThePicker()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.move(100, 100);
    picker.show();
    QVERIFY(QTest::qWaitForWindowExposed(&picker));
    QVERIFY(openPopup(picker));
    QVERIFY(picker.isChecked());
    QCOMPARE(placeOf(popupOf(picker)).topLeft(), picker.mapToGlobal(picker.rect().bottomLeft()));
    QCOMPARE(popupOf(picker)->size(), popupOf(picker)->sizeHint());
}

void TestQtColorPicker::staysOnTheDesktop_data()
{
    QTest::addColumn<QPoint>("place"); // of the picker, in fractions of 100 of the desktop
    QTest::newRow("right edge") << QPoint(100, 50);
    QTest::newRow("bottom edge") << QPoint(50, 100);
    QTest::newRow("bottom right corner") << QPoint(100, 100);
    QTest::newRow("beyond the left edge") << QPoint(-1, 50);
    QTest::newRow("beyond the top edge") << QPoint(50, -10);
}

void TestQtColorPicker::staysOnTheDesktop()
{
    QFETCH(QPoint, place);
    const QRect desktop = QGuiApplication::primaryScreen()->availableGeometry();
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.resize(24, 24);
    picker.move(desktop.left() + place.x() * (desktop.width() - 24) / 100,
                desktop.top() + place.y() * (desktop.height() - 24) / 100);
    picker.show();
    QVERIFY(QTest::qWaitForWindowExposed(&picker));
    QVERIFY(openPopup(picker));
    const QRect popup = placeOf(popupOf(picker));
    QVERIFY2(desktop.contains(popup), qPrintable(QDebug::toString(popup)));
    if (place.x() == 100)
        QCOMPARE(popup.right(), desktop.right());
    if (place.y() == 100)
        QCOMPARE(popup.bottom(), desktop.bottom());
}

void TestQtColorPicker::sizeFollowsTheGrid()
{
    QtColorPicker picker(nullptr, -1, false);
    for (int i = 0; i < 16; ++i)
        picker.insertColor(QColor(i, 0, 0));
    picker.show();
    QVERIFY(openPopup(picker));
    ColorPickerPopup *popup = popupOf(picker);
    const int frame = 2 * popup->frameWidth() + 2;
    QCOMPARE(popup->size(), QSize(4 * 22 + frame, 4 * 20 + frame));
    typeInto(popup, Qt::Key_Escape);
    picker.insertColor(QColor(200, 0, 0));
    QVERIFY(openPopup(picker));
    QCOMPARE(popup->size(), QSize(5 * 22 + frame, 4 * 20 + frame));
    picker.insertColor(QColor(201, 0, 0));
    QTRY_COMPARE(itemAt(popup, 3, 2)->pos() - itemAt(popup, 3, 1)->pos(), QPoint(22, 0));
    QVERIFY(itemAt(popup, 3, 2)->isVisible());
}

void TestQtColorPicker::clickChoosesAColor()
{
    QWidget window;
    auto *picker = new QtColorPicker(&window, -1, true);
    picker->setStandardColors();
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(openPopup(*picker));
    ColorPickerPopup *popup = popupOf(*picker);
    QSignalSpy changed(picker, &QtColorPicker::colorChanged);
    QSignalSpy clicked(popup->find(Qt::blue), &ColorPickerItem::clicked);
    QTest::mouseClick(popup->find(Qt::blue), Qt::LeftButton);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(changed.at(0).at(0).value<QColor>(), QColor(Qt::blue));
    QVERIFY(!popup->isVisible());
    QVERIFY(!picker->isChecked());
    QCOMPARE(picker->text(), "Blue");
    QTRY_VERIFY(picker->hasFocus());
}

void TestQtColorPicker::clickOnTheCurrentColorClosesQuietly()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.show();
    QVERIFY(openPopup(picker));
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    QTest::mouseClick(popupOf(picker)->find(Qt::black), Qt::LeftButton);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!popupOf(picker)->isVisible());
    QVERIFY(!picker.isChecked());
}

void TestQtColorPicker::escapeChangesNothing()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.setCurrentColor(Qt::red);
    picker.show();
    QVERIFY(openPopup(picker));
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    typeInto(popupOf(picker), Qt::Key_Right);
    typeInto(popupOf(picker), Qt::Key_Escape);
    QVERIFY(!popupOf(picker)->isVisible());
    QVERIFY(!picker.isChecked());
    QCOMPARE(picker.currentColor(), QColor(Qt::red));
    QCOMPARE(changed.count(), 0);
}

void TestQtColorPicker::pressBesideThePopupClosesIt()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.move(100, 100);
    picker.show();
    QVERIFY(QTest::qWaitForWindowExposed(&picker));

    // On the picker itself, as the window system sends it: closed, and not opened again by the same click.
    QVERIFY(openPopup(picker));
    ColorPickerPopup *popup = popupOf(picker);
    const QPoint onPicker = popup->mapFromGlobal(picker.mapToGlobal(picker.rect().center()));
    QTest::mousePress(popup->windowHandle(), Qt::LeftButton, {}, onPicker);
    QTest::mouseRelease(picker.windowHandle(), Qt::LeftButton, {}, picker.rect().center());
    QVERIFY(!popup->isVisible());
    QVERIFY(!picker.isChecked());

    QVERIFY(openPopup(picker));
    QTest::mouseRelease(popup, Qt::LeftButton, {}, popup->rect().center());
    QVERIFY(popup->isVisible());
    QTest::mouseRelease(popup, Qt::LeftButton, {}, QPoint(-1, 5));
    QVERIFY(!popup->isVisible());
    QVERIFY(!picker.isChecked());
}

void TestQtColorPicker::focusStartsOnTheCurrentColor()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.show();
    picker.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&picker));
    QVERIFY(openPopup(picker));
    QTest::mouseClick(popupOf(picker)->find(Qt::darkCyan), Qt::LeftButton);
    QTRY_VERIFY(picker.hasFocus());
    QVERIFY(openPopup(picker));
    QCOMPARE(popupOf(picker)->focusWidget(), popupOf(picker)->find(Qt::darkCyan));

    // Without a selected cell it starts on the first, without any cell on the popup.
    ColorPickerPopup bare(-1, true);
    bare.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bare));
    QCOMPARE(bare.focusWidget(), &bare);
    bare.hide();
    bare.insertColor(Qt::red, "a");
    bare.insertColor(Qt::green, "b");
    bare.insertColor(Qt::blue, "c");
    QVERIFY(selectedItems(&bare).isEmpty());
    bare.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bare));
    QCOMPARE(bare.focusWidget(), bare.find(Qt::red));
}

void TestQtColorPicker::focusStartsOnTheFirstMarkByColumns()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.show();
    QVERIFY(openPopup(picker));
    const ColorPickerPopup *popup = popupOf(picker);
    QTest::mouseClick(popup->find(Qt::red), Qt::LeftButton);
    picker.setCurrentColor(Qt::darkGray);
    // Red stands in an earlier row, dark gray in an earlier column.
    QCOMPARE(cellOf(popup, popup->find(Qt::red)), qMakePair(0, 2));
    QCOMPARE(cellOf(popup, popup->find(Qt::darkGray)), qMakePair(3, 0));
    QVERIFY(openPopup(picker));
    QCOMPARE(selectedItems(popup), QList({popup->find(Qt::red), popup->find(Qt::darkGray)}));
    QCOMPARE(popup->focusWidget(), popup->find(Qt::darkGray));
}

void TestQtColorPicker::mouseMovesTheFocus()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.show();
    QVERIFY(openPopup(picker));
    const ColorPickerPopup *popup = popupOf(picker);
    QTest::mouseMove(popup->find(Qt::green));
    QTRY_COMPARE(popup->focusWidget(), popup->find(Qt::green));
    QTest::mouseMove(cellAt(popup, 3, 2));
    QTRY_COMPARE(popup->focusWidget(), cellAt(popup, 3, 2));
    QTest::mousePress(popup->find(Qt::white), Qt::LeftButton);
    QCOMPARE(popup->focusWidget(), popup->find(Qt::white));
}

void TestQtColorPicker::arrowKeys_data()
{
    // 17 colours in 5 columns: the last row holds two, then the button for more.
    QTest::addColumn<QPoint>("from"); // x: column, y: row
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QPoint>("to");
    QTest::newRow("left") << QPoint(2, 1) << Qt::Key_Left << QPoint(1, 1);
    QTest::newRow("left from column 0") << QPoint(0, 1) << Qt::Key_Left << QPoint(4, 0);
    QTest::newRow("left from the first cell") << QPoint(0, 0) << Qt::Key_Left << QPoint(0, 0);
    QTest::newRow("right") << QPoint(2, 1) << Qt::Key_Right << QPoint(3, 1);
    QTest::newRow("right from the last column") << QPoint(4, 1) << Qt::Key_Right << QPoint(0, 2);
    QTest::newRow("right from the last cell") << QPoint(2, 3) << Qt::Key_Right << QPoint(2, 3);
    QTest::newRow("up") << QPoint(2, 3) << Qt::Key_Up << QPoint(2, 2);
    QTest::newRow("up from the first row") << QPoint(2, 0) << Qt::Key_Up << QPoint(2, 0);
    QTest::newRow("up to the first row") << QPoint(3, 1) << Qt::Key_Up << QPoint(3, 0);
    QTest::newRow("down") << QPoint(1, 2) << Qt::Key_Down << QPoint(1, 3);
    QTest::newRow("down to an empty cell") << QPoint(4, 2) << Qt::Key_Down << QPoint(2, 3);
    QTest::newRow("down from the last row") << QPoint(1, 3) << Qt::Key_Down << QPoint(1, 3);
}

void TestQtColorPicker::arrowKeys()
{
    QFETCH(QPoint, from);
    QFETCH(Qt::Key, key);
    QFETCH(QPoint, to);
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.show();
    QVERIFY(openPopup(picker));
    ColorPickerPopup *popup = popupOf(picker);
    cellAt(popup, from.y(), from.x())->setFocus();
    typeInto(popup, key);
    QCOMPARE(cellOf(popup, popup->focusWidget()), qMakePair(to.y(), to.x()));
    QVERIFY(popup->isVisible());

    // A key that no cell has in focus starts at the first one.
    popup->setFocus();
    typeInto(popup, key);
    QCOMPARE(cellOf(popup, popup->focusWidget()), qMakePair(0, 0));
}

void TestQtColorPicker::chooseByKey_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("return") << Qt::Key_Return;
    QTest::newRow("enter") << Qt::Key_Enter;
    QTest::newRow("space") << Qt::Key_Space;
}

void TestQtColorPicker::chooseByKey()
{
    QFETCH(Qt::Key, key);
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.show();
    QVERIFY(openPopup(picker));
    ColorPickerPopup *popup = popupOf(picker);
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    typeInto(popup, Qt::Key_Right);
    typeInto(popup, key);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(picker.currentColor(), QColor(Qt::white));
    QVERIFY(!popup->isVisible());
    QVERIFY(!picker.isChecked());
    QCOMPARE(selectedItems(popup), QList{popup->find(Qt::white)});
}

void TestQtColorPicker::oneKeyOneDialog_data()
{
    chooseByKey_data();
}

void TestQtColorPicker::oneKeyOneDialog()
{
    QFETCH(Qt::Key, key);
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.show();
    QVERIFY(openPopup(picker));
    ColorPickerPopup *popup = popupOf(picker);
    cellAt(popup, 3, 2)->setFocus();
    {
        const DialogAnswers answer(pressKey(Qt::Key_Escape));
        typeInto(popup, key);
        QVERIFY(answer.allGiven());
    }
    QVERIFY(!popup->isVisible());
    QVERIFY(!picker.isChecked());
    QVERIFY(!QApplication::activeModalWidget());

    // A key that only the popup sees does the same.
    QVERIFY(openPopup(picker));
    cellAt(popup, 3, 2)->setFocus();
    const DialogAnswers answer(pressKey(Qt::Key_Escape));
    QTest::keyClick(popup, key);
    QVERIFY(answer.allGiven());
    QVERIFY(!QApplication::activeModalWidget());
}

void TestQtColorPicker::clickOpensTheDialog()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.show();
    QVERIFY(openPopup(picker));
    bool alpha = false;
    bool popupShown = true;
    const DialogAnswers answer([&](QWidget *dialog) {
        alpha = qobject_cast<QColorDialog *>(dialog)->testOption(QColorDialog::ShowAlphaChannel);
        popupShown = popupOf(picker)->isVisible();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QTest::mouseClick(cellAt(popupOf(picker), 3, 2), Qt::LeftButton);
    QVERIFY(answer.allGiven());
    QVERIFY(alpha);
    QVERIFY(!popupShown);
}

void TestQtColorPicker::dialogStartsFromTheLastChosenColor()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.show();
    QVERIFY(openPopup(picker));
    QTest::mouseClick(popupOf(picker)->find(Qt::magenta), Qt::LeftButton);
    QColor start;
    const DialogAnswers answer([&start](QWidget *dialog) {
        start = qobject_cast<QColorDialog *>(dialog)->currentColor();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    popupOf(picker)->getColorFromDialog();
    QVERIFY(answer.allGiven());
    QCOMPARE(start, QColor(Qt::magenta));
}

void TestQtColorPicker::dialogColorIsTakenWithItsAlpha()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    const QColor mixed(200, 100, 50, 128);
    const DialogAnswers answer([mixed](QWidget *dialog) {
        auto *colors = qobject_cast<QColorDialog *>(dialog);
        colors->setCurrentColor(mixed);
        colors->accept();
    });
    popupOf(picker)->getColorFromDialog();
    QVERIFY(answer.allGiven());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(picker.currentColor(), mixed);
    QCOMPARE(itemsOf(popupOf(picker)).size(), 18);
    QCOMPARE(popupOf(picker)->find(mixed)->text(), "Custom");
    QCOMPARE(selectedItems(popupOf(picker)), QList{popupOf(picker)->find(mixed)});
}

void TestQtColorPicker::dialogColorOfTheGridAddsNoCell()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    const DialogAnswers answer([](QWidget *dialog) {
        auto *colors = qobject_cast<QColorDialog *>(dialog);
        colors->setCurrentColor(QColor::fromHsv(120, 255, 255));
        colors->accept();
    });
    popupOf(picker)->getColorFromDialog();
    QVERIFY(answer.allGiven());
    QCOMPARE(picker.currentColor(), QColor(Qt::green));
    QCOMPARE(picker.text(), "Green");
    QCOMPARE(itemsOf(popupOf(picker)).size(), 17);
}

void TestQtColorPicker::cancelledDialogChangesNothing()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.setCurrentColor(Qt::red);
    QSignalSpy changed(&picker, &QtColorPicker::colorChanged);
    const DialogAnswers answer([](QWidget *dialog) {
        qobject_cast<QColorDialog *>(dialog)->setCurrentColor(Qt::blue);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    popupOf(picker)->getColorFromDialog();
    QVERIFY(answer.allGiven());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(picker.currentColor(), QColor(Qt::red));
    QCOMPARE(itemsOf(popupOf(picker)).size(), 17);
}

void TestQtColorPicker::deletedWhileTheDialogRuns()
{
    auto *picker = new QtColorPicker(nullptr, -1, true);
    picker->setStandardColors();
    picker->show();
    QVERIFY(openPopup(*picker));
    cellAt(popupOf(*picker), 3, 2)->setFocus();
    const QPointer<QtColorPicker> watched(picker);
    const DialogAnswers answer([picker](QWidget *) { delete picker; });
    typeInto(popupOf(*picker), Qt::Key_Return);
    QVERIFY(!answer.seen().isEmpty());
    QVERIFY(!watched);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestQtColorPicker::deletedWhileThePopupIsOpen()
{
    auto *picker = new QtColorPicker(nullptr, -1, true);
    picker->setStandardColors();
    picker->show();
    QVERIFY(openPopup(*picker));
    delete picker;
    QVERIFY(!QApplication::activePopupWidget());
}

void TestQtColorPicker::deletedByItsOwnSignal()
{
    for (const bool byKey : {false, true}) {
        auto *picker = new QtColorPicker(nullptr, -1, true);
        picker->setStandardColors();
        picker->show();
        QVERIFY(openPopup(*picker));
        const QPointer<QtColorPicker> watched(picker);
        connect(picker, &QtColorPicker::colorChanged, this, [picker] { delete picker; });
        ColorPickerItem *red = popupOf(*picker)->find(Qt::red);
        red->setFocus();
        if (byKey)
            QTest::keyPress(popupOf(*picker)->windowHandle(), Qt::Key_Return);
        else
            QTest::mouseClick(red, Qt::LeftButton);
        QVERIFY(!watched);
    }
}

void TestQtColorPicker::cellPainting()
{
    QWidget window;
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::white);
    window.setPalette(palette);
    ColorPickerItem item(Qt::red, "Red", &window);
    item.setFocusPolicy(Qt::NoFocus);
    const auto colorAt = [&item](int x, int y) {
        const QImage image = item.grab().toImage();
        return image.pixelColor(QPointF(QPointF(x, y) * image.devicePixelRatio()).toPoint());
    };
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    const int right = 21;
    const int bottom = 19;
    QCOMPARE(colorAt(4, 4), QColor(Qt::red));
    QCOMPARE(colorAt(right - 4, bottom - 4), QColor(Qt::red));
    QCOMPARE(colorAt(3, 3), QColor(Qt::black));
    QCOMPARE(colorAt(right - 3, 3), QColor(Qt::black));
    QCOMPARE(colorAt(right - 3, bottom - 3), QColor(Qt::black));
    QCOMPARE(colorAt(2, 2), QColor(Qt::white));
    QCOMPARE(colorAt(1, 1), QColor(Qt::white));
    QCOMPARE(colorAt(0, 0), QColor(Qt::white));

    item.setSelected(true);
    QCOMPARE(colorAt(1, 1), QColor(Qt::gray));
    QCOMPARE(colorAt(right - 1, bottom - 1), QColor(Qt::gray));
    QCOMPARE(colorAt(0, 0), QColor(Qt::white));
    item.setColor(Qt::green);
    QCOMPARE(item.text(), "Red");
    QCOMPARE(colorAt(10, 10), QColor(Qt::green));

    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    item.setFocus();
    QTRY_VERIFY(item.hasFocus());
    QCOMPARE(colorAt(0, 0), QColor(Qt::black));
    QCOMPARE(colorAt(right, bottom), QColor(Qt::black));
}

void TestQtColorPicker::moreButtonPainting()
{
    QWidget window;
    ColorPickerButton button(&window);
    button.setFixedSize(24, 21);
    QPalette palette;
    palette.setColor(QPalette::Button, Qt::white);
    palette.setColor(QPalette::ButtonText, Qt::blue);
    button.setPalette(palette);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    button.clearFocus();
    const QImage image = button.grab().toImage();
    const int scale = qRound(image.devicePixelRatio());
    QList<int> columns;
    for (int x = 3 * scale; x < 21 * scale; ++x) {
        if (image.pixelColor(x, 10 * scale) == QColor(Qt::blue))
            columns.append(x / scale);
    }
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    QCOMPARE(columns, QList<int>({7, 8, 11, 12, 15, 16}));
    QCOMPARE(button.frameRect(), button.rect());
}

void TestQtColorPicker::moreButtonShadow()
{
    QWidget window;
    QVBoxLayout layout(&window);
    ColorPickerButton button;
    layout.addWidget(&button);
    window.show();
    QSignalSpy clicked(&button, &ColorPickerButton::clicked);
    QCOMPARE(button.frameShadow(), QFrame::Raised);
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(button.frameShadow(), QFrame::Sunken);
    QCOMPARE(clicked.count(), 0);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(button.frameShadow(), QFrame::Raised);
    QCOMPARE(clicked.count(), 1);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        clicked.clear();
        QTest::keyPress(&button, key);
        QCOMPARE(button.frameShadow(), QFrame::Sunken);
        QTest::keyRelease(&button, key);
        QCOMPARE(button.frameShadow(), QFrame::Raised);
        QCOMPARE(clicked.count(), 1);
    }
    QTest::keyClick(&button, Qt::Key_A);
    QCOMPARE(clicked.count(), 1);
    button.setFrameShadow(QFrame::Sunken);
    QFocusEvent in(QEvent::FocusIn);
    QApplication::sendEvent(&button, &in);
    QCOMPARE(button.frameShadow(), QFrame::Raised);
    button.setFrameShadow(QFrame::Sunken);
    QFocusEvent out(QEvent::FocusOut);
    QApplication::sendEvent(&button, &out);
    QCOMPARE(button.frameShadow(), QFrame::Raised);
}

void TestQtColorPicker::iconShowsTheColor()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.setCurrentColor(Qt::red);
    QVERIFY(!picker.grab().isNull());
    const int size = picker.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &picker);
    const qreal ratio = picker.devicePixelRatioF();
    const QImage icon = picker.icon().pixmap(QSize(size, size), ratio).toImage();
    QCOMPARE(icon.size(), QSize(size, size) * ratio);
    QCOMPARE(icon.pixelColor(icon.width() / 2, icon.height() / 2), QColor(Qt::red));
    QCOMPARE(icon.pixelColor(0, 0), picker.palette().color(QPalette::ButtonText));

    picker.setCurrentColor(Qt::green);
    QVERIFY(!picker.grab().isNull());
    const QImage drawnAgain = picker.icon().pixmap(QSize(size, size), ratio).toImage();
    QCOMPARE(drawnAgain.pixelColor(icon.width() / 2, icon.height() / 2), QColor(Qt::green));
}

void TestQtColorPicker::iconFollowsThePalette()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    QVERIFY(!picker.grab().isNull());
    QPalette palette;
    palette.setColor(QPalette::ButtonText, QColor(1, 200, 3));
    picker.setPalette(palette);
    QVERIFY(!picker.grab().isNull());
    const QImage icon = picker.icon().pixmap(picker.iconSize(), picker.devicePixelRatioF()).toImage();
    QCOMPARE(icon.pixelColor(0, 0), QColor(1, 200, 3));
}

void TestQtColorPicker::languageChange()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    picker.setCurrentColor(QColor(1, 2, 3));
    picker.insertColor(QColor(4, 5, 6), "My own");
    const ColorPickerPopup *popup = popupOf(picker);
    UpperCaseTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QTRY_COMPARE(picker.text(), "CUSTOM");
    QCOMPARE(popup->find(Qt::darkRed)->toolTip(), "DARK RED");
    QCOMPARE(popup->find(QColor(1, 2, 3))->toolTip(), "CUSTOM");
    QCOMPARE(popup->find(QColor(4, 5, 6))->toolTip(), "My own");
    QCoreApplication::removeTranslator(&translator);
    QTRY_COMPARE(picker.text(), "Custom");
    QCOMPARE(popup->find(Qt::darkRed)->toolTip(), "Dark red");
}

void TestQtColorPicker::hasAccessibleNames()
{
    QtColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    for (const ColorPickerItem *item : itemsOf(popupOf(picker)))
        QCOMPARE(item->accessibleName(), item->text());
    QVERIFY(!picker.findChild<ColorPickerButton *>()->accessibleName().isEmpty());
}

REGISTER_TEST(TestQtColorPicker)
#include "tst_qtcolorpicker.moc"
