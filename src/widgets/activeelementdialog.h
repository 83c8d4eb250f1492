// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/activeelement.h"

#include <QColor>
#include <QDialog>
#include <QFont>
#include <QPointer>

#include <memory>

namespace Ui {
class ActiveElementDialog;
}

/// Edits one active tag. Nothing reaches the tag before OK.
///
/// Sizes of fonts are pixels here: a tag whose font has a size in points is shown with the nearest number. The chosen
/// font goes to the text alone, not into the font that is written to files.
class ActiveElementDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ActiveElementDialog(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~ActiveElementDialog() override;

    /// Shows what @p element has; null changes nothing. The element is not owned; once it has died, OK only closes
    /// the dialog.
    void setElement(ActiveElement *element);

public slots:
    void setTextColor(QColor color);
    void setBgColor(QColor color);
    /// Shows the description in the chosen font.
    void updateElementFont();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private slots:
    void saveInformation();

private:
    void connectWidgets();
    void selectNearestSize(int size);
    QFont chosenFont() const;

    std::unique_ptr<Ui::ActiveElementDialog> m_ui;
    QPointer<ActiveElement> m_element;
    QFont m_previewFont;
    QColor m_textColor; ///< As the picker told it last, like m_bgColor.
    QColor m_bgColor;
};
