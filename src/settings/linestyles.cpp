// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/linestyles.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QPainter>
#include <QPixmap>

#include <array>

namespace {

struct LineStyle
{
    Qt::PenStyle style;
    const char *name;
};

constexpr std::array lineStyles{
    LineStyle{Qt::SolidLine, QT_TRANSLATE_NOOP("LineStyles", "Solid")},
    LineStyle{Qt::DashLine, QT_TRANSLATE_NOOP("LineStyles", "Dash")},
    LineStyle{Qt::DotLine, QT_TRANSLATE_NOOP("LineStyles", "Dot")},
    LineStyle{Qt::DashDotLine, QT_TRANSLATE_NOOP("LineStyles", "Dash Dot")},
    LineStyle{Qt::DashDotDotLine, QT_TRANSLATE_NOOP("LineStyles", "Dash Dot Dot")},
};

/// In logical pixels.
constexpr QSize pictureSize(50, 16);

/// A sample of the style on a framed strip, sharp on a screen with @p ratio device pixels per logical pixel.
QPixmap styleSample(Qt::PenStyle style, qreal ratio)
{
    QPixmap picture(pictureSize * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::black, 1, style));
    painter.drawLine(3, 8, 46, 8);
    painter.setPen(QPen(QColor(120, 120, 255, 102), 0));
    painter.drawRect(0, 1, 48, 13);
    return picture;
}

} // namespace

void LineStyles::fill(QComboBox *box)
{
    box->setIconSize(pictureSize);
    for (const LineStyle &style : lineStyles)
        box->addItem(styleSample(style.style, box->devicePixelRatioF()), QString(), QString::fromLatin1(style.name));
    retranslate(box);
    box->setCurrentIndex(0);
}

void LineStyles::retranslate(QComboBox *box)
{
    for (int i = 0; i < box->count(); ++i)
        box->setItemText(i, QCoreApplication::translate("LineStyles", lineStyles.at(std::size_t(i)).name));
}
