// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Annotation;
class Page;

/// What the list of active tags asks of the window. The list is the window's child and finds this interface by
/// casting its parent; without it no page counts as current and no tag can be jumped to.
class TagHost
{
public:
    /// The document in front, or null.
    virtual Page *currentPage() const = 0;
    /// Brings the tag into sight, with its document in front. Does nothing if either is null, or if the tag or its
    /// document is not to be seen any more.
    virtual void focusActiveElement(Annotation *element, Page *page) = 0;

protected:
    ~TagHost() = default;
};
