// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return 0;
}
