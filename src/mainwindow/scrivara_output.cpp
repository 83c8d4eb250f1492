// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "app/eventlog.h"
#include "app/mailclient.h"
#include "app/setting.h"
#include "documents/page.h"
#include "documents/warningbox.h"
#include "persistence/privatefile.h"
#include "statistics/statisticsdialog.h"
#include "widgets/aboutdialog.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QUrl>

namespace {

/// Stands in the settings for no mail client.
constexpr char noMailClient[] = "(empty)";

bool isNoMailClient(const QString &client)
{
    return client.isEmpty() || client == QLatin1String(noMailClient);
}

/// The maker's web server.
QUrl webPage(const QString &path)
{
    return QUrl(QStringLiteral("https://www.moorfield.example") + path);
}

} // namespace

void Scrivara::showUserGuide()
{
    TRACE_ENTER;
    QDesktopServices::openUrl(webPage(QStringLiteral("/en/kestrin7_help.html")));
    TRACE_LEAVE;
}

void Scrivara::gotoHomePage()
{
    TRACE_ENTER;
    const bool polish = QLocale::system().name() == QLatin1String("pl");
    QDesktopServices::openUrl(webPage(polish ? QStringLiteral("/pl/index.html") : QStringLiteral("/en/index.html")));
    TRACE_LEAVE;
}

void Scrivara::showStatistics()
{
    TRACE_ENTER;
    (logTrace << "Show text statistics").eol(0);
    if (m_statisticsDialog == nullptr) {
        m_statisticsDialog = new StatisticsDialog(this);
        m_statisticsDialog->setWindowFlags(Qt::Drawer | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                           Qt::CustomizeWindowHint);
    }
    m_statisticsDialog->exec();
    TRACE_LEAVE;
}

void Scrivara::showAboutBox()
{
    TRACE_ENTER;
    if (m_aboutDialog == nullptr)
        m_aboutDialog = new AboutDialog(this, Qt::Drawer);
    m_aboutDialog->exec();
    TRACE_LEAVE;
}

void Scrivara::currFileToPrinter(QPrinter *printer)
{
    Page *page = currentPage();
    if (page == nullptr)
        return;
    TRACE_ENTER;
    page->printPage(printer);
    TRACE_LEAVE;
}

void Scrivara::printFile()
{
    TRACE_ENTER;
    (logTrace << "Printing file").eol(0);
    QPrinter printer(QPrinter::ScreenResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        currFileToPrinter(&printer);
    TRACE_LEAVE;
}

void Scrivara::printPreview()
{
    TRACE_ENTER;
    QPrintPreviewDialog dialog(this);
    dialog.setWindowFlags(Qt::Window);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this, &Scrivara::currFileToPrinter);
    dialog.exec();
    TRACE_LEAVE;
}

void Scrivara::exportToPdf()
{
    if (m_pageStack == nullptr)
        return;
    TRACE_ENTER;
    (logTrace << "Export to Pdf").eol(0);
    const bool pdf = settingOr(QSettings(), QStringLiteral("Other/ExportToPdfFile"), true);
    const QString name = QFileDialog::getSaveFileName(this, pdf ? tr("Export to PDF") : tr("Export to PS"), QString(),
                                                      pdf ? QStringLiteral("*.pdf") : QStringLiteral("*.ps"));
    if (!name.isEmpty())
        exportTo(name, pdf ? PaperFile::Pdf : PaperFile::PostScript);
    TRACE_LEAVE;
}

void Scrivara::exportTo(const QString &name, PaperFile::Format format)
{
    const Page *page = currentPage();
    if (page == nullptr)
        return;
    QString path = name;
    if (QFileInfo(path).suffix().isEmpty()) {
        path += format == PaperFile::Pdf ? QStringLiteral(".pdf") : QStringLiteral(".ps");
        // The dialog has asked about the name without the suffix only.
        if (!page->mayReplace(path))
            return;
    }
    // What the name says about the contents goes before the setting.
    PaperFile(path, PaperFile::formatOf(path).value_or(format))
        .write([this](QPrinter *printer) { currFileToPrinter(printer); }, this);
}

void Scrivara::sendEmail()
{
    TRACE_ENTER;
    Page *page = currentPage();
    const bool attach = page != nullptr && settingOr(QSettings(), QStringLiteral("General/AttachFileByDefault"), false);
    if (!attach)
        sendFileViaEmail(QString());
    else if (const QString attachment = attachmentOf(page); !attachment.isEmpty())
        sendFileViaEmail(attachment);
    TRACE_LEAVE;
}

/// Path of the file that goes with a mail about @p page, written into the temporary folder where the settings want
/// another format than that of the document's own file. Empty, after a message, if it could not be written.
QString Scrivara::attachmentOf(Page *page)
{
    const QString format =
        settingOr(QSettings(), QStringLiteral("General/AttachmentFormat"), QStringLiteral("OXN")).toLower();
    if (format != QLatin1String("oxn") && format != QLatin1String("pdf") && format != QLatin1String("png"))
        return page->fileName();
    const QString path =
        folderPath(QStringLiteral("temporary")) + QFileInfo(page->fileName()).baseName() + QLatin1Char('.') + format;
    const bool isPrivate = makePrivate(path);
    // Saving tells by itself what went wrong.
    if (isPrivate && format != QLatin1String("pdf"))
        return page->saveDocument(path, true) ? path : QString();
    const auto print = [page](QPrinter *printer) { page->printPage(printer); };
    if (isPrivate && PaperFile(path, PaperFile::Pdf).write(print, this))
        return path;
    showWarning(this, tr("I/O Warning"), tr("Can't save file %1").arg(path));
    return {};
}

void Scrivara::sendFileViaEmail(QString fileName)
{
    TRACE_ENTER;
    QString client = settingOr(QSettings(), QStringLiteral("General/EmailClient"), QStringLiteral("(empty)"));
    if (isNoMailClient(client))
        client = detectMailClient();
    if (isNoMailClient(client)) {
        showWarning(this, tr("Warning"),
                    tr("Kestrin 7 couldn't detect default e-mail client on your system.\n"
                       "          Please, setup path using: Settings -> E-mail"));
        TRACE_LEAVE;
        return;
    }
    QStringList arguments(QStringLiteral("-compose"));
    if (fileName.isEmpty()) {
        arguments.append(QStringLiteral("to=,subject=Annotated file,body="));
    } else {
        (logTrace << " attachment is present").eol(0);
        arguments.append({QStringLiteral("to=,subject=Annotated file,body=,attachment="), fileName});
    }
    (logTrace << " e-mail client cmd: " << client.toLatin1().constData()).eol(0);
    m_mailProcess.start(client, arguments);
    TRACE_LEAVE;
}

void Scrivara::sendFileViaEmail()
{
    sendFileViaEmail(QString());
}

QString Scrivara::detectMailClient()
{
    const QString client = defaultMailClient();
    if (client.isEmpty())
        return QString::fromLatin1(noMailClient);
    QSettings().setValue(QStringLiteral("General/EmailClient"), client);
    return client;
}
