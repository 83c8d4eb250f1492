// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/brackettool.h"

#include "annotations/bracketann.h"
#include "annotations/markitem.h"
#include "tools/cursorpicture.h"
#include "tools/penstyles.h"

BracketTool::BracketTool(int style)
    : StraightLineTool(style, {10.0, "BracketTool pressed", "Bracket tool released"}, true)
{
}

QCursor BracketTool::makeCursor()
{
    const QPoint hotSpot(6, 6);
    CursorPicture picture(20, 20);
    picture.drawCenteredCross(hotSpot, pen().color());
    // Filled rather than drawn as lines, which would lie half a pixel off on sharp screens.
    for (const QRect &side : {QRect(10, 10, 4, 1), QRect(13, 10, 1, 9), QRect(10, 18, 4, 1)})
        picture.painter().fillRect(side, QColor(20, 20, 20, 255));
    return picture.toCursor(hotSpot);
}

Qt::PenStyle BracketTool::penStyle(const QString &name, Qt::PenStyle current) const
{
    return PenStyles::fromHyphenatedName(name, current);
}

Annotation *BracketTool::createAnnotation() const
{
    // The tool's antialiasing is not handed on: brackets keep the one they are made with.
    auto *bracket = new BracketAnn;
    bracket->setLinePen(pen());
    MarkItem::makeHandy(*bracket);
    if (kind() == 0 || kind() == 1)
        bracket->setStyle(kind());
    return bracket;
}
