// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/rectangleann.h"
#include "documents/page.h"
#include "mainwindow/outputstage.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/pdfprobe.h"
#include "support/plainuser.h"
#include "support/standins.h"
#include "support/testmain.h"

#include <QPrinter>
#include <QSettings>
#include <QTest>

/// Export to PDF and PostScript from the window.
class TestExporting : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
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
};

void TestExporting::exportsPdf()
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

void TestExporting::exportDialog_data()
{
    QTest::addColumn<bool>("pdf");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("filter");
    QTest::newRow("PDF") << true << "Export to PDF"
                         << "*.pdf";
    QTest::newRow("PostScript") << false << "Export to PS"
                                << "*.ps";
}

void TestExporting::exportDialog()
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

void TestExporting::exportName_data()
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

void TestExporting::exportName()
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

void TestExporting::exportsPostScript()
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

void TestExporting::exportWithoutConverter()
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

void TestExporting::completedNameIsNotReplacedUnasked_data()
{
    QTest::addColumn<bool>("replace");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TestExporting::completedNameIsNotReplacedUnasked()
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

void TestExporting::cancelledExport()
{
    const OutputStage stage;
    const QStringList before = QDir(stage.files.folder()).entryList(QDir::Files);
    DialogAnswers answers;
    answers.reject();
    stage.window->exportToPdf();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(QDir(stage.files.folder()).entryList(QDir::Files), before);
}

void TestExporting::unwritableExport()
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

void TestExporting::withoutDocument()
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

REGISTER_TEST(TestExporting)
#include "tst_exporting.moc"
