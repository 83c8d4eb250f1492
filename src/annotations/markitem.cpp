// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/markitem.h"

#include "app/setting.h"

#include <QGraphicsItem>
#include <QPainter>

namespace MarkItem {

void makeHandy(QGraphicsItem &item)
{
    item.setFlag(QGraphicsItem::ItemIsMovable);
    item.setFlag(QGraphicsItem::ItemIsSelectable);
}

void placeCopy(const QGraphicsItem &original, QGraphicsItem &copy)
{
    copy.setPos(original.pos() + QPointF(20, 20));
    makeHandy(copy);
}

void drawSelection(QPainter *painter, const QGraphicsItem &item, const QPen &pen, const QString &key)
{
    if (!item.isSelected() || !settingOr(QSettings(), key, false))
        return;
    painter->setPen(QPen(pen.color(), 0, Qt::DashLine));
    painter->drawRect(item.boundingRect());
}

} // namespace MarkItem
