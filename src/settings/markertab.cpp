// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/markertab.h"

MarkerTab::MarkerTab(QWidget *parent) : FormTab(parent)
{
    link(m_ui.markerWidthSpinBox, m_ui.horizontalSlider);
    link(m_ui.markerTransparencySpinBox, m_ui.horizontalSlider_2);
    bindings().bind(m_ui.markerWidthSpinBox, QStringLiteral("MarkerTool/LineWidth"), 14);
    bindings().bind(m_ui.markerTransparencySpinBox, QStringLiteral("MarkerTool/Transparency"), 60);
    bindings().bind(m_ui.markerAntCheckBox, QStringLiteral("MarkerTool/Antialiasing"), true);
    bindings().bind(m_ui.markerSmoothCheckBox, QStringLiteral("MarkerTool/Smoothing"), false);
    bindings().bind(m_ui.showSelectionCheckBox, QStringLiteral("MarkerTool/ShowSelection"), false);
}
