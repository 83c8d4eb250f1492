// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_othersettpanel.h"

/// The format of exported files, and what belongs to no other page.
class OtherTab : public FormTab<Ui::OtherSettPanel>
{
    Q_OBJECT

public:
    explicit OtherTab(QWidget *parent = nullptr);
};
