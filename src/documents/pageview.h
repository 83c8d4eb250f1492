// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsView>
#include <QPointer>

class Page;

/// Shows one page in a tab, handles zoom, and takes the keys that a graphics view would swallow.
class PageView : public QGraphicsView
{
    Q_OBJECT

public:
    /// @p scene is not owned; one that is no Page is shown without the services of a page.
    PageView(QGraphicsScene *scene, QWidget *parent);
    ~PageView() override;

    /// Null when the scene is no Page or has died.
    Page *page() const;
    /// In percent; 100 shows one scene unit as one pixel.
    int zoom() const;
    void setZoom(int percent);

protected:
    bool event(QEvent *event) override;

private:
    QPointer<Page> m_page;
    int m_zoom = 100;
};
