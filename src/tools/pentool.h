// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/stroketool.h"

/// Draws thin freehand lines.
class PenTool : public StrokeTool
{
public:
    /// @p width in scene units; 0 is the thinnest line at any zoom.
    PenTool(const QColor &color, int width, bool followsSettings);

    QCursor makeCursor() override;

protected:
    void readSettings() override;
    Stroke *createStroke() const override;
};
