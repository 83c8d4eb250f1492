// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/sheetprinter.h"

#include "app/setting.h"
#include "documents/documentitem.h"
#include "documents/page.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QDateTime>
#include <QFontMetrics>
#include <QGraphicsItem>
#include <QPainter>
#include <QPrinter>
#include <QScopeGuard>
#include <QTextBlock>
#include <QTextDocument>

#include <utility>

namespace {

constexpr QColor headerBand(60, 157, 255);
constexpr QColor headerText(245, 245, 245);
/// Device pixels that the header is higher than its text.
constexpr double headerSpace = 10.0;
/// Device pixels between the header's texts and the band's left and right edge.
constexpr double headerMargin = 5.0;
/// Scene units between the top of the scene and the first thing that is printed.
constexpr double firstPrinted = 5.0;

/// Gives marks and line numbers the visibility that paper wants, and takes it back at the end, together with the
/// selection and the focus that hidden marks lose.
class PaperLook
{
public:
    PaperLook(Page *page, bool annotations, bool lineNumbers)
        : m_page(page),
          m_annotations(page->annotationsVisible()),
          m_lineNumbers(page->documentItem()->lineNumbersVisible()),
          m_selection(page->selectedItems()),
          m_focus(page->focusItem())
    {
        show(annotations, lineNumbers);
    }
    ~PaperLook()
    {
        show(m_annotations, m_lineNumbers);
        for (QGraphicsItem *item : std::as_const(m_selection))
            item->setSelected(true);
        if (m_focus != nullptr && m_page->focusItem() != m_focus)
            m_focus->setFocus();
    }
    Q_DISABLE_COPY_MOVE(PaperLook)

private:
    void show(bool annotations, bool lineNumbers)
    {
        m_page->setAnnotationsHidden(!annotations);
        m_page->documentItem()->setLineNumbersVisible(lineNumbers);
    }

    Page *m_page;
    bool m_annotations;
    bool m_lineNumbers;
    QList<QGraphicsItem *> m_selection;
    QGraphicsItem *m_focus;
};

QString currentDateTime()
{
    const QDateTime now = QDateTime::currentDateTime();
    return now.date().toString(Qt::TextDate) + QStringLiteral(", ") + now.time().toString(Qt::TextDate);
}

} // namespace

SheetPrinter::SheetPrinter(Page *page, QPrinter *printer) : m_page(page), m_printer(printer)
{
    const QSettings settings;
    m_withHeader = settingOr(settings, QStringLiteral("Printing/PrintHeader"), true);
    m_withFileName = settingOr(settings, QStringLiteral("Printing/PrintFileName"), true);
    m_withDate = settingOr(settings, QStringLiteral("Printing/PrintDate"), true);
    m_withPageNumbers = settingOr(settings, QStringLiteral("Printing/PrintPageNumbers"), true);
    m_withLineNumbers = settingOr(settings, QStringLiteral("Printing/PrintLineNumbers"), true);
    m_withAnnotations = settingOr(settings, QStringLiteral("Printing/PrintAnnotations"), true);
}

void SheetPrinter::print()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto cursorBack = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    measure();
    // Opening the printer is a blank sheet already.
    QPainter painter;
    if (m_sheetCount <= 0 || !painter.begin(m_printer))
        return;
    const PaperLook look(m_page, m_withAnnotations, m_withLineNumbers);
    const QString dateTime = currentDateTime();
    for (int sheet = 0; sheet < m_sheetCount; ++sheet) {
        if (sheet > 0)
            m_printer->newPage();
        if (m_withHeader)
            printHeader(&painter, sheet, dateTime);
        printContents(&painter, sheet);
    }
}

void SheetPrinter::measure()
{
    const QRectF page = m_printer->pageRect(QPrinter::DevicePixel);
    const QMargins margins = m_printer->pageLayout().marginsPixels(m_printer->resolution());
    m_pageWidth = page.width();
    m_usable = page.height() - margins.top() - margins.bottom();
    if (m_withHeader) {
        // The font that a painter on this printer starts with.
        m_headerHeight = QFontMetrics(QFont(QFont(), m_printer)).height() + headerSpace;
        m_usable -= m_headerHeight;
    }
    switch (m_page->documentKind()) {
    case Page::TextDocument:
        m_step = lineStep();
        break;
    case Page::ImageDocument:
        m_step = m_usable - m_page->marginY();
        break;
    case Page::NoDocument:
        m_step = m_usable;
        break;
    }
    if (m_step <= 0.0)
        return;
    const double sheets = m_page->sceneRect().height() / m_step;
    m_sheetCount = static_cast<int>(sheets);
    if (sheets - m_sheetCount > 0.0)
        ++m_sheetCount;
}

/// A whole number of lines, so that none is cut between two sheets; all lines count as high as the first.
double SheetPrinter::lineStep() const
{
    const QTextDocument *document = m_page->textDocument();
    const double lineHeight = document->documentLayout()->blockBoundingRect(document->firstBlock()).height();
    return lineHeight > 0.0 ? lineHeight * static_cast<int>(m_usable / lineHeight) : 0.0;
}

void SheetPrinter::printHeader(QPainter *painter, int sheet, const QString &dateTime) const
{
    const QRectF band(0.0, 0.0, m_pageWidth, m_headerHeight);
    const QRectF inner = band.adjusted(headerMargin, 0.0, -headerMargin, 0.0);
    painter->save();
    painter->fillRect(band, headerBand);
    painter->setPen(headerText);
    if (m_withDate)
        painter->drawText(inner, Qt::AlignLeft | Qt::AlignVCenter, dateTime);
    if (m_withFileName)
        painter->drawText(band, Qt::AlignHCenter | Qt::AlignVCenter, m_page->shortName());
    if (m_withPageNumbers) {
        painter->drawText(inner, Qt::AlignRight | Qt::AlignHCenter | Qt::AlignVCenter,
                          Page::tr("Page %1/%2").arg(sheet + 1).arg(m_sheetCount));
    }
    painter->restore();
}

void SheetPrinter::printContents(QPainter *painter, int sheet) const
{
    const bool isImage = m_page->documentKind() == Page::ImageDocument;
    const double top = m_headerHeight + (isImage ? m_page->marginY() : 0.0);
    const QRectF source(0.0, sheet * m_step + firstPrinted, m_pageWidth, m_step);
    const QRectF target(0.0, top, m_pageWidth, m_step);
    // What the current tool draws above the scene is printed as it is shown.
    m_page->render(painter, target, source, Qt::IgnoreAspectRatio);
}
