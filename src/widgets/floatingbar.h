// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QHBoxLayout;
class QToolButton;
class ViewHost;

/// A small window of buttons that stands at the window's right side while the window's own bars are hidden.
///
/// It is the user's way back, so it cannot get lost: Escape leaves it alone, and closing it goes the way back. It
/// does not take the keyboard from the window when it comes up.
class FloatingBar : public QDialog
{
    Q_OBJECT

protected:
    /// @p parent, if it is a ViewHost, is the host.
    explicit FloatingBar(QWidget *parent);

    /// Appends a flat button; the bar owns it.
    QToolButton *addButton();
    /// Null without a host.
    ViewHost *host() const;
    /// Distance of the bar's top from the top of a window of that height, in pixels.
    virtual int topWithin(int windowHeight) const = 0;
    /// Leaves the state in which the bar is shown; only called with a host.
    virtual void goBack() = 0;
    /// Sets the tool tips in the present language.
    virtual void retranslate() = 0;

    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    ViewHost *m_host;
    QHBoxLayout *m_layout;
};
