// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/activeelement.h"

#include "annotations/elementreader.h"
#include "annotations/elementwriter.h"
#include "annotations/exacttext.h"
#include "annotations/markfields.h"
#include "annotations/markitem.h"
#include "annotations/tageditor.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTextDocument>

#include <array>

namespace {

struct TagCategory
{
    QLatin1String name; ///< As in files.
    QLatin1String icon;
    QRgb frame;
    QRgb background;
    bool bringsIcon; ///< Whether setCategory() loads the icon.
};

constexpr QRgb amberFrame = qRgb(177, 140, 69);
constexpr QRgb amber = qRgb(255, 214, 102);

/// By number.
constexpr std::array tagCategories{
    TagCategory{QLatin1String("Idea"), QLatin1String(":/active_tags/idea.png"), amberFrame, amber, true},
    TagCategory{QLatin1String("Note"), QLatin1String(":/active_tags/note.png"), amberFrame, amber, true},
    TagCategory{QLatin1String("Question"), QLatin1String(":/active_tags/question.png"), amberFrame, amber, false},
    TagCategory{QLatin1String("Important"), QLatin1String(":/active_tags/important.png"), amberFrame, amber, false},
    TagCategory{QLatin1String("Bug"), QLatin1String(":/active_tags/bug.png"), qRgb(180, 4, 2), qRgb(255, 150, 150),
                false},
};

constexpr int tagIconWidth = 24;
constexpr int tagIconHeight = 24;
constexpr double tagTextWidth = 180.0;
/// More of an author's name cannot be seen in a note, however thin its letters are.
constexpr int shownAuthorLength = 1000;

constexpr QLatin1String tagFontFamily("Arial");
constexpr QLatin1String tagDateFormat("dd.MM.yyyy");
constexpr QLatin1String tagTimeFormat("hh:mm:ss");

/// Null for an unknown number.
const TagCategory *tagCategory(int number)
{
    return number >= 0 && number < int(tagCategories.size()) ? &tagCategories[std::size_t(number)] : nullptr;
}

/// -1 for a name that is none.
int tagCategoryNumber(QStringView name)
{
    for (std::size_t i = 0; i < tagCategories.size(); ++i) {
        if (name == tagCategories[i].name)
            return int(i);
    }
    return -1;
}

QBrush tagBrush(QColor color)
{
    constexpr int alpha = 120;
    color.setAlpha(alpha);
    return {color, Qt::SolidPattern};
}

/// Qt keeps a font's size, with a warning, when it is told one that cannot be.
void readTagFont(const ElementReader &reader, QLatin1String familyName, QLatin1String sizeName, QFont *font)
{
    font->setFamily(reader.string(familyName, tagFontFamily));
    if (const int size = reader.integer(sizeName, 12); size > 0)
        font->setPointSize(size);
}

void writeTagFont(ElementWriter &writer, QLatin1String familyName, QLatin1String sizeName, const QFont &font)
{
    writer.writeAttribute(familyName, font.family());
    writer.writeAttribute(sizeName, font.pointSize());
}

} // namespace

ActiveElement::ActiveElement(QGraphicsItem *parent)
    : QGraphicsTextItem(parent),
      m_authorFont(tagFontFamily, 8, QFont::Bold),
      m_dateFont(tagFontFamily, 7, QFont::Light),
      m_descriptionFont(tagFontFamily, 12, QFont::Light),
      m_authorMetrics(m_authorFont),
      m_dateMetrics(m_dateFont),
      m_brush(tagBrush(amber)),
      m_pen(QColor(amberFrame), 0)
{
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse);
    setOpenExternalLinks(true);
    setTextWidth(tagTextWidth);
    setFont(m_descriptionFont);
    // Not the palette's colour, which may be white: all notes are light, and the colour goes into the file.
    setDefaultTextColor(Qt::black);
}

int ActiveElement::category() const
{
    return m_category;
}

void ActiveElement::setCategory(int category)
{
    m_category = category;
    const TagCategory *look = tagCategory(category);
    if (!look)
        return;
    setBackground(look->background);
    m_pen = QPen(QColor(look->frame), 0);
    if (look->bringsIcon)
        setIcon(QPixmap(look->icon));
}

QString ActiveElement::iconFile(int category)
{
    const TagCategory *look = tagCategory(category);
    return look ? QString(look->icon) : QString();
}

QPixmap ActiveElement::icon() const
{
    return m_icon;
}

void ActiveElement::setIcon(const QPixmap &icon)
{
    m_icon = icon;
    update();
}

std::pair<int, int> ActiveElement::iconSize() const
{
    return {tagIconWidth, tagIconHeight};
}

QString ActiveElement::description() const
{
    return exactText(*document());
}

QString ActiveElement::author() const
{
    return m_author;
}

void ActiveElement::setAuthor(const QString &author)
{
    m_author = author;
    update();
}

void ActiveElement::setDate(const QDate &date)
{
    m_date = date;
    update();
}

void ActiveElement::setTime(const QTime &time)
{
    m_time = time;
    update();
}

bool ActiveElement::showDate() const
{
    return m_showDate;
}

void ActiveElement::setShowDate(bool show)
{
    m_showDate = show;
    update();
}

QFont ActiveElement::authorFont() const
{
    return m_authorFont;
}

QFont ActiveElement::dateFont() const
{
    return m_dateFont;
}

QFont ActiveElement::descriptionFont() const
{
    return m_descriptionFont;
}

QColor ActiveElement::background() const
{
    return m_brush.color();
}

void ActiveElement::setBackground(const QColor &color)
{
    m_brush = tagBrush(color);
    m_pen.setColor(color);
    update();
}

QRectF ActiveElement::boundingRect() const
{
    const double left = tagIconWidth + 2;
    const double top = QFontMetrics(m_authorFont).height() + tagIconHeight + 6;
    const double bottom = QFontMetrics(m_dateFont).height() + 4;
    return QGraphicsTextItem::boundingRect().adjusted(-left, -top, 0, bottom);
}

QPainterPath ActiveElement::shape() const
{
    QPainterPath path;
    path.addRect(boundingRect());
    return path;
}

bool ActiveElement::contains(const QPointF &point) const
{
    return boundingRect().contains(point);
}

void ActiveElement::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    const QRectF text = QGraphicsTextItem::boundingRect();
    painter->drawPixmap(QPointF(-2 - tagIconWidth, -6 - tagIconHeight - QFontMetrics(m_authorFont).height()), m_icon);
    painter->save();
    painter->setPen(m_pen);
    painter->setBrush(m_brush);
    const double above = 4 + m_authorMetrics.height();
    painter->drawRect(
        QRectF(text.x(), text.y() - above, text.width(), text.height() + m_dateMetrics.height() + 4 + above));
    // What is too long for the note would stay on the page when the note moves away.
    painter->setClipRect(boundingRect().adjusted(0, 0, 0, QFontMetrics(m_dateFont).descent()), Qt::IntersectClip);
    painter->setFont(m_authorFont);
    painter->drawText(QPointF(2, -4), m_author.left(shownAuthorLength));
    if (m_showDate)
        drawStamp(painter, text);
    QPen dotted = m_pen;
    dotted.setStyle(Qt::DotLine);
    painter->setPen(dotted);
    painter->drawLine(QPointF(4, text.height() + 2), QPointF(text.width() - 4, text.height() + 2));
    painter->restore();
    painter->setFont(m_descriptionFont);
    QGraphicsTextItem::paint(painter, option, widget);
}

void ActiveElement::drawStamp(QPainter *painter, const QRectF &text) const
{
    const QFontMetrics metrics(m_dateFont);
    const double y = text.height() + 2 + metrics.height();
    const QString time = m_time.toString(QStringLiteral("hh:mm"));
    painter->setFont(m_dateFont);
    painter->drawText(QPointF(5, y), m_date.toString());
    painter->drawText(QPointF(text.width() - 5 - metrics.horizontalAdvance(time), y), time);
}

void ActiveElement::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    const bool edits = event->modifiers() == Qt::ControlModifier;
    if (edits && !edit({}))
        return;
    QGraphicsTextItem::mousePressEvent(event);
    if (edits)
        releaseMouse();
}

void ActiveElement::mouseDoubleClickEvent(QGraphicsSceneMouseEvent * /*event*/)
{
    if (edit(Qt::Drawer | Qt::WindowTitleHint | Qt::CustomizeWindowHint))
        releaseMouse();
}

/// False if the note was deleted while its dialog was open.
bool ActiveElement::edit(Qt::WindowFlags flags)
{
    const QPointer<ActiveElement> self(this);
    if (auto *editor = dynamic_cast<TagEditor *>(scene()))
        editor->editActiveElement(this, flags);
    return !self.isNull();
}

/// The dialog took the release that belongs to the press: without this the next press, wherever it is, would come here.
void ActiveElement::releaseMouse()
{
    if (scene() && scene()->mouseGrabberItem() == this)
        ungrabMouse();
}

void ActiveElement::paintContent(QPainter * /*painter*/) {}

ActiveElement *ActiveElement::clone()
{
    auto *copy = new ActiveElement;
    MarkItem::makeHandy(*copy);
    return copy;
}

QString ActiveElement::toDebugString()
{
    // No note has contents beside its description, which is not told.
    return QStringLiteral("Active element, contents: %1 ,\n author %2").arg(QString(), m_author);
}

void ActiveElement::write(ElementWriter &writer) const
{
    const TagCategory *look = tagCategory(m_category);
    writer.startElement(XmlNames::activeTag);
    writer.writeAttribute(XmlNames::category, (look ? *look : tagCategories.front()).name);
    MarkFields::writePosition(writer, *this);
    MarkFields::writeColor(writer, XmlNames::brushColor, m_brush.color());
    MarkFields::writeColor(writer, XmlNames::textColor, defaultTextColor());
    writeTagFont(writer, XmlNames::descriptionFont, XmlNames::descriptionFontSize, m_descriptionFont);
    writer.writeAttribute(XmlNames::author, m_author);
    writeTagFont(writer, XmlNames::authorFont, XmlNames::authorFontSize, m_authorFont);
    writer.writeYesNo(XmlNames::showDate, m_showDate);
    writer.writeAttribute(XmlNames::date, m_date.toString(tagDateFormat));
    writer.writeAttribute(XmlNames::time, m_time.toString(tagTimeFormat));
    writeTagFont(writer, XmlNames::dateFont, XmlNames::dateFontSize, m_dateFont);
    writer.startElement(XmlNames::description);
    writer.writeCData(description());
    writer.endElement();
    writer.endElement();
}

void ActiveElement::read(ElementReader &reader)
{
    const QLatin1String noTime("20000101"); // neither a date nor a time: a note without a stamp shows none
    if (const int number = tagCategoryNumber(reader.string(XmlNames::category, tagCategories.front().name).trimmed());
        number >= 0)
        setCategory(number);
    const QPointF position = MarkFields::readPosition(reader);
    const QColor background = MarkFields::readColor(reader, XmlNames::brushColor);
    const QColor textColor = MarkFields::readColor(reader, XmlNames::textColor);
    readFonts(reader);
    m_author = reader.string(XmlNames::author, QLatin1String("NoName"));
    m_showDate = reader.string(XmlNames::showDate, XmlNames::yes) == XmlNames::yes;
    m_date = QDate::fromString(reader.string(XmlNames::date, noTime), tagDateFormat);
    m_time = QTime::fromString(reader.string(XmlNames::time, noTime), tagTimeFormat);
    const QString description = MarkFields::readTextChild(reader, XmlNames::description);

    setPos(position);
    setPlainText(description);
    setBackground(background);
    setDefaultTextColor(textColor);
}

void ActiveElement::readFonts(const ElementReader &reader)
{
    prepareGeometryChange();
    readTagFont(reader, XmlNames::descriptionFont, XmlNames::descriptionFontSize, &m_descriptionFont);
    readTagFont(reader, XmlNames::authorFont, XmlNames::authorFontSize, &m_authorFont);
    readTagFont(reader, XmlNames::dateFont, XmlNames::dateFontSize, &m_dateFont);
    setFont(m_descriptionFont);
}
