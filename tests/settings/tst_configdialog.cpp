// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/configdialog.h"
#include "settings/settingsprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"
#include "support/tsfile.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFontMetrics>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>

namespace {

QListWidget *listOf(const ConfigDialog &dialog)
{
    for (auto *list : dialog.findChildren<QListWidget *>(QString(), Qt::FindDirectChildrenOnly))
        return list;
    return nullptr;
}

int shownPage(const ConfigDialog &dialog)
{
    return dialog.findChild<QStackedWidget *>()->currentIndex();
}

QStringList rowTexts(const ConfigDialog &dialog)
{
    QStringList texts;
    for (int row = 0; row < listOf(dialog)->count(); ++row)
        texts.append(listOf(dialog)->item(row)->text());
    return texts;
}

/// Page index of each row.
constexpr int rowPages[]{0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 9};

QImage pictureOf(const QIcon &icon)
{
    return icon.pixmap(QSize(20, 20), 1.0).toImage();
}

/// Counts what would be shown with an ellipsis or over the edge.
QStringList cutTexts(const QWidget *page)
{
    QStringList cut;
    for (const auto *part : page->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        const auto *label = qobject_cast<const QLabel *>(part);
        const QSize wanted = label != nullptr && label->hasScaledContents() ? QSize() : part->minimumSizeHint();
        if (part->isVisible() && (part->width() < wanted.width() || part->height() < wanted.height()))
            cut.append(part->objectName());
        if (part->isVisible() && !page->rect().contains(part->geometry()))
            cut.append(part->objectName() + " outside");
    }
    return cut;
}

} // namespace

class TestConfigDialog : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void window();
    void pageList();
    void icons();
    void layout();
    void pageOrder();
    void opensOnPage_data();
    void opensOnPage();
    void rowsLeadToPages();
    void changePageWithoutItem();
    void unknownPages_data();
    void unknownPages();
    void retranslation();
    void okStores();
    void okRestoresTheCursor();
    void nothingIsStoredWithoutOk_data();
    void nothingIsStoredWithoutOk();
    void reopeningForgetsCancelledChanges();
    void returnIsOkAndEscapeIsCancel();
    void documentFont();
    void noDocument();
    void nothingIsCut_data();
    void nothingIsCut();
    void selectionLeavesIconsVisible_data();
    void selectionLeavesIconsVisible();
};

void TestConfigDialog::window()
{
    const ConfigDialog dialog(0, nullptr);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Kestrin 7 - Settings"));
    QCOMPARE(dialog.minimumSize(), QSize(600, 400));
    QCOMPARE(dialog.maximumSize(), QSize(600, 400));
    QVERIFY(buttonWithText(dialog, QStringLiteral("OK"))->isEnabled());
    QVERIFY(buttonWithText(dialog, QStringLiteral("Cancel"))->isEnabled());
}

void TestConfigDialog::pageList()
{
    const ConfigDialog dialog(0, nullptr);
    const QListWidget *list = listOf(dialog);
    QCOMPARE(list->iconSize(), QSize(20, 20));
    QCOMPARE(list->movement(), QListView::Static);
    QCOMPARE(list->minimumWidth(), 168);
    QCOMPARE(list->maximumWidth(), 170);
    QCOMPARE(list->spacing(), 1);
    QVERIFY(!list->accessibleName().isEmpty());
    QCOMPARE(rowTexts(dialog), QStringList({"Pen Tool", "Marker Tool", "TextBox Tool", "Line Tool", "Shape Tool",
                                            "Snapshot Tool", "Page", "Syntax", "Printout", "E-mail", "Others"}));
    for (int row = 0; row < list->count(); ++row) {
        QCOMPARE(list->item(row)->textAlignment(), int(Qt::AlignLeft | Qt::AlignVCenter));
        QCOMPARE(list->item(row)->flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    }
}

void TestConfigDialog::icons()
{
    const ConfigDialog dialog(0, nullptr);
    const QStringList paths{":/config_icons/pen.png",
                            ":/config_icons/marker.png",
                            ":/config_icons/textbox.png",
                            ":/config_icons/line4.png",
                            ":/config_icons/round_rect.png",
                            ":/config_icons/screenshot.png",
                            ":/qt-project.org/dialogs/qprintpreviewdialog/images/view-pages-single-24.png",
                            ":/config_icons/syntax.png",
                            ":/config_icons/printer.png",
                            ":/config_icons/mail.png",
                            ":/config_icons/other.png"};
    for (int row = 0; row < paths.size(); ++row) {
        QVERIFY2(!QPixmap(paths.at(row)).isNull(), qPrintable(paths.at(row)));
        QCOMPARE(pictureOf(listOf(dialog)->item(row)->icon()), pictureOf(QIcon(paths.at(row))));
    }
}

void TestConfigDialog::layout()
{
    ConfigDialog dialog(0, nullptr);
    dialog.show();
    const auto *stack = dialog.findChild<QStackedWidget *>();
    const auto *rows = qobject_cast<QVBoxLayout *>(dialog.layout());
    QVERIFY(rows != nullptr);
    QCOMPARE(rows->count(), 4);
    QCOMPARE(rows->stretch(1), 1);
    QCOMPARE(rows->itemAt(2)->sizeHint().height(), 12);
    const auto *pages = qobject_cast<QHBoxLayout *>(rows->itemAt(0)->layout());
    QCOMPARE(pages->itemAt(0)->widget(), listOf(dialog));
    QCOMPARE(pages->itemAt(1)->widget(), stack);
    QCOMPARE(pages->stretch(1), 1);
    const auto *buttons = qobject_cast<QHBoxLayout *>(rows->itemAt(3)->layout());
    QVERIFY(buttons->itemAt(0)->spacerItem() != nullptr);
    QCOMPARE(buttons->itemAt(1)->widget(), buttonWithText(dialog, QStringLiteral("OK")));
    QCOMPARE(buttons->itemAt(2)->widget(), buttonWithText(dialog, QStringLiteral("Cancel")));
    // All rows of the list are in sight.
    QVERIFY(listOf(dialog)->viewport()->rect().contains(
        listOf(dialog)->visualItemRect(listOf(dialog)->item(listOf(dialog)->count() - 1))));
}

void TestConfigDialog::pageOrder()
{
    const ConfigDialog dialog(0, nullptr);
    const QStringList classes{"PenTab",   "MarkerTab",     "TextBoxTab",  "LineAndBracketTab",
                              "ShapeTab", "ScreenshotTab", "PageViewTab", "SyntaxTab",
                              "PrintTab", "OtherTab",      "EmailTab"};
    QStringList found;
    for (int i = 0; i < dialog.findChild<QStackedWidget *>()->count(); ++i)
        found.append(QString::fromLatin1(pageAt(dialog, i)->metaObject()->className()));
    QCOMPARE(found, classes);
}

void TestConfigDialog::opensOnPage_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("row");
    for (int row = 0; row < pageCount; ++row)
        QTest::addRow("page %d", rowPages[row]) << rowPages[row] << row;
}

void TestConfigDialog::opensOnPage()
{
    QFETCH(const int, page);
    QFETCH(const int, row);
    ConfigDialog dialog(page, nullptr);
    QCOMPARE(shownPage(dialog), page);
    QCOMPARE(listOf(dialog)->currentRow(), row);
    dialog.selectPage(page == 3 ? 4 : 3);
    QCOMPARE(listOf(dialog)->currentRow(), page == 3 ? 4 : 3);
    dialog.selectPage(page);
    QCOMPARE(shownPage(dialog), page);
    QCOMPARE(listOf(dialog)->currentRow(), row);
}

void TestConfigDialog::rowsLeadToPages()
{
    ConfigDialog dialog(0, nullptr);
    dialog.show();
    QListWidget *list = listOf(dialog);
    for (int row = 10; row >= 0; --row) {
        const QRect place = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place.center());
        QCOMPARE(shownPage(dialog), rowPages[row]);
    }
    list->setCurrentRow(9);
    QCOMPARE(QString::fromLatin1(dialog.findChild<QStackedWidget *>()->currentWidget()->metaObject()->className()),
             QStringLiteral("EmailTab"));
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(QString::fromLatin1(dialog.findChild<QStackedWidget *>()->currentWidget()->metaObject()->className()),
             QStringLiteral("OtherTab"));
}

void TestConfigDialog::changePageWithoutItem()
{
    ConfigDialog dialog(0, nullptr);
    QListWidgetItem stranger;
    dialog.changePage(listOf(dialog)->item(9), nullptr);
    QCOMPARE(shownPage(dialog), 10);
    dialog.changePage(nullptr, listOf(dialog)->item(3));
    QCOMPARE(shownPage(dialog), 3);
    dialog.changePage(&stranger, listOf(dialog)->item(3));
    QCOMPARE(shownPage(dialog), 0);
    dialog.changePage(listOf(dialog)->item(10), listOf(dialog)->item(3));
    QCOMPARE(shownPage(dialog), 9);
    dialog.changePage(nullptr, nullptr);
    QCOMPARE(shownPage(dialog), 0);
}

void TestConfigDialog::unknownPages_data()
{
    QTest::addColumn<int>("page");
    QTest::newRow("negative") << -1;
    QTest::newRow("one too many") << 11;
    QTest::newRow("huge") << INT_MAX;
}

void TestConfigDialog::unknownPages()
{
    QFETCH(const int, page);
    ConfigDialog dialog(page, nullptr);
    QCOMPARE(shownPage(dialog), 0);
    dialog.selectPage(5);
    dialog.selectPage(page);
    QCOMPARE(shownPage(dialog), 0);
    QCOMPARE(listOf(dialog)->currentRow(), 0);
}

void TestConfigDialog::retranslation()
{
    ConfigDialog dialog(0, nullptr);
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&dialog, &change);
    QVERIFY(buttonWithText(dialog, QStringLiteral("Ok")));
    QCOMPARE(rowTexts(dialog), QStringList({"Pen Tool", "Marker Tool", "TextBox Tool", "Line Tool", "Shape Tool",
                                            "Snapshot Tool", "Page", "Syntax", "Print", "E-mail", "Others"}));
    const MarkedLanguage language;
    language.announceTo(&dialog);
    QVERIFY(buttonWithText(dialog, language.mark + "Ok"));
    QVERIFY(buttonWithText(dialog, language.mark + "Cancel"));
    QCOMPARE(dialog.windowTitle(), language.mark + "Kestrin 7 - Settings");
    QCOMPARE(rowTexts(dialog).at(8), language.mark + "Print");
    QCOMPARE(rowTexts(dialog).filter(language.mark).size(), 11);
    // The pages hear of it as children.
    QCOMPARE(pageAt(dialog, 0)->findChild<QLabel *>(QStringLiteral("titleLabel"))->text(),
             language.mark + "  Pen settings:");
}

void TestConfigDialog::okStores()
{
    ConfigDialog dialog(0, nullptr);
    choose(partOf(pageAt(dialog, 0), QStringLiteral("penWidthSpinBox")), 7);
    DialogAnswers answers;
    answers.handle([](QDialog *shown) {
        choose(partOf(pageAt(*qobject_cast<ConfigDialog *>(shown), 8), QStringLiteral("printDateCheckBox")), false);
        buttonWithText(*qobject_cast<ConfigDialog *>(shown), QStringLiteral("OK"))->click();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(answers.allGiven());
    QCOMPARE(QSettings().value(QStringLiteral("PenTool/LineWidth")).toInt(), 7);
    QCOMPARE(QSettings().value(QStringLiteral("Printing/PrintDate")).toBool(), false);
}

void TestConfigDialog::okRestoresTheCursor()
{
    ConfigDialog dialog(0, nullptr);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    dialog.updateAndClose();
    QVERIFY(QApplication::overrideCursor() == nullptr);
    dialog.updateAndClose();
    QVERIFY(QApplication::overrideCursor() == nullptr);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void TestConfigDialog::nothingIsStoredWithoutOk_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Cancel") << 0;
    QTest::newRow("title bar") << 1;
    QTest::newRow("Escape") << 2;
}

void TestConfigDialog::nothingIsStoredWithoutOk()
{
    QFETCH(const int, way);
    ConfigDialog dialog(0, nullptr);
    DialogAnswers answers;
    answers.handle([way](QDialog *shown) {
        auto *settings = qobject_cast<ConfigDialog *>(shown);
        choose(partOf(pageAt(*settings, 0), QStringLiteral("penWidthSpinBox")), 7);
        if (way == 0)
            buttonWithText(*settings, QStringLiteral("Cancel"))->click();
        else if (way == 1)
            settings->close();
        else
            QTest::keyClick(settings, Qt::Key_Escape);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(answers.allGiven());
    QCOMPARE(QSettings().allKeys(), QStringList());
}

void TestConfigDialog::reopeningForgetsCancelledChanges()
{
    QSettings().setValue(QStringLiteral("PenTool/LineWidth"), 4);
    ConfigDialog dialog(0, nullptr);
    QWidget *width = partOf(pageAt(dialog, 0), QStringLiteral("penWidthSpinBox"));
    QWidget *shapeSelection = partOf(pageAt(dialog, 4), QStringLiteral("showSelectionCheckBox"));
    choose(width, 7);
    choose(shapeSelection, true);
    dialog.reject();
    dialog.selectPage(2);
    QCOMPARE(shownBy(width), QVariant(4));
    QCOMPARE(shownBy(shapeSelection), QVariant(false));
    // What was changed elsewhere meanwhile is seen, too.
    QSettings().setValue(QStringLiteral("PenTool/LineWidth"), 9);
    dialog.selectPage(0);
    QCOMPARE(shownBy(width), QVariant(9));
}

void TestConfigDialog::returnIsOkAndEscapeIsCancel()
{
    ConfigDialog dialog(0, nullptr);
    DialogAnswers answers;
    answers.handle([](QDialog *shown) { QTest::keyClick(shown, Qt::Key_Return); });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(answers.allGiven());
}

void TestConfigDialog::documentFont()
{
    ConfigDialog dialog(6, nullptr);
    dialog.setDocumentFont(QFont(QStringLiteral("No Such Family"), 13));
    QWidget *family = partOf(pageAt(dialog, 6), QStringLiteral("currFontFamilyComboBox"));
    QWidget *size = partOf(pageAt(dialog, 6), QStringLiteral("currFontSizeComboBox"));
    QCOMPARE(shownBy(family), QVariant("No Such Family"));
    QCOMPARE(shownBy(size), QVariant("13"));
    QVERIFY(family->isEnabled());
    choose(family, QStringLiteral("DejaVu Sans"));
    choose(size, QStringLiteral("18"));
    QCOMPARE(dialog.documentFont().family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(dialog.documentFont().pointSize(), 18);
    dialog.updateAndClose();
    // It stands for no key.
    QCOMPARE(QSettings().value(QStringLiteral("PageView/DefaultFontFamily")).toString(), QStringLiteral("Courier"));
    QCOMPARE(QSettings().value(QStringLiteral("PageView/DefaultFontSize")).toInt(), 10);
}

void TestConfigDialog::noDocument()
{
    ConfigDialog dialog(6, nullptr);
    dialog.setDocumentFont(std::nullopt);
    for (const char *name : {"currFontFamilyComboBox", "currFontSizeComboBox"})
        QVERIFY(!partOf(pageAt(dialog, 6), QString::fromLatin1(name))->isEnabled());
    QVERIFY(partOf(pageAt(dialog, 6), QStringLiteral("fontFamilyComboBox"))->isEnabled());
}

void TestConfigDialog::nothingIsCut_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("language");
    for (int page = 0; page < pageCount; ++page) {
        for (const char *language : {"en", "pl", "fr"})
            QTest::addRow("page %d %s", page, language) << page << QString::fromLatin1(language);
    }
}

void TestConfigDialog::nothingIsCut()
{
    QFETCH(const int, page);
    QFETCH(const QString, language);
    QTranslator translator;
    if (language != QLatin1String("en"))
        QVERIFY(translator.load(QStringLiteral("scrivara_") + language, laidTranslations()));
    QCoreApplication::installTranslator(&translator);
    ConfigDialog dialog(page, nullptr);
    dialog.show();
    QCOMPARE(cutTexts(pageAt(dialog, page)).join(' '), QString());
    const QListWidget *list = listOf(dialog);
    for (int row = 0; row < list->count(); ++row)
        QVERIFY(list->sizeHintForIndex(list->model()->index(row, 0)).width() <= list->viewport()->width());
}

void TestConfigDialog::selectionLeavesIconsVisible_data()
{
    QTest::addColumn<QColor>("base");
    QTest::addColumn<QColor>("text");
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("dark") << QColor(35, 35, 35) << QColor(Qt::white);
}

void TestConfigDialog::selectionLeavesIconsVisible()
{
    QFETCH(const QColor, base);
    QFETCH(const QColor, text);
    ConfigDialog dialog(0, nullptr);
    QPalette palette = dialog.palette();
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    dialog.setPalette(palette);
    const QPalette listPalette = listOf(dialog)->palette();
    QCOMPARE(listPalette.color(QPalette::HighlightedText), text);
    // Nearer to the ground than to the full colour, yet not the ground.
    const QColor soft = listPalette.color(QPalette::Highlight);
    QVERIFY(soft != base);
    QVERIFY(qAbs(soft.red() - base.red()) < qAbs(soft.red() - 48));
}

REGISTER_TEST(TestConfigDialog)
#include "tst_configdialog.moc"
