// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "e2e/xsession.h"
#include "support/programcopy.h"

/// A copy of the release program that runs on @p session, and what a user does to its window.
class InstalledProgram : public ProgramCopy
{
public:
    explicit InstalledProgram(const XSession &session);

    /// Starts the program and waits for its window; returns the window's id, empty if none came up.
    QString start(const QStringList &arguments = {});
    /// Waits for the main window of a run that was launched, with a document in it if @p withDocument.
    QString waitForMainWindow(bool withDocument);
    QString window() const;
    /// Puts the caret at the start of the text: text mode, then a click on the first letter. In a picture it only
    /// gives the page the keyboard.
    void startTyping() const;
    /// Chooses an entry of the @p menu-th menu of the menu bar, counted from 0. Entries that are on offer are counted
    /// from the end, from 1; 0 is the first one, except in the first menu. With @p subEntry above 0 it has a menu, of
    /// which this entry, counted from 1, is chosen.
    void choose(int menu, int fromEnd, int subEntry = 0) const;
    /// Opens and leaves a menu, which brings up to date what is enabled.
    void refreshMenus() const;
    /// Closes the window as its close button does; true if the program then ended with exit code 0.
    bool closeRegularly();

private:
    const XSession &m_session;
    QString m_window;
};
