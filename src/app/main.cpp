// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/crashfilter.h"
#include "app/eventlog.h"
#include "app/inputfiles.h"
#include "app/messagehandler.h"
#include "mainwindow/scrivara.h"
#include "widgets/qtdotnetstyle.h"

#include <QApplication>

int main(int argc, char **argv)
{
    constexpr char dumpName[] = "sys/logs/dumped.dat";
    installCrashFilter(dumpName);
    qInstallMessageHandler(messageHandler);
    openLogFiles("sys/logs/log.dat", dumpName);
    writeLogHeader();
    (logInfo << "Kestrin 7 start-up phase").eol(0);

    const QApplication app(argc, argv);
    QCoreApplication::processEvents();
    QApplication::setStyle(new QtDotNetStyle); // the application's from here on
    QStringList files = inputFiles(argc, argv);
    (logInfo << "Main window creation").eol(0);
    Scrivara window(files, nullptr); // opens the files
    followLanguageOf(&window);
    window.showWindow();
    (logInfo << "Start the main event loop").eol(0);
    return QApplication::exec();
}
