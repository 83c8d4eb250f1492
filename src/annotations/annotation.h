// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QString>

class ElementReader;
class ElementWriter;
class QDomDocument;
class QDomElement;
class QPainter;

/// What every mark on a document has in common.
///
/// A concrete mark derives from a Qt graphics item first and from Annotation second; a dynamic cast is the
/// only way from a scene item to its Annotation. A mark has no identifier and no link to the text under it:
/// its scene position is the only tie. While it is drawn it is off the scene and its geometry is in scene
/// coordinates; when the gesture ends, the geometry starts at the item's origin and pos() holds the place.
class Annotation
{
public:
    Annotation() = default;
    Annotation(const Annotation &) = delete;
    Annotation &operator=(const Annotation &) = delete;
    virtual ~Annotation();

    /// Draws the bare shape, without any selection look, with @p painter in scene coordinates.
    virtual void paintContent(QPainter *painter) = 0;
    /// A new, independent copy 20 scene units right of and below this mark; off every scene, owned by the caller.
    virtual Annotation *clone() = 0;
    /// One line for the log.
    virtual QString toDebugString() = 0;
    /// Appends this mark's element, created in @p document, to @p parent.
    virtual void saveToXml(QDomDocument &document, QDomElement &parent);
    /// Reads the fields from @p element; missing or damaged ones take their defaults. @p offset is not used.
    virtual void loadFromXml(const QDomElement &element, const QPointF &offset);
    /// Whether the mark is painted with QPainter::Antialiasing.
    virtual void setAntialiasing(bool on);
    virtual bool antialiasing() const;
    /// Simplifies the geometry where a class can do so.
    virtual void smooth();

    /// Writes this mark's element with all its fields: the one place that knows them. The attributes stand in a
    /// fixed order, so that the same mark always gives the same bytes.
    virtual void write(ElementWriter &writer) const = 0;
    /// Takes all fields from the current element of @p reader; missing or damaged ones take their defaults.
    virtual void read(ElementReader &reader) = 0;

private:
    bool m_antialiasing = false;
};
