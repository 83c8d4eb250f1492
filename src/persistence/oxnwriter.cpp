// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/oxnwriter.h"

#include "annotations/annotation.h"
#include "annotations/elementreader.h"
#include "annotations/streamelementwriter.h"
#include "annotations/xmlnames.h"
#include "app/eventlog.h"
#include "documents/page.h"
#include "persistence/oxnwalker.h"

#include <QFont>
#include <QGraphicsItem>

namespace {

class CountingWriter : public StreamElementWriter
{
public:
    using StreamElementWriter::StreamElementWriter;

    void startElement(QLatin1String tag) override
    {
        ++count;
        StreamElementWriter::startElement(tag);
    }

    int count = 0;
};

/// Finds out what matters in a file: the document and how much is said about marks.
class OxnSummary : public OxnWalker
{
public:
    bool isOxn = false;
    QString text;
    QString link;
    int markElements = 0;

protected:
    void visitRoot(const ElementReader &root) override
    {
        isOxn = !root.string(XmlNames::fileVersion, QLatin1String()).isEmpty();
    }

    bool visitElement(ElementReader &element, int /*index*/) override
    {
        if (element.tag() == XmlNames::textContents)
            text = element.readText();
        else if (element.tag() == XmlNames::imageContents)
            link = element.string(XmlNames::imageLink, QLatin1String());
        else
            markElements += countElements(element);
        return true;
    }

    void visitEnd(int /*count*/) override {}

private:
    /// The current element and all inside it. Goes no deeper than a reader does.
    static int countElements(ElementReader &element)
    {
        int count = 1;
        while (element.enterNextChild()) {
            count += countElements(element);
            element.leaveChild();
        }
        return count;
    }
};

} // namespace

OxnWriter::OxnWriter(const Page &page) : m_page(page) {}

bool OxnWriter::write(QIODevice &device)
{
    CountingWriter writer(device);
    writer.writeDocumentType(XmlNames::documentType);
    writer.startElement(XmlNames::root);
    writeRootAttributes(writer);
    writer.writeComment(QLatin1String("This file was generated automatically. Do not modify it!"));
    writeContents(writer);
    writer.count = 0;
    for (QGraphicsItem *item : m_page.items(Qt::AscendingOrder)) {
        if (const auto *mark = dynamic_cast<Annotation *>(item))
            mark->write(writer);
    }
    m_elementCount = writer.count;
    (logTrace << " all annotations saved").eol(0);
    writer.endElement();
    return writer.flush();
}

void OxnWriter::writeRootAttributes(ElementWriter &writer) const
{
    writer.writeAttribute(XmlNames::fileVersion, QStringLiteral("v12042008"));
    if (m_page.documentKind() == Page::TextDocument) {
        const QFont font = m_page.documentFont();
        writer.writeAttribute(XmlNames::width, m_page.contentsWidth());
        writer.writeAttribute(XmlNames::height, m_page.contentsHeight());
        writer.writeAttribute(XmlNames::fontFamily, font.family());
        writer.writeAttribute(XmlNames::fontSize, font.pointSize());
    } else if (m_page.documentKind() == Page::ImageDocument) {
        writer.writeAttribute(XmlNames::width, m_page.sceneRect().width());
        writer.writeAttribute(XmlNames::height, m_page.sceneRect().height());
    }
    writer.writeAttribute(XmlNames::fileType, m_page.fileType());
}

/// A document made by hand can have a text and a picture. What comes last makes it a document of one kind or the other.
void OxnWriter::writeContents(ElementWriter &writer) const
{
    const bool isText = m_page.documentKind() == Page::TextDocument;
    if (!isText && !m_page.plainText().isEmpty())
        writeText(writer);
    // Also of a picture that could not be loaded.
    if (!m_page.imageLink().isEmpty())
        writeImageLink(writer);
    if (isText)
        writeText(writer);
}

void OxnWriter::writeText(ElementWriter &writer) const
{
    writer.startElement(XmlNames::textContents);
    writer.writeCData(m_page.plainText());
    writer.endElement();
}

void OxnWriter::writeImageLink(ElementWriter &writer) const
{
    writer.startElement(XmlNames::imageContents);
    writer.writeAttribute(XmlNames::imageLink, m_page.imageLink());
    writer.endElement();
}

bool OxnWriter::check(QIODevice &device) const
{
    OxnSummary summary;
    return summary.walk(device) && summary.isOxn && summary.text == m_page.plainText() &&
           summary.link == ElementWriter::attributeText(m_page.imageLink()) && summary.markElements == m_elementCount;
}
