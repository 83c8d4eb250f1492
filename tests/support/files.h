// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QTest>

/// What stands in the file at @p path; something that no test expects where it cannot be read.
inline QByteArray bytesIn(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<cannot be read>");
}

/// Writes @p contents into a file at @p path, over what was there. Fails the test if that cannot be done.
inline void store(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}
