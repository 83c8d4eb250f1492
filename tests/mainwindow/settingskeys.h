// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

/// One key of the settings store. A key whose readers differ in their default stands here once for each of them.
struct SettingsKey
{
    const char *name;
    const char *defaultValue; ///< As it stands in the code of the readers.
    const char *readers;      ///< Folders of src/ whose code may name the key to read it.
    const char *writers;      ///< Folders of src/ whose code may name the key to write it.
    /// What the readers call with the key: "settingOr", a reader with a clamp, or the class that it is handed on to;
    /// empty where a function returns the key to its reader.
    const char *call = "settingOr";
};

/// The whole store, group by group.
const QList<SettingsKey> &settingsKeys();
