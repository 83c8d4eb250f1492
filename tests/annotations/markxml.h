// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

class Annotation;

/// Ways of a mark into XML and back, through either back end.
namespace MarkXml {

/// The mark's element as it stands in a file.
QByteArray streamed(const Annotation &mark);
/// The mark's element as a document in memory gives it; its attributes come in any order.
QByteArray saved(Annotation &mark);
void readStreamed(Annotation &mark, const QByteArray &xml);
void load(Annotation &mark, const QByteArray &xml);

/// Name and value of every attribute of the outermost element.
QMap<QString, QString> attributes(const QByteArray &xml);
/// Names of these attributes in the order of the text.
QStringList attributeOrder(const QByteArray &xml);
/// The same XML with all attributes sorted by name and without the white space between elements, for comparing what
/// differs in order and layout only.
QByteArray withSortedAttributes(const QByteArray &xml);

} // namespace MarkXml
