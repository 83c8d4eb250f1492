// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QAction;
class QByteArray;
class QMainWindow;
class QString;
class QToolBar;
class QtFullToolBarManager;

/// What a main window needs of the management of its tool bars: register bars and actions, keep their arrangement.
///
/// The work is done by a QtFullToolBarManager, which this object owns.
class QtToolBarManager : public QObject
{
    Q_OBJECT

public:
    explicit QtToolBarManager(QObject *parent = nullptr);

    /// The window that custom tool bars are added to. Without one none can be made.
    void setMainWindow(QMainWindow *mainWindow);
    QMainWindow *mainWindow() const;

    /// Offers @p action under @p category. An action that is known already keeps its category.
    void addAction(QAction *action, const QString &category);
    /// Takes @p action out of its category and of every managed tool bar.
    void removeAction(QAction *action);
    /// Manages @p toolBar: the actions it holds now are its default, and are offered under @p category.
    void addToolBar(QToolBar *toolBar, const QString &category);
    /// Stops managing @p toolBar, which stays as it is.
    void removeToolBar(QToolBar *toolBar);

    /// The present arrangement as bytes for a settings store.
    QByteArray saveState(int version = 0) const;
    /// Brings an arrangement back. False, with nothing changed, for damaged bytes or another @p version; what the
    /// bytes name but the program does not have is skipped with a warning.
    bool restoreState(const QByteArray &state, int version = 0);

    /// For the customisation dialog; owned by this object.
    QtFullToolBarManager *fullManager() const;

private:
    QtFullToolBarManager *m_manager;
};
