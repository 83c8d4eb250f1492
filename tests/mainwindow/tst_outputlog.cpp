// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"
#include "widgets/viewmodedialog.h"

#include <QPrinter>
#include <QSettings>
#include <QTest>
#include <QTextEdit>

/// What the record of the trace tells of output, and what full screen does to the bar of the Minimal view.
class TestOutputLog : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void printing();
    void sheets();
    void exporting();
    void questionBeforeAllMarksGo();
    void fullScreenKeepsTheBarOfTheMinimalView();
};

void TestOutputLog::printing()
{
    LogProbe log;
    const WindowProbe window;
    DialogAnswers answers;
    answers.reject();
    log.mark();
    window->printFile();
    QVERIFY(log.traceSinceMark().contains("Printing file"));
}

void TestOutputLog::sheets()
{
    LogProbe log;
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(files.path(QStringLiteral("a.pdf")));
    log.mark();
    window->currFileToPrinter(&printer);
    QVERIFY(log.traceSinceMark().contains("Print page"));
}

void TestOutputLog::exporting()
{
    LogProbe log;
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    DialogAnswers answers;
    answers.reject();
    log.mark();
    window->exportToPdf();
    QVERIFY(log.traceSinceMark().contains("Export to Pdf"));
}

void TestOutputLog::questionBeforeAllMarksGo()
{
    const TestFiles files;
    const WindowProbe window({files.write(QStringLiteral("a.txt"))});
    DialogAnswers answers;
    QString text;
    answers.handle([&text](QDialog *dialog) {
        text = dialog->findChild<QTextEdit *>(QStringLiteral("mainTextEdit"))->toPlainText();
        dialog->reject();
    });
    window->removeAllAnnotations();
    QCOMPARE(text, QStringLiteral("All annotations will be removed! There is no way to revert the operation. \n"
                                  "Do you want to continue?"));
}

void TestOutputLog::fullScreenKeepsTheBarOfTheMinimalView()
{
    const WindowProbe window;
    window->showWindow();
    const auto *bar = window->findChild<ViewModeDialog *>();
    QVERIFY(bar);
    window->showMinimalView(true);
    QVERIFY(bar->isVisible());
    window->toggleFullScreen();
    QVERIFY(window->isFullScreen());
    QVERIFY(bar->isVisible());
    window->toggleFullScreen();
    QVERIFY(bar->isVisible());
    QVERIFY(window.action("actionMinimalView")->isChecked());
}

REGISTER_TEST(TestOutputLog)
#include "tst_outputlog.moc"
