// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/stroke.h"

/// A stroke of the marker: wide, and translucent through the alpha of its pen's colour.
class MarkerLine : public Stroke
{
public:
    explicit MarkerLine(QGraphicsItem *parent = nullptr);

    Annotation *clone() override;
    QString toDebugString() override;

protected:
    QLatin1String elementName() const override;
    QString selectionKey() const override;
};
