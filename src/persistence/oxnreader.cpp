// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/oxnreader.h"

#include "annotations/activeelement.h"
#include "annotations/bracketann.h"
#include "annotations/elementreader.h"
#include "annotations/ellipseann.h"
#include "annotations/lineann.h"
#include "annotations/markerline.h"
#include "annotations/markitem.h"
#include "annotations/penline.h"
#include "annotations/rectangleann.h"
#include "annotations/textboxann.h"
#include "annotations/xmlnames.h"

#include <array>
#include <utility>

namespace {

/// A new mark that the user can select and move.
template<class Mark> std::unique_ptr<Annotation> makeMark()
{
    auto mark = std::make_unique<Mark>();
    MarkItem::makeHandy(*mark);
    return mark;
}

/// The same, and type in.
std::unique_ptr<Annotation> makeTextBox()
{
    auto box = std::make_unique<TextBoxAnn>();
    MarkItem::makeHandy(*box);
    box->setTextInteractionFlags(Qt::TextEditorInteraction);
    return box;
}

/// The same, and give the focus.
std::unique_ptr<Annotation> makeTag()
{
    auto tag = std::make_unique<ActiveElement>();
    MarkItem::makeHandy(*tag);
    tag->setFlag(QGraphicsItem::ItemIsFocusable);
    return tag;
}

struct MarkElement
{
    QLatin1String tag;
    std::unique_ptr<Annotation> (*make)();
};

/// Every element that stands for a mark. A new kind of mark is one more line.
constexpr std::array markElements{
    MarkElement{XmlNames::penLine, makeMark<PenLine>},    MarkElement{XmlNames::markerLine, makeMark<MarkerLine>},
    MarkElement{XmlNames::bracket, makeMark<BracketAnn>}, MarkElement{XmlNames::line, makeMark<LineAnn>},
    MarkElement{XmlNames::ellipse, makeMark<EllipseAnn>}, MarkElement{XmlNames::rectangle, makeMark<RectangleAnn>},
    MarkElement{XmlNames::textBox, makeTextBox},          MarkElement{XmlNames::activeTag, makeTag},
};

std::unique_ptr<Annotation> makeMarkFor(QStringView tag)
{
    for (const MarkElement &element : markElements) {
        if (tag == element.tag)
            return element.make();
    }
    return nullptr;
}

} // namespace

void OxnReader::visitRoot(const ElementReader &root)
{
    const QLatin1String notOxn("not_zettel_werk_type");
    m_contents.isOxn = root.string(XmlNames::fileVersion, notOxn) != notOxn;
    m_contents.fileType = root.string(XmlNames::fileType, QLatin1String("[null_type]"));
    m_contents.size = QSizeF(root.integer(XmlNames::width, 0), root.integer(XmlNames::height, 0));
    m_contents.fontFamily = root.string(XmlNames::fontFamily, QLatin1String("Courier"));
    m_contents.fontSize = root.integer(XmlNames::fontSize, 10);
}

bool OxnReader::visitElement(ElementReader &element, int index)
{
    // Each is shown when its turn comes, which costs a picture's decoding, a box about a missing one, or a walk over
    // all marks. No file of ours has more than two.
    constexpr int mostDocuments = 16;
    if (!m_contents.isOxn)
        return true;
    if (element.tag() == XmlNames::textContents) {
        takeDocument(OxnContents::Text, index, element.readText());
    } else if (element.tag() == XmlNames::imageContents) {
        takeDocument(OxnContents::Image, index, element.string(XmlNames::imageLink, QLatin1String("[NULL]")));
    } else if (auto mark = makeMarkFor(element.tag())) {
        mark->read(element);
        m_contents.parts.push_back({OxnContents::Mark, index, QString(), std::move(mark)});
    }
    return m_documents <= mostDocuments;
}

void OxnReader::takeDocument(OxnContents::Kind kind, int index, const QString &text)
{
    ++m_documents;
    m_contents.parts.push_back({kind, index, text, nullptr});
}

void OxnReader::visitEnd(int count)
{
    m_contents.nodeCount = count;
}

OxnContents OxnReader::takeContents()
{
    return std::exchange(m_contents, {});
}
