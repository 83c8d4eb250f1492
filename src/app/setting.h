// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

/// The value that @p settings has under @p key. If there is none, or if what is stored there cannot be read as a T
/// (words where a number should be, a list where a text should be), @p fallback: the reader's own default.
/// A number that can be read may still be out of any sensible range; that is the reader's to deal with.
template<typename T> T settingOr(const QSettings &settings, const QString &key, const T &fallback)
{
    QVariant stored = settings.value(key);
    return stored.convert(QMetaType::fromType<T>()) ? stored.value<T>() : fallback;
}

/// The same for a truth value: "true" and "false" in any case, and numbers, can be read. (QVariant would take any other
/// word for true.)
bool settingOr(const QSettings &settings, const QString &key, bool fallback);

/// The same for the size of a font in points, which it keeps between 0 and 500: beyond, it can only be damage. 0 lets
/// QFont choose.
int fontSizeSetting(const QSettings &settings, const QString &key, int fallback);
