// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTextCharFormat>

class QTextBlock;
class QTextDocument;

/// A definition file that lies in the program's syntax folder while the object lives, under a name of its own.
class DefinitionFile
{
public:
    /// Writes @p content; aborts the run if it cannot.
    explicit DefinitionFile(const QByteArray &content);
    ~DefinitionFile();
    Q_DISABLE_COPY_MOVE(DefinitionFile)

    void write(const QByteArray &content);
    QString name() const; ///< Without a folder, with ".xml".
    QString path() const;

private:
    QString m_name;
};

/// A definition with these patterns for one group each, in colours that tell the groups apart.
QByteArray definitionXml(const QStringList &keywords, const QStringList &types = {}, const QStringList &comments = {},
                         const QStringList &quotation = {});

/// The format of every character of the block, as a highlighter laid it over the text.
QList<QTextCharFormat> formatsOf(const QTextBlock &block);

/// One letter for every character of the block: the first of the group whose colour in definitionXml() it has, or a
/// dot.
QString groupsOf(const QTextBlock &block);
/// The same for all blocks.
QStringList groupsOf(const QTextDocument &document);
