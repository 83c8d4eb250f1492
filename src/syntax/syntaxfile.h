// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTextCharFormat>
#include <QVector>

#include <array>
#include <optional>

/// One syntax definition in memory: for each of four groups a list of regular expressions and the format that their
/// matches take. Definitions lie in the syntax folder, one XML file for each file extension; the set of those files is
/// the registry of known extensions.
///
/// The lists and formats may be edited; nothing here writes them back.
class SyntaxFile : public QObject
{
    Q_OBJECT

public:
    /// The groups, in the order in which a definition file has them and in which their rules are applied.
    enum Group { Keywords, Types, Comments, Quotation };
    static constexpr int groupCount = 4;

    /// An empty definition with the default formats. @p fileName is a name inside the syntax folder; nothing is read.
    explicit SyntaxFile(const QString &fileName);
    ~SyntaxFile() override;

    /// Reads the file into the object. An unempty @p fileName, of which only the part behind the last separator
    /// counts, replaces the object's own first. Patterns are appended to what the lists hold already; formats are
    /// replaced, and an absent colour gives an invalid one.
    ///
    /// False if the file is missing, cannot be opened or is not a harmless XML file; a message box has said so then,
    /// and the object is unchanged but for its file name.
    bool load(const QString &fileName);
    /// The part of load() that reads @p xml, the bytes of a file. Shows no message.
    bool parse(const QByteArray &xml);
    /// Whether the file is still as the last load found it, be that good, damaged or missing: loading again would only
    /// say the same. Shows no message.
    bool isUpToDate() const;
    /// Takes the object back to an empty definition; the file name stays.
    void reset();

    QString fileName() const;
    /// Where the file lies or would lie.
    QString path() const;
    const QVector<QString> &patterns(Group group) const;
    QVector<QString> &patterns(Group group);
    const QTextCharFormat &format(Group group) const;
    QTextCharFormat &format(Group group);

private:
    QString m_fileName;
    std::array<QVector<QString>, groupCount> m_patterns;
    std::array<QTextCharFormat, groupCount> m_formats;
    bool m_tried = false;               ///< There was a load.
    std::optional<QByteArray> m_loaded; ///< The bytes that the last load found; none if it could not read the file.
};
