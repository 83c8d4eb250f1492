// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The sizes that the zoom box offers, by its index: 25% to 200% of the document's own.
namespace ZoomSteps {

inline constexpr int count = 8;
inline constexpr int step = 25;   ///< Percent from one to the next.
inline constexpr int ownSize = 3; ///< Index of 100%.

constexpr int percentOf(int index)
{
    return (index + 1) * step;
}

/// The index of @p percent; of the next smaller size for a percentage between two.
constexpr int indexOf(int percent)
{
    return percent / step - 1;
}

constexpr bool contains(int index)
{
    return index >= 0 && index < count;
}

} // namespace ZoomSteps
