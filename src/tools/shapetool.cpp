// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/shapetool.h"

#include "annotations/ellipseann.h"
#include "annotations/markitem.h"
#include "annotations/rectangleann.h"
#include "app/setting.h"
#include "tools/cursorpicture.h"
#include "tools/penstyles.h"
#include "tools/toolsettings.h"

#include <QAbstractGraphicsShapeItem>

#include <algorithm>
#include <cmath>

namespace {

constexpr int roundedRectangleKind = 1;
constexpr int ellipseKind = 2;

} // namespace

ShapeTool::ShapeTool(int kind, bool followsSettings)
    : DragTool(kind, {5.0, "Shapetool pressed", "Shapetool released"}, followsSettings)
{
    setBrushAlpha(120);
}

void ShapeTool::readSettings()
{
    const QSettings settings;
    QPen look = pen();
    look.setWidth(ToolSettings::lineWidth(settings, QStringLiteral("ShapeTool/LineWidth"), 1));
    look.setStyle(PenStyles::fromHyphenatedName(
        settingOr(settings, QStringLiteral("ShapeTool/LineStyle"), QStringLiteral("Solid")), look.style()));
    setPen(look);
    setBrushAlpha(ToolSettings::alpha(settings, QStringLiteral("ShapeTool/Transparency"), 60));
    setAntialiasing(settingOr(settings, QStringLiteral("ShapeTool/Antialiasing"), true));
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
    ShapeAnn *shape = createShape();
    shape->item().setPen(pen());
    shape->item().setBrush(brush());
    shape->setAntialiasing(antialiasing());
    MarkItem::makeHandy(shape->item());
    return shape;
}

ShapeAnn *ShapeTool::createShape() const
{
    if (kind() == ellipseKind)
        return new EllipseAnn;
    auto *rectangle = new RectangleAnn;
    rectangle->setRounded(kind() == roundedRectangleKind);
    return rectangle;
}

void ShapeTool::stretch(const QPointF &from, const QPointF &to)
{
    const double left = std::min(from.x(), to.x());
    const double top = std::min(from.y(), to.y());
    shape()->setBox(QRectF(left, top, std::abs(to.x() - from.x()), std::abs(to.y() - from.y())));
}

void ShapeTool::normalize()
{
    shape()->moveToOrigin(shape()->box().topLeft());
}

ShapeAnn *ShapeTool::shape() const
{
    return static_cast<ShapeAnn *>(annotation());
}

void ShapeTool::setBrushAlpha(int alpha)
{
    QBrush look = brush();
    QColor color = look.color();
    color.setAlpha(alpha);
    look.setColor(color);
    setBrush(look);
}
