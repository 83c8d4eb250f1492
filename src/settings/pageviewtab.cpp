// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/pageviewtab.h"

#include "settings/fontsizes.h"
#include "widgets/qtcolorpicker.h"

namespace {

constexpr int usualFontSize = 10; // points

} // namespace

PageViewTab::PageViewTab(QWidget *parent)
    : FormTab(parent), m_bgColorPicker(addPicker(m_ui.bgColorLabel)), m_textColorPicker(addPicker(m_ui.textColorLabel))
{
    m_bgColorPicker->setObjectName(QStringLiteral("bgColorPicker"));
    m_textColorPicker->setObjectName(QStringLiteral("textColorPicker"));
    setTabOrder(m_ui.showLinesNumCheckBox, m_bgColorPicker);
    setTabOrder(m_bgColorPicker, m_textColorPicker);
    setTabOrder(m_textColorPicker, m_ui.fontFamilyComboBox);
    setPickerTexts();
    alignColumns();
    showFontSize(m_ui.currFontSizeComboBox, usualFontSize);

    bindings().bind(m_ui.showLinesNumCheckBox, QStringLiteral("PageView/ShowLineNumbers"), true);
    bindings().bind(m_bgColorPicker, QStringLiteral("PageView/DefaultBgColor"), QStringLiteral("white"));
    bindings().bind(m_textColorPicker, QStringLiteral("PageView/DefaultTextColor"), QStringLiteral("black"));
    bindings().bind(m_ui.fontFamilyComboBox, QStringLiteral("PageView/DefaultFontFamily"), QStringLiteral("Courier"));
    bindings().bind(m_ui.fontSizeComboBox, QStringLiteral("PageView/DefaultFontSize"), 10);
}

QFont PageViewTab::documentFont() const
{
    return {m_ui.currFontFamilyComboBox->currentText(), m_ui.currFontSizeComboBox->currentText().toInt()};
}

void PageViewTab::setDocumentFont(const std::optional<QFont> &font)
{
    for (QWidget *part : QWidgetList{m_ui.currFontFamilyLabel, m_ui.currFontSizeLabel, m_ui.currFontFamilyComboBox,
                                     m_ui.currFontSizeComboBox})
        part->setEnabled(font.has_value());
    m_ui.currFontFamilyComboBox->setEditText(font ? font->family() : QString());
    showFontSize(m_ui.currFontSizeComboBox, font ? font->pointSize() : usualFontSize);
}

void PageViewTab::retranslate()
{
    FormTab::retranslate();
    setPickerTexts();
    alignColumns();
}

/// Makes a picker behind the label, in the form's grid.
QtColorPicker *PageViewTab::addPicker(QLabel *label)
{
    auto *picker = new QtColorPicker(this, -1, true);
    picker->setStandardColors();
    label->setBuddy(picker);
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    QGridLayout *grid = m_ui.valuesLayout;
    grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
    grid->addWidget(picker, row, column + 1, Qt::AlignLeft);
    return picker;
}

void PageViewTab::setPickerTexts()
{
    m_bgColorPicker->setToolTip(tr("Background Color"));
    m_bgColorPicker->setAccessibleName(tr("Background Color"));
    m_textColorPicker->setToolTip(tr("Font Color"));
    m_textColorPicker->setAccessibleName(tr("Font Color"));
}

/// Lets the controls of both parts of the page stand in one column.
void PageViewTab::alignColumns()
{
    int width = 0;
    for (const QLabel *label : {m_ui.bgColorLabel, m_ui.textColorLabel, m_ui.fontFamilyLabel, m_ui.fontSizeLabel})
        width = qMax(width, label->sizeHint().width());
    m_ui.currentPageLayout->setColumnMinimumWidth(0, width);
}
