// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QAbstractScrollArea;

/// Draws the scroll bars of an area that has a fixed light background to match it.
///
/// A style sheet that sets only the background of an area takes its scroll bars out of the hands of the platform's
/// style, which leaves bare boxes in dark palettes.
void lightenScrollBars(QAbstractScrollArea *area);
