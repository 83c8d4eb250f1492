// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingbindings.h"

#include "app/setting.h"
#include "settings/fontsizes.h"
#include "widgets/qtcolorpicker.h"

#include <QComboBox>
#include <QFontComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>

#include <optional>

class SettingBindings::Binding
{
public:
    virtual ~Binding() = default;
    virtual void load(const QSettings &settings) = 0;
    virtual void store(QSettings &settings) const = 0;
};

class SettingBindings::Truth : public Binding
{
public:
    Truth(QAbstractButton *button, QString key, bool fallback)
        : m_button(button), m_key(std::move(key)), m_fallback(fallback)
    {
    }

    void load(const QSettings &settings) override
    {
        const bool checked = settingOr(settings, m_key, m_fallback);
        // The checked one of exclusive buttons does not let itself be unchecked.
        const bool exclusive = m_button->autoExclusive();
        m_button->setAutoExclusive(exclusive && checked);
        m_button->setChecked(checked);
        m_button->setAutoExclusive(exclusive);
    }

    void store(QSettings &settings) const override { settings.setValue(m_key, m_button->isChecked()); }

private:
    QAbstractButton *m_button;
    QString m_key;
    bool m_fallback;
};

class SettingBindings::Number : public Binding
{
public:
    Number(QSpinBox *box, QString key, int fallback) : m_box(box), m_key(std::move(key)), m_fallback(fallback) {}

    void load(const QSettings &settings) override { m_box->setValue(settingOr(settings, m_key, m_fallback)); }
    void store(QSettings &settings) const override { settings.setValue(m_key, m_box->value()); }

private:
    QSpinBox *m_box;
    QString m_key;
    int m_fallback;
};

/// What all controls share whose key holds a text that they may be unable to show.
class SettingBindings::Text : public Binding
{
public:
    Text(QString key, QString fallback) : m_key(std::move(key)), m_fallback(std::move(fallback)) {}

    void load(const QSettings &settings) override
    {
        show(readable(settings));
        m_unshown.reset();
        if (settings.contains(m_key) && !shows(settingOr(settings, m_key, QString())))
            m_unshown = shown();
    }

    void store(QSettings &settings) const override
    {
        if (m_unshown != shown())
            settings.setValue(m_key, value());
    }

protected:
    const QString &key() const { return m_key; }
    const QString &fallback() const { return m_fallback; }

    /// What the readers of the key make of the store.
    virtual QString readable(const QSettings &settings) const { return settingOr(settings, m_key, m_fallback); }
    virtual void show(const QString &text) = 0;
    /// Tells by its changes whether the user has chosen something else.
    virtual QString shown() const = 0;
    /// What is to be stored.
    virtual QVariant value() const { return shown(); }
    /// Whether value() says the same as @p stored.
    virtual bool shows(const QString &stored) const { return value().toString() == stored; }

private:
    QString m_key;
    QString m_fallback;
    std::optional<QString> m_unshown; ///< What the control showed instead of what is stored; none if it shows that.
};

class SettingBindings::Line : public Text
{
public:
    Line(QLineEdit *edit, QString key, QString fallback) : Text(std::move(key), std::move(fallback)), m_edit(edit) {}

protected:
    void show(const QString &text) override { m_edit->setText(text); }
    QString shown() const override { return m_edit->text(); }

private:
    QLineEdit *m_edit;
};

class SettingBindings::FontFamily : public Text
{
public:
    FontFamily(QFontComboBox *box, QString key, QString fallback)
        : Text(std::move(key), std::move(fallback)), m_box(box)
    {
    }

protected:
    void show(const QString &text) override
    {
        // Making a font of the name would show what the system puts in the place of a family that it lacks.
        m_box->setCurrentIndex(m_box->findText(text));
        m_box->setEditText(text);
    }
    QString shown() const override { return m_box->currentText(); }

private:
    QFontComboBox *m_box;
};

class SettingBindings::List : public Text
{
public:
    List(QComboBox *box, QString key, QString fallback) : Text(std::move(key), std::move(fallback)), m_box(box) {}

protected:
    void show(const QString &text) override
    {
        const int index = m_box->findData(text);
        m_box->setPlaceholderText(index < 0 ? text : QString());
        m_box->setCurrentIndex(index);
    }
    QString shown() const override { return m_box->currentData().toString(); }

private:
    QComboBox *m_box;
};

class SettingBindings::FontSize : public Text
{
public:
    FontSize(QComboBox *box, QString key, int fallback)
        : Text(std::move(key), QString::number(fallback)), m_box(box), m_size(fallback)
    {
        showFontSize(m_box, fallback);
    }

protected:
    QString readable(const QSettings &settings) const override
    {
        return QString::number(fontSizeSetting(settings, key(), m_size));
    }
    void show(const QString &text) override { showFontSize(m_box, text.toInt()); }
    QString shown() const override { return m_box->currentText(); }
    QVariant value() const override { return m_box->currentText().toInt(); }

private:
    QComboBox *m_box;
    int m_size;
};

class SettingBindings::Color : public Text
{
public:
    Color(QtColorPicker *picker, QString key, QString fallback)
        : Text(std::move(key), std::move(fallback)), m_picker(picker)
    {
    }

protected:
    void show(const QString &text) override
    {
        const QColor color = QColor::fromString(text);
        m_picker->setCurrentColor(color.isValid() ? color : QColor::fromString(fallback()));
    }
    QString shown() const override { return m_picker->currentColor().name(QColor::HexArgb); }
    QVariant value() const override { return m_picker->currentColor().name(); }
    bool shows(const QString &stored) const override
    {
        return QColor::fromString(stored) == QColor::fromString(value().toString());
    }

private:
    QtColorPicker *m_picker;
};

class SettingBindings::Radios : public Text
{
public:
    Radios(QList<Choice> choices, QString key, QString fallback)
        : Text(std::move(key), std::move(fallback)), m_choices(std::move(choices))
    {
    }

protected:
    void show(const QString &text) override
    {
        for (const Choice &choice : m_choices) {
            if (choice.stored == text)
                choice.button->setChecked(true);
        }
    }
    QString shown() const override
    {
        for (const Choice &choice : m_choices) {
            if (choice.button->isChecked())
                return choice.stored;
        }
        return fallback();
    }

private:
    QList<Choice> m_choices;
};

SettingBindings::SettingBindings() = default;

SettingBindings::~SettingBindings() = default;

void SettingBindings::bind(QAbstractButton *button, const QString &key, bool fallback)
{
    m_bindings.push_back(std::make_unique<Truth>(button, key, fallback));
}

void SettingBindings::bind(QSpinBox *box, const QString &key, int fallback)
{
    m_bindings.push_back(std::make_unique<Number>(box, key, fallback));
}

void SettingBindings::bind(QLineEdit *edit, const QString &key, const QString &fallback)
{
    m_bindings.push_back(std::make_unique<Line>(edit, key, fallback));
}

void SettingBindings::bind(QFontComboBox *box, const QString &key, const QString &fallback)
{
    m_bindings.push_back(std::make_unique<FontFamily>(box, key, fallback));
}

void SettingBindings::bind(QComboBox *box, const QString &key, const QString &fallback)
{
    m_bindings.push_back(std::make_unique<List>(box, key, fallback));
}

void SettingBindings::bind(QComboBox *box, const QString &key, int fallback)
{
    m_bindings.push_back(std::make_unique<FontSize>(box, key, fallback));
}

void SettingBindings::bind(QtColorPicker *picker, const QString &key, const QString &fallback)
{
    m_bindings.push_back(std::make_unique<Color>(picker, key, fallback));
}

void SettingBindings::bind(const QList<Choice> &choices, const QString &key, const QString &fallback)
{
    m_bindings.push_back(std::make_unique<Radios>(choices, key, fallback));
}

void SettingBindings::load(const QSettings &settings)
{
    for (const auto &binding : m_bindings)
        binding->load(settings);
}

void SettingBindings::store(QSettings &settings) const
{
    for (const auto &binding : m_bindings)
        binding->store(settings);
}
