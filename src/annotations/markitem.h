// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QGraphicsItem;
class QPainter;
class QPen;
class QString;

/// What marks share as items of a scene.
namespace MarkItem {

/// Lets the user select and move @p item.
void makeHandy(QGraphicsItem &item);
/// Sets @p copy 20 scene units right of and below @p original and lets the user select and move it.
void placeCopy(const QGraphicsItem &original, QGraphicsItem &copy);
/// Draws the look of a selected mark, a thin dashed frame in the colour of @p pen around the item's bounding
/// rectangle, if the item is selected and the settings hold true under @p key (false when absent). The key is
/// read each time, so that a change shows on marks that are already there.
void drawSelection(QPainter *painter, const QGraphicsItem &item, const QPen &pen, const QString &key);

} // namespace MarkItem
