// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/definitiongroups.h"

#include <QByteArray>

#include <optional>

/// A definition file with @p groups in the place of its own: one "element" for each of them, in their order. All
/// else of @p xml stays: comments, the attributes of the root, attributes and elements that the format does not know.
/// What says the same as before keeps its wording. The same arguments always give the same bytes.
///
/// Nothing if @p xml is not the content of a definition file, or if a reader would not find @p groups in the result,
/// as with characters that XML cannot hold.
std::optional<QByteArray> rewrittenDefinition(const QByteArray &xml, const DefinitionGroups &groups);

/// The bytes of a definition file for @p extension without a group.
QByteArray emptyDefinition(const QString &extension);
