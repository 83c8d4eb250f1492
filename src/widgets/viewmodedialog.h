// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/floatingbar.h"

#include <QList>

class QAction;

/// The bar near the bottom right corner in the reduced view: a button for each of a few actions, and the way back.
class ViewModeDialog : public FloatingBar
{
    Q_OBJECT

public:
    /// The actions stay the caller's.
    explicit ViewModeDialog(const QList<QAction *> &actions, QWidget *parent = nullptr);

protected:
    int topWithin(int windowHeight) const override;
    void goBack() override;
    void retranslate() override;

private slots:
    void fullViewMode();

private:
    QToolButton *m_standardViewButton;
};
