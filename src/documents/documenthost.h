// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <Qt>

class ActiveElement;
class Annotation;
class Page;
class QMenu;
class QProgressBar;
class QString;
class QUndoGroup;
class QWidget;
class Tool;

/// How the mouse on a page is read.
enum DocumentMode { TextMode = 0, TransformMode = 1, ToolMode = 2 };

/// What pages and their tabs ask of the window, now. Everything may be asked at any time between the window's
/// construction and its destruction; a page or view may outlive its host and must not call it then.
/// A page without a host (null) works.
class DocumentHost
{
public:
    /// One of DocumentMode.
    virtual int mode() const = 0;
    /// The tool that receives the mouse in ToolMode.
    virtual Tool *currentTool() const = 0;
    /// Every page's undo stack joins it; owned by the window.
    virtual QUndoGroup *undoGroup() const = 0;
    /// Context menu of the documents; owned by the window.
    virtual QMenu *popupMenu() const = 0;
    /// Shows how far reading a file has come; owned by the window.
    virtual QProgressBar *progressBar() const = 0;
    /// The window itself: parent of boxes and dialogs, bearer of the title.
    virtual QWidget *hostWindow() = 0;
    /// The bare title text of the window, without any document name.
    virtual QString title() const = 0;

    /// The marks that were cut or copied, shared by all pages.
    virtual QList<Annotation *> *annotationClipboard() = 0;
    virtual void clearAnnotationClipboard() = 0;
    virtual void addToAnnotationClipboard(Annotation *annotation) = 0;

    /// Sets anew what is enabled.
    virtual void updateMenus() = 0;
    /// Puts @p path in front of the recent files and into title and tab.
    virtual void setCurrentFile(const QString &path) = 0;
    /// Folder in which open and save dialogs start.
    virtual QString lastOpenDir() const = 0;
    virtual bool isFullScreen() const = 0;
    virtual void toggleFullScreen() = 0;
    /// Adds the tag to the window's list of active tags. Neither becomes the window's; both may die before it.
    virtual void registerActiveElement(ActiveElement *element, Page *page) = 0;
    /// Lets the user edit the tag in a dialog with these window flags, none meaning the usual ones. True if the user
    /// accepted; tag and page may have gone by then.
    virtual bool editActiveElement(ActiveElement *element, Qt::WindowFlags flags) = 0;

protected:
    ~DocumentHost() = default;
};
