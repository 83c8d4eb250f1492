// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/dragtool.h"

DragTool::DragTool(int kind, const Traits &traits, bool followsSettings)
    : DrawingTool(followsSettings), m_kind(kind), m_traits(traits)
{
}

int DragTool::kind() const
{
    return m_kind;
}

void DragTool::mousePressed(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void DragTool::mouseMoved(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void DragTool::mouseReleased(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
