// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/qtcolorpicker.h"

#include "widgets/colorpickeritem.h"
#include "widgets/colorpickerpopup.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace {

struct StandardColor
{
    Qt::GlobalColor color;
    const char *text;
};

constexpr StandardColor standardColors[] = {
    {Qt::black, QT_TRANSLATE_NOOP("QtColorPicker", "Black")},
    {Qt::white, QT_TRANSLATE_NOOP("QtColorPicker", "White")},
    {Qt::red, QT_TRANSLATE_NOOP("QtColorPicker", "Red")},
    {Qt::darkRed, QT_TRANSLATE_NOOP("QtColorPicker", "Dark red")},
    {Qt::green, QT_TRANSLATE_NOOP("QtColorPicker", "Green")},
    {Qt::darkGreen, QT_TRANSLATE_NOOP("QtColorPicker", "Dark green")},
    {Qt::blue, QT_TRANSLATE_NOOP("QtColorPicker", "Blue")},
    {Qt::darkBlue, QT_TRANSLATE_NOOP("QtColorPicker", "Dark blue")},
    {Qt::cyan, QT_TRANSLATE_NOOP("QtColorPicker", "Cyan")},
    {Qt::darkCyan, QT_TRANSLATE_NOOP("QtColorPicker", "Dark cyan")},
    {Qt::magenta, QT_TRANSLATE_NOOP("QtColorPicker", "Magenta")},
    {Qt::darkMagenta, QT_TRANSLATE_NOOP("QtColorPicker", "Dark magenta")},
    {Qt::yellow, QT_TRANSLATE_NOOP("QtColorPicker", "Yellow")},
    {Qt::darkYellow, QT_TRANSLATE_NOOP("QtColorPicker", "Dark yellow")},
    {Qt::gray, QT_TRANSLATE_NOOP("QtColorPicker", "Gray")},
    {Qt::darkGray, QT_TRANSLATE_NOOP("QtColorPicker", "Dark gray")},
    {Qt::lightGray, QT_TRANSLATE_NOOP("QtColorPicker", "Light gray")},
};

} // namespace

QtColorPicker::QtColorPicker(QWidget *parent, int columns, bool enableColorDialog)
    : QToolButton(parent),
      m_popup(new ColorPickerPopup(columns, enableColorDialog, this)),
      m_withColorDialog(enableColorDialog)
{
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);
    setCheckable(true);
    connect(m_popup, &ColorPickerPopup::selected, this, &QtColorPicker::setCurrentColor);
    connect(m_popup, &ColorPickerPopup::hid, this, &QtColorPicker::popupClosed);
    connect(this, &QtColorPicker::toggled, this, &QtColorPicker::buttonPressed);
    drawIcon(); // a button without an icon is laid out for its text
}

QColor QtColorPicker::currentColor() const
{
    return m_currentColor;
}

bool QtColorPicker::colorDialogEnabled() const
{
    return m_withColorDialog;
}

void QtColorPicker::insertColor(const QColor &color, const QString &text, int index)
{
    m_popup->insertColor(color, text, index);
    if (!m_firstInserted && color.isValid()) {
        m_firstInserted = true;
        makeCurrent(color);
    }
}

void QtColorPicker::setStandardColors()
{
    m_hasStandardColors = true;
    for (const StandardColor &standard : standardColors)
        insertColor(standard.color, tr(standard.text));
}

void QtColorPicker::setCurrentColor(const QColor &col)
{
    if (!col.isValid() || col.rgba() == m_currentColor.rgba())
        return;
    if (!m_popup->find(col))
        m_popup->insertCustomColor(col);
    m_firstInserted = true;
    makeCurrent(col);
    m_popup->hide();
    m_popup->find(col)->setSelected(true);
    emit colorChanged(col);
}

void QtColorPicker::paintEvent(QPaintEvent * /*event*/)
{
    if (m_dirty || !qFuzzyCompare(m_iconRatio, devicePixelRatioF()))
        drawIcon();
    // As the base class paints, but with the icon at its own size: a tool bar would have it blown up to the size of
    // its icons at higher device pixel ratios.
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.iconSize = QSize(smallIconSize(), smallIconSize());
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
}

void QtColorPicker::changeEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::LanguageChange:
        retranslate();
        break;
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        m_dirty = true;
        break;
    default:
        break;
    }
    QToolButton::changeEvent(event);
}

void QtColorPicker::buttonPressed(bool toggled)
{
    if (!toggled)
        return;
    m_popup->adjustSize();
    m_popup->move(popupPosition());
    if (ColorPickerItem *item = m_popup->find(m_currentColor))
        item->setSelected(true);
    if (QWidget *focused = m_popup->focusWidget())
        focused->clearFocus();
    m_popup->setFocus();
    m_popup->show();
}

void QtColorPicker::popupClosed()
{
    setChecked(false);
    setFocus(Qt::OtherFocusReason);
}

void QtColorPicker::makeCurrent(const QColor &color)
{
    m_currentColor = color;
    setText(m_popup->find(color)->text());
    m_dirty = true;
    update();
}

QPoint QtColorPicker::popupPosition() const
{
    const QScreen *under = QGuiApplication::screenAt(mapToGlobal(rect().center()));
    const QRect desktop = (under ? under : screen())->availableGeometry();
    QRect popup(mapToGlobal(rect().bottomLeft()), m_popup->size());
    popup.moveLeft(qMax(popup.left(), desktop.left()));
    popup.moveTop(qMax(popup.top(), desktop.top()));
    popup.moveRight(qMin(popup.right(), desktop.right()));
    popup.moveBottom(qMin(popup.bottom(), desktop.bottom()));
    return popup.topLeft();
}

int QtColorPicker::smallIconSize() const
{
    return style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
}

void QtColorPicker::drawIcon()
{
    m_dirty = false;
    m_iconRatio = devicePixelRatioF();
    const int size = smallIconSize();
    QPixmap pixmap(QSize(size, size) * m_iconRatio);
    pixmap.setDevicePixelRatio(m_iconRatio);
    pixmap.fill(palette().color(QPalette::Button));

    QPainter painter(&pixmap);
    painter.setPen(QPen(palette().buttonText(), 1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(m_currentColor);
    // Half a pixel inwards, so that the outline lies inside the icon at every device pixel ratio.
    painter.drawRect(QRectF(0.5, 0.5, size - 1, size - 1));
    painter.end();
    setIcon(pixmap);
}

void QtColorPicker::retranslate()
{
    m_popup->retranslate();
    if (m_hasStandardColors) {
        for (const StandardColor &standard : standardColors) {
            ColorPickerItem *item = m_popup->find(standard.color);
            item->setColor(item->color(), tr(standard.text));
        }
    }
    if (const ColorPickerItem *item = m_popup->find(m_currentColor))
        setText(item->text());
}
