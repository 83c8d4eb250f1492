// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/stroketool.h"

StrokeTool::StrokeTool(const Traits &traits, bool followsSettings) : DrawingTool(followsSettings), m_traits(traits) {}

void StrokeTool::mousePressed(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void StrokeTool::mouseMoved(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void StrokeTool::mouseReleased(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}

void StrokeTool::applyLook(int width, int alpha)
{
    QPen look = pen();
    look.setWidth(width);
    QColor color = look.color();
    color.setAlpha(alpha);
    look.setColor(color);
    setPen(look);
}
