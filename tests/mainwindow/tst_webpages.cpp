// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/windowprobe.h"
#include "support/testmain.h"

#include <QDesktopServices>
#include <QSettings>
#include <QTest>
#include <QUrl>

/// Stands for the browser: notes which pages were asked for.
class TestWebPages : public QObject
{
    Q_OBJECT

public slots:
    void open(const QUrl &page) { m_opened.append(page); }

private slots:
    void init();
    void cleanup() { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
    void pages_data();
    void pages();

private:
    QList<QUrl> m_opened;
};

void TestWebPages::init()
{
    QSettings().clear();
    m_opened.clear();
    QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open");
}

void TestWebPages::pages_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QString>("path");
    QTest::newRow("user guide") << QByteArray("actionUserGuide") << "/en/kestrin7_help.html";
    QTest::newRow("home page") << QByteArray("actionGotoHomePage") << "/en/index.html";
}

void TestWebPages::pages()
{
    QFETCH(QByteArray, action);
    // The pages go by the system's language, not by that of the program.
    QSettings().setValue(QStringLiteral("Other/AppLanguage"), QStringLiteral("pl"));
    const WindowProbe window;
    window.action(action.constData())->trigger();
    QCOMPARE(m_opened.size(), 1);
    QTEST(m_opened.constFirst().path(), "path");
    QVERIFY(!m_opened.constFirst().host().isEmpty());
}

REGISTER_TEST(TestWebPages)
#include "tst_webpages.moc"
