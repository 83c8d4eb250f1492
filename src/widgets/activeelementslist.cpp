// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/activeelementslist.h"

#include "ui_activeelementslist.h"
#include "widgets/taghost.h"

#include <QEvent>
#include <QMessageBox>

namespace {

/// One line of at most 40 characters and dots.
QString rowText(const ActiveElement &element)
{
    constexpr int longest = 40;
    const QString text = element.description().simplified();
    return text.size() > longest ? text.left(longest) + QStringLiteral("...") : text;
}

} // namespace

ActiveElementsList::ActiveElementsList(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ActiveElementsList>()), m_host(dynamic_cast<TagHost *>(parent))
{
    m_ui->setupUi(this);
    connect(m_ui->listWidget, &QListWidget::currentRowChanged, this, &ActiveElementsList::gotoElement);
    connect(m_ui->categoryBox, &QComboBox::currentIndexChanged, this, &ActiveElementsList::updateListWidget);
    connect(m_ui->pageCheckBox, &QCheckBox::toggled, this, &ActiveElementsList::updateListWidget);
}

ActiveElementsList::~ActiveElementsList() = default;

void ActiveElementsList::addElement(ActiveElement *element, Page *page)
{
    if (!element || !page)
        QMessageBox::information(parentWidget(), tr("zero "), tr("zero"));
    m_entries.append({element, page});
    if (element)
        connect(element, &QObject::destroyed, this, &ActiveElementsList::updateLater);
    if (isListed(m_entries.constLast()))
        addRow(m_entries.size() - 1);
    updateLater();
}

void ActiveElementsList::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
    QDialog::changeEvent(event);
}

void ActiveElementsList::updateLater()
{
    if (m_updatePending)
        return;
    m_updatePending = true;
    QMetaObject::invokeMethod(this, &ActiveElementsList::updateListWidget, Qt::QueuedConnection);
}

void ActiveElementsList::updateListWidget()
{
    m_updatePending = false;
    m_ui->listWidget->clear();
    // Without this the focus alone would make the first row current, and so jump there.
    m_ui->listWidget->setCurrentIndex(QModelIndex());
    m_rows.clear();
    m_entries.removeIf([](const ActiveElementEntry &entry) { return entry.element.isNull(); });
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        if (isListed(m_entries.at(i)))
            addRow(i);
    }
}

bool ActiveElementsList::isListed(const ActiveElementEntry &entry) const
{
    if (!entry.element)
        return false;
    if (m_ui->pageCheckBox->isChecked()) {
        const Page *current = m_host ? m_host->currentPage() : nullptr;
        if (!current || entry.page != current)
            return false;
    }
    const int category = m_ui->categoryBox->currentIndex();
    return category == 0 || entry.element->category() == category - 1;
}

void ActiveElementsList::addRow(qsizetype index)
{
    const ActiveElement &element = *m_entries.at(index).element;
    m_ui->listWidget->addItem(new QListWidgetItem(QIcon(element.icon()), rowText(element)));
    m_rows.append(index);
}

void ActiveElementsList::gotoElement(int idx)
{
    if (idx < 0 || idx >= m_rows.size())
        return;
    const ActiveElementEntry &entry = m_entries.at(m_rows.at(idx));
    if (m_host && entry.element && entry.page)
        m_host->focusActiveElement(entry.element, entry.page);
}
