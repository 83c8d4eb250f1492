// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/fullscreendialog.h"

#include "widgets/viewhost.h"

#include <QToolButton>

FullscreenDialog::FullscreenDialog(QWidget *parent)
    : FloatingBar(parent), m_standardViewButton(addButton()), m_quitButton(addButton())
{
    m_standardViewButton->setIcon(QIcon(QStringLiteral(":/dialog_icons/window_new.png")));
    connect(m_standardViewButton, &QToolButton::clicked, this, &FullscreenDialog::quitFullscreen);

    m_quitButton->setIcon(QIcon(QStringLiteral(":/search_icons/close.png")));
    connect(m_quitButton, &QToolButton::clicked, this, [this] {
        if (host())
            host()->exitProgram();
    });
    FullscreenDialog::retranslate();
}

int FullscreenDialog::topWithin(int /*windowHeight*/) const
{
    return 30;
}

void FullscreenDialog::goBack()
{
    quitFullscreen();
}

void FullscreenDialog::retranslate()
{
    m_standardViewButton->setToolTip(tr("Standard view"));
    m_standardViewButton->setAccessibleName(m_standardViewButton->toolTip());
    m_quitButton->setToolTip(tr("Quit Kestrin 7"));
    m_quitButton->setAccessibleName(m_quitButton->toolTip());
}

void FullscreenDialog::quitFullscreen()
{
    if (host())
        host()->toggleFullScreen();
}
