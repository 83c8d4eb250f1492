// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <memory>

namespace {

QList<const RegisteredTest *> &registeredTests()
{
    static QList<const RegisteredTest *> tests;
    return tests;
}

/// Only two font families, the same on every machine, so that sizes and pictures are the same too.
QByteArray writeFontConfiguration(const QString &folder)
{
    const QString path = folder + QStringLiteral("/fonts.conf");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write the font configuration");
    file.write(
        "<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig>\n"
        "<dir>/usr/share/fonts/truetype/dejavu</dir>\n<dir>/usr/share/fonts/truetype/liberation</dir>\n"
        "<alias binding=\"same\"><family>Courier</family><prefer><family>Liberation Mono</family></prefer></alias>\n"
        "<alias binding=\"same\"><family>Arial</family><prefer><family>Liberation Sans</family></prefer></alias>\n"
        "<alias><family>sans-serif</family><prefer><family>DejaVu Sans</family></prefer></alias>\n"
        "<alias><family>monospace</family><prefer><family>DejaVu Sans Mono</family></prefer></alias>\n"
        "<cachedir>");
    file.write(folder.toUtf8());
    file.write("/fontcache</cachedir>\n</fontconfig>\n");
    return path.toLocal8Bit();
}

/// A home of the run's own: nothing that a test does reaches the user's settings or files.
void isolate(const QString &folder)
{
    const QByteArray home = folder.toLocal8Bit();
    qputenv("HOME", home);
    qputenv("XDG_CONFIG_HOME", home + "/config");
    qputenv("XDG_DATA_HOME", home + "/data");
    qputenv("XDG_CACHE_HOME", home + "/cache");
    qputenv("XDG_RUNTIME_DIR", home);
    qputenv("FONTCONFIG_FILE", writeFontConfiguration(folder));
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("LC_ALL"))
        qputenv("LC_ALL", "C.UTF-8");
}

int runTests(const QString &only, QStringList arguments)
{
    int failures = 0;
    bool found = false;
    for (const RegisteredTest *test : std::as_const(registeredTests())) {
        if (!only.isEmpty() && test->name != only)
            continue;
        found = true;
        const std::unique_ptr<QObject> object(test->make());
        failures += QTest::qExec(object.get(), arguments);
        QSettings().clear();
    }
    if (!found) {
        std::fprintf(stderr, "no test is named %s\n", qPrintable(only));
        return 1;
    }
    return failures == 0 ? 0 : 1;
}

} // namespace

RegisteredTest::RegisteredTest(const char *file, Factory factory)
    : name(QFileInfo(QString::fromLocal8Bit(file)).completeBaseName().remove(QStringLiteral("tst_"))), make(factory)
{
    registeredTests().append(this);
}

int runRegisteredTests(int argc, char **argv)
{
    const QTemporaryDir folder;
    isolate(folder.path());
    QApplication app(argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // The names under which the program keeps its settings; the store itself lies in the home made above.
    QCoreApplication::setOrganizationName(QStringLiteral("Moorfield"));
    QCoreApplication::setApplicationName(QStringLiteral("Kestrin 7"));

    QStringList arguments = app.arguments();
    QString only;
    if (arguments.size() > 1 && !arguments.at(1).startsWith(QLatin1Char('-')))
        only = arguments.takeAt(1);
    return runTests(only, arguments);
}
