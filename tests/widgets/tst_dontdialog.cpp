// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/dialogs.h"
#include "support/testmain.h"
#include "widgets/dontdialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTextEdit>
#include <QTranslator>

namespace {

const QString baseKey = QStringLiteral("General/WarnRemoveAllAnnotations");
const QString rememberedKey = QStringLiteral("General/WarnRemoveAllAnnotationsAnswerIsYes");

/// Ticks the box, then clicks the button of that name.
DialogAnswer answerForGood(const QString &button)
{
    return [button](QDialog *dialog) {
        auto *box = dialog->findChild<QCheckBox *>(QStringLiteral("dontCheckBox"));
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
        clickButton(button)(dialog);
    };
}

int askedWith(int kind, const DialogAnswer &answer, bool *shown = nullptr)
{
    DontDialog dialog("Warning", "Continue?", kind, baseKey, nullptr);
    const DialogAnswers answering(answer);
    const int result = dialog.exec();
    if (shown)
        *shown = !answering.seen().isEmpty();
    return result;
}

} // namespace

class TestDontDialog : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }

    void showsWhatItIsGiven();
    void buttonsOfTheKind_data();
    void buttonsOfTheKind();
    void answerWithoutTheBox_data();
    void answerWithoutTheBox();
    void answerForGood_data();
    void answerForGood();
    void otherWaysOfClosing_data();
    void otherWaysOfClosing();
    void rememberedAnswer_data();
    void rememberedAnswer();
    void comesBackWhenSwitchedOn();
    void returnPressesTheFirstButton();
    void keepsItsTextsInAnotherLanguage();
    void worksWithoutAKind();
};

void TestDontDialog::showsWhatItIsGiven()
{
    DontDialog dialog("Title", "<b>not</b> rich\nsecond line", 1, baseKey, nullptr);
    QCOMPARE(dialog.windowTitle(), "Title");
    const auto *message = dialog.findChild<QTextEdit *>("mainTextEdit");
    QCOMPARE(message->toPlainText(), "<b>not</b> rich\nsecond line");
    QVERIFY(message->isReadOnly());
    QCOMPARE(message->frameShape(), QFrame::NoFrame);
    QCOMPARE(message->styleSheet(), "background-color: rgb(235, 233, 237);\ncolor: rgb(26, 26, 26);");
    QCOMPARE(dialog.findChild<QCheckBox *>("dontCheckBox")->text(), "never show this message again");
    QVERIFY(!dialog.findChild<QCheckBox *>("dontCheckBox")->isChecked());
    QCOMPARE(dialog.findChild<QPushButton *>("yesButton")->text(), "Yes");
    QCOMPARE(dialog.findChild<QPushButton *>("noButton")->text(), "No");
    QCOMPARE(dialog.findChild<QPushButton *>("okButton")->text(), "Ok");
    QVERIFY(dialog.findChild<QFrame *>("line"));
    QCOMPARE(dialog.layout()->spacing(), 5);
}

void TestDontDialog::buttonsOfTheKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("question");
    QTest::addColumn<bool>("icon");
    QTest::newRow("0") << 0 << false << true;
    QTest::newRow("1") << 1 << true << true;
    QTest::newRow("2") << 2 << false << true;
    QTest::newRow("3") << 3 << true << true;
    QTest::newRow("4") << 4 << false << false;
    QTest::newRow("-1") << -1 << false << false;
}

void TestDontDialog::buttonsOfTheKind()
{
    QFETCH(int, kind);
    QFETCH(bool, question);
    QFETCH(bool, icon);
    DontDialog dialog("Warning", "Continue?", kind, baseKey, nullptr);
    dialog.show();
    QCOMPARE(dialog.findChild<QPushButton *>("yesButton")->isVisible(), question);
    QCOMPARE(dialog.findChild<QPushButton *>("noButton")->isVisible(), question);
    QCOMPARE(dialog.findChild<QPushButton *>("okButton")->isVisible(), !question);
    const auto *label = dialog.findChild<QLabel *>();
    QCOMPARE(!label->pixmap().isNull(), icon);
    QVERIFY(label->alignment().testFlag(Qt::AlignTop));
}

void TestDontDialog::answerWithoutTheBox_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    QTest::addColumn<QVariant>("remembered");
    QTest::newRow("yes") << 1 << "yesButton" << 1 << QVariant("true");
    QTest::newRow("no") << 1 << "noButton" << 0 << QVariant("false");
    QTest::newRow("yes, ok icon") << 3 << "yesButton" << 1 << QVariant("true");
    QTest::newRow("ok") << 0 << "okButton" << 0 << QVariant();
    QTest::newRow("ok, ok icon") << 2 << "okButton" << 0 << QVariant();
}

void TestDontDialog::answerWithoutTheBox()
{
    QFETCH(int, kind);
    QFETCH(QString, button);
    QFETCH(int, result);
    QFETCH(QVariant, remembered);
    for (int round = 0; round < 2; ++round) {
        bool shown = false;
        QCOMPARE(askedWith(kind, clickButton(button), &shown), result);
        QVERIFY(shown);
        QCOMPARE(QSettings().value(baseKey).toBool(), true);
        QCOMPARE(QSettings().value(rememberedKey), remembered);
    }
}

void TestDontDialog::answerForGood_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("later");
    QTest::newRow("yes") << 1 << "yesButton" << 1 << 1;
    QTest::newRow("no") << 1 << "noButton" << 0 << 0;
    QTest::newRow("ok gives 0 once, then the default") << 0 << "okButton" << 0 << 1;
    QTest::newRow("the same with the other icon") << 2 << "okButton" << 0 << 1;
}

void TestDontDialog::answerForGood()
{
    QFETCH(int, kind);
    QFETCH(QString, button);
    QFETCH(int, result);
    QFETCH(int, later);
    QCOMPARE(askedWith(kind, ::answerForGood(button)), result);
    QVERIFY(QSettings().contains(baseKey));
    QCOMPARE(QSettings().value(baseKey).toBool(), false);
    QCOMPARE(QSettings().contains(rememberedKey), kind == 1);

    DontDialog again("Warning", "Continue?", kind, baseKey, nullptr);
    QCOMPARE(again.exec(), later);
    QVERIFY(!again.isVisible());
}

void TestDontDialog::otherWaysOfClosing_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("escape") << true;
    QTest::newRow("title bar") << false;
}

void TestDontDialog::otherWaysOfClosing()
{
    QFETCH(bool, escape);
    const int result = askedWith(1, [escape](QWidget *dialog) {
        dialog->findChild<QCheckBox *>("dontCheckBox")->setChecked(true);
        if (escape)
            QTest::keyClick(dialog, Qt::Key_Escape);
        else
            dialog->close();
    });
    QCOMPARE(result, 0);
    QVERIFY(QSettings().allKeys().isEmpty());
}

void TestDontDialog::rememberedAnswer_data()
{
    QTest::addColumn<QVariant>("show");
    QTest::addColumn<QVariant>("answer");
    QTest::addColumn<int>("result");
    QTest::newRow("bool, yes") << QVariant(false) << QVariant("true") << 1;
    QTest::newRow("bool, no") << QVariant(false) << QVariant("false") << 0;
    QTest::newRow("text, yes") << QVariant("false") << QVariant(true) << 1;
    QTest::newRow("text, no") << QVariant("false") << QVariant(false) << 0;
    QTest::newRow("no answer yet") << QVariant("false") << QVariant() << 1;
}

void TestDontDialog::rememberedAnswer()
{
    QFETCH(QVariant, show);
    QFETCH(QVariant, answer);
    QFETCH(int, result);
    QSettings settings;
    settings.setValue(baseKey, show);
    if (answer.isValid())
        settings.setValue(rememberedKey, answer);
    settings.sync();
    DontDialog dialog("Warning", "Continue?", 1, baseKey, nullptr);
    QCOMPARE(dialog.exec(), result);
}

void TestDontDialog::comesBackWhenSwitchedOn()
{
    QCOMPARE(askedWith(1, ::answerForGood("noButton")), 0);
    QSettings().setValue(baseKey, true);
    bool shown = false;
    QCOMPARE(askedWith(1, clickButton("yesButton"), &shown), 1);
    QVERIFY(shown);
}

void TestDontDialog::returnPressesTheFirstButton()
{
    QCOMPARE(askedWith(1, pressKey(Qt::Key_Return)), 1);
    QCOMPARE(QSettings().value(rememberedKey).toString(), "true");
    QCOMPARE(askedWith(0, pressKey(Qt::Key_Return)), 0);
}

void TestDontDialog::keepsItsTextsInAnotherLanguage()
{
    DontDialog dialog("Warning", "Continue?", 1, baseKey, nullptr);
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(&dialog, &change);
    QCOMPARE(dialog.windowTitle(), "Warning");
    QCOMPARE(dialog.findChild<QTextEdit *>("mainTextEdit")->toPlainText(), "Continue?");
}

void TestDontDialog::worksWithoutAKind()
{
    QCOMPARE(askedWith(99, ::answerForGood("okButton")), 0);
    QCOMPARE(QSettings().value(baseKey).toBool(), false);
}

REGISTER_TEST(TestDontDialog)
#include "tst_dontdialog.moc"
