// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/annotation.h"

#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QPainter>

/// A mark without a look of its own: a red square that counts how many of its kind live.
class TestMark : public QGraphicsRectItem, public Annotation
{
public:
    static constexpr double side = 20.0;

    explicit TestMark(const QPointF &pos = QPointF()) : QGraphicsRectItem(0, 0, side, side)
    {
        setPos(pos);
        setBrush(Qt::red);
        setPen(Qt::NoPen);
        setFlag(ItemIsMovable);
        setFlag(ItemIsSelectable);
        ++living;
    }
    ~TestMark() override { --living; }

    void paintContent(QPainter *painter) override
    {
        ++contentPaintings;
        painter->fillRect(rect().translated(pos()), Qt::blue);
    }
    Annotation *clone() override { return new TestMark(pos() + QPointF(20.0, 20.0)); }
    QString toDebugString() override { return QStringLiteral("test mark"); }
    void write(ElementWriter & /*writer*/) const override {}
    void read(ElementReader & /*reader*/) override {}

    int contentPaintings = 0;
    inline static int living = 0;
};

/// The marks on @p scene.
inline QList<TestMark *> marksOn(const QGraphicsScene &scene)
{
    QList<TestMark *> marks;
    for (QGraphicsItem *item : scene.items(Qt::AscendingOrder)) {
        if (auto *mark = dynamic_cast<TestMark *>(item))
            marks.append(mark);
    }
    return marks;
}
