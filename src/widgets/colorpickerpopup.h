// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFrame>
#include <QMap>

#include <optional>
#include <utility>

class ColorPickerButton;
class ColorPickerItem;

/// The grid of colours that a QtColorPicker opens, with an optional last cell for the colour dialog.
///
/// It owns its cells. The arrow keys move the focus through the grid, Return, Enter and Space choose. Each cell keeps
/// its mark until a choice in the grid takes it from all others, so that several may carry one.
class ColorPickerPopup : public QFrame
{
    Q_OBJECT

public:
    /// @p columns below 1 means a grid as square as the number of colours allows.
    ColorPickerPopup(int columns, bool withColorDialog, QWidget *parent = nullptr);

    /// Puts a cell before the one at @p index, or at the end for an index that is out of range. A colour that has
    /// a cell already gets no second one: its cell is marked. Either way the colour chosen last loses its mark; the
    /// first colour of all is marked and counts as chosen. An invalid colour is ignored.
    void insertColor(const QColor &color, const QString &text, int index = -1);
    /// The same with the text of a colour that the user mixed.
    void insertCustomColor(const QColor &color);
    /// The cell that shows the same red, green, blue and alpha, 8 bits each, or null.
    ColorPickerItem *find(const QColor &color) const;
    /// Sets the popup's own texts in the present language. The picker calls it, since the order in which the two
    /// windows hear of a new language is open.
    void retranslate();

public slots:
    /// Closes the popup and asks for a colour with the colour dialog, starting from the one chosen last.
    void getColorFromDialog();
    /// The sending cell becomes the chosen one and all others lose their mark; closes the popup.
    void updateSelected();

signals:
    /// The user chose @p color. The receiver may delete the popup.
    void selected(const QColor &color);
    void hid();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    using Cell = std::pair<int, int>; ///< row, column

    void nameMoreButton();
    void rebuildGrid();
    int columnCount() const;
    void placeInGrid(QWidget *widget, int position);
    /// The first marked cell, column by column, or null.
    ColorPickerItem *firstMarked() const;
    std::optional<Cell> focusCell() const;
    std::optional<Cell> neighbour(Cell cell, int key) const;
    std::optional<Cell> lastInRow(int row) const;
    void moveFocus(int key);
    void activateFocusWidget();

    QMap<Cell, QWidget *> m_cells;
    QList<ColorPickerItem *> m_items; ///< in grid order
    ColorPickerButton *m_moreButton = nullptr;
    int m_columns;
    QColor m_lastSelected;
    QString m_customText;
};
