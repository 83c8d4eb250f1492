// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class ElementReader;
class QIODevice;
class QXmlStreamReader;

/// Walks once through an annotated file, element by element, without ever holding more of it than one element.
/// Derived classes say what to do with what stands there.
class OxnWalker
{
public:
    OxnWalker() = default;
    OxnWalker(const OxnWalker &) = delete;
    OxnWalker &operator=(const OxnWalker &) = delete;
    virtual ~OxnWalker();

    /// Goes through @p device, which is open and at its start. False if what stands there is no well-formed XML,
    /// declares entities or the like, or is beyond all bounds of depth and number of attributes; by then some of it
    /// may have been visited. errorString() then says why and where.
    bool walk(QIODevice &device);
    QString errorString() const;

protected:
    /// The root element: only its attributes are to be read.
    virtual void visitRoot(const ElementReader &root) = 0;
    /// A child of the root. @p index counts from 0 over all kinds of nodes, comments included. False if it is one too
    /// many: the walk then ends and fails.
    virtual bool visitElement(ElementReader &element, int index) = 0;
    /// All children have been visited; @p count nodes of all kinds.
    virtual void visitEnd(int count) = 0;

private:
    void walkChildren(QXmlStreamReader &xml);

    QString m_errorString;
};
