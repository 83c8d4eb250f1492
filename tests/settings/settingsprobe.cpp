// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingsprobe.h"

#include "settings/configdialog.h"
#include "settings/emailtab.h"
#include "settings/lineandbrackettab.h"
#include "settings/markertab.h"
#include "settings/othertab.h"
#include "settings/pageviewtab.h"
#include "settings/pentab.h"
#include "settings/printtab.h"
#include "settings/screenshottab.h"
#include "settings/shapetab.h"
#include "settings/syntaxtab.h"
#include "settings/textboxtab.h"
#include "widgets/qtcolorpicker.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QStackedWidget>

std::unique_ptr<SettingsTab> makePage(int index)
{
    switch (index) {
    case Pen:
        return std::make_unique<PenTab>();
    case Marker:
        return std::make_unique<MarkerTab>();
    case TextBox:
        return std::make_unique<TextBoxTab>();
    case Line:
        return std::make_unique<LineAndBracketTab>();
    case Shape:
        return std::make_unique<ShapeTab>();
    case Screenshot:
        return std::make_unique<ScreenshotTab>();
    case PageView:
        return std::make_unique<PageViewTab>();
    case Syntax:
        return std::make_unique<SyntaxTab>();
    case Print:
        return std::make_unique<PrintTab>();
    case Other:
        return std::make_unique<OtherTab>();
    default:
        return std::make_unique<EmailTab>();
    }
}

QWidget *pageAt(const ConfigDialog &dialog, int index)
{
    return dialog.findChild<QStackedWidget *>()->widget(index);
}

QAbstractButton *buttonWithText(const ConfigDialog &dialog, const QString &text)
{
    for (auto *button : dialog.findChildren<QPushButton *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (button->text() == text)
            return button;
    }
    qFatal("no button says %s", qPrintable(text));
}

QWidget *partOf(const QWidget *page, const QString &name)
{
    auto *found = page->findChild<QWidget *>(name);
    if (found == nullptr)
        qFatal("no part named %s", qPrintable(name));
    return found;
}

QVariant shownBy(const QWidget *control)
{
    if (const auto *picker = qobject_cast<const QtColorPicker *>(control))
        return picker->currentColor().name();
    if (const auto *button = qobject_cast<const QAbstractButton *>(control))
        return button->isChecked();
    if (const auto *box = qobject_cast<const QSpinBox *>(control))
        return box->value();
    if (const auto *slider = qobject_cast<const QSlider *>(control))
        return slider->value();
    if (const auto *edit = qobject_cast<const QLineEdit *>(control))
        return edit->text();
    if (const auto *box = qobject_cast<const QComboBox *>(control))
        return box->isEditable() || box->currentIndex() >= 0 ? box->currentText() : box->placeholderText();
    qFatal("%s shows nothing", control->metaObject()->className());
}

void choose(QWidget *control, const QVariant &value)
{
    if (auto *picker = qobject_cast<QtColorPicker *>(control))
        picker->setCurrentColor(QColor(value.toString()));
    else if (auto *button = qobject_cast<QAbstractButton *>(control); button != nullptr)
        button->setChecked(value.toBool());
    else if (auto *box = qobject_cast<QSpinBox *>(control))
        box->setValue(value.toInt());
    else if (auto *slider = qobject_cast<QSlider *>(control))
        slider->setValue(value.toInt());
    else if (auto *edit = qobject_cast<QLineEdit *>(control))
        edit->setText(value.toString());
    else if (auto *list = qobject_cast<QComboBox *>(control))
        list->setCurrentText(value.toString());
    else
        qFatal("%s takes nothing", control->metaObject()->className());
}

MarkedLanguage::MarkedLanguage()
{
    QCoreApplication::installTranslator(this);
}

MarkedLanguage::~MarkedLanguage()
{
    QCoreApplication::removeTranslator(this);
}

void MarkedLanguage::announceTo(QWidget *widget) const
{
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(widget, &change);
}

bool MarkedLanguage::isEmpty() const
{
    return false;
}

QString MarkedLanguage::translate(const char * /*context*/, const char *source, const char * /*comment*/,
                                  int /*number*/) const
{
    return mark + QString::fromUtf8(source);
}
