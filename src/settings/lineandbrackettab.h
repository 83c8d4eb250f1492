// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_lineandbracketsettpanel.h"

/// The settings that the line tools share with the bracket tools.
class LineAndBracketTab : public FormTab<Ui::LineAndBracketSettPanel>
{
    Q_OBJECT

public:
    explicit LineAndBracketTab(QWidget *parent = nullptr);

protected:
    void retranslate() override;
};
