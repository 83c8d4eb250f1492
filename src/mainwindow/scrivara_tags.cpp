// SPDX-License-Identifier: GPL-3.0-or-later
// Active tags: their menu, their dialog and the window that lists them.
#include "mainwindow/scrivara.h"

#include "annotations/activeelement.h"
#include "annotations/markitem.h"
#include "app/eventlog.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "widgets/activeelementdialog.h"
#include "widgets/activeelementslist.h"

#include <QAction>
#include <QGraphicsView>
#include <QIcon>
#include <QMenu>
#include <QPointer>
#include <QSignalMapper>

#include <memory>

/// The menu of the five kinds of tags stands in no other menu: tags enter a document through a file.
void Scrivara::createActiveElementsUi()
{
    TRACE_ENTER_ON(logInfo);
    m_activeElementsList = new ActiveElementsList(this);
    m_activeElementsList->setWindowFlags(Qt::Tool);
    m_activeElementDialog = new ActiveElementDialog(this, Qt::Drawer | Qt::WindowTitleHint | Qt::CustomizeWindowHint);
    static constexpr const char *texts[]{QT_TR_NOOP("Idea"), QT_TR_NOOP("Note"), QT_TR_NOOP("Question"),
                                         QT_TR_NOOP("Important"), QT_TR_NOOP("Bug")};
    auto *tagMenu = new QMenu(tr("Add Active Tag"), this);
    auto *mapper = new QSignalMapper(this);
    int id = 0;
    for (const char *text : texts) {
        auto *action = new QAction(QIcon(ActiveElement::iconFile(id)), tr(text), this);
        tagMenu->addAction(action);
        mapper->setMapping(action, id++);
        connect(action, &QAction::triggered, mapper, qOverload<>(&QSignalMapper::map));
    }
    connect(mapper, &QSignalMapper::mappedInt, this, &Scrivara::addActiveElement);
    TRACE_LEAVE_ON(logInfo);
}

void Scrivara::showActiveElementsList(bool show)
{
    TRACE_ENTER;
    m_activeElementsList->setVisible(show);
    TRACE_LEAVE;
}

void Scrivara::addActiveElement(int id)
{
    const QPointer<Page> page(currentPage());
    if (page.isNull())
        return;
    TRACE_ENTER;
    auto tag = std::make_unique<ActiveElement>();
    const auto [iconWidth, iconHeight] = tag->iconSize();
    tag->setPos(page->lastMouseX() + iconWidth, page->lastMouseY() + iconHeight + 12.0);
    tag->setFont(QFont(QStringLiteral("Arial"), 12));
    m_activeElementDialog->setElement(tag.get());
    page->clearFocus();
    if (m_activeElementDialog->exec() != QDialog::Accepted || page.isNull()) {
        TRACE_LEAVE;
        return;
    }
    const QString icon = ActiveElement::iconFile(id);
    if (icon.isEmpty()) {
        (logTrace << " Unknown type of active element!").eol(0);
    } else {
        // The colours of the category replace the background that was chosen in the dialog.
        tag->setIcon(QPixmap(icon));
        tag->setCategory(id);
    }
    MarkItem::makeHandy(*tag);
    tag->setFlag(QGraphicsItem::ItemIsFocusable);
    page->addActiveElement(tag.release());
    updateMenus();
    TRACE_LEAVE;
}

void Scrivara::registerActiveElement(ActiveElement *element, Page *page)
{
    m_activeElementsList->addElement(element, page);
}

bool Scrivara::editActiveElement(ActiveElement *element, Qt::WindowFlags flags)
{
    ActiveElementDialog dialog(nullptr, flags);
    dialog.setElement(element);
    return dialog.exec() == QDialog::Accepted;
}

void Scrivara::focusActiveElement(Annotation *element, Page *page)
{
    const auto *item = dynamic_cast<QGraphicsItem *>(element);
    if (m_pageStack == nullptr || item == nullptr || page == nullptr || page->views().isEmpty())
        return;
    QGraphicsView *view = page->views().constFirst();
    // A tag may have been undone or cut, and its document closed.
    if (item->scene() != page || m_pageStack->indexOf(view) == -1)
        return;
    m_pageStack->setCurrentWidget(view);
    // First the focus: where the window is the active one, it brings the caret into sight.
    page->focusDocument();
    view->ensureVisible(item, 200, 200);
}
