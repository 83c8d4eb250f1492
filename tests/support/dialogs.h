// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>

/// A modal window that came up during a test, as it was when it was answered.
struct SeenDialog
{
    QString title;
    QString text;                         ///< Of a message box; else empty.
    QMessageBox::StandardButtons buttons; ///< Of a message box; else none.
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList nameFilters; ///< Of a file dialog; else empty.
    QString directory;       ///< Of a file dialog; else empty.
    QWidget *parent = nullptr;
};

/// What is done to a modal window that came up; it must see to it that the window closes.
using DialogAnswer = std::function<void(QDialog *)>;

/// Answers the modal windows that come up while it lives, in the order in which the answers were given.
///
/// \code
/// DialogAnswers answers;
/// answers.click(QMessageBox::Cancel);
/// QVERIFY(!stack.closeCurrentTab());
/// QCOMPARE(answers.seen().size(), 1);
/// QCOMPARE(answers.seen().first().title, QStringLiteral("Kestrin 7"));
/// \endcode
///
/// A window that nobody expected is recorded and rejected, so that a test fails instead of hanging: compare the size
/// of seen(). Answers that were not used are counted by left(). A window that does not close within 20 s ends the run.
class DialogAnswers : public QObject
{
    Q_OBJECT

public:
    DialogAnswers();
    /// With a first answer.
    explicit DialogAnswers(DialogAnswer answer);
    ~DialogAnswers() override;

    /// Clicks this button of the next window, which must be a message box that has it.
    void click(QMessageBox::StandardButton button);
    /// Enters @p path into the next window, a file dialog, and accepts it; with an unempty @p nameFilter after choosing
    /// that filter. Several paths are given as the dialog wants them: "\"a\" \"b\"".
    void chooseFile(const QString &path, const QString &nameFilter = QString());
    /// Accepts or rejects the next window, whatever it is.
    void accept();
    void reject();
    /// Hands the next window to @p answer.
    void handle(DialogAnswer answer);

    const QList<SeenDialog> &seen() const;
    /// Answers not used yet.
    qsizetype left() const;
    /// Whether there was a window for each answer, and none besides, and all of them have closed.
    bool allGiven() const;
    /// The texts of all message boxes seen, for a comparison in one line.
    QStringList texts() const;

private:
    void poll();
    void record(QDialog *dialog);

    QTimer m_timer;
    QList<DialogAnswer> m_answers;
    qsizetype m_expected = 0; ///< How many answers there were in all.
    QList<SeenDialog> m_seen;
    QList<QPointer<QDialog>> m_answered;
    int m_waited = 0;
};

/// Gives @p key to the window's focus widget, as the keyboard would.
DialogAnswer pressKey(Qt::Key key);
/// Clicks the button of the window that has this object name.
DialogAnswer clickButton(const QString &objectName);
