// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/elementreader.h"

#include <QXmlStreamAttributes>

class QXmlStreamReader;

/// Walks over elements as they come from a stream. An error in the stream looks like the end of all elements; the
/// owner of the stream asks it. Nesting beyond all use is such an error.
class StreamElementReader : public ElementReader
{
public:
    /// The start of an element has just been read from @p xml: it is current at first. @p xml is not owned and
    /// must outlive the reader.
    explicit StreamElementReader(QXmlStreamReader &xml);

    bool enterNextChild() override;
    void leaveChild() override;
    QStringView tag() const override;
    QString readText() override;

protected:
    std::optional<QStringView> attribute(QLatin1String name) const override;

private:
    void readNext();

    QXmlStreamReader &m_xml;
    /// Of the element whose start has been read last; asked for when needed.
    mutable std::optional<QXmlStreamAttributes> m_attributes;
    int m_level = 1;     ///< Level of the current element; the first one is 1.
    int m_openLevel = 1; ///< Level of the innermost element whose end has not been read.
};
