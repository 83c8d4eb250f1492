// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documentitem.h"

#include "annotations/annotation.h"
#include "app/setting.h"
#include "documents/clippedtextitem.h"
#include "documents/documenttextitem.h"
#include "documents/linenumbers.h"
#include "documents/page.h"
#include "documents/textlayout.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetrics>
#include <QGraphicsPixmapItem>
#include <QGraphicsTextItem>
#include <QMessageBox>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

// Where the numbers start on the scene.
constexpr double contentOffsetX = 5.0;
constexpr double contentOffsetY = 5.0;
/// Between the gutter and the text.
constexpr double gutterGap = 10.0;
/// Free space right of and below the text.
constexpr double freeWidth = 100.0;
constexpr double freeHeight = 120.0;
/// Below every mark, which lies at 0.
constexpr double documentLevel = -1.0;
/// Scene units between two tab stops.
constexpr double tabStop = 16.0;

QFont defaultDocumentFont()
{
    const QSettings settings;
    return QFont(settingOr(settings, QStringLiteral("PageView/DefaultFontFamily"), QStringLiteral("Courier")),
                 fontSizeSetting(settings, QStringLiteral("PageView/DefaultFontSize"), 10));
}

void setUnwrapped(QTextDocument *document)
{
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTabStopDistance(tabStop);
    document->setDefaultTextOption(option);
}

} // namespace

DocumentItem::DocumentItem(Page *page, QGraphicsItem *parent) : QGraphicsItem(parent), m_page(page)
{
    createTextItem();
    createLineNumbersItem();
    m_pixmapItem = new QGraphicsPixmapItem;
    for (QGraphicsItem *item :
         {static_cast<QGraphicsItem *>(m_textItem), static_cast<QGraphicsItem *>(m_lineNumbersItem),
          static_cast<QGraphicsItem *>(m_pixmapItem)})
        item->setZValue(documentLevel);
    // The layout hears of a change only after contentsChange: this catches up with the size it then finds.
    connect(m_textLayout, &QAbstractTextDocumentLayout::documentSizeChanged, this, [this] {
        if (m_textItem->scene() == m_page)
            fitScene();
    });
}

DocumentItem::~DocumentItem()
{
    delete m_textItem;
    delete m_lineNumbersItem;
    delete m_pixmapItem;
    delete m_textDocument;
    delete m_lineNumbers;
}

void DocumentItem::createTextItem()
{
    m_textItem = new DocumentTextItem(m_page);
    m_textDocument = new QTextDocument;
    m_textLayout = new TextLayout(m_textDocument);
    m_textDocument->setDocumentLayout(m_textLayout);
    m_textItem->setDocument(m_textDocument);
    setUnwrapped(m_textDocument);
    connect(m_textDocument, &QTextDocument::contentsChange, this, &DocumentItem::documentChanged);
    m_textItem->setTextInteractionFlags(Qt::TextEditorInteraction);
    m_textItem->setFlag(QGraphicsItem::ItemIsFocusable);
    m_textItem->setFlag(QGraphicsItem::ItemIsSelectable);
    m_textItem->setFont(defaultDocumentFont());
}

void DocumentItem::createLineNumbersItem()
{
    m_lineNumbersItem = new ClippedTextItem;
    m_lineNumbers = new LineNumbers;
    m_lineNumbers->standBeside(m_textLayout);
    m_lineNumbersItem->setDocument(m_lineNumbers);
    m_lineNumbersItem->setDefaultTextColor(Qt::gray);
    m_lineNumbersItem->setFont(m_textItem->font());
}

QRectF DocumentItem::boundingRect() const
{
    return m_textItem->boundingRect() | m_lineNumbersItem->boundingRect() | m_pixmapItem->boundingRect();
}

void DocumentItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    m_lineNumbersItem->paint(painter, option, widget);
    m_textItem->paint(painter, option, widget);
    m_pixmapItem->paint(painter, option, widget);
}

void DocumentItem::newDocument()
{
    replaceText(QString(60, QLatin1Char(' ')));
    m_lineNumbers->setNumbers(QStringLiteral("1\n"));
    showText();
    fitScene();
    m_modified = false;
    m_page->refreshUi();
}

void DocumentItem::setTextContents(const QString &text, const QString &lineNumbers)
{
    showText();
    replaceText(text);
    m_lineNumbers->setNumbers(lineNumbers);
    fitScene();
    m_modified = false;
    m_page->refreshUi();
}

/// The document announces the old text's going and the new one's coming apart. To the marks it is one change: they
/// must not be carried to the top and back.
void DocumentItem::replaceText(const QString &text)
{
    const double height = lineHeight();
    m_replacing = true;
    m_textDocument->setPlainText(text);
    m_replacing = false;
    followLines(0, height);
}

void DocumentItem::showText()
{
    m_page->putOnScene(m_textItem);
    m_page->putOnScene(m_lineNumbersItem);
}

void DocumentItem::setImageContents(const QPixmap &pixmap)
{
    m_page->putOnScene(m_pixmapItem);
    prepareGeometryChange();
    m_pixmapItem->setPixmap(pixmap);
    m_page->setSceneRect(0.0, 0.0, pixmap.width(), pixmap.height());
}

bool DocumentItem::isModified() const
{
    return m_modified;
}

void DocumentItem::setModified(bool modified)
{
    m_modified = modified;
}

QTextDocument *DocumentItem::textDocument() const
{
    return m_textDocument;
}

QGraphicsTextItem *DocumentItem::textItem() const
{
    return m_textItem;
}

QGraphicsTextItem *DocumentItem::lineNumbersItem()
{
    m_lineNumbers->write();
    return m_lineNumbersItem;
}

void DocumentItem::setLineNumbersVisible(bool visible)
{
    m_lineNumbersItem->setVisible(visible);
}

bool DocumentItem::lineNumbersVisible() const
{
    return m_lineNumbersItem->isVisible();
}

void DocumentItem::setHighlighted(bool highlighted)
{
    m_textLayout->setHighlighted(highlighted);
}

QGraphicsPixmapItem *DocumentItem::pixmapItem() const
{
    return m_pixmapItem;
}

int DocumentItem::lineCount() const
{
    return m_lineCount;
}

QString DocumentItem::plainText() const
{
    // Unlike toPlainText(), which turns no-break spaces into blanks and line separators into line feeds.
    return m_textDocument->toRawText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

void DocumentItem::setBounds(const QRectF &bounds)
{
    m_bounds = bounds;
}

QRectF DocumentItem::bounds() const
{
    return m_bounds;
}

QString DocumentItem::selectedText() const
{
    return m_textItem->textCursor().selectedText();
}

QString DocumentItem::cutSelectedText()
{
    QTextCursor cursor = m_textItem->textCursor();
    const QString text = cursor.selectedText();
    cursor.removeSelectedText();
    return text;
}

void DocumentItem::pasteText(const QString &text)
{
    QTextCursor cursor = m_textItem->textCursor();
    cursor.insertText(text);
    updateSceneRect();
    m_page->adjustDocumentRect();
    setBounds(m_page->sceneRect());
    updateLayout();
}

void DocumentItem::insertTabs(int count)
{
    m_textItem->textCursor().insertText(QString(count, QLatin1Char('\t')));
}

void DocumentItem::setCursorPosition(int position)
{
    m_textItem->setFocus();
    QTextCursor cursor(m_textDocument);
    cursor.setPosition(position);
    m_textItem->setTextCursor(cursor);
}

void DocumentItem::setTextEditable(bool editable)
{
    if (editable) {
        m_textItem->setTextInteractionFlags(Qt::TextEditorInteraction);
        m_textItem->setFlag(QGraphicsItem::ItemIsFocusable);
    } else {
        m_textItem->setTextInteractionFlags(Qt::NoTextInteraction);
    }
}

void DocumentItem::setDocumentFont(const QFont &font, bool showMessage)
{
    m_lineNumbersItem->setFont(font);
    m_textItem->setFont(font);
    prepareGeometryChange();
    if (showMessage) {
        QMessageBox::information(nullptr, tr("Adjustment"),
                                 tr("Font of the document has been changed! Kestrin 7 is about to use an automatic "
                                    "procedure to adjust position and size of all annotations. Anyhow we highly "
                                    "recomend you to review the document, since by-hand adjustments may be still "
                                    "needed!"));
    }
    updateSceneRect();
    updateLayout();
}

void DocumentItem::updateLayout()
{
    const QFontMetrics metrics(m_lineNumbersItem->font());
    const int gutter = metrics.horizontalAdvance(QString::number(m_lineNumbers->shownBlockCount()));
    m_textItem->setPos(gutter + contentOffsetX + gutterGap, contentOffsetY);
    m_lineNumbersItem->setPos(contentOffsetX, contentOffsetY);
}

void DocumentItem::fitScene()
{
    updateSceneRect();
    m_page->adjustDocumentRect();
    updateLayout();
}

void DocumentItem::updateSceneRect()
{
    const QSizeF size = m_textDocument->size();
    const QRectF rect(0.0, 0.0, 2 * contentOffsetX + size.width() + freeWidth, size.height() + freeHeight);
    // Setting it costs a walk over all marks, so not for every key.
    if (rect != m_page->sceneRect())
        m_page->setSceneRect(rect);
}

void DocumentItem::documentChanged(int position, int removed, int added)
{
    if (m_replacing)
        return;
    followLines(position, lineHeight());
    fitScene();
    if (removed != 0 || added != 0)
        m_page->refreshUi();
}

/// An average over the lines there were before the change that is being announced; 0 while there are none.
double DocumentItem::lineHeight() const
{
    return m_lineCount == 0 ? 0.0 : m_textItem->boundingRect().height() / m_lineCount;
}

void DocumentItem::followLines(int position, double lineHeight)
{
    const int newCount = m_textDocument->blockCount();
    if (newCount == m_lineCount)
        return;
    m_lineNumbers->follow(m_lineCount, newCount);
    const double offset = (newCount - m_lineCount) * lineHeight;
    if (settingOr(QSettings(), QStringLiteral("Other/SynchAnnotations"), true))
        shiftAnnotations(position, offset);
    m_lineCount = newCount;
}

void DocumentItem::shiftAnnotations(int position, double offset)
{
    QTextCursor cursor(m_textDocument);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    const double blockTop = m_textDocument->documentLayout()->blockBoundingRect(cursor.block()).y();
    for (QGraphicsItem *item : m_page->items()) {
        if (dynamic_cast<Annotation *>(item) && item->isEnabled() && item->scenePos().y() > blockTop)
            item->moveBy(0.0, offset);
    }
}
