// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "ui_pageviewsettpanel.h"

#include <QFont>

#include <optional>

/// The looks of text documents: those that are opened from now on, and the font of the one in front.
class PageViewTab : public FormTab<Ui::PageViewSettPanel>
{
    Q_OBJECT

public:
    explicit PageViewTab(QWidget *parent = nullptr);

    /// The font that is chosen for the document in front; the store does not know it.
    QFont documentFont() const;
    /// Shows the font of the document in front; without one there is nothing to choose.
    void setDocumentFont(const std::optional<QFont> &font);

protected:
    void retranslate() override;

private:
    QtColorPicker *addPicker(QLabel *label);
    void setPickerTexts();
    void alignColumns();

    QtColorPicker *m_bgColorPicker;
    QtColorPicker *m_textColorPicker;
};
