// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_textboxsettpanel.h"

/// The settings of the text box tool.
class TextBoxTab : public FormTab<Ui::TextBoxSettPanel>
{
    Q_OBJECT

public:
    explicit TextBoxTab(QWidget *parent = nullptr);
};
