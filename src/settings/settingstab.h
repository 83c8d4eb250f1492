// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingbindings.h"

#include <QWidget>

class QSlider;

/// One page of the settings dialog: controls that are filled from the store and written back to it.
class SettingsTab : public QWidget
{
    Q_OBJECT

public:
    ~SettingsTab() override;

    /// Shows what the store holds, in place of what the user has changed since.
    virtual void load(const QSettings &settings);
    /// Writes what the page shows.
    virtual void store(QSettings &settings);

protected:
    explicit SettingsTab(QWidget *parent);

    /// The page's table of controls and keys.
    SettingBindings &bindings();
    /// Lets the box and the slider show the same value, whichever of them is moved.
    static void link(QSpinBox *box, QSlider *slider);
    /// Sets all texts in the present language.
    virtual void retranslate() = 0;

    void changeEvent(QEvent *event) override;

private:
    SettingBindings m_bindings;
};

/// A page with a form made by the user interface compiler.
template<typename Form> class FormTab : public SettingsTab
{
protected:
    explicit FormTab(QWidget *parent) : SettingsTab(parent) { m_ui.setupUi(this); }

    void retranslate() override { m_ui.retranslateUi(this); }

    Form m_ui;
};
