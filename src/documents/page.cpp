// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"

#include "annotations/activeelement.h"
#include "app/eventlog.h"
#include "app/folders.h"
#include "app/setting.h"
#include "documents/addannotationcommand.h"
#include "documents/documentitem.h"
#include "documents/documentname.h"
#include "documents/markref.h"
#include "documents/pageview.h"
#include "documents/picture.h"
#include "documents/warningbox.h"
#include "persistence/iosystem.h"
#include "syntax/syntaxhighlight.h"
#include "tools/tool.h"

#include <QDir>
#include <QFileInfo>
#include <QGraphicsTextItem>
#include <QGraphicsView>
#include <QScopeGuard>
#include <QTextDocument>
#include <QUndoGroup>
#include <QUndoStack>

namespace {

constexpr double pageMarginX = 50.0;
constexpr double pageMarginY = 5.0;
/// Qt fits the depth of its search tree to the items there are when it first looks, which is before the marks come.
/// It grows with them instead: fewer items for each leaf find nothing faster, but the text lies in all leaves.
constexpr int itemsPerLeaf = 8;
constexpr int leastTreeDepth = 5;

/// The annotated file beside @p path: same folder, name up to the first dot.
QString annotatedFileFor(const QString &path)
{
    const QFileInfo info(path);
    const QDir folder = info.dir();
    QString target = folder.absolutePath();
    if (!folder.isRoot())
        target += QDir::separator();
    return QDir::toNativeSeparators(target + info.baseName() + QStringLiteral(".oxn"));
}

} // namespace

Page::Page(DocumentHost *host)
    : m_host(host),
      m_documentItem(new DocumentItem(this)),
      m_fileName(DocumentName::unnamed),
      m_undoStack(new QUndoStack)
{
    setBspTreeDepth(leastTreeDepth);
    resetSearch();
    if (host && host->undoGroup())
        host->undoGroup()->addStack(m_undoStack);
}

Page::~Page()
{
    delete m_documentItem;
    delete m_undoStack;
    delete m_highlighter;
    // Marks that the clipboard or another page's undo stack still has must not die with this scene.
    for (QGraphicsItem *item : items()) {
        if (MarkRef::isHeld(item))
            removeItem(item);
    }
}

DocumentHost *Page::host() const
{
    return m_host.get();
}

QWidget *Page::window() const
{
    return m_host.window();
}

void Page::setPageView(PageView *view)
{
    (logTrace << "Set page view").eol(0);
    m_view = view;
    (logTrace << " <=>").eol(0);
}

PageView *Page::pageView() const
{
    return m_view;
}

QString Page::fileName() const
{
    return m_fileName;
}

void Page::setFileName(const QString &fileName)
{
    m_fileName = fileName;
    m_shortName = QFileInfo(fileName).fileName();
}

QString Page::shortName() const
{
    return m_shortName;
}

QString Page::fileType() const
{
    return m_fileType;
}

void Page::setFileType(const QString &type)
{
    m_fileType = type;
}

TextFormat Page::textFormat() const
{
    return m_textFormat;
}

void Page::setTextFormat(const TextFormat &format)
{
    m_textFormat = format;
}

QString Page::imageLink() const
{
    return m_imageLink;
}

Page::DocumentKind Page::documentKind() const
{
    return m_kind;
}

void Page::setSavedSize(const QRectF &size)
{
    m_savedSize = size;
}

bool Page::isModified() const
{
    return m_modified || m_documentItem->isModified();
}

void Page::setModified(bool modified)
{
    m_modified = modified;
    m_documentItem->setModified(modified);
}

void Page::markModified()
{
    const bool isNews = !isModified();
    setModified(true);
    if (isNews)
        refreshUi();
}

void Page::newDocument()
{
    m_documentItem->newDocument();
    // The text has pushed the cursor of the search to its end.
    resetSearch();
    m_kind = TextDocument;
    setModified(false);
}

bool Page::loadFile(const QString &fileName)
{
    setModified(false);
    setFileName(fileName);
    const bool loaded = IoSystem::instance()->load(this, fileName);
    (logTrace << (loaded ? "Page:: File loaded correctly" : "Page:: Error while loading file!")).eol(0);
    return loaded;
}

void Page::setTextContents(const QString &fileName, const QString &text, const QString &lineNumbers)
{
    (logTrace << "SetTextContents").eol(0);
    setFileName(fileName);
    m_textFormat = TextFormat();
    removeHighlighter();
    const QString definition = syntaxFile();
    if (settingOr(QSettings(), QStringLiteral("Syntax/HighlightByDefault"), true) && !definition.isEmpty())
        createHighlighter(definition);
    m_documentItem->setTextContents(text, lineNumbers);
    resetSearch();
    m_kind = TextDocument;
    (logTrace << " <=>").eol(0);
}

bool Page::setImageContents(const QString &fileName, const QString &link)
{
    (logTrace << "SetImageContents").eol(0);
    setFileName(fileName);
    m_imageLink = link.isEmpty() ? fileName : link;
    const QPixmap pixmap = readPicture(m_imageLink);
    if (pixmap.isNull()) {
        showWarning(window(), tr("I/O Error"),
                    tr("File %1 not found or its format is currently unsupported!").arg(fileName));
        return false;
    }
    m_documentItem->setImageContents(pixmap);
    m_kind = ImageDocument;
    (logTrace << " <=>").eol(0);
    return true;
}

bool Page::saveDocument(const QString &fileName, bool keepState)
{
    m_wantsOtherName = false;
    QString target = fileName;
    if (target.isEmpty() && !chooseTarget(&target))
        return false;
    if (!IoSystem::instance()->save(this, target)) {
        showWarning(window(), tr("I/O Warning"), tr("Can't save file %1").arg(target));
        return false;
    }
    if (!keepState)
        setSaved(target);
    return true;
}

bool Page::chooseTarget(QString *target)
{
    *target = m_fileName;
    if (!hasAnnotations() || DocumentName::isAnnotatedFile(*target))
        return true;
    const auto answer = showWarning(
        window(), tr("Kestrin 7"),
        tr("Document [%1] contains annotations.\nDo you want to save it as an 'Annotated' OXN file?").arg(*target),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::No)
        return true;
    if (answer != QMessageBox::Yes)
        return false;
    *target = annotatedFileFor(*target);
    m_wantsOtherName = !mayReplace(*target);
    return !m_wantsOtherName;
}

bool Page::wantsOtherName() const
{
    return m_wantsOtherName;
}

bool Page::mayReplace(const QString &path) const
{
    const QFileInfo target(path);
    const bool isOwn = m_fileName != DocumentName::unnamed && target == QFileInfo(m_fileName);
    if (isOwn || !target.exists())
        return true;
    return showWarning(window(), tr("Kestrin 7"), tr("%1 already exists.\nDo you want to replace it?").arg(path),
                       QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void Page::setSaved(const QString &target)
{
    setModified(false);
    m_fileName = target;
    if (DocumentHost *host = m_host.get(); host && window())
        window()->setWindowTitle(DocumentName::windowTitle(host->title(), m_fileName, false));
}

void Page::addAnnotation(QGraphicsItem *item)
{
    m_undoStack->push(new AddAnnotationCommand(this, item, nullptr));
    setModified(true);
}

void Page::addActiveElement(ActiveElement *element)
{
    addAnnotation(element);
    if (DocumentHost *host = m_host.get())
        host->registerActiveElement(element, this);
}

void Page::editActiveElement(ActiveElement *element, Qt::WindowFlags flags)
{
    const QPointer<Page> self(this);
    // The press that asks for this was not meant for the tool, and the dialog takes its release.
    if (Tool *tool = currentTool())
        tool->abandonGesture();
    m_pressPoint.reset();
    DocumentHost *host = m_host.get();
    if (host && host->editActiveElement(element, flags) && self)
        markModified();
}

bool Page::containsItem(QGraphicsItem *item) const
{
    return items().contains(item);
}

bool Page::hasAnnotations() const
{
    if (m_knownMark.item() && m_knownMark.item()->scene() == this)
        return true;
    for (QGraphicsItem *item : items()) {
        if (dynamic_cast<Annotation *>(item)) {
            m_knownMark = MarkPointer(item);
            return true;
        }
    }
    return false;
}

void Page::setAnnotationsHidden(bool hide)
{
    m_annotationsVisible = !hide;
    for (QGraphicsItem *item : items()) {
        if (dynamic_cast<Annotation *>(item))
            item->setVisible(m_annotationsVisible);
    }
}

bool Page::annotationsVisible() const
{
    return m_annotationsVisible;
}

void Page::removeAnnotations()
{
    for (QGraphicsItem *item : items()) {
        if (!dynamic_cast<Annotation *>(item))
            continue;
        const MarkRef mark(item);
        removeItem(item);
    }
}

void Page::putOnScene(QGraphicsItem *item)
{
    if (!item || item->scene() == this)
        return;
    addItem(item);
    ++m_itemCount;
    if (m_itemCount > itemsPerLeaf << bspTreeDepth())
        setBspTreeDepth(bspTreeDepth() + 1);
}

void Page::takeOffScene(QGraphicsItem *item)
{
    if (!item || item->scene() != this)
        return;
    removeItem(item);
    --m_itemCount;
}

void Page::highlightSyntax(bool on)
{
    (logTrace << "Highlight syntax").eol(0);
    if (m_kind != TextDocument)
        return;
    if (!on) {
        removeHighlighter();
        return;
    }
    const QString definition = syntaxFile();
    if (definition.isEmpty())
        return;
    if (!m_highlighter) {
        createHighlighter(definition);
        return;
    }
    m_highlighter->loadSyntaxFile(definition);
    m_highlighter->setDocument(textDocument());
    m_highlighter->rehighlight();
}

/// Name of the definition for this document's type, or an empty string when there is none. An annotated file is
/// coloured as the text inside is.
QString Page::syntaxFile() const
{
    QString type = QFileInfo(m_fileName).suffix();
    if (type.compare(QLatin1String("oxn"), Qt::CaseInsensitive) == 0)
        type = m_fileType;
    const QString name = QFileInfo(type + QStringLiteral(".xml")).fileName();
    return QFileInfo::exists(dataFolder(QStringLiteral("syntax")) + name) ? name : QString();
}

/// Cheapest while the document is still empty: then each line is coloured as it comes.
void Page::createHighlighter(const QString &syntaxFile)
{
    m_highlighter = new SyntaxHighlight(this);
    m_highlighter->loadSyntaxFile(syntaxFile);
    m_documentItem->setHighlighted(true);
    m_highlighter->setDocument(textDocument());
}

void Page::removeHighlighter()
{
    delete m_highlighter;
    m_highlighter = nullptr;
    m_documentItem->setHighlighted(false);
}

void Page::showLineNumbers(bool show)
{
    if (m_kind == TextDocument)
        m_documentItem->setLineNumbersVisible(show);
}

void Page::setDocumentFont(const QFont &font)
{
    m_documentItem->setDocumentFont(font, false);
}

QFont Page::documentFont() const
{
    return m_documentItem->textItem()->font();
}

void Page::setTextColor(const QColor &color)
{
    m_documentItem->textItem()->setDefaultTextColor(color);
}

double Page::contentsWidth() const
{
    return m_documentItem->textItem()->boundingRect().width();
}

double Page::contentsHeight() const
{
    return m_documentItem->textItem()->boundingRect().height();
}

QTextDocument *Page::textDocument() const
{
    return m_documentItem->textDocument();
}

QString Page::plainText() const
{
    return m_documentItem->plainText();
}

QString Page::selectedText() const
{
    return m_documentItem->selectedText();
}

bool Page::hasSelectedText() const
{
    return m_documentItem->textItem()->textCursor().hasSelection();
}

void Page::resetSearch()
{
    m_searchCursor = QTextCursor(textDocument());
}

void Page::focusDocument()
{
    m_documentItem->setTextEditable(true);
    setFocus();
    m_documentItem->setCursorPosition(0);
}

void Page::insertTab()
{
    if (isEditableText())
        m_documentItem->insertTabs(1);
}

bool Page::isEditableText() const
{
    return m_kind == TextDocument;
}

void Page::renderClean(QPainter *painter, const QRectF &target, const QRectF &source,
                       Qt::AspectRatioMode aspectRatioMode)
{
    m_drawToolOverlay = false;
    const auto drawAgain = qScopeGuard([this] { m_drawToolOverlay = true; });
    render(painter, target, source, aspectRatioMode);
}

void Page::adjustDocumentRect()
{
    if (views().isEmpty())
        return;
    // Short of the margins by this much, a document still counts as filling the view.
    constexpr double tolerance = 10.0;
    const QSizeF view = views().constFirst()->geometry().size();
    const double width = view.width() - 2 * pageMarginX;
    const double height = view.height() - 2 * pageMarginY;
    QRectF bounds = m_documentItem->boundingRect();
    if (width - tolerance > bounds.width())
        bounds.setWidth(width);
    if (height - tolerance > bounds.height())
        bounds.setHeight(height);
    m_documentItem->setBounds(bounds);
}

DocumentItem *Page::documentItem() const
{
    return m_documentItem;
}

double Page::lastMouseX() const
{
    return m_lastMouse.x();
}

double Page::lastMouseY() const
{
    return m_lastMouse.y();
}

double Page::marginX() const
{
    return pageMarginX;
}

double Page::marginY() const
{
    return pageMarginY;
}

void Page::refreshUi()
{
    if (DocumentHost *host = m_host.get())
        host->updateMenus();
}

void Page::activateUndoStack()
{
    m_undoStack->setActive();
}

void Page::clearUndoStack()
{
    m_undoStack->clear();
}
