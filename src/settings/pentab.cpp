// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/pentab.h"

PenTab::PenTab(QWidget *parent) : FormTab(parent)
{
    link(m_ui.penWidthSpinBox, m_ui.horizontalSlider_3);
    link(m_ui.penTransparencySpinBox, m_ui.horizontalSlider_4);
    bindings().bind(m_ui.penWidthSpinBox, QStringLiteral("PenTool/LineWidth"), 0);
    bindings().bind(m_ui.penTransparencySpinBox, QStringLiteral("PenTool/Transparency"), 60);
    bindings().bind(m_ui.penAntCheckBox, QStringLiteral("PenTool/Antialiasing"), true);
    bindings().bind(m_ui.penSmoothCheckBox, QStringLiteral("PenTool/Smoothing"), false);
    bindings().bind(m_ui.showSelectionCheckBox, QStringLiteral("PenTool/DrawSelection"), false);
}
