// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_emailsettpanel.h"

/// The mail client, and what goes with a mail.
class EmailTab : public FormTab<Ui::EmailSettPanel>
{
    Q_OBJECT

public:
    explicit EmailTab(QWidget *parent = nullptr);

    void load(const QSettings &settings) override;

private slots:
    /// Lets the user choose the mail client among the files.
    void browse();
    /// Takes the mail client of the system. Changes nothing if the system has none.
    void useDefault();
};
