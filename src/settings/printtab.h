// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_printsettpanel.h"

/// What is printed on each sheet beside the document.
class PrintTab : public FormTab<Ui::PrintSettPanel>
{
    Q_OBJECT

public:
    explicit PrintTab(QWidget *parent = nullptr);

private slots:
    void updateCheckBoxes();
};
