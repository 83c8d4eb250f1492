// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/shapetab.h"

#include "settings/linestyles.h"

ShapeTab::ShapeTab(QWidget *parent) : FormTab(parent)
{
    LineStyles::fill(m_ui.shapeLineStyleComboBox);
    link(m_ui.shapeLineWidthSpinBox, m_ui.horizontalSlider);
    link(m_ui.shapeTransparencySpinBox, m_ui.horizontalSlider_2);
    bindings().bind(m_ui.shapeLineWidthSpinBox, QStringLiteral("ShapeTool/LineWidth"), 1);
    bindings().bind(m_ui.shapeLineStyleComboBox, QStringLiteral("ShapeTool/LineStyle"), QStringLiteral("Solid"));
    bindings().bind(m_ui.shapeTransparencySpinBox, QStringLiteral("ShapeTool/Transparency"), 60);
    bindings().bind(m_ui.shapeAntialiasingCheckBox, QStringLiteral("ShapeTool/Antialiasing"), true);
}

void ShapeTab::load(const QSettings &settings)
{
    FormTab::load(settings);
    // Rectangles and ellipses always show their selection in the same way: nothing is stored for this box.
    m_ui.showSelectionCheckBox->setChecked(false);
}

void ShapeTab::retranslate()
{
    FormTab::retranslate();
    LineStyles::retranslate(m_ui.shapeLineStyleComboBox);
}
