// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/stroketool.h"

#include "annotations/markitem.h"
#include "annotations/stroke.h"
#include "app/eventlog.h"
#include "documents/page.h"

#include <QGraphicsSceneMouseEvent>

StrokeTool::StrokeTool(const Traits &traits, bool followsSettings) : DrawingTool(followsSettings), m_traits(traits) {}

void StrokeTool::mousePressed(QGraphicsSceneMouseEvent *event, Page *page)
{
    (logTrace << m_traits.pressedText).eol(0);
    setAnnotation(createStroke());
    stroke()->setPos(event->scenePos());
    stroke()->setPen(pen());
    stroke()->setAntialiasing(antialiasing());
    MarkItem::makeHandy(*stroke());
    setPage(page);
    m_pressPoint = event->scenePos();
}

void StrokeTool::mouseMoved(QGraphicsSceneMouseEvent *event, Page * /*page*/)
{
    if (!annotation())
        return;
    stroke()->addPoint(event->scenePos());
    if (page()) {
        const double side = m_traits.repaintSide;
        page()->invalidate(event->scenePos().x() - side / 2, event->scenePos().y() - side / 2, side, side);
    }
}

void StrokeTool::mouseReleased(QGraphicsSceneMouseEvent *event, Page * /*page*/)
{
    (logTrace << m_traits.releasedText).eol(0);
    if (annotation())
        stroke()->finishCapture(true);
    if (!annotation() || isClick(event->scenePos())) {
        abandonGesture();
        return;
    }
    setPage(nullptr);
    if (smoothing())
        stroke()->smooth();
}

bool StrokeTool::isClick(const QPointF &releasePoint) const
{
    const QPointF way = releasePoint - m_pressPoint;
    return QPointF::dotProduct(way, way) < 3 && stroke()->polygon().size() < m_traits.minimumPoints;
}

void StrokeTool::applyLook(int width, int alpha)
{
    QPen look = pen();
    look.setWidth(width);
    QColor color = look.color();
    color.setAlpha(alpha);
    look.setColor(color);
    setPen(look);
}

Stroke *StrokeTool::stroke() const
{
    return static_cast<Stroke *>(annotation());
}
