// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/textlayout.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsTextItem>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTextDocument>

#include <functional>

/// The same text twice, once under Qt's layout and once under ours.
class Twins
{
public:
    explicit Twins(const QFont &font)
    {
        QTextOption option;
        option.setWrapMode(QTextOption::NoWrap);
        option.setTabStopDistance(16.0);
        for (QTextDocument *document : both()) {
            document->setDefaultTextOption(option);
            document->setDefaultFont(font);
        }
        ours.setDocumentLayout(new TextLayout(&ours));
    }

    QList<QTextDocument *> both() { return {&qt, &ours}; }
    TextLayout *layout() { return static_cast<TextLayout *>(ours.documentLayout()); }

    void setText(const QString &text)
    {
        for (QTextDocument *document : both())
            document->setPlainText(text);
    }

    QTextDocument qt;
    QTextDocument ours;
};

inline QImage painted(QTextDocument *document, const QAbstractTextDocumentLayout::PaintContext &context,
                      const QRectF &area)
{
    QImage image(area.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(-area.topLeft());
    if (context.clip.isValid())
        painter.setClipRect(context.clip);
    document->documentLayout()->draw(&painter, context);
    return image;
}

using ContextMaker = std::function<QAbstractTextDocumentLayout::PaintContext(QTextDocument *)>;

inline QAbstractTextDocumentLayout::PaintContext plainContext(QTextDocument *)
{
    return {};
}

/// Empty if both paint @p area alike, otherwise where they differ.
inline QString pictureDifference(Twins &twins, const QRectF &area, const ContextMaker &context = plainContext)
{
    const QImage expected = painted(&twins.qt, context(&twins.qt), area);
    const QImage actual = painted(&twins.ours, context(&twins.ours), area);
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            if (expected.pixel(x, y) != actual.pixel(x, y))
                return QStringLiteral("pixels differ at %1, %2").arg(area.x() + x).arg(area.y() + y);
        }
    }
    return {};
}

/// A text item in a scene of its own that takes keys and mouse as if it were in a window.
class Editor
{
public:
    explicit Editor(QTextDocument *document)
    {
        QEvent activate(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&m_scene, &activate);
        item->setDocument(document);
        item->setTextInteractionFlags(Qt::TextEditorInteraction);
        m_scene.addItem(item);
        item->setFocus();
    }

    void key(int key, Qt::KeyboardModifiers modifiers = {}, const QString &text = {})
    {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(&m_scene, &press);
    }

    void mouse(QEvent::Type type, const QPointF &position, Qt::MouseButtons buttons)
    {
        QGraphicsSceneMouseEvent event(type);
        event.setScenePos(position);
        event.setPos(position);
        event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : Qt::LeftButton);
        event.setButtons(buttons);
        event.setButtonDownScenePos(Qt::LeftButton, m_pressed);
        if (type == QEvent::GraphicsSceneMousePress)
            m_pressed = position;
        QCoreApplication::sendEvent(&m_scene, &event);
    }

    void input(QInputMethodEvent *event) { QCoreApplication::sendEvent(&m_scene, event); }

    QImage picture()
    {
        QImage image(600, 500, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        m_scene.render(&painter, QRectF(0, 0, 600, 500), QRectF(0, 0, 600, 500));
        return image;
    }

    QGraphicsTextItem *item = new QGraphicsTextItem; ///< Owned by the scene.

private:
    QGraphicsScene m_scene;
    QPointF m_pressed;
};
