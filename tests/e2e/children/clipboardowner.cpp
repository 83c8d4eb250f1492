// SPDX-License-Identifier: GPL-3.0-or-later
// clipboardowner TEXT: another program of the user's, which has copied the text and hands it out until it is ended.
#include <QClipboard>
#include <QGuiApplication>
#include <QTimer>

#include <cstdio>

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    QGuiApplication::clipboard()->setText(QCoreApplication::arguments().value(1));
    // Told from the event loop: by then the X server knows who owns the clipboard.
    QTimer::singleShot(0, [] {
        std::puts("owned");
        std::fflush(stdout);
    });
    return QGuiApplication::exec();
}
