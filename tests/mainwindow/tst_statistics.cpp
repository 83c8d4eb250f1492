// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/windowprobe.h"
#include "statistics/statisticsdialog.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QSettings>
#include <QTableView>
#include <QTest>

namespace {

QStringList listedFiles(const QDialog *dialog)
{
    const QAbstractItemModel *model = dialog->findChild<QTableView *>()->model();
    QStringList files;
    for (int row = 0; row < model->rowCount(); ++row)
        files.append(model->index(row, 0).data().toString());
    return files;
}

} // namespace

/// The statistics as the window's command shows them.
class TestStatistics : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void listsTheOpenDocuments();
    void isMadeOnceAndKept();
    void withoutDocuments();
};

void TestStatistics::listsTheOpenDocuments()
{
    const TestFiles files;
    const QString a = files.write("a.cpp", "int a;\n\n// comment\n");
    const QString b = files.writePicture("b.png");
    const WindowProbe window({a, b});
    LogProbe log;
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        QVERIFY(qobject_cast<StatisticsDialog *>(dialog));
        QCOMPARE(listedFiles(dialog), (QStringList{a, b}));
        QCOMPARE(dialog->size(), QSize(640, 400));
        const Qt::WindowFlags asked =
            Qt::Drawer | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::CustomizeWindowHint;
        QCOMPARE(dialog->windowFlags() & asked, asked);
        QVERIFY(!dialog->windowFlags().testFlag(Qt::WindowCloseButtonHint));
        dialog->accept();
    });
    window.action("actionShowStatistics")->trigger();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().parent, &*window);
    QVERIFY(log.traceSinceMark().contains("Show text statistics"));
}

void TestStatistics::isMadeOnceAndKept()
{
    const TestFiles files;
    const WindowProbe window({files.write("a.txt")});
    QVERIFY(!window->findChild<StatisticsDialog *>());
    QPointer<QDialog> first;
    for (int i = 0; i < 2; ++i) {
        DialogAnswers answers;
        answers.handle([&](QDialog *dialog) {
            if (first.isNull())
                first = dialog;
            QCOMPARE(dialog, first.data());
            QCOMPARE(listedFiles(dialog).size(), i + 1);
            dialog->reject();
        });
        window->showStatistics();
        QCOMPARE(answers.left(), 0);
        window->newProject();
    }
    QCOMPARE(window->findChildren<StatisticsDialog *>().size(), 1);
    window.forgetChanges();
}

void TestStatistics::withoutDocuments()
{
    const WindowProbe window;
    DialogAnswers answers;
    answers.handle([&](QDialog *dialog) {
        // There is no stack of documents yet, so that the table is as it was made.
        QCOMPARE(listedFiles(dialog), QStringList(8));
        dialog->accept();
    });
    window->showStatistics();
    QCOMPARE(answers.seen().size(), 1);
}

REGISTER_TEST(TestStatistics)
#include "tst_statistics.moc"
