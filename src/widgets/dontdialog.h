// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

class QPushButton;

namespace Ui {
class DontDialog;
}

/// A message box with a "never show this message again" box that remembers its answer in the settings store.
///
/// The store holds under the base key whether the dialog is to be shown (true if absent), and under the base key
/// with "AnswerIsYes" behind it the last answer to a question ("true" if absent). Both are written when a button
/// is pressed, never when the dialog is closed otherwise.
class DontDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p kind 0 is a message and 1 a question with the forward icon, 2 and 3 the same with the ok icon; any other
    /// kind is a message without an icon. @p key is the base key.
    DontDialog(const QString &title, const QString &text, int kind, QString key, QWidget *parent);
    ~DontDialog() override;

public slots:
    /// Asks, or shows nothing and gives the remembered answer. 1 is yes; no, OK and any other way of closing are 0.
    int exec() override;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void okAndClose();
    void yesAndClose();
    void noAndClose();

private:
    bool isQuestion() const;
    void arrange();
    void storeShowAgain() const;

    std::unique_ptr<Ui::DontDialog> m_ui;
    QString m_key;
    int m_kind;
};
