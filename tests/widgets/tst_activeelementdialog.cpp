// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/activeelement.h"
#include "support/testmain.h"
#include "widgets/activeelementdialog.h"
#include "widgets/qtcolorpicker.h"

#include <QApplication>
#include <QComboBox>
#include <QDomDocument>
#include <QFontComboBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolButton>
#include <QTranslator>

#include <memory>

namespace {

class StarTranslator : public QTranslator
{
public:
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        return QString::fromUtf8(sourceText) + QStringLiteral("*");
    }
    bool isEmpty() const override { return false; }
};

/// The dialog's parts, by what a user knows them by.
struct Parts
{
    explicit Parts(const ActiveElementDialog &dialog)
        : description(dialog.findChild<QTextEdit *>("descriptionText")),
          author(dialog.findChild<QLineEdit *>("authorEdit")),
          date(dialog.findChild<QToolButton *>("addDateToolButton")),
          ok(dialog.findChild<QPushButton *>("okButton")),
          cancel(dialog.findChild<QPushButton *>("cancelButton")),
          family(dialog.findChild<QFontComboBox *>())
    {
        for (QComboBox *box : dialog.findChildren<QComboBox *>()) {
            if (box->toolTip() == "Font size")
                size = box;
        }
        for (QtColorPicker *picker : dialog.findChildren<QtColorPicker *>()) {
            if (picker->toolTip() == "Text color")
                textColor = picker;
            else if (picker->toolTip() == "Background color")
                background = picker;
        }
    }

    QTextEdit *description;
    QLineEdit *author;
    QToolButton *date;
    QPushButton *ok;
    QPushButton *cancel;
    QFontComboBox *family;
    QComboBox *size = nullptr;
    QtColorPicker *textColor = nullptr;
    QtColorPicker *background = nullptr;
};

/// A dialog with a note of its own.
struct Editing
{
    Editing()
    {
        note->setPlainText("words");
        note->setAuthor("Anna");
    }

    std::unique_ptr<ActiveElement> note = std::make_unique<ActiveElement>();
    ActiveElementDialog dialog;
    Parts parts{dialog};
};

QFont pixelFont(int size, const QString &family = "Arial")
{
    QFont font(family);
    font.setPixelSize(size);
    return font;
}

} // namespace

class TestActiveElementDialog : public QObject
{
    Q_OBJECT

private slots:
    void partsAndTexts();
    void everyControlHasAName();
    void fitsItsSize_data();
    void fitsItsSize();
    void showsTheElement();
    void nullChangesNothing();
    void nearestSize_data();
    void nearestSize();
    void firstOfTwoNearestSizes();
    void previewFollowsTheBoxes();
    void showingFocusesTheDescription();
    void okSavesEverything();
    void okKeepsTheTextExactly_data();
    void okKeepsTheTextExactly();
    void everyOkRenewsTheStamp();
    void okWithoutADateKeepsTheStamp();
    void fontOfTheFileIsNotTouched();
    void cancelLeavesTheElement_data();
    void cancelLeavesTheElement();
    void withoutAnElementOkOnlyAccepts();
    void elementThatDied();
    void oddColours_data();
    void oddColours();
    void languageChange();
    void hugeDescription();
};

void TestActiveElementDialog::partsAndTexts()
{
    const ActiveElementDialog dialog;
    const Parts parts(dialog);
    QCOMPARE(dialog.windowTitle(), "Active Tag");
    QCOMPARE(dialog.size(), QSize(240, 160));
    QCOMPARE(parts.description->toolTip(), "Description of Active Tag");
    const auto *label = dialog.findChild<QLabel *>("authorLabel");
    QCOMPARE(label->text(), "&Author:");
    QCOMPARE(label->buddy(), parts.author);
    QVERIFY(parts.date->isCheckable());
    QVERIFY(!parts.date->isChecked());
    QVERIFY(parts.date->autoRaise());
    QVERIFY(!parts.date->icon().isNull());
    QCOMPARE(parts.date->toolTip(), "Add date and time");
    QCOMPARE(parts.date->text(), "");
    QCOMPARE(parts.ok->text(), "OK");
    QCOMPARE(parts.cancel->text(), "Cancel");
    QCOMPARE(parts.family->toolTip(), "Font family");
    QCOMPARE(QFontInfo(parts.family->currentFont()).family(), QFontInfo(QFont("Courier")).family());
    QStringList sizes;
    for (const int size : QFontDatabase::standardSizes())
        sizes.append(QString::number(size));
    QVERIFY(parts.size);
    QCOMPARE(parts.size->count(), sizes.size());
    for (int i = 0; i < sizes.size(); ++i)
        QCOMPARE(parts.size->itemText(i), sizes.at(i));
    for (const QtColorPicker *picker : {parts.textColor, parts.background}) {
        QVERIFY(picker);
        QVERIFY(picker->colorDialogEnabled());
        QCOMPARE(picker->size(), QSize(22, 22));
        QCOMPARE(picker->currentColor(), QColor(Qt::black));
    }
}

void TestActiveElementDialog::everyControlHasAName()
{
    ActiveElementDialog dialog;
    const Parts parts(dialog);
    for (const QWidget *control : std::initializer_list<QWidget *>{parts.description, parts.date, parts.family,
                                                                   parts.size, parts.textColor, parts.background})
        QCOMPARE(control->accessibleName(), control->toolTip());
}

void TestActiveElementDialog::fitsItsSize_data()
{
    QTest::addColumn<bool>("translated");
    QTest::newRow("source texts") << false;
    QTest::newRow("longer texts") << true;
}

void TestActiveElementDialog::fitsItsSize()
{
    QFETCH(const bool, translated);
    StarTranslator translator;
    if (translated)
        QCoreApplication::installTranslator(&translator);
    ActiveElementDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.size(), QSize(240, 160));
    const Parts parts(dialog);
    QVERIFY(parts.description->height() > 40);
    for (const QWidget *control : dialog.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        QVERIFY2(dialog.rect().contains(control->geometry()), qPrintable(control->objectName()));
        if (control != parts.family && control != parts.description)
            QVERIFY2(control->width() >= control->minimumSizeHint().width() || control->maximumWidth() == 22,
                     qPrintable(control->objectName()));
    }
    QVERIFY(parts.family->width() >= 80);
    if (translated)
        QCoreApplication::removeTranslator(&translator);
}

void TestActiveElementDialog::showsTheElement()
{
    Editing editing;
    ActiveElement &note = *editing.note;
    note.setShowDate(true);
    note.setBackground(QColor(1, 2, 3));
    note.setDefaultTextColor(QColor(4, 5, 6, 7));
    note.setFont(pixelFont(24, "Liberation Mono"));
    editing.dialog.setElement(&note);
    QCOMPARE(editing.parts.description->toPlainText(), "words");
    QCOMPARE(editing.parts.author->text(), "Anna");
    QVERIFY(editing.parts.date->isChecked());
    QCOMPARE(editing.parts.family->currentFont().family(), "Liberation Mono");
    QCOMPARE(editing.parts.size->currentText(), "24");
    QCOMPARE(editing.parts.background->currentColor(), QColor(1, 2, 3, 255));
    QCOMPARE(editing.parts.textColor->currentColor(), QColor(4, 5, 6, 7));
    // And then another one.
    const ActiveElement other;
    editing.dialog.setElement(const_cast<ActiveElement *>(&other));
    QCOMPARE(editing.parts.description->toPlainText(), "");
    QCOMPARE(editing.parts.author->text(), "");
    QVERIFY(!editing.parts.date->isChecked());
    QCOMPARE(editing.parts.size->currentText(), "12");
    QCOMPARE(editing.parts.background->currentColor(), QColor(255, 214, 102));
    QCOMPARE(editing.parts.textColor->currentColor(), other.defaultTextColor());
}

void TestActiveElementDialog::nullChangesNothing()
{
    Editing editing;
    editing.dialog.setElement(editing.note.get());
    editing.dialog.setElement(nullptr);
    QCOMPARE(editing.parts.description->toPlainText(), "words");
    editing.parts.author->setText("Bert");
    editing.parts.ok->click();
    QCOMPARE(editing.note->author(), "Bert");
}

void TestActiveElementDialog::nearestSize_data()
{
    QTest::addColumn<QFont>("font");
    QTest::addColumn<QString>("shown");
    QTest::newRow("points") << QFont("Arial", 18) << "18";
    QTest::newRow("points between") << QFont("Arial", 13) << "12";
    QTest::newRow("points nearer to the next") << QFont("Arial", 33) << "36";
    QTest::newRow("points, first of two") << QFont("Arial", 19) << "18";
    QTest::newRow("pixels") << pixelFont(20) << "20";
    QTest::newRow("pixels, first of two") << pixelFont(60) << "48";
    QTest::newRow("below all") << pixelFont(1) << "6";
    QTest::newRow("above all") << pixelFont(500) << "72";
    QTest::newRow("as far as it counts") << pixelFont(100072) << "6";
    QTest::newRow("just nearer than that") << pixelFont(100071) << "72";
}

void TestActiveElementDialog::nearestSize()
{
    QFETCH(const QFont, font);
    QFETCH(const QString, shown);
    Editing editing;
    editing.note->setFont(font);
    editing.dialog.setElement(editing.note.get());
    QCOMPARE(editing.parts.size->currentText(), shown);
}

void TestActiveElementDialog::firstOfTwoNearestSizes()
{
    Editing editing;
    editing.parts.size->removeItem(editing.parts.size->findText("11"));
    editing.note->setFont(pixelFont(11));
    editing.dialog.setElement(editing.note.get());
    QCOMPARE(editing.parts.size->currentText(), "10");
}

void TestActiveElementDialog::previewFollowsTheBoxes()
{
    Editing editing;
    editing.dialog.setElement(editing.note.get());
    QCOMPARE(editing.parts.description->font().pixelSize(), 12);
    editing.parts.size->setCurrentIndex(editing.parts.size->findText("28"));
    QCOMPARE(editing.parts.description->font().pixelSize(), 28);
    editing.parts.family->setCurrentFont(QFont("Liberation Mono"));
    QCOMPARE(editing.parts.description->font().family(), "Liberation Mono");
    QCOMPARE(editing.parts.description->font().pixelSize(), 28);
    QCOMPARE(editing.note->font().pointSize(), 12);
}

void TestActiveElementDialog::showingFocusesTheDescription()
{
    Editing editing;
    editing.parts.cancel->setFocus();
    editing.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&editing.dialog));
    QCOMPARE(editing.dialog.focusWidget(), editing.parts.description);
    // Tab goes on from there.
    QTest::keyClick(editing.parts.description, Qt::Key_Tab);
    QCOMPARE(editing.dialog.focusWidget(), editing.parts.author);
    editing.dialog.hide();
    editing.dialog.show();
    QCOMPARE(editing.dialog.focusWidget(), editing.parts.description);
}

void TestActiveElementDialog::okSavesEverything()
{
    Editing editing;
    ActiveElement &note = *editing.note;
    editing.dialog.setElement(&note);
    editing.parts.description->setPlainText("new\nwords");
    editing.parts.author->setText("Bert");
    editing.parts.background->setCurrentColor(QColor(10, 20, 30));
    editing.parts.textColor->setCurrentColor(Qt::darkRed);
    editing.parts.family->setCurrentFont(QFont("Liberation Mono"));
    editing.parts.size->setCurrentIndex(editing.parts.size->findText("20"));
    editing.parts.date->setChecked(true);
    QCOMPARE(note.description(), "words");
    QCOMPARE(note.author(), "Anna");
    QVERIFY(!note.showDate());
    editing.parts.ok->click();
    QCOMPARE(editing.dialog.result(), int(QDialog::Accepted));
    QCOMPARE(note.description(), "new\nwords");
    QCOMPARE(note.author(), "Bert");
    QCOMPARE(note.background(), QColor(10, 20, 30, 120));
    QCOMPARE(note.defaultTextColor(), QColor(Qt::darkRed));
    QCOMPARE(note.font().family(), "Liberation Mono");
    QCOMPARE(note.font().pixelSize(), 20);
    QVERIFY(note.showDate());
}

void TestActiveElementDialog::okKeepsTheTextExactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("no-break space") << QStringLiteral("10\u00a0km");
    QTest::newRow("lines") << QStringLiteral("a\n\n  b\n");
    QTest::newRow("soft line break") << QStringLiteral("a\u2028b");
    QTest::newRow("markup") << QStringLiteral("<b>bold</b> &amp;");
    QTest::newRow("empty") << QString();
}

void TestActiveElementDialog::okKeepsTheTextExactly()
{
    QFETCH(const QString, text);
    Editing editing;
    editing.note->setPlainText(text);
    editing.dialog.setElement(editing.note.get());
    editing.parts.ok->click();
    QCOMPARE(editing.note->description(), text);
}

void TestActiveElementDialog::everyOkRenewsTheStamp()
{
    // What the note has is seen in its file fields alone; there is no way to ask for it.
    Editing editing;
    ActiveElement &note = *editing.note;
    note.setShowDate(true);
    note.setDate(QDate(2001, 2, 3));
    note.setTime(QTime(4, 5, 6));
    editing.dialog.setElement(&note);
    const QDate before = QDate::currentDate();
    editing.parts.ok->click();
    QDomDocument document;
    QDomElement root = document.createElement("root");
    note.saveToXml(document, root);
    const QDate written = QDate::fromString(root.firstChildElement().attribute("date"), "dd.MM.yyyy");
    QVERIFY(written == before || written == QDate::currentDate());
    QVERIFY(root.firstChildElement().attribute("time") != "04:05:06");
}

void TestActiveElementDialog::okWithoutADateKeepsTheStamp()
{
    Editing editing;
    ActiveElement &note = *editing.note;
    note.setShowDate(true);
    note.setDate(QDate(2001, 2, 3));
    note.setTime(QTime(4, 5, 6));
    editing.dialog.setElement(&note);
    editing.parts.date->setChecked(false);
    editing.parts.ok->click();
    QVERIFY(!note.showDate());
    QDomDocument document;
    QDomElement root = document.createElement("root");
    note.saveToXml(document, root);
    QCOMPARE(root.firstChildElement().attribute("date"), "03.02.2001");
    QCOMPARE(root.firstChildElement().attribute("time"), "04:05:06");
}

void TestActiveElementDialog::fontOfTheFileIsNotTouched()
{
    Editing editing;
    editing.dialog.setElement(editing.note.get());
    editing.parts.family->setCurrentFont(QFont("Liberation Mono"));
    editing.parts.ok->click();
    QCOMPARE(editing.note->descriptionFont(), QFont("Arial", 12, QFont::Light));
    QCOMPARE(editing.note->authorFont(), QFont("Arial", 8, QFont::Bold));
    QCOMPARE(editing.note->dateFont(), QFont("Arial", 7, QFont::Light));
}

void TestActiveElementDialog::cancelLeavesTheElement_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Escape") << true;
}

void TestActiveElementDialog::cancelLeavesTheElement()
{
    QFETCH(const bool, byKey);
    Editing editing;
    ActiveElement &note = *editing.note;
    note.setDate(QDate(2001, 2, 3));
    note.setShowDate(true);
    editing.dialog.setElement(&note);
    editing.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&editing.dialog));
    const QFont font = note.font();
    const QColor background = note.background();
    editing.parts.description->setPlainText("other");
    editing.parts.author->setText("Bert");
    editing.parts.date->setChecked(false);
    editing.parts.background->setCurrentColor(Qt::red);
    editing.parts.textColor->setCurrentColor(Qt::red);
    editing.parts.size->setCurrentIndex(0);
    if (byKey)
        QTest::keyClick(&editing.dialog, Qt::Key_Escape);
    else
        QTest::mouseClick(editing.parts.cancel, Qt::LeftButton);
    QVERIFY(!editing.dialog.isVisible());
    QCOMPARE(editing.dialog.result(), int(QDialog::Rejected));
    QCOMPARE(note.description(), "words");
    QCOMPARE(note.author(), "Anna");
    QVERIFY(note.showDate());
    QCOMPARE(note.background(), background);
    QCOMPARE(note.font(), font);
    QVERIFY(note.defaultTextColor() != QColor(Qt::red));
}

void TestActiveElementDialog::withoutAnElementOkOnlyAccepts()
{
    ActiveElementDialog dialog;
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton *>("okButton"), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
}

void TestActiveElementDialog::elementThatDied()
{
    Editing editing;
    editing.dialog.setElement(editing.note.get());
    editing.note.reset();
    editing.parts.size->setCurrentIndex(0);
    editing.parts.ok->click();
    QCOMPARE(editing.dialog.result(), int(QDialog::Accepted));
}

void TestActiveElementDialog::oddColours_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QColor>("kept");
    QTest::newRow("translucent") << QColor(1, 2, 3, 4) << QColor(1, 2, 3, 4);
    QTest::newRow("transparent") << QColor(0, 0, 0, 0) << QColor(0, 0, 0, 0);
    QTest::newRow("standard colour") << QColor(Qt::cyan) << QColor(Qt::cyan);
    // Which cannot be shown.
    QTest::newRow("invalid") << QColor() << QColor(Qt::black);
}

void TestActiveElementDialog::oddColours()
{
    QFETCH(const QColor, color);
    QFETCH(const QColor, kept);
    Editing editing;
    editing.note->setDefaultTextColor(color);
    editing.dialog.setElement(editing.note.get());
    editing.parts.ok->click();
    QCOMPARE(editing.note->defaultTextColor().rgba(), kept.rgba());
}

void TestActiveElementDialog::languageChange()
{
    ActiveElementDialog dialog;
    const Parts parts(dialog);
    StarTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::processEvents();
    QCOMPARE(parts.family->toolTip(), "Font family*");
    QCOMPARE(parts.size->toolTip(), "Font size*");
    QCOMPARE(parts.textColor->toolTip(), "Text color*");
    QCOMPARE(parts.background->toolTip(), "Background color*");
    QCOMPARE(parts.description->toolTip(), "Description of Active Tag*");
    QCOMPARE(dialog.findChild<QLabel *>("authorLabel")->text(), "&Author:*");
    QCOMPARE(parts.cancel->text(), "Cancel*");
    // Only now it has a text, which it does not show.
    QCOMPARE(parts.date->text(), "Add date and time*");
    QCOMPARE(parts.date->toolButtonStyle(), Qt::ToolButtonIconOnly);
    QCoreApplication::removeTranslator(&translator);
    QCoreApplication::processEvents();
    QCOMPARE(parts.date->text(), "Add date and time");
}

void TestActiveElementDialog::hugeDescription()
{
    Editing editing;
    const QString huge = QString("some words\n").repeated(5000);
    editing.note->setPlainText(huge);
    editing.note->setAuthor(QString(100000, 'W'));
    editing.dialog.setElement(editing.note.get());
    editing.dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editing.dialog));
    QCOMPARE(editing.dialog.size(), QSize(240, 160));
    editing.parts.ok->click();
    QCOMPARE(editing.note->description(), huge);
}

REGISTER_TEST(TestActiveElementDialog)
#include "tst_activeelementdialog.moc"
