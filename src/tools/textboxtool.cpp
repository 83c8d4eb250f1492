// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/textboxtool.h"

#include <QPixmap>
#include <QSettings>

TextBoxTool::TextBoxTool(ToolHost *host, bool followsSettings)
    : DrawingTool(followsSettings), m_host(host), m_font(QStringLiteral("Courier"), 10)
{
}

void TextBoxTool::updateSettings()
{
    m_fresh = true;
    if (!followsSettings())
        return;
    const QSettings settings;
    m_useOnce = settings.value(QStringLiteral("TextBoxTool/UseOnce"), false).toBool();
    const QString family =
        settings.value(QStringLiteral("TextBoxTool/DefaultFontFamily"), QStringLiteral("Courier")).toString();
    const int size = settings.value(QStringLiteral("TextBoxTool/DefaultFontSize"), 10).toInt();
    m_font = QFont(family, size, -1, false);
}

QCursor TextBoxTool::makeCursor()
{
    return QCursor(QPixmap(QStringLiteral(":/tool_icons/text_box.png")), 1, 1);
}

void TextBoxTool::mousePressed(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void TextBoxTool::mouseMoved(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
void TextBoxTool::mouseReleased(QGraphicsSceneMouseEvent * /*event*/, Page * /*page*/) {}
