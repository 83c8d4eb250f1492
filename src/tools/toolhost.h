// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLabel;
class QString;
class QWidget;

/// What tools ask of the window. A tool without a host (null) works: it then asks for nothing.
class ToolHost
{
public:
    /// Makes the tool that was in force before the current one current again.
    virtual void restorePreviousTool() = 0;
    /// The message area of the status bar; owned by the window.
    virtual QLabel *statusLabel() const = 0;
    /// Folder in which a save dialog starts.
    virtual QString lastOpenDir() const = 0;
    /// Hands @p fileName to the mail client as an attachment.
    virtual void sendFileViaEmail(QString fileName) = 0;
    /// Parent of the boxes and dialogs that a tool shows.
    virtual QWidget *hostWindow() = 0;

protected:
    ~ToolHost() = default;
};
