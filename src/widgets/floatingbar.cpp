// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/floatingbar.h"

#include "widgets/viewhost.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QToolButton>

namespace {

constexpr int distanceFromRight = 60; ///< pixels between the bar's right edge and the window's

/// Place and size of the window. A window system takes its time to bring a window to the full screen, and until then
/// the window itself tells its old ones.
QRect areaOf(const QWidget *window)
{
    return window->isFullScreen() ? window->screen()->geometry() : QRect(window->pos(), window->size());
}

} // namespace

FloatingBar::FloatingBar(QWidget *parent)
    : QDialog(parent), m_host(dynamic_cast<ViewHost *>(parent)), m_layout(new QHBoxLayout(this))
{
    setWindowTitle(QStringLiteral("Kestrin 7"));
    setAttribute(Qt::WA_ShowWithoutActivating);
}

QToolButton *FloatingBar::addButton()
{
    auto *button = new QToolButton(this);
    button->setAutoRaise(true);
    m_layout->addWidget(button);
    return button;
}

ViewHost *FloatingBar::host() const
{
    return m_host;
}

void FloatingBar::showEvent(QShowEvent *event)
{
    if (const QWidget *window = parentWidget()) {
        const QRect area = areaOf(window);
        move(area.x() + area.width() - width() - distanceFromRight, area.y() + topWithin(area.height()));
    }
    QDialog::showEvent(event);
}

void FloatingBar::closeEvent(QCloseEvent *event)
{
    // When the whole program closes, the window may have gone first and must not be brought back.
    if (m_host && m_host->hostWindow()->isVisible())
        goBack();
    QDialog::closeEvent(event);
}

void FloatingBar::keyPressEvent(QKeyEvent *event)
{
    if (!event->matches(QKeySequence::Cancel))
        QDialog::keyPressEvent(event);
}

void FloatingBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
