// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/annotation.h"

#include <QGraphicsTextItem>

/// A short plain text over the document, without frame or background. Typing in it is undone by the text's own
/// history. A box that the user empties stays.
class TextBoxAnn : public QGraphicsTextItem, public Annotation
{
public:
    explicit TextBoxAnn(QGraphicsItem *parent = nullptr);

    /// Draws nothing: a text box is never seen in the making.
    void paintContent(QPainter *painter) override;
    /// The copy cannot be edited.
    TextBoxAnn *clone() override;
    QString toDebugString() override;
    void write(ElementWriter &writer) const override;
    void read(ElementReader &reader) override;

protected:
    /// What is pasted comes in as plain text, for nothing else is stored of it.
    void keyPressEvent(QKeyEvent *event) override;
    /// The same for what is dropped.
    void dropEvent(QGraphicsSceneDragDropEvent *event) override;

private:
    bool isEditable() const;
};
