// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/qtdotnetstyle.h"

#include <QComboBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>
#include <QStatusBar>
#include <QStyleOptionMenuItem>
#include <QToolBar>

#include <cmath>

namespace {

/// Whether the widget lies in a tool bar or a dock widget.
bool liesInBar(const QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (qobject_cast<const QToolBar *>(widget) || qobject_cast<const QDockWidget *>(widget))
            return true;
        if (widget->isWindow())
            return false;
    }
    return false;
}

bool isMainWindowStatusBar(const QWidget *widget)
{
    const auto *window = widget ? qobject_cast<const QMainWindow *>(widget->window()) : nullptr;
    return window && window->findChild<QStatusBar *>(QString(), Qt::FindDirectChildrenOnly) == widget;
}

bool wantsHover(const QWidget *widget)
{
    return qobject_cast<const QMainWindow *>(widget) || qobject_cast<const QLineEdit *>(widget) ||
           qobject_cast<const QComboBox *>(widget);
}

QColor mixed(const QColor &first, const QColor &second, int percentOfSecond)
{
    const auto part = [percentOfSecond](int a, int b) {
        return (a * (100 - percentOfSecond) + b * percentOfSecond) / 100;
    };
    return {part(first.red(), second.red()), part(first.green(), second.green()), part(first.blue(), second.blue())};
}

/// The relative luminance of WCAG 2, 0 to 1.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Black or white, whichever has the greater contrast to @p background: (L + 0.05) / 0.05 against 1.05 / (L + 0.05).
QColor readableOn(const QColor &background)
{
    return luminance(background) > std::sqrt(1.05 * 0.05) - 0.05 ? Qt::black : Qt::white;
}

QLinearGradient gradientBetween(QPointF start, QPointF end, const QColor &first, const QColor &last)
{
    QLinearGradient gradient(start, end);
    gradient.setColorAt(0, first);
    gradient.setColorAt(1, last);
    return gradient;
}

QLinearGradient downwards(const QRect &rect, const QColor &top, const QColor &bottom)
{
    return gradientBetween(rect.topLeft(), rect.bottomLeft(), top, bottom);
}

QLinearGradient rightwards(const QRect &rect, const QColor &left, const QColor &right)
{
    return gradientBetween(rect.topLeft(), rect.topRight(), left, right);
}

/// The fill of hot and pressed tool buttons: the colour grows strong only below the icon, which stays easy to see.
QLinearGradient glow(const QRect &rect, const QColor &top, const QColor &color)
{
    QLinearGradient gradient = downwards(rect, top, color);
    gradient.setColorAt(0.7, mixed(top, color, 40));
    return gradient;
}

/// What lies behind the text in the middle of such a fill.
QColor middleOfGlow(const QColor &top, const QColor &color)
{
    return mixed(top, color, 30);
}

/// A frame of one logical pixel along the inner edge of @p rect, sharp at every device pixel ratio.
void drawFrame(QPainter *painter, const QRect &rect, const QColor &color)
{
    painter->save();
    painter->setPen(QPen(color, 1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
    painter->restore();
}

void drawToolBar(const QStyleOption *option, QPainter *painter, const DotNetColors &colors)
{
    const QRect rect = option->rect;
    const bool horizontal = option->state & QStyle::State_Horizontal;
    painter->fillRect(rect, horizontal ? downwards(rect, colors.lightEnd, colors.darkEnd)
                                       : rightwards(rect, colors.lightEnd, colors.darkEnd));
    const QRect edge = horizontal ? QRect(rect.left(), rect.bottom(), rect.width(), 1)
                                  : QRect(rect.right(), rect.top(), 1, rect.height());
    painter->fillRect(edge, colors.border);
}

/// A row of dots across the direction in which the tool bar runs.
void drawToolBarHandle(const QStyleOption *option, QPainter *painter, const DotNetColors &colors)
{
    constexpr int dot = 2;
    constexpr int step = 4;
    constexpr int margin = 5; ///< at both ends of the row
    const QRect rect = option->rect;
    const bool upright = option->state & QStyle::State_Horizontal;
    const int length = (upright ? rect.height() : rect.width()) - margin;
    for (int along = margin; along + dot <= length; along += step) {
        const QPoint place =
            upright ? QPoint(rect.center().x(), rect.top() + along) : QPoint(rect.left() + along, rect.center().y());
        painter->fillRect(QRect(place + QPoint(1, 1), QSize(dot, dot)), colors.lightEnd);
        painter->fillRect(QRect(place, QSize(dot, dot)), colors.frame);
    }
}

void drawToolBarSeparator(const QStyleOption *option, QPainter *painter, const DotNetColors &colors)
{
    constexpr int margin = 4; ///< at both ends of the line
    const QRect rect = option->rect;
    const bool upright = option->state & QStyle::State_Horizontal;
    const QRect line = upright ? QRect(rect.center().x(), rect.top() + margin, 1, rect.height() - 2 * margin)
                               : QRect(rect.left() + margin, rect.center().y(), rect.width() - 2 * margin, 1);
    painter->fillRect(line.translated(1, 1), colors.lightEnd);
    painter->fillRect(line, colors.frame);
}

} // namespace

QtDotNetStyle::QtDotNetStyle(int mode, ThemeSource source) : m_mode(mode), m_source(std::move(source)) {}

void QtDotNetStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (wantsHover(widget))
        widget->setAttribute(Qt::WA_Hover);
}

void QtDotNetStyle::unpolish(QWidget *widget)
{
    if (wantsHover(widget))
        widget->setAttribute(Qt::WA_Hover, false);
    QProxyStyle::unpolish(widget);
}

void QtDotNetStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                  const QWidget *widget) const
{
    switch (element) {
    case PE_PanelMenu:
        painter->fillRect(option->rect, rightwards(option->rect, colors(option).darkTint, colors(option).lightTint));
        drawFrame(painter, option->rect, colors(option).frame);
        return;
    case PE_FrameMenu:
        drawFrame(painter, option->rect, colors(option).frame);
        return;
    case PE_FrameDockWidget:
        drawFrame(painter, option->rect, colors(option).border);
        return;
    case PE_IndicatorToolBarHandle:
        drawToolBarHandle(option, painter, colors(option));
        return;
    case PE_IndicatorToolBarSeparator:
        drawToolBarSeparator(option, painter, colors(option));
        return;
    case PE_PanelStatusBar:
        if (isMainWindowStatusBar(widget)) {
            painter->fillRect(option->rect,
                              rightwards(option->rect, colors(option).darkTint, colors(option).lightTint));
            return;
        }
        break;
    case PE_PanelButtonTool:
    case PE_IndicatorButtonDropDown:
        if (liesInBar(widget) && toolButtonColor(option).isValid()) {
            drawToolButtonPanel(option, painter, toolButtonColor(option));
            return;
        }
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void QtDotNetStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                                const QWidget *widget) const
{
    switch (element) {
    case CE_ToolBar:
        drawToolBar(option, painter, colors(option));
        return;
    case CE_DockWidgetTitle:
        painter->fillRect(option->rect, downwards(option->rect, colors(option).lightEnd, colors(option).darkEnd));
        break;
    case CE_MenuBarItem:
    case CE_MenuBarEmptyArea:
        drawMenuBarElement(element, option, painter, widget);
        return;
    case CE_MenuItem:
        drawMenuItem(option, painter, widget);
        return;
    case CE_ToolButtonLabel:
        if (const auto *label = qstyleoption_cast<const QStyleOptionToolButton *>(option);
            label && liesInBar(widget) && toolButtonColor(option).isValid()) {
            QStyleOptionToolButton readable = *label;
            const QColor behind = middleOfGlow(colors(option).lightEnd, toolButtonColor(option));
            readable.palette.setColor(QPalette::ButtonText, readableOn(behind));
            QProxyStyle::drawControl(element, &readable, painter, widget);
            return;
        }
        break;
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

QRect QtDotNetStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    const bool dockButton = element == SE_DockWidgetCloseButton || element == SE_DockWidgetFloatButton;
    return dockButton ? rect.translated(0, 1) : rect;
}

DotNetColors QtDotNetStyle::colors(const QStyleOption *option) const
{
    return DotNetColors::ofTheme(DotNetColors::themeNumber(m_source(), m_mode), option->palette);
}

/// The fill of a tool button in its present state; invalid when it shows none.
QColor QtDotNetStyle::toolButtonColor(const QStyleOption *option) const
{
    const QStyle::State state = option->state;
    if (!(state & State_Enabled))
        return {};
    if (state & State_Sunken)
        return colors(option).pressed;
    if (state & State_MouseOver)
        return colors(option).hot;
    return state & State_On ? colors(option).pressed : QColor();
}

void QtDotNetStyle::drawToolButtonPanel(const QStyleOption *option, QPainter *painter, const QColor &color) const
{
    painter->fillRect(option->rect, glow(option->rect, colors(option).lightEnd, color));
    drawFrame(painter, option->rect, colors(option).highlightFrame);
}

void QtDotNetStyle::drawMenuBarElement(ControlElement element, const QStyleOption *option, QPainter *painter,
                                       const QWidget *widget) const
{
    const DotNetColors theme = colors(option);
    painter->fillRect(option->rect,
                      rightwards(widget ? widget->rect() : option->rect, theme.darkTint, theme.lightTint));
    const auto *original = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (element != CE_MenuBarItem || !original)
        return;
    QStyleOptionMenuItem item = *original;
    if ((item.state & State_Enabled) && (item.state & State_Selected)) {
        const QColor fill = item.state & State_Sunken ? theme.pressed : theme.hot;
        painter->fillRect(item.rect, fill);
        drawFrame(painter, item.rect, theme.highlightFrame);
        item.palette.setColor(QPalette::ButtonText, readableOn(fill));
    }
    // Icon and text alone; the platform's style would fill the item with a plain colour.
    QCommonStyle::drawControl(element, &item, painter, widget); // NOLINT(bugprone-parent-virtual-call)
}

void QtDotNetStyle::drawMenuItem(const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    const auto *original = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (!original)
        return;
    QStyleOptionMenuItem item = *original;
    const QColor hot = colors(option).hot;
    item.palette.setColor(QPalette::Highlight, hot);
    item.palette.setColor(QPalette::HighlightedText, readableOn(hot));
    QProxyStyle::drawControl(CE_MenuItem, &item, painter, widget);
}
