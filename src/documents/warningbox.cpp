// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/warningbox.h"

QMessageBox::StandardButton showWarning(QWidget *parent, const QString &title, const QString &text,
                                        QMessageBox::StandardButtons buttons)
{
    QMessageBox box(QMessageBox::Warning, title, text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    return QMessageBox::StandardButton(box.exec());
}
