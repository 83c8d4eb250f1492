// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/qttoolbarmanager.h"

#include "widgets/qtfulltoolbarmanager.h"

QtToolBarManager::QtToolBarManager(QObject *parent) : QObject(parent), m_manager(new QtFullToolBarManager(this)) {}

void QtToolBarManager::setMainWindow(QMainWindow *mainWindow)
{
    m_manager->setMainWindow(mainWindow);
}

QMainWindow *QtToolBarManager::mainWindow() const
{
    return m_manager->mainWindow();
}

void QtToolBarManager::addAction(QAction *action, const QString &category)
{
    m_manager->addAction(action, category);
}

void QtToolBarManager::removeAction(QAction *action)
{
    m_manager->removeAction(action);
}

void QtToolBarManager::addToolBar(QToolBar *toolBar, const QString &category)
{
    m_manager->addToolBar(toolBar, category);
}

void QtToolBarManager::removeToolBar(QToolBar *toolBar)
{
    m_manager->removeToolBar(toolBar);
}

QByteArray QtToolBarManager::saveState(int version) const
{
    return m_manager->saveState(version);
}

bool QtToolBarManager::restoreState(const QByteArray &state, int version)
{
    return m_manager->restoreState(state, version);
}

QtFullToolBarManager *QtToolBarManager::fullManager() const
{
    return m_manager;
}
