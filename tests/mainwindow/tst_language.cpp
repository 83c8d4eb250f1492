// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/windowprobe.h"
#include "support/testmain.h"
#include "widgets/qtcolorpicker.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFile>
#include <QLocale>
#include <QProcess>
#include <QSettings>
#include <QTest>
#include <QTextStream>
#include <QToolButton>
#include <QUrl>

namespace {

/// Compiles a translation to a language that only the test has into the program's folder, and takes it away again.
class TestTranslation
{
public:
    /// @p texts are pairs of source and translation in the context Scrivara; @p locale names no language that is laid.
    TestTranslation(const QString &locale, const QList<std::pair<QString, QString>> &texts)
        : m_path(Scrivara::folderPath(QStringLiteral("translations")) + QStringLiteral("scrivara_") + locale +
                 QStringLiteral(".qm"))
    {
        QFile source(m_sources.filePath(QStringLiteral("t.ts")));
        if (!source.open(QIODevice::WriteOnly))
            qFatal("cannot write the translation");
        QTextStream out(&source);
        out << "<?xml version=\"1.0\" encoding=\"utf-8\"?><!DOCTYPE TS><TS version=\"2.1\" language=\"" << locale
            << "\"><context><name>Scrivara</name>";
        for (const auto &[text, translation] : texts)
            out << "<message><source>" << text << "</source><translation>" << translation << "</translation></message>";
        out << "</context></TS>";
        out.flush();
        source.close();
        const int code =
            QProcess::execute(QStringLiteral(KESTRIN_LRELEASE), {"-silent", source.fileName(), "-qm", m_path});
        if (code != 0)
            qFatal("lrelease failed");
    }

    ~TestTranslation() { QFile::remove(m_path); }
    TestTranslation(const TestTranslation &) = delete;
    TestTranslation &operator=(const TestTranslation &) = delete;

private:
    QTemporaryDir m_sources;
    QString m_path;
};

/// Notes the addresses that the program wants to show.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    UrlCatcher() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    QStringList urls;

public slots:
    void open(const QUrl &url) { urls.append(url.toString()); }
};

} // namespace

class TestLanguage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void switchesAtOnce();
    void everyTextIsRetranslated();
    void storedLanguageIsLoaded();
    void defaultStartsInEnglish();
    void systemDefaultIsResolved();
    void missingFileGivesSourceTexts();
    void switchBack();
    void systemLocaleChange();
    void otherChangesDoNothing();
    void recentTextsAreKept();
    void webPages();
};

void TestLanguage::init()
{
    QSettings().clear();
}

void TestLanguage::switchesAtOnce()
{
    const WindowProbe window;
    QCOMPARE(window.menu("menuFile")->title(), QStringLiteral("File"));
    window.action("actionPolski")->trigger();
    QCOMPARE(window.menu("menuFile")->title(), QStringLiteral("Plik"));
    QCOMPARE(window.bar("ScvFileToolBar")->windowTitle(), QStringLiteral("Plik"));
    QCOMPARE(window.action("actionUndo")->text(), QStringLiteral("Cofnij"));
    QVERIFY(window.action("actionPolski")->isChecked());
    window->saveSettings();
    QCOMPARE(QSettings().value(QStringLiteral("Other/AppLanguage")).toString(), QStringLiteral("pl"));
}

void TestLanguage::everyTextIsRetranslated()
{
    const QStringList texts{"Open...",
                            "Recent Files",
                            "Delete",
                            "Line",
                            "Simple",
                            "Simple Line",
                            "Thin Black Pen",
                            "Page View...",
                            "Snapshot...",
                            "Toolbars",
                            "Standard",
                            "Basic Tools",
                            "Extras",
                            "About...",
                            "Previous",
                            "Whole Words",
                            "Line Color",
                            "Fill Color",
                            "Find",
                            "Actual Page Size",
                            "Unlock Document",
                            "Highlight Syntax",
                            "Pens and Markers",
                            "Change Language..."};
    QList<std::pair<QString, QString>> translated;
    for (const QString &text : texts)
        translated.append({text, "yy:" + text});
    const TestTranslation invented(QStringLiteral("yy"), translated);
    const WindowProbe window;
    QAction action;
    action.setData(QStringLiteral("yy"));
    window->switchLanguage(&action);
    QCOMPARE(window.action("actionOpen")->text(), QStringLiteral("yy:Open..."));
    QCOMPARE(window.menu("recentFilesMenu")->title(), QStringLiteral("yy:Recent Files"));
    QCOMPARE(window.action("actionRemove")->text(), QStringLiteral("yy:Delete"));
    QCOMPARE(window.menu("menuLines")->title(), QStringLiteral("yy:Line"));
    QCOMPARE(window.action("actionSimpleLine")->text(), QStringLiteral("yy:Simple"));
    QCOMPARE(window.action("actionSimpleLine")->toolTip(), QStringLiteral("yy:Simple Line"));
    QCOMPARE(window.action("actionThinBlackPen")->toolTip(), QStringLiteral("yy:Thin Black Pen"));
    QCOMPARE(window.action("actionPageViewSettings")->text(), QStringLiteral("yy:Page View..."));
    QCOMPARE(window.action("actionScreenshotSettings")->text(), QStringLiteral("yy:Snapshot..."));
    QCOMPARE(window.menu("menuShowToolBars")->title(), QStringLiteral("yy:Toolbars"));
    QCOMPARE(window.action("actionFullView")->text(), QStringLiteral("yy:Standard"));
    QCOMPARE(window.bar("ScvNormToolsToolBar")->windowTitle(), QStringLiteral("yy:Basic Tools"));
    QCOMPARE(window.menu("menuBonus")->title(), QStringLiteral("yy:Extras"));
    QCOMPARE(window.action("actionAbout")->text(), QStringLiteral("yy:About..."));
    QCOMPARE(window.menu("menuChangeLanguage")->title(), QStringLiteral("yy:Change Language..."));
    QCOMPARE(window.bar("ScvSearchToolBar")->windowTitle(), QStringLiteral("yy:Find"));
    QCOMPARE(window.bar("ScvStdToolsToolBar")->windowTitle(), QStringLiteral("yy:Pens and Markers"));
    QCOMPARE(window.linePicker()->toolTip(), QStringLiteral("yy:Line Color"));
    QCOMPARE(window.fillPicker()->toolTip(), QStringLiteral("yy:Fill Color"));
    QCOMPARE(window.zoomBox()->toolTip(), QStringLiteral("yy:Actual Page Size"));
    QCOMPARE(window.lockButton()->toolTip(), QStringLiteral("yy:Unlock Document"));
    QCOMPARE(window.syntaxButton()->toolTip(), QStringLiteral("yy:Highlight Syntax"));
    QStringList buttons;
    for (const QAbstractButton *button : window.bar("ScvSearchToolBar")->findChildren<QAbstractButton *>())
        buttons.append(button->text());
    QVERIFY(buttons.contains(QStringLiteral("yy:Previous")));
    QVERIFY(buttons.contains(QStringLiteral("yy:Whole Words")));
}

void TestLanguage::storedLanguageIsLoaded()
{
    QSettings().setValue(QStringLiteral("Other/AppLanguage"), QStringLiteral("pl"));
    LogProbe log;
    {
        const WindowProbe window;
        QCOMPARE(window.menu("menuFile")->title(), QStringLiteral("Plik"));
    }
    QVERIFY(log.traceSinceMark().contains(QStringLiteral(" locale, pl")));
    // A locale with a territory falls back to its language.
    QSettings().setValue(QStringLiteral("Other/AppLanguage"), QStringLiteral("pl_PL"));
    const WindowProbe window;
    QCOMPARE(window.menu("menuFile")->title(), QStringLiteral("Plik"));
}

void TestLanguage::defaultStartsInEnglish()
{
    LogProbe log;
    const WindowProbe window;
    QVERIFY(log.traceSinceMark().contains(QStringLiteral(" locale, en")));
    window->saveSettings();
    QCOMPARE(QSettings().value(QStringLiteral("Other/AppLanguage")).toString(), QStringLiteral("default"));
}

void TestLanguage::systemDefaultIsResolved()
{
    const WindowProbe window;
    window.action("actionEnglish")->trigger();
    window.action("actionDefaultLanguage")->trigger();
    window->saveSettings();
    QCOMPARE(QSettings().value(QStringLiteral("Other/AppLanguage")).toString(), QLocale::system().name());
}

void TestLanguage::missingFileGivesSourceTexts()
{
    const WindowProbe window;
    window.action("actionPolski")->trigger();
    QAction klingon(&*window);
    klingon.setData(QStringLiteral("tlh"));
    window->switchLanguage(&klingon);
    QCOMPARE(window.menu("menuFile")->title(), QStringLiteral("File"));
    window->saveSettings();
    QCOMPARE(QSettings().value(QStringLiteral("Other/AppLanguage")).toString(), QStringLiteral("tlh"));
}

void TestLanguage::switchBack()
{
    const WindowProbe window;
    window.action("actionPolski")->trigger();
    window.action("actionEnglish")->trigger();
    QCOMPARE(window.menu("menuFile")->title(), QStringLiteral("File"));
    QCOMPARE(window.action("actionUserGuide")->text(), QStringLiteral("Online Support..."));
}

void TestLanguage::systemLocaleChange()
{
    const WindowProbe window;
    window.action("actionPolski")->trigger();
    QEvent event(QEvent::LocaleChange);
    QCoreApplication::sendEvent(&*window, &event);
    QCOMPARE(window.menu("menuFile")->title(), QStringLiteral("File"));
    window->saveSettings();
    QCOMPARE(QSettings().value(QStringLiteral("Other/AppLanguage")).toString(), QLocale::system().name());
}

void TestLanguage::otherChangesDoNothing()
{
    const WindowProbe window;
    window.action("actionOpen")->setText(QStringLiteral("changed"));
    QEvent event(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&*window, &event);
    QCOMPARE(window.action("actionOpen")->text(), QStringLiteral("changed"));
}

void TestLanguage::recentTextsAreKept()
{
    QSettings().setValue(QStringLiteral("General/RecentFileList"), QStringList{"/a/b.txt"});
    const WindowProbe window;
    window.action("actionPolski")->trigger();
    QCOMPARE(window.recentActions().first()->text(), QStringLiteral("&1 b.txt"));
}

void TestLanguage::webPages()
{
    UrlCatcher catcher;
    const WindowProbe window;
    window.action("actionUserGuide")->trigger();
    window.action("actionGotoHomePage")->trigger();
    // Only a system whose locale is the bare "pl" gets the other page.
    const QString home = QLocale::system().name() == QLatin1String("pl") ? "pl" : "en";
    QCOMPARE(catcher.urls, (QStringList{"https://www.moorfield.example/en/kestrin7_help.html",
                                        "https://www.moorfield.example/" + home + "/index.html"}));
}

REGISTER_TEST(TestLanguage)
#include "tst_language.moc"
