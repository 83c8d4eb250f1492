// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/erasertool.h"

#include "annotations/annotation.h"
#include "documents/page.h"
#include "documents/pageview.h"

#include <QGraphicsItem>
#include <QGraphicsSceneMouseEvent>

#include <utility>

EraserTool::EraserTool() : Tool(true) {}

QCursor EraserTool::makeCursor()
{
    return Qt::ArrowCursor;
}

void EraserTool::mousePressed(QGraphicsSceneMouseEvent * /*event*/, Page *page)
{
    m_page = page;
}

void EraserTool::mouseMoved(QGraphicsSceneMouseEvent *event, Page *page)
{
    PageView *view = page ? page->pageView() : nullptr;
    if (!view)
        return;
    const bool onMark = dynamic_cast<Annotation *>(page->itemAt(event->scenePos(), view->transform()));
    view->setCursor(onMark ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void EraserTool::mouseReleased(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/)
{
    // Whatever the page's own handling of the press has selected.
    if (const QPointer<Page> page = std::exchange(m_page, nullptr))
        page->cutCommand();
}

void EraserTool::abandonGesture()
{
    m_page = nullptr;
}
