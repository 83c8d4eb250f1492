// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_shapesettpanel.h"

/// The settings of the rectangle and ellipse tools.
class ShapeTab : public FormTab<Ui::ShapeSettPanel>
{
    Q_OBJECT

public:
    explicit ShapeTab(QWidget *parent = nullptr);

    void load(const QSettings &settings) override;

protected:
    void retranslate() override;
};
