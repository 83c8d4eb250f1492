// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/documentname.h"

#include <QFileInfo>
#include <QImageWriter>

bool DocumentName::isAnnotatedFile(const QString &path)
{
    return QFileInfo(path).suffix().compare(QLatin1String("oxn"), Qt::CaseInsensitive) == 0;
}

QString DocumentName::picturePatterns()
{
    return QStringLiteral("*.") + QString::fromLatin1(QImageWriter::supportedImageFormats().join(" *."));
}

QString DocumentName::windowTitle(const QString &bareTitle, const QString &name, bool modified)
{
    QString title = bareTitle + QStringLiteral(" [") + name + QLatin1Char(']');
    if (modified)
        title += QLatin1Char('*');
    // Qt would put its own mark of a modified document in this place; twice it stands for itself.
    return title.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

QString DocumentName::label(const QString &path)
{
    QString text = QFileInfo(path).fileName();
    for (QChar &character : text) {
        if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}
