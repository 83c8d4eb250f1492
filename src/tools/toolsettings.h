// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QSettings;

/// Reading of tool keys whose stored values may be out of range. Key and default are the caller's.
namespace ToolSettings {

/// A pen width, clamped to 0 (the thinnest line at any zoom) up to 1000.
int lineWidth(const QSettings &settings, const QString &key, int defaultWidth);
/// The alpha, 0 to 255, that a stored transparency in percent stands for.
int alpha(const QSettings &settings, const QString &key, int defaultTransparency);
/// (100 - @p transparency) / 100 of 255, cut to its whole part.
int alphaOfTransparency(int transparency);

} // namespace ToolSettings
