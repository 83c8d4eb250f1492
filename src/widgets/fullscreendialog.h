// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/floatingbar.h"

/// The bar near the top right corner in full screen: back to the standard view, and quit.
class FullscreenDialog : public FloatingBar
{
    Q_OBJECT

public:
    explicit FullscreenDialog(QWidget *parent = nullptr);

protected:
    int topWithin(int windowHeight) const override;
    void goBack() override;
    void retranslate() override;

private slots:
    void quitFullscreen();

private:
    QToolButton *m_standardViewButton;
    QToolButton *m_quitButton;
};
