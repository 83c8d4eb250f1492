// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/dragtool.h"

class StraightAnn;

/// Lines and brackets: both are drawn along a straight line and share their keys.
class StraightLineTool : public DragTool
{
protected:
    using DragTool::DragTool;

    void readSettings() override;
    /// The style that a stored name stands for; @p current for a name that the tool does not know.
    virtual Qt::PenStyle penStyle(const QString &name, Qt::PenStyle current) const = 0;
    void stretch(const QPointF &from, const QPointF &to) override;
    void normalize() override;

private:
    StraightAnn *mark() const;
};
