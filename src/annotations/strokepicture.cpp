// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/strokepicture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

/// Above that, copying the pixels around a line costs about as much as drawing it.
constexpr double mostPixels = 1 << 14;
constexpr double longestSide = 1 << 12;
/// Pictures of some ten thousand short strokes, in KiB.
constexpr int cacheLimit = 64 << 10;

/// Whether a picture of what has these bounds, in pixels, is small and no number overflows on the way to it.
bool isSmall(const QRectF &bounds)
{
    const double reach =
        std::max({-bounds.left(), bounds.right(), -bounds.top(), bounds.bottom(), bounds.width(), bounds.height()});
    return reach < longestSide && bounds.width() * bounds.height() <= mostPixels;
}

} // namespace

bool StrokePicture::Look::operator==(const Look &other) const
{
    return antialiasing == other.antialiasing && pen == other.pen && points == other.points;
}

bool StrokePicture::paint(QPainter *painter, const Look &look, const QRectF &bounds)
{
    constexpr int rim = 2; // for the thinnest line, whose width is none, and its smoothing
    const double ratio = painter->device()->devicePixelRatio();
    const QTransform whole = painter->worldTransform() * QTransform::fromScale(ratio, ratio);
    const QPointF corner(std::floor(whole.dx()), std::floor(whole.dy()));
    const QTransform toPixels = whole * QTransform::fromTranslate(-corner.x(), -corner.y());
    const QRectF exact = toPixels.mapRect(bounds);
    if (whole.type() > QTransform::TxScale || ratio != std::floor(ratio) || !isSmall(exact))
        return false;
    const QRect area = exact.toAlignedRect().adjusted(-rim, -rim, rim, rim);
    QPixmap picture;
    if (m_toPixels != toPixels || !(m_look == look) || !QPixmapCache::find(m_key, &picture)) {
        m_toPixels = toPixels;
        m_look = look;
        picture = draw(area);
        QPixmapCache::setCacheLimit(std::max(cacheLimit, QPixmapCache::cacheLimit()));
        m_key = QPixmapCache::insert(picture);
    }
    picture.setDevicePixelRatio(ratio);
    const QTransform itemToPainter = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    painter->drawPixmap((corner + area.topLeft()) / ratio, picture);
    painter->setWorldTransform(itemToPainter);
    return true;
}

/// The pixels of @p area.
QPixmap StrokePicture::draw(const QRect &area) const
{
    QPixmap picture(area.size());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing, m_look.antialiasing);
    painter.setWorldTransform(m_toPixels * QTransform::fromTranslate(-area.x(), -area.y()));
    painter.setPen(m_look.pen);
    painter.drawPolyline(m_look.points);
    return picture;
}
