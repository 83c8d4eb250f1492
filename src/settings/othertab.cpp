// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/othertab.h"

OtherTab::OtherTab(QWidget *parent) : FormTab(parent)
{
    // The names that are stored are English in every language.
    const QStringList sides{"Left", "Bottom", "Top", "Right"};
    for (int i = 0; i < sides.size(); ++i)
        m_ui.tabsComboBox->setItemData(i, sides.at(i));
    // One key stands for both buttons: what is not PDF is PostScript.
    connect(m_ui.pdfRadioButton, &QRadioButton::toggled, m_ui.psRadioButton,
            [this](bool pdf) { m_ui.psRadioButton->setChecked(!pdf); });

    bindings().bind(m_ui.pdfRadioButton, QStringLiteral("Other/ExportToPdfFile"), true);
    bindings().bind(m_ui.recentFilesSpinBox, QStringLiteral("Other/MaxRecentFiles"), 5);
    bindings().bind(m_ui.tabsComboBox, QStringLiteral("Other/TabsPosition"), QStringLiteral("Right"));
    bindings().bind(m_ui.fullscreenAtStartCheckBox, QStringLiteral("Other/FullscreenAtStart"), false);
    bindings().bind(m_ui.keepSynchroCheckBox, QStringLiteral("Other/SynchAnnotations"), true);
    bindings().bind(m_ui.warnAllRemoveCheckBox, QStringLiteral("General/WarnRemoveAllAnnotations"), true);
}
