// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/mailclient.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

namespace {

/// Name of the desktop entry that opens mailto links, "thunderbird.desktop"; empty if none is known.
QString mailtoEntry()
{
    constexpr int limit = 5000; // milliseconds
    QProcess query;
    query.setStandardInputFile(QProcess::nullDevice());
    query.setStandardErrorFile(QProcess::nullDevice());
    query.start(QStringLiteral("xdg-mime"),
                {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("x-scheme-handler/mailto")});
    if (!query.waitForFinished(limit) || query.exitStatus() != QProcess::NormalExit || query.exitCode() != 0) {
        query.kill();
        query.waitForFinished();
        return {};
    }
    return QFileInfo(QString::fromLocal8Bit(query.readAllStandardOutput()).trimmed()).fileName();
}

/// The value of "Exec" in the main group of a desktop entry, as it stands there.
QString execOf(const QString &entryPath)
{
    QFile file(entryPath);
    if (!QFileInfo(entryPath).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    bool inMainGroup = false;
    for (const QString &rawLine : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        const QString line = rawLine.trimmed();
        if (line.startsWith(QLatin1Char('[')))
            inMainGroup = line == QLatin1String("[Desktop Entry]");
        else if (inMainGroup && line.section(QLatin1Char('='), 0, 0).trimmed() == QLatin1String("Exec"))
            return line.section(QLatin1Char('='), 1).trimmed();
    }
    return {};
}

/// The words of a command: blanks separate them, except between double quotes, where a backslash takes the character
/// behind it literally.
QStringList wordsOf(QString command)
{
    // A backslash is doubled in every text of a desktop entry.
    command.replace(QLatin1String("\\\\"), QLatin1String("\\"));
    QStringList words;
    QString word;
    bool inQuotes = false;
    for (qsizetype i = 0; i < command.size(); ++i) {
        const QChar c = command.at(i);
        if (c == QLatin1Char('"')) {
            inQuotes = !inQuotes;
        } else if (c == QLatin1Char('\\') && inQuotes && i + 1 < command.size()) {
            word += command.at(++i);
        } else if (c == QLatin1Char(' ') && !inQuotes) {
            words.append(word);
            word.clear();
        } else {
            word += c;
        }
    }
    words.append(word);
    words.removeAll(QString());
    return words;
}

} // namespace

QString defaultMailClient()
{
    const QString entry = mailtoEntry();
    if (entry.isEmpty())
        return {};
    const QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entry);
    QStringList words = wordsOf(execOf(path));
    // "env NAME=value program" starts the program, too.
    while (!words.isEmpty() && (words.constFirst() == QLatin1String("env") || words.constFirst().contains('=')))
        words.removeFirst();
    // What starts another program would need more than its own name.
    const QStringList launchers{"flatpak", "snap", "sh", "bash"};
    return launchers.contains(QFileInfo(words.value(0)).fileName()) ? QString() : words.value(0);
}
