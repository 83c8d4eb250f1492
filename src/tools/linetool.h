// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/straightlinetool.h"

/// Draws straight lines, arrows and lines with circles.
class LineTool : public StraightLineTool
{
public:
    /// @p style is one of the numbers of LineAnn::setStyle().
    explicit LineTool(int style);

    QCursor makeCursor() override;

protected:
    Annotation *createAnnotation() const override;
    Qt::PenStyle penStyle(const QString &name, Qt::PenStyle current) const override;
};
