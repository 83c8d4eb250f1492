// SPDX-License-Identifier: GPL-3.0-or-later
// The least a program with Qt's widgets can do: what bench_startup holds the real one against.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.show();
    return QApplication::exec();
}
