// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"
#include "e2e/printqueue.h"
#include "support/pdfprobe.h"
#include "support/testmain.h"

#include <QFile>
#include <QTest>

namespace {

constexpr int fileMenu = 0;
constexpr QRgb markRed = qRgb(0xe0, 0x10, 0x10);

QByteArray source()
{
    QByteArray text("// A comment on the first line\n#include <vector>\n\nint main()\n{\n    return 42;\n}\n");
    for (int line = 8; line <= 80; ++line)
        text += "const char *name" + QByteArray::number(line) + " = \"text\";\n";
    return text;
}

/// A program that notes its arguments beside itself.
QString recorder(const InstalledProgram &program)
{
    const QString path = program.writeDocument(QStringLiteral("mail client"),
                                               "#!/bin/sh\nfor argument in \"$@\"; do printf '%s\\0' \"$argument\"; "
                                               "done > \"$0.part\"\n/bin/mv \"$0.part\" \"$0.arguments\"\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

QList<QByteArray> recorded(const QString &path)
{
    return InstalledProgram::read(path + QStringLiteral(".arguments")).split('\0');
}

} // namespace

/// A highlighted source with a mark on its ways to paper: to a print queue, onto the preview, into files and into a
/// mail.
class TestPaper : public QObject
{
    Q_OBJECT

private slots:
    void printedPreviewedExportedAndMailed();

private:
    void verifySheets(const QString &path, const QString &name) const;
    QString exportAs(const InstalledProgram &program, const QString &title, const QString &name) const;

    XSession m_session;
};

/// Two sheets with header, text and the mark, all of them vectors.
void TestPaper::verifySheets(const QString &path, const QString &name) const
{
    const PdfProbe pdf(path);
    QCOMPARE(pdf.pages(), 2);
    QCOMPARE(pdf.images(), 0);
    QVERIFY(pdf.text(1).contains(QStringLiteral("A comment on the first line")));
    QVERIFY(pdf.text(1).contains(name));
    QVERIFY(pdf.text(2).contains(QStringLiteral("Page 2/2")));
    QVERIFY(pdf.text(2).contains(QStringLiteral("name80")));
    QVERIFY(countPixels(pdf.picture(1, 96), markRed) > 1000);
    QCOMPARE(countPixels(pdf.picture(2, 96), markRed), 0);
}

/// Chooses the export from the menu and gives it a name without a suffix.
QString TestPaper::exportAs(const InstalledProgram &program, const QString &title, const QString &name) const
{
    program.choose(fileMenu, 5);
    if (m_session.waitForWindow('^' + title + '$').isEmpty())
        return {};
    m_session.type(program.document(name));
    m_session.key(QStringLiteral("Return"));
    return program.document(name);
}

void TestPaper::printedPreviewedExportedAndMailed()
{
    const PrintQueue queue;
    InstalledProgram program(m_session);
    const QString name = QStringLiteral("a \"b\", c; d's $(e).cpp");
    const QString path = program.writeDocument(name, source());
    const QString client = recorder(program);
    program.setEnvironment(QStringLiteral("CUPS_SERVER"), queue.server());
    program.setSetting(QStringLiteral("General/BrushColor"), QColor(markRed).name());
    program.setSetting(QStringLiteral("ShapeTool/Transparency"), 0);
    program.setSetting(QStringLiteral("General/EmailClient"), client);
    program.setSetting(QStringLiteral("General/AttachFileByDefault"), true);
    program.setSetting(QStringLiteral("General/AttachmentFormat"), QStringLiteral("PDF"));
    QVERIFY(!program.start({path}).isEmpty());
    m_session.waitUntilQuiet();
    m_session.key(QStringLiteral("alt+r"));
    const QPoint corner = m_session.geometry(program.window()).topLeft() + QPoint(500, 150);
    m_session.drag({corner, corner + QPoint(30, 30), corner + QPoint(60, 50)});
    QTRY_VERIFY(countPixels(m_session.grab(), markRed) > 1000);

    m_session.key(QStringLiteral("ctrl+p"));
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Print$")).isEmpty());
    m_session.key(QStringLiteral("Return"));
    verifySheets(queue.firstDocument(), name);

    program.choose(fileMenu, 4);
    const QString preview = m_session.waitForWindow(QStringLiteral("^Print Preview$"));
    QVERIFY(!preview.isEmpty());
    m_session.waitUntilQuiet();
    const QImage sheet = m_session.grab().copy(m_session.geometry(preview));
    QVERIFY2(countPixels(sheet, markRed) > 100, "the mark");
    QVERIFY2(countPixels(sheet, qRgb(60, 157, 255)) > 500, "the header");
    m_session.key(QStringLiteral("Escape"));

    const QString pdf = exportAs(program, QStringLiteral("Export to PDF"), QStringLiteral("sheets"));
    QTRY_VERIFY(QFile::exists(pdf + ".pdf"));
    verifySheets(pdf + ".pdf", name);

    program.setSetting(QStringLiteral("Other/ExportToPdfFile"), false);
    const QString postScript = exportAs(program, QStringLiteral("Export to PS"), QStringLiteral("sheets"));
    QTRY_VERIFY(InstalledProgram::read(postScript + ".ps").startsWith("%!PS"));
    for (const int number : {1, 2}) {
        const double different = differingShare(postScriptPicture(postScript + ".ps", number, 96),
                                                PdfProbe(pdf + ".pdf").picture(number, 96));
        QVERIFY2(different < 0.02, qPrintable(QString::number(different)));
    }

    program.choose(fileMenu, 2);
    QTRY_COMPARE(recorded(client).size(), 4); // the last one is what follows the last end
    const QString attachment = program.folder() + "/sys/ltmp/a \"b\", c; d's $(e).pdf";
    QCOMPARE(recorded(client).mid(0, 3),
             QList<QByteArray>({"-compose", "to=,subject=Annotated file,body=,attachment=", attachment.toUtf8()}));
    verifySheets(attachment, name);
}

REGISTER_TEST(TestPaper)
#include "tst_paper.moc"
