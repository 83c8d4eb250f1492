// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QList>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class QAction;
class QListWidgetItem;
class QToolBar;
class QTreeWidgetItem;
class QtFullToolBarManager;
class QtToolBarManager;

namespace Ui {
class QtToolBarDialog;
}

/// Lets the user put actions into tool bars and take them out, and make tool bars of their own.
///
/// It works on a copy of the arrangement; the main window sees nothing of it before OK or Apply. Tool bars that the
/// user made can be renamed and removed, the others only filled.
class QtToolBarDialog : public QDialog
{
    Q_OBJECT

public:
    explicit QtToolBarDialog(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~QtToolBarDialog() override;

    /// What the user is to read in place of the name of a category; the name itself until this is called. Comes before
    /// setToolBarManager().
    void setCategoryTitles(const std::function<QString(const QString &)> &titleOf);
    /// Takes a copy of the arrangement of @p manager, which stays the caller's and may be null.
    void setToolBarManager(QtToolBarManager *manager);

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void newClicked();
    void removeClicked();
    void defaultClicked();
    void okClicked();
    void applyClicked();
    void cancelClicked();
    void upClicked();
    void downClicked();
    void leftClicked();
    void rightClicked();
    void renameClicked();
    void toolBarRenamed(QListWidgetItem *item);
    void currentActionChanged(QTreeWidgetItem *current);
    void currentToolBarChanged(QListWidgetItem *current);
    void currentToolBarActionChanged(QListWidgetItem *current);

private:
    /// What a tool bar is to become; its place in the list is its row in toolBarList.
    struct Draft
    {
        QPointer<QToolBar> toolBar; ///< null for one that is not made yet
        QString title;
        bool custom;
        QList<QAction *> actions; ///< null is a separator; the place is the row in currentToolBarList
    };

    void connectWidgets();
    void fillActionTree();
    void fillToolBarList();
    void appendToolBarItem(const Draft &draft);
    void fillCurrentToolBarList(qsizetype currentRow);
    void updateButtons();
    Draft *currentDraft();
    std::optional<QAction *> actionToAdd() const;
    void moveCurrentAction(int by);
    void deleteRemovedToolBars();

    std::unique_ptr<Ui::QtToolBarDialog> m_ui;
    std::function<QString(const QString &)> m_titleOf;
    QPointer<QtFullToolBarManager> m_manager;
    QList<Draft> m_drafts;
};
