// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

/// What the floating button bars ask of the window that shows them.
///
/// The bars are the window's children and find this interface by casting their parent; it must not be asked once
/// the window is being destroyed. A bar whose parent is no host (or null) shows its buttons, which then do nothing.
class ViewHost
{
public:
    /// Enters full screen or leaves it.
    virtual void toggleFullScreen() = 0;
    /// Closes the window as the user would; it may ask about unsaved documents and stay.
    virtual void exitProgram() = 0;
    /// Brings back menu bar and tool bars. @p updateActions also checks the action of the standard view.
    virtual void showStandardView(bool updateActions) = 0;
    /// The window itself.
    virtual QWidget *hostWindow() = 0;

protected:
    ~ViewHost() = default;
};
