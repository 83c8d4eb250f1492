// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/drawingtool.h"

#include <QCoreApplication>
#include <QFont>

class ToolHost;

/// Places a text box at a click. The text takes the colour of the tool's pen.
class TextBoxTool : public DrawingTool
{
    Q_DECLARE_TR_FUNCTIONS(TextBoxTool)

public:
    /// @p host may be null: the tool then never leaves by itself. Not owned.
    TextBoxTool(ToolHost *host, bool followsSettings);

    QCursor makeCursor() override;
    void updateSettings() override;
    void mousePressed(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseMoved(QGraphicsSceneMouseEvent *event, Page *page) override;
    void mouseReleased(QGraphicsSceneMouseEvent *event, Page *page) override;

protected:
    void readSettings() override;

private:
    ToolHost *m_host;
    QFont m_font;             ///< Font of new boxes.
    bool m_onTextBox = false; ///< The press landed on a box that is already there.
    bool m_useOnce = false;   ///< Leave the tool at the press after the first box.
    bool m_fresh = true;      ///< No box has been placed since the tool was last set up.
};
