// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/annotation.h"

#include <QGraphicsItem>

#include <array>

/// An active tag as it stands in a file. It shows nothing and cannot be hit: all it does is keep what was read, so
/// that a save writes it again, at its place on the page.
class StoredTag : public QGraphicsItem, public Annotation
{
public:
    explicit StoredTag(QGraphicsItem *parent = nullptr);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    void paintContent(QPainter *painter) override;
    StoredTag *clone() override;
    QString toDebugString() override;
    void write(ElementWriter &writer) const override;
    /// Fields that are missing take their defaults; what the others hold is not looked at.
    void read(ElementReader &reader) override;

private:
    static constexpr std::size_t fieldCount = 18;

    QString m_category;
    std::array<QString, fieldCount> m_fields; ///< All other attributes but the position, in the order of the file.
    QString m_description;
};
