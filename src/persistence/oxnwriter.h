// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class ElementWriter;
class Page;
class QIODevice;

/// Writes a document with its marks as an annotated file: UTF-8, always the same bytes for the same document.
class OxnWriter
{
public:
    /// @p page is not owned and must outlive the writer, unchanged between write() and check().
    explicit OxnWriter(const Page &page);

    /// Writes the document and all marks on it, hidden ones too, bottom first, so that a reader that adds them in
    /// turn stacks them the same. False if @p device did not take everything.
    bool write(QIODevice &device);
    /// Reads back what write() has put into @p device, from its start. False if that is not the document.
    bool check(QIODevice &device) const;

private:
    void writeRootAttributes(ElementWriter &writer) const;
    void writeContents(ElementWriter &writer) const;
    void writeText(ElementWriter &writer) const;
    void writeImageLink(ElementWriter &writer) const;

    const Page &m_page;
    int m_elementCount = 0; ///< Elements that write() has written for marks.
};
