// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/activeelementdialog.h"

#include "annotations/exacttext.h"
#include "ui_activeelementdialog.h"

#include <QEvent>
#include <QFontDatabase>

#include <cstdlib>

namespace {

constexpr int tagBackgroundAlpha = 120;

} // namespace

ActiveElementDialog::ActiveElementDialog(QWidget *parent, Qt::WindowFlags flags)
    : QDialog(parent, flags), m_ui(std::make_unique<Ui::ActiveElementDialog>())
{
    m_ui->setupUi(this);
    for (const int size : QFontDatabase::standardSizes())
        m_ui->fontSizeBox->addItem(QString::number(size));
    m_ui->textColorPicker->setStandardColors();
    m_ui->backgroundPicker->setStandardColors();
    connectWidgets();
}

ActiveElementDialog::~ActiveElementDialog() = default;

void ActiveElementDialog::connectWidgets()
{
    connect(m_ui->okButton, &QPushButton::clicked, this, &ActiveElementDialog::saveInformation);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &ActiveElementDialog::reject);
    connect(m_ui->fontFamilyBox, &QFontComboBox::currentFontChanged, this, &ActiveElementDialog::updateElementFont);
    connect(m_ui->fontSizeBox, &QComboBox::editTextChanged, this, &ActiveElementDialog::updateElementFont);
    connect(m_ui->fontSizeBox, &QComboBox::currentIndexChanged, this, &ActiveElementDialog::updateElementFont);
    connect(m_ui->textColorPicker, &QtColorPicker::colorChanged, this, &ActiveElementDialog::setTextColor);
    connect(m_ui->backgroundPicker, &QtColorPicker::colorChanged, this, &ActiveElementDialog::setBgColor);
}

void ActiveElementDialog::setElement(ActiveElement *element)
{
    if (!element)
        return;
    m_element = element;
    m_ui->descriptionText->setPlainText(element->description());
    m_ui->authorEdit->setText(element->author());
    m_ui->addDateToolButton->setChecked(element->showDate());
    const QFont font = element->font();
    m_ui->fontFamilyBox->setCurrentFont(font);
    selectNearestSize(font.pointSize() == -1 ? font.pixelSize() : font.pointSize());
    QColor background = element->background();
    background.setAlpha(255);
    m_ui->backgroundPicker->setCurrentColor(background);
    m_ui->textColorPicker->setCurrentColor(element->defaultTextColor());
}

void ActiveElementDialog::selectNearestSize(int size)
{
    // The first of two equally near ones wins.
    int bestDistance = 100000;
    int best = 0;
    for (int i = 0; i < m_ui->fontSizeBox->count(); ++i) {
        const int distance = std::abs(m_ui->fontSizeBox->itemText(i).toInt() - size);
        if (distance < bestDistance) {
            bestDistance = distance;
            best = i;
        }
    }
    m_ui->fontSizeBox->setCurrentIndex(best);
}

void ActiveElementDialog::setTextColor(QColor color)
{
    m_textColor = color;
}

void ActiveElementDialog::setBgColor(QColor color)
{
    m_bgColor = color;
}

QFont ActiveElementDialog::chosenFont() const
{
    QFont font = m_ui->fontFamilyBox->currentFont();
    font.setPixelSize(m_ui->fontSizeBox->currentText().toInt());
    return font;
}

void ActiveElementDialog::updateElementFont()
{
    m_previewFont = chosenFont();
    m_ui->descriptionText->setFont(m_previewFont);
}

void ActiveElementDialog::saveInformation()
{
    if (m_element) {
        m_element->setPlainText(exactText(*m_ui->descriptionText->document()));
        m_element->setAuthor(m_ui->authorEdit->text());
        QColor background = m_ui->backgroundPicker->currentColor();
        background.setAlpha(tagBackgroundAlpha);
        m_element->setBackground(background);
        m_element->setDefaultTextColor(m_ui->textColorPicker->currentColor());
        m_element->setFont(chosenFont());
        const bool stamped = m_ui->addDateToolButton->isChecked();
        m_element->setShowDate(stamped);
        if (stamped) {
            m_element->setDate(QDate::currentDate());
            m_element->setTime(QTime::currentTime());
        }
    }
    accept();
}

void ActiveElementDialog::showEvent(QShowEvent *event)
{
    m_ui->descriptionText->setFocus();
    QDialog::showEvent(event);
}

void ActiveElementDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        m_ui->addDateToolButton->setText(tr("Add date and time"));
    }
    QDialog::changeEvent(event);
}
