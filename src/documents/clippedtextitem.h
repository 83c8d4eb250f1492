// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsTextItem>

/// A text item that paints only what is asked for.
///
/// Qt also paints items that merely touch the exposed area, with an empty rectangle, and a text layout takes that for
/// its whole text: on a long one the repaint of one line would paint all lines of its neighbour.
class ClippedTextItem : public QGraphicsTextItem
{
public:
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
