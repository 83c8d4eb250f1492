// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTest>

/// The command of the README on a machine without a display.
class TestRun : public QObject
{
    Q_OBJECT

private slots:
    void showsItsFilesAndTakesAPicture();
    void boxAboutAMissingFileIsClosed();
    void failsWhenNoWindowComesUp();

private:
    static QProcessEnvironment withoutDisplay();
    static int run(const QStringList &files, const QProcessEnvironment &environment, QString *output);
};

QProcessEnvironment TestRun::withoutDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    return environment;
}

int TestRun::run(const QStringList &files, const QProcessEnvironment &environment, QString *output)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(QStringLiteral(KESTRIN_SOURCE_DIR));
    process.start(QStringLiteral(KESTRIN_SOURCE_DIR "/run"), files);
    if (!process.waitForFinished(240000))
        return -1;
    *output = QString::fromLocal8Bit(process.readAll());
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

void TestRun::showsItsFilesAndTakesAPicture()
{
    const QString picture = QStringLiteral(KESTRIN_SOURCE_DIR "/build/window.png");
    QFile::remove(picture);
    QString output;
    QCOMPARE(run({QStringLiteral("README.md")}, withoutDisplay(), &output), 0);
    QVERIFY2(output.contains(picture), qPrintable(output));
    const QImage image(picture);
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); y += 2) {
        for (int x = 0; x < image.width(); x += 2)
            colors.insert(image.pixel(x, y));
    }
    QVERIFY2(colors.size() > 100, "the picture shows a window with its icons");
}

void TestRun::boxAboutAMissingFileIsClosed()
{
    QString output;
    const QString missing = QStringLiteral("no such file.txt");
    QCOMPARE(run({QStringLiteral("README.md"), missing}, withoutDisplay(), &output), 0);
    QVERIFY2(output.contains(QLatin1String("Closing a box: I/O Error")), qPrintable(output));
}

void TestRun::failsWhenNoWindowComesUp()
{
    QProcessEnvironment environment = withoutDisplay();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("no such platform"));
    QString output;
    QVERIFY(run({}, environment, &output) > 0);
    QVERIFY2(output.contains(QLatin1String("window")), qPrintable(output));
}

REGISTER_TEST(TestRun)
#include "tst_run.moc"
