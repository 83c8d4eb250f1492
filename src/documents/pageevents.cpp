// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse, the clipboard commands and painting do on a page.
#include "annotations/annotation.h"
#include "app/clipboardtext.h"
#include "documents/cutcommand.h"
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "documents/pastecommand.h"
#include "tools/drawingtool.h"

#include <QApplication>
#include <QClipboard>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsTextItem>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTextCursor>
#include <QUndoStack>

int Page::mode() const
{
    const DocumentHost *host = m_host.get();
    return host ? host->mode() : TextMode;
}

Tool *Page::currentTool() const
{
    const DocumentHost *host = m_host.get();
    return host ? host->currentTool() : nullptr;
}

void Page::rememberMouse(const QPointF &scenePos)
{
    m_lastMouse = scenePos;
}

void Page::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    rememberMouse(event->scenePos());
    if (event->button() != Qt::LeftButton)
        return;
    m_pressPoint = event->scenePos();
    const int mode = this->mode();
    m_documentItem->setTextEditable(false);
    QGraphicsTextItem *textItem = m_documentItem->textItem();
    if (mode == TextMode) {
        textItem->setFlag(QGraphicsItem::ItemIsSelectable);
        m_documentItem->setTextEditable(true);
    } else if (mode == TransformMode || mode == ToolMode) {
        textItem->setFlag(QGraphicsItem::ItemIsSelectable, false);
        textItem->setFlag(QGraphicsItem::ItemIsFocusable, false);
    } else {
        return;
    }
    if (Tool *tool = mode == ToolMode ? currentTool() : nullptr)
        tool->mousePressed(event, this);
    QGraphicsScene::mousePressEvent(event);
}

void Page::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    rememberMouse(event->scenePos());
    switch (mode()) {
    case TextMode:
        moveGrabbedItem(event);
        break;
    case TransformMode:
        moveInTransformMode(event);
        break;
    case ToolMode:
        if (Tool *tool = currentTool())
            tool->mouseMoved(event, this);
        break;
    default:
        break;
    }
}

void Page::moveInTransformMode(QGraphicsSceneMouseEvent *event)
{
    if (m_view) {
        if (!dynamic_cast<Annotation *>(itemAt(event->scenePos(), m_view->transform()))) {
            m_view->setCursor(Qt::ArrowCursor);
        } else if (event->buttons() == Qt::LeftButton) {
            m_view->setCursor(Qt::ClosedHandCursor);
            setModified(true);
        } else {
            m_view->setCursor(Qt::OpenHandCursor);
        }
    }
    moveGrabbedItem(event);
}

/// A mark that is too thin to lie under the mouse, or that the mouse has left behind, moves too.
void Page::moveGrabbedItem(QGraphicsSceneMouseEvent *event)
{
    const QGraphicsItem *item = mouseGrabberItem();
    const QPointF before = item ? item->pos() : QPointF();
    QGraphicsScene::mouseMoveEvent(event);
    if (item && item == mouseGrabberItem() && item->pos() != before)
        markModified();
}

void Page::inputMethodEvent(QInputMethodEvent *event)
{
    const auto *text = dynamic_cast<QGraphicsTextItem *>(focusItem());
    const bool replaces = event->replacementLength() > 0 ||
                          (text && text->textCursor().hasSelection() && !event->preeditString().isEmpty());
    if (text && text->textInteractionFlags().testFlag(Qt::TextEditable) &&
        (replaces || !event->commitString().isEmpty()))
        markModified();
    QGraphicsScene::inputMethodEvent(event);
}

void Page::dropEvent(QGraphicsSceneDragDropEvent *event)
{
    QGraphicsScene::dropEvent(event);
    if (event->isAccepted())
        markModified();
}

void Page::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    m_pressPoint.reset();
    switch (mode()) {
    case TextMode:
    case TransformMode:
        QGraphicsScene::mouseReleaseEvent(event);
        break;
    case ToolMode:
        finishGesture(event);
        QGraphicsScene::mouseReleaseEvent(event);
        break;
    default:
        break;
    }
    refreshUi();
}

void Page::finishGesture(QGraphicsSceneMouseEvent *event)
{
    // The window may choose another tool meanwhile; the mark is with the one that got the release.
    Tool *tool = currentTool();
    if (!tool)
        return;
    tool->mouseReleased(event, nullptr);
    auto *drawingTool = dynamic_cast<DrawingTool *>(tool);
    if (!drawingTool)
        return;
    if (auto *item = dynamic_cast<QGraphicsItem *>(drawingTool->takeAnnotation()))
        addAnnotation(item);
}

void Page::endGesture()
{
    if (!m_pressPoint)
        return;
    Tool *tool = currentTool();
    if (tool && !dynamic_cast<DrawingTool *>(tool))
        tool->abandonGesture();
    QGraphicsSceneMouseEvent release(QEvent::GraphicsSceneMouseRelease);
    release.setButton(Qt::LeftButton);
    release.setButtonDownScenePos(Qt::LeftButton, *m_pressPoint);
    release.setScenePos(m_lastMouse);
    release.setLastScenePos(m_lastMouse);
    mouseReleaseEvent(&release);
}

void Page::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    rememberMouse(event->scenePos());
    DocumentHost *host = m_host.get();
    if (host && host->popupMenu())
        host->popupMenu()->popup(event->screenPos());
}

void Page::drawForeground(QPainter *painter, const QRectF &rect)
{
    Tool *tool = currentTool();
    if (rect.width() == 0.0 || rect.height() == 0.0 || !tool)
        return;
    if (auto *drawingTool = dynamic_cast<DrawingTool *>(tool)) {
        if (Annotation *annotation = drawingTool->annotation())
            annotation->paintContent(painter);
        return;
    }
    if (m_drawToolOverlay)
        tool->paintOverlay(painter);
}

QList<Annotation *> Page::selectedAnnotations() const
{
    // In stacking order, so that what is cut and brought back lies above each other as before.
    QList<Annotation *> annotations;
    for (QGraphicsItem *item : items(Qt::AscendingOrder)) {
        auto *annotation = dynamic_cast<Annotation *>(item);
        if (annotation && item->isSelected())
            annotations.append(annotation);
    }
    return annotations;
}

void Page::copyCommand()
{
    if (mode() == TextMode) {
        QApplication::clipboard()->setText(selectedText());
    } else {
        if (selectedItems().isEmpty())
            return;
        if (DocumentHost *host = m_host.get()) {
            host->clearAnnotationClipboard();
            for (Annotation *annotation : selectedAnnotations())
                host->addToAnnotationClipboard(annotation->clone());
        }
    }
    setModified(false);
}

void Page::cutCommand()
{
    if (mode() == TextMode) {
        if (isEditableText())
            QApplication::clipboard()->setText(m_documentItem->cutSelectedText());
        setModified(true);
        return;
    }
    const QList<Annotation *> annotations = selectedAnnotations();
    if (annotations.isEmpty())
        return;
    DocumentHost *host = m_host.get();
    if (host)
        host->clearAnnotationClipboard();
    QList<QGraphicsItem *> items;
    for (Annotation *annotation : annotations) {
        items.append(dynamic_cast<QGraphicsItem *>(annotation));
        if (host)
            host->addToAnnotationClipboard(annotation);
    }
    m_undoStack->push(new CutCommand(this, items, nullptr));
    setModified(true);
}

void Page::pasteCommand()
{
    if (mode() == TextMode) {
        if (isEditableText())
            m_documentItem->pasteText(clipboardText());
        setModified(true);
        return;
    }
    DocumentHost *host = m_host.get();
    const QList<Annotation *> annotations = host ? *host->annotationClipboard() : QList<Annotation *>();
    if (annotations.isEmpty())
        return;
    m_undoStack->push(new PasteCommand(this, annotations, nullptr));
    setModified(true);
}

void Page::removeCommand()
{
    cutCommand();
}
