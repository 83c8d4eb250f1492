// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/linetool.h"

#include "annotations/lineann.h"
#include "annotations/markitem.h"
#include "tools/cursorpicture.h"
#include "tools/penstyles.h"

LineTool::LineTool(int style) : StraightLineTool(style, {5.0, "LineTool pressed", "LineTool released"}, true) {}

QCursor LineTool::makeCursor()
{
    const QPoint hotSpot(6, 6);
    CursorPicture picture(20, 20);
    picture.drawCenteredCross(hotSpot, pen().color());
    picture.painter().drawLine(10, 18, 18, 10);
    return picture.toCursor(hotSpot);
}

Qt::PenStyle LineTool::penStyle(const QString &name, Qt::PenStyle current) const
{
    return PenStyles::fromSpacedName(name, current);
}

Annotation *LineTool::createAnnotation() const
{
    constexpr int lastStyle = 7;
    auto *line = new LineAnn;
    line->setLinePen(pen());
    line->setAntialiasing(antialiasing());
    MarkItem::makeHandy(*line);
    if (kind() >= 0 && kind() <= lastStyle)
        line->setStyle(kind());
    return line;
}
