// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFrame>

/// One cell of the colour grid: a swatch of 22 by 20 logical pixels with the colour's name as its tool tip.
class ColorPickerItem : public QFrame
{
    Q_OBJECT

public:
    ColorPickerItem(const QColor &color, const QString &text, QWidget *parent = nullptr);

    QColor color() const;
    QString text() const;
    /// Whether the cell carries the mark of a chosen colour.
    bool isSelected() const;
    void setSelected(bool selected);

public slots:
    void setColor(const QColor &color, const QString &text);
    /// Keeps the text.
    void setColor(const QColor &color);

signals:
    /// The mouse was released on the cell; comes before selected().
    void clicked();
    /// The cell was chosen, with the mouse or the keyboard. The receiver may delete the cell.
    void selected();

protected:
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void takeFocus();

    QColor m_color;
    QString m_text;
    bool m_selected = false;
};
