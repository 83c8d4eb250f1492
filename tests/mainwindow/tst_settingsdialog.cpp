// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "mainwindow/windowprobe.h"
#include "settings/configdialog.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTest>
#include <QToolButton>

namespace {

/// Opens the settings window by its action and answers it.
void openSettings(const WindowProbe &window, const char *action, const std::function<void(ConfigDialog *)> &answer)
{
    DialogAnswers answers;
    answers.handle([&answer](QDialog *dialog) { answer(qobject_cast<ConfigDialog *>(dialog)); });
    window.action(action)->trigger();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().constFirst().parent, static_cast<QWidget *>(&*window));
}

template<typename Part> Part *part(const ConfigDialog *dialog, int page, const char *name)
{
    return dialog->findChild<QStackedWidget *>()->widget(page)->findChild<Part *>(QString::fromLatin1(name));
}

int shownPage(const ConfigDialog *dialog)
{
    return dialog->findChild<QStackedWidget *>()->currentIndex();
}

int shownRow(const ConfigDialog *dialog)
{
    return dialog->findChild<QListWidget *>(QString(), Qt::FindDirectChildrenOnly)->currentRow();
}

} // namespace

/// The settings window as the main window opens it, and what happens when it is accepted.
class TestSettingsDialog : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void cleanupTestCase() { QSettings().clear(); }
    void actionsLeadToTheirPages_data();
    void actionsLeadToTheirPages();
    void oneDialogForTheRun();
    void cancelledChangesDoNotComeBack();
    void centred();
    void largerThanTheWindow();
    void okAppliesToTheDocument();
    void cancelAppliesNothing();
    void okAppliesToTheTool();
    void okWithoutDocument();
    void okAfterTheLastTabHasGone();
    void documentFontIsHandedOver();
    void documentFontNeedsADocument();
    void trace();
    void languageReachesTheDialog();
};

void TestSettingsDialog::actionsLeadToTheirPages_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("row");
    QTest::newRow("actionPenSettings") << 0 << 0;
    QTest::newRow("actionMarkerSettings") << 1 << 1;
    QTest::newRow("actionTextBoxSettings") << 2 << 2;
    QTest::newRow("actionLineAndBracketSettings") << 3 << 3;
    QTest::newRow("actionShapeSettings") << 4 << 4;
    QTest::newRow("actionScreenshotSettings") << 5 << 5;
    QTest::newRow("actionPageViewSettings") << 6 << 6;
    QTest::newRow("actionSyntaxSettings") << 7 << 7;
    QTest::newRow("actionPrintSettings") << 8 << 8;
    QTest::newRow("actionMainSettings") << 9 << 10;
    QTest::newRow("actionEmailSettings") << 10 << 9;
}

void TestSettingsDialog::actionsLeadToTheirPages()
{
    QFETCH(const int, page);
    QFETCH(const int, row);
    const WindowProbe window;
    int openedPage = -1;
    int openedRow = -1;
    // At the first opening and at a later one.
    for (int round = 0; round < 2; ++round) {
        openSettings(window, QTest::currentDataTag(), [&](ConfigDialog *dialog) {
            openedPage = shownPage(dialog);
            openedRow = shownRow(dialog);
            dialog->reject();
        });
        QCOMPARE(openedPage, page);
        QCOMPARE(openedRow, row);
    }
}

void TestSettingsDialog::oneDialogForTheRun()
{
    const WindowProbe window;
    QList<ConfigDialog *> dialogs;
    for (const char *action : {"actionPenSettings", "actionEmailSettings", "actionPenSettings"}) {
        openSettings(window, action, [&dialogs](ConfigDialog *dialog) {
            dialogs.append(dialog);
            dialog->reject();
        });
    }
    QCOMPARE(dialogs.at(1), dialogs.at(0));
    QCOMPARE(dialogs.at(2), dialogs.at(0));
    QCOMPARE(window->findChildren<ConfigDialog *>().size(), 1);
}

void TestSettingsDialog::cancelledChangesDoNotComeBack()
{
    const WindowProbe window;
    openSettings(window, "actionPenSettings", [](ConfigDialog *dialog) {
        part<QSpinBox>(dialog, 0, "penWidthSpinBox")->setValue(9);
        dialog->close();
    });
    int width = 0;
    openSettings(window, "actionPenSettings", [&width](ConfigDialog *dialog) {
        width = part<QSpinBox>(dialog, 0, "penWidthSpinBox")->value();
        dialog->updateAndClose();
    });
    QCOMPARE(width, 1);
    QCOMPARE(QSettings().value(QStringLiteral("PenTool/LineWidth")).toInt(), 1);
}

void TestSettingsDialog::centred()
{
    QSettings().setValue(QStringLiteral("General/WindowMaximized"), false);
    const WindowProbe window;
    window->showWindow();
    window->move(30, 20);
    window->resize(901, 703);
    QPoint position;
    openSettings(window, "actionPenSettings", [&position](ConfigDialog *dialog) {
        position = dialog->pos();
        dialog->reject();
    });
    QCOMPARE(position,
             window->pos() + QPoint((window->geometry().width() - 600) / 2, (window->geometry().height() - 400) / 2));
    QVERIFY(position != QPoint());
}

void TestSettingsDialog::largerThanTheWindow()
{
    QSettings().setValue(QStringLiteral("General/WindowMaximized"), false);
    const WindowProbe window;
    window->showWindow();
    // As wide as the dialog or as high: it is not moved.
    for (const QSize &size : {QSize(1000, 400), QSize(601, 700)}) {
        window->resize(size);
        if (window->width() > 601 && window->height() > 401)
            continue; // the bars of the window want more room than that
        const QPoint before(11, 12);
        openSettings(window, "actionPenSettings", [](ConfigDialog *dialog) { dialog->reject(); });
        auto *dialog = window->findChild<ConfigDialog *>();
        dialog->move(before);
        QPoint after;
        openSettings(window, "actionPenSettings", [&after](ConfigDialog *shown) {
            after = shown->pos();
            shown->reject();
        });
        QCOMPARE(after, before);
    }
}

void TestSettingsDialog::okAppliesToTheDocument()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QVERIFY(window.page()->documentFont().pointSize() == 10);
    openSettings(window, "actionPageViewSettings", [](ConfigDialog *dialog) {
        part<QCheckBox>(dialog, 6, "showLinesNumCheckBox")->setChecked(false);
        part<QComboBox>(dialog, 9, "tabsComboBox")->setCurrentText(QStringLiteral("Bottom"));
        part<QCheckBox>(dialog, 7, "defaultHighlightCheckBox")->setChecked(false);
        dialog->updateAndClose();
    });
    QCOMPARE(window.stack()->tabPosition(), QTabWidget::South);
    QVERIFY(!window.syntaxButton()->isChecked());
    QCOMPARE(QSettings().value(QStringLiteral("PageView/ShowLineNumbers")).toBool(), false);
}

void TestSettingsDialog::cancelAppliesNothing()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    openSettings(window, "actionMainSettings", [](ConfigDialog *dialog) {
        part<QComboBox>(dialog, 9, "tabsComboBox")->setCurrentText(QStringLiteral("Bottom"));
        dialog->reject();
    });
    QCOMPARE(window.stack()->tabPosition(), QTabWidget::East);
    QVERIFY(QSettings().value(QStringLiteral("Other/TabsPosition")).isNull());
}

void TestSettingsDialog::okAppliesToTheTool()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window.action("actionToolMarker")->trigger();
    openSettings(window, "actionMarkerSettings", [](ConfigDialog *dialog) {
        part<QSpinBox>(dialog, 1, "markerWidthSpinBox")->setValue(33);
        dialog->updateAndClose();
    });
    // Its cursor is as high as the marker is wide.
    QCOMPARE(QSettings().value(QStringLiteral("MarkerTool/LineWidth")).toInt(), 33);
    const QSize before = window.view()->viewport()->cursor().pixmap().size();
    openSettings(window, "actionMarkerSettings", [](ConfigDialog *dialog) {
        part<QSpinBox>(dialog, 1, "markerWidthSpinBox")->setValue(6);
        dialog->updateAndClose();
    });
    QVERIFY(window.view()->viewport()->cursor().pixmap().size() != before);
}

void TestSettingsDialog::okWithoutDocument()
{
    const WindowProbe window;
    openSettings(window, "actionMainSettings", [](ConfigDialog *dialog) {
        part<QComboBox>(dialog, 9, "tabsComboBox")->setCurrentText(QStringLiteral("Left"));
        dialog->updateAndClose();
    });
    QCOMPARE(QSettings().value(QStringLiteral("Other/TabsPosition")).toString(), QStringLiteral("Left"));
}

void TestSettingsDialog::okAfterTheLastTabHasGone()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    window->closeFile();
    QVERIFY(window.page() == nullptr);
    openSettings(window, "actionMainSettings", [](ConfigDialog *dialog) {
        part<QComboBox>(dialog, 9, "tabsComboBox")->setCurrentText(QStringLiteral("Left"));
        dialog->updateAndClose();
    });
    QCOMPARE(window.stack()->tabPosition(), QTabWidget::West);
}

/// The page shows the font of the document and hands the choice on; documents keep their font all the same.
void TestSettingsDialog::documentFontIsHandedOver()
{
    QSettings().setValue(QStringLiteral("PageView/DefaultFontSize"), 17);
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QString family;
    QString size;
    LogProbe log;
    openSettings(window, "actionPageViewSettings", [&](ConfigDialog *dialog) {
        family = part<QComboBox>(dialog, 6, "currFontFamilyComboBox")->currentText();
        size = part<QComboBox>(dialog, 6, "currFontSizeComboBox")->currentText();
        part<QComboBox>(dialog, 6, "currFontSizeComboBox")->setCurrentText(QStringLiteral("24"));
        dialog->updateAndClose();
    });
    QCOMPARE(family, QStringLiteral("Courier"));
    QCOMPARE(size, QStringLiteral("17"));
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Updating current document font")));
    QCOMPARE(window.page()->documentFont().pointSize(), 17);
    QVERIFY(!window.page()->isModified());
}

void TestSettingsDialog::documentFontNeedsADocument()
{
    const WindowProbe window;
    bool enabled = true;
    LogProbe log;
    openSettings(window, "actionPageViewSettings", [&enabled](ConfigDialog *dialog) {
        enabled = part<QComboBox>(dialog, 6, "currFontFamilyComboBox")->isEnabled();
        dialog->updateAndClose();
    });
    QVERIFY(!enabled);
    QVERIFY(!log.traceSinceMark().contains(QStringLiteral("Updating current document font")));
}

void TestSettingsDialog::trace()
{
    const WindowProbe window;
    LogProbe log;
    openSettings(window, "actionPenSettings", [](ConfigDialog *dialog) { dialog->reject(); });
    QVERIFY(log.traceSinceMark().contains(QStringLiteral("Show config dialog")));
}

void TestSettingsDialog::languageReachesTheDialog()
{
    const WindowProbe window;
    QStringList rows;
    const auto look = [&rows](ConfigDialog *dialog) {
        rows.clear();
        const auto *list = dialog->findChild<QListWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (int row = 0; row < list->count(); ++row)
            rows.append(list->item(row)->text());
        dialog->reject();
    };
    openSettings(window, "actionPenSettings", look);
    QCOMPARE(rows.size(), 11);
    window.action("actionEnglish")->trigger();
    QCoreApplication::processEvents();
    openSettings(window, "actionPenSettings", look);
    QCOMPARE(rows.value(8), QStringLiteral("Print"));
}

REGISTER_TEST(TestSettingsDialog)
#include "tst_settingsdialog.moc"
