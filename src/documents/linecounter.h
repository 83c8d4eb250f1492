// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;

/// How many lines of each kind a text has; code, comments and empty add up to total.
struct LineCounts
{
    int total = 0;
    int code = 0;
    int comments = 0;
    int empty = 0;
};

/// Counts the lines of @p text, which line feeds separate: a text without one is a line.
LineCounts countLinesOf(const QString &text);

/// Whether the line is nothing but a comment, that is, whether it starts with two slashes.
bool startsLineComment(const QString &line);
