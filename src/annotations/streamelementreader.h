// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/elementreader.h"

#include <QXmlStreamAttributes>

class QXmlStreamReader;

/// Walks over elements as they come from a stream. An error in the stream looks like the end of all elements;
/// the owner of the stream asks it.
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
    QXmlStreamAttributes m_attributes; ///< Of the current element.
    QString m_tag;
    int m_level = 1;     ///< Level of the current element; the first one is 1.
    int m_openLevel = 1; ///< Level of the innermost element whose end has not been read.
};
