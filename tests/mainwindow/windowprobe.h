// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainwindow/scrivara.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QMenu>
#include <QTemporaryDir>
#include <QToolBar>

#include <memory>

class PageStack;
class PageView;
class QtColorPicker;

/// A folder of files for one test, removed with it.
class TestFiles
{
public:
    /// Writes a file and returns its path; folders in @p name are made.
    QString write(const QString &name, const QByteArray &content = "one\ntwo\nthree\n") const;
    /// Writes a picture of this size and returns its path.
    QString writePicture(const QString &name, const QSize &size = QSize(40, 30)) const;
    QString path(const QString &name) const;
    /// The folder itself, without a separator at its end.
    QString folder() const;

private:
    QTemporaryDir m_folder;
};

/// What the event log holds, without the prefixes of its lines.
class LogProbe
{
public:
    /// Sends the log to files of its own until the next probe does so.
    LogProbe();

    /// The lines of the log file so far.
    QStringList info() const;
    /// The trace lines since the last call or mark(). Writes the record of the trace.
    QStringList traceSinceMark();
    /// Those of them that stand in the record as the program wrote it last.
    QStringList recordedSinceMark() const;
    /// Whether the program has written the record since this probe was made.
    bool hasRecord() const;
    /// Forgets what was traced so far.
    void mark();

private:
    QString recordPath() const;

    QTemporaryDir m_folder;
    int m_marks = 0;
};

/// Builds a window on the present settings and reaches its parts by object name, as a user finds them by their looks.
class WindowProbe
{
public:
    explicit WindowProbe(const QStringList &files = {});
    ~WindowProbe();

    Scrivara *operator->() const { return m_window.get(); }
    Scrivara &operator*() const { return *m_window; }

    QAction *action(const char *name) const;
    QMenu *menu(const char *name) const;
    QToolBar *bar(const char *name) const;
    QComboBox *zoomBox() const;
    QToolButton *syntaxButton() const;
    QToolButton *lockButton() const;
    QToolButton *openButton() const;
    QtColorPicker *linePicker() const;
    QtColorPicker *fillPicker() const;
    PageView *view() const;
    PageStack *stack() const;
    Page *page() const;
    /// The visible entries of the recent files menu.
    QList<QAction *> recentActions() const;
    /// Marks all documents as unmodified, so that the window closes without a question.
    void forgetChanges() const;
    /// Destroys the window.
    void destroy();

private:
    QStringList m_files;
    std::unique_ptr<Scrivara> m_window;
};

/// Names of the actions of @p widget in order; "|" is a separator, a menu's action has the menu's name, and a widget
/// on a tool bar has its class.
QStringList actionNames(const QWidget *widget);
