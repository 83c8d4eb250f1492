// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/textboxtab.h"

TextBoxTab::TextBoxTab(QWidget *parent) : FormTab(parent)
{
    bindings().bind(m_ui.fontFamilyComboBox, QStringLiteral("TextBoxTool/DefaultFontFamily"),
                    QStringLiteral("Courier"));
    bindings().bind(m_ui.fontSizeComboBox, QStringLiteral("TextBoxTool/DefaultFontSize"), 10);
    bindings().bind(m_ui.useTextBoxOnceCheckBox, QStringLiteral("TextBoxTool/UseOnce"), false);
}
