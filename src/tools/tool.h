// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCursor>

class Page;
class QGraphicsSceneMouseEvent;
class QPainter;

/// Turns mouse gestures on a Page into marks or other actions. One instance of each tool serves all pages.
///
/// A press is followed by a release, but a release can come without a press, and moves come between gestures
/// too. All positions are scene coordinates.
class Tool
{
public:
    /// @p followsSettings tells whether updateSettings() re-reads the store and the setters take effect.
    explicit Tool(bool followsSettings);
    Tool(const Tool &) = delete;
    Tool &operator=(const Tool &) = delete;
    virtual ~Tool();

    /// The mouse cursor for the tool's present look; may be called at any time.
    virtual QCursor makeCursor() = 0;
    /// Re-reads the tool's keys if followsSettings().
    virtual void updateSettings();
    /// @p page may be null: then no repaint is asked for.
    virtual void mousePressed(QGraphicsSceneMouseEvent *event, Page *page) = 0;
    virtual void mouseMoved(QGraphicsSceneMouseEvent *event, Page *page) = 0;
    /// @p page is always null here; a tool that needs it remembers the page of the press until now.
    virtual void mouseReleased(QGraphicsSceneMouseEvent *event, Page *page) = 0;
    virtual bool followsSettings() const;
    virtual void setFollowsSettings(bool follows);
    /// Paints above the scene while this tool is current; @p painter is in scene coordinates.
    virtual void paintOverlay(QPainter *painter);
    /// Forgets a gesture whose release will not be this tool's, because another tool, mode or page takes the mouse.
    /// Nothing comes of it. May be called at any time, also from inside the tool's own press or release.
    virtual void abandonGesture();

protected:
    /// Reads the tool's keys from the store. A tool without keys has nothing to do here.
    virtual void readSettings();

private:
    bool m_followsSettings;
};
