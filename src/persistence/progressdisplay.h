// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QProgressBar>

class Page;

/// The window's progress bar while a file is read into a page; shows nothing where there is no window.
class ProgressDisplay
{
public:
    /// Empties the bar.
    explicit ProgressDisplay(const Page *page);

    void show(int percent) const;

private:
    QPointer<QProgressBar> m_bar;
};
