// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/modalanswer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

namespace {

constexpr int pollInterval = 10; ///< milliseconds
constexpr int pollLimit = 1000;  ///< polls, for a dialog to come and again for it to go

} // namespace

ModalAnswer::ModalAnswer(Answer answer) : m_answer(std::move(answer))
{
    connect(&m_timer, &QTimer::timeout, this, &ModalAnswer::poll);
    m_timer.start(pollInterval);
}

bool ModalAnswer::succeeded() const
{
    return m_appeared && !m_forced;
}

bool ModalAnswer::appeared() const
{
    return m_appeared;
}

void ModalAnswer::poll()
{
    if (++m_polls > pollLimit) {
        m_timer.stop();
        m_forced = m_appeared;
        if (m_dialog)
            m_dialog->close();
        return;
    }
    if (!m_appeared) {
        m_dialog = QApplication::activeModalWidget();
        if (!m_dialog || !m_dialog->isVisible())
            return;
        m_appeared = true;
        m_polls = 0;
        const QPointer<QWidget> dialog = m_dialog;
        m_answer(dialog);
    } else if (!m_dialog || !m_dialog->isVisible()) {
        m_timer.stop();
    }
}

ModalAnswer::Answer pressKey(Qt::Key key)
{
    return [key](QWidget *dialog) {
        QWidget *focused = dialog->focusWidget();
        QTest::keyClick(focused ? focused : dialog, key);
    };
}

ModalAnswer::Answer clickButton(const QString &objectName)
{
    return [objectName](QWidget *dialog) {
        auto *button = dialog->findChild<QAbstractButton *>(objectName);
        QVERIFY2(button, qPrintable(QStringLiteral("the dialog has no button named ") + objectName));
        QTest::mouseClick(button, Qt::LeftButton);
    };
}
