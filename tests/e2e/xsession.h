// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSize>

/// A virtual screen with a window manager, for the life of the object, and the hands of a user on it.
/// All positions are screen pixels. What cannot be done fails the process with a message: without a
/// screen no test of the whole program means anything.
class XSession
{
public:
    explicit XSession(QSize size = QSize(1280, 900));
    ~XSession();

    /// The test's own environment with this screen as display.
    QProcessEnvironment environment() const;
    /// What is on the screen now.
    QImage grab() const;
    /// Output of one of the X tools on this screen, without white space around it; empty if it failed.
    QString tool(const QString &program, const QStringList &arguments) const;

    /// Presses and releases a key or a chord, in xdotool's names: "ctrl+s", "Return".
    void key(const QString &chord) const;
    /// Types a text into the window that has the focus.
    void type(const QString &text) const;
    /// Clicks at @p position inside the contents of @p window.
    void click(const QString &window, QPoint position, int button = 1) const;
    /// The same at a point of the screen.
    void click(QPoint position, int button = 1) const;
    /// Presses the left button at the first point, moves through the others, releases at the last.
    void drag(const QList<QPoint> &path) const;
    /// The same in two parts. Keys between them are to be pressed with keyWhileHeld().
    void hold(const QList<QPoint> &path) const;
    void letGo() const;
    /// A chord that leaves the mouse buttons alone, which key() lets go of for as long as it takes.
    void keyWhileHeld(const QString &chord) const;

    /// Visible windows whose title matches @p pattern (a regular expression), as xdotool's ids.
    QStringList windows(const QString &pattern) const;
    enum WindowState { Visible, Active };
    /// Waits until such a window is there (and has the keyboard, for Active) and returns its id; empty if there is none
    /// after @p milliseconds.
    QString waitForWindow(const QString &pattern, WindowState state = Active, int milliseconds = 20000) const;
    /// Waits until the screen no longer changes, that is, until the program has painted what the user did last.
    void waitUntilQuiet() const;
    /// Where a window's contents are, without its frame. Leaves the mouse at their corner.
    QRect geometry(const QString &window) const;
    QString title(const QString &window) const;
    /// Asks the window to close as its close button does.
    void close(const QString &window) const;

private:
    QProcess m_server;
    QProcess m_manager;
    QString m_display;
};
