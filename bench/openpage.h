// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/page.h"
#include "documents/pageview.h"

#include <QCoreApplication>

/// A file on a page in a view, as in a tab of the window: shown, painted, and with the caret in its text.
class OpenPage
{
public:
    /// Ends the run if the file cannot be loaded.
    explicit OpenPage(const QString &fileName) : m_page(nullptr), m_view(&m_page, nullptr)
    {
        m_page.setPageView(&m_view);
        m_view.resize(1000, 800);
        if (!m_page.loadFile(fileName))
            qFatal("cannot load the sample file");
        m_view.show();
        m_page.focusDocument();
        paint();
    }

    void paint() { QCoreApplication::processEvents(); }
    Page &page() { return m_page; }
    PageView *view() { return &m_view; }

private:
    Page m_page;
    PageView m_view;
};
