// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/tool.h"

#include <QBrush>
#include <QPen>
#include <QPointer>

class Annotation;

/// A tool whose gesture builds a mark. The tool owns the mark under construction until it is taken.
class DrawingTool : public Tool
{
public:
    explicit DrawingTool(bool followsSettings);
    ~DrawingTool() override;

    /// Takes red, green and blue of @p color and keeps the pen's alpha; only if followsSettings().
    virtual void setPenColor(const QColor &color);
    /// The same for the brush.
    virtual void setBrushColor(const QColor &color);
    /// Gives up the mark under construction: the caller owns it. Null when there is none.
    virtual Annotation *takeAnnotation();
    /// Deletes the mark under construction and has its page painted anew without it.
    void abandonGesture() override;

    QPen pen() const;
    QBrush brush() const;
    /// The mark under construction, still owned by the tool, or null.
    Annotation *annotation() const;
    bool antialiasing() const;
    bool smoothing() const;
    /// The setters act only if followsSettings().
    void setAntialiasing(bool on);
    void setSmoothing(bool on);

protected:
    /// Starts a mark; one left over from a gesture that never ended is deleted.
    void setAnnotation(Annotation *annotation);
    /// Remembers the page of the press, which may be null, until the gesture ends.
    void setPage(Page *page);
    /// The page of the running gesture; null between gestures and when the page has gone meanwhile.
    Page *page() const;
    void setPen(const QPen &pen);
    void setBrush(const QBrush &brush);

private:
    Annotation *m_annotation = nullptr;
    QPointer<Page> m_page;
    QPen m_pen;
    QBrush m_brush{Qt::SolidPattern};
    bool m_antialiasing = true;
    bool m_smoothing = false;
};
