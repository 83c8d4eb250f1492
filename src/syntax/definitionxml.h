// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDomDocument>

#include <optional>

/// Parses the bytes of a syntax definition file.
///
/// Definition files come from anywhere, so a stream pass goes over the bytes before a tree is built of them. Refused
/// are what is not well-formed XML, entity and attribute declarations, elements nested or carrying attributes far
/// beyond what the format knows, single tags and texts of more than 64 KiB, and files above 1 MiB. Nothing is returned
/// then.
std::optional<QDomDocument> parseDefinition(const QByteArray &xml);

/// Size above which parseDefinition() refuses a file, in bytes: a reader need not fetch more than one byte beyond it.
constexpr qint64 largestDefinition = 1 << 20;
