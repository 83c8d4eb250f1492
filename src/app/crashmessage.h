// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Title and text of the box that follows a crash, in the language of the moment.
QString crashTitle();
QString crashText();
