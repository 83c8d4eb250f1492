// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/emailtab.h"
#include "settings/settingsprobe.h"
#include "support/desktopentry.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/standins.h"
#include "support/testmain.h"

#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// A desktop whose mail client is what stands behind "Exec".
class Desktop
{
public:
    explicit Desktop(const QByteArray &exec)
        : m_entry(QStringLiteral("settings-test.desktop"), "[Desktop Entry]\nExec=" + exec + '\n')
    {
        m_programs.add(QStringLiteral("xdg-mime"), "echo settings-test.desktop");
    }

private:
    StandIns m_programs;
    DesktopEntry m_entry;
};

struct MailPage
{
    MailPage() { tab.load(QSettings()); }

    QString client() const { return shownBy(partOf(&tab, QStringLiteral("emailClientEdit"))).toString(); }
    QPushButton *defaultButton() const { return tab.findChild<QPushButton *>(QStringLiteral("defaultButton")); }
    QPushButton *browseButton() const { return tab.findChild<QPushButton *>(QStringLiteral("browseButton")); }

    EmailTab tab;
};

} // namespace

class TestEmailTab : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void browse();
    void browseCancelled();
    void browseReleasesTheDefault();
    void useDefault();
    void useDefaultStoresNothing();
    void noDefault_data();
    void noDefault();
    void defaultButtonComesUpAtReopening();
    void unknownFormatLeavesTheButtons();
    void formatOrder();
};

void TestEmailTab::browse()
{
    const QTemporaryDir folder;
    const QString program = folder.filePath(QStringLiteral("mailer"));
    store(program, "x");
    const MailPage page;
    DialogAnswers answers;
    answers.chooseFile(program);
    page.browseButton()->click();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().constFirst().title, QStringLiteral("Select E-mail Client"));
    QCOMPARE(answers.seen().constFirst().parent, &page.tab);
#ifdef Q_OS_WIN
    QCOMPARE(answers.seen().constFirst().nameFilters, QStringList{"Executable files: (*.exe)"});
#else
    QCOMPARE(answers.seen().constFirst().nameFilters, QStringList{"All Files (*)"});
#endif
    QCOMPARE(page.client(), program);
    QVERIFY(QSettings().allKeys().isEmpty());
}

void TestEmailTab::browseCancelled()
{
    const MailPage page;
    page.defaultButton()->setChecked(true);
    DialogAnswers answers;
    answers.reject();
    page.browseButton()->click();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(page.client(), QStringLiteral("(empty)"));
    QVERIFY(page.defaultButton()->isChecked());
}

void TestEmailTab::browseReleasesTheDefault()
{
    const QTemporaryDir folder;
    store(folder.filePath(QStringLiteral("mailer")), "x");
    const MailPage page;
    page.defaultButton()->setChecked(true);
    DialogAnswers answers;
    answers.chooseFile(folder.filePath(QStringLiteral("mailer")));
    page.browseButton()->click();
    QVERIFY(!page.defaultButton()->isChecked());
}

void TestEmailTab::useDefault()
{
    const Desktop desktop("/usr/bin/some-mailer %u");
    const MailPage page;
    page.defaultButton()->click();
    QCOMPARE(page.client(), QStringLiteral("/usr/bin/some-mailer"));
    QVERIFY(page.defaultButton()->isChecked());
    // A second click does not take it back.
    page.defaultButton()->click();
    QVERIFY(page.defaultButton()->isChecked());
}

void TestEmailTab::useDefaultStoresNothing()
{
    const Desktop desktop("/usr/bin/some-mailer %u");
    MailPage page;
    page.defaultButton()->click();
    QVERIFY(QSettings().allKeys().isEmpty());
    QSettings settings;
    page.tab.store(settings);
    QCOMPARE(settings.value(QStringLiteral("General/EmailClient")).toString(), QStringLiteral("/usr/bin/some-mailer"));
}

void TestEmailTab::noDefault_data()
{
    QTest::addColumn<QByteArray>("exec");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("literal for none") << QByteArray("(empty)");
}

void TestEmailTab::noDefault()
{
    QFETCH(const QByteArray, exec);
    const Desktop desktop(exec);
    QSettings().setValue(QStringLiteral("General/EmailClient"), QStringLiteral("mine"));
    const MailPage page;
    const DialogAnswers answers;
    for (const bool before : {false, true}) {
        page.defaultButton()->setChecked(before);
        page.defaultButton()->click();
        QCOMPARE(page.client(), QStringLiteral("mine"));
        QCOMPARE(page.defaultButton()->isChecked(), before);
    }
    QCOMPARE(answers.seen().size(), 0);
}

void TestEmailTab::defaultButtonComesUpAtReopening()
{
    MailPage page;
    page.defaultButton()->setChecked(true);
    page.tab.load(QSettings());
    QVERIFY(!page.defaultButton()->isChecked());
}

void TestEmailTab::unknownFormatLeavesTheButtons()
{
    MailPage page;
    choose(partOf(&page.tab, QStringLiteral("pngRadio")), true);
    QSettings().setValue(QStringLiteral("General/AttachmentFormat"), QStringLiteral("GIF"));
    page.tab.load(QSettings());
    QCOMPARE(shownBy(partOf(&page.tab, QStringLiteral("pngRadio"))), QVariant(true));
}

void TestEmailTab::formatOrder()
{
    MailPage page;
    // With none checked, as only a program can do it, it is the first format.
    auto *oxn = qobject_cast<QAbstractButton *>(partOf(&page.tab, QStringLiteral("oxnRadio")));
    oxn->setAutoExclusive(false);
    oxn->setChecked(false);
    QSettings settings;
    page.tab.store(settings);
    QCOMPARE(settings.value(QStringLiteral("General/AttachmentFormat")).toString(), QStringLiteral("OXN"));
}

REGISTER_TEST(TestEmailTab)
#include "tst_emailtab.moc"
