// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QComboBox;

/// The five line styles of a combo box. Each entry shows its style as a picture and has the English name, under which
/// it is stored, as its data.
namespace LineStyles {

/// Adds the entries.
void fill(QComboBox *box);
/// Gives the entries their names in the present language.
void retranslate(QComboBox *box);

} // namespace LineStyles
