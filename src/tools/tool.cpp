// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/tool.h"

Tool::Tool(bool followsSettings) : m_followsSettings(followsSettings) {}

Tool::~Tool() = default;

void Tool::updateSettings()
{
    if (m_followsSettings)
        readSettings();
}

void Tool::readSettings() {}

bool Tool::followsSettings() const
{
    return m_followsSettings;
}

void Tool::setFollowsSettings(bool follows)
{
    m_followsSettings = follows;
}

void Tool::paintOverlay(QPainter * /*painter*/) {}

void Tool::abandonGesture() {}
