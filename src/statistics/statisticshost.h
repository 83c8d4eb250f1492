// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class PageStack;

/// What the statistics ask of the window. The dialog is the window's child and finds this interface by casting its
/// parent; without it there is nothing to list.
class StatisticsHost
{
public:
    /// The open documents; null when there has been none yet.
    virtual PageStack *pageStack() const = 0;

protected:
    ~StatisticsHost() = default;
};
