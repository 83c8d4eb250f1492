// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>

/// Answers the next modal dialog while the code under test waits in its event loop.
///
/// Built before the call that opens the dialog. It polls for a visible modal widget and hands it to the answer once;
/// a dialog that is still open a while after its answer is closed, so that a test fails instead of hanging.
class ModalAnswer : public QObject
{
public:
    using Answer = std::function<void(QWidget *dialog)>;

    explicit ModalAnswer(Answer answer);

    /// Whether a dialog came up and its answer ended it.
    bool succeeded() const;
    /// Whether a dialog came up at all.
    bool appeared() const;

private:
    void poll();

    Answer m_answer;
    QPointer<QWidget> m_dialog;
    QTimer m_timer;
    int m_polls = 0;
    bool m_appeared = false;
    bool m_forced = false;
};

/// Gives @p key to the dialog's focus widget, as the keyboard would.
ModalAnswer::Answer pressKey(Qt::Key key);
/// Clicks the button of the dialog with this object name.
ModalAnswer::Answer clickButton(const QString &objectName);
