// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/markref.h"

#include <QList>

class Annotation;

/// The marks that were cut or copied last. It shares them with undo commands and scenes (see MarkRef): putting a
/// mark here keeps it alive, taking it off deletes it only if nothing else has it.
class AnnotationClipboard
{
public:
    /// The marks in the order of adding, without any that was deleted meanwhile. Owned by the clipboard; read only.
    QList<Annotation *> *list();
    void clear();
    void append(Annotation *annotation);

private:
    QList<MarkRef> m_marks;
    QList<Annotation *> m_list;
};
