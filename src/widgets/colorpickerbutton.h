// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

/// The flat button with three dots at the end of the colour grid, which stands for more colours.
///
/// The arrow keys are left to the parent, which moves the focus through the grid.
class ColorPickerButton : public QFrame
{
    Q_OBJECT

public:
    explicit ColorPickerButton(QWidget *parent = nullptr);

signals:
    /// The mouse or a key was released on the button.
    void clicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showShadow(Shadow shadow);
    void release();
};
