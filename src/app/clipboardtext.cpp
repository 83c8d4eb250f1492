// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/clipboardtext.h"

#include <QClipboard>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QMimeData>

namespace {

constexpr int restAfterSilence = 10'000; // milliseconds

/// Runs while the owner of the clipboard is not to be asked.
QDeadlineTimer &clipboardRest()
{
    static QDeadlineTimer rest(0);
    return rest;
}

} // namespace

QString clipboardText()
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    static const auto freshOwner =
        QObject::connect(clipboard, &QClipboard::dataChanged, clipboard, [] { clipboardRest() = QDeadlineTimer(0); });
    Q_UNUSED(freshOwner)
    if (!clipboardRest().hasExpired())
        return {};
    const QMimeData *offered = clipboard->mimeData();
    if (offered == nullptr || offered->formats().isEmpty()) {
        // Empty, or its owner keeps silent; either way there is nothing to be had before long.
        clipboardRest() = QDeadlineTimer(restAfterSilence);
        return {};
    }
    return offered->text();
}
