// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMessageBox>

/// Shows a warning and waits for the answer, as QMessageBox::warning() does, but takes @p text literally: a file
/// name that looks like markup stays readable. Closing the box gives its Cancel or its only button.
QMessageBox::StandardButton showWarning(QWidget *parent, const QString &title, const QString &text,
                                        QMessageBox::StandardButtons buttons = QMessageBox::Ok);
