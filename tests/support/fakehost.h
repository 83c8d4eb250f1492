// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/annotationclipboard.h"
#include "documents/documenthost.h"

#include <QMenu>
#include <QProgressBar>
#include <QStringList>
#include <QUndoGroup>
#include <QWidget>

#include <functional>
#include <utility>

/// A window for documents under test: answers as it is told and notes what it was asked to do.
class FakeHost final : public DocumentHost
{
public:
    int mode() const override { return currentMode; }
    Tool *currentTool() const override { return tool; }
    QUndoGroup *undoGroup() const override { return group; }
    QMenu *popupMenu() const override { return menu; }
    QProgressBar *progressBar() const override { return bar; }
    QWidget *hostWindow() override { return &window; }
    QString title() const override { return QStringLiteral("Kestrin 7"); }
    QList<Annotation *> *annotationClipboard() override { return clipboard.list(); }
    void clearAnnotationClipboard() override { clipboard.clear(); }
    void addToAnnotationClipboard(Annotation *annotation) override { clipboard.append(annotation); }
    void updateMenus() override { ++menuUpdates; }
    void setCurrentFile(const QString &path) override { currentFiles.append(path); }
    QString lastOpenDir() const override { return openDir; }
    bool isFullScreen() const override { return fullScreen; }
    void toggleFullScreen() override { fullScreen = !fullScreen; }
    void registerActiveElement(ActiveElement *element, Page *page) override { registeredTags.append({element, page}); }
    bool editActiveElement(ActiveElement *element, Qt::WindowFlags flags) override
    {
        editedTags.append({element, flags});
        return editTag && editTag(element);
    }

    QWidget window; ///< First, so that all of the host's children go before it.
    QUndoGroup *group = new QUndoGroup(&window);
    QMenu *menu = new QMenu(&window);
    QProgressBar *bar = new QProgressBar(&window);
    AnnotationClipboard clipboard;
    int currentMode = TextMode;
    Tool *tool = nullptr; ///< Not owned.
    int menuUpdates = 0;
    QStringList currentFiles;
    QString openDir;
    bool fullScreen = false;
    QList<std::pair<ActiveElement *, Page *>> registeredTags;
    QList<std::pair<ActiveElement *, Qt::WindowFlags>> editedTags;
    std::function<bool(ActiveElement *)> editTag; ///< What happens in a tag's dialog; true if it is accepted.
};
