// SPDX-License-Identifier: GPL-3.0-or-later
// Printing, export and mail from the window.
#include "annotations/rectangleann.h"
#include "documents/page.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/pdfprobe.h"
#include "support/plainuser.h"
#include "support/standins.h"
#include "support/testmain.h"

#include <QDir>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

namespace {

const QString mailKey = QStringLiteral("General/EmailClient");
const QString plainMail = QStringLiteral("to=,subject=Annotated file,body=");
const QString mailWithFile = QStringLiteral("to=,subject=Annotated file,body=,attachment=");

/// A window with a text file of three lines in it.
struct OutputStage
{
    OutputStage() : document(files.write(QStringLiteral("letter.tar.txt"), "alpha\nbeta\ngamma\n")), window({document})
    {
    }
    QString path(const QString &name) const { return files.path(name); }

    TestFiles files;
    QString document;
    WindowProbe window;
};

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

} // namespace

class TestOutput : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { emptyTemporary(); }

    void exportsPdf();
    void exportDialog_data();
    void exportDialog();
    void exportName_data();
    void exportName();
    void exportsPostScript();
    void exportWithoutConverter();
    void completedNameIsNotReplacedUnasked_data();
    void completedNameIsNotReplacedUnasked();
    void cancelledExport();
    void unwritableExport();
    void withoutDocument();

    void printsToTheChosenPrinter();
    void refusedPrintDialog();
    void preview();

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

void TestOutput::init()
{
    QSettings().clear();
    QVERIFY(QDir().mkpath(Scrivara::folderPath(QStringLiteral("temporary"))));
}

void TestOutput::exportsPdf()
{
    const OutputStage stage;
    auto *mark = new RectangleAnn;
    mark->setRect(0, 0, 40, 30);
    mark->setPos(120, 120);
    mark->setPen(Qt::NoPen);
    mark->setBrush(Qt::red);
    stage.window.page()->putOnScene(mark);
    DialogAnswers answers;
    answers.chooseFile(stage.path(QStringLiteral("out.pdf")));
    stage.window.action("actionExportToPdf")->trigger();
    QCOMPARE(answers.seen().size(), 1);
    const PdfProbe pdf(stage.path(QStringLiteral("out.pdf")));
    QCOMPARE(pdf.pages(), 1);
    QCOMPARE(pdf.pageSize().toSize(), QSize(595, 842));
    QVERIFY(pdf.text().contains(QStringLiteral("gamma")));
    QVERIFY(pdf.text().contains(QStringLiteral("letter.tar.txt")));
    QCOMPARE(pdf.images(), 0);
    QVERIFY(countPixels(pdf.picture(1, 96), qRgb(255, 0, 0)) > 1000);
}

void TestOutput::exportDialog_data()
{
    QTest::addColumn<bool>("pdf");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("filter");
    QTest::newRow("PDF") << true << "Export to PDF"
                         << "*.pdf";
    QTest::newRow("PostScript") << false << "Export to PS"
                                << "*.ps";
}

void TestOutput::exportDialog()
{
    QFETCH(bool, pdf);
    QSettings().setValue(QStringLiteral("Other/ExportToPdfFile"), pdf);
    const OutputStage stage;
    DialogAnswers answers;
    answers.reject();
    stage.window->exportToPdf();
    QCOMPARE(answers.seen().size(), 1);
    const SeenDialog &dialog = answers.seen().constFirst();
    QTEST(dialog.title, "title");
    QTEST(dialog.nameFilters.join('|'), "filter");
    QCOMPARE(dialog.parent, &*stage.window);
    QCOMPARE(stage.window.action("actionExportToPdf")->text(), QStringLiteral("Export to PDF..."));
}

void TestOutput::exportName_data()
{
    QTest::addColumn<bool>("pdf");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("no suffix") << true << "out"
                               << "out.pdf" << QByteArray("%PDF-");
    QTest::newRow("no suffix, PostScript") << false << "out"
                                           << "out.ps" << QByteArray("%!PS");
    QTest::newRow("other suffix") << true << "out.txt"
                                  << "out.txt" << QByteArray("%PDF-");
    QTest::newRow("other suffix, PostScript") << false << "out.txt"
                                              << "out.txt" << QByteArray("%!PS");
    // No file says one thing by its name and another by its contents.
    QTest::newRow("ps") << true << "out.ps"
                        << "out.ps" << QByteArray("%!PS");
    QTest::newRow("pdf, PostScript") << false << "out.PDF"
                                     << "out.PDF" << QByteArray("%PDF-");
    QTest::newRow("dot at the end") << true << "out."
                                    << "out..pdf" << QByteArray("%PDF-");
    QTest::newRow("odd name") << true << "a b,c;d'e"
                              << "a b,c;d'e.pdf" << QByteArray("%PDF-");
}

void TestOutput::exportName()
{
    QFETCH(bool, pdf);
    QFETCH(QString, typed);
    QFETCH(QString, written);
    QFETCH(QByteArray, start);
    QSettings().setValue(QStringLiteral("Other/ExportToPdfFile"), pdf);
    const OutputStage stage;
    const QStringList before = QDir(stage.files.folder()).entryList(QDir::Files);
    DialogAnswers answers;
    answers.chooseFile(stage.path(typed));
    stage.window->exportToPdf();
    QVERIFY(bytesIn(stage.path(written)).startsWith(start));
    QStringList after = QDir(stage.files.folder()).entryList(QDir::Files);
    after.removeOne(written);
    QCOMPARE(after, before);
}

void TestOutput::exportsPostScript()
{
    QSettings().setValue(QStringLiteral("Other/ExportToPdfFile"), false);
    const OutputStage stage;
    DialogAnswers answers;
    answers.chooseFile(stage.path(QStringLiteral("out.ps")));
    answers.chooseFile(stage.path(QStringLiteral("out.pdf")));
    stage.window->exportToPdf();
    stage.window->exportToPdf();
    const QImage shown = postScriptPicture(stage.path(QStringLiteral("out.ps")), 1, 96);
    const QImage expected = PdfProbe(stage.path(QStringLiteral("out.pdf"))).picture(1, 96);
    QVERIFY(countPixels(shown, qRgb(60, 157, 255)) > 10000);
    QVERIFY(differingShare(shown, expected) < 0.005);
}

void TestOutput::exportWithoutConverter()
{
    QSettings().setValue(QStringLiteral("Other/ExportToPdfFile"), false);
    const OutputStage stage;
    const StandIns nothing;
    DialogAnswers answers;
    answers.chooseFile(stage.path(QStringLiteral("out")));
    answers.click(QMessageBox::Ok);
    stage.window->exportToPdf();
    QCOMPARE(answers.texts().size(), 1);
    QVERIFY(answers.texts().constFirst().contains(QStringLiteral("pdftocairo")));
    QCOMPARE(answers.seen().constLast().parent, &*stage.window);
    QVERIFY(!QFile::exists(stage.path(QStringLiteral("out.ps"))));
}

void TestOutput::completedNameIsNotReplacedUnasked_data()
{
    QTest::addColumn<bool>("replace");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TestOutput::completedNameIsNotReplacedUnasked()
{
    QFETCH(bool, replace);
    const OutputStage stage;
    const QString path = stage.files.write(QStringLiteral("out.pdf"), "old");
    DialogAnswers answers;
    answers.chooseFile(stage.path(QStringLiteral("out")));
    answers.click(replace ? QMessageBox::Yes : QMessageBox::No);
    stage.window->exportToPdf();
    QCOMPARE(answers.seen().size(), 2);
    QVERIFY(answers.texts().constFirst().contains(path));
    QCOMPARE(bytesIn(path).startsWith("%PDF-"), replace);
    QCOMPARE(bytesIn(path) == "old", !replace);
}

void TestOutput::cancelledExport()
{
    const OutputStage stage;
    const QStringList before = QDir(stage.files.folder()).entryList(QDir::Files);
    DialogAnswers answers;
    answers.reject();
    stage.window->exportToPdf();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(QDir(stage.files.folder()).entryList(QDir::Files), before);
}

void TestOutput::unwritableExport()
{
    const OutputStage stage;
    QVERIFY(QDir().mkpath(stage.path(QStringLiteral("closed"))));
    DialogAnswers answers;
    answers.chooseFile(stage.path(QStringLiteral("closed/out.pdf")));
    {
        const PlainUser user;
        stage.window->exportToPdf();
    }
    QCOMPARE(answers.seen().size(), 1);
    QVERIFY(QDir(stage.path(QStringLiteral("closed"))).isEmpty());
}

void TestOutput::withoutDocument()
{
    const WindowProbe window;
    DialogAnswers answers;
    window->exportToPdf();
    QPrinter printer(QPrinter::ScreenResolution);
    const TestFiles files;
    printer.setOutputFileName(files.path(QStringLiteral("out.pdf")));
    window->currFileToPrinter(&printer);
    QVERIFY(answers.seen().isEmpty());
    QVERIFY(!QFile::exists(files.path(QStringLiteral("out.pdf"))));
}

void TestOutput::printsToTheChosenPrinter()
{
    const OutputStage stage;
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        auto *printDialog = qobject_cast<QPrintDialog *>(dialog);
        if (printDialog) {
            QCOMPARE(printDialog->parentWidget(), &*stage.window);
            printDialog->printer()->setOutputFormat(QPrinter::PdfFormat);
            printDialog->printer()->setOutputFileName(stage.path(QStringLiteral("out.pdf")));
            dialog->done(QDialog::Accepted);
        } else {
            dialog->reject();
        }
    });
    stage.window.action("actionPrint")->trigger();
    QCOMPARE(answers.seen().size(), 1);
    const PdfProbe pdf(stage.path(QStringLiteral("out.pdf")));
    QCOMPARE(pdf.pages(), 1);
    QVERIFY(pdf.text().contains(QStringLiteral("beta")));
}

void TestOutput::refusedPrintDialog()
{
    const OutputStage stage;
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        if (auto *printDialog = qobject_cast<QPrintDialog *>(dialog)) {
            printDialog->printer()->setOutputFormat(QPrinter::PdfFormat);
            printDialog->printer()->setOutputFileName(stage.path(QStringLiteral("out.pdf")));
        }
        dialog->reject();
    });
    stage.window->printFile();
    QVERIFY(!QFile::exists(stage.path(QStringLiteral("out.pdf"))));
}

void TestOutput::preview()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("long.txt"), QByteArray("line\n").repeated(150))});
    DialogAnswers answers;
    int sheets = 0;
    answers.handle([&](QDialog *dialog) {
        QVERIFY(qobject_cast<QPrintPreviewDialog *>(dialog));
        QCOMPARE(dialog->parentWidget(), &*window);
        QCOMPARE(dialog->windowType(), Qt::Window);
        auto *widget = dialog->findChild<QPrintPreviewWidget *>();
        [&] { QTRY_VERIFY(widget->pageCount() > 0); }();
        sheets = widget->pageCount();
        dialog->accept();
    });
    window.action("actionPrintPreview")->trigger();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(sheets, 3);
}

void TestOutput::mailWithoutDocument()
{
    const WindowProbe window;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings settings;
    settings.setValue(mailKey, client);
    settings.setValue(QStringLiteral("General/AttachFileByDefault"), true);
    window.action("actionSendEmail")->trigger();
    QCOMPARE(mailArguments(client), (QStringList{"-compose", plainMail}));
}

void TestOutput::mailWithoutAttachment()
{
    const OutputStage stage;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings().setValue(mailKey, client);
    stage.window->sendEmail();
    QCOMPARE(mailArguments(client), (QStringList{"-compose", plainMail}));
    QCOMPARE(nextMailArguments(stage.window, client), (QStringList{"-compose", plainMail}));
}

void TestOutput::attachments_data()
{
    QTest::addColumn<QString>("format"); // null: not set
    QTest::addColumn<QString>("file");   // in the temporary folder; empty: the document itself
    QTest::addColumn<QByteArray>("start");
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

void TestOutput::attachments()
{
    QFETCH(QString, format);
    QFETCH(QString, file);
    QFETCH(QByteArray, start);
    const OutputStage stage;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings settings;
    settings.setValue(mailKey, client);
    settings.setValue(QStringLiteral("General/AttachFileByDefault"), true);
    settings.setValue(QStringLiteral("General/AttachmentFormat"), format);
    const QString expected = file.isEmpty() ? stage.document : Scrivara::folderPath(QStringLiteral("temporary")) + file;
    stage.window->sendEmail();
    QCOMPARE(mailArguments(client), (QStringList{"-compose", mailWithFile, expected}));
    QVERIFY(bytesIn(expected).startsWith(start));
    if (!file.isEmpty())
        QVERIFY(!(QFileInfo(expected).permissions() & (QFile::ReadGroup | QFile::ReadOther)));
}

void TestOutput::attachedPdf()
{
    const OutputStage stage;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings settings;
    settings.setValue(mailKey, client);
    settings.setValue(QStringLiteral("General/AttachFileByDefault"), true);
    settings.setValue(QStringLiteral("General/AttachmentFormat"), QStringLiteral("PDF"));
    stage.window->sendEmail();
    const PdfProbe pdf(Scrivara::folderPath(QStringLiteral("temporary")) + QStringLiteral("letter.pdf"));
    QCOMPARE(pdf.pages(), 1);
    QVERIFY(pdf.text().contains(QStringLiteral("gamma")));
    QVERIFY(!mailArguments(client).isEmpty());
}

void TestOutput::unsavedDocumentIsAttachedByItsName_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("attached");
    QTest::newRow("TXT") << "TXT"
                         << "noname";
    QTest::newRow("PNG") << "PNG" << Scrivara::folderPath(QStringLiteral("temporary")) + "noname.png";
}

void TestOutput::unsavedDocumentIsAttachedByItsName()
{
    QFETCH(QString, format);
    const WindowProbe window;
    window->newProject();
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings settings;
    settings.setValue(mailKey, client);
    settings.setValue(QStringLiteral("General/AttachFileByDefault"), true);
    settings.setValue(QStringLiteral("General/AttachmentFormat"), format);
    window->sendEmail();
    QTEST(mailArguments(client).value(2), "attached");
    window.forgetChanges();
}

void TestOutput::attachmentLeavesTheDocumentAlone()
{
    const OutputStage stage;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings settings;
    settings.setValue(mailKey, client);
    settings.setValue(QStringLiteral("General/AttachFileByDefault"), true);
    settings.setValue(QStringLiteral("General/AttachmentFormat"), QStringLiteral("PNG"));
    stage.window.page()->setModified(true);
    const QString title = stage.window->windowTitle();
    stage.window->sendEmail();
    QVERIFY(!mailArguments(client).isEmpty());
    QVERIFY(stage.window.page()->isModified());
    QCOMPARE(stage.window.page()->fileName(), stage.document);
    QCOMPARE(stage.window->windowTitle(), title);
    QCOMPARE(bytesIn(stage.document), QByteArray("alpha\nbeta\ngamma\n"));
    stage.window.forgetChanges();
}

void TestOutput::unwritableAttachmentIsNotMailed_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("OXN") << "OXN";
    QTest::newRow("PDF") << "PDF";
    QTest::newRow("PNG") << "PNG";
}

void TestOutput::unwritableAttachmentIsNotMailed()
{
    QFETCH(QString, format);
    const OutputStage stage;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings settings;
    settings.setValue(mailKey, client);
    settings.setValue(QStringLiteral("General/AttachFileByDefault"), true);
    settings.setValue(QStringLiteral("General/AttachmentFormat"), format);
    const QString path =
        Scrivara::folderPath(QStringLiteral("temporary")) + QStringLiteral("letter.") + format.toLower();
    QVERIFY(QDir().mkpath(path));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    stage.window->sendEmail();
    QVERIFY(QDir().rmdir(path));
    QCOMPARE(answers.texts(), QStringList{"Can't save file " + path});
    // A client that was started would have noted its arguments before the next one does.
    QCOMPARE(nextMailArguments(stage.window, client), (QStringList{"-compose", plainMail}));
}

void TestOutput::argumentsReachTheClientWhole_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"plain.txt", "with blanks .txt", "a,b;c.txt", "\"quoted\" 'both'.txt", "line\nend.txt",
          "$(touch x)`touch y`.txt", "-option", "back\\slash", "żółw*?.txt", "%1%%.txt", "a\tb&|<>#"})
        QTest::newRow(name) << "/tmp/" + QString::fromUtf8(name);
}

void TestOutput::argumentsReachTheClientWhole()
{
    QFETCH(QString, name);
    const WindowProbe window;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings().setValue(mailKey, client);
    window->sendFileViaEmail(name);
    QCOMPARE(mailArguments(client), (QStringList{"-compose", mailWithFile, name}));
}

void TestOutput::clientIsOneProgram()
{
    const WindowProbe window;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("my client; true"));
    QSettings().setValue(mailKey, client);
    window->sendFileViaEmail();
    QCOMPARE(mailArguments(client), (QStringList{"-compose", plainMail}));
}

void TestOutput::missingClientIsSilent()
{
    const WindowProbe window;
    DialogAnswers answers;
    QSettings().setValue(mailKey, QStringLiteral("/no/such/client"));
    window->sendFileViaEmail(QStringLiteral("/tmp/a.txt"));
    QVERIFY(answers.seen().isEmpty());
    // The next one can still be started.
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings().setValue(mailKey, client);
    QCOMPARE(nextMailArguments(window, client), (QStringList{"-compose", plainMail}));
}

void TestOutput::secondMailWhileTheClientRuns()
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

void TestOutput::runningClientOutlivesTheWindow()
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

void TestOutput::noClient_data()
{
    QTest::addColumn<QString>("stored"); // null: not set
    QTest::newRow("not set") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("the word for none") << "(empty)";
}

void TestOutput::noClient()
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

void TestOutput::detectedClientIsStored()
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

void TestOutput::mailIsTraced()
{
    const WindowProbe window;
    StandIns programs;
    const QString client = programs.addRecorder(QStringLiteral("client"));
    QSettings().setValue(mailKey, client);
    LogProbe log;
    window->sendFileViaEmail(QStringLiteral("/tmp/a.txt"));
    const QStringList lines = log.traceSinceMark();
    QVERIFY(lines.contains(QStringLiteral(" attachment is present")));
    QVERIFY(lines.contains(" e-mail client cmd: " + client));
    QVERIFY(!mailArguments(client).isEmpty());
}

REGISTER_TEST(TestOutput)
#include "tst_output.moc"
