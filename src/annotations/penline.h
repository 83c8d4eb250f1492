// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/stroke.h"

/// A stroke of the pen.
class PenLine : public Stroke
{
public:
    explicit PenLine(QGraphicsItem *parent = nullptr);

    PenLine *clone() override;
    QString toDebugString() override;
    void finishCapture(bool apply) override;
    /// Removes points inside straight runs. Directions are compared for exact equality, so that a run is found
    /// only where rounding agrees; a point that stands twice cuts off what follows it, but for the last two points.
    void smooth() override;

protected:
    QLatin1String elementName() const override;
    QString selectionKey() const override;
};
