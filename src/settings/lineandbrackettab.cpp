// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/lineandbrackettab.h"

#include "settings/linestyles.h"

LineAndBracketTab::LineAndBracketTab(QWidget *parent) : FormTab(parent)
{
    LineStyles::fill(m_ui.lineStyleComboBox);
    link(m_ui.lineWidthSpinBox, m_ui.horizontalSlider_3);
    bindings().bind(m_ui.lineWidthSpinBox, QStringLiteral("LineTool/LineWidth"), 0);
    bindings().bind(m_ui.lineStyleComboBox, QStringLiteral("LineTool/LineStyle"), QStringLiteral("Solid"));
    bindings().bind(m_ui.lineAntialiasingCheckBox, QStringLiteral("LineTool/Antialiasing"), true);
    bindings().bind(m_ui.showSelectionCheckBox, QStringLiteral("LineTool/ShowSelection"), false);
}

void LineAndBracketTab::retranslate()
{
    FormTab::retranslate();
    LineStyles::retranslate(m_ui.lineStyleComboBox);
}
