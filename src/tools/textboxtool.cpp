// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/textboxtool.h"

#include "annotations/markitem.h"
#include "annotations/textboxann.h"
#include "app/eventlog.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "tools/toolhost.h"

#include <QGraphicsSceneMouseEvent>
#include <QPixmap>
#include <QSettings>

TextBoxTool::TextBoxTool(ToolHost *host, bool followsSettings)
    : DrawingTool(followsSettings), m_host(host), m_font(QStringLiteral("Courier"), 10)
{
}

void TextBoxTool::updateSettings()
{
    m_fresh = true;
    DrawingTool::updateSettings();
}

void TextBoxTool::readSettings()
{
    const QSettings settings;
    m_useOnce = settings.value(QStringLiteral("TextBoxTool/UseOnce"), false).toBool();
    const QString family =
        settings.value(QStringLiteral("TextBoxTool/DefaultFontFamily"), QStringLiteral("Courier")).toString();
    const int size = settings.value(QStringLiteral("TextBoxTool/DefaultFontSize"), 10).toInt();
    m_font = QFont(family, size, -1, false);
}

QCursor TextBoxTool::makeCursor()
{
    return QCursor(QPixmap(QStringLiteral(":/tool_icons/text_box.png")), 1, 1);
}

void TextBoxTool::mousePressed(QGraphicsSceneMouseEvent *event, Page *page)
{
    (logTrace << "Text box tool pressed").eol(0);
    setPage(page);
    m_onTextBox = false;
    if (!page)
        return;
    const QTransform zoom = page->pageView() ? page->pageView()->transform() : QTransform();
    if (dynamic_cast<TextBoxAnn *>(page->itemAt(event->scenePos(), zoom))) {
        m_onTextBox = true;
        return;
    }
    if (m_useOnce && !m_fresh && m_host) {
        // The release belongs to the tool that is current by then; should it be this one, it places nothing.
        setPage(nullptr);
        m_host->restorePreviousTool();
    }
}

void TextBoxTool::mouseMoved(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}

void TextBoxTool::mouseReleased(QGraphicsSceneMouseEvent *event, Page * /*page*/)
{
    (logTrace << "Text box tool released").eol(0);
    const bool pressedOnPage = page();
    setPage(nullptr);
    if (m_onTextBox || !pressedOnPage)
        return;
    auto *box = new TextBoxAnn;
    setAnnotation(box);
    box->setDefaultTextColor(pen().color());
    box->setFont(m_font);
    box->setPlainText(tr("Enter Text Here"));
    box->setTextInteractionFlags(Qt::TextEditorInteraction);
    box->setFlag(QGraphicsItem::ItemIsFocusable);
    MarkItem::makeHandy(*box);
    // The text starts just up and left of the mouse.
    box->setPos(event->scenePos() - QPointF(2, 2));
    box->setFocus(Qt::OtherFocusReason);
    m_fresh = false;
}
