// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/elementreader.h"

#include "annotations/xmlnames.h"

#include <cmath>

ElementReader::~ElementReader() = default;

QString ElementReader::string(QLatin1String name, QLatin1String defaultValue) const
{
    const auto value = attribute(name);
    return value ? value->toString() : QString(defaultValue);
}

int ElementReader::integer(QLatin1String name, int defaultValue) const
{
    const auto value = attribute(name);
    return value ? value->trimmed().toInt() : defaultValue;
}

double ElementReader::real(QLatin1String name) const
{
    const auto value = attribute(name);
    const float number = value ? value->trimmed().toFloat() : 0.0F;
    return std::isfinite(number) ? double(number) : 0.0;
}

bool ElementReader::isYes(QLatin1String name) const
{
    return attribute(name) == XmlNames::yes;
}

std::optional<QChar> ElementReader::codedCharacter(QStringView tag, QStringView code)
{
    bool ok = false;
    const ushort unit = code.toUShort(&ok);
    return ok && tag == XmlNames::character ? std::optional(QChar(unit)) : std::nullopt;
}
