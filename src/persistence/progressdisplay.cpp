// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/progressdisplay.h"

#include "documents/page.h"

ProgressDisplay::ProgressDisplay(const Page *page) : m_bar(page->host() ? page->host()->progressBar() : nullptr)
{
    if (m_bar)
        m_bar->reset();
}

void ProgressDisplay::show(int percent) const
{
    if (m_bar)
        m_bar->setValue(percent);
}
