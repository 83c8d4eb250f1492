// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/tool.h"

Tool::Tool(bool followsSettings) : m_followsSettings(followsSettings) {}

Tool::~Tool() = default;

bool Tool::followsSettings() const
{
    return m_followsSettings;
}

void Tool::setFollowsSettings(bool follows)
{
    m_followsSettings = follows;
}

void Tool::paintOverlay(QPainter * /*painter*/) {}
