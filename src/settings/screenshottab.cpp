// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/screenshottab.h"

ScreenshotTab::ScreenshotTab(QWidget *parent) : FormTab(parent)
{
    connect(m_ui.saveViewToClipboardRadio, &QRadioButton::toggled, this, &ScreenshotTab::updateInformInClip);
    // The tool looks at the first of the three that is true, in the opposite order: of several stored as true, the one
    // bound last is shown.
    bindings().bind(m_ui.sendViewViaEmailRadio, QStringLiteral("ScreenshotTool/SendViewViaEmail"), false);
    bindings().bind(m_ui.saveViewToFileRadio, QStringLiteral("ScreenshotTool/SaveViewToFile"), false);
    bindings().bind(m_ui.saveViewToClipboardRadio, QStringLiteral("ScreenshotTool/SaveViewToClipboard"), true);
    bindings().bind(m_ui.useScreenShootOnceCheckBox, QStringLiteral("ScreenshotTool/UseOnce"), true);
    bindings().bind(m_ui.informInClipboardCheckBox, QStringLiteral("ScreenshotTool/InfoViewInClipboard"), true);
}

void ScreenshotTab::updateInformInClip(bool checked)
{
    m_ui.informInClipboardCheckBox->setEnabled(checked);
}
