// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/annotationclipboard.h"

#include "annotations/annotation.h"

#include <QGraphicsItem>

QList<Annotation *> *AnnotationClipboard::list()
{
    m_marks.removeIf([](const MarkRef &mark) { return !mark.item(); });
    m_list.clear();
    for (const MarkRef &mark : std::as_const(m_marks))
        m_list.append(dynamic_cast<Annotation *>(mark.item()));
    return &m_list;
}

void AnnotationClipboard::clear()
{
    m_marks.clear();
    m_list.clear();
}

void AnnotationClipboard::append(Annotation *annotation)
{
    m_marks.append(MarkRef(dynamic_cast<QGraphicsItem *>(annotation)));
}
