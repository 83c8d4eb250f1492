// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/definitions.h"

#include "app/folders.h"

#include <QCoreApplication>
#include <QFile>
#include <QMap>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace {

const QStringList groupTags{"Keywords", "Types", "Comments", "Quotation"};
const QStringList groupColors{"#000001", "#000002", "#000003", "#000004"};

} // namespace

DefinitionFile::DefinitionFile(const QByteArray &content)
{
    static int count = 0;
    m_name = QStringLiteral("test-%1-%2.xml").arg(QCoreApplication::applicationPid()).arg(++count);
    write(content);
}

DefinitionFile::~DefinitionFile()
{
    QFile::remove(path());
}

void DefinitionFile::write(const QByteArray &content)
{
    QFile file(path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path()));
}

QString DefinitionFile::name() const
{
    return m_name;
}

QString DefinitionFile::path() const
{
    return dataFolder(QStringLiteral("syntax")) + m_name;
}

QByteArray definitionXml(const QStringList &keywords, const QStringList &types, const QStringList &comments,
                         const QStringList &quotation)
{
    QString xml = QStringLiteral("<syntaxfile type=\"test\" version=\"1.0\">\n");
    const QList<QStringList> groups{keywords, types, comments, quotation};
    for (int i = 0; i < groups.size(); ++i) {
        xml += QStringLiteral("<element name=\"%1\" color=\"%2\" bg_color=\"transparent\" weight=\"Normal\">\n")
                   .arg(groupTags.at(i), groupColors.at(i));
        for (const QString &pattern : groups.at(i))
            xml += "<pattern>" + pattern.toHtmlEscaped() + "</pattern>\n";
        xml += "</element>\n";
    }
    return (xml + "</syntaxfile>\n").toUtf8();
}

QList<QTextCharFormat> formatsOf(const QTextBlock &block)
{
    QList<QTextCharFormat> formats(block.length() - 1);
    for (const QTextLayout::FormatRange &range : block.layout()->formats()) {
        for (int i = range.start; i < range.start + range.length; ++i)
            formats[i] = range.format;
    }
    return formats;
}

QString groupsOf(const QTextBlock &block)
{
    QString letters;
    for (const QTextCharFormat &format : formatsOf(block)) {
        const auto group = groupColors.indexOf(format.foreground().color().name());
        const bool painted = format.hasProperty(QTextFormat::ForegroundBrush) && group >= 0;
        letters += painted ? groupTags.at(group).at(0) : QLatin1Char('.');
    }
    return letters;
}

QStringList groupsOf(const QTextDocument &document)
{
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        lines.append(groupsOf(block));
    return lines;
}
