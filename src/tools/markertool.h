// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/stroketool.h"

/// Draws wide translucent freehand lines.
class MarkerTool : public StrokeTool
{
public:
    /// The alpha of @p color is replaced: a new marker is always translucent.
    MarkerTool(const QColor &color, bool followsSettings);

    QCursor makeCursor() override;

protected:
    void readSettings() override;
    Stroke *createStroke() const override;
};
