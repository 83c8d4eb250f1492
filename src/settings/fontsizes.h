// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QComboBox;

/// Fills the box with the standard font sizes, in points, and makes @p size the current one. A size that is not
/// among them gets an entry at its place.
void showFontSize(QComboBox *box, int size);
