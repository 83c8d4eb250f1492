// SPDX-License-Identifier: GPL-3.0-or-later
#include "syntax/syntaxfile.h"

#include "app/folders.h"
#include "syntax/definitionxml.h"

#include <QBrush>
#include <QColor>
#include <QDomElement>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QMessageBox>

#include <algorithm>

namespace {

constexpr std::array groupNames{"Keywords", "Types", "Comments", "Quotation"};
constexpr std::array defaultColors{Qt::red, Qt::blue, Qt::gray, Qt::darkGreen};

/// The text is taken literally: a file name that looks like markup stays readable.
void warnAboutDefinition(const QString &text)
{
    QMessageBox box(QMessageBox::Warning, SyntaxFile::tr("Warning"), text, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

/// The whole file, or one byte more than a definition may have; nothing where it cannot be opened. Only regular files
/// are opened: reading a pipe would wait for its writer.
std::optional<QByteArray> definitionBytes(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(largestDefinition + 1);
}

QString attributeText(const QDomElement &element, const QString &name)
{
    return element.attribute(name).trimmed();
}

QBrush attributeBrush(const QDomElement &element, const QString &name)
{
    return QBrush(QColor::fromString(attributeText(element, name)), Qt::SolidPattern);
}

void readFormat(const QDomElement &element, QTextCharFormat &format)
{
    format.setForeground(attributeBrush(element, QStringLiteral("color")));
    format.setBackground(attributeBrush(element, QStringLiteral("bg_color")));
    // The attribute "italic" belongs to the format of the file and has no effect.
    const bool bold = attributeText(element, QStringLiteral("weight")) == QLatin1String("Bold");
    format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
}

void readPatterns(const QDomElement &element, QVector<QString> &patterns)
{
    const QString tag = QStringLiteral("pattern");
    for (QDomElement child = element.firstChildElement(tag); !child.isNull(); child = child.nextSiblingElement(tag))
        patterns.append(child.text().trimmed());
}

} // namespace

SyntaxFile::SyntaxFile(const QString &fileName) : m_fileName(fileName)
{
    reset();
}

SyntaxFile::~SyntaxFile() = default;

bool SyntaxFile::load(const QString &fileName)
{
    m_tried = true;
    m_loaded.reset();
    if (!fileName.isEmpty())
        m_fileName = QFileInfo(fileName).fileName();
    if (!QFileInfo::exists(path())) {
        warnAboutDefinition(tr("Syntax file for .%1 doesn't exist!").arg(QFileInfo(path()).baseName()));
        return false;
    }
    m_loaded = definitionBytes(path());
    if (!m_loaded) {
        warnAboutDefinition(tr("Can't open syntax file: %1 !").arg(path()));
        return false;
    }
    if (!parse(*m_loaded)) {
        warnAboutDefinition(tr("Format of syntax file '%1' is wrong!").arg(path()));
        return false;
    }
    return true;
}

bool SyntaxFile::parse(const QByteArray &xml)
{
    const std::optional<QDomDocument> document = parseDefinition(xml);
    if (!document)
        return false;
    const QString tag = QStringLiteral("element");
    QDomElement element = document->documentElement().firstChildElement(tag);
    for (; !element.isNull(); element = element.nextSiblingElement(tag)) {
        const auto *name = std::find(groupNames.begin(), groupNames.end(), attributeText(element, "name"));
        if (name == groupNames.end())
            continue;
        const auto group = static_cast<Group>(name - groupNames.begin());
        readFormat(element, format(group));
        readPatterns(element, patterns(group));
    }
    return true;
}

bool SyntaxFile::isUpToDate() const
{
    return m_tried && definitionBytes(path()) == m_loaded;
}

void SyntaxFile::reset()
{
    m_tried = false;
    m_loaded.reset();
    m_patterns = {};
    m_formats = {};
    for (std::size_t i = 0; i < m_formats.size(); ++i)
        m_formats.at(i).setForeground(defaultColors.at(i));
}

QString SyntaxFile::fileName() const
{
    return m_fileName;
}

const QVector<QString> &SyntaxFile::patterns(Group group) const
{
    return m_patterns.at(group);
}

QVector<QString> &SyntaxFile::patterns(Group group)
{
    return m_patterns.at(group);
}

const QTextCharFormat &SyntaxFile::format(Group group) const
{
    return m_formats.at(group);
}

QTextCharFormat &SyntaxFile::format(Group group)
{
    return m_formats.at(group);
}

/// Whatever the name was built from, only its file-name part is looked up: no definition lies outside the folder.
QString SyntaxFile::path() const
{
    // Asked for once: each request is a line in the record of what the program did.
    static const QString folder = dataFolder(QStringLiteral("syntax"));
    return folder + QFileInfo(m_fileName).fileName();
}
