// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/documenthost.h"

#include <QPointer>
#include <QWidget>

/// A document's way to its window that notices when the window has gone.
///
/// Pages and views may outlive the window; get() is null from then on, as it is for a document without a host.
class HostLink
{
public:
    /// @p host may be null. A host without a window (hostWindow() null) must outlive the link.
    explicit HostLink(DocumentHost *host)
        : m_host(host), m_window(host ? host->hostWindow() : nullptr), m_guarded(!m_window.isNull())
    {
    }

    DocumentHost *get() const { return m_guarded && m_window.isNull() ? nullptr : m_host; }
    /// Parent of the boxes and dialogs about the document; null without a host.
    QWidget *window() const { return m_window; }

private:
    DocumentHost *m_host;
    QPointer<QWidget> m_window;
    bool m_guarded;
};
