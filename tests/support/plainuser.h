// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <unistd.h>

/// Somebody who may not do everything: root steps down to a user without rights while this lives.
class PlainUser
{
public:
    PlainUser()
    {
        if (m_wasRoot && setresuid(65534, 65534, 0) != 0)
            qFatal("cannot give up the rights of root");
    }
    PlainUser(const PlainUser &) = delete;
    PlainUser &operator=(const PlainUser &) = delete;
    ~PlainUser()
    {
        if (m_wasRoot && setresuid(0, 0, 0) != 0)
            qFatal("cannot become root again");
    }

private:
    const bool m_wasRoot = geteuid() == 0;
};
