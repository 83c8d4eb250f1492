// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/elementwriter.h"

class QXmlStreamWriter;

/// Writes elements straight to a stream, attributes in the order of the calls.
class StreamElementWriter : public ElementWriter
{
public:
    /// @p xml is not owned and must outlive the writer.
    explicit StreamElementWriter(QXmlStreamWriter &xml);

    void startElement(QLatin1String tag) override;
    void endElement() override;

protected:
    void addAttribute(QLatin1String name, const QString &value) override;
    void addText(QStringView text) override;
    void addCData(QStringView text) override;

private:
    QXmlStreamWriter &m_xml;
};
