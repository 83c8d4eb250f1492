// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"
#include "support/files.h"
#include "support/testmain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

enum Menu { Edit = 1, Settings = 3, View = 4, Extras = 5, Help = 6 };

const QString floatingBar = QStringLiteral("^Kestrin 7$");

} // namespace

/// Search, layouts, full screen, snapshot and languages in the real window.
class TestViews : public QObject
{
    Q_OBJECT

private slots:
    void searchFindsAndStartsOver();
    void fullScreenAndBack();
    void layouts();
    void snapshotReachesOtherPrograms();
    void languagesThereAndBack();
    void languageOfTheSystem();

private:
    /// The window without the mouse over any of its parts.
    QImage picture(const InstalledProgram &program) const;
    QString openDialogTitle() const;
    QStringList openDialogTitles(const InstalledProgram &program, const QList<int> &languages) const;

    XSession m_session;
};

QImage TestViews::picture(const InstalledProgram &program) const
{
    const QRect window = m_session.geometry(program.window());
    m_session.tool(QStringLiteral("xdotool"), {QStringLiteral("mousemove"), QString::number(window.center().x()),
                                               QString::number(window.center().y())});
    m_session.waitUntilQuiet();
    return m_session.grab().copy(m_session.geometry(program.window()));
}

void TestViews::searchFindsAndStartsOver()
{
    InstalledProgram program(m_session);
    const QString path = program.writeDocument(QStringLiteral("a.txt"), "alpha beta\nBeta gamma\nthe end\n");
    QVERIFY(!program.start({path}).isEmpty());
    program.startTyping();
    m_session.key(QStringLiteral("ctrl+f"));
    m_session.type(QStringLiteral("beta"));
    for (int found = 0; found < 2; ++found) {
        m_session.key(QStringLiteral("Return"));
        m_session.waitUntilQuiet();
        QVERIFY(m_session.windows(QStringLiteral("^Search Text$")).isEmpty());
    }
    m_session.key(QStringLiteral("Return"));
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Search Text$")).isEmpty());
    m_session.key(QStringLiteral("Return"));
    QTRY_VERIFY(m_session.windows(QStringLiteral("^Search Text$")).isEmpty());
    // From the top again. What is found is selected: it can be cut.
    m_session.key(QStringLiteral("Return"));
    m_session.waitUntilQuiet();
    program.choose(Edit, 0); // Cut, the first one on offer
    program.startTyping();   // saving is on offer after the next click
    m_session.key(QStringLiteral("ctrl+s"));
    QTRY_COMPARE(InstalledProgram::read(path), QByteArray("alpha \nBeta gamma\nthe end"));
    QVERIFY(program.closeRegularly());
}

void TestViews::fullScreenAndBack()
{
    InstalledProgram program(m_session);
    QVERIFY(!program.start({program.writeDocument(QStringLiteral("a.txt"), "one\n")}).isEmpty());
    m_session.waitUntilQuiet();
    const QRect screen = m_session.grab().rect();
    QVERIFY(m_session.geometry(program.window()) != screen);
    for (const bool byTheBar : {false, true}) {
        m_session.key(QStringLiteral("F10"));
        QTRY_COMPARE(m_session.geometry(program.window()), screen);
        const QString bar = m_session.waitForWindow(floatingBar, XSession::Visible);
        QVERIFY(!bar.isEmpty());
        if (byTheBar) {
            m_session.waitUntilQuiet();
            const QSize size = m_session.geometry(bar).size();
            m_session.click(bar, {size.width() / 4, size.height() / 2});
        } else {
            m_session.waitUntilQuiet();
            m_session.key(QStringLiteral("F10"));
        }
        QTRY_VERIFY(m_session.geometry(program.window()) != screen);
        QTRY_VERIFY(m_session.windows(floatingBar).isEmpty());
    }
    QVERIFY(program.closeRegularly());
}

void TestViews::layouts()
{
    InstalledProgram program(m_session);
    QVERIFY(!program.start({program.writeDocument(QStringLiteral("a.txt"), "one\n")}).isEmpty());
    const QImage standard = picture(program);
    program.choose(View, 4);
    const QImage compact = picture(program);
    QVERIFY(compact != standard);
    QVERIFY(m_session.windows(floatingBar).isEmpty());

    program.choose(View, 3);
    const QString bar = m_session.waitForWindow(floatingBar, XSession::Visible);
    QVERIFY(!bar.isEmpty());
    const QImage minimal = picture(program);
    QVERIFY(minimal != compact && minimal != standard);
    const QSize size = m_session.geometry(bar).size();
    m_session.click(bar, {size.width() - size.width() / 8, size.height() / 2});
    QTRY_VERIFY(m_session.windows(floatingBar).isEmpty());
    QTRY_COMPARE(picture(program), standard);
    QVERIFY(program.closeRegularly());
}

void TestViews::snapshotReachesOtherPrograms()
{
    InstalledProgram program(m_session);
    QVERIFY(!program.start({program.writeDocument(QStringLiteral("a.txt"), "one\n")}).isEmpty());
    m_session.waitUntilQuiet();
    program.choose(Extras, 1);
    const QPoint corner = m_session.geometry(program.window()).topLeft() + QPoint(200, 150);
    m_session.drag({corner, corner + QPoint(50, 50), corner + QPoint(100, 80)});
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Information$")).isEmpty());
    m_session.key(QStringLiteral("Return"));
    QTRY_VERIFY(m_session.windows(QStringLiteral("^Information$")).isEmpty());
    const QString reader = QCoreApplication::applicationDirPath() + QStringLiteral("/clipboardreader");
    QCOMPARE(m_session.tool(reader, {}), QStringLiteral("picture 96 x 76"));
    QVERIFY(program.closeRegularly());
}

/// Windows are not searched by their names here: the tool reads names of another language in the system's locale only.
QString TestViews::openDialogTitle() const
{
    const auto title = [this] {
        return m_session.tool(QStringLiteral("xdotool"),
                              {QStringLiteral("getactivewindow"), QStringLiteral("getwindowname")});
    };
    const auto isMainWindow = [&title] { return title().startsWith(QLatin1String("Kestrin 7")); };
    m_session.waitUntilQuiet();
    m_session.key(QStringLiteral("ctrl+o"));
    [&] { QTRY_VERIFY_WITH_TIMEOUT(!isMainWindow() && !title().isEmpty(), 20000); }();
    const QString shown = title();
    m_session.key(QStringLiteral("Escape"));
    [&] { QTRY_VERIFY_WITH_TIMEOUT(isMainWindow(), 20000); }();
    return shown;
}

QStringList TestViews::openDialogTitles(const InstalledProgram &program, const QList<int> &languages) const
{
    QStringList titles;
    for (const int language : languages) {
        program.choose(Settings, 1, language);
        titles.append(openDialogTitle());
    }
    return titles;
}

void TestViews::languagesThereAndBack()
{
    InstalledProgram program(m_session);
    program.setSetting(QStringLiteral("Other/AppLanguage"), QStringLiteral("en"));
    QVERIFY(!program.start().isEmpty());
    m_session.waitUntilQuiet();
    const int english = 2;
    const int polish = 3;
    const int french = 4;
    QCOMPARE(openDialogTitles(program, {polish, french, english}),
             QStringList({"Otwórz plik", "Ouvrir un fichier", "Open File"}));
    program.choose(Settings, 1, french);
    QVERIFY(program.closeRegularly());
    QCOMPARE(program.setting(QStringLiteral("Other/AppLanguage")).toString(), QStringLiteral("fr"));
}

void TestViews::languageOfTheSystem()
{
    const int systemDefault = 1;
    for (const auto &[locale, title] : {std::pair("pl_PL", "Otwórz plik"), std::pair("de_DE", "Open File")}) {
        InstalledProgram program(m_session);
        program.setEnvironment(QStringLiteral("LC_ALL"), QString::fromLatin1(locale) + ".UTF-8");
        // Qt splits the command at blanks, and the program's own folder has one in its name.
        const QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/browser"));
        const QString browser = folder.filePath(QStringLiteral("xdg-open"));
        store(browser, "#!/bin/sh\nprintf %s \"$1\" > \"$0.part\"\nmv \"$0.part\" \"$0.url\"\n");
        QFile::setPermissions(browser, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        program.setEnvironment(QStringLiteral("PATH"), folder.path() + ':' + qEnvironmentVariable("PATH"));
        QVERIFY(!program.start().isEmpty());
        program.choose(Settings, 1, systemDefault);
        QCOMPARE(openDialogTitle(), QString::fromUtf8(title));
        // The maker's page is the English one: it is asked for the bare language.
        program.choose(Help, 2);
        QTRY_COMPARE(InstalledProgram::read(browser + ".url"),
                     QByteArray("https://www.moorfield.example/en/index.html"));
        QVERIFY(program.closeRegularly());
        QCOMPARE(program.setting(QStringLiteral("Other/AppLanguage")).toString(), QString::fromLatin1(locale));
    }
}

REGISTER_TEST(TestViews)
#include "tst_views.moc"
