// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "mainwindow/outputstage.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/pdfprobe.h"
#include "support/standins.h"
#include "support/testmain.h"

#include <QSettings>
#include <QStandardPaths>
#include <QTest>

namespace {

const QString mailKey = QStringLiteral("General/EmailClient");
const QString plainMail = QStringLiteral("to=,subject=Annotated file,body=");
const QString mailWithFile = QStringLiteral("to=,subject=Annotated file,body=,attachment=");

/// Removes what mails have left.
void emptyTemporary()
{
    QDir folder(Scrivara::folderPath(QStringLiteral("temporary")));
    for (const QString &entry : folder.entryList(QDir::Files))
        folder.remove(entry);
}

/// Waits for a stand-in of the mail client to end and returns its arguments.
QStringList mailArguments(const QString &client)
{
    QStringList arguments;
    [&] { QTRY_VERIFY(!(arguments = StandIns::recorded(client)).isEmpty()); }();
    return arguments;
}

/// Sends a mail without a file as soon as the client of the last one has gone, and returns the new one's arguments.
QStringList nextMailArguments(const WindowProbe &window, const QString &client)
{
    QFile::remove(client + ".arguments");
    // A mail that is sent too early is refused, and nothing else happens.
    [&] { QTRY_VERIFY((window->sendFileViaEmail(), !StandIns::recorded(client).isEmpty())); }();
    return StandIns::recorded(client);
}

/// The mail client of the settings: a stand-in that notes its arguments and ends. Nothing else can be found meanwhile.
class MailClient
{
public:
    explicit MailClient(const QString &name = QStringLiteral("client")) : m_path(m_programs.addRecorder(name))
    {
        QSettings().setValue(mailKey, m_path);
    }

    QString path() const { return m_path; }
    QStringList arguments() const { return mailArguments(m_path); }
    QStringList nextArguments(const WindowProbe &window) const { return nextMailArguments(window, m_path); }

private:
    StandIns m_programs;
    QString m_path;
};

/// Lets documents be attached in @p format; in that of an empty store if it is null.
void attachAs(const QString &format)
{
    QSettings settings;
    settings.setValue(QStringLiteral("General/AttachFileByDefault"), true);
    if (!format.isNull())
        settings.setValue(QStringLiteral("General/AttachmentFormat"), format);
}

} // namespace

/// Mails from the window, with and without an attachment.
class TestMail : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { emptyTemporary(); }
    void mailWithoutDocument();
    void mailWithoutAttachment();
    void attachments_data();
    void attachments();
    void attachedPdf();
    void unsavedDocumentIsAttachedByItsName_data();
    void unsavedDocumentIsAttachedByItsName();
    void attachmentLeavesTheDocumentAlone();
    void unwritableAttachmentIsNotMailed_data();
    void unwritableAttachmentIsNotMailed();
    void argumentsReachTheClientWhole_data();
    void argumentsReachTheClientWhole();
    void clientIsOneProgram();
    void missingClientIsSilent();
    void secondMailWhileTheClientRuns();
    void runningClientOutlivesTheWindow();
    void noClient_data();
    void noClient();
    void detectedClientIsStored();
    void mailIsTraced();
};

void TestMail::init()
{
    QSettings().clear();
    QVERIFY(QDir().mkpath(Scrivara::folderPath(QStringLiteral("temporary"))));
}

void TestMail::mailWithoutDocument()
{
    const WindowProbe window;
    const MailClient client;
    attachAs(QString());
    window.action("actionSendEmail")->trigger();
    QCOMPARE(client.arguments(), (QStringList{"-compose", plainMail}));
}

void TestMail::mailWithoutAttachment()
{
    const OutputStage stage;
    const MailClient client;
    stage.window->sendEmail();
    QCOMPARE(client.arguments(), (QStringList{"-compose", plainMail}));
    QCOMPARE(client.nextArguments(stage.window), (QStringList{"-compose", plainMail}));
}

void TestMail::attachments_data()
{
    QTest::addColumn<QString>("format"); // null: not set
    QTest::addColumn<QString>("file");   // in the temporary folder; empty: the document itself
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("not set") << QString() << "letter.oxn" << QByteArray("<!DOCTYPE Zettelwerk_2008>");
    QTest::newRow("OXN") << "OXN"
                         << "letter.oxn" << QByteArray("<!DOCTYPE Zettelwerk_2008>");
    QTest::newRow("PDF") << "PDF"
                         << "letter.pdf" << QByteArray("%PDF-");
    QTest::newRow("small pdf") << "pdf"
                               << "letter.pdf" << QByteArray("%PDF-");
    QTest::newRow("PNG") << "PNG"
                         << "letter.png" << QByteArray("\x89PNG");
    QTest::newRow("mixed Png") << "Png"
                               << "letter.png" << QByteArray("\x89PNG");
    QTest::newRow("Original") << "Original"
                              << "" << QByteArray("alpha");
    QTest::newRow("TXT") << "TXT"
                         << "" << QByteArray("alpha");
    QTest::newRow("empty") << ""
                           << "" << QByteArray("alpha");
}

void TestMail::attachments()
{
    QFETCH(QString, format);
    QFETCH(QString, file);
    QFETCH(QByteArray, start);
    const OutputStage stage;
    const MailClient client;
    attachAs(format);
    const QString expected = file.isEmpty() ? stage.document : Scrivara::folderPath(QStringLiteral("temporary")) + file;
    stage.window->sendEmail();
    QCOMPARE(client.arguments(), (QStringList{"-compose", mailWithFile, expected}));
    QVERIFY(bytesIn(expected).startsWith(start));
    if (!file.isEmpty())
        QVERIFY(!(QFileInfo(expected).permissions() & (QFile::ReadGroup | QFile::ReadOther)));
}

void TestMail::attachedPdf()
{
    const OutputStage stage;
    const MailClient client;
    attachAs(QStringLiteral("PDF"));
    stage.window->sendEmail();
    const PdfProbe pdf(Scrivara::folderPath(QStringLiteral("temporary")) + QStringLiteral("letter.pdf"));
    QCOMPARE(pdf.pages(), 1);
    QVERIFY(pdf.text().contains(QStringLiteral("gamma")));
    QVERIFY(!client.arguments().isEmpty());
}

void TestMail::unsavedDocumentIsAttachedByItsName_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("attached");
    QTest::newRow("TXT") << "TXT"
                         << "noname";
    QTest::newRow("PNG") << "PNG" << Scrivara::folderPath(QStringLiteral("temporary")) + "noname.png";
}

void TestMail::unsavedDocumentIsAttachedByItsName()
{
    QFETCH(QString, format);
    const WindowProbe window;
    window->newProject();
    const MailClient client;
    attachAs(format);
    window->sendEmail();
    QTEST(client.arguments().value(2), "attached");
    window.forgetChanges();
}

void TestMail::attachmentLeavesTheDocumentAlone()
{
    const OutputStage stage;
    const MailClient client;
    attachAs(QStringLiteral("PNG"));
    stage.window.page()->setModified(true);
    const QString title = stage.window->windowTitle();
    stage.window->sendEmail();
    QVERIFY(!client.arguments().isEmpty());
    QVERIFY(stage.window.page()->isModified());
    QCOMPARE(stage.window.page()->fileName(), stage.document);
    QCOMPARE(stage.window->windowTitle(), title);
    QCOMPARE(bytesIn(stage.document), QByteArray("alpha\nbeta\ngamma\n"));
    stage.window.forgetChanges();
}

void TestMail::unwritableAttachmentIsNotMailed_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("OXN") << "OXN";
    QTest::newRow("PDF") << "PDF";
    QTest::newRow("PNG") << "PNG";
}

void TestMail::unwritableAttachmentIsNotMailed()
{
    QFETCH(QString, format);
    const OutputStage stage;
    const MailClient client;
    attachAs(format);
    const QString path =
        Scrivara::folderPath(QStringLiteral("temporary")) + QStringLiteral("letter.") + format.toLower();
    QVERIFY(QDir().mkpath(path));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    stage.window->sendEmail();
    QVERIFY(QDir().rmdir(path));
    QCOMPARE(answers.texts(), QStringList{"Can't save file " + path});
    // A client that was started would have noted its arguments before the next one does.
    QCOMPARE(client.nextArguments(stage.window), (QStringList{"-compose", plainMail}));
}

void TestMail::argumentsReachTheClientWhole_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"plain.txt", "with blanks .txt", "a,b;c.txt", "\"quoted\" 'both'.txt", "line\nend.txt",
          "$(touch x)`touch y`.txt", "-option", "back\\slash", "żółw*?.txt", "%1%%.txt", "a\tb&|<>#"})
        QTest::newRow(name) << "/tmp/" + QString::fromUtf8(name);
}

void TestMail::argumentsReachTheClientWhole()
{
    QFETCH(QString, name);
    const WindowProbe window;
    const MailClient client;
    window->sendFileViaEmail(name);
    QCOMPARE(client.arguments(), (QStringList{"-compose", mailWithFile, name}));
}

void TestMail::clientIsOneProgram()
{
    const WindowProbe window;
    const MailClient client(QStringLiteral("my client; true"));
    window->sendFileViaEmail();
    QCOMPARE(client.arguments(), (QStringList{"-compose", plainMail}));
}

void TestMail::missingClientIsSilent()
{
    const WindowProbe window;
    DialogAnswers answers;
    QSettings().setValue(mailKey, QStringLiteral("/no/such/client"));
    window->sendFileViaEmail(QStringLiteral("/tmp/a.txt"));
    QVERIFY(answers.seen().isEmpty());
    // The next one can still be started.
    const MailClient client;
    QCOMPARE(client.nextArguments(window), (QStringList{"-compose", plainMail}));
}

void TestMail::secondMailWhileTheClientRuns()
{
    const WindowProbe window;
    StandIns programs;
    const QString client = programs.add(QStringLiteral("client"), "echo $$ >> \"$0.runs\"\n"
                                                                  "while [ ! -e \"$0.go\" ]; do /bin/sleep 0.02; done\n"
                                                                  "echo end >> \"$0.runs\"");
    QSettings().setValue(mailKey, client);
    window->sendFileViaEmail();
    QTRY_VERIFY(QFile::exists(client + ".runs"));
    QTest::ignoreMessage(QtWarningMsg, "QProcess::start: Process is already running");
    window->sendFileViaEmail();
    store(client + ".go", "go");
    QTRY_VERIFY(bytesIn(client + ".runs").endsWith("end\n"));
    QCOMPARE(bytesIn(client + ".runs").count('\n'), 2);
}

void TestMail::runningClientOutlivesTheWindow()
{
    WindowProbe window;
    StandIns programs;
    const QString client = programs.add(QStringLiteral("client"), "echo run > \"$0.runs\"\n"
                                                                  "while [ ! -e \"$0.go\" ]; do /bin/sleep 0.02; done\n"
                                                                  "echo end >> \"$0.runs\"");
    QSettings().setValue(mailKey, client);
    window->sendFileViaEmail();
    QTRY_COMPARE(bytesIn(client + ".runs"), QByteArray("run\n"));
    window.destroy();
    store(client + ".go", "go");
    QTRY_COMPARE(bytesIn(client + ".runs"), QByteArray("run\nend\n"));
}

void TestMail::noClient_data()
{
    QTest::addColumn<QString>("stored"); // null: not set
    QTest::newRow("not set") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("the word for none") << "(empty)";
}

void TestMail::noClient()
{
    QFETCH(QString, stored);
    if (!stored.isNull())
        QSettings().setValue(mailKey, stored);
    const WindowProbe window;
    const StandIns nothing;
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    window->sendFileViaEmail();
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &box = answers.seen().constFirst();
    QCOMPARE(box.title, QStringLiteral("Warning"));
    QCOMPARE(box.text, QStringLiteral("Kestrin 7 couldn't detect default e-mail client on your system.\n"
                                      "          Please, setup path using: Settings -> E-mail"));
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.parent, &*window);
    QCOMPARE(QSettings().contains(mailKey), !stored.isNull());
    QCOMPARE(window->detectMailClient(), QStringLiteral("(empty)"));
}

void TestMail::detectedClientIsStored()
{
    const WindowProbe window;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    const QString query = programs.add(QStringLiteral("xdg-mime"), "echo asked >> \"$0.asked\"; echo post.desktop");
    const QString entries = QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
    QVERIFY(QDir().mkpath(entries));
    store(entries + "/post.desktop", "[Desktop Entry]\nExec=\"" + client.toUtf8() + "\" %U\n");
    window->sendFileViaEmail();
    QCOMPARE(mailArguments(client), (QStringList{"-compose", plainMail}));
    QCOMPARE(QSettings().value(mailKey).toString(), client);
    QVERIFY(!nextMailArguments(window, client).isEmpty());
    QVERIFY(QFile::remove(entries + "/post.desktop"));
    // The system was asked once.
    QCOMPARE(bytesIn(query + ".asked"), QByteArray("asked\n"));
}

void TestMail::mailIsTraced()
{
    const WindowProbe window;
    const MailClient client;
    LogProbe log;
    window->sendFileViaEmail(QStringLiteral("/tmp/a.txt"));
    const QStringList lines = log.traceSinceMark();
    QVERIFY(lines.contains(QStringLiteral(" attachment is present")));
    QVERIFY(lines.contains(" e-mail client cmd: " + client.path()));
    QVERIFY(!client.arguments().isEmpty());
}

REGISTER_TEST(TestMail)
#include "tst_mail.moc"
