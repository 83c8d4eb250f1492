// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/dragtool.h"

#include "annotations/annotation.h"
#include "app/eventlog.h"
#include "documents/page.h"

#include <QGraphicsSceneMouseEvent>

DragTool::DragTool(int kind, const Traits &traits, bool followsSettings)
    : DrawingTool(followsSettings), m_kind(kind), m_traits(traits)
{
}

int DragTool::kind() const
{
    return m_kind;
}

void DragTool::mousePressed(QGraphicsSceneMouseEvent *event, Page *page)
{
    (logTrace << m_traits.pressedText).eol(0);
    setPage(page);
    m_pressPoint = event->scenePos();
    setAnnotation(createAnnotation());
}

void DragTool::mouseMoved(QGraphicsSceneMouseEvent *event, Page * /*page*/)
{
    if (!annotation())
        return;
    stretch(m_pressPoint, event->scenePos());
    if (page())
        page()->invalidate();
}

void DragTool::mouseReleased(QGraphicsSceneMouseEvent *event, Page * /*page*/)
{
    (logTrace << m_traits.releasedText).eol(0);
    const QPointF way = event->scenePos() - m_pressPoint;
    if (!annotation() || QPointF::dotProduct(way, way) < m_traits.minimumDistance) {
        abandonGesture();
        return;
    }
    setPage(nullptr);
    stretch(m_pressPoint, event->scenePos());
    normalize();
}
