// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Qt>

class ActiveElement;

/// What an active tag asks of its scene: a tag finds this interface by casting the scene on which it lies. On any
/// other scene a tag cannot be edited.
class TagEditor
{
public:
    /// Lets the user edit @p element in a dialog with these window flags, none meaning the usual ones. Comes back
    /// when the dialog is closed; the tag, its scene and the editor may have gone by then.
    virtual void editActiveElement(ActiveElement *element, Qt::WindowFlags flags) = 0;

protected:
    ~TagEditor() = default;
};
