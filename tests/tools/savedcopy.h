// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Page;

/// Saves @p page as an annotated file at @p path, which ends in ".oxn", opens the file and saves it again. Empty if
/// that tells the same story each time: the same bytes of the same page, the same text and marks in the opened copy up
/// to the single precision in which numbers are read, and the same bytes again of what has been read once. Otherwise
/// what is wrong first. State and name of @p page stay.
QString differenceAfterSaving(Page *page, const QString &path);
