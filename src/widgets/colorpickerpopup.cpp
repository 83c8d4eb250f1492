// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/colorpickerpopup.h"

#include "widgets/colorpickerbutton.h"
#include "widgets/colorpickeritem.h"

#include <QColorDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <cmath>

ColorPickerPopup::ColorPickerPopup(int columns, bool withColorDialog, QWidget *parent)
    : QFrame(parent, Qt::Popup), m_columns(columns), m_customText(tr("Custom"))
{
    setFrameStyle(StyledPanel);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    // Lighter than the window, so that the black outlines of the cells stand out in dark palettes too.
    setBackgroundRole(QPalette::Light);
    setAutoFillBackground(true);
    // A press beside the popup only closes it: handed on to the picker below, it would open it again.
    setAttribute(Qt::WA_NoMouseReplay);
    if (withColorDialog) {
        m_moreButton = new ColorPickerButton(this);
        m_moreButton->setFixedSize(24, 21);
        nameMoreButton();
        connect(m_moreButton, &ColorPickerButton::clicked, this, &ColorPickerPopup::getColorFromDialog);
    }
    rebuildGrid();
}

void ColorPickerPopup::insertColor(const QColor &color, const QString &text, int index)
{
    if (!color.isValid())
        return;
    ColorPickerItem *last = find(m_lastSelected);
    if (last)
        last->setSelected(false);
    if (ColorPickerItem *existing = find(color)) {
        existing->setFocus();
        existing->setSelected(true);
        return;
    }

    auto *item = new ColorPickerItem(color, text, this);
    if (!last) {
        item->setSelected(true);
        m_lastSelected = color;
    }
    item->setFocus();
    connect(item, &ColorPickerItem::selected, this, &ColorPickerPopup::updateSelected);
    const bool inside = index >= 0 && index < m_items.size();
    m_items.insert(inside ? index : m_items.size(), item);
    if (isVisible())
        item->show();
    rebuildGrid();
}

void ColorPickerPopup::insertCustomColor(const QColor &color)
{
    insertColor(color, m_customText);
}

ColorPickerItem *ColorPickerPopup::find(const QColor &color) const
{
    if (!color.isValid())
        return nullptr;
    for (ColorPickerItem *item : m_items) {
        if (item->color().rgba() == color.rgba())
            return item;
    }
    return nullptr;
}

void ColorPickerPopup::getColorFromDialog()
{
    // An open popup would keep mouse and keyboard from the dialog.
    hide();

    // On the heap and guarded: the popup, and the dialog with it, may be deleted while the dialog runs.
    const QPointer<QColorDialog> dialog = new QColorDialog(m_lastSelected, this);
    dialog->setOption(QColorDialog::ShowAlphaChannel);
    const int result = dialog->exec();
    if (!dialog)
        return;
    const QColor chosen = dialog->selectedColor();
    delete dialog;
    if (result != QDialog::Accepted || !chosen.isValid())
        return;

    const QColor color = QColor::fromRgba(chosen.rgba());
    insertCustomColor(color);
    m_lastSelected = color;
    emit selected(color);
}

void ColorPickerPopup::updateSelected()
{
    const QPointer<ColorPickerPopup> alive(this);
    auto *item = qobject_cast<ColorPickerItem *>(sender());
    for (ColorPickerItem *other : std::as_const(m_items)) {
        if (other != item)
            other->setSelected(false);
    }
    if (item) {
        const QColor color = item->color();
        m_lastSelected = color;
        emit selected(color);
    }
    if (alive)
        hide();
}

void ColorPickerPopup::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        moveFocus(event->key());
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        activateFocusWidget();
        break;
    case Qt::Key_Escape:
        hide();
        break;
    default:
        event->ignore();
    }
}

void ColorPickerPopup::showEvent(QShowEvent * /*event*/)
{
    if (ColorPickerItem *marked = firstMarked())
        marked->setFocus();
    else if (!m_items.isEmpty())
        m_items.first()->setFocus();
    else
        setFocus();
}

ColorPickerItem *ColorPickerPopup::firstMarked() const
{
    for (int column = 0; column < columnCount(); ++column) {
        for (int row = 0; m_cells.contains({row, column}); ++row) {
            auto *item = qobject_cast<ColorPickerItem *>(m_cells.value({row, column}));
            if (item && item->isSelected())
                return item;
        }
    }
    return nullptr;
}

void ColorPickerPopup::hideEvent(QHideEvent *event)
{
    setFocus(Qt::OtherFocusReason);
    const QPointer<ColorPickerPopup> alive(this);
    emit hid();
    if (alive)
        QFrame::hideEvent(event);
}

void ColorPickerPopup::mouseReleaseEvent(QMouseEvent *event)
{
    if (!rect().contains(event->position().toPoint()))
        hide();
}

void ColorPickerPopup::retranslate()
{
    const QString before = std::exchange(m_customText, tr("Custom"));
    for (ColorPickerItem *item : std::as_const(m_items)) {
        if (item->text() == before)
            item->setColor(item->color(), m_customText);
    }
    if (m_moreButton)
        nameMoreButton();
}

void ColorPickerPopup::nameMoreButton()
{
    m_moreButton->setToolTip(tr("More colors"));
    m_moreButton->setAccessibleName(m_moreButton->toolTip());
}

int ColorPickerPopup::columnCount() const
{
    if (m_columns > 0)
        return m_columns;
    return std::max(1, static_cast<int>(std::ceil(std::sqrt(static_cast<float>(m_items.size())))));
}

void ColorPickerPopup::rebuildGrid()
{
    m_cells.clear();
    delete layout();
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(1, 1, 1, 1);
    grid->setSpacing(0);
    grid->setSizeConstraint(QLayout::SetFixedSize);

    int position = 0;
    for (ColorPickerItem *item : std::as_const(m_items))
        placeInGrid(item, position++);
    if (m_moreButton)
        placeInGrid(m_moreButton, position);
    updateGeometry();
}

void ColorPickerPopup::placeInGrid(QWidget *widget, int position)
{
    const Cell cell(position / columnCount(), position % columnCount());
    static_cast<QGridLayout *>(layout())->addWidget(widget, cell.first, cell.second);
    m_cells.insert(cell, widget);
}

std::optional<ColorPickerPopup::Cell> ColorPickerPopup::focusCell() const
{
    const QWidget *focused = focusWidget();
    for (auto it = m_cells.cbegin(); it != m_cells.cend(); ++it) {
        if (it.value() == focused)
            return it.key();
    }
    return std::nullopt;
}

std::optional<ColorPickerPopup::Cell> ColorPickerPopup::lastInRow(int row) const
{
    std::optional<Cell> last;
    for (auto it = m_cells.cbegin(); it != m_cells.cend(); ++it) {
        if (it.key().first == row)
            last = it.key();
    }
    return last;
}

std::optional<ColorPickerPopup::Cell> ColorPickerPopup::neighbour(Cell cell, int key) const
{
    const auto [row, column] = cell;
    const auto filled = [this](Cell wanted) {
        return m_cells.contains(wanted) ? std::optional<Cell>(wanted) : std::nullopt;
    };
    switch (key) {
    case Qt::Key_Left:
        return column > 0 ? filled({row, column - 1}) : lastInRow(row - 1);
    case Qt::Key_Right:
        return m_cells.contains({row, column + 1}) ? filled({row, column + 1}) : filled({row + 1, 0});
    case Qt::Key_Up:
        return filled({row - 1, column});
    default:
        return m_cells.contains({row + 1, column}) ? filled({row + 1, column}) : lastInRow(row + 1);
    }
}

void ColorPickerPopup::moveFocus(int key)
{
    const std::optional<Cell> current = focusCell();
    const std::optional<Cell> next = current ? neighbour(*current, key) : Cell(0, 0);
    if (QWidget *widget = next ? m_cells.value(*next) : nullptr)
        widget->setFocus(Qt::OtherFocusReason);
}

void ColorPickerPopup::activateFocusWidget()
{
    QWidget *focused = focusWidget();
    if (auto *item = qobject_cast<ColorPickerItem *>(focused)) {
        item->setSelected(true);
        emit item->selected(); // ends in updateSelected(), which closes the popup
    } else if (m_moreButton && focused == m_moreButton) {
        getColorFromDialog();
    } else {
        hide();
    }
}
