// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/erasertool.h"

EraserTool::EraserTool() : Tool(true) {}

QCursor EraserTool::makeCursor()
{
    return Qt::ArrowCursor;
}

void EraserTool::updateSettings() {}

void EraserTool::mousePressed(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void EraserTool::mouseMoved(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void EraserTool::mouseReleased(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
