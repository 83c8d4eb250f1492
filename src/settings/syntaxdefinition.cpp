// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/syntaxdefinition.h"

#include "persistence/safefile.h"
#include "settings/definitionwriter.h"

#include <QFileInfo>

SyntaxDefinition::SyntaxDefinition(const QString &fileName)
    : m_file(fileName), m_read(groupsOf(m_file)), m_accepted(m_read)
{
}

SyntaxFile &SyntaxDefinition::file()
{
    return m_file;
}

const SyntaxFile &SyntaxDefinition::file() const
{
    return m_file;
}

QString SyntaxDefinition::extension() const
{
    return QFileInfo(m_file.fileName()).completeBaseName();
}

void SyntaxDefinition::revert()
{
    const bool keepsChanges = hasUnsavedChanges() && !m_isDamaged;
    if (keepsChanges || m_file.isUpToDate())
        setGroups(m_file, m_accepted);
    else
        read();
}

bool SyntaxDefinition::isKept() const
{
    return hasUnsavedChanges() || QFileInfo::exists(m_file.path());
}

bool SyntaxDefinition::save()
{
    const DefinitionGroups present = groupsOf(m_file);
    const bool isNewToUs = !areWrittenAlike(present, m_accepted) || (m_isNew && !m_isAccepted);
    m_accepted = present;
    m_isAccepted = true;
    if (!hasUnsavedChanges())
        return true;
    if (m_isDamaged || !write(present))
        return !isNewToUs;
    read();
    return true;
}

bool SyntaxDefinition::hasUnsavedChanges() const
{
    return m_isNew ? m_isAccepted : !areWrittenAlike(m_accepted, m_read);
}

void SyntaxDefinition::read()
{
    m_file.reset();
    m_isDamaged = !m_file.load(m_file.fileName());
    m_isNew = false;
    m_read = groupsOf(m_file);
    m_accepted = m_read;
}

bool SyntaxDefinition::write(const DefinitionGroups &groups) const
{
    QByteArray xml = emptyDefinition(extension());
    DefinitionGroups merged = groups;
    if (QFileInfo::exists(m_file.path())) {
        SyntaxFile onDisk(m_file.fileName());
        if (readWhole(m_file.path(), &xml) != QFileDevice::NoError || !onDisk.parse(xml))
            return false;
        merged = groupsOf(onDisk);
        for (std::size_t i = 0; i < groups.size(); ++i) {
            if (!groups.at(i).isWrittenLike(m_read.at(i)))
                merged.at(i) = groups.at(i);
        }
    }
    const std::optional<QByteArray> rewritten = rewrittenDefinition(xml, merged);
    return rewritten && writeSafely(m_file.path(), *rewritten) == QFileDevice::NoError;
}
