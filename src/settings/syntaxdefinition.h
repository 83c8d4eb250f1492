// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/definitiongroups.h"
#include "syntax/syntaxfile.h"

/// A syntax definition that is being edited: the object whose lists and formats the user changes, and what it takes
/// to forget the changes or to write them back.
///
/// Changes are accepted by save() and forgotten by revert(). Accepted changes that could not be written stay in memory
/// and are tried again with each save().
class SyntaxDefinition
{
public:
    /// @p fileName is a name inside the syntax folder. Nothing is read: revert() does that.
    explicit SyntaxDefinition(const QString &fileName);

    SyntaxFile &file();
    const SyntaxFile &file() const;
    /// The file name without ".xml".
    QString extension() const;

    /// Takes the definition back to what was accepted last, which is what the file holds unless that could not be
    /// written. A file that has changed since is read again. If it cannot be read, a message box says so once.
    void revert();
    /// Whether there is anything to go back to: a file, or accepted changes that have not reached it.
    bool isKept() const;

    /// Accepts the changes and writes them into the file; what another program has changed in other groups
    /// meanwhile stays. A new definition is written in any case, one without changes never, nor one whose file is there
    /// but could not be read. False if changes that are new to this call could not be written: the file is as it was.
    bool save();

private:
    bool hasUnsavedChanges() const;
    void read();
    bool write(const DefinitionGroups &groups) const;

    SyntaxFile m_file;
    DefinitionGroups m_read;     ///< As the file had them when it was last read; of a new definition the defaults.
    DefinitionGroups m_accepted; ///< As the user has accepted them last.
    bool m_isNew = true;         ///< Was never read from a file.
    bool m_isAccepted = false;   ///< Was saved or tried to, though it may still be new.
    bool m_isDamaged = false;    ///< The file is there but could not be read.
};
