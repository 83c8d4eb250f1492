// SPDX-License-Identifier: GPL-3.0-or-later
// clipboardreader: another program of the user's, which says what is on the clipboard: "picture 80 x 60" or a text.
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QTimer>

#include <cstdio>

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    QTimer::singleShot(0, [] {
        const QImage picture = QGuiApplication::clipboard()->image();
        if (picture.isNull())
            std::puts(qPrintable(QGuiApplication::clipboard()->text()));
        else
            std::printf("picture %d x %d\n", picture.width(), picture.height());
        QGuiApplication::exit();
    });
    return QGuiApplication::exec();
}
