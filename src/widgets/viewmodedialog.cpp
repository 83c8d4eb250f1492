// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/viewmodedialog.h"

#include "widgets/viewhost.h"

#include <QAction>
#include <QToolButton>

ViewModeDialog::ViewModeDialog(const QList<QAction *> &actions, QWidget *parent) : FloatingBar(parent)
{
    for (QAction *action : actions)
        addButton()->setDefaultAction(action);
    m_standardViewButton = addButton();
    m_standardViewButton->setIcon(QIcon(QStringLiteral(":/dialog_icons/window_new.png")));
    connect(m_standardViewButton, &QToolButton::clicked, this, &ViewModeDialog::fullViewMode);
    ViewModeDialog::retranslate();
}

int ViewModeDialog::topWithin(int windowHeight) const
{
    return windowHeight - height() - 30;
}

void ViewModeDialog::goBack()
{
    fullViewMode();
}

void ViewModeDialog::retranslate()
{
    m_standardViewButton->setToolTip(tr("Standard View"));
    m_standardViewButton->setAccessibleName(m_standardViewButton->toolTip());
}

void ViewModeDialog::fullViewMode()
{
    if (host())
        host()->showStandardView(true);
}
