// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_pensettpanel.h"

/// The settings of the pen tool.
class PenTab : public FormTab<Ui::PenSettPanel>
{
    Q_OBJECT

public:
    explicit PenTab(QWidget *parent = nullptr);
};
