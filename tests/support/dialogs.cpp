// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

namespace {

constexpr int dialogPollInterval = 5; // milliseconds
constexpr int closingLimit = 20'000;  // milliseconds

} // namespace

DialogAnswers::DialogAnswers()
{
    connect(&m_timer, &QTimer::timeout, this, &DialogAnswers::poll);
    m_timer.start(dialogPollInterval);
}

DialogAnswers::DialogAnswers(DialogAnswer answer) : DialogAnswers()
{
    handle(std::move(answer));
}

DialogAnswers::~DialogAnswers() = default;

void DialogAnswers::click(QMessageBox::StandardButton button)
{
    handle([button](QDialog *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        QAbstractButton *found = box ? box->button(button) : nullptr;
        if (found)
            found->click();
        else
            dialog->reject();
    });
}

void DialogAnswers::chooseFile(const QString &path, const QString &nameFilter)
{
    handle([path, nameFilter](QDialog *dialog) {
        auto *fileDialog = qobject_cast<QFileDialog *>(dialog);
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (!fileDialog || !edit) {
            dialog->reject();
            return;
        }
        if (!nameFilter.isEmpty())
            fileDialog->selectNameFilter(nameFilter);
        edit->setText(path);
        dialog->accept();
    });
}

void DialogAnswers::accept()
{
    handle([](QDialog *dialog) { dialog->accept(); });
}

void DialogAnswers::reject()
{
    handle([](QDialog *dialog) { dialog->reject(); });
}

void DialogAnswers::handle(DialogAnswer answer)
{
    ++m_expected;
    m_answers.append(std::move(answer));
}

const QList<SeenDialog> &DialogAnswers::seen() const
{
    return m_seen;
}

qsizetype DialogAnswers::left() const
{
    return m_answers.size();
}

bool DialogAnswers::allGiven() const
{
    const auto isOpen = [](const QPointer<QDialog> &dialog) { return dialog && dialog->isVisible(); };
    return m_answers.isEmpty() && m_seen.size() == m_expected &&
           std::none_of(m_answered.begin(), m_answered.end(), isOpen);
}

QStringList DialogAnswers::texts() const
{
    QStringList texts;
    for (const SeenDialog &dialog : m_seen) {
        if (!dialog.text.isEmpty())
            texts.append(dialog.text);
    }
    return texts;
}

void DialogAnswers::poll()
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible()) {
        m_waited = 0;
        return;
    }
    if (m_answered.contains(dialog)) {
        m_waited += dialogPollInterval;
        if (m_waited > closingLimit)
            qFatal("The window \"%s\" does not close", qPrintable(dialog->windowTitle()));
        return;
    }
    m_waited = 0;
    m_answered.append(dialog);
    // A dialog that is kept for later may come up again.
    connect(
        dialog, &QDialog::finished, this, [this, dialog] { m_answered.removeAll(dialog); }, Qt::SingleShotConnection);
    record(dialog);
    if (m_answers.isEmpty()) {
        qWarning("Nobody expected the window \"%s\": %s", qPrintable(m_seen.constLast().title),
                 qPrintable(m_seen.constLast().text));
        dialog->reject();
        return;
    }
    // An answer may open a further window and come back only when that one is answered; a timer does not fire again
    // inside its own signal, so the answer is given from outside of it.
    QMetaObject::invokeMethod(
        dialog, [answer = m_answers.takeFirst(), dialog] { answer(dialog); }, Qt::QueuedConnection);
}

void DialogAnswers::record(QDialog *dialog)
{
    SeenDialog seen;
    seen.title = dialog->windowTitle();
    seen.parent = dialog->parentWidget();
    if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
        seen.text = box->text();
        seen.buttons = box->standardButtons();
        seen.icon = box->icon();
    }
    if (auto *fileDialog = qobject_cast<QFileDialog *>(dialog)) {
        seen.nameFilters = fileDialog->nameFilters();
        seen.directory = fileDialog->directory().path();
    }
    m_seen.append(seen);
}

DialogAnswer pressKey(Qt::Key key)
{
    return [key](QDialog *dialog) {
        QWidget *focused = dialog->focusWidget();
        QTest::keyClick(focused ? focused : dialog, key);
    };
}

DialogAnswer clickButton(const QString &objectName)
{
    return [objectName](QDialog *dialog) {
        auto *button = dialog->findChild<QAbstractButton *>(objectName);
        QVERIFY2(button, qPrintable(QStringLiteral("the dialog has no button named ") + objectName));
        QTest::mouseClick(button, Qt::LeftButton);
    };
}
