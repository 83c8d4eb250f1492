// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/dotnetcolors.h"
#include "widgets/runningtheme.h"

#include <QProxyStyle>

#include <functional>

/// The application's style: the platform's own, with soft gradients on menus, tool bars, dock titles and the status
/// bar in the colours of the running theme.
///
/// Elements that are not named here, and all geometry but that of the dock buttons, are the platform style's.
class QtDotNetStyle : public QProxyStyle
{
    Q_OBJECT

public:
    using ThemeSource = std::function<RunningTheme()>;

    /// @p mode other than 0 makes more themes count, see DotNetColors::themeNumber(). @p source tells the running
    /// theme; it is asked at every painting.
    explicit QtDotNetStyle(int mode = 0, ThemeSource source = runningTheme);

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;
    void polish(QWidget *widget) override;
    void unpolish(QWidget *widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *widget = nullptr) const override;

private:
    /// The colours of the theme that runs now; those that a theme leaves to the palette are the option's.
    DotNetColors colors(const QStyleOption *option) const;
    QColor toolButtonColor(const QStyleOption *option) const;
    void drawToolButtonPanel(const QStyleOption *option, QPainter *painter, const QColor &color) const;
    void drawMenuBarElement(ControlElement element, const QStyleOption *option, QPainter *painter,
                            const QWidget *widget) const;
    void drawMenuItem(const QStyleOption *option, QPainter *painter, const QWidget *widget) const;

    int m_mode;
    ThemeSource m_source;
};
