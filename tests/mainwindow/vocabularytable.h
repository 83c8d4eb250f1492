// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayList>
#include <QKeySequence>
#include <QList>

enum ExpectedCheck { Plain, Checkable, Checked };

/// An action as the window must have it. The icon is the name of a resource; icon and group are empty for none.
struct ExpectedAction
{
    const char *name;
    const char *text;
    const char *icon;
    QKeySequence shortcut;
    ExpectedCheck check;
    const char *group;
};

/// A menu as the window must have it; the contents as actionNames() gives them, joined by blanks.
struct ExpectedMenu
{
    const char *name;
    const char *title;
    const char *contents;
};

/// All actions that have a name, in the order of the form.
const QList<ExpectedAction> &expectedActions();
const QList<ExpectedMenu> &expectedMenus();
/// The window's own slots by their signatures, in their order.
QByteArrayList expectedSlots();
