// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/oxnfiles.h"

#include "annotations/annotation.h"
#include "documents/page.h"
#include "persistence/iosystem.h"
#include "support/files.h"

#include <QDir>
#include <QGraphicsItem>
#include <QRegularExpression>

QString OxnFiles::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QString OxnFiles::write(const QString &name, const QByteArray &bytes) const
{
    store(path(name), bytes);
    return path(name);
}

QByteArray OxnFiles::bytes(const QString &name) const
{
    return bytesIn(path(name));
}

QStringList OxnFiles::names() const
{
    return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

QByteArray OxnFiles::saved(Page &page) const
{
    const QString name = QStringLiteral("saved by the test.oxn");
    const QByteArray written = IoSystem::instance()->save(&page, path(name)) ? bytes(name) : QByteArray();
    QFile::remove(path(name));
    return written;
}

QByteArray Oxn::file(const QByteArray &inside, const QByteArray &rootAttributes)
{
    return "<!DOCTYPE Zettelwerk_2008>\n<Zettelwerk-xml " + rootAttributes + ">\n" + inside + "\n</Zettelwerk-xml>\n";
}

QByteArray Oxn::withoutSize(const QByteArray &bytes)
{
    const QRegularExpression size(QStringLiteral("(<Zettelwerk-xml [^>]* width=\")[^\"]*(\" height=\")[^\"]*\""));
    return QString::fromUtf8(bytes).replace(size, QStringLiteral("\\1?\\2?\"")).toUtf8();
}

QList<Annotation *> Oxn::marks(const Page &page)
{
    QList<Annotation *> marks;
    for (QGraphicsItem *item : page.items(Qt::AscendingOrder)) {
        if (auto *mark = dynamic_cast<Annotation *>(item))
            marks.append(mark);
    }
    return marks;
}

QGraphicsItem *Oxn::item(Annotation *mark)
{
    return dynamic_cast<QGraphicsItem *>(mark);
}
