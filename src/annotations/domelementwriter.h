// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/elementwriter.h"

#include <QDomDocument>

/// Builds elements inside a document held in memory.
class DomElementWriter : public ElementWriter
{
public:
    /// Elements are created in @p document and appended to @p parent, which is open at first.
    DomElementWriter(const QDomDocument &document, const QDomElement &parent);

    void startElement(QLatin1String tag) override;
    void endElement() override;

protected:
    void addAttribute(QLatin1String name, QUtf8StringView value) override;
    void addText(QStringView text) override;
    void addCData(QStringView text) override;

private:
    QDomDocument m_document;
    QDomElement m_open;
};
