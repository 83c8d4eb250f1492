// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "app/eventlog.h"
#include "app/setting.h"
#include "documents/page.h"
#include "settings/configdialog.h"
#include "widgets/fullscreendialog.h"
#include "widgets/qtcolorpicker.h"
#include "widgets/qttoolbarmanager.h"
#include "widgets/viewmodedialog.h"

#include <QToolBar>
#include <QWindow>

#include <algorithm>
#include <optional>

namespace {

/// Beyond what any desktop has, a stored size or position can only be damage.
constexpr int largestDesktop = 16384;
constexpr QSize largestWindow(largestDesktop, largestDesktop);

QPoint onDesktop(const QPoint &position)
{
    return {std::clamp(position.x(), -largestDesktop, largestDesktop),
            std::clamp(position.y(), -largestDesktop, largestDesktop)};
}

} // namespace

void Scrivara::loadSettings()
{
    TRACE_ENTER;
    const QSettings settings;
    const QByteArray windowState = settingOr(settings, QStringLiteral("General/WindowState"), QByteArray());
    restoreState(windowState, 0);
    m_toolBarManager->restoreState(settingOr(settings, QStringLiteral("General/ToolBarsState"), QByteArray()), 0);
    // The user's own bars were not there before; now they go to their places too.
    restoreState(windowState, 0);
    m_appLanguage = settingOr(settings, QStringLiteral("Other/AppLanguage"), QStringLiteral("default"));
    // Unlike switchLanguage(): at start "default" is English, whatever the system speaks.
    const QString locale = m_appLanguage == QLatin1String("default") ? QStringLiteral("en") : m_appLanguage;
    loadTranslations(locale);
    (logTrace << " locale, " << locale.toLatin1().constData()).eol(0);
    m_lineColorPicker->setCurrentColor(
        QColor(settingOr(settings, QStringLiteral("General/PenColor"), QStringLiteral("#0a0aa2"))));
    m_fillColorPicker->setCurrentColor(QColor(settingOr(settings, QStringLiteral("General/BrushColor"), QString())));
    fullScreenMode(settingOr(settings, QStringLiteral("Other/FullscreenAtStart"), false));
    TRACE_LEAVE;
}

void Scrivara::saveSettings()
{
    TRACE_ENTER;
    QSettings settings;
    settings.setValue(QStringLiteral("General/PenColor"), m_lineColorPicker->currentColor().name());
    settings.setValue(QStringLiteral("General/BrushColor"), m_fillColorPicker->currentColor().name());
    if (m_viewMode == StandardView) {
        settings.setValue(QStringLiteral("General/WindowState"), saveState(0));
        settings.setValue(QStringLiteral("General/ToolBarsState"), m_toolBarManager->saveState(0));
    }
    settings.setValue(QStringLiteral("General/WindowMaximized"), isMaximized());
    settings.setValue(QStringLiteral("General/WindowPosition"), pos());
    settings.setValue(QStringLiteral("General/WindowSize"), geometry().size());
    settings.setValue(QStringLiteral("Other/AppLanguage"), m_appLanguage);
    TRACE_LEAVE;
}

QWidgetList Scrivara::mappableParts()
{
    QWidgetList parts{this, m_fullscreenDialog, m_viewModeDialog};
    for (QToolBar *bar : findChildren<QToolBar *>())
        parts.append(bar);
    return parts;
}

/// Loading the settings shows the window and its bars long before it is complete. With this attribute they count as
/// shown, are laid out and take focus, but no half-built window flashes on the screen.
void Scrivara::holdMapping()
{
    for (QWidget *part : mappableParts())
        part->setAttribute(Qt::WA_DontShowOnScreen);
}

/// Ends what holdMapping() began; returns the windows beside this one that should come on the screen after it.
QWidgetList Scrivara::releaseMapping()
{
    QWidgetList waiting;
    if (!testAttribute(Qt::WA_DontShowOnScreen))
        return waiting;
    for (QWidget *part : mappableParts()) {
        const bool shownUnseen = part->isWindow() && part->isVisible();
        if (shownUnseen)
            part->hide();
        part->setAttribute(Qt::WA_DontShowOnScreen, false);
        if (shownUnseen && part != this)
            waiting.append(part);
    }
    // A window that the system has not seen yet is placed by its frame, which is what pos() gave when it was saved;
    // with the native window of the unseen time it would be placed by its contents and creep up at every start.
    destroy();
    return waiting;
}

void Scrivara::showWindow()
{
    const QWidgetList waiting = releaseMapping();
    const QSettings settings;
    if (settingOr(settings, QStringLiteral("General/WindowMaximized"), true)) {
        showMaximized();
    } else {
        resize(settingOr(settings, QStringLiteral("General/WindowSize"), QSize(1000, 800)).boundedTo(largestWindow));
        move(onDesktop(settingOr(settings, QStringLiteral("General/WindowPosition"), QPoint(50, 50))));
        showNormal();
    }
    // Each of the calls above leaves full screen, which the settings may have asked for before.
    if (m_fullScreen)
        showFullScreen();
    for (QWidget *part : waiting) {
        // Its window belonged to the one of the unseen time. A window that belongs to nobody would keep the program
        // running after the main window has closed.
        if (part->windowHandle() != nullptr)
            part->windowHandle()->setTransientParent(windowHandle());
        part->show();
    }
}

void Scrivara::showConfigDialog(int tabNum)
{
    TRACE_ENTER;
    (logTrace << "Show config dialog").eol(0);
    if (m_configDialog == nullptr)
        m_configDialog = new ConfigDialog(tabNum, this);
    else
        m_configDialog->selectPage(tabNum);
    const Page *page = currentPage();
    m_configDialog->setDocumentFont(page != nullptr ? std::optional(page->documentFont()) : std::nullopt);
    centreOnWindow(m_configDialog);
    if (m_configDialog->exec() == QDialog::Accepted) {
        updateCurrentState();
        const QFont font = m_configDialog->documentFont();
        updateDocFont(font.family(), font.pointSize());
    }
    TRACE_LEAVE;
}

/// A dialog that is as wide or as high as the window stays where the system puts it.
void Scrivara::centreOnWindow(QDialog *dialog) const
{
    const QPoint offset((geometry().width() - dialog->width()) / 2, (geometry().height() - dialog->height()) / 2);
    if (offset.x() > 0 && offset.y() > 0)
        dialog->move(pos() + offset);
}
