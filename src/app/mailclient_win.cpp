// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/mailclient.h"

#include <QSettings>

namespace {

/// The unnamed value of a registry key; empty if there is none.
QString registryDefault(const QString &key)
{
    return QSettings(key, QSettings::NativeFormat).value(QStringLiteral("Default")).toString();
}

} // namespace

QString defaultMailClient()
{
    const QString clients = QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Clients\\Mail");
    const QString client = registryDefault(clients);
    if (client.isEmpty())
        return {};
    return registryDefault(clients + QLatin1Char('\\') + client + QStringLiteral("\\shell\\open\\command"));
}
