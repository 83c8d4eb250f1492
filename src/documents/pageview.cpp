// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/pageview.h"

#include "documents/page.h"

#include <QKeyEvent>

namespace {

/// Whether another window gets what the mouse does from now on: a modal one or a menu.
bool takesMouseAway(const QEvent &event)
{
    return event.type() == QEvent::WindowBlocked ||
           (event.type() == QEvent::FocusOut &&
            static_cast<const QFocusEvent &>(event).reason() == Qt::PopupFocusReason);
}

} // namespace

PageView::PageView(QGraphicsScene *scene, QWidget *parent)
    : QGraphicsView(scene, parent), m_page(dynamic_cast<Page *>(scene))
{
    setInteractive(true);
    setAttribute(Qt::WA_MouseTracking);
    // Tools see moves without a button held, also over a picture, whose items ask for none.
    viewport()->setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

PageView::~PageView() = default;

Page *PageView::page() const
{
    return m_page;
}

int PageView::zoom() const
{
    return m_zoom;
}

void PageView::setZoom(int percent)
{
    m_zoom = percent;
    const double scale = percent / 100.0;
    setTransform(QTransform::fromScale(scale, scale), false);
}

bool PageView::event(QEvent *event)
{
    if (m_page && takesMouseAway(*event))
        m_page->endGesture();
    if (event->type() == QEvent::KeyPress) {
        auto *keyEvent = static_cast<QKeyEvent *>(event);
        if (m_page && !keyEvent->text().isEmpty())
            m_page->markModified();
        if (keyEvent->key() == Qt::Key_Tab && m_page) {
            m_page->insertTab();
            keyEvent->accept();
            return true;
        }
        if (keyEvent->key() == Qt::Key_F10) {
            // Travels up to the stack, which knows what full screen is.
            keyEvent->ignore();
            return false;
        }
    }
    return QGraphicsView::event(event);
}
