// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_markersettpanel.h"

/// The settings of the marker tool.
class MarkerTab : public FormTab<Ui::MarkerSettPanel>
{
    Q_OBJECT

public:
    explicit MarkerTab(QWidget *parent = nullptr);
};
