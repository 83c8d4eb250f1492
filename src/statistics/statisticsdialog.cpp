// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/statisticsdialog.h"

#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "statistics/statisticschart.h"
#include "statistics/statisticshost.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTableView>

namespace {

/// Rows of the model before the first filling takes them out.
constexpr int emptyRows = 8;
constexpr int columns = 5;

} // namespace

StatisticsDialog::StatisticsDialog(QWidget *parent) : QDialog(parent), m_host(dynamic_cast<StatisticsHost *>(parent))
{
    createButtons();
    createModel();
    createViews();
    layOut();
    connect(m_table, &QTableView::clicked, m_chart, &StatisticsChart::redrawChart);
    // Keys change the selection too.
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, m_chart, &StatisticsChart::redrawChart);
    setWindowTitle(tr("Zettelwerk - Source Code Statistics"));
    resize(640, 400);
}

void StatisticsDialog::createButtons()
{
    m_printButton = new QPushButton(tr("Print"), this);
    m_exportButton = new QPushButton(tr("Export to PDF"), this);
    m_okButton = new QPushButton(QStringLiteral("OK"), this);
    m_okButton->setDefault(true);
    connect(m_okButton, &QPushButton::clicked, this, &StatisticsDialog::accept);
    // By name, since there is nothing behind these two: pressing them does nothing, and Qt says so here.
    connect(m_printButton, SIGNAL(clicked()), this, SLOT(printStat()));
    connect(m_exportButton, SIGNAL(clicked()), this, SLOT(exportStat()));
}

void StatisticsDialog::createModel()
{
    m_model = new QStandardItemModel(emptyRows, columns, this);
    m_model->setHeaderData(0, Qt::Horizontal, tr("File"), Qt::DisplayRole);
    m_model->setHeaderData(1, Qt::Horizontal, tr("Tot Lines"));
    m_model->setHeaderData(2, Qt::Horizontal, tr("Cod Lines"));
    m_model->setHeaderData(3, Qt::Horizontal, tr("Com Lines"));
    m_model->setHeaderData(4, Qt::Horizontal, tr("Emp Lines"));
}

void StatisticsDialog::createViews()
{
    m_table = new QTableView;
    m_chart = new StatisticsChart;
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSortingEnabled(true);
    m_table->setCornerButtonEnabled(false);
    m_table->setAccessibleName(tr("Files"));
    m_chart->setAccessibleName(tr("Chart"));
    m_table->setModel(m_model);
    m_chart->setModel(m_model);
    auto *selection = new QItemSelectionModel(m_model, this);
    m_table->setSelectionModel(selection);
    m_chart->setSelectionModel(selection);
}

void StatisticsDialog::layOut()
{
    auto *splitter = new QSplitter(Qt::Horizontal);
    splitter->addWidget(m_table);
    splitter->addWidget(m_chart);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 2);
    // The chart needs this much for its legend.
    splitter->setSizes({170, 450});

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_printButton);
    buttons->addWidget(m_exportButton);
    buttons->addStretch();
    buttons->addWidget(m_okButton);
    auto *all = new QVBoxLayout;
    all->addWidget(splitter);
    all->addLayout(buttons);
    for (int hidden = 2; hidden < columns; ++hidden)
        m_table->hideColumn(hidden);
    setLayout(all);
    m_table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_table->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    // Of a long path the end tells more than the start.
    m_table->setWordWrap(false);
    m_table->setTextElideMode(Qt::ElideLeft);
    m_table->setFocus();
    setTabOrder(m_table, m_chart);
    setTabOrder(m_chart, m_printButton);
    setTabOrder(m_printButton, m_exportButton);
    setTabOrder(m_exportButton, m_okButton);
}

void StatisticsDialog::showEvent(QShowEvent *event)
{
    fillTable();
    m_table->selectRow(0);
    QDialog::showEvent(event);
}

void StatisticsDialog::fillTable()
{
    const PageStack *stack = m_host ? m_host->pageStack() : nullptr;
    if (!stack)
        return;
    m_model->removeRows(0, m_model->rowCount());
    for (int tab = 0; tab < stack->count(); ++tab) {
        if (Page *page = stack->pageAt(tab))
            addDocument(page);
    }
}

void StatisticsDialog::addDocument(Page *page)
{
    int total = 0;
    int code = 0;
    int comments = 0;
    int empty = 0;
    page->countLines(total, code, comments, empty);
    // Not the tab's number: a tab without a document has no row.
    const int row = m_model->rowCount();
    m_model->insertRow(row);
    m_model->setData(m_model->index(row, 0), page->fileName());
    int column = 1;
    for (const int count : {total, code, comments, empty})
        m_model->setData(m_model->index(row, column++), count);
}
