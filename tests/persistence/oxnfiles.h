// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTemporaryDir>

class Annotation;
class Page;
class QGraphicsItem;

/// A folder of annotated files for one test, removed with it.
class OxnFiles
{
public:
    QString path(const QString &name) const;
    /// Writes a file and returns its path.
    QString write(const QString &name, const QByteArray &bytes) const;
    QByteArray bytes(const QString &name) const;
    /// Names of all files.
    QStringList names() const;
    /// What the page would be written as. Empty if that failed.
    QByteArray saved(Page &page) const;

private:
    QTemporaryDir m_folder;
};

namespace Oxn {

/// An annotated file with this inside its root element.
QByteArray file(const QByteArray &inside, const QByteArray &rootAttributes = R"(zettel_werk_type="v12042008")");
/// The file with the sizes in its root, which depend on the fonts, replaced by "?".
QByteArray withoutSize(const QByteArray &bytes);
/// All marks on the page, bottom first.
QList<Annotation *> marks(const Page &page);
QGraphicsItem *item(Annotation *mark);

} // namespace Oxn
