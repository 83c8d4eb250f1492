// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/outputstage.h"
#include "support/dialogs.h"
#include "support/pdfprobe.h"
#include "support/testmain.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QSettings>
#include <QTest>

/// Printing and its preview from the window.
class TestPrintCommands : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void printsToTheChosenPrinter();
    void refusedPrintDialog();
    void preview();
};

void TestPrintCommands::printsToTheChosenPrinter()
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

void TestPrintCommands::refusedPrintDialog()
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

void TestPrintCommands::preview()
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

REGISTER_TEST(TestPrintCommands)
#include "tst_printing.moc"
