// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/clippedtextitem.h"

#include <QStyleOptionGraphicsItem>

void ClippedTextItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    if (!option->exposedRect.isEmpty())
        QGraphicsTextItem::paint(painter, option, widget);
}
