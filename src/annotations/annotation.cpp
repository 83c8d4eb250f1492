// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/annotation.h"

Annotation::~Annotation() = default;

void Annotation::setAntialiasing(bool on)
{
    m_antialiasing = on;
}

bool Annotation::antialiasing() const
{
    return m_antialiasing;
}

void Annotation::smooth() {}
