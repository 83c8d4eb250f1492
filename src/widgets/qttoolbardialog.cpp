// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/qttoolbardialog.h"

#include "ui_qttoolbardialog.h"
#include "widgets/qtfulltoolbarmanager.h"
#include "widgets/qttoolbarmanager.h"

#include <QAction>
#include <QEvent>
#include <QSignalBlocker>
#include <QToolBar>

#include <algorithm>

namespace {

constexpr int actionRole = Qt::UserRole;        ///< QObject pointer of a tree item's action
constexpr int separatorRole = Qt::UserRole + 1; ///< true on the tree item that stands for separators

/// What the action is called on a tool bar, without the mark of its menu shortcut.
QString displayText(const QAction *action)
{
    if (!action)
        return QtToolBarDialog::tr("< S E P A R A T O R >");
    return action->iconText().isEmpty() ? action->objectName() : action->iconText();
}

QIcon displayIcon(const QAction *action)
{
    return action ? action->icon() : QIcon();
}

} // namespace

QtToolBarDialog::QtToolBarDialog(QWidget *parent, Qt::WindowFlags flags)
    : QDialog(parent, flags), m_ui(std::make_unique<Ui::QtToolBarDialog>())
{
    m_ui->setupUi(this);
    connectWidgets();
    updateButtons();
}

QtToolBarDialog::~QtToolBarDialog() = default;

void QtToolBarDialog::setCategoryTitles(const std::function<QString(const QString &)> &titleOf)
{
    m_titleOf = titleOf;
}

void QtToolBarDialog::setToolBarManager(QtToolBarManager *manager)
{
    m_manager = manager ? manager->fullManager() : nullptr;
    m_drafts.clear();
    if (m_manager) {
        const QList<QToolBar *> toolBars = m_manager->toolBars();
        for (QToolBar *toolBar : toolBars) {
            m_drafts.append(
                {toolBar, toolBar->windowTitle(), m_manager->isCustom(toolBar), m_manager->actions(toolBar)});
        }
    }
    fillActionTree();
    fillToolBarList();
}

void QtToolBarDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
    QDialog::changeEvent(event);
}

void QtToolBarDialog::connectWidgets()
{
    connect(m_ui->newButton, &QToolButton::clicked, this, &QtToolBarDialog::newClicked);
    connect(m_ui->removeButton, &QToolButton::clicked, this, &QtToolBarDialog::removeClicked);
    connect(m_ui->defaultButton, &QPushButton::clicked, this, &QtToolBarDialog::defaultClicked);
    connect(m_ui->okButton, &QPushButton::clicked, this, &QtToolBarDialog::okClicked);
    connect(m_ui->applyButton, &QPushButton::clicked, this, &QtToolBarDialog::applyClicked);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &QtToolBarDialog::cancelClicked);
    connect(m_ui->upButton, &QToolButton::clicked, this, &QtToolBarDialog::upClicked);
    connect(m_ui->downButton, &QToolButton::clicked, this, &QtToolBarDialog::downClicked);
    connect(m_ui->leftButton, &QToolButton::clicked, this, &QtToolBarDialog::leftClicked);
    connect(m_ui->rightButton, &QToolButton::clicked, this, &QtToolBarDialog::rightClicked);
    connect(m_ui->renameButton, &QToolButton::clicked, this, &QtToolBarDialog::renameClicked);
    connect(m_ui->toolBarList, &QListWidget::itemChanged, this, &QtToolBarDialog::toolBarRenamed);
    connect(m_ui->actionTree, &QTreeWidget::currentItemChanged, this, &QtToolBarDialog::currentActionChanged);
    connect(m_ui->toolBarList, &QListWidget::currentItemChanged, this, &QtToolBarDialog::currentToolBarChanged);
    connect(m_ui->currentToolBarList, &QListWidget::currentItemChanged, this,
            &QtToolBarDialog::currentToolBarActionChanged);
    connect(m_ui->actionTree, &QTreeWidget::itemDoubleClicked, this, &QtToolBarDialog::rightClicked);
    connect(m_ui->currentToolBarList, &QListWidget::itemDoubleClicked, this, &QtToolBarDialog::leftClicked);
}

void QtToolBarDialog::newClicked()
{
    m_drafts.append({nullptr, tr("Custom Toolbar"), true, {}});
    appendToolBarItem(m_drafts.constLast());
    m_ui->toolBarList->setCurrentRow(m_ui->toolBarList->count() - 1);
    renameClicked();
}

void QtToolBarDialog::removeClicked()
{
    const Draft *draft = currentDraft();
    if (!draft || !draft->custom)
        return;
    const int row = m_ui->toolBarList->currentRow();
    m_drafts.removeAt(row);
    {
        const QSignalBlocker blocker(m_ui->toolBarList);
        delete m_ui->toolBarList->takeItem(row);
    }
    fillCurrentToolBarList(0);
}

void QtToolBarDialog::defaultClicked()
{
    m_drafts.removeIf([](const Draft &draft) { return draft.custom; });
    for (Draft &draft : m_drafts) {
        if (m_manager)
            draft.actions = m_manager->defaultActions(draft.toolBar);
    }
    fillToolBarList();
}

void QtToolBarDialog::okClicked()
{
    applyClicked();
    accept();
}

void QtToolBarDialog::applyClicked()
{
    if (!m_manager)
        return;
    deleteRemovedToolBars();
    for (Draft &draft : m_drafts) {
        if (!draft.toolBar && draft.custom)
            draft.toolBar = m_manager->createToolBar(draft.title);
        else if (draft.toolBar && draft.custom)
            draft.toolBar->setWindowTitle(draft.title);
        m_manager->setActions(draft.toolBar, draft.actions);
    }
}

void QtToolBarDialog::cancelClicked()
{
    reject();
}

void QtToolBarDialog::upClicked()
{
    moveCurrentAction(-1);
}

void QtToolBarDialog::downClicked()
{
    moveCurrentAction(1);
}

void QtToolBarDialog::leftClicked()
{
    Draft *draft = currentDraft();
    const int row = m_ui->currentToolBarList->currentRow();
    if (!draft || row < 0)
        return;
    draft->actions.removeAt(row);
    fillCurrentToolBarList(std::min<qsizetype>(row, draft->actions.size() - 1));
}

void QtToolBarDialog::rightClicked()
{
    Draft *draft = currentDraft();
    const std::optional<QAction *> action = actionToAdd();
    if (!draft || !action)
        return;
    qsizetype place = m_ui->currentToolBarList->currentRow() + 1;
    // An action can stand in a tool bar once, so that one that stands there already moves.
    const qsizetype before = *action ? draft->actions.indexOf(*action) : -1;
    if (before >= 0) {
        draft->actions.removeAt(before);
        if (before < place)
            --place;
    }
    draft->actions.insert(place, *action);
    fillCurrentToolBarList(place);
}

void QtToolBarDialog::renameClicked()
{
    const Draft *draft = currentDraft();
    if (draft && draft->custom)
        m_ui->toolBarList->editItem(m_ui->toolBarList->currentItem());
}

void QtToolBarDialog::toolBarRenamed(QListWidgetItem *item)
{
    Draft &draft = m_drafts[m_ui->toolBarList->row(item)];
    if (!item->text().trimmed().isEmpty()) {
        draft.title = item->text();
    } else {
        const QSignalBlocker blocker(m_ui->toolBarList);
        item->setText(draft.title);
    }
}

void QtToolBarDialog::currentActionChanged(QTreeWidgetItem * /*current*/)
{
    updateButtons();
}

void QtToolBarDialog::currentToolBarChanged(QListWidgetItem * /*current*/)
{
    fillCurrentToolBarList(0);
}

void QtToolBarDialog::currentToolBarActionChanged(QListWidgetItem * /*current*/)
{
    updateButtons();
}

void QtToolBarDialog::fillActionTree()
{
    const QSignalBlocker blocker(m_ui->actionTree);
    m_ui->actionTree->clear();
    auto *separator = new QTreeWidgetItem(m_ui->actionTree, {displayText(nullptr)});
    separator->setData(0, separatorRole, true);
    const QStringList categories = m_manager ? m_manager->categories() : QStringList();
    for (const QString &category : categories) {
        auto *branch = new QTreeWidgetItem(m_ui->actionTree, {m_titleOf ? m_titleOf(category) : category});
        const QList<QAction *> actions = m_manager->categoryActions(category);
        for (QAction *action : actions) {
            auto *leaf = new QTreeWidgetItem(branch, {displayText(action)});
            leaf->setIcon(0, displayIcon(action));
            leaf->setData(0, actionRole, QVariant::fromValue<QObject *>(action));
        }
        branch->setExpanded(true);
    }
    m_ui->actionTree->setCurrentItem(separator);
}

void QtToolBarDialog::fillToolBarList()
{
    {
        const QSignalBlocker blocker(m_ui->toolBarList);
        m_ui->toolBarList->clear();
    }
    for (const Draft &draft : std::as_const(m_drafts))
        appendToolBarItem(draft);
    m_ui->toolBarList->setCurrentRow(0);
    fillCurrentToolBarList(0);
}

void QtToolBarDialog::appendToolBarItem(const Draft &draft)
{
    const QSignalBlocker blocker(m_ui->toolBarList);
    auto *item = new QListWidgetItem(draft.title, m_ui->toolBarList);
    item->setFlags(item->flags().setFlag(Qt::ItemIsEditable, draft.custom));
}

void QtToolBarDialog::fillCurrentToolBarList(qsizetype currentRow)
{
    {
        const QSignalBlocker blocker(m_ui->currentToolBarList);
        m_ui->currentToolBarList->clear();
        if (const Draft *draft = currentDraft()) {
            for (const QAction *action : draft->actions)
                m_ui->currentToolBarList->addItem(new QListWidgetItem(displayIcon(action), displayText(action)));
        }
        m_ui->currentToolBarList->setCurrentRow(static_cast<int>(currentRow));
    }
    updateButtons();
}

void QtToolBarDialog::updateButtons()
{
    const Draft *draft = currentDraft();
    const int row = m_ui->currentToolBarList->currentRow();
    const bool custom = draft && draft->custom;
    m_ui->newButton->setEnabled(m_manager && m_manager->mainWindow());
    m_ui->removeButton->setEnabled(custom);
    m_ui->renameButton->setEnabled(custom);
    m_ui->upButton->setEnabled(row > 0);
    m_ui->downButton->setEnabled(row >= 0 && row < m_ui->currentToolBarList->count() - 1);
    m_ui->leftButton->setEnabled(row >= 0);
    m_ui->rightButton->setEnabled(draft && actionToAdd());
    m_ui->defaultButton->setEnabled(!m_manager.isNull());
    m_ui->applyButton->setEnabled(!m_manager.isNull());
}

QtToolBarDialog::Draft *QtToolBarDialog::currentDraft()
{
    const int row = m_ui->toolBarList->currentRow();
    return row >= 0 && row < m_drafts.size() ? &m_drafts[row] : nullptr;
}

/// The tree's current action, null for a separator; nothing on a category.
std::optional<QAction *> QtToolBarDialog::actionToAdd() const
{
    const QTreeWidgetItem *item = m_ui->actionTree->currentItem();
    if (!item)
        return std::nullopt;
    if (item->data(0, separatorRole).toBool())
        return nullptr;
    auto *action = qobject_cast<QAction *>(item->data(0, actionRole).value<QObject *>());
    return action ? std::optional<QAction *>(action) : std::nullopt;
}

void QtToolBarDialog::moveCurrentAction(int by)
{
    Draft *draft = currentDraft();
    const int row = m_ui->currentToolBarList->currentRow();
    if (!draft || row < 0 || row + by < 0 || row + by >= draft->actions.size())
        return;
    draft->actions.swapItemsAt(row, row + by);
    fillCurrentToolBarList(row + by);
}

void QtToolBarDialog::deleteRemovedToolBars()
{
    const QList<QToolBar *> toolBars = m_manager->toolBars();
    for (QToolBar *toolBar : toolBars) {
        const bool kept = std::any_of(m_drafts.cbegin(), m_drafts.cend(),
                                      [toolBar](const Draft &draft) { return draft.toolBar == toolBar; });
        if (!kept)
            m_manager->deleteToolBar(toolBar);
    }
}
