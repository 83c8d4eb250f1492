// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTranslator>
#include <QVariant>

#include <memory>

class ConfigDialog;
class QAbstractButton;
class QWidget;
class SettingsTab;

/// Reaches the parts of the settings window by name or text, as a user finds them by their looks.

/// The pages by their index.
enum PageIndex { Pen, Marker, TextBox, Line, Shape, Screenshot, PageView, Syntax, Print, Other, Email };
constexpr int pageCount = 11;

/// A page without the window round it, and without anything loaded.
std::unique_ptr<SettingsTab> makePage(int index);

/// The page with this index.
QWidget *pageAt(const ConfigDialog &dialog, int index);
/// The button of the window itself with this text.
QAbstractButton *buttonWithText(const ConfigDialog &dialog, const QString &text);
/// The part of @p page with this object name; ends the run if it has none.
QWidget *partOf(const QWidget *page, const QString &name);

/// What a control shows: whether a button is checked, the number of a spin box or slider, the text of a box or line,
/// the name of a colour. Of a box whose value is not among its entries the placeholder.
QVariant shownBy(const QWidget *control);
/// Chooses a value in the control as a user can.
void choose(QWidget *control, const QVariant &value);

/// A language in which every text is its source behind a mark, spoken while it lives.
class MarkedLanguage : public QTranslator
{
public:
    MarkedLanguage();
    ~MarkedLanguage() override;
    Q_DISABLE_COPY_MOVE(MarkedLanguage)

    /// Tells the widget and its children at once what the event loop would tell them later.
    void announceTo(QWidget *widget) const;

    bool isEmpty() const override;
    QString translate(const char *context, const char *source, const char *comment, int number) const override;

    const QString mark = QStringLiteral("yy:");
};
