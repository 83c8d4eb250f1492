// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/dialogs.h"
#include "support/testmain.h"
#include "widgets/aboutdialog.h"

#include <QApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTranslator>
#include <QUrl>

namespace {

const QString noticeStart = QStringLiteral("Copyright Moorfield.");

QTextBrowser *browserOf(const AboutDialog &dialog)
{
    return dialog.findChild<QTextBrowser *>("textBrowser");
}

void click(const AboutDialog &dialog, const char *button)
{
    QTest::mouseClick(dialog.findChild<QPushButton *>(button), Qt::LeftButton);
}

bool load(AboutDialog &dialog, const QString &fileName)
{
    bool loaded = false;
    QMetaObject::invokeMethod(&dialog, "loadTextInfo", Q_RETURN_ARG(bool, loaded), Q_ARG(QString, fileName));
    return loaded;
}

QColor colorOf(const QTextBrowser *browser, const QString &text)
{
    return browser->document()->find(text).charFormat().foreground().color();
}

/// Takes the links that would go to a web browser.
class LinkCatcher : public QObject
{
    Q_OBJECT

public:
    LinkCatcher() { QDesktopServices::setUrlHandler("https", this, "take"); }
    ~LinkCatcher() override { QDesktopServices::unsetUrlHandler("https"); }

    QList<QUrl> taken;

public slots:
    void take(const QUrl &url) { taken.append(url); }
};

class MarkingTranslator : public QTranslator
{
public:
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        return QString::fromUtf8(sourceText) + QStringLiteral("*");
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestAboutDialog : public QObject
{
    Q_OBJECT

private slots:
    void looksAsTold();
    void opensOnTheAboutPage();
    void pagesTakeTurns();
    void missingResourcesGiveASentence();
    void linesAreJoinedWithNothing();
    void homePageOpens();
    void linksLeaveTheProgram();
    void okCloses();
    void readableInADarkPalette();
    void textsFit();
    void languageChange();
};

void TestAboutDialog::looksAsTold()
{
    AboutDialog dialog;
    QCOMPARE(dialog.windowTitle(), "Kestrin 7 About");
    dialog.show();
    QCOMPARE(dialog.size(), QSize(520, 270));
    QCOMPARE(dialog.minimumSize(), QSize(520, 270));
    QCOMPARE(dialog.maximumSize(), QSize(520, 270));
    QCOMPARE(dialog.findChild<QPushButton *>("aboutButton")->text(), "About");
    QCOMPARE(dialog.findChild<QPushButton *>("licenseButton")->text(), "License");
    QCOMPARE(dialog.findChild<QPushButton *>("homePageButton")->text(), "HomePage");
    QCOMPARE(dialog.findChild<QLabel *>("mainLabel")->text(), "  Kestrin 7");
    QCOMPARE(dialog.findChild<QLabel *>("mainLabel")->styleSheet(),
             "background-color: rgb(0, 85, 127);color: rgb(255, 255, 255);\n");
    QVERIFY(!dialog.findChild<QLabel *>("label")->pixmap().isNull());
    const QTextBrowser *browser = browserOf(dialog);
    QCOMPARE(browser->styleSheet(), "background-color: rgb(240, 240, 240);");
    QCOMPARE(browser->frameShape(), QFrame::Box);
    QCOMPARE(browser->frameShadow(), QFrame::Plain);
    QVERIFY(browser->openLinks());
}

void TestAboutDialog::opensOnTheAboutPage()
{
    AboutDialog dialog;
    for (int opening = 0; opening < 2; ++opening) {
        dialog.show();
        const QString text = browserOf(dialog)->toPlainText();
        QVERIFY2(text.contains("Kestrin 7"), qPrintable(text));
        QCOMPARE(text.count(noticeStart), 1);
        QCOMPARE(colorOf(browserOf(dialog), noticeStart), QColor("#aaaaaa"));
        QVERIFY(text.section('\n', -1).startsWith(noticeStart));
        click(dialog, "licenseButton");
        dialog.hide();
    }
}

void TestAboutDialog::pagesTakeTurns()
{
    AboutDialog dialog;
    dialog.show();
    const QString about = browserOf(dialog)->toPlainText();
    click(dialog, "licenseButton");
    const QString license = browserOf(dialog)->toPlainText();
    QVERIFY(license.contains("GNU General Public License"));
    QVERIFY(!license.contains(noticeStart));
    QVERIFY(license.size() > 4000);
    click(dialog, "aboutButton");
    QCOMPARE(browserOf(dialog)->toPlainText(), about);
    click(dialog, "aboutButton");
    QCOMPARE(browserOf(dialog)->toPlainText(), about);
}

void TestAboutDialog::missingResourcesGiveASentence()
{
    AboutDialog dialog;
    dialog.show();
    const QString before = browserOf(dialog)->toPlainText();
    QVERIFY(!load(dialog, ":/txt/text/NoSuchText.html"));
    QVERIFY(!load(dialog, QDir::tempPath()));
    QCOMPARE(browserOf(dialog)->toPlainText(), before);

    Q_CLEANUP_RESOURCE(texts);
    click(dialog, "aboutButton");
    const QString about = browserOf(dialog)->toPlainText();
    click(dialog, "licenseButton");
    const QString license = browserOf(dialog)->toPlainText();
    Q_INIT_RESOURCE(texts);
    QCOMPARE(about.section('\n', 0, 0), "'About' information not available!");
    QCOMPARE(about.count(noticeStart), 1);
    QCOMPARE(license, "No information about license available!");
}

void TestAboutDialog::linesAreJoinedWithNothing()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("text.html");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<b>one\r\ntwo</b>\nthr\xc3\xa9"
               "e\n\n four");
    file.close();
    AboutDialog dialog;
    QVERIFY(load(dialog, path));
    QCOMPARE(browserOf(dialog)->toPlainText(), QString::fromUtf8("onetwothr\xc3\xa9"
                                                                 "e four"));
}

void TestAboutDialog::homePageOpens()
{
    LinkCatcher links;
    AboutDialog dialog;
    dialog.show();
    click(dialog, "homePageButton");
    QCOMPARE(links.taken.size(), 1);
    QCOMPARE(links.taken.first().fileName(), "index.html");
    QVERIFY(dialog.isVisible());
}

void TestAboutDialog::linksLeaveTheProgram()
{
    LinkCatcher links;
    AboutDialog dialog;
    dialog.show();
    click(dialog, "licenseButton");
    QTextBrowser *browser = browserOf(dialog);
    const QString license = browser->toPlainText();
    const QTextCursor link = browser->document()->find("www.gnu.org/licenses");
    QVERIFY(!link.isNull());
    browser->setTextCursor(link);
    browser->ensureCursorVisible();
    QTextCursor middle = link;
    middle.setPosition((link.position() + link.anchor()) / 2);
    QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, browser->cursorRect(middle).center());
    QCOMPARE(links.taken.size(), 1);
    QCOMPARE(browser->toPlainText(), license);
}

void TestAboutDialog::okCloses()
{
    AboutDialog dialog;
    {
        const DialogAnswers answer(clickButton("okButton"));
        QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Accepted));
    }
    {
        const DialogAnswers answer(pressKey(Qt::Key_Return));
        QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Accepted));
    }
    const DialogAnswers answer(pressKey(Qt::Key_Escape));
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Rejected));
}

void TestAboutDialog::readableInADarkPalette()
{
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(50, 50, 50));
    dark.setColor(QPalette::Link, QColor(150, 200, 255));
    QApplication::setPalette(dark);
    AboutDialog dialog;
    dialog.show();
    browserOf(dialog)->setPlainText("plain");
    QVERIFY(browserOf(dialog)->palette().color(QPalette::Text).lightness() < 60);
    click(dialog, "licenseButton");
    QVERIFY(colorOf(browserOf(dialog), "Using the program").lightness() < 60);
    QVERIFY(colorOf(browserOf(dialog), "www.gnu.org/licenses").lightness() < 100);
    QApplication::setPalette(before);
}

void TestAboutDialog::textsFit()
{
    AboutDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTRY_COMPARE(browserOf(dialog)->verticalScrollBar()->maximum(), 0);
    for (const QWidget *widget : dialog.findChildren<QPushButton *>())
        QVERIFY2(widget->width() >= widget->sizeHint().width(), qPrintable(widget->objectName()));
    for (const QWidget *widget : dialog.findChildren<QLabel *>()) {
        QVERIFY2(widget->size().expandedTo(widget->sizeHint()) == widget->size(), qPrintable(widget->objectName()));
        QVERIFY2(dialog.rect().contains(widget->geometry()), qPrintable(widget->objectName()));
    }
}

void TestAboutDialog::languageChange()
{
    AboutDialog dialog;
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QTRY_COMPARE(dialog.windowTitle(), "Kestrin 7 About*");
    QCOMPARE(dialog.findChild<QPushButton *>("aboutButton")->text(), "About*");
    QCOMPARE(dialog.findChild<QPushButton *>("licenseButton")->text(), "License*");
    QCOMPARE(dialog.findChild<QPushButton *>("homePageButton")->text(), "HomePage*");
    dialog.show();
    QVERIFY(browserOf(dialog)->toPlainText().endsWith("*"));
    QCoreApplication::removeTranslator(&translator);
    QTRY_COMPARE(dialog.windowTitle(), "Kestrin 7 About");
}

REGISTER_TEST(TestAboutDialog)
#include "tst_aboutdialog.moc"
