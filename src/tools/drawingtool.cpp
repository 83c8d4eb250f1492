// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/drawingtool.h"

#include "annotations/annotation.h"
#include "documents/page.h"

#include <utility>

namespace {

QColor withAlphaOf(QColor color, const QColor &alphaSource)
{
    color.setAlpha(alphaSource.alpha());
    return color;
}

} // namespace

DrawingTool::DrawingTool(bool followsSettings) : Tool(followsSettings), m_pen(QColor(Qt::blue))
{
    m_pen.setWidth(0);
}

DrawingTool::~DrawingTool()
{
    delete m_annotation;
}

void DrawingTool::setPenColor(const QColor &color)
{
    if (followsSettings())
        m_pen.setColor(withAlphaOf(color, m_pen.color()));
}

void DrawingTool::setBrushColor(const QColor &color)
{
    if (followsSettings())
        m_brush.setColor(withAlphaOf(color, m_brush.color()));
}

Annotation *DrawingTool::takeAnnotation()
{
    return std::exchange(m_annotation, nullptr);
}

void DrawingTool::abandonGesture()
{
    const QPointer<Page> page = std::exchange(m_page, nullptr);
    if (!m_annotation)
        return;
    setAnnotation(nullptr);
    if (page)
        page->invalidate();
}

QPen DrawingTool::pen() const
{
    return m_pen;
}

QBrush DrawingTool::brush() const
{
    return m_brush;
}

Annotation *DrawingTool::annotation() const
{
    return m_annotation;
}

bool DrawingTool::antialiasing() const
{
    return m_antialiasing;
}

bool DrawingTool::smoothing() const
{
    return m_smoothing;
}

void DrawingTool::setAntialiasing(bool on)
{
    if (followsSettings())
        m_antialiasing = on;
}

void DrawingTool::setSmoothing(bool on)
{
    if (followsSettings())
        m_smoothing = on;
}

void DrawingTool::setAnnotation(Annotation *annotation)
{
    delete std::exchange(m_annotation, annotation);
}

void DrawingTool::setPage(Page *page)
{
    m_page = page;
}

Page *DrawingTool::page() const
{
    return m_page;
}

void DrawingTool::setPen(const QPen &pen)
{
    m_pen = pen;
}

void DrawingTool::setBrush(const QBrush &brush)
{
    m_brush = brush;
}
