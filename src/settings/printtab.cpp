// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/printtab.h"

PrintTab::PrintTab(QWidget *parent) : FormTab(parent)
{
    connect(m_ui.printHeaderCheckBox, &QCheckBox::toggled, this, &PrintTab::updateCheckBoxes);
    bindings().bind(m_ui.printHeaderCheckBox, QStringLiteral("Printing/PrintHeader"), true);
    bindings().bind(m_ui.printFileNameCheckBox, QStringLiteral("Printing/PrintFileName"), true);
    bindings().bind(m_ui.printDateCheckBox, QStringLiteral("Printing/PrintDate"), true);
    bindings().bind(m_ui.printPageNumbersCheckBox, QStringLiteral("Printing/PrintPageNumbers"), true);
    bindings().bind(m_ui.printAnnotationsCheckBox, QStringLiteral("Printing/PrintAnnotations"), true);
    bindings().bind(m_ui.printLineNumbersCheckBox, QStringLiteral("Printing/PrintLineNumbers"), true);
}

/// The parts of the header can be chosen only when there is one.
void PrintTab::updateCheckBoxes()
{
    const bool header = m_ui.printHeaderCheckBox->isChecked();
    for (QCheckBox *box : {m_ui.printFileNameCheckBox, m_ui.printDateCheckBox, m_ui.printPageNumbersCheckBox})
        box->setEnabled(header);
}
