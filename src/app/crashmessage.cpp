// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/crashmessage.h"

#include <QCoreApplication>

QString crashTitle()
{
    return QCoreApplication::translate("EventLog", "Application Crashed");
}

QString crashText()
{
    return QCoreApplication::translate("EventLog",
                                       "Ooops, Kestrin 7 crashed! Please, send files 'sys\\logs\\dumped.dat' and       "
                                       "'sys\\logs\\log.dat' to the Kestrin 7 support team. This will help to find the "
                                       "reason of this behavior.");
}
