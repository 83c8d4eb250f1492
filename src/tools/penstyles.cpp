// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/penstyles.h"

#include <array>

namespace {

using StyleNames = std::array<QLatin1String, 5>;

/// The names stand in the order of the styles from Qt::SolidLine on.
Qt::PenStyle styleByName(const StyleNames &names, const QString &name, Qt::PenStyle current)
{
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (name == names.at(i))
            return static_cast<Qt::PenStyle>(Qt::SolidLine + static_cast<int>(i));
    }
    return current;
}

} // namespace

Qt::PenStyle PenStyles::fromSpacedName(const QString &name, Qt::PenStyle current)
{
    static constexpr StyleNames names{QLatin1String("Solid"), QLatin1String("Dash"), QLatin1String("Dot"),
                                      QLatin1String("Dash Dot"), QLatin1String("Dash Dot Dot")};
    return styleByName(names, name, current);
}

Qt::PenStyle PenStyles::fromHyphenatedName(const QString &name, Qt::PenStyle current)
{
    static constexpr StyleNames names{QLatin1String("Solid"), QLatin1String("Dash"), QLatin1String("Dot"),
                                      QLatin1String("Dash-Dot"), QLatin1String("Dash-Dot-Dot")};
    return styleByName(names, name, current);
}
