// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui_groupdialog.h"

#include <QDialog>
#include <QVector>

/// Edits one list of patterns. The list is changed when the dialog is closed with OK, and only then.
class GroupDialog : public QDialog
{
    Q_OBJECT

public:
    explicit GroupDialog(QWidget *parent = nullptr);

    /// Shows the list, not owned, which must outlive the dialog's next run. False for null: there is nothing to run
    /// for then.
    bool setPatterns(QVector<QString> *patterns);

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void newPattern();
    void editPattern();
    void deletePattern();
    void saveAndClose();

private:
    Ui::GroupDialog m_ui;
    QVector<QString> *m_patterns = nullptr;
};
