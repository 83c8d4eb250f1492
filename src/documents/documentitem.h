// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QGraphicsItem>
#include <QObject>
#include <QPixmap>

class LineNumbers;
class Page;
class QGraphicsPixmapItem;
class QGraphicsTextItem;
class QTextCursor;
class QTextDocument;
class TextLayout;

/// Holds what a page shows of its document: the text with its line numbers, or the picture.
///
/// A holder of three scene items, each added to the scene on its own when the document needs it; the DocumentItem
/// itself is never on the scene. All three lie at stacking value -1, below every mark. Text and numbers stand 5 scene
/// units from the top and the left edge, a picture at (0, 0).
class DocumentItem : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    /// @p page is the scene of the items and is not owned; it must outlive this object.
    explicit DocumentItem(Page *page, QGraphicsItem *parent = nullptr);
    /// Deletes the three items and both text documents, wherever they are.
    ~DocumentItem() override;

    /// Union of the bounding rectangles of the three items, each in its own coordinates.
    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// A text of one line of 60 blanks, which give the new document its width and are saved with it.
    void newDocument();
    /// Replaces the text and the text of the gutter, which is "1\n2\n" and so on, one number for each line.
    void setTextContents(const QString &text, const QString &lineNumbers);
    /// Shows @p pixmap at (0, 0); the scene gets its size.
    void setImageContents(const QPixmap &pixmap);

    bool isModified() const;
    void setModified(bool modified);

    /// All owned by this object, never null.
    QTextDocument *textDocument() const;
    QGraphicsTextItem *textItem() const;
    QGraphicsPixmapItem *pixmapItem() const;
    /// Writes the text of its document first, which costs as much again as the text itself: not for everyday use.
    QGraphicsTextItem *lineNumbersItem();

    void setLineNumbersVisible(bool visible);
    bool lineNumbersVisible() const;
    /// Tells the layout that a highlighter works on the text document; to be set before the text is.
    void setHighlighted(bool highlighted);

    /// Blocks of the text document at the last change.
    int lineCount() const;
    /// The text exactly as it is, lines separated by line feeds: no-break spaces and line separators stay.
    QString plainText() const;
    /// The rectangle that the document counts as filling; kept for whoever wants to know, it changes nothing here.
    void setBounds(const QRectF &bounds);
    QRectF bounds() const;
    QString selectedText() const;
    /// Removes the selected text and returns it.
    QString cutSelectedText();
    void pasteText(const QString &text);
    void insertTabs(int count);
    /// Gives the text the focus and puts the caret before character @p position.
    void setCursorPosition(int position);
    void setTextEditable(bool editable);
    /// Changes the font of text and numbers; no mark is moved or resized, whatever the message says.
    void setDocumentFont(const QFont &font, bool showMessage);
    /// Places numbers and text; the gutter is as wide as the largest number.
    void updateLayout();

private slots:
    void documentChanged(int position, int removed, int added);

private:
    void createTextItem();
    void createLineNumbersItem();
    void showText();
    void fitScene();
    void updateSceneRect();
    void replaceText(const QString &text);
    double lineHeight() const;
    void followLines(int position, double lineHeight);
    void shiftAnnotations(int position, double offset);

    Page *m_page;
    QGraphicsTextItem *m_textItem;
    QGraphicsTextItem *m_lineNumbersItem;
    QGraphicsPixmapItem *m_pixmapItem;
    QTextDocument *m_textDocument;
    TextLayout *m_textLayout; ///< Owned by the text document.
    LineNumbers *m_lineNumbers;
    bool m_modified = false;
    int m_lineCount = 0;
    bool m_replacing = false; ///< The whole text is being set; changes of it are not looked at one by one.
    QRectF m_bounds;
};
