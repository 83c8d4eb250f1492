// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QFont>

#include <array>
#include <optional>

class PageViewTab;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QStackedWidget;
class SettingsTab;

/// The settings window: a list of eleven pages, and the page chosen in it. What the user changes reaches the store
/// when the window is accepted, and is forgotten otherwise.
///
/// Pages are known by their index from 0 to 10, which is not the row in the list: "E-mail" (10) stands before
/// "Others" (9) there. An index that no page has stands for page 0.
class ConfigDialog : public QDialog
{
    Q_OBJECT

public:
    ConfigDialog(int tabNum, QWidget *parent);
    ~ConfigDialog() override;

    /// Prepares the window for being opened once more: goes to the page and loads all pages anew.
    void selectPage(int tabNum);

    /// The font that is chosen for the document in front, which is not a matter of the store.
    QFont documentFont() const;
    /// Without a document there is no font to choose.
    void setDocumentFont(const std::optional<QFont> &font);

public slots:
    /// Writes all pages to the store and accepts.
    void updateAndClose();
    /// Shows the page of @p current, or of @p previous where there is none.
    void changePage(QListWidgetItem *current, QListWidgetItem *previous);

protected:
    void changeEvent(QEvent *event) override;

private:
    static constexpr int pageCount = 11;

    void createPageList();
    void createPages();
    void createButtons();
    void arrange();
    void softenSelection();
    void goToPage(int index);
    void loadPages();
    void retranslate();

    QListWidget *m_list;
    QStackedWidget *m_stack;
    QPushButton *m_okButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
    std::array<QListWidgetItem *, pageCount> m_items{}; ///< By page index; owned by the list.
    std::array<SettingsTab *, pageCount> m_tabs{};      ///< By page index.
    PageViewTab *m_pageViewTab = nullptr;               ///< One of them.
};
