// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lightscrollbars.h"

#include <QAbstractScrollArea>
#include <QScrollBar>

void lightenScrollBars(QAbstractScrollArea *area)
{
    const QString sheet = QStringLiteral("QScrollBar { background: #e2e2e4; border: none; }"
                                         "QScrollBar:vertical { width: 12px; }"
                                         "QScrollBar:horizontal { height: 12px; }"
                                         "QScrollBar::handle { background: #a6a6ac; margin: 2px; border-radius: 4px; }"
                                         "QScrollBar::handle:hover { background: #86868c; }"
                                         "QScrollBar::handle:vertical { min-height: 24px; }"
                                         "QScrollBar::handle:horizontal { min-width: 24px; }"
                                         "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
                                         "QScrollBar::add-page, QScrollBar::sub-page { background: none; }");
    area->verticalScrollBar()->setStyleSheet(sheet);
    area->horizontalScrollBar()->setStyleSheet(sheet);
}
