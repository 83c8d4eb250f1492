// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// One text of a translation source file.
struct TsMessage
{
    QString context;
    QString source;
    QString translation;
    QString type; ///< Empty when done; else "unfinished", "vanished" or "obsolete".

    /// Context and source, as a failed test names the text.
    QString name() const;
};

/// The texts of the file at @p path in its order. Ends the run if it cannot be read or is no translation source.
QList<TsMessage> readTsFile(const QString &path);

/// The translation source of @p language in the sources: "pl" or "fr".
QString ownTsFile(const QString &language);
/// The folder where the build lays the compiled translations.
QString laidTranslations();
