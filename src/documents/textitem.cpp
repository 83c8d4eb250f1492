// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/textitem.h"

#include <QStyleOptionGraphicsItem>

void TextItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    if (!option->exposedRect.isEmpty())
        QGraphicsTextItem::paint(painter, option, widget);
}
