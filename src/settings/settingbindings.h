// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>
#include <vector>

class QAbstractButton;
class QComboBox;
class QFontComboBox;
class QLineEdit;
class QRadioButton;
class QSettings;
class QSpinBox;
class QtColorPicker;

/// The controls of one settings page, each bound to the key of the store that it stands for.
///
/// A bound control shows what the readers of its key make of the stored value; the default given with the key is
/// theirs. A stored text that a control cannot show (an unknown line style, a colour that is none, an unknown format)
/// stays in the store until the user chooses something else. Numbers are shown and stored within the control's range.
class SettingBindings
{
public:
    /// A radio button and the text that is stored when it is the one that is checked.
    struct Choice
    {
        QRadioButton *button;
        QString stored;
    };

    SettingBindings();
    ~SettingBindings();
    Q_DISABLE_COPY_MOVE(SettingBindings)

    // The controls are not owned and must outlive the bindings.

    /// A check box; or one of several radio buttons, each with a key of its own. Where more than one of these is stored
    /// as true, the one bound last is checked; where none is, none.
    void bind(QAbstractButton *button, const QString &key, bool fallback);
    void bind(QSpinBox *box, const QString &key, int fallback);
    void bind(QLineEdit *edit, const QString &key, const QString &fallback);
    /// A family that is not installed is shown by its name.
    void bind(QFontComboBox *box, const QString &key, const QString &fallback);
    /// A list of texts. What is stored is the data of the entry; a stored text that no entry has stands in the box as
    /// its placeholder.
    void bind(QComboBox *box, const QString &key, const QString &fallback);
    /// A list of font sizes, filled here; see showFontSize().
    void bind(QComboBox *box, const QString &key, int fallback);
    void bind(QtColorPicker *picker, const QString &key, const QString &fallback);
    /// Radio buttons that stand for one key together. A stored text that none of them has leaves them as they are.
    void bind(const QList<Choice> &choices, const QString &key, const QString &fallback);

    /// Sets all controls from the store.
    void load(const QSettings &settings);
    /// Writes what the controls show.
    void store(QSettings &settings) const;

private:
    class Binding;
    class Truth;
    class Number;
    class Text;
    class Line;
    class FontFamily;
    class List;
    class FontSize;
    class Color;
    class Radios;

    std::vector<std::unique_ptr<Binding>> m_bindings;
};
