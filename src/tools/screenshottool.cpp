// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/screenshottool.h"

#include "app/eventlog.h"
#include "app/folders.h"
#include "app/setting.h"
#include "documents/page.h"
#include "documents/warningbox.h"
#include "persistence/paperfile.h"
#include "persistence/privatefile.h"
#include "tools/cursorpicture.h"
#include "tools/snapshot.h"
#include "tools/toolhost.h"
#include "widgets/dontdialog.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGraphicsSceneMouseEvent>
#include <QImageWriter>
#include <QLabel>
#include <QPainter>
#include <QPixmap>

namespace {

/// Scene units of the dragged area at each side that stay out of the picture: the rim of the overlay.
constexpr double overlayRim = 2.0;
/// Scene units; an area below it in both directions is a slip of the hand.
constexpr double smallestSide = 3.0;
/// Scene units around the dragged area that are painted anew after a move.
constexpr double repaintedAround = 100.0;

QString fileFilter()
{
    QStringList patterns;
    for (const QByteArray &format : QImageWriter::supportedImageFormats())
        patterns.append(QStringLiteral("*.") + QString::fromLatin1(format));
    return ScreenShotTool::tr("Image Files ") + QLatin1Char('(') + patterns.join(QLatin1Char(' ')) +
           QStringLiteral(");;") + ScreenShotTool::tr("Portable Document Format (*.pdf);;") +
           ScreenShotTool::tr("Postscript (*.ps);;");
}

} // namespace

ScreenShotTool::ScreenShotTool(ToolHost *host) : Tool(true), m_host(host) {}

void ScreenShotTool::readSettings()
{
    const QSettings settings;
    m_toClipboard = settingOr(settings, QStringLiteral("ScreenshotTool/SaveViewToClipboard"), true);
    m_toFile = settingOr(settings, QStringLiteral("ScreenshotTool/SaveViewToFile"), false);
    m_byEmail = settingOr(settings, QStringLiteral("ScreenshotTool/SendViewViaEmail"), false);
    m_useOnce = settingOr(settings, QStringLiteral("ScreenshotTool/UseOnce"), true);
}

QCursor ScreenShotTool::makeCursor()
{
    const QPoint hotSpot(7, 7);
    CursorPicture picture(14, 14);
    // Filled rather than drawn as lines, which would lie half a pixel off on sharp screens.
    for (const QRect &arm : {QRect(2, 7, 3, 1), QRect(10, 7, 3, 1), QRect(7, 2, 1, 3), QRect(7, 10, 1, 3)})
        picture.painter().fillRect(arm, Qt::black);
    picture.drawDot(7, 7, Qt::black);
    return picture.toCursor(hotSpot);
}

void ScreenShotTool::mousePressed(QGraphicsSceneMouseEvent *event, Page *page)
{
    (logTrace << "Screenshot tool pressed").eol(0);
    m_page = page;
    m_pressPoint = event->scenePos();
    m_dragging = true;
}

void ScreenShotTool::mouseMoved(QGraphicsSceneMouseEvent *event, Page * /*page*/)
{
    if (!m_dragging)
        return;
    m_selection = QRectF(m_pressPoint, event->scenePos()).normalized();
    if (m_page) {
        m_page->invalidate(m_selection.adjusted(-repaintedAround, -repaintedAround, repaintedAround, repaintedAround));
    }
    showInStatusBar(tr("(w: %1, h: %2)").arg(m_selection.width(), 0, 'g').arg(m_selection.height(), 0, 'g'));
}

void ScreenShotTool::mouseReleased(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/)
{
    (logTrace << "Screenshot tool released").eol(0);
    m_dragging = false;
    showInStatusBar(QString());
    if (!m_page) {
        (logTrace << "Screenshot tool, page == NULL").eol(0);
        return;
    }
    const QRectF area = m_selection.adjusted(overlayRim, overlayRim, -overlayRim, -overlayRim);
    if (area.width() < smallestSide && area.height() < smallestSide)
        return;
    // A long drag may still be too thin for a single pixel.
    if (area.width() >= 1.0 && area.height() >= 1.0)
        capture(Snapshot(m_page, area));
    finish();
}

void ScreenShotTool::capture(const Snapshot &snapshot) const
{
    if (m_toClipboard)
        toClipboard(snapshot);
    else if (m_toFile)
        toFile(snapshot);
    else if (m_byEmail)
        toMail(snapshot);
}

void ScreenShotTool::toClipboard(const Snapshot &snapshot) const
{
    const QImage picture = snapshot.picture();
    if (picture.isNull())
        return;
    QApplication::clipboard()->setPixmap(QPixmap::fromImage(picture));
    DontDialog(tr("Information"), tr("Selected area has been copied to the clipboard!"), 0,
               QStringLiteral("ScreenshotTool/InfoViewInClipboard"), window())
        .exec();
}

void ScreenShotTool::toFile(const Snapshot &snapshot) const
{
    const QString path = QFileDialog::getSaveFileName(window(), tr("Save As File"),
                                                      m_host ? m_host->lastOpenDir() : QString(), fileFilter());
    if (!path.isEmpty())
        snapshot.saveAs(path, window());
}

void ScreenShotTool::toMail(const Snapshot &snapshot) const
{
    const QString format = settingOr(QSettings(), QStringLiteral("General/AttachmentFormat"), QStringLiteral("PNG"));
    const bool asPdf = format.compare(QLatin1String("PDF"), Qt::CaseInsensitive) == 0;
    const QString path =
        QDir::toNativeSeparators(dataFolder(QStringLiteral("temporary")) +
                                 (asPdf ? QStringLiteral("Annotated.pdf") : QStringLiteral("Annotated.png")));
    if (!makePrivate(path) || !snapshot.saveAs(path, window())) {
        QFile::remove(path); // what makePrivate() may have left of it
        showWarning(window(), PaperFile::tr("I/O Error"), PaperFile::tr("Can't save file %1").arg(path));
    } else if (m_host) {
        m_host->sendFileViaEmail(path);
    }
}

void ScreenShotTool::abandonGesture()
{
    if (!m_dragging)
        return;
    m_dragging = false;
    showInStatusBar(QString());
    clearSelection();
}

/// Leaves the tool if it is for one picture only, and takes the dragged area off the page.
void ScreenShotTool::finish()
{
    if (m_useOnce && m_host)
        m_host->restorePreviousTool();
    clearSelection();
}

void ScreenShotTool::clearSelection()
{
    m_selection = QRectF();
    if (m_page)
        m_page->invalidate();
    m_page = nullptr;
}

QWidget *ScreenShotTool::window() const
{
    return m_host ? m_host->hostWindow() : nullptr;
}

void ScreenShotTool::showInStatusBar(const QString &text) const
{
    if (QLabel *label = m_host ? m_host->statusLabel() : nullptr)
        label->setText(text);
}

void ScreenShotTool::paintOverlay(QPainter *painter)
{
    QPen rim(QColor(140, 140, 250, 160));
    rim.setWidth(0);
    painter->save();
    painter->setPen(rim);
    painter->fillRect(m_selection, QBrush(QColor(110, 110, 250, 50), Qt::SolidPattern));
    painter->drawRect(m_selection);
    painter->restore();
}
