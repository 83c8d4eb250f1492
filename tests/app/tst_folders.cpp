// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/eventlog.h"
#include "app/folders.h"
#include "app/ringbuffer.h"
#include "support/testmain.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QTest>

namespace {

/// The lines that the ring holds, without their prefixes.
QStringList tracedTexts()
{
    static const QRegularExpression prefix("^\\[R6 \\d\\d:\\d\\d:\\d\\d\\] ");
    QStringList texts;
    ringBuffer.forEach(
        [&texts](const std::string &line) { texts.append(QString::fromStdString(line).remove(prefix)); });
    return texts;
}

} // namespace

class TestFolders : public QObject
{
    Q_OBJECT

private slots:
    void namesToFolders_data();
    void namesToFolders();
    void eachCallWritesATracePair();
    void workingDirectoryDoesNotMatter();
};

void TestFolders::namesToFolders_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("parts");
    QTest::newRow("translations") << "translations"
                                  << "/sys/sysr/lg/";
    QTest::newRow("temporary") << "temporary"
                               << "/sys/ltmp/";
    QTest::newRow("logs") << "logs"
                          << "/sys/logs/";
    QTest::newRow("syntax") << "syntax"
                            << "/sys/sysr/sn/";
    QTest::newRow("resources") << "resources"
                               << "/sys/sysr/";
    QTest::newRow("unknown") << "lg" << QString();
    QTest::newRow("other case") << "Logs" << QString();
    QTest::newRow("empty") << "" << QString();
    QTest::newRow("null") << QString() << QString();
    QTest::newRow("way out") << "../logs" << QString();
}

void TestFolders::namesToFolders()
{
    QFETCH(QString, name);
    QFETCH(QString, parts);
    const QString expected =
        parts.isEmpty() ? QString() : QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + parts);
    QCOMPARE(dataFolder(name), expected);
}

void TestFolders::eachCallWritesATracePair()
{
    static const QRegularExpression enter("^Scv \\d+$");
    static const QRegularExpression leave("^ <=> \\d+$");
    for (const QString &name : {QStringLiteral("temporary"), QStringLiteral("no such name")}) {
        (logTrace << "before the call").eol(0);
        dataFolder(name);
        const QStringList texts = tracedTexts();
        QVERIFY(texts.size() >= 3);
        QVERIFY(texts.at(texts.size() - 3).endsWith(QLatin1String("before the call")));
        QVERIFY2(enter.match(texts.at(texts.size() - 2)).hasMatch(), qPrintable(texts.at(texts.size() - 2)));
        QVERIFY2(leave.match(texts.last()).hasMatch(), qPrintable(texts.last()));
        QVERIFY(texts.last().mid(5).toInt() > texts.at(texts.size() - 2).mid(4).toInt());
    }
}

void TestFolders::workingDirectoryDoesNotMatter()
{
    const QString before = dataFolder(QStringLiteral("syntax"));
    const QString here = QDir::currentPath();
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
    const QString elsewhere = dataFolder(QStringLiteral("syntax"));
    QVERIFY(QDir::setCurrent(here));
    QCOMPARE(elsewhere, before);
}

REGISTER_TEST(TestFolders)
#include "tst_folders.moc"
