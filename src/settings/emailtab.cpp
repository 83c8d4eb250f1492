// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/emailtab.h"

#include "app/mailclient.h"

#include <QFileDialog>
#include <QOperatingSystemVersion>

EmailTab::EmailTab(QWidget *parent) : FormTab(parent)
{
    for (QWidget *widget :
         QWidgetList{m_ui.attachmentLabel, m_ui.oxnRadio, m_ui.pdfRadio, m_ui.pngRadio, m_ui.originalRadio})
        connect(m_ui.attachFileCheckBox, &QCheckBox::toggled, widget, &QWidget::setEnabled);
    connect(m_ui.browseButton, &QPushButton::clicked, this, &EmailTab::browse);
    connect(m_ui.defaultButton, &QPushButton::clicked, this, [this](bool checked) {
        // Whether the button stays down is for the look-up to say, not for the click.
        m_ui.defaultButton->setChecked(!checked);
        useDefault();
    });

    const QList<SettingBindings::Choice> formats{{m_ui.oxnRadio, QStringLiteral("OXN")},
                                                 {m_ui.pdfRadio, QStringLiteral("PDF")},
                                                 {m_ui.pngRadio, QStringLiteral("PNG")},
                                                 {m_ui.originalRadio, QStringLiteral("Original")}};
    bindings().bind(m_ui.emailClientEdit, QStringLiteral("General/EmailClient"), QStringLiteral("(empty)"));
    bindings().bind(m_ui.attachFileCheckBox, QStringLiteral("General/AttachFileByDefault"), false);
    bindings().bind(formats, QStringLiteral("General/AttachmentFormat"), QStringLiteral("OXN"));
}

void EmailTab::load(const QSettings &settings)
{
    FormTab::load(settings);
    m_ui.defaultButton->setChecked(false);
}

void EmailTab::browse()
{
    const bool windows = QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows;
    const QString program = QFileDialog::getOpenFileName(this, tr("Select E-mail Client"), QString(),
                                                         windows ? tr("Executable files: (*.exe)") : QString());
    if (program.isEmpty())
        return;
    m_ui.emailClientEdit->setText(program);
    m_ui.defaultButton->setChecked(false);
}

void EmailTab::useDefault()
{
    const QString client = defaultMailClient();
    if (client.isEmpty() || client == QLatin1String("(empty)"))
        return;
    m_ui.emailClientEdit->setText(client);
    m_ui.defaultButton->setChecked(true);
}
