// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "app/eventlog.h"
#include "widgets/aboutdialog.h"

#include <QDesktopServices>
#include <QLocale>
#include <QUrl>

namespace {

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

void Scrivara::showAboutBox()
{
    TRACE_ENTER;
    if (m_aboutDialog == nullptr)
        m_aboutDialog = new AboutDialog(this, Qt::Drawer);
    m_aboutDialog->exec();
    TRACE_LEAVE;
}

// Commands whose action is on offer already but whose subsystem is not part of the program yet: they change nothing.

void Scrivara::exportToPdf() {}

void Scrivara::printPreview() {}

void Scrivara::printFile() {}

void Scrivara::currFileToPrinter(QPrinter * /*printer*/) {}

void Scrivara::sendEmail() {}

void Scrivara::sendFileViaEmail(QString /*fileName*/) {}

void Scrivara::sendFileViaEmail()
{
    sendFileViaEmail(QString());
}

void Scrivara::search(QString /*toFind*/) {}

void Scrivara::searchPrev() {}

void Scrivara::searchNext() {}

void Scrivara::showConfigDialog(int /*tabNum*/) {}

void Scrivara::showStatistics() {}

void Scrivara::showActiveElementsList(bool /*show*/) {}

void Scrivara::addActiveElement(int /*id*/) {}

void Scrivara::registerActiveElement(ActiveElement * /*element*/, Page * /*page*/) {}

void Scrivara::focusActiveElement(Annotation * /*element*/, Page * /*page*/) {}
