// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/toolbarstate.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class QMainWindow;
class QToolBar;

/// Knows the managed tool bars, the actions that may stand in them, and the tool bars that the user made.
///
/// In all lists of actions null stands for a separator. An action stands in a list once; named twice, it stands at
/// the later place. Actions and tool bars stay their owners'; those that are deleted are forgotten. Custom tool bars
/// are children of the main window.
class QtFullToolBarManager : public QObject
{
    Q_OBJECT

public:
    explicit QtFullToolBarManager(QObject *parent = nullptr);

    void setMainWindow(QMainWindow *mainWindow);
    QMainWindow *mainWindow() const;

    void addAction(QAction *action, const QString &category);
    void removeAction(QAction *action);
    void addToolBar(QToolBar *toolBar, const QString &category);
    void removeToolBar(QToolBar *toolBar);

    /// In the order in which they came.
    QStringList categories() const;
    QList<QAction *> categoryActions(const QString &category) const;
    bool isKnown(QAction *action) const;

    /// All managed tool bars, custom ones included, in the order in which they came.
    QList<QToolBar *> toolBars() const;
    bool isCustom(QToolBar *toolBar) const;
    /// Empty for a tool bar that is not managed.
    QList<QAction *> actions(QToolBar *toolBar) const;
    QList<QAction *> defaultActions(QToolBar *toolBar) const;

    /// Fills a managed tool bar. Actions that are not known are left out.
    void setActions(QToolBar *toolBar, const QList<QAction *> &actions);
    /// Makes an empty custom tool bar with a new object name. Null without a main window.
    QToolBar *createToolBar(const QString &title);
    /// Deletes a custom tool bar; does nothing for any other.
    void deleteToolBar(QToolBar *toolBar);

    QByteArray saveState(int version) const;
    bool restoreState(const QByteArray &bytes, int version);

public slots:
    /// Gives the tool bar its default actions.
    void resetToolBar(QToolBar *toolBar);
    /// Deletes the custom tool bars and resets all others.
    void resetAllToolBars();

signals:
    void toolBarCreated(QToolBar *toolBar);
    /// Comes before a custom tool bar is deleted, and when one is no longer managed.
    void toolBarRemoved(QToolBar *toolBar);
    void toolBarChanged(QToolBar *toolBar, const QList<QAction *> &actions);

private:
    struct Category
    {
        QString name;
        QList<QAction *> actions;
    };
    struct ManagedBar
    {
        QToolBar *toolBar;
        QList<QAction *> defaults;
        QList<QAction *> current;
    };

    const ManagedBar *managed(QToolBar *toolBar) const;
    void manage(QToolBar *toolBar, const QList<QAction *> &actions);
    void forgetAction(QAction *action);
    void forgetToolBar(QToolBar *toolBar);

    QToolBar *createCustom(const QString &name, const QString &title);
    QToolBar *customToRestore(const ToolBarState::Bar &stored);
    QToolBar *barNamed(const QString &name) const;
    bool nameIsTaken(const QString &name) const;
    QStringList actionNames(const ManagedBar &bar) const;
    QToolBar *findToolBar(const QString &name) const;
    QAction *findAction(const QString &name) const;
    QList<QAction *> findActions(const QStringList &names) const;

    QPointer<QMainWindow> m_mainWindow;
    QList<Category> m_categories;
    QHash<QAction *, QString> m_categoryOf; ///< of every action that is known
    QList<ManagedBar> m_bars;
    QList<QToolBar *> m_customBars;
};
