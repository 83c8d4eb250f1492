// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_screenshotsettpanel.h"

/// The settings of the snapshot tool.
class ScreenshotTab : public FormTab<Ui::ScreenshotSettPanel>
{
    Q_OBJECT

public:
    explicit ScreenshotTab(QWidget *parent = nullptr);

private slots:
    void updateInformInClip(bool checked);
};
