// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/tageditor.h"
#include "documents/hostlink.h"
#include "documents/markpointer.h"
#include "documents/textformat.h"

#include <QGraphicsScene>
#include <QTextCursor>

#include <optional>

class ActiveElement;
class Annotation;
class DocumentItem;
class PageView;
class QGraphicsTextItem;
class QPrinter;
class QTextDocument;
class QUndoStack;
class SyntaxHighlight;
class Tool;

/// The scene of one open document: its text or picture, and the marks above it.
///
/// Scene coordinates are pixels at 100 % zoom with the document's corner at the origin. A page keeps no list of its
/// marks: the scene's items that cast to Annotation are the marks. Mouse events are read by the host's mode(), anew
/// each time; without a host every page is in TextMode.
class Page : public QGraphicsScene, public TagEditor
{
    Q_OBJECT

public:
    /// ImageDocument and TextDocument are set by what was loaded last; NoDocument until then.
    enum DocumentKind { NoDocument = -1, ImageDocument = 0, TextDocument = 1 };

    /// @p host may be null, and may die before the page. The page has no parent: see PageStack for who owns it.
    explicit Page(DocumentHost *host);
    ~Page() override;

    /// The window, or null when there is none (any more).
    DocumentHost *host() const;
    /// Parent of the boxes about this document, or null.
    QWidget *window() const;

    void setPageView(PageView *view);
    PageView *pageView() const;

    /// Full path, or "noname" for a document never saved.
    QString fileName() const;
    void setFileName(const QString &fileName);
    /// File-name part of the path that was set last; a save under a new name leaves it.
    QString shortName() const;
    /// Extension of the file that the document came from.
    QString fileType() const;
    void setFileType(const QString &type);
    /// How the text looked on disk; setTextContents() puts it back to the default.
    TextFormat textFormat() const;
    void setTextFormat(const TextFormat &format);
    /// Path of the picture shown, also when it could not be loaded.
    QString imageLink() const;
    DocumentKind documentKind() const;
    /// Kept, read by nobody.
    void setSavedSize(const QRectF &size);

    bool isModified() const;
    void setModified(bool modified);
    /// Sets the page modified because of what the user is doing to it, and if that is news, tells the window.
    void markModified();

    void newDocument();
    /// Fills the page from a file of any format. False, after a message, when the file could not be read.
    bool loadFile(const QString &fileName);
    /// @p lineNumbers is "1\n2\n" and so on.
    void setTextContents(const QString &fileName, const QString &text, const QString &lineNumbers);
    /// Shows the picture at @p link, or at @p fileName when @p link is empty. False, after a message, when there is no
    /// picture that can be read; the page then keeps what it shows.
    bool setImageContents(const QString &fileName, const QString &link);
    /// Writes the document. An empty @p fileName means its own name, and asks first whether a document with marks
    /// should become an annotated file. @p keepState leaves name, title and modified state alone.
    /// False when the user cancelled or, after a message, when the file could not be written.
    bool saveDocument(const QString &fileName, bool keepState);

    /// Whether the last save came to nothing because the user did not want another file replaced.
    bool wantsOtherName() const;

    /// Whether a save may put a file at @p path: true if there is none, if it is this document's own, or if the user
    /// says so. Asks only where no save dialog has asked.
    bool mayReplace(const QString &path) const;

    /// Puts a new mark on the page as an undoable step. The page's undo stack shares in it from now on.
    void addAnnotation(QGraphicsItem *item);
    /// The same for a tag, which also joins the window's list of tags.
    void addActiveElement(ActiveElement *element);
    /// Opens the window's dialog on a tag; one that the user accepts makes the document modified. Without a window
    /// nothing happens.
    void editActiveElement(ActiveElement *element, Qt::WindowFlags flags) override;
    bool containsItem(QGraphicsItem *item) const;
    /// Hidden marks count too. Takes no longer on pages with many marks.
    bool hasAnnotations() const;
    void setAnnotationsHidden(bool hide);
    bool annotationsVisible() const;
    /// Takes all marks off the page, not undoably. Those on the clipboard or in an undo stack live on, the others die.
    void removeAnnotations();
    /// Adds @p item unless it is here already; one on another page moves here. Null does nothing.
    void putOnScene(QGraphicsItem *item);
    /// Takes @p item off this page if it is here. Null does nothing.
    void takeOffScene(QGraphicsItem *item);

    /// Colours the text by the definition of the file's type, or takes the colours off. A type without a definition
    /// leaves things as they are. Colours that are right already cost nothing.
    void highlightSyntax(bool on);
    void showLineNumbers(bool show);
    void setDocumentFont(const QFont &font);
    QFont documentFont() const;
    void setTextColor(const QColor &color);
    /// Size of the text, in scene units.
    double contentsWidth() const;
    double contentsHeight() const;
    QTextDocument *textDocument() const;
    /// The text exactly as it is, lines separated by line feeds.
    QString plainText() const;
    QString selectedText() const;
    /// Whether selectedText() is not empty, without making a copy of it.
    bool hasSelectedText() const;
    /// Selects the next match of @p text from the last one on, or from where resetSearch() put the search, and brings
    /// it into sight. Without one it says so in a box, and the next search starts at the beginning of the document.
    bool searchText(const QString &text, bool caseSensitive, bool wholeWords, bool forward);
    /// Lets the next search start at the beginning of the document.
    void resetSearch();
    /// Prints the document with its marks as the settings under Printing say; see SheetPrinter. Always true.
    bool printPage(QPrinter *printer);
    /// The line numbers of the statistics, which do not look at the document: 1, 1, 0 and 0 for every one.
    void countLines(int &total, int &code, int &comments, int &empty);
    /// Whether @p line starts with "//".
    bool isCommentLine(const QString &line);
    /// Makes the text editable and puts the caret at its start.
    void focusDocument();
    void insertTab();
    /// Renders like QGraphicsScene::render(), but without what the current tool draws above the scene.
    void renderClean(QPainter *painter, const QRectF &target, const QRectF &source,
                     Qt::AspectRatioMode aspectRatioMode);
    /// Gives a document smaller than its view bounds as large as the view.
    void adjustDocumentRect();
    DocumentItem *documentItem() const;

    /// Scene position of the last press, move or context menu event.
    double lastMouseX() const;
    double lastMouseY() const;
    double marginX() const;
    double marginY() const;
    /// Ends what the left button is doing when its release will go elsewhere, to a box or a menu that comes up. A mark
    /// under construction is finished as far as the mouse has come, a dragged one stays there; an eraser or a snapshot,
    /// which act on the release, do not. Does nothing while the button is up.
    void endGesture();
    /// Lets the window set anew what is enabled.
    void refreshUi();

public slots:
    void copyCommand();
    void cutCommand();
    void pasteCommand();
    void removeCommand();
    void activateUndoStack();
    void clearUndoStack();

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    /// Text that an input method brings, and what is dropped, is a change of the document like what is typed.
    void inputMethodEvent(QInputMethodEvent *event) override;
    void dropEvent(QGraphicsSceneDragDropEvent *event) override;

private:
    int mode() const;
    Tool *currentTool() const;
    bool isEditableText() const;
    void moveInTransformMode(QGraphicsSceneMouseEvent *event);
    void moveGrabbedItem(QGraphicsSceneMouseEvent *event);
    void finishGesture(QGraphicsSceneMouseEvent *event);
    void rememberMouse(const QPointF &scenePos);
    QList<Annotation *> selectedAnnotations() const;
    bool chooseTarget(QString *target);
    void setSaved(const QString &target);
    QString syntaxFile() const;
    void createHighlighter(const QString &syntaxFile);
    void removeHighlighter();

    HostLink m_host;
    QPointer<PageView> m_view;
    DocumentItem *m_documentItem;
    QString m_fileType;
    bool m_drawToolOverlay = true;
    QString m_fileName;
    QString m_shortName;
    QString m_imageLink;
    TextFormat m_textFormat;
    bool m_modified = false;
    bool m_wantsOtherName = false;
    QTextCursor m_searchCursor;
    QPointF m_lastMouse;
    std::optional<QPointF> m_pressPoint; ///< Where the left button went down, until it comes up; on the scene.
    bool m_annotationsVisible = true;
    DocumentKind m_kind = NoDocument;
    QRectF m_savedSize;
    QUndoStack *m_undoStack;
    SyntaxHighlight *m_highlighter = nullptr; ///< Owned; null while nothing is coloured.
    int m_itemCount = 0; ///< About as many as there are; items that die or change pages by themselves are not told.
    mutable MarkPointer m_knownMark; ///< A mark on this scene; spares hasAnnotations() the walk over all items.
};
