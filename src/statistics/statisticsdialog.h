// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class Page;
class QPushButton;
class QStandardItemModel;
class QTableView;
class StatisticsChart;
class StatisticsHost;

/// Lists the open documents with their numbers of lines, and draws the selected ones as a chart. The table shows the
/// documents as they were when the dialog was shown.
///
/// The model has a row for each document: file name, then all lines, lines of code, of comments and empty ones.
class StatisticsDialog : public QDialog
{
    Q_OBJECT

public:
    /// A @p parent that is no StatisticsHost leaves the table empty.
    explicit StatisticsDialog(QWidget *parent);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void createButtons();
    void createModel();
    void createViews();
    void layOut();
    void fillTable();
    void addDocument(Page *page);

    StatisticsHost *m_host;
    StatisticsChart *m_chart = nullptr;
    QTableView *m_table = nullptr;
    QStandardItemModel *m_model = nullptr;
    QPushButton *m_printButton = nullptr;
    QPushButton *m_exportButton = nullptr;
    QPushButton *m_okButton = nullptr;
};
