// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui_mainwindow.h"

#include <array>

/// Actions of the form that belong together by number: the index in each table is the id that the slot gets.
namespace ActionTables {

using Member = QAction *Ui_MainWindow::*;
using Form = Ui_MainWindow;

/// Line styles.
inline constexpr std::array<Member, 8> lines{
    &Form::actionSimpleLine,
    &Form::actionEmptyCirclesLine,
    &Form::actionFilledCirclesLine,
    &Form::actionFilledEmptyCirclesLine,
    &Form::actionArrow,
    &Form::actionTwoArrows,
    &Form::actionEmptyCircleArrow,
    &Form::actionFilledCircleArrow,
};

/// Bracket styles.
inline constexpr std::array<Member, 2> brackets{&Form::actionCurlyBracket, &Form::actionRectBracket};

/// Shape kinds.
inline constexpr std::array<Member, 3> shapes{
    &Form::actionToolRectangle,
    &Form::actionToolRoundedRectangle,
    &Form::actionToolEllipse,
};

/// Predefined pens and markers.
inline constexpr std::array<Member, 12> predefinedTools{
    &Form::actionThinBlackPen,   &Form::actionThinRedPen,   &Form::actionThinGreenPen,   &Form::actionThinBluePen,
    &Form::actionMediumBlackPen, &Form::actionMediumRedPen, &Form::actionMediumGreenPen, &Form::actionMediumBluePen,
    &Form::actionRedMarker,      &Form::actionGreenMarker,  &Form::actionBlueMarker,     &Form::actionYellowMarker,
};

/// Layouts of the window.
inline constexpr std::array<Member, 3> views{
    &Form::actionFullView,
    &Form::actionCompactView,
    &Form::actionMinimalView,
};

/// Tabs of the settings dialog.
inline constexpr std::array<Member, 11> settingsTabs{
    &Form::actionPenSettings,      &Form::actionMarkerSettings,
    &Form::actionTextBoxSettings,  &Form::actionLineAndBracketSettings,
    &Form::actionShapeSettings,    &Form::actionScreenshotSettings,
    &Form::actionPageViewSettings, &Form::actionSyntaxSettings,
    &Form::actionPrintSettings,    &Form::actionMainSettings,
    &Form::actionEmailSettings,
};

/// Tools and modes without a number.
inline constexpr std::array<Member, 6> plainTools{
    &Form::actionToolTextMode, &Form::actionTransformationMode, &Form::actionToolPen, &Form::actionToolMarker,
    &Form::actionTextBox,      &Form::actionToolEraser,
};

} // namespace ActionTables
