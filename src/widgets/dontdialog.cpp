// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/dontdialog.h"

#include "app/setting.h"
#include "ui_dontdialog.h"
#include "widgets/lightscrollbars.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>

namespace {

QString iconOfKind(int kind)
{
    switch (kind) {
    case 0:
    case 1:
        return QStringLiteral(":/dialog_icons/forward.png");
    case 2:
    case 3:
        return QStringLiteral(":/dialog_icons/ok.png");
    default:
        return {};
    }
}

QString answerKey(const QString &key)
{
    return key + QStringLiteral("AnswerIsYes");
}

} // namespace

DontDialog::DontDialog(const QString &title, const QString &text, int kind, QString key, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::DontDialog>()), m_key(std::move(key)), m_kind(kind)
{
    m_ui->setupUi(this);
    arrange();
    lightenScrollBars(m_ui->mainTextEdit);
    m_ui->mainTextEdit->setPlainText(text);
    setWindowTitle(title);
    connect(m_ui->okButton, &QPushButton::clicked, this, &DontDialog::okAndClose);
    connect(m_ui->yesButton, &QPushButton::clicked, this, &DontDialog::yesAndClose);
    connect(m_ui->noButton, &QPushButton::clicked, this, &DontDialog::noAndClose);
}

DontDialog::~DontDialog() = default;

int DontDialog::exec()
{
    const QSettings settings;
    if (settingOr(settings, m_key, true))
        return QDialog::exec();
    return settingOr(settings, answerKey(m_key), true) ? 1 : 0;
}

void DontDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        const QString title = windowTitle();
        m_ui->retranslateUi(this);
        setWindowTitle(title);
    }
    QDialog::changeEvent(event);
}

void DontDialog::okAndClose()
{
    storeShowAgain();
    close();
}

void DontDialog::yesAndClose()
{
    storeShowAgain();
    QSettings().setValue(answerKey(m_key), QStringLiteral("true"));
    accept();
}

void DontDialog::noAndClose()
{
    storeShowAgain();
    QSettings().setValue(answerKey(m_key), QStringLiteral("false"));
    reject();
}

bool DontDialog::isQuestion() const
{
    return m_kind == 1 || m_kind == 3;
}

void DontDialog::arrange()
{
    auto *iconLabel = new QLabel(this);
    iconLabel->setPixmap(QPixmap(iconOfKind(m_kind)));
    iconLabel->setAlignment(Qt::AlignTop);

    auto *messageRow = new QHBoxLayout;
    messageRow->addWidget(iconLabel);
    messageRow->addSpacing(15);
    messageRow->addWidget(m_ui->mainTextEdit);

    auto *buttonRow = new QHBoxLayout;
    buttonRow->addWidget(m_ui->dontCheckBox);
    buttonRow->addStretch();
    buttonRow->addWidget(m_ui->yesButton);
    buttonRow->addWidget(m_ui->noButton);
    buttonRow->addWidget(m_ui->okButton);

    auto *rows = new QVBoxLayout(this);
    rows->setSpacing(5);
    rows->addLayout(messageRow);
    rows->addWidget(m_ui->line);
    rows->addLayout(buttonRow);

    m_ui->yesButton->setVisible(isQuestion());
    m_ui->noButton->setVisible(isQuestion());
    m_ui->okButton->setVisible(!isQuestion());
    (isQuestion() ? m_ui->yesButton : m_ui->okButton)->setFocus();
}

void DontDialog::storeShowAgain() const
{
    QSettings().setValue(m_key, !m_ui->dontCheckBox->isChecked());
}
