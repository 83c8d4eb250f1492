// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsSceneDragDropEvent>
#include <QMimeData>

/// Lets a text item see of what is dropped on it only the plain text, as long as this lives. Qt would insert the
/// formatted text that is offered beside the plain one.
class PlainTextDrop
{
public:
    /// The event must hold text.
    explicit PlainTextDrop(QGraphicsSceneDragDropEvent *event) : m_event(event), m_offered(event->mimeData())
    {
        m_plain.setText(m_offered->text());
        event->setMimeData(&m_plain);
    }
    ~PlainTextDrop() { m_event->setMimeData(m_offered); }
    Q_DISABLE_COPY_MOVE(PlainTextDrop)

    static bool isOffered(const QGraphicsSceneDragDropEvent *event)
    {
        return event->mimeData() && event->mimeData()->hasText();
    }

private:
    QGraphicsSceneDragDropEvent *m_event;
    const QMimeData *m_offered;
    QMimeData m_plain;
};
