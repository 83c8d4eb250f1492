// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/definitiongroups.h"

#include <QBrush>

#include <algorithm>

QColor writtenColor(const QColor &color)
{
    return color.isValid() ? QColor::fromRgba(color.rgba()) : QColor();
}

QVector<QString> DefinitionGroup::writtenPatterns() const
{
    QVector<QString> trimmed;
    for (const QString &pattern : patterns)
        trimmed.append(pattern.trimmed());
    return trimmed;
}

QColor DefinitionGroup::color() const
{
    return writtenColor(format.foreground().color());
}

QColor DefinitionGroup::background() const
{
    const QBrush brush = format.background();
    return brush.style() == Qt::NoBrush ? QColor::fromRgba(0) : writtenColor(brush.color());
}

bool DefinitionGroup::isBold() const
{
    return format.fontWeight() >= QFont::DemiBold;
}

bool DefinitionGroup::isWrittenLike(const DefinitionGroup &other) const
{
    return writtenPatterns() == other.writtenPatterns() && color() == other.color() &&
           background() == other.background() && isBold() == other.isBold();
}

DefinitionGroups groupsOf(const SyntaxFile &definition)
{
    DefinitionGroups groups;
    for (int i = 0; i < SyntaxFile::groupCount; ++i) {
        const auto group = SyntaxFile::Group(i);
        groups.at(std::size_t(i)) = {definition.patterns(group), definition.format(group)};
    }
    return groups;
}

void setGroups(SyntaxFile &definition, const DefinitionGroups &groups)
{
    for (int i = 0; i < SyntaxFile::groupCount; ++i) {
        const auto group = SyntaxFile::Group(i);
        definition.patterns(group) = groups.at(std::size_t(i)).patterns;
        definition.format(group) = groups.at(std::size_t(i)).format;
    }
}

bool areWrittenAlike(const DefinitionGroups &some, const DefinitionGroups &others)
{
    return std::equal(some.begin(), some.end(), others.begin(),
                      [](const DefinitionGroup &a, const DefinitionGroup &b) { return a.isWrittenLike(b); });
}
