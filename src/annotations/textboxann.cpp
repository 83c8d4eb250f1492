// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/textboxann.h"

#include "annotations/elementreader.h"
#include "annotations/elementwriter.h"
#include "annotations/exacttext.h"
#include "annotations/markfields.h"
#include "annotations/markitem.h"
#include "annotations/plaintextdrop.h"
#include "app/clipboardtext.h"

#include <QFont>
#include <QKeyEvent>
#include <QTextCursor>
#include <QTextDocument>

TextBoxAnn::TextBoxAnn(QGraphicsItem *parent) : QGraphicsTextItem(parent) {}

void TextBoxAnn::paintContent(QPainter * /*painter*/) {}

TextBoxAnn *TextBoxAnn::clone()
{
    auto *copy = new TextBoxAnn;
    copy->setDefaultTextColor(defaultTextColor());
    copy->setPlainText(exactText(*document()));
    copy->setFont(font());
    MarkItem::placeCopy(*this, *copy);
    return copy;
}

bool TextBoxAnn::isEditable() const
{
    return textInteractionFlags().testFlag(Qt::TextEditable);
}

void TextBoxAnn::keyPressEvent(QKeyEvent *event)
{
    if (!isEditable() || !event->matches(QKeySequence::Paste)) {
        QGraphicsTextItem::keyPressEvent(event);
        return;
    }
    QTextCursor cursor = textCursor();
    cursor.insertText(clipboardText());
    setTextCursor(cursor);
    event->accept();
}

void TextBoxAnn::dropEvent(QGraphicsSceneDragDropEvent *event)
{
    if (!isEditable() || !PlainTextDrop::isOffered(event)) {
        event->ignore();
        return;
    }
    const PlainTextDrop plain(event);
    QGraphicsTextItem::dropEvent(event);
}

QString TextBoxAnn::toDebugString()
{
    return QStringLiteral("TextBox annotation");
}

void TextBoxAnn::write(ElementWriter &writer) const
{
    writer.startElement(XmlNames::textBox);
    MarkFields::writePosition(writer, *this);
    writer.writeAttribute(XmlNames::fontFamily, font().family());
    writer.writeAttribute(XmlNames::fontSize, font().pointSize());
    MarkFields::writeColor(writer, XmlNames::plainColor, defaultTextColor());
    writer.startElement(XmlNames::text);
    writer.writeText(exactText(*document()));
    writer.endElement();
    writer.endElement();
}

void TextBoxAnn::read(ElementReader &reader)
{
    const QPointF position = MarkFields::readPosition(reader);
    const QString family = reader.string(XmlNames::fontFamily, QLatin1String("Courier")).trimmed();
    const int size = reader.integer(XmlNames::fontSize, 10);
    const QColor color = MarkFields::readColor(reader, XmlNames::plainColor);
    const QString text = MarkFields::readTextChild(reader, XmlNames::text);

    setFont(QFont(family, size, -1, false));
    setDefaultTextColor(color);
    setPlainText(text);
    setPos(position);
}
