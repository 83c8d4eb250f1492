// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/recentlist.h"

#include <QSettings>

QStringList storedRecent()
{
    return QSettings().value(recentKey).toStringList();
}

QStringList recentPaths(const WindowProbe &window)
{
    QStringList paths;
    for (const QAction *action : window.recentActions())
        paths.append(action->data().toString());
    return paths;
}

QString titleOf(const QString &name)
{
    return QStringLiteral("Kestrin 7 [%1]").arg(name);
}
