// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/qtfulltoolbarmanager.h"

#include <QAction>
#include <QMainWindow>
#include <QToolBar>

#include <algorithm>

namespace {

/// Takes everything off the bar. Separators are the bar's own and of no further use.
void emptyBar(QToolBar *toolBar)
{
    const QList<QAction *> actions = toolBar->actions();
    for (QAction *action : actions) {
        toolBar->removeAction(action);
        if (action->isSeparator() && action->parent() == toolBar)
            delete action;
    }
}

QList<QAction *> actionsOf(const QToolBar *toolBar)
{
    QList<QAction *> actions = toolBar->actions();
    for (QAction *&action : actions) {
        if (action->isSeparator())
            action = nullptr;
    }
    return actions;
}

QString nameOf(const QToolBar *toolBar)
{
    if (!toolBar->objectName().isEmpty())
        return toolBar->objectName();
    qWarning("QtToolBarManager::saveState(): 'objectName' not set for QToolBar %p '%s', using 'windowTitle' instead",
             static_cast<const void *>(toolBar), qUtf8Printable(toolBar->windowTitle()));
    return toolBar->windowTitle();
}

QString nameOf(const QAction *action)
{
    if (!action)
        return {};
    if (!action->objectName().isEmpty())
        return action->objectName();
    qWarning("QtToolBarManager::saveState(): 'objectName' not set for QAction %p '%s', using 'text' instead",
             static_cast<const void *>(action), qUtf8Printable(action->text()));
    return action->text();
}

} // namespace

QtFullToolBarManager::QtFullToolBarManager(QObject *parent) : QObject(parent) {}

void QtFullToolBarManager::setMainWindow(QMainWindow *mainWindow)
{
    m_mainWindow = mainWindow;
}

QMainWindow *QtFullToolBarManager::mainWindow() const
{
    return m_mainWindow;
}

void QtFullToolBarManager::addAction(QAction *action, const QString &category)
{
    if (!action || action->isSeparator() || isKnown(action))
        return;
    m_categoryOf.insert(action, category);
    auto place = std::find_if(m_categories.begin(), m_categories.end(),
                              [&category](const Category &known) { return known.name == category; });
    if (place == m_categories.end())
        place = m_categories.insert(place, Category{category, {}});
    place->actions.append(action);
    connect(action, &QObject::destroyed, this, [this, action] { forgetAction(action); });
}

void QtFullToolBarManager::removeAction(QAction *action)
{
    if (!isKnown(action))
        return;
    action->disconnect(this);
    QList<ManagedBar> changed = m_bars;
    changed.removeIf([action](const ManagedBar &bar) { return !bar.current.contains(action); });
    forgetAction(action);
    for (const ManagedBar &bar : changed) {
        bar.toolBar->removeAction(action);
        emit toolBarChanged(bar.toolBar, actions(bar.toolBar));
    }
}

void QtFullToolBarManager::addToolBar(QToolBar *toolBar, const QString &category)
{
    if (!toolBar || managed(toolBar))
        return;
    const QList<QAction *> actions = actionsOf(toolBar);
    for (QAction *action : actions)
        addAction(action, category);
    manage(toolBar, actions);
}

void QtFullToolBarManager::removeToolBar(QToolBar *toolBar)
{
    if (!managed(toolBar))
        return;
    toolBar->disconnect(this);
    forgetToolBar(toolBar);
    emit toolBarRemoved(toolBar);
}

QStringList QtFullToolBarManager::categories() const
{
    QStringList names;
    for (const Category &category : m_categories)
        names.append(category.name);
    return names;
}

QList<QAction *> QtFullToolBarManager::categoryActions(const QString &category) const
{
    const auto place = std::find_if(m_categories.cbegin(), m_categories.cend(),
                                    [&category](const Category &known) { return known.name == category; });
    return place == m_categories.cend() ? QList<QAction *>() : place->actions;
}

bool QtFullToolBarManager::isKnown(QAction *action) const
{
    return m_categoryOf.contains(action);
}

QList<QToolBar *> QtFullToolBarManager::toolBars() const
{
    QList<QToolBar *> toolBars;
    for (const ManagedBar &bar : m_bars)
        toolBars.append(bar.toolBar);
    return toolBars;
}

bool QtFullToolBarManager::isCustom(QToolBar *toolBar) const
{
    return m_customBars.contains(toolBar);
}

QList<QAction *> QtFullToolBarManager::actions(QToolBar *toolBar) const
{
    const ManagedBar *bar = managed(toolBar);
    return bar ? bar->current : QList<QAction *>();
}

QList<QAction *> QtFullToolBarManager::defaultActions(QToolBar *toolBar) const
{
    const ManagedBar *bar = managed(toolBar);
    return bar ? bar->defaults : QList<QAction *>();
}

void QtFullToolBarManager::setActions(QToolBar *toolBar, const QList<QAction *> &actions)
{
    const auto bar = std::find_if(m_bars.begin(), m_bars.end(),
                                  [toolBar](const ManagedBar &known) { return known.toolBar == toolBar; });
    if (bar == m_bars.end())
        return;
    QList<QAction *> wanted;
    for (QAction *action : actions) {
        if (action)
            wanted.removeOne(action);
        if (!action || isKnown(action))
            wanted.append(action);
    }
    if (wanted == bar->current)
        return;
    bar->current = wanted;
    emptyBar(toolBar);
    for (QAction *action : std::as_const(wanted)) {
        if (action)
            toolBar->addAction(action);
        else
            toolBar->addSeparator();
    }
    emit toolBarChanged(toolBar, wanted);
}

QToolBar *QtFullToolBarManager::createToolBar(const QString &title)
{
    QString name;
    int number = 0;
    do {
        name = QStringLiteral("%1%2").arg(QStringLiteral("_Custom_Toolbar_")).arg(++number);
    } while (nameIsTaken(name));
    return createCustom(name, title);
}

void QtFullToolBarManager::deleteToolBar(QToolBar *toolBar)
{
    if (!isCustom(toolBar))
        return;
    removeToolBar(toolBar);
    delete toolBar;
}

QByteArray QtFullToolBarManager::saveState(int version) const
{
    ToolBarState state;
    for (const ManagedBar &bar : m_bars)
        state.bars.append({nameOf(bar.toolBar), {}, actionNames(bar)});
    for (QToolBar *toolBar : m_customBars)
        state.customBars.append({toolBar->objectName(), toolBar->windowTitle(), actionNames(*managed(toolBar))});
    return state.toBytes(version);
}

bool QtFullToolBarManager::restoreState(const QByteArray &bytes, int version)
{
    const std::optional<ToolBarState> state = ToolBarState::fromBytes(bytes, version);
    if (!state)
        return false;

    // The custom bars first: the list of all bars names them too.
    QList<QToolBar *> customBars;
    for (const ToolBarState::Bar &stored : state->customBars)
        customBars.append(customToRestore(stored));
    for (const ToolBarState::Bar &stored : state->bars) {
        if (QToolBar *toolBar = findToolBar(stored.name))
            setActions(toolBar, findActions(stored.actions));
    }
    for (qsizetype i = 0; i < customBars.size(); ++i) {
        if (QToolBar *toolBar = customBars.at(i))
            setActions(toolBar, findActions(state->customBars.at(i).actions));
    }
    return true;
}

void QtFullToolBarManager::resetToolBar(QToolBar *toolBar)
{
    setActions(toolBar, defaultActions(toolBar));
}

void QtFullToolBarManager::resetAllToolBars()
{
    const QList<QToolBar *> all = toolBars();
    for (QToolBar *toolBar : all) {
        if (isCustom(toolBar))
            deleteToolBar(toolBar);
        else
            resetToolBar(toolBar);
    }
}

const QtFullToolBarManager::ManagedBar *QtFullToolBarManager::managed(QToolBar *toolBar) const
{
    const auto bar = std::find_if(m_bars.cbegin(), m_bars.cend(),
                                  [toolBar](const ManagedBar &known) { return known.toolBar == toolBar; });
    return bar == m_bars.cend() ? nullptr : &*bar;
}

void QtFullToolBarManager::manage(QToolBar *toolBar, const QList<QAction *> &actions)
{
    m_bars.append({toolBar, actions, actions});
    connect(toolBar, &QObject::destroyed, this, [this, toolBar] { forgetToolBar(toolBar); });
}

void QtFullToolBarManager::forgetAction(QAction *action)
{
    m_categoryOf.remove(action);
    for (Category &category : m_categories)
        category.actions.removeAll(action);
    m_categories.removeIf([](const Category &category) { return category.actions.isEmpty(); });
    for (ManagedBar &bar : m_bars) {
        bar.defaults.removeAll(action);
        bar.current.removeAll(action);
    }
}

void QtFullToolBarManager::forgetToolBar(QToolBar *toolBar)
{
    m_bars.removeIf([toolBar](const ManagedBar &bar) { return bar.toolBar == toolBar; });
    m_customBars.removeAll(toolBar);
}

QToolBar *QtFullToolBarManager::createCustom(const QString &name, const QString &title)
{
    if (!m_mainWindow)
        return nullptr;
    auto *toolBar = new QToolBar(title, m_mainWindow);
    toolBar->setObjectName(name);
    m_mainWindow->addToolBar(toolBar);
    m_customBars.append(toolBar);
    manage(toolBar, {});
    emit toolBarCreated(toolBar);
    return toolBar;
}

/// The custom bar of that name, made if there is none; null if the name is another bar's.
QToolBar *QtFullToolBarManager::customToRestore(const ToolBarState::Bar &stored)
{
    QToolBar *toolBar = barNamed(stored.name);
    if (toolBar && isCustom(toolBar)) {
        toolBar->setWindowTitle(stored.title);
        return toolBar;
    }
    return stored.name.isEmpty() || nameIsTaken(stored.name) ? nullptr : createCustom(stored.name, stored.title);
}

QToolBar *QtFullToolBarManager::barNamed(const QString &name) const
{
    const auto bar = std::find_if(m_bars.cbegin(), m_bars.cend(),
                                  [&name](const ManagedBar &known) { return known.toolBar->objectName() == name; });
    return bar == m_bars.cend() ? nullptr : bar->toolBar;
}

bool QtFullToolBarManager::nameIsTaken(const QString &name) const
{
    return barNamed(name) || (m_mainWindow && m_mainWindow->findChild<QToolBar *>(name));
}

QStringList QtFullToolBarManager::actionNames(const ManagedBar &bar) const
{
    QStringList names;
    for (const QAction *action : bar.current)
        names.append(nameOf(action));
    return names;
}

QToolBar *QtFullToolBarManager::findToolBar(const QString &name) const
{
    if (QToolBar *toolBar = barNamed(name))
        return toolBar;
    qWarning("QtToolBarManager::restoreState(): cannot find a QToolBar named '%s', trying to match using "
             "'windowTitle' instead.",
             qUtf8Printable(name));
    for (const ManagedBar &bar : m_bars) {
        if (bar.toolBar->windowTitle() == name)
            return bar.toolBar;
    }
    qWarning("QtToolBarManager::restoreState(): cannot find a QToolBar with matching 'windowTitle' (looking for "
             "'%s').",
             qUtf8Printable(name));
    return nullptr;
}

QAction *QtFullToolBarManager::findAction(const QString &name) const
{
    const auto known = [this](auto matches) -> QAction * {
        for (const Category &category : m_categories) {
            const auto action = std::find_if(category.actions.cbegin(), category.actions.cend(), matches);
            if (action != category.actions.cend())
                return *action;
        }
        return nullptr;
    };
    if (QAction *action = known([&name](const QAction *candidate) { return candidate->objectName() == name; }))
        return action;
    qWarning("QtToolBarManager::restoreState(): cannot find a QAction named '%s', trying to match using 'text' "
             "instead.",
             qUtf8Printable(name));
    if (QAction *action = known([&name](const QAction *candidate) { return candidate->text() == name; }))
        return action;
    qWarning("QtToolBarManager::restoreState(): cannot find a QAction with matching 'text' (looking for '%s').",
             qUtf8Printable(name));
    return nullptr;
}

QList<QAction *> QtFullToolBarManager::findActions(const QStringList &names) const
{
    QList<QAction *> actions;
    for (const QString &name : names) {
        if (name.isEmpty()) {
            actions.append(nullptr);
        } else if (QAction *action = findAction(name)) {
            actions.append(action);
        }
    }
    return actions;
}
