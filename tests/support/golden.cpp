// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QString bless(const QString &path, const QByteArray &actual)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(actual) == actual.size();
    return written ? QString() : "cannot write " + path;
}

/// The lines of both texts between their common start and their common end.
QString changedLines(const QStringList &expected, const QStringList &actual)
{
    qsizetype start = 0;
    while (start < expected.size() && start < actual.size() && expected.at(start) == actual.at(start))
        ++start;
    qsizetype end = 0;
    while (end < expected.size() - start && end < actual.size() - start &&
           expected.at(expected.size() - 1 - end) == actual.at(actual.size() - 1 - end))
        ++end;
    QString text = QStringLiteral("from line %1:\n").arg(start + 1);
    for (qsizetype i = start; i < expected.size() - end; ++i)
        text += "- " + expected.at(i) + '\n';
    for (qsizetype i = start; i < actual.size() - end; ++i)
        text += "+ " + actual.at(i) + '\n';
    return text;
}

} // namespace

QString differenceFromGolden(const QString &name, const QByteArray &actual)
{
    const QString path = QStringLiteral(KESTRIN_SOURCE_DIR "/tests/data/") + name;
    if (!qEnvironmentVariableIsEmpty("KESTRIN_BLESS"))
        return bless(path, actual);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return path + ": cannot be read. Run the test once with KESTRIN_BLESS=1 and look at what it wrote.";
    const QByteArray expected = file.readAll();
    if (expected == actual)
        return {};
    return path + " differs " +
           changedLines(QString::fromUtf8(expected).split('\n'), QString::fromUtf8(actual).split('\n')) +
           "If the new result is right, run the test with KESTRIN_BLESS=1 and commit the file.";
}
