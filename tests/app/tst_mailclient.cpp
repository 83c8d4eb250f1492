// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/mailclient.h"

#include "support/desktopentry.h"
#include "support/standins.h"
#include "support/testmain.h"

#include <QTest>

class TestMailClient : public QObject
{
    Q_OBJECT

private slots:
    void programOfTheEntry_data();
    void programOfTheEntry();
    void theSystemIsAskedForMailto();
    void noAnswer_data();
    void noAnswer();
};

void TestMailClient::programOfTheEntry_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<QString>("program");
    const QByteArray head("[Desktop Entry]\nType=Application\n");
    QTest::newRow("program") << head + "Exec=thunderbird"
                             << "thunderbird";
    QTest::newRow("placeholder") << head + "Exec=thunderbird -mail %U\n"
                                 << "thunderbird";
    QTest::newRow("path") << head + "Exec=/opt/mail/client %u\n"
                          << "/opt/mail/client";
    QTest::newRow("quoted path") << head + "Exec=\"/opt/my mail/client\" %u\n"
                                 << "/opt/my mail/client";
    QTest::newRow("quotes within") << head + "Exec=\"/opt/a\\\\\"b\\\\$c/client\" %u\n"
                                   << "/opt/a\"b$c/client";
    QTest::newRow("environment") << head + "Exec=env LANG=C GDK=x11 /snap/bin/mail %u\n"
                                 << "/snap/bin/mail";
    QTest::newRow("blanks around") << head + "Exec =  client  %u \n"
                                   << "client";
    QTest::newRow("carriage returns") << QByteArray("[Desktop Entry]\r\nExec=client %u\r\n") << "client";
    QTest::newRow("other groups") << "[Desktop Action New]\nExec=other\n" + head +
                                         "Exec=client\n[Desktop Action More]\nExec=third\n"
                                  << "client";
    QTest::newRow("localised names") << head + "Exec[pl]=other\nTryExec=third\nExec=client\n"
                                     << "client";
    QTest::newRow("program of a sandbox")
        << head + "Exec=/usr/bin/flatpak run --command=mail org.mail.Client @@u %u @@\n"
        << "";
    QTest::newRow("program of a package") << head + "Exec=snap run client %u\n"
                                          << "";
    QTest::newRow("shell command") << head + "Exec=sh -c \"client %u\"\n"
                                   << "";
    QTest::newRow("no command") << head << "";
    QTest::newRow("empty command") << head + "Exec=\n"
                                   << "";
    QTest::newRow("only an environment") << head + "Exec=env A=b\n"
                                         << "";
    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("binary") << QByteArray("\0\xff[Desktop Entry]\nExec=x", 24) << "";
}

void TestMailClient::programOfTheEntry()
{
    QFETCH(QByteArray, entry);
    const DesktopEntry file(QStringLiteral("post.desktop"), entry);
    StandIns programs;
    programs.add(QStringLiteral("xdg-mime"), "echo post.desktop");
    QTEST(defaultMailClient(), "program");
}

void TestMailClient::theSystemIsAskedForMailto()
{
    StandIns programs;
    const QString query = programs.addRecorder(QStringLiteral("xdg-mime"));
    QCOMPARE(defaultMailClient(), QString());
    QCOMPARE(StandIns::recorded(query), (QStringList{"query", "default", "x-scheme-handler/mailto"}));
}

void TestMailClient::noAnswer_data()
{
    QTest::addColumn<QByteArray>("script"); // empty: no such program
    QTest::newRow("no program") << QByteArray();
    QTest::newRow("says nothing") << QByteArray("exit 0");
    QTest::newRow("fails") << QByteArray("echo post.desktop; exit 2");
    QTest::newRow("no such entry") << QByteArray("echo other.desktop");
    QTest::newRow("a folder") << QByteArray("echo /");
    QTest::newRow("killed") << QByteArray("echo post.desktop; kill -9 $$");
}

void TestMailClient::noAnswer()
{
    QFETCH(QByteArray, script);
    const DesktopEntry file(QStringLiteral("post.desktop"), "[Desktop Entry]\nExec=client\n");
    StandIns programs;
    if (!script.isEmpty())
        programs.add(QStringLiteral("xdg-mime"), script);
    QCOMPARE(defaultMailClient(), QString());
}

REGISTER_TEST(TestMailClient)
#include "tst_mailclient.moc"
