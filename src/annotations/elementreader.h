// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

#include <optional>

/// Walks over nested XML elements, forward only. One element is current; its attributes and its tag can be read
/// until the walk goes on, its children are entered one after the other:
///
///     while (reader.enterNextChild()) {
///         ...
///         reader.leaveChild();
///     }
///
/// Nothing here fails: what is missing takes the default that the caller names, what does not parse is 0.
class ElementReader
{
public:
    ElementReader() = default;
    ElementReader(const ElementReader &) = delete;
    ElementReader &operator=(const ElementReader &) = delete;
    virtual ~ElementReader();

    /// Makes the next child element of the current one current; false, and no change, after the last.
    virtual bool enterNextChild() = 0;
    /// Passes over the rest of the current element; its parent is current again.
    virtual void leaveChild() = 0;
    virtual QStringView tag() const = 0;
    /// The text of the current element and all elements inside it. Comes instead of entering its children.
    virtual QString readText() = 0;

    QString string(QLatin1String name, QLatin1String defaultValue) const;
    int integer(QLatin1String name, int defaultValue) const;
    /// Read in single precision; infinite values and those that are no numbers are 0. The default is 0.
    double real(QLatin1String name) const;
    /// True for the one value "yes".
    bool isYes(QLatin1String name) const;

protected:
    /// The attribute's value; the view is good until the next call. Nothing if there is no such attribute.
    virtual std::optional<QStringView> attribute(QLatin1String name) const = 0;
    /// The character that stands for the element with @p tag and @p code inside a text: one that XML cannot hold
    /// as it is. Nothing for all other elements.
    static std::optional<QChar> codedCharacter(QStringView tag, QStringView code);
};
