// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/paperfile.h"

#include "persistence/postscriptconverter.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/fulldisk.h"
#include "support/pdfprobe.h"
#include "support/plainuser.h"
#include "support/standins.h"
#include "support/testmain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

/// Two sheets with a text, thick lines and a filled shape on each.
void printTwoSheets(QPrinter *printer)
{
    QPainter painter;
    if (!painter.begin(printer))
        return;
    for (int sheet = 1; sheet <= 2; ++sheet) {
        if (sheet == 2)
            printer->newPage();
        painter.setFont(QFont(QStringLiteral("Liberation Sans"), 24));
        painter.drawText(QPointF(100, 100), QStringLiteral("Sheet %1 of two").arg(sheet));
        painter.setPen(QPen(Qt::darkBlue, 8));
        painter.drawLine(QPointF(100, 200), QPointF(600, 300 * sheet));
        painter.fillRect(QRectF(300, 700, 100, 50), Qt::red);
    }
}

void printNothing(QPrinter * /*printer*/) {}

} // namespace

class TestPaperFile : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void formats_data();
    void formats();
    void pdf();
    void pdfUnderAnyName();
    void postScript();
    void printerIsA4WithoutMargins();
    void missingConverter();
    void failingConverter_data();
    void failingConverter();
    void endlessConverter();
    void missingConverterLeavesPdfAlone();
    void nothingPrinted();
    void unwritableFolder();
    void targetIsAFolder();
    void fullDiskKeepsTheOldFile();
    void strangeNames_data();
    void strangeNames();
    void nothingIsLeftBehind();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestPaperFile::formats_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("format"); // -1: none
    QTest::newRow("pdf") << "a.pdf" << int(PaperFile::Pdf);
    QTest::newRow("capital PDF") << "a.PDF" << int(PaperFile::Pdf);
    QTest::newRow("ps") << "a.ps" << int(PaperFile::PostScript);
    QTest::newRow("mixed Ps") << "a.b.Ps" << int(PaperFile::PostScript);
    QTest::newRow("another") << "a.eps" << -1;
    QTest::newRow("none") << "pdf" << -1;
    QTest::newRow("in the folder only") << "a.pdf/b" << -1;
}

void TestPaperFile::formats()
{
    QFETCH(QString, name);
    const auto format = PaperFile::formatOf(name);
    QTEST(format ? int(*format) : -1, "format");
}

void TestPaperFile::pdf()
{
    QVERIFY(PaperFile(path(QStringLiteral("a.pdf")), PaperFile::Pdf).write(printTwoSheets, nullptr));
    const PdfProbe probe(path(QStringLiteral("a.pdf")));
    QCOMPARE(probe.pages(), 2);
    QVERIFY(probe.text(2).contains(QStringLiteral("Sheet 2 of two")));
    QCOMPARE(probe.images(), 0);
}

void TestPaperFile::pdfUnderAnyName()
{
    QVERIFY(PaperFile(path(QStringLiteral("a.txt")), PaperFile::Pdf).write(printTwoSheets, nullptr));
    QCOMPARE(PdfProbe(path(QStringLiteral("a.txt"))).pages(), 2);
}

void TestPaperFile::postScript()
{
    QVERIFY(PaperFile(path(QStringLiteral("a.ps")), PaperFile::PostScript).write(printTwoSheets, nullptr));
    QVERIFY(PaperFile(path(QStringLiteral("a.pdf")), PaperFile::Pdf).write(printTwoSheets, nullptr));
    const QByteArray bytes = bytesIn(path(QStringLiteral("a.ps")));
    QVERIFY(bytes.startsWith("%!PS"));
    QVERIFY(!bytes.contains("%PDF-"));
    constexpr int dotsPerInch = 96;
    for (int sheet = 1; sheet <= 2; ++sheet) {
        const QImage expected = PdfProbe(path(QStringLiteral("a.pdf"))).picture(sheet, dotsPerInch);
        const QImage shown = postScriptPicture(path(QStringLiteral("a.ps")), sheet, dotsPerInch);
        QVERIFY(countPixels(expected, qRgb(255, 0, 0)) > 4000);
        QVERIFY(differingShare(expected, shown) < 0.002);
    }
    // The two sheets are not alike, so the comparison above could have failed.
    QVERIFY(differingShare(postScriptPicture(path(QStringLiteral("a.ps")), 1, dotsPerInch),
                           postScriptPicture(path(QStringLiteral("a.ps")), 2, dotsPerInch)) > 0.004);
}

void TestPaperFile::printerIsA4WithoutMargins()
{
    QPageLayout layout;
    QRectF area;
    const auto look = [&](QPrinter *printer) {
        layout = printer->pageLayout();
        area = printer->pageRect(QPrinter::DevicePixel);
        QCOMPARE(printer->resolution(), QPrinter(QPrinter::ScreenResolution).resolution());
        printTwoSheets(printer);
    };
    QVERIFY(PaperFile(path(QStringLiteral("a.pdf")), PaperFile::Pdf).write(look, nullptr));
    QCOMPARE(layout.pageSize().id(), QPageSize::A4);
    QCOMPARE(layout.mode(), QPageLayout::FullPageMode);
    QCOMPARE(area.topLeft(), QPointF());
    QCOMPARE(PdfProbe(path(QStringLiteral("a.pdf"))).pageSize().toSize(), QSize(595, 842));
}

void TestPaperFile::missingConverter()
{
    store(path(QStringLiteral("a.ps")), "old");
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    const StandIns nothing;
    QWidget window;
    QVERIFY(!PaperFile(path(QStringLiteral("a.ps")), PaperFile::PostScript).write(printTwoSheets, &window));
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().constFirst().title, QStringLiteral("I/O Error"));
    QCOMPARE(answers.seen().constFirst().parent, &window);
    QCOMPARE(answers.seen().constFirst().text,
             QStringLiteral("Can't save file %1\nThe program \"pdftocairo\", which makes PostScript files, was not "
                            "found.")
                 .arg(path(QStringLiteral("a.ps"))));
    QCOMPARE(bytesIn(path(QStringLiteral("a.ps"))), QByteArray("old"));
}

void TestPaperFile::failingConverter_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("error") << QByteArray("exit 3");
    QTest::newRow("error behind all output") << QByteArray("printf '%%!PS\\n%%%%EOF\\n'; exit 1");
    QTest::newRow("no output") << QByteArray("exit 0");
    QTest::newRow("half of the output") << QByteArray("printf '%%!PS\\n'");
    QTest::newRow("something else") << QByteArray("printf '%%PDF-1.4\\n%%%%EOF\\n'");
    QTest::newRow("killed") << QByteArray("printf '%%!PS\\n%%%%EOF\\n'; kill -9 $$");
}

void TestPaperFile::failingConverter()
{
    QFETCH(QByteArray, script);
    store(path(QStringLiteral("a.ps")), "old");
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    StandIns programs;
    programs.add(QStringLiteral("pdftocairo"), script);
    QVERIFY(!PaperFile(path(QStringLiteral("a.ps")), PaperFile::PostScript).write(printTwoSheets, nullptr));
    QCOMPARE(answers.seen().size(), 1);
    QVERIFY(answers.texts().constFirst().contains(QStringLiteral("did not finish its work")));
    QCOMPARE(bytesIn(path(QStringLiteral("a.ps"))), QByteArray("old"));
}

void TestPaperFile::endlessConverter()
{
    StandIns programs;
    programs.add(QStringLiteral("pdftocairo"), "exec /bin/sleep 600");
    QElapsedTimer timer;
    timer.start();
    const PostScriptResult result = convertToPostScript(path(QStringLiteral("a.pdf")), 300);
    QCOMPARE(result.outcome, PostScriptResult::ConverterFailed);
    QVERIFY(result.data.isEmpty());
    QVERIFY(timer.elapsed() < 30'000);
}

void TestPaperFile::missingConverterLeavesPdfAlone()
{
    const StandIns nothing;
    QVERIFY(PaperFile(path(QStringLiteral("a.pdf")), PaperFile::Pdf).write(printTwoSheets, nullptr));
    QCOMPARE(PdfProbe(path(QStringLiteral("a.pdf"))).pages(), 2);
}

void TestPaperFile::nothingPrinted()
{
    store(path(QStringLiteral("a.pdf")), "old");
    QVERIFY(!PaperFile(path(QStringLiteral("a.pdf")), PaperFile::Pdf).write(printNothing, nullptr));
    QVERIFY(!PaperFile(path(QStringLiteral("a.ps")), PaperFile::PostScript).write(printNothing, nullptr));
    QCOMPARE(bytesIn(path(QStringLiteral("a.pdf"))), QByteArray("old"));
    QVERIFY(!QFile::exists(path(QStringLiteral("a.ps"))));
}

void TestPaperFile::unwritableFolder()
{
    QVERIFY(!PaperFile(path(QStringLiteral("none/a.pdf")), PaperFile::Pdf).write(printTwoSheets, nullptr));
    QVERIFY(!QFile::exists(path(QStringLiteral("none"))));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("closed")));
    const PlainUser user;
    QVERIFY(!PaperFile(path(QStringLiteral("closed/a.pdf")), PaperFile::Pdf).write(printTwoSheets, nullptr));
    QVERIFY(!PaperFile(path(QStringLiteral("closed/a.ps")), PaperFile::PostScript).write(printTwoSheets, nullptr));
    QVERIFY(QDir(path(QStringLiteral("closed"))).isEmpty());
}

void TestPaperFile::targetIsAFolder()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("a.pdf")));
    QVERIFY(!PaperFile(path(QStringLiteral("a.pdf")), PaperFile::Pdf).write(printTwoSheets, nullptr));
    QVERIFY(QFileInfo(path(QStringLiteral("a.pdf"))).isDir());
}

void TestPaperFile::fullDiskKeepsTheOldFile()
{
    store(path(QStringLiteral("a.pdf")), "old");
    store(path(QStringLiteral("a.ps")), "old");
    {
        const FullDisk disk(100);
        QVERIFY(!PaperFile(path(QStringLiteral("a.pdf")), PaperFile::Pdf).write(printTwoSheets, nullptr));
        QVERIFY(!PaperFile(path(QStringLiteral("a.ps")), PaperFile::PostScript).write(printTwoSheets, nullptr));
    }
    QCOMPARE(bytesIn(path(QStringLiteral("a.pdf"))), QByteArray("old"));
    QCOMPARE(bytesIn(path(QStringLiteral("a.ps"))), QByteArray("old"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), (QStringList{"a.pdf", "a.ps"}));
}

void TestPaperFile::strangeNames_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"with blanks.ps", "-ps.ps", "a;touch b.ps", "$(touch b).ps", "\"quoted\", 'both'.ps",
                             "line\nend.ps", "żółw.ps", "100%1.ps"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void TestPaperFile::strangeNames()
{
    QFETCH(QString, name);
    QVERIFY(PaperFile(path(name), PaperFile::PostScript).write(printTwoSheets, nullptr));
    QVERIFY(bytesIn(path(name)).startsWith("%!PS"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{name});
}

void TestPaperFile::nothingIsLeftBehind()
{
    const QTemporaryDir ownTemporary;
    const QByteArray usual = qgetenv("TMPDIR");
    qputenv("TMPDIR", ownTemporary.path().toLocal8Bit());
    const bool written = PaperFile(path(QStringLiteral("a.ps")), PaperFile::PostScript).write(printTwoSheets, nullptr);
    qputenv("TMPDIR", usual);
    QVERIFY(written);
    QVERIFY(QDir(ownTemporary.path()).isEmpty());
}

REGISTER_TEST(TestPaperFile)
#include "tst_paperfile.moc"
