// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/storedtag.h"

#include "annotations/elementreader.h"
#include "annotations/elementwriter.h"
#include "annotations/markfields.h"
#include "annotations/markitem.h"

namespace {

struct TagField
{
    QLatin1String name;
    QLatin1String defaultValue;
};

constexpr QLatin1String defaultFont("Arial");
constexpr QLatin1String defaultFontSize("12");
constexpr QLatin1String noComponent("0");
constexpr QLatin1String fullAlpha("255");
constexpr QLatin1String noTime("20000101");
constexpr QLatin1String defaultCategory("Idea");

constexpr std::array tagFields{
    TagField{XmlNames::brushColor.red, noComponent},
    TagField{XmlNames::brushColor.green, noComponent},
    TagField{XmlNames::brushColor.blue, noComponent},
    TagField{XmlNames::brushColor.alpha, fullAlpha},
    TagField{XmlNames::textColor.red, noComponent},
    TagField{XmlNames::textColor.green, noComponent},
    TagField{XmlNames::textColor.blue, noComponent},
    TagField{XmlNames::textColor.alpha, fullAlpha},
    TagField{XmlNames::descriptionFont, defaultFont},
    TagField{XmlNames::descriptionFontSize, defaultFontSize},
    TagField{XmlNames::author, QLatin1String("NoName")},
    TagField{XmlNames::authorFont, defaultFont},
    TagField{XmlNames::authorFontSize, defaultFontSize},
    TagField{XmlNames::showDate, XmlNames::yes},
    TagField{XmlNames::date, noTime},
    TagField{XmlNames::time, noTime},
    TagField{XmlNames::dateFont, defaultFont},
    TagField{XmlNames::dateFontSize, defaultFontSize},
};

} // namespace

StoredTag::StoredTag(QGraphicsItem *parent) : QGraphicsItem(parent), m_category(defaultCategory)
{
    static_assert(tagFields.size() == fieldCount);
    for (std::size_t i = 0; i < fieldCount; ++i)
        m_fields[i] = tagFields[i].defaultValue;
}

QRectF StoredTag::boundingRect() const
{
    return {};
}

void StoredTag::paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/, QWidget * /*widget*/) {}

void StoredTag::paintContent(QPainter * /*painter*/) {}

StoredTag *StoredTag::clone()
{
    auto *copy = new StoredTag;
    copy->m_category = m_category;
    copy->m_fields = m_fields;
    copy->m_description = m_description;
    MarkItem::placeCopy(*this, *copy);
    return copy;
}

QString StoredTag::toDebugString()
{
    return QStringLiteral("Stored tag");
}

void StoredTag::write(ElementWriter &writer) const
{
    writer.startElement(XmlNames::activeTag);
    writer.writeAttribute(XmlNames::category, m_category);
    MarkFields::writePosition(writer, *this);
    for (std::size_t i = 0; i < fieldCount; ++i)
        writer.writeAttribute(tagFields[i].name, m_fields[i]);
    writer.startElement(XmlNames::description);
    writer.writeCData(m_description);
    writer.endElement();
    writer.endElement();
}

void StoredTag::read(ElementReader &reader)
{
    m_category = reader.string(XmlNames::category, defaultCategory);
    setPos(MarkFields::readPosition(reader));
    for (std::size_t i = 0; i < fieldCount; ++i)
        m_fields[i] = reader.string(tagFields[i].name, tagFields[i].defaultValue);
    m_description = MarkFields::readTextChild(reader, XmlNames::description);
}
