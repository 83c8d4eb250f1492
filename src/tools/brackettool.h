// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/straightlinetool.h"

/// Draws brackets along a stretch of the document.
class BracketTool : public StraightLineTool
{
public:
    /// @p style is 0 for curly, 1 for rectangular.
    explicit BracketTool(int style);

    QCursor makeCursor() override;

protected:
    Annotation *createAnnotation() const override;
    Qt::PenStyle penStyle(const QString &name, Qt::PenStyle current) const override;
};
