// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <optional>

/// The arrangement of tool bars as plain values, and its bytes in the settings store.
///
/// Bytes (QDataStream as of Qt 4.6, big-endian): int32 255, int32 version, int8 -2, int32 number of bars, for each its
/// name, int32 number of actions and their names; int8 -3, int32 number of custom bars, for each its name, its title,
/// int32 number of actions and their names.
struct ToolBarState
{
    struct Bar
    {
        QString name;
        QString title;       ///< of custom bars only
        QStringList actions; ///< an empty name is a separator

        bool operator==(const Bar &other) const = default;
    };

    QList<Bar> bars; ///< all of them, the custom ones too
    QList<Bar> customBars;

    QByteArray toBytes(int version) const;
    /// Nothing if the bytes are damaged, cut off or of another version. Bytes behind the end are ignored.
    static std::optional<ToolBarState> fromBytes(const QByteArray &bytes, int version);
};
