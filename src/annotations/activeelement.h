// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/annotation.h"

#include <QBrush>
#include <QDate>
#include <QFont>
#include <QFontMetrics>
#include <QGraphicsTextItem>
#include <QPen>
#include <QPixmap>
#include <QTime>

#include <utility>

/// An active tag: a coloured note of one of five categories, pinned to a spot of the document.
///
/// In item coordinates the description's corner is the origin; it wraps at 180 units. The author stands above it,
/// date and time below, all three inside one frame, and the icon outside, above and to the left. Ctrl and a press, or
/// a double click, open the dialog of the scene's TagEditor.
class ActiveElement : public QGraphicsTextItem, public Annotation
{
public:
    /// An empty note of the category 0 without an icon.
    explicit ActiveElement(QGraphicsItem *parent = nullptr);

    /// 0 to 4: "Idea", "Note", "Question", "Important", "Bug". Other numbers are kept, but are written as "Idea".
    int category() const;
    /// Gives the note the colours of the category too; an unknown one leaves them. The icon comes with the
    /// categories 0 and 1 only, the others leave it to the caller.
    void setCategory(int category);
    /// Resource with the icon of the category; empty for an unknown one.
    static QString iconFile(int category);

    QPixmap icon() const;
    /// Drawn at its own size; the room for it is iconSize(). A null one leaves the corner empty.
    void setIcon(const QPixmap &icon);
    /// Width and height of the room for the icon, in scene units.
    std::pair<int, int> iconSize() const;

    /// The text of the note exactly as it is, lines separated by line feeds.
    QString description() const;
    QString author() const;
    void setAuthor(const QString &author);
    void setDate(const QDate &date);
    void setTime(const QTime &time);
    bool showDate() const;
    void setShowDate(bool show);

    QFont authorFont() const;
    QFont dateFont() const;
    /// The font that is written to files. Not font(), in which the description is shown.
    QFont descriptionFont() const;

    /// Colour of the fill, with its alpha.
    QColor background() const;
    /// Fills the note with the colour at alpha 120 and frames it in the colour as it is.
    void setBackground(const QColor &color);

    QRectF boundingRect() const override;
    /// The whole bounding rectangle: the note is hit anywhere in it.
    QPainterPath shape() const override;
    bool contains(const QPointF &point) const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// Draws nothing: a note is never seen in the making.
    void paintContent(QPainter *painter) override;
    /// An empty note at the origin, which the user can select and move. Nothing of this one goes into it.
    ActiveElement *clone() override;
    QString toDebugString() override;
    void write(ElementWriter &writer) const override;
    /// A name that is no category leaves the category as it was. The frame takes the colour of the background.
    void read(ElementReader &reader) override;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;

private:
    bool edit(Qt::WindowFlags flags);
    void releaseMouse();
    void drawStamp(QPainter *painter, const QRectF &text) const;
    void readFonts(const ElementReader &reader);

    int m_category = 0;
    QPixmap m_icon;
    QString m_author;
    QDate m_date; ///< Of the last edit, like m_time.
    QTime m_time;
    bool m_showDate = false;
    QFont m_authorFont;
    QFont m_dateFont;
    QFont m_descriptionFont;
    /// Of the first fonts: the frame stays as it is when a file brings other ones.
    const QFontMetrics m_authorMetrics;
    const QFontMetrics m_dateMetrics;
    QBrush m_brush;
    QPen m_pen;
};
