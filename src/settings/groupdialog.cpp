// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/groupdialog.h"

#include <QEvent>
#include <QInputDialog>

GroupDialog::GroupDialog(QWidget *parent) : QDialog(parent)
{
    m_ui.setupUi(this);
    connect(m_ui.newButton, &QPushButton::clicked, this, &GroupDialog::newPattern);
    connect(m_ui.editButton, &QPushButton::clicked, this, &GroupDialog::editPattern);
    connect(m_ui.deleteButton, &QPushButton::clicked, this, &GroupDialog::deletePattern);
    connect(m_ui.okButton, &QPushButton::clicked, this, &GroupDialog::saveAndClose);
    connect(m_ui.cancelButton, &QPushButton::clicked, this, &GroupDialog::close);
}

bool GroupDialog::setPatterns(QVector<QString> *patterns)
{
    if (patterns == nullptr)
        return false;
    m_patterns = patterns;
    m_ui.patternsListWidget->clear();
    m_ui.patternsListWidget->addItems(*patterns);
    return true;
}

void GroupDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_ui.retranslateUi(this);
    QDialog::changeEvent(event);
}

void GroupDialog::newPattern()
{
    const QString pattern =
        QInputDialog::getText(this, tr("New pattern"), tr("New element's pattern: "), QLineEdit::Normal, QString());
    if (!pattern.isEmpty())
        m_ui.patternsListWidget->addItem(pattern);
}

void GroupDialog::editPattern()
{
    QListWidgetItem *item = m_ui.patternsListWidget->currentItem();
    if (item == nullptr)
        return;
    const QString pattern = QInputDialog::getText(this, tr("Edit pattern"), tr("Edit element's pattern: "),
                                                  QLineEdit::Normal, item->text());
    if (!pattern.isEmpty())
        item->setText(pattern);
}

void GroupDialog::deletePattern()
{
    const int row = m_ui.patternsListWidget->currentRow();
    if (row >= 0)
        delete m_ui.patternsListWidget->takeItem(row);
}

void GroupDialog::saveAndClose()
{
    m_patterns->clear();
    for (int row = 0; row < m_ui.patternsListWidget->count(); ++row)
        m_patterns->append(m_ui.patternsListWidget->item(row)->text());
    close();
}
