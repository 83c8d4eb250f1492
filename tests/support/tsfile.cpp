// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/tsfile.h"

#include <QFile>
#include <QXmlStreamReader>

QString TsMessage::name() const
{
    return context + QStringLiteral(": ") + source;
}

QList<TsMessage> readTsFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    QList<TsMessage> messages;
    QXmlStreamReader xml(&file);
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("message")) {
            messages.append({context, {}, {}, {}});
        } else if (xml.name() == QLatin1String("source")) {
            messages.last().source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            messages.last().type = xml.attributes().value(QLatin1String("type")).toString();
            messages.last().translation = xml.readElementText();
        }
    }
    if (xml.hasError() || messages.isEmpty())
        qFatal("%s is no translation source", qPrintable(path));
    return messages;
}

QString ownTsFile(const QString &language)
{
    return QStringLiteral(KESTRIN_SOURCE_DIR "/data/sys/sysr/lg/scrivara_%1.ts").arg(language);
}

QString laidTranslations()
{
    return QStringLiteral(KESTRIN_BINARY_DIR "/bin/sys/sysr/lg");
}
