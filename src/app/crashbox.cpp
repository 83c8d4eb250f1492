// SPDX-License-Identifier: GPL-3.0-or-later
// kestrin7-crashbox TITLE TEXT: a critical box with an OK button. The main program starts it when it has crashed and
// cannot show a box itself.
#include <QApplication>
#include <QMessageBox>

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 1;
    QMessageBox::critical(nullptr, arguments.at(1), arguments.at(2), QMessageBox::Ok);
    return 0;
}
