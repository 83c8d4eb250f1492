// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/shapetool.h"

#include "tools/cursorpicture.h"
#include "tools/penstyles.h"
#include "tools/toolsettings.h"

#include <QSettings>

namespace {

constexpr int roundedRectangleKind = 1;
constexpr int ellipseKind = 2;

} // namespace

ShapeTool::ShapeTool(int kind, bool followsSettings)
    : DragTool(kind, {5.0, "Shapetool pressed", "Shapetool released"}, followsSettings)
{
    setBrushAlpha(120);
}

void ShapeTool::updateSettings()
{
    if (!followsSettings())
        return;
    const QSettings settings;
    QPen look = pen();
    look.setWidth(ToolSettings::lineWidth(settings, QStringLiteral("ShapeTool/LineWidth"), 1));
    look.setStyle(PenStyles::fromHyphenatedName(
        settings.value(QStringLiteral("ShapeTool/LineStyle"), QStringLiteral("Solid")).toString(), look.style()));
    setPen(look);
    setBrushAlpha(ToolSettings::alpha(settings, QStringLiteral("ShapeTool/Transparency"), 60));
    setAntialiasing(settings.value(QStringLiteral("ShapeTool/Antialiasing"), true).toBool());
}

QCursor ShapeTool::makeCursor()
{
    const QPoint hotSpot(6, 6);
    CursorPicture picture(24, 20);
    picture.drawCenteredCross(hotSpot, pen().color());
    QPainter &painter = picture.painter();
    painter.setPen(pen().color());
    const QRect box(QPoint(10, 10), QPoint(21, 17));
    if (kind() == ellipseKind)
        painter.drawEllipse(box);
    else if (kind() == roundedRectangleKind)
        painter.drawRoundedRect(QRect(10, 10, 12, 8), 50, 50, Qt::RelativeSize);
    else
        painter.drawRect(box);
    return picture.toCursor(hotSpot);
}

Annotation *ShapeTool::createAnnotation() const
{
    return nullptr;
}

void ShapeTool::stretch(const QPointF & /*from*/, const QPointF & /*to*/) {}
void ShapeTool::normalize() {}

void ShapeTool::setBrushAlpha(int alpha)
{
    QBrush look = brush();
    QColor color = look.color();
    color.setAlpha(alpha);
    look.setColor(color);
    setBrush(look);
}
