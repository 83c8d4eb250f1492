// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "persistence/oxncontents.h"
#include "persistence/oxnwalker.h"

/// Reads an annotated file into memory, marks and all. Elements and attributes that it does not know are ignored:
/// later versions may write them.
class OxnReader : public OxnWalker
{
public:
    /// What the walk has found. Of use after walk() has returned true; leaves the reader empty.
    OxnContents takeContents();

protected:
    void visitRoot(const ElementReader &root) override;
    bool visitElement(ElementReader &element, int index) override;
    void visitEnd(int count) override;

private:
    void takeDocument(OxnContents::Kind kind, int index, const QString &text);

    OxnContents m_contents;
    int m_documents = 0; ///< Elements with a text or a picture so far.
};
