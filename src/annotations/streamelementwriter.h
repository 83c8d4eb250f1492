// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/elementwriter.h"

#include <QByteArray>
#include <QList>

class QIODevice;

/// Writes elements straight to a device, in UTF-8: attributes in the order of the calls, each element on a line of
/// its own, children indented by two blanks, no white space where an element has text.
class StreamElementWriter : public ElementWriter
{
public:
    /// @p device is open for writing, not owned, and must outlive the writer.
    explicit StreamElementWriter(QIODevice &device);

    /// Stands outside the outermost element, before it.
    void writeDocumentType(QLatin1String name);
    void startElement(QLatin1String tag) override;
    void endElement() override;
    /// @p text holds no two hyphens in a row.
    void writeComment(QLatin1String text);

    /// Hands all that has been written to the device. False if it did not take everything, now or earlier.
    bool flush();

protected:
    void addAttribute(QLatin1String name, QUtf8StringView value) override;
    void addText(QStringView text) override;
    void addCData(QStringView text) override;

private:
    struct OpenElement
    {
        QLatin1String tag;
        bool hasChildren = false;
        bool hasText = false; ///< No white space may be added to it.
    };

    void append(QLatin1String text) { m_buffer.append(text.data(), text.size()); }
    /// Ends the start tag of the innermost element, if that is still being written.
    void closeTag();
    /// Starts a line for a child of the innermost element.
    void startLineForChild();
    void startLine(qsizetype level);
    void startText();

    QIODevice &m_device;
    QByteArray m_buffer;       ///< Written, but not yet handed to the device.
    QList<OpenElement> m_open; ///< Outermost first.
    bool m_inTag = false;
    bool m_failed = false;
};
