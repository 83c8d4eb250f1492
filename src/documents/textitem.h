// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsTextItem>

/// A text item that stays cheap when next to nothing of it is to be painted.
///
/// A scene also has items painted that only come within two pixels of what changed. Nothing of them is exposed then,
/// which a text document takes for no limit at all: it would draw all its lines.
class TextItem : public QGraphicsTextItem
{
    Q_OBJECT

public:
    using QGraphicsTextItem::QGraphicsTextItem;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
