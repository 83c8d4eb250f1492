// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingstab.h"

#include <QEvent>
#include <QSlider>
#include <QSpinBox>

SettingsTab::SettingsTab(QWidget *parent) : QWidget(parent) {}

SettingsTab::~SettingsTab() = default;

void SettingsTab::load(const QSettings &settings)
{
    m_bindings.load(settings);
}

void SettingsTab::store(QSettings &settings)
{
    m_bindings.store(settings);
}

SettingBindings &SettingsTab::bindings()
{
    return m_bindings;
}

void SettingsTab::link(QSpinBox *box, QSlider *slider)
{
    connect(box, &QSpinBox::valueChanged, slider, &QSlider::setValue);
    connect(slider, &QSlider::valueChanged, box, &QSpinBox::setValue);
}

void SettingsTab::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
